// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "search/FoodSynonyms.h"

#include <QList>

namespace {

struct Pair {
    const char *said;
    const char *meant;
};

constexpr Pair pairs[] = {
    // the same thing under another name
    {"alfalfa sprout", "alfalfa seeds sprouted"},
    {"aubergine", "eggplant"},
    {"bean sprout", "mung beans sprouted"},
    {"beetroot", "beet"},
    {"bell pepper", "sweet pepper"},
    {"black eyed pea", "cowpeas"},
    {"bok choy", "cabbage pak choi"},
    {"broad bean", "broadbeans"},
    {"butter bean", "lima beans"},
    {"calamari", "squid"},
    {"capsicum", "sweet pepper"},
    {"chilli", "chili"},
    {"collard green", "collards"},
    {"coriander", "cilantro"},
    {"cornflour", "cornstarch"},
    {"courgette", "zucchini"},
    {"donut", "doughnut"},
    {"double cream", "cream heavy whipping"},
    {"fish finger", "fish sticks"},
    {"flapjack", "pancake"},
    {"gammon", "ham"},
    {"gherkin", "pickles cucumber"},
    {"green onion", "onions spring"},
    {"groundnut", "peanut"},
    {"haricot", "navy beans"},
    {"icing sugar", "sugars powdered"},
    {"jello", "gelatin desserts"},
    {"jelly", "gelatin desserts"},
    {"ketchup", "catsup"},
    {"lady finger", "okra"},
    {"linseed", "flaxseed"},
    {"lychee", "litchis"},
    {"maize", "corn"},
    {"mandarin", "tangerine"},
    {"mangetout", "peas edible podded"},
    {"milkshake", "milk shakes"},
    {"omelette", "omelet"},
    {"pawpaw", "papaya"},
    {"polenta", "cornmeal"},
    {"powdered milk", "milk dry"},
    {"prawn", "shrimp"},
    {"rapeseed", "canola"},
    {"rocket", "arugula"},
    {"rockmelon", "cantaloupe"},
    {"satsuma", "tangerine"},
    {"scone", "biscuit"},
    {"semi skimmed", "reduced fat"},
    {"skimmed", "skim"},
    {"snap pea", "peas edible podded"},
    {"snow pea", "peas edible podded"},
    {"spring onion", "onions spring"},
    {"spud", "potato"},
    {"sultana", "raisins"},
    {"swede", "rutabaga"},
    {"sweets", "candies"},
    {"tater tot", "potato puffs"},
    {"treacle", "molasses"},
    {"wholemeal", "whole wheat"},
    {"yoghourt", "yogurt"},
    {"yoghurt", "yogurt"},
    // fast food, snacks and drinks
    {"bbq", "barbecue"},
    {"bun", "rolls hamburger"},
    {"burger", "hamburger"},
    {"chip", "potato chips"},
    {"chip", "potato french fried"},
    {"coke", "carbonated cola"},
    {"crisp", "potato chips"},
    {"diet", "low calorie"},
    {"fizzy drink", "carbonated"},
    {"french fry", "potato french fried"},
    {"fry", "potato french fried"},
    {"hot dog", "frankfurter"},
    {"hotdog", "frankfurter"},
    {"lemon lime", "lemon lime carbonated"},
    {"nugget", "chicken nuggets"},
    {"pop", "carbonated"},
    {"soda", "carbonated cola"},
    {"soda", "carbonated"},
    {"soft drink", "carbonated"},
    {"toast", "bread toasted"},
    // the ordinary one of many
    {"black coffee", "coffee brewed"},
    {"cherry tomato", "tomatoes red ripe"},
    {"chop", "pork chops"},
    {"filet mignon", "beef tenderloin steak"},
    {"flour", "wheat flour white purpose"},
    {"greek yogurt", "yogurt plain"},
    {"green tea", "tea brewed"},
    {"herbal tea", "tea herb brewed"},
    {"mince", "ground beef"},
    {"mince", "ground"},
    {"minced", "ground"},
    {"oatmeal", "cereals oats"},
    {"porridge", "cereals oats cooked"},
    {"red onion", "onions raw"},
    {"ribeye", "beef rib eye"},
    {"steak", "beef steak"},
    {"white sugar", "sugars granulated"},
    // ways of cooking and keeping
    {"baked", "cooked dry heat"},
    {"baked", "roasted"},
    {"boiled", "cooked moist heat"},
    {"fried", "cooked dry heat"},
    {"grilled", "broiled"},
    {"grilled", "cooked dry heat"},
    {"grilled", "roasted"},
    {"roast", "roasted"},
    {"roasted", "cooked dry heat"},
    {"salted", "with salt"},
    {"steamed", "boiled"},
    {"steamed", "cooked moist heat"},
    {"tinned", "canned"},
    {"unsalted", "without salt"},
};

std::vector<QByteArray> wordsOf(const char *text)
{
    const QList<QByteArray> words = QByteArray(text).split(' ');
    return {words.begin(), words.end()};
}

} // namespace

const std::vector<FoodSynonym> &foodSynonyms()
{
    static const std::vector<FoodSynonym> synonyms = [] {
        std::vector<FoodSynonym> list;
        for (const Pair &pair : pairs)
            list.push_back({wordsOf(pair.said), wordsOf(pair.meant)});
        return list;
    }();
    return synonyms;
}
