// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "model/DaySums.h"

DaySums::Amounts DaySums::amountsOf(Food &food)
{
    Amounts amounts{};
    for (std::size_t i = 0; i < amounts.size(); ++i)
        amounts[i] = food.getAmountOfNutrient(static_cast<int>(i));
    return amounts;
}

DaySums::Amounts DaySums::amountsOf(const Composition &composition, float grams)
{
    Amounts amounts{};
    for (std::size_t i = 0; i < amounts.size(); ++i) {
        if (const std::optional<float> per100grams = composition.amount(static_cast<int>(i)))
            amounts[i] = Composition::amountIn(grams, *per100grams);
    }
    return amounts;
}

void DaySums::add(Amounts &sums, const Amounts &amounts)
{
    for (std::size_t i = 0; i < sums.size(); ++i)
        sums[i] = sums[i] + amounts[i];
}

DaySums::Amounts DaySums::of(std::vector<Food> &foods)
{
    Amounts sums{};
    for (Food &food : foods)
        add(sums, amountsOf(food));
    return sums;
}
