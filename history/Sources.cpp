// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "history/Sources.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace History {

namespace {

struct Eaten {
    double amount = 0.0;
    double energy = 0.0;
    int days = 0;
    QDate lastday;
};

double amountOf(const Entry &entry, std::optional<float> per100grams)
{
    return per100grams ? double(Composition::amountIn(entry.grams, *per100grams)) : 0.0;
}

// What each food came to in the period, by its place.
std::vector<Eaten> eatenFoods(const Days &days, int nutrient)
{
    struct Contents {
        std::optional<float> amount;
        std::optional<float> energy;
    };
    std::vector<Contents> contents;
    contents.reserve(days.foods->size());
    for (const NamedFood &food : *days.foods)
        contents.push_back({food.composition.amount(nutrient), food.composition.amount(0)});
    std::vector<Eaten> foods(contents.size());
    for (const Day &day : days.ofPeriod()) {
        for (const Entry &entry : days.entriesOf(day)) {
            const auto place = static_cast<std::size_t>(entry.food);
            Eaten &food = foods[place];
            food.amount += amountOf(entry, contents[place].amount);
            food.energy += amountOf(entry, contents[place].energy);
            if (food.lastday != day.date)
                ++food.days;
            food.lastday = day.date;
        }
    }
    return foods;
}

bool isMore(double left, double right)
{
    return std::isnan(right) ? !std::isnan(left) : left > right;
}

template <typename Food, typename Amount>
void sortBy(std::vector<Food> &foods, Amount amount)
{
    std::sort(foods.begin(), foods.end(), [&](const Food &left, const Food &right) {
        if (isMore(left.*amount, right.*amount) || isMore(right.*amount, left.*amount))
            return isMore(left.*amount, right.*amount);
        return left.food < right.food;
    });
}

void addShares(std::vector<Source> &sources)
{
    double total = 0.0;
    for (const Source &source : sources)
        total += source.amount;
    if (!std::isfinite(total) || total == 0.0)
        return;
    double running = 0.0;
    for (Source &source : sources) {
        running += source.amount;
        source.share = source.amount / total;
        source.runningshare = running / total;
    }
}

} // namespace

Sources sources(const Days &days, int nutrient)
{
    Sources sources;
    const std::vector<Eaten> foods = eatenFoods(days, nutrient);
    for (std::size_t place = 0; place < foods.size(); ++place) {
        const Eaten &food = foods[place];
        const NamedFood &named = (*days.foods)[place];
        if (food.days == 0)
            continue;
        if (!named.composition.amount(nutrient))
            sources.unknown.push_back({named.name, food.energy, food.days, food.lastday});
        else if (food.amount != 0.0)
            sources.known.push_back({named.name, food.amount, {}, {}, food.days, food.lastday});
    }
    sortBy(sources.known, &Source::amount);
    sortBy(sources.unknown, &UnknownSource::energy);
    addShares(sources.known);
    return sources;
}

} // namespace History
