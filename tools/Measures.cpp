// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "tools/Measures.h"

#include <algorithm>

namespace {

Measure wholeMeasure(const Measure &row)
{
    const Decimal amount = Decimal::fromText(row.amount).value();
    if (amount.isWhole())
        return row;
    if (row.name.find("serving") != std::string::npos)
        return {.name = "x " + amount.text() + ' ' + row.name, .amount = "1", .grams = row.grams};
    const Decimal grams = Decimal::fromText(row.grams).value();
    return {.name = row.name, .amount = "1", .grams = grams.dividedBySignificant(amount, 4)};
}

bool sameTitle(const Measure &left, const Measure &right)
{
    return left.name == right.name
        && Decimal::fromText(left.amount).value().text() == Decimal::fromText(right.amount).value().text();
}

bool hasWeight(const Measure &measure)
{
    return measure.grams.find_first_of("123456789") != std::string::npos;
}

} // namespace

std::vector<Measure> foodFileMeasures(const MeasureRows &rows)
{
    std::vector<Measure> measures;
    for (const auto &[sequence, row] : rows) {
        const Measure measure = wholeMeasure(row);
        const bool titled
            = std::ranges::any_of(measures, [&measure](const Measure &other) { return sameTitle(measure, other); });
        if (!titled && hasWeight(measure))
            measures.push_back(measure);
    }
    if (measures.empty())
        measures.push_back({.name = "oz", .amount = "1", .grams = "28.35"});
    return measures;
}
