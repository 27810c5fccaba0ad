// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "bynutrient/Portion.h"

#include <QStringList>

#include <optional>
#include <vector>

// What all food files say, read in one go and kept until the program ends: 7,801 times 61 floats, about 2 MB. One
// file at a time would be no use to a question that asks all of them, and an index on the disk would have to be kept
// true to the files. A food whose file cannot be read has no figure at all; so has a nutrient that a file does not
// list: unknown is not zero.
class FoodFigures final {
public:
    // In the order of these names, which the figures go by.
    explicit FoodFigures(const QStringList &foodnames);

    // In 100 g, in the nutrient's unit; nothing when it is not known.
    [[nodiscard]] std::optional<float> amount(int food, int nutrient) const;
    [[nodiscard]] const Portion &portion(int food) const { return portions[static_cast<std::size_t>(food)]; }
    [[nodiscard]] int count() const { return static_cast<int>(portions.size()); }

private:
    std::vector<float> amounts; // not a number where nothing is known
    std::vector<Portion> portions;
};
