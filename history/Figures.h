// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "history/Days.h"

#include <array>
#include <optional>
#include <vector>

namespace History {

using Allowances = DaySums::Amounts; // not above 0: there is none

// A share of the energy below which an amount is to be shown as a lower bound, "≥".
constexpr double wellKnown = 0.9;

// What a nutrient came to over the logged days. Not a number and infinite where the days' sums are.
struct NutrientFigures {
    double mean = 0.0; // of a logged day
    std::optional<double> ratio; // the mean by the allowance; 1 is all of it
    // The first of the days with the least and the most. Days whose sum is no number are passed over, unless all are.
    QDate lowestday;
    float lowest = 0.0F;
    QDate highestday;
    float highest = 0.0F;
    double knownshare = 0.0; // see knownShares()

    [[nodiscard]] bool isLowerBound() const { return knownshare < wellKnown; }
};
using Table = std::array<NutrientFigures, NutrientCatalogue::nutrientCount>;

// By nutrient index; nothing when no day of the period is logged.
[[nodiscard]] std::optional<Table> figures(const Days &days, const Allowances &allowances);

// For each nutrient the share, 0 to 1, of the days' energy that came from entries whose file lists the nutrient. An
// entry counts with its energy where that is a number above 0 and finite; where no entry's is, each entry counts alike.
// 0 without entries.
using KnownShares = std::array<double, NutrientCatalogue::nutrientCount>;
[[nodiscard]] KnownShares knownShares(const Days &days, std::span<const Day> some);

// The same for whoever asks of many days, one at a time: an answer takes as long as the days have entries, however many
// foods there are. The days outlive it.
class KnownShareCounter final {
public:
    explicit KnownShareCounter(const Days &days);
    [[nodiscard]] KnownShares of(std::span<const Day> some);

private:
    struct Weight {
        double energy = 0.0;
        int entries = 0;
    };

    const Days &days;
    std::vector<Weight> weights; // by the food's place; all 0 between two answers
};

// A day's amount by the allowance; nothing without an allowance.
[[nodiscard]] std::optional<double> ratioOf(double amount, float allowance);

} // namespace History
