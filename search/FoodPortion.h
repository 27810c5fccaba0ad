// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "search/FoodQuantity.h"

#include <QString>

#include <span>

// A unit of a food, as the log's menu has it: a title that begins with a number ("1 large", "3 oz"), or "g", and what
// one of it weighs in grams.
struct FoodUnit {
    QString title;
    float grams = 0;
};

// So much of a food, told as a person would enter it: choose the unit, type the amount.
struct FoodPortion {
    int unit = 0; // into the units
    QString amount; // the shortest text that reads as that 32-bit float
    float grams = 100.0F; // the weight of an entry with this unit and amount
    bool fits = false; // or the food has nothing to measure such a quantity by: then this is 100 g

    bool operator==(const FoodPortion &) const = default;

    // The first of the units is "g". A mass is in grams. A measure is the first unit whose title begins with its word,
    // else one that says nearly the same ("rasher", "slice"). A volume that the food has no unit for is counted in the
    // largest of its volumes that is not larger, else in the smallest. A bare number counts what stands for one piece:
    // a unit named like the food, large before medium before small, the first one that is no weight or volume.
    [[nodiscard]] static FoodPortion of(const FoodQuantity &quantity, std::span<const FoodUnit> units);
};
