// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "model/DaySums.h"

#include <cmath>

DaySums::Amounts DaySums::amountsOf(Food &food)
{
    Amounts amounts{};
    for (std::size_t i = 0; i < amounts.size(); ++i)
        amounts[i] = food.getAmountOfNutrient(static_cast<int>(i));
    return amounts;
}

void DaySums::add(Amounts &sums, const Amounts &amounts)
{
    for (std::size_t i = 0; i < sums.size(); ++i)
        sums[i] = sums[i] + amounts[i];
}

void DaySums::add(Amounts &sums, const Composition &composition, float grams)
{
    // A sum that began at 0 stays the same, to the bit, whichever 0 a nutrient that is not listed adds to it. Only what
    // is not finite must not be multiplied by that 0.
    if (std::isfinite(grams)) {
        const Amounts &amounts = composition.amounts();
        for (std::size_t i = 0; i < sums.size(); ++i)
            sums[i] = sums[i] + Composition::amountIn(grams, amounts[i]);
        return;
    }
    for (std::size_t i = 0; i < sums.size(); ++i) {
        if (const std::optional<float> per100grams = composition.amount(static_cast<int>(i)))
            sums[i] = sums[i] + Composition::amountIn(grams, *per100grams);
    }
}

DaySums::Amounts DaySums::of(std::vector<Food> &foods)
{
    Amounts sums{};
    for (Food &food : foods)
        add(sums, amountsOf(food));
    return sums;
}
