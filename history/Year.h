// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "history/Days.h"

#include <optional>
#include <vector>

namespace History {

constexpr int steps = 5;

// A day of the year.
struct Cell {
    QDate date;
    int week = 0; // the column, from 0; weeks begin on Monday
    int weekday = 0; // the row, 0 to 6
    std::optional<int> step; // 0 to 4; nothing when the day is not logged
};

// The calendar year in which the period ends. It lies in 53 weeks; in 54 where a leap year begins on a Sunday.
struct Year {
    int year = 0;
    int weeks = 53;
    std::vector<Cell> cells; // every day of the year, so that a day's place is its number in the year less 1
};

// With an allowance: below 25, 50, 75 and 100 % of it, and all of it. Without: the fifth of the year's logged days that
// the day is in, counting those that had less. No number is step 0.
[[nodiscard]] Year year(const Days &days, int nutrient, float allowance);

} // namespace History
