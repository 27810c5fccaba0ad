// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

// The list of names that every start builds has a limit; the other figures tell what the exact order and the look-up of
// a nutrient cost beside the usual means.

#include "bench/Turns.h"
#include "catalog/FoodCatalogue.h"
#include "catalog/NaturalOrder.h"
#include "catalog/NutrientCatalogue.h"

#include <QHash>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr std::size_t turns = 501;

// The food list of a start-up, beside the same list with a text of its own for each name.
void buildTheFoodCatalogue(Turns::Figures &figures)
{
    std::vector<std::string> names;
    for (const QString &name : FoodCatalogue::foodNames())
        names.push_back(name.toStdString());
    const Turns::Pair pair = Turns::inTurns(
        turns, [](std::size_t) { return Turns::milliseconds([] { Turns::keep(FoodCatalogue::foodNames()); }); },
        [&](std::size_t) {
            return Turns::milliseconds([&] {
                QStringList list;
                list.reserve(FoodCatalogue::foodCount);
                for (const std::string &name : names)
                    list.append(QString::fromStdString(name));
                Turns::keep(list);
            });
        });
    figures.ratio(QStringLiteral("build the food catalogue against build the same list with copies"), pair);
    figures.time(QStringLiteral("build the food catalogue"), pair, 1.0);
}

// Each name with the next one, as the check of the order goes.
template <typename Compare>
double compareAllNeighbours(const QStringList &names, Compare compare)
{
    return Turns::milliseconds([&] {
        for (qsizetype i = 1; i < names.size(); ++i)
            Turns::keep(compare(names.at(i - 1), names.at(i)));
    });
}

template <typename Compare>
double sortAll(QStringList names, Compare compare)
{
    names.detach();
    return Turns::milliseconds([&] {
        std::sort(names.begin(), names.end(),
            [compare](const QString &left, const QString &right) { return compare(left, right) < 0; });
        Turns::keep(names);
    });
}

// The natural order beside Qt's comparison without regard to case, which knows no numbers.
void compareNaturally(Turns::Figures &figures)
{
    const auto naturally
        = [](const QString &left, const QString &right) { return NaturalOrder::compareFoodNames(left, right); };
    const auto withoutcase
        = [](const QString &left, const QString &right) { return left.compare(right, Qt::CaseInsensitive); };
    const QStringList names = FoodCatalogue::foodNames();
    figures.ratio(QStringLiteral("compare all neighbours naturally against compare all neighbours without case"),
        Turns::inTurns(
            turns, [&](std::size_t) { return compareAllNeighbours(names, naturally); },
            [&](std::size_t) { return compareAllNeighbours(names, withoutcase); }));
    QStringList shuffled = names;
    std::shuffle(shuffled.begin(), shuffled.end(), std::mt19937(1));
    constexpr std::size_t sorts = 51;
    figures.ratio(QStringLiteral("sort all names naturally against sort all names without case"),
        Turns::inTurns(
            sorts, [&](std::size_t) { return sortAll(shuffled, naturally); },
            [&](std::size_t) { return sortAll(shuffled, withoutcase); }));
}

// Each of the 61 names, as a food file with all of them asks, many times over: once is below the clock's precision.
template <typename Find>
double findAll(const std::vector<std::string> &names, Find find)
{
    constexpr int times = 100;
    return Turns::milliseconds([&] {
        for (int i = 0; i < times; ++i) {
            for (const std::string &name : names)
                Turns::keep(find(name));
        }
    }) / times;
}

// Beside the usual hash over the names.
void findEveryNutrient(Turns::Figures &figures)
{
    std::vector<std::string> names;
    QHash<QByteArray, int> indexes;
    for (const QString &name : NutrientCatalogue::names()) {
        indexes.insert(name.toUtf8(), int(names.size()));
        names.push_back(name.toStdString());
    }
    const auto byindex = [](const std::string &name) { return NutrientCatalogue::indexOfNutrient(name); };
    const auto byhash = [&](const std::string &name) {
        return indexes.value(QByteArray::fromRawData(name.data(), qsizetype(name.size())), -1);
    };
    figures.ratio(QStringLiteral("find every nutrient against find every nutrient in a hash"),
        Turns::inTurns(
            turns, [&](std::size_t) { return findAll(names, byindex); },
            [&](std::size_t) { return findAll(names, byhash); }));
}

} // namespace

int main()
{
    Turns::Figures figures;
    buildTheFoodCatalogue(figures);
    compareNaturally(figures);
    findEveryNutrient(figures);
    return figures.exitCode();
}
