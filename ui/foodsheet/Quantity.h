// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "model/Composition.h"
#include "search/FoodPortion.h"

#include <QString>

#include <optional>
#include <vector>

// So much of a food, as a person would enter it in the log: a unit chosen from the row's menu, and an amount typed.
struct Quantity {
    QString unit; // the title, as the food's file has it
    int unitidx = 0; // its place among the food's units
    QString amount; // as typed; NumberText reads it

    // What is asked for, measured in the food; nothing when the food has nothing to measure it by.
    [[nodiscard]] static std::optional<Quantity> asked(const FoodQuantity &quantity, const Composition &composition);
    // What an entry of the log says, which has no unit when it is in grams; nothing when the food does not know the
    // unit (any more), or the amount is none that somebody can have meant.
    [[nodiscard]] static std::optional<Quantity> logged(
        float amount, const std::optional<QString> &unit, const Composition &composition);

    [[nodiscard]] float value() const;
    // "3 × 1 large", "1 cup", "30 g".
    [[nodiscard]] QString text() const;

    bool operator==(const Quantity &) const = default;
};

// The same of an amount and a unit's title.
[[nodiscard]] QString quantityText(float number, bool isgrams, const QString &unit);
// "99 g", "226.8 g": whole grams as such, others with the one decimal that a kitchen scale shows.
[[nodiscard]] QString gramsText(float grams);
