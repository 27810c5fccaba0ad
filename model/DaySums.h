// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "catalog/NutrientCatalogue.h"
#include "model/Food.h"

#include <vector>

// The 61 sums of a day, in the catalogue's order and units. What they are to the last bit is said here, once: 32-bit
// floats from zero, one addition an entry, in the order of the log.
namespace DaySums {

using Amounts = Composition::Amounts;

// The entry's amount of each nutrient. Loads the food.
[[nodiscard]] Amounts amountsOf(Food &food);

void add(Amounts &sums, const Amounts &amounts);
// The same of so many grams of a food whose file was read.
void add(Amounts &sums, const Composition &composition, float grams);

// What opening a day with these entries shows. Loads them.
[[nodiscard]] Amounts of(std::vector<Food> &foods);

} // namespace DaySums
