// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

class Composition;

// How much of a food a person eats at a sitting: so many of one of the food's units, which weigh so many grams.
// docs/decisions/a-portion-is-what-is-eaten-at-a-sitting.md says where the quantities come from.
struct Portion {
    float amount = 100.0F;
    QString unit = QStringLiteral("g"); // one of the composition's unit titles
    float grams = 100.0F;

    bool operator==(const Portion &) const = default;

    // By the food's name and measures. A kind of food that the table knows is eaten in about the quantity given there,
    // in the measure that comes nearest, or in grams where none comes near; any other in its first measure, halved
    // until it weighs no more than 250 g and has no more than 300 kcal. `energy` is in kcal a 100 g.
    [[nodiscard]] static Portion of(const QString &name, const Composition &composition, float energy);
};
