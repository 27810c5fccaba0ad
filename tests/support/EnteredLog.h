// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "app/SettingsKeys.h"
#include "model/StoredDay.h"
#include "tests/support/Run.h"
#include "tests/support/StoreHome.h"

#include <QComboBox>
#include <QLineEdit>

// A home whose days are written and read as short texts, "A 30, B 40": the entries' names and amounts.
class EnteredLog final {
public:
    static inline const QString today = QStringLiteral("2026_11_21");

    Home home;

    [[nodiscard]] QString storePath() const { return home.storePath(); }
    [[nodiscard]] QVariant stored(const QString &key) const { return UserDefaults(storePath()).objectForKey(key); }
    [[nodiscard]] QString storedEntries(const QString &key) const { return entriesOf(stored(key)); }
    // As opening a day with that list would show it.
    [[nodiscard]] static QString entriesOf(const QVariant &list)
    {
        QStringList entries;
        const StoredDay contents = StoredDay::of(list);
        for (const Food &food : contents.foods)
            entries.append(food.name().value_or(QString()) + u' ' + QString::number(double(food.curamount())));
        return entries.join(QStringLiteral(", "));
    }

    // As a person would.
    static void enter(Run &run, const QString &entries)
    {
        for (const QString &entry : entries.split(QStringLiteral(", "), Qt::SkipEmptyParts)) {
            run.add({entry.section(u' ', 0, 0)});
            run.edit(int(run.controller.foods.size()) - 1, entry.section(u' ', 1));
        }
    }
    static void setRDA(Run &run, int nutrient, const char *value)
    {
        run.controller.rdamenu->setCurrentIndex(nutrient);
        run.controller.rdainput->setText(QString::fromLatin1(value));
        run.controller.setRDA();
    }
    // A run that enters these today and ends.
    void storeToday(const QString &entries)
    {
        Run run(home);
        run.launch();
        enter(run, entries);
        run.terminate();
    }
};
