// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "catalog/FoodCatalogue.h"

#include <QDateTime>
#include <QMap>
#include <QRandomGenerator>
#include <QString>
#include <QStringList>

#include <vector>

// What a run that may be killed does, worked out from a number alone, so that whoever finds the store afterwards knows
// what should be in it. No two numbers may be the same: SQLite writes nothing where nothing changes. A run shows some
// days in turn, and gives each a new log before it goes on to the next.
class CrashPlan final {
public:
    static constexpr int days = 5;

    explicit CrashPlan(quint32 seed)
        : number(seed)
    {
        QRandomGenerator random(seed);
        for (int step = 0; step < days; ++step) {
            int day = random.bounded(6);
            if (!steps.empty() && steps.back().day == day)
                day = (day + 1) % 6;
            Step made{day, {}, {}};
            for (int i = random.bounded(1, 40); i > 0; --i) {
                made.foods.append(FoodCatalogue::foodNames()[random.bounded(int(FoodCatalogue::foodNames().size()))]);
                made.amounts.append(QString::number(random.bounded(1000)));
            }
            made.foods.removeDuplicates(); // as the log does
            steps.push_back(made);
        }
    }

    struct Step {
        int day;
        QStringList foods;
        QStringList amounts;
    };
    std::vector<Step> steps;
    quint32 number;

    // The run begins with a day that no other has shown, and leaves it empty.
    [[nodiscard]] QDateTime firstInstant() const { return QDateTime({2022, 1, 1}, {12, 0}, Qt::UTC).addDays(number); }
    [[nodiscard]] QDateTime instant(int step) const
    {
        return QDateTime({2021, 5, 1}, {8, 30}, Qt::UTC).addDays(steps[std::size_t(step)].day);
    }
    [[nodiscard]] QString key(int step) const { return instant(step).toString(QStringLiteral("yyyy_MM_dd")); }
    [[nodiscard]] QString rda() const { return QString::number(number % 10000); }

    // By key, what the store holds, without what is empty.
    using Contents = QMap<QString, QStringList>;
    // The first save leaves the day that the run began with, each further one the day of a step, the last ends the run.
    static constexpr int saves = days + 1;
    [[nodiscard]] Contents afterSaves(Contents contents, int count) const
    {
        for (int step = 0; step + 1 < count; ++step) {
            QStringList entries;
            const Step &done = steps[std::size_t(step)];
            for (int i = 0; i < done.foods.size(); ++i)
                entries.append(done.foods[i] + u' ' + done.amounts[i]);
            contents.insert(key(step), entries);
        }
        if (count == saves) {
            contents.insert(QStringLiteral("LastDate"), {instant(days - 1).toString(Qt::ISODate)});
            contents.insert(QStringLiteral("RDAs"), {rda()});
        }
        return contents;
    }
};
