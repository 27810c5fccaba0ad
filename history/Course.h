// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "history/Days.h"

#include <vector>

namespace History {

// What a bar of the chart stands for: a day in up to 92 days, a month in more than ten years, else a week. Weeks begin
// on Monday; the first and the last bar may be cut off by the period.
enum class Grouping { Day, Week, Month };
[[nodiscard]] Grouping groupingOf(const Period &period);

struct Bar {
    Period days;
    int loggeddays = 0; // 0: a gap, never a bar of zero
    double mean = 0.0; // of the logged days; infinite or not a number where their sums are
};

// The mean of the logged days among the seven up to a day.
struct RunningMean {
    QDate day;
    double mean;
};
constexpr int fewestOfSeven = 4;

struct Course {
    Grouping grouping = Grouping::Day;
    std::vector<Bar> bars; // without a hole from the period's first day to its last
    // Of each day of the period on which at least four of the seven are logged. The line is broken between days that do
    // not follow each other.
    std::vector<RunningMean> running;
};

// One nutrient over the period.
[[nodiscard]] Course course(const Days &days, int nutrient);

// The place in `bars` of the bar that holds a day of the period.
[[nodiscard]] std::size_t barOf(const Course &course, QDate day);

} // namespace History
