// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "catalog/NutrientCatalogue.h"

#include <algorithm>
#include <cstdint>

namespace {

struct Nutrient {
    std::string_view name;
    std::string_view unit;
    int defaultrda;
    std::string_view fullname = name; // of what is listed by a code
};

// U+00B5; U+03BC looks the same.
constexpr std::string_view microgram = "\u00b5g";

// IU for retinol and the carotenes is no slip: all of vitamin A is counted so.
constexpr std::array<Nutrient, NutrientCatalogue::nutrientCount> nutrients = {{
    {"Energy", "kcal", 2000},
    {"Carbs", "g", 300},
    {"Sugars", "g", 50},
    {"Fiber", "g", 25},
    {"Protein", "g", 50},
    {"Fat", "g", 65},
    {"Alcohol", "g", 0},
    {"Caffeine", "mg", 0},
    {"Water", "g", 0},
    {"Ash", "g", 0},
    {"Calcium", "mg", 1000},
    {"Copper", "mg", 2},
    {"Iron", "mg", 18},
    {"Magnesium", "mg", 400},
    {"Manganese", "mg", 2},
    {"Phosphorus", "mg", 1000},
    {"Potassium", "mg", 3500},
    {"Selenium", microgram, 70},
    {"Sodium", "mg", 2400},
    {"Zinc", "mg", 15},
    {"Vitamin A", "IU", 3000},
    {"Retinol", "IU", 0},
    {"Alpha-carotene", "IU", 0},
    {"Beta-carotene", "IU", 0},
    {"Folate", microgram, 400},
    {"B1 (Thiamine)", "mg", 1},
    {"B2 (Riboflavin)", "mg", 1},
    {"B3 (Niacin)", "mg", 20},
    {"B5 (Pantothenic Acid)", "mg", 10},
    {"B6 (Pyridoxine)", "mg", 2},
    {"B12 (Cyanocobalamin)", microgram, 6},
    {"Vitamin C", "mg", 60},
    {"Vitamin D", "IU", 400},
    {"Vitamin E", "mg", 15},
    {"Vitamin K", microgram, 80},
    {"Choline", "mg", 0},
    {"Saturated", "g", 20},
    {"Monounsaturated", "g", 0},
    {"Polyunsaturated", "g", 0},
    {"Omega-3", "g", 0},
    {"Omega-6", "g", 0},
    {"Cholesterol", "mg", 300},
    {"Phytosterol", "mg", 0},
    {"ALA", "g", 0, "Alanine"},
    {"ARG", "g", 0, "Arginine"},
    {"ASP", "g", 0, "Aspartic acid"},
    {"CYS", "g", 0, "Cystine"},
    {"GLU", "g", 0, "Glutamic acid"},
    {"GLY", "g", 0, "Glycine"},
    {"HIS", "g", 0, "Histidine"},
    {"ILE", "g", 0, "Isoleucine"},
    {"LEU", "g", 0, "Leucine"},
    {"LYS", "g", 0, "Lysine"},
    {"MET", "g", 0, "Methionine"},
    {"PHE", "g", 0, "Phenylalanine"},
    {"PRO", "g", 0, "Proline"},
    {"SER", "g", 0, "Serine"},
    {"THR", "g", 0, "Threonine"},
    {"TRP", "g", 0, "Tryptophan"},
    {"TYR", "g", 0, "Tyrosine"},
    {"VAL", "g", 0, "Valine"},
}};

// A perfect hash over the names: the compiler looks for the multiplier that gives each name a slot of its own, so a
// look-up is one multiplication and one comparison. A binary search would take six comparisons.
constexpr int slotBits = 9;
constexpr std::size_t shortestName = 3;

constexpr std::size_t slotOf(std::string_view name, std::uint32_t multiplier)
{
    const auto byte = [name](std::size_t place) { return std::uint32_t(static_cast<unsigned char>(name[place])); };
    const std::uint32_t key
        = byte(0) | byte(1) << 8U | byte(name.size() - 1) << 16U | static_cast<std::uint32_t>(name.size()) << 24U;
    return (key * multiplier) >> (32U - slotBits);
}

struct Lookup {
    std::uint32_t multiplier = 0;
    std::array<std::int8_t, 1U << slotBits> index{};
};

consteval Lookup findLookup()
{
    for (std::uint32_t multiplier = 0x9e3779b1;; multiplier += 2) {
        Lookup table{.multiplier = multiplier};
        table.index.fill(-1);
        bool free = true;
        for (std::size_t i = 0; free && i < nutrients.size(); ++i) {
            std::int8_t &slot = table.index[slotOf(nutrients[i].name, multiplier)];
            free = slot < 0;
            slot = static_cast<std::int8_t>(i);
        }
        if (free)
            return table;
    }
}

constexpr Lookup lookup = findLookup();

static_assert(std::ranges::all_of(nutrients, [](const Nutrient &nutrient) {
    return nutrient.name.size() >= shortestName && nutrient.name.size() < 256 && !nutrient.unit.empty();
}));

QStringList column(std::string_view Nutrient::*field)
{
    QStringList list;
    list.reserve(NutrientCatalogue::nutrientCount);
    for (const Nutrient &nutrient : nutrients)
        list.append(QString::fromUtf8((nutrient.*field).data(), static_cast<qsizetype>((nutrient.*field).size())));
    return list;
}

} // namespace

const QStringList &NutrientCatalogue::names()
{
    static const QStringList names = column(&Nutrient::name);
    return names;
}

const QStringList &NutrientCatalogue::fullNames()
{
    static const QStringList names = column(&Nutrient::fullname);
    return names;
}

const QStringList &NutrientCatalogue::units()
{
    static const QStringList units = column(&Nutrient::unit);
    return units;
}

const std::array<int, NutrientCatalogue::nutrientCount> &NutrientCatalogue::defaultRDAs()
{
    static constexpr auto rdas = [] {
        std::array<int, nutrientCount> list{};
        std::ranges::transform(nutrients, list.begin(), &Nutrient::defaultrda);
        return list;
    }();
    return rdas;
}

int NutrientCatalogue::indexOfNutrient(std::string_view utf8name)
{
    if (utf8name.size() < shortestName)
        return -1;
    const int index = lookup.index[slotOf(utf8name, lookup.multiplier)];
    return index >= 0 && nutrients[static_cast<std::size_t>(index)].name == utf8name ? index : -1;
}
