// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "catalog/NutrientCatalogue.h"
#include "tools/Decimal.h"

#include <array>
#include <map>
#include <optional>
#include <string>
#include <vector>

// One figure of the release in 100 g of a food: as written, and its value.
struct Figure {
    std::string text;
    Decimal value;
};

// A food's figures by the release's nutrient number.
using Figures = std::map<std::string, Figure, std::less<>>;

// From which of the release's nutrients a nutrient of the catalogue comes.
struct NutrientSource {
    // The numbers of the members of a sum. Of the alternatives of one member, the first that the food has counts: the
    // release tells the isomers of a fatty acid apart for some foods only, and gives the rest their sum.
    std::vector<std::vector<std::string>> members;
    // The unit that the release gives the members in.
    std::string unit;
    // How many of that unit are one IU; none where the amount is taken as it is.
    std::optional<Decimal> perIU = std::nullopt;

    // The amount's text for a food file, or an empty text when the food has none of the figures: unknown is not zero.
    // A nutrient that is one figure keeps its text; a sum has at most three decimals, an amount in IU at most one.
    [[nodiscard]] std::string amount(const Figures &figures) const;
};

// The sources in the catalogue's nutrient order.
[[nodiscard]] std::array<NutrientSource, NutrientCatalogue::nutrientCount> nutrientSources();
