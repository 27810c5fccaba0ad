// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

#include <array>
#include <string_view>

// The nutrients that the program tracks. Their order is that of every per-nutrient array, table row and menu item, and
// a number in it is called a nutrient index. Food files give amounts under these same names. One table of records holds
// names, units and default RDAs, so they cannot fall out of step.
// Nothing is sorted or translated, and nothing changes while the program runs.
namespace NutrientCatalogue {

constexpr int nutrientCount = 61;

// Display names and units in nutrient order, made once at the first call and valid for the whole run.
[[nodiscard]] const QStringList &names();
[[nodiscard]] const QStringList &units();

// The names in full: "Alanine" for the amino acid listed as "ALA", and the display name for all that is no code.
[[nodiscard]] const QStringList &fullNames();

// Default RDAs in nutrient order, in the nutrients' units; 0 means that there is none.
[[nodiscard]] const std::array<int, nutrientCount> &defaultRDAs();

// The index of the nutrient with exactly this name, case included, or -1 when there is none. A few nanoseconds whatever
// the text: it is asked for every element of a food file.
[[nodiscard]] int indexOfNutrient(std::string_view utf8name);

// Whether the nutrient is the first of a block other than the first block. The blocks are energy and macronutrients
// (from 0), minerals (10), vitamins (20), fats and sterols (36) and amino acids (43).
[[nodiscard]] constexpr bool startsBlock(int index)
{
    return index == 10 || index == 20 || index == 36 || index == 43;
}

} // namespace NutrientCatalogue
