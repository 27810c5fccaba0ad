// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "bynutrient/FoodsByNutrient.h"

#include <algorithm>
#include <optional>
#include <unordered_map>
#include <unordered_set>

namespace {

constexpr int energy = 0; // its nutrient index
// At most so many of the first rows.
constexpr int sameFood = 3;
constexpr int sameKind = 2; // of what stands on a shelf: tuna among the fish
constexpr int sameShelf = 10; // or there would be nothing but fish

// A row's place before its amount counts. What holds nothing of it comes after what does, and both before what nobody
// eats as it is.
enum Group { Everyday, Further, HoldsNothing, NotAsSuch, NotAsSuchAndNothing };

int groupOf(Standing::Rank rank, bool holdssome)
{
    if (rank == Standing::Rank::NotAsSuch)
        return holdssome ? NotAsSuch : NotAsSuchAndNothing;
    if (!holdssome)
        return HoldsNothing;
    return rank == Standing::Rank::Everyday ? Everyday : Further;
}

} // namespace

FoodsByNutrient::FoodsByNutrient(const QStringList &foodnames)
    : names(foodnames)
{ }

void FoodsByNutrient::prepare()
{
    if (isPrepared())
        return;
    figures = std::make_unique<const FoodFigures>(names);
    standing = std::make_unique<const Standing>(names);
}

std::optional<FoodsByNutrient::Ranked> FoodsByNutrient::ranked(int food, int nutrient, Basis basis) const
{
    constexpr float wateriest = 10.0F; // kcal in 100 g: nobody takes 100 kcal of what has less
    const std::optional<float> per100grams = figures->amount(food, nutrient);
    if (!per100grams)
        return std::nullopt;
    Standing::Rank rank = standing->of(food).rank;
    float amount = *per100grams;
    if (basis == Basis::Portion) {
        amount = *per100grams / 100.0F * figures->portion(food).grams;
    } else if (basis == Basis::HundredKilocalories) {
        const float kilocalories = figures->amount(food, energy).value_or(0.0F);
        if (kilocalories <= 0.0F)
            return std::nullopt;
        amount = *per100grams / kilocalories * 100.0F;
        rank = kilocalories < wateriest ? Standing::Rank::NotAsSuch : rank;
    }
    return Ranked{food, groupOf(rank, amount > 0.0F), amount};
}

void FoodsByNutrient::rank(int nutrient, Basis basis)
{
    prepare();
    if (orderednutrient == nutrient && orderedbasis == basis)
        return;
    order.clear();
    order.reserve(static_cast<std::size_t>(figures->count()));
    for (int food = 0; food < figures->count(); ++food)
        if (const std::optional<Ranked> one = ranked(food, nutrient, basis))
            order.push_back(*one);
    std::sort(order.begin(), order.end(), [](const Ranked &left, const Ranked &right) {
        if (left.group != right.group)
            return left.group < right.group;
        return left.amount != right.amount ? left.amount > right.amount : left.food < right.food;
    });
    orderednutrient = nutrient;
    orderedbasis = basis;
}

// The first rows with what is too much of one food taken out and put after them, but before what holds nothing.
std::vector<FoodsByNutrient::Ranked> FoodsByNutrient::spread(const std::vector<Ranked> &foods) const
{
    std::unordered_map<int, int> offood;
    std::unordered_map<int, int> ofshelf;
    std::unordered_set<int> dishes;
    std::vector<Ranked> first;
    std::vector<Ranked> further;
    auto next = foods.begin();
    for (; next != foods.end() && next->group < HoldsNothing && first.size() < firstRows; ++next) {
        const Standing::Food &keys = standing->of(next->food);
        const bool onshelf = keys.shelf != 0;
        const bool enough = offood[keys.food] >= (onshelf ? sameKind : sameFood)
            || (onshelf && ofshelf[keys.shelf] >= sameShelf) || dishes.contains(keys.dish);
        (enough ? further : first).push_back(*next);
        if (enough)
            continue;
        ++offood[keys.food];
        ++ofshelf[keys.shelf];
        dishes.insert(keys.dish);
    }
    first.insert(first.end(), further.begin(), further.end());
    first.insert(first.end(), next, foods.end());
    return first;
}

FoodsByNutrient::Row FoodsByNutrient::rowOf(const Ranked &food, Basis basis) const
{
    return {food.food, basis == Basis::Portion ? figures->portion(food.food) : Portion(), food.amount};
}

std::vector<FoodsByNutrient::Row> FoodsByNutrient::eatenRows(
    int nutrient, Basis basis, const std::vector<Eaten> &eaten) const
{
    std::vector<Row> rows;
    for (const Eaten &each : eaten) {
        const std::optional<float> per100grams = figures->amount(each.food, nutrient);
        const std::optional<Ranked> one = ranked(each.food, nutrient, basis);
        const Portion &portion = each.portion ? *each.portion : figures->portion(each.food);
        if (one && basis == Basis::Portion)
            rows.push_back({each.food, portion, *per100grams / 100.0F * portion.grams});
        else if (one)
            rows.push_back(rowOf(*one, basis));
    }
    std::sort(rows.begin(), rows.end(), [](const Row &left, const Row &right) {
        return left.amount != right.amount ? left.amount > right.amount : left.food < right.food;
    });
    return rows;
}

FoodsByNutrient::List FoodsByNutrient::list(int nutrient, Basis basis, const std::vector<Eaten> &eaten)
{
    rank(nutrient, basis);
    List list;
    list.eaten = eatenRows(nutrient, basis, eaten);
    list.unknown = figures->count() - static_cast<int>(order.size());
    std::unordered_set<int> taken;
    for (const Eaten &each : eaten)
        taken.insert(each.food);
    std::vector<Ranked> others;
    others.reserve(order.size());
    std::copy_if(order.begin(), order.end(), std::back_inserter(others),
        [&taken](const Ranked &each) { return !taken.contains(each.food); });
    list.catalogue.reserve(others.size());
    for (const Ranked &each : spread(others))
        list.catalogue.push_back(rowOf(each, basis));
    return list;
}

FoodsByNutrient::List FoodsByNutrient::listOf(
    const std::vector<int> &found, int nutrient, Basis basis, const std::vector<Eaten> &eaten)
{
    rank(nutrient, basis);
    enum : char { NotFound, Found, FoundAndEaten };
    std::vector<char> marks(static_cast<std::size_t>(figures->count()), NotFound);
    for (const int food : found)
        marks[static_cast<std::size_t>(food)] = Found;
    std::vector<Eaten> foundeaten;
    for (const Eaten &each : eaten) {
        char &mark = marks[static_cast<std::size_t>(each.food)];
        if (mark == NotFound)
            continue;
        mark = FoundAndEaten;
        foundeaten.push_back(each);
    }
    List list;
    list.eaten = eatenRows(nutrient, basis, foundeaten);
    int known = 0;
    for (const Ranked &each : order) {
        const char mark = marks[static_cast<std::size_t>(each.food)];
        known += mark != NotFound ? 1 : 0;
        if (mark == Found)
            list.catalogue.push_back(rowOf(each, basis));
    }
    list.unknown = static_cast<int>(found.size()) - known;
    return list;
}
