// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "history/Figures.h"

#include <cmath>

namespace History {

namespace {

NutrientFigures figuresOf(std::span<const Day> days, std::size_t nutrient)
{
    NutrientFigures figures;
    double sum = 0.0;
    const Day *lowest = &days.front();
    const Day *highest = &days.front();
    for (const Day &day : days) {
        const float amount = day.sums[nutrient];
        sum += double(amount);
        if (amount < lowest->sums[nutrient] || std::isnan(lowest->sums[nutrient]))
            lowest = &day;
        if (amount > highest->sums[nutrient] || std::isnan(highest->sums[nutrient]))
            highest = &day;
    }
    figures.mean = sum / static_cast<double>(days.size());
    figures.lowestday = lowest->date;
    figures.lowest = lowest->sums[nutrient];
    figures.highestday = highest->date;
    figures.highest = highest->sums[nutrient];
    return figures;
}

// How much an entry counts for, by energy.
double weightOf(float energy)
{
    return std::isfinite(energy) && energy > 0.0F ? double(energy) : 0.0;
}

} // namespace

std::optional<double> ratioOf(double amount, float allowance)
{
    return allowance > 0.0F ? std::optional(amount / double(allowance)) : std::nullopt;
}

KnownShareCounter::KnownShareCounter(const Days &counted)
    : days(counted)
    , weights(counted.foods->size())
{ }

KnownShares KnownShareCounter::of(std::span<const Day> some)
{
    std::vector<std::size_t> eaten;
    Weight total;
    for (const Day &day : some) {
        for (const Entry &entry : days.entriesOf(day)) {
            const auto food = static_cast<std::size_t>(entry.food);
            Weight &weight = weights[food];
            if (weight.entries++ == 0)
                eaten.push_back(food);
            const float per100grams = (*days.foods)[food].composition.amount(0).value_or(0.0F);
            weight.energy += weightOf(Composition::amountIn(entry.grams, per100grams));
            ++total.entries;
        }
    }
    for (const std::size_t food : eaten)
        total.energy += weights[food].energy;
    KnownShares shares{};
    for (const std::size_t food : eaten) {
        const double share = total.energy > 0.0 ? weights[food].energy / total.energy
                                                : double(weights[food].entries) / double(total.entries);
        for (std::size_t nutrient = 0; nutrient < shares.size(); ++nutrient) {
            if ((*days.foods)[food].composition.amount(static_cast<int>(nutrient)))
                shares[nutrient] += share;
        }
        weights[food] = {};
    }
    return shares;
}

KnownShares knownShares(const Days &days, std::span<const Day> some)
{
    return KnownShareCounter(days).of(some);
}

std::optional<Table> figures(const Days &days, const Allowances &allowances)
{
    const std::span<const Day> logged = days.ofPeriod();
    if (logged.empty())
        return std::nullopt;
    const KnownShares shares = knownShares(days, logged);
    Table table;
    for (std::size_t nutrient = 0; nutrient < table.size(); ++nutrient) {
        table[nutrient] = figuresOf(logged, nutrient);
        table[nutrient].ratio = ratioOf(table[nutrient].mean, allowances[nutrient]);
        table[nutrient].knownshare = shares[nutrient];
    }
    return table;
}

} // namespace History
