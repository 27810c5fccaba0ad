// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "history/Year.h"

#include "history/Figures.h"

#include <algorithm>
#include <cmath>

namespace History {

namespace {

constexpr int week = 7;

int stepByAllowance(double ratio)
{
    if (std::isnan(ratio))
        return 0;
    return static_cast<int>(std::clamp(ratio, 0.0, 1.0) * (steps - 1));
}

// `amounts` are those of the year's logged days, sorted, numbers only.
int stepByRank(const std::vector<float> &amounts, float amount)
{
    if (std::isnan(amount))
        return 0;
    const auto less = std::lower_bound(amounts.begin(), amounts.end(), amount) - amounts.begin();
    return static_cast<int>(less * steps / static_cast<std::ptrdiff_t>(amounts.size()));
}

} // namespace

Year year(const Days &days, int nutrient, float allowance)
{
    const auto place = static_cast<std::size_t>(nutrient);
    Year year;
    year.year = days.period.last.year();
    const QDate first(year.year, 1, 1);
    std::vector<float> amounts;
    for (const Day &day : days.between(first, {year.year, 12, 31})) {
        if (!std::isnan(day.sums[place]))
            amounts.push_back(day.sums[place]);
    }
    std::sort(amounts.begin(), amounts.end());
    const int offset = first.dayOfWeek() - 1;
    for (int number = 0; number < first.daysInYear(); ++number) {
        Cell cell{first.addDays(number), (number + offset) / week, (number + offset) % week, {}};
        if (const Day *day = days.on(cell.date)) {
            const std::optional<double> ratio = ratioOf(double(day->sums[place]), allowance);
            cell.step = ratio ? stepByAllowance(*ratio) : stepByRank(amounts, day->sums[place]);
        }
        year.cells.push_back(cell);
    }
    year.weeks = year.cells.back().week + 1;
    return year;
}

} // namespace History
