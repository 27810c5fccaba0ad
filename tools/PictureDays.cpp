// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "tools/PictureDays.h"

#include "model/FoodRecord.h"
#include "platform/LocalDay.h"
#include "platform/UserDefaults.h"

#include <QSet>

#include <random>

namespace {

struct Usual {
    const char *food;
    float grams;
    unsigned often; // on how many of ten days
};

constexpr Usual usual[] = {
    {"Cereals, oats, regular and quick, not fortified, dry", 60, 6},
    {"Milk, whole, 3.25% milkfat, with added vitamin D", 250, 8},
    {"Bananas, raw", 118, 5},
    {"Blueberries, raw", 75, 3},
    {"Egg, whole, cooked, fried", 92, 3},
    {"Bread, whole-wheat, commercially prepared", 112, 8},
    {"Butter, salted", 20, 6},
    {"Honey", 20, 4},
    {"Coffee, brewed from grounds, prepared with tap water", 470, 9},
    {"Oranges, raw, all commercial varieties", 131, 4},
    {"Yogurt, plain, whole milk, 8 grams protein per 8 ounce", 125, 5},
    {"Cheese, cheddar", 45, 6},
    {"Tomatoes, red, ripe, raw, year round average", 120, 5},
    {"Lettuce, cos or romaine, raw", 50, 5},
    {"Nuts, almonds", 30, 5},
    {"Apples, raw, with skin", 182, 7},
    {"Carrots, raw", 80, 4},
    {"Hummus, commercial", 60, 3},
    {"Fish, salmon, Atlantic, farmed, cooked, dry heat", 150, 2},
    {"Chicken, broilers or fryers, breast, meat only, cooked, roasted", 140, 4},
    {"Potatoes, boiled, cooked without skin, flesh, without salt", 250, 5},
    {"Rice, brown, long-grain, cooked", 195, 4},
    {"Lentils, mature seeds, cooked, boiled, without salt", 150, 3},
    {"Tofu, raw, firm, prepared with calcium sulfate", 120, 2},
    {"Broccoli, cooked, boiled, drained, without salt", 150, 4},
    {"Spinach, cooked, boiled, drained, without salt", 120, 2},
    {"Peppers, sweet, red, raw", 100, 3},
    {"Oil, olive, salad or cooking", 20, 8},
    {"Chocolate, dark, 70-85% cacao solids", 25, 6},
    {"Ice creams, vanilla", 120, 2},
    {"Alcoholic beverage, wine, table, red", 150, 3},
};

QVariantList dayOf(std::mt19937 &chance, bool whole)
{
    QVariantList items;
    for (const Usual &each : usual) {
        if (chance() % 10 >= each.often || (!whole && items.size() > 2))
            continue;
        Food food(QString::fromUtf8(each.food));
        food.setCuramount(each.grams * (0.7F + 0.1F * static_cast<float>(chance() % 7)));
        items.append(FoodRecord::archivedDataWithRootObject(food));
    }
    return items;
}

} // namespace

void storePictureDays(UserDefaults &store, QDate last)
{
    std::mt19937 chance(2026); // the generator's numbers are the same everywhere, unlike the distributions'
    const QSet<int> inpart{6, 17};
    const QSet<int> holidays{3, 11, 12, 20, 26};
    UserDefaults::Transaction all(store);
    for (int before = 425; before >= 0; --before) {
        const QVariantList items = dayOf(chance, !inpart.contains(before));
        if (holidays.contains(before) || (before > 200 && before < 213) || chance() % 12 == 0)
            continue;
        store.setObject(items, LocalDay::key(last.addDays(-before)));
    }
    all.commit();
}
