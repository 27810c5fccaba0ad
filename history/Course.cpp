// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "history/Course.h"

#include <algorithm>

namespace History {

namespace {

constexpr int mostDayBars = 92;
constexpr int mostWeekYears = 10;
constexpr int week = 7;

QDate lastOfBar(QDate first, Grouping grouping)
{
    switch (grouping) {
    case Grouping::Day:
        break;
    case Grouping::Week:
        return first.addDays(week - first.dayOfWeek());
    case Grouping::Month:
        return {first.year(), first.month(), first.daysInMonth()};
    }
    return first;
}

std::optional<double> meanOf(std::span<const Day> days, std::size_t nutrient)
{
    double sum = 0.0;
    for (const Day &day : days)
        sum += double(day.sums[nutrient]);
    return days.empty() ? std::nullopt : std::optional(sum / static_cast<double>(days.size()));
}

// Only days on which something can have changed are looked at: a single entry of year 1 makes a period of 700,000 days.
std::vector<RunningMean> runningMeans(const Days &days, std::size_t nutrient)
{
    std::vector<RunningMean> means;
    const std::span<const Day> logged = days.between(days.period.first.addDays(1 - week), days.period.last);
    std::size_t begin = 0;
    for (std::size_t i = 0; i < logged.size(); ++i) {
        QDate end = std::min(logged[i].date.addDays(week - 1), days.period.last);
        if (i + 1 < logged.size())
            end = std::min(end, logged[i + 1].date.addDays(-1));
        for (QDate day = logged[i].date; day <= end; day = day.addDays(1)) {
            while (logged[begin].date.daysTo(day) >= week)
                ++begin;
            const std::span<const Day> seven = logged.subspan(begin, i + 1 - begin);
            if (day >= days.period.first && seven.size() >= fewestOfSeven)
                means.push_back({day, *meanOf(seven, nutrient)});
        }
    }
    return means;
}

} // namespace

Grouping groupingOf(const Period &period)
{
    if (period.days() <= mostDayBars)
        return Grouping::Day;
    return period.last >= period.first.addYears(mostWeekYears) ? Grouping::Month : Grouping::Week;
}

Course course(const Days &days, int nutrient)
{
    const auto place = static_cast<std::size_t>(nutrient);
    Course course{groupingOf(days.period), {}, runningMeans(days, place)};
    for (QDate first = days.period.first; first.isValid() && first <= days.period.last;) {
        const QDate last = std::min(lastOfBar(first, course.grouping), days.period.last);
        const std::span<const Day> logged = days.between(first, last);
        const std::optional<double> mean = meanOf(logged, place);
        course.bars.push_back({{first, last}, static_cast<int>(logged.size()), mean.value_or(0.0)});
        first = last.addDays(1);
    }
    return course;
}

std::size_t barOf(const Course &course, QDate day)
{
    const auto bar = std::partition_point(
        course.bars.begin(), course.bars.end(), [&](const Bar &each) { return each.days.last < day; });
    return static_cast<std::size_t>(bar - course.bars.begin());
}

} // namespace History
