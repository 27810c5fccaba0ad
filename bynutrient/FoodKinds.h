// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "bynutrient/Standing.h"

#include <optional>
#include <string_view>

// What is known of kinds of food, as two tables of name patterns: the places to change when a list by a nutrient names
// what it should not. Names are in lower case.
namespace FoodKinds {

// How many grams people eat of such a food at a sitting; nothing for a kind that the table does not know.
[[nodiscard]] std::optional<float> helpingOf(std::string_view name);

// The rank of such a food; nothing for a kind that the table does not know.
[[nodiscard]] std::optional<Standing::Rank> rankOf(std::string_view name);

} // namespace FoodKinds
