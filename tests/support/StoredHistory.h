// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "history/DayReader.h"
#include "model/FoodRecord.h"
#include "platform/LocalDay.h"
#include "platform/UserDefaults.h"
#include "tests/support/FoodFiles.h"

#include <QTemporaryDir>

// What the tests of the history share: a store of their own and food files of their own. "Bread" has 100 kcal and 5 g
// of protein in 100 g, "Water" has no energy, and its file lists no protein.
struct StoredHistory {
    QTemporaryDir home;
    FoodFiles files;
    QString path = home.filePath(QStringLiteral("provender/preferences.sqlite"));
    UserDefaults prefs{path};
    History::DayReader reader{prefs};

    StoredHistory()
    {
        files.writeElements(QStringLiteral("Bread"),
            "<nutrient name='Energy' amount='100'/><nutrient name='Protein' amount='5'/>"
            "<nutrient name='Water' amount='40'/>");
        files.writeElements(
            QStringLiteral("Water"), "<nutrient name='Energy' amount='0'/><nutrient name='Water' amount='100'/>");
    }

    static QByteArray record(const char *name, float grams)
    {
        Food food(QString::fromLatin1(name));
        food.setCuramount(grams);
        return FoodRecord::archivedDataWithRootObject(food);
    }
    void store(QDate date, const QVariantList &items) { prefs.setObject(items, LocalDay::key(date)); }
    // So many grams, and kcal, of bread.
    void eat(QDate date, float grams) { store(date, {record("Bread", grams)}); }
    // One value a day from a day on; nothing is stored for a negative one.
    void eat(QDate first, const QList<float> &grams)
    {
        UserDefaults::Transaction all(prefs);
        for (qsizetype i = 0; i < grams.size(); ++i) {
            if (!(grams[i] < 0.0F))
                eat(first.addDays(i), grams[i]);
        }
        all.commit();
    }
};
