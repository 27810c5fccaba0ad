// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

// The names of the foods that a log can take. There are no numbers for foods: logs and files go by the name. The names
// come from catalog/foods.tsv, from which a build step makes one long text: the list points into it, so building it
// takes one allocation for all of them and some hundredths of a millisecond instead of the 7,801 allocations that names
// of their own would take.
namespace FoodCatalogue {

constexpr int foodCount = 7801;

// The names in catalogue order, built anew at each call. They are valid for the whole run: keeping or copying one
// copies no text, and changing a copy leaves the catalogue as it is.
[[nodiscard]] QStringList foodNames();

} // namespace FoodCatalogue
