// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "history/Figures.h"
#include "history/Period.h"

#include <QString>

// How the history writes days and figures, the same in chart, tables and sentences. Names of months and weekdays are
// the user's; numbers are the program's.
namespace HistoryText {

// "54.00 mg", "inf mg".
[[nodiscard]] QString amount(double value, const QString &unit);
// "90 %"
[[nodiscard]] QString percent(double ratio);
// "4 Nov", with the year where it is another one than that of the other day.
[[nodiscard]] QString shortDay(QDate day, QDate beside);
// "Wed 4 Nov 2026"
[[nodiscard]] QString day(QDate date);
// "23 Oct to 21 Nov 2026"
[[nodiscard]] QString period(const History::Period &days);
// The first ones, and how many more.
[[nodiscard]] QString someDays(const QList<QDate> &days, qsizetype most, QDate beside);
// "≥ 54.00 mg" where too little is known to say more.
[[nodiscard]] QString mean(const History::NutrientFigures &figures, const QString &unit);
// All of a nutrient's figures as one sentence.
[[nodiscard]] QString summary(int nutrient, const History::NutrientFigures &figures, float allowance, QDate beside);

} // namespace HistoryText
