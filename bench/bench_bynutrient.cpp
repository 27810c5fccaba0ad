// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

// What foods by a nutrient cost: the first question, which reads all files, against the least that expat can do with
// them; each later one; and what is added to a key while the list is filtered. The later ones stand beside a look
// through as many figures.

#include "bench/BarePass.h"
#include "bench/Turns.h"
#include "bynutrient/FoodsByNutrient.h"
#include "catalog/FoodCatalogue.h"
#include "catalog/NutrientCatalogue.h"

#include <numeric>

namespace {

using Basis = FoodsByNutrient::Basis;

constexpr std::size_t firstrounds = 7;
constexpr std::size_t rounds = 305;
constexpr double another = 8.0; // of the 30 ms until it is painted
constexpr double key = 1.0;

} // namespace

int main()
{
    Bundle::mainBundle().setResourcePath(QStringLiteral(SOURCE_DIR "/resources"));
    const QStringList names = FoodCatalogue::foodNames();
    std::vector<QByteArray> paths;
    for (const QString &name : names)
        paths.push_back(BarePass::pathOf(name));
    Turns::Figures figures;

    const Turns::Pair first = Turns::inTurns(
        firstrounds,
        [&](std::size_t) {
            return Turns::milliseconds([&] { Turns::keep(FoodsByNutrient(names).list(0, Basis::Portion)); });
        },
        [&](std::size_t) {
            return Turns::milliseconds([&] {
                for (const QByteArray &path : paths)
                    BarePass::parse(path);
            });
        });
    figures.ratio(QStringLiteral("foods by a nutrient, first asked, against a bare pass of expat"), first, 2.0);

    FoodsByNutrient foods(names);
    foods.prepare();
    const std::vector<float> look(static_cast<std::size_t>(names.size()) * NutrientCatalogue::nutrientCount, 1.0F);
    const auto beside
        = [&](std::size_t) { return Turns::milliseconds([&] { Turns::keep(std::reduce(look.begin(), look.end())); }); };
    const Turns::Pair later = Turns::inTurns(
        rounds,
        [&](std::size_t turn) {
            const int nutrient = static_cast<int>(turn % NutrientCatalogue::nutrientCount);
            const Basis basis = turn % 2 == 0 ? Basis::Portion : Basis::HundredKilocalories;
            return Turns::milliseconds([&] { Turns::keep(foods.list(nutrient, basis)); });
        },
        beside);
    figures.time(QStringLiteral("another nutrient or basis"), later, another);

    std::vector<int> all(static_cast<std::size_t>(names.size()));
    std::iota(all.begin(), all.end(), 0);
    const Turns::Pair filtered = Turns::inTurns(
        rounds,
        [&](std::size_t) { return Turns::milliseconds([&] { Turns::keep(foods.listOf(all, 12, Basis::Portion)); }); },
        beside);
    figures.time(QStringLiteral("filtering the list, added to a key that finds all foods"), filtered, key);
    return figures.exitCode();
}
