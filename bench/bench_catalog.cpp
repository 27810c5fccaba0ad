// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "catalog/FoodCatalogue.h"
#include "catalog/NaturalOrder.h"
#include "catalog/NutrientCatalogue.h"

#include <QHash>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace {

// The food list of a start-up; the aim is less than a millisecond.
void buildTheFoodCatalogue(benchmark::State &state)
{
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(FoodCatalogue::foodNames());
}
BENCHMARK(buildTheFoodCatalogue)->Unit(benchmark::kMicrosecond);

// What it is held against: the same list with a text of its own for each name.
void buildTheSameListWithCopies(benchmark::State &state)
{
    std::vector<std::string> names;
    for (const QString &name : FoodCatalogue::foodNames())
        names.push_back(name.toStdString());
    for ([[maybe_unused]] auto _ : state) {
        QStringList list;
        list.reserve(FoodCatalogue::foodCount);
        for (const std::string &name : names)
            list.append(QString::fromStdString(name));
        benchmark::DoNotOptimize(list);
    }
}
BENCHMARK(buildTheSameListWithCopies)->Unit(benchmark::kMicrosecond);

// Each name with the next one, as the check of the order goes.
template <typename Compare>
void compareNeighbours(benchmark::State &state, Compare compare)
{
    const QStringList names = FoodCatalogue::foodNames();
    for ([[maybe_unused]] auto _ : state) {
        for (qsizetype i = 1; i < names.size(); ++i)
            benchmark::DoNotOptimize(compare(names.at(i - 1), names.at(i)));
    }
    state.SetItemsProcessed(state.iterations() * (names.size() - 1));
}

// All names in a fixed disorder, sorted.
template <typename Compare>
void sortAll(benchmark::State &state, Compare compare)
{
    QStringList shuffled = FoodCatalogue::foodNames();
    std::shuffle(shuffled.begin(), shuffled.end(), std::mt19937(1));
    for ([[maybe_unused]] auto _ : state) {
        QStringList names = shuffled;
        std::sort(names.begin(), names.end(),
            [compare](const QString &left, const QString &right) { return compare(left, right) < 0; });
        benchmark::DoNotOptimize(names);
    }
}

const auto naturally
    = [](const QString &left, const QString &right) { return NaturalOrder::compareFoodNames(left, right); };

// What the natural order is held against: Qt's comparison without regard to case, which knows no numbers.
const auto withoutCase
    = [](const QString &left, const QString &right) { return left.compare(right, Qt::CaseInsensitive); };

void compareAllNeighboursNaturally(benchmark::State &state)
{
    compareNeighbours(state, naturally);
}
BENCHMARK(compareAllNeighboursNaturally)->Unit(benchmark::kMicrosecond);

void compareAllNeighboursWithoutCase(benchmark::State &state)
{
    compareNeighbours(state, withoutCase);
}
BENCHMARK(compareAllNeighboursWithoutCase)->Unit(benchmark::kMicrosecond);

void sortAllNamesNaturally(benchmark::State &state)
{
    sortAll(state, naturally);
}
BENCHMARK(sortAllNamesNaturally)->Unit(benchmark::kMillisecond);

void sortAllNamesWithoutCase(benchmark::State &state)
{
    sortAll(state, withoutCase);
}
BENCHMARK(sortAllNamesWithoutCase)->Unit(benchmark::kMillisecond);

std::vector<std::string> nutrientNames()
{
    std::vector<std::string> names;
    for (const QString &name : NutrientCatalogue::names())
        names.push_back(name.toStdString());
    return names;
}

// Each of the 61 names, as a food file with all of them asks.
void findEveryNutrient(benchmark::State &state)
{
    const std::vector<std::string> names = nutrientNames();
    for ([[maybe_unused]] auto _ : state) {
        for (const std::string &name : names)
            benchmark::DoNotOptimize(NutrientCatalogue::indexOfNutrient(name));
    }
    state.SetItemsProcessed(state.iterations() * NutrientCatalogue::nutrientCount);
}
BENCHMARK(findEveryNutrient);

// What it is held against: the usual hash over the names.
void findEveryNutrientInAHash(benchmark::State &state)
{
    const std::vector<std::string> names = nutrientNames();
    QHash<QByteArray, int> indexes;
    for (const std::string &name : names)
        indexes.insert(QByteArray::fromStdString(name), int(indexes.size()));
    for ([[maybe_unused]] auto _ : state) {
        for (const std::string &name : names)
            benchmark::DoNotOptimize(indexes.value(QByteArray::fromRawData(name.data(), qsizetype(name.size())), -1));
    }
    state.SetItemsProcessed(state.iterations() * NutrientCatalogue::nutrientCount);
}
BENCHMARK(findEveryNutrientInAHash);

} // namespace

BENCHMARK_MAIN();
