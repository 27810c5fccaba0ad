// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "bynutrient/FoodFigures.h"

#include "catalog/NutrientCatalogue.h"
#include "model/Composition.h"

#include <QSet>

#include <cmath>
#include <limits>

namespace {

constexpr auto unknown = std::numeric_limits<float>::quiet_NaN();
constexpr int energy = 0; // its nutrient index

std::size_t place(int food, int nutrient)
{
    return static_cast<std::size_t>(food) * NutrientCatalogue::nutrientCount + static_cast<std::size_t>(nutrient);
}

} // namespace

FoodFigures::FoodFigures(const QStringList &foodnames)
{
    const auto count = static_cast<std::size_t>(foodnames.size());
    amounts.assign(count * NutrientCatalogue::nutrientCount, unknown);
    portions.reserve(count);
    QSet<QString> titles; // thousands of foods share some hundred measures
    for (const QString &name : foodnames) {
        const int food = this->count();
        Composition composition;
        composition.read(name);
        for (int nutrient = 0; nutrient < NutrientCatalogue::nutrientCount; ++nutrient)
            amounts[place(food, nutrient)] = composition.amount(nutrient).value_or(unknown);
        Portion portion = Portion::of(name, composition, composition.amount(energy).value_or(0.0F));
        portion.unit = *titles.insert(portion.unit);
        portions.push_back(portion);
    }
}

std::optional<float> FoodFigures::amount(int food, int nutrient) const
{
    const float amount = amounts[place(food, nutrient)];
    return std::isnan(amount) ? std::nullopt : std::optional(amount);
}
