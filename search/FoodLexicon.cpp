// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "search/FoodLexicon.h"

#include <QHash>
#include <QList>
#include <QSet>

namespace {

using FoodLexicon::Tone;

QSet<QByteArray> setOf(const char *words, char separator = ' ')
{
    const QList<QByteArray> list = QByteArray(words).split(separator);
    return {list.begin(), list.end()};
}

QHash<QByteArray, Tone> toneTable()
{
    QHash<QByteArray, Tone> table;
    const auto add = [&table](Tone tone, const char *words) {
        for (const QByteArray &word : setOf(words))
            table.insert(word, tone);
    };
    add(Tone::StopWord, "a all an and by for from in of on or s the to type types with without");
    add(Tone::Plain, "brewed fluid fresh granulated plain purpose raw regular ripe whole");
    add(Tone::Neutral,
        "acid added air ascorbic average bleached boneless broilers caffeine calcium classes commercial commercially "
        "contains cooked creamed curd d "
        "drained enriched equal flesh fryers grades grain grams grounds heat inch includes large lean long mature meat "
        "milkfat "
        "mixed moist no "
        "only "
        "ounce peel peeled per popped prepared propionate round salad salt salted separable skin solids small species "
        "style "
        "table tap trimmed unenriched unprepared varieties volume vitamin water year");
    add(Tone::Processed,
        "blend breaded calorie candied canned coated concentrate condensed decaffeinated dehydrated diet dough dried "
        "dry "
        "evaporated extra fat flavor flavored flavors flour formulated fortified free fried frozen instant low lowfat "
        "mix mixture nonfat pickled powder powdered reduced refrigerated sauce smoked special spread stuffed sweetened "
        "syrup toasted vegetarian");
    add(Tone::StandIn, "dietary dietetic imitation meatless replacement substitute substitutes");
    return table;
}

} // namespace

FoodLexicon::Tone FoodLexicon::tone(const QByteArray &word)
{
    static const QHash<QByteArray, Tone> table = toneTable();
    return table.value(word, Tone::Ordinary);
}

bool FoodLexicon::tellsState(const QByteArray &word)
{
    static const QSet<QByteArray> words = setOf(
        "all and australian bottled brewed broilers by canned chinese classes commercially cooked cured distilled "
        "domestic dried dry eat enhanced enriched fluid fresh frozen fryers immature imported latino mature meats mix "
        "new or prepared products raw ready red ripe seeds serve tap to unenriched variety zealand");
    return words.contains(word);
}

bool FoodLexicon::isShelf(const QByteArray &part, const QByteArray &next)
{
    static const QSet<QByteArray> parts = setOf(
        "alcoholic beverage,babyfood,beverage,beverages,candies,carbonated beverage,cereals,cereals ready to eat,"
        "crustaceans,desserts,fast food,fast foods,fish,frozen novelties,fungi,game meat,infant formula,"
        "leavening agents,mollusks,nuts,restaurant,salad dressing,seeds,snack,snacks,spices,sweeteners,"
        "toaster pastries,tomato products",
        ',');
    // Mayonnaise is called so; bacon and buttermilk dressings are not.
    return parts.contains(part) && (part != "salad dressing" || next == "mayonnaise");
}

bool FoodLexicon::isForFew(const QByteArray &word)
{
    static const QSet<QByteArray> words
        = setOf("alaskan apache babyfood hopi infant junior native navajo plains shoshone southwest strained toddler");
    return words.contains(word);
}

bool FoodLexicon::isDry(const QByteArray &word)
{
    static const QSet<QByteArray> words = setOf("concentrate dough dry mix powder powdered unprepared");
    return words.contains(word);
}

bool FoodLexicon::isMadeUp(const QByteArray &word)
{
    static const QSet<QByteArray> words
        = setOf("baked cooked fermented heat prepared raw ready reconstituted roasted toasted trail");
    return words.contains(word);
}

bool FoodLexicon::isAbbreviation(const QByteArray &word)
{
    static const QSet<QByteArray> words = setOf("ara bbq dha usda");
    return words.contains(word);
}

bool FoodLexicon::isIdle(const QByteArray &word)
{
    static const QSet<QByteArray> words = setOf("a an and at by for from in my of on or over some the to with");
    return words.contains(word);
}

bool FoodLexicon::isUnknownFood(const QByteArray &word)
{
    static const QSet<QByteArray> words
        = setOf("banh bao biryani carbonara casein cullen dim dragonfruit dumpling etouffee edamame fairy gulab "
                "harissa jolly gyoza jambalaya kefir kimchi korma laksa masala matcha moussaka "
                "naan paella pesto pho risotto satay seitan tandoori tempura tikka tiramisu vindaloo wellington");
    return words.contains(word);
}

bool FoodLexicon::isFlesh(const QByteArray &word)
{
    static const QSet<QByteArray> words = setOf("beef bison buffalo chicken crustaceans deer duck emu fish game goose "
                                                "ground guinea ham bratwurst bacon sausage lamb mollusks "
                                                "ostrich pheasant pork poultry quail squab turkey veal");
    return words.contains(word);
}

bool FoodLexicon::isCut(const QByteArray &word)
{
    static const QSet<QByteArray> words = setOf(
        "bake black bowl casserole chunk chunks cubes cutlet dip fillet fillets filet green halves heart hearts kebab "
        "leaves loin mince pieces plate platter portion portions red rings sandwich sandwiches scramble skewer skewers "
        "slices spear spears spray steak steaks stick sticks strips tail tails tips toast wedges white wrap yellow "
        "boiled canned cooked dried fresh fried frozen plain prepared raw salted smoked uncooked unsalted");
    return words.contains(word);
}

bool FoodLexicon::isServing(const QByteArray &word)
{
    static const QSet<QByteArray> words = setOf(
        "bit bottle bowl can carton cup extra fresh glass handful half homemade large medium organic piece pint plate "
        "portion scoop serving slice small some");
    return words.contains(word) || tone(word) == Tone::StopWord;
}
