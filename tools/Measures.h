// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "tools/Decimal.h"

#include <map>
#include <string>
#include <vector>

// A household measure of a food, as the release or as a food file has it.
struct Measure {
    std::string name;
    std::string amount;
    std::string grams;

    bool operator==(const Measure &) const = default;
};

// A food's measures by the release's sequence number.
using MeasureRows = std::map<std::int64_t, Measure>;

// The measures for a food file, in the release's order. A measure is titled with its amount without decimals and its
// name, so no amount here is fractional: such a row becomes one whole unit, or, where the row is a serving, one of a
// name that says the amount. A title that is there already and a row without a positive weight are left out, and a food
// without any measure gets the ounce. The amounts of all rows are positive numbers, the weights numbers.
[[nodiscard]] std::vector<Measure> foodFileMeasures(const MeasureRows &rows);
