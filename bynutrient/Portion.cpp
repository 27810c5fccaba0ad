// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "bynutrient/Portion.h"

#include "bynutrient/NamePattern.h"
#include "model/Composition.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <string_view>
#include <vector>

namespace {

struct Helping {
    std::string_view pattern;
    float grams;
};

// What people eat of a kind of food at a sitting; the first pattern that fits counts.
constexpr Helping helpings[] = {
    {"apples, *stewed", 125.0F},
    {"peaches, *stewed", 125.0F},
    {"pears, *stewed", 125.0F},
    {"figs, *stewed", 125.0F},
    {"apricots, *stewed", 125.0F},
    {"prunes, *stewed", 125.0F},
    {"plums, *stewed", 125.0F},
    {"*syrup pack", 125.0F},
    {"*extra heavy syrup", 125.0F},
    {"*heavy syrup", 125.0F},
    {"*light syrup", 125.0F},
    {"*juice pack", 125.0F},
    {"*water pack", 125.0F},
    {"*frozen, *sweetened", 125.0F},
    {"avocados", 100.0F},
    {"ice cream cones", 12.0F},
    {"pumpkin pie mix", 125.0F},
    {"persimmons, *dried", 34.0F},
    {"peppers, jalapeno", 30.0F},
    {"pork, cured, breakfast strips", 34.0F},
    {"beef, cured, breakfast strips", 34.0F},
    {"beef, cured, dried", 28.0F},
    {"salad dressing, mayonnaise", 15.0F},
    {"bread, *toasted", 50.0F},
    {"fish, fish portions", 84.0F},
    {"lemons", 58.0F},
    {"limes", 67.0F},
    {"tomato products, canned, sauce", 61.0F},
    {"tomato sauce", 61.0F},
    {"onions, cooked", 105.0F},
    {"onions, *cooked", 105.0F},
    {"onions, raw", 40.0F},
    {"pimento", 30.0F},
    {"fruit, *dried", 40.0F},
    {"plums, dried*, uncooked", 40.0F},
    {"strawberries, frozen", 150.0F},
    {"coconut", 45.0F},
    {"kumquats", 95.0F},
    {"litchis, raw", 95.0F},
    {"apples, raw", 180.0F},
    {"apricots, raw", 105.0F},
    {"bananas, raw", 118.0F},
    {"grapefruit, raw", 128.0F},
    {"grapes", 150.0F},
    {"kiwifruit", 140.0F},
    {"mangos, raw", 165.0F},
    {"nectarines, raw", 140.0F},
    {"oranges, raw", 131.0F},
    {"papayas, raw", 145.0F},
    {"peaches, raw", 150.0F},
    {"pears, raw", 170.0F},
    {"persimmons", 168.0F},
    {"plums, raw", 132.0F},
    {"tangerines", 120.0F},
    {"clementines", 148.0F},
    {"melons", 160.0F},
    {"watermelon", 280.0F},
    {"honeydew", 160.0F},
    {"pineapple, raw", 165.0F},
    {"yeast extract spread", 6.0F},
    {"spices,", 1.5F},
    {"salt,", 1.5F},
    {"leavening agents", 2.0F},
    {"*vanilla extract", 4.0F},
    {"celery flakes", 1.0F},
    {"*freeze-dried", 1.0F},
    {"gelatins, dry", 7.0F},
    {"rennin", 3.0F},
    {"pectin", 7.0F},
    {"wasabi", 5.0F},
    {"garlic, raw", 6.0F},
    {"ginger root", 6.0F},
    {"horseradish", 5.0F},
    {"mustard, prepared", 5.0F},
    {"capers", 9.0F},
    {"vinegar", 15.0F},
    {"*peel, raw", 6.0F},
    {"basil, fresh", 5.0F},
    {"coriander (cilantro) leaves", 4.0F},
    {"dill weed", 2.0F},
    {"parsley", 4.0F},
    {"chives", 3.0F},
    {"thyme, fresh", 1.0F},
    {"rosemary, fresh", 2.0F},
    {"peppermint, fresh", 3.0F},
    {"spearmint", 3.0F},
    {"epazote", 2.0F},
    {"lemon grass", 5.0F},
    {"lemon juice", 15.0F},
    {"lime juice", 15.0F},
    {"shallots", 10.0F},
    {"*peppers, hot", 15.0F},
    {"pepper, banana", 45.0F},
    {"peppers, *dried", 2.0F},
    {"fish oil", 4.5F},
    {"oil,", 14.0F},
    {"vegetable oil", 14.0F},
    {"*lard", 13.0F},
    {"fat,", 13.0F},
    {"animal fat", 13.0F},
    {"meat drippings", 13.0F},
    {"shortening", 13.0F},
    {"butter", 14.0F},
    {"margarine", 14.0F},
    {"*margarine-like", 14.0F},
    {"mayonnaise", 14.0F},
    {"sandwich spread", 15.0F},
    {"salad dressing", 30.0F},
    {"dressing,", 30.0F},
    {"creamy dressing", 30.0F},
    {"sour dressing", 30.0F},
    {"cream substitute, powder", 2.0F},
    {"cream,", 15.0F},
    {"sour cream", 30.0F},
    {"whipped", 10.0F},
    {"dessert topping", 10.0F},
    {"*whipped topping", 10.0F},
    {"cheese, cottage", 113.0F},
    {"cheese, ricotta", 124.0F},
    {"cheese fondue", 54.0F},
    {"cheese sauce", 63.0F},
    {"cheese puffs", 28.0F},
    {"cheesecake", 80.0F},
    {"cheesefurter", 43.0F},
    {"*cheese topping", 5.0F},
    {"cheese, parmesan", 10.0F},
    {"cheese, romano", 10.0F},
    {"cheese,", 28.0F},
    {"cheese", 28.0F},
    {"imitation cheese", 28.0F},
    {"milk, dry", 8.0F},
    {"milk, buttermilk, dried", 8.0F},
    {"whey, *dried", 8.0F},
    {"milk, canned, condensed", 38.0F},
    {"milk, canned, evaporated", 32.0F},
    {"milk dessert", 100.0F},
    {"milk and cereal bar", 28.0F},
    {"milk shakes", 240.0F},
    {"milk", 244.0F},
    {"whey,", 246.0F},
    {"*soymilk", 243.0F},
    {"rice drink", 243.0F},
    {"eggnog,", 254.0F},
    {"eggnog", 254.0F},
    {"yogurt parfait", 149.0F},
    {"yogurt", 245.0F},
    {"tofu yogurt", 245.0F},
    {"frozen yogurts", 87.0F},
    {"*ice cream", 67.0F},
    {"*ice cream cone", 67.0F},
    {"sherbet", 74.0F},
    {"frozen novelties", 67.0F},
    {"pudding", 113.0F},
    {"desserts", 113.0F},
    {"gelatin desserts", 135.0F},
    {"flan", 133.0F},
    {"egg custards", 133.0F},
    {"egg rolls", 85.0F},
    {"egg substitute, powder", 10.0F},
    {"egg, *dried", 5.0F},
    {"egg, white", 66.0F},
    {"egg, yolk", 34.0F},
    {"egg, goose", 144.0F},
    {"egg, duck", 70.0F},
    {"egg, turkey", 79.0F},
    {"egg, quail", 45.0F},
    {"egg", 100.0F},
    {"*bacon bits", 7.0F},
    {"*bacon", 16.0F},
    {"pork, cured, bacon", 16.0F},
    {"pork, cured, salt pork", 13.0F},
    {"pepperoni", 28.0F},
    {"*salami", 28.0F},
    {"*jerky", 28.0F},
    {"snacks, beef sticks", 20.0F},
    {"pate", 26.0F},
    {"liverwurst", 36.0F},
    {"braunschweiger", 36.0F},
    {"headcheese", 28.0F},
    {"scrapple", 57.0F},
    {"*sausage", 55.0F},
    {"bratwurst", 85.0F},
    {"kielbasa", 56.0F},
    {"chorizo", 60.0F},
    {"frankfurter", 52.0F},
    {"bologna", 56.0F},
    {"*wurst", 55.0F},
    {"*luncheon", 56.0F},
    {"*loaf", 56.0F},
    {"mortadella", 30.0F},
    {"pastrami", 56.0F},
    {"*cracklins", 14.0F},
    {"poultry salad", 57.0F},
    {"roast beef spread", 57.0F},
    {"chicken spread", 56.0F},
    {"ham salad spread", 57.0F},
    {"*pork skins", 14.0F},
    {"fish, caviar", 16.0F},
    {"fish, roe", 28.0F},
    {"fish, anchovy, *canned", 20.0F},
    {"fish, cod, *dried and salted", 28.0F},
    {"fish, *dried", 28.0F},
    {"fish, *smoked", 57.0F},
    {"fish broth", 244.0F},
    {"fish sticks", 84.0F},
    {"fish, sturgeon, *smoked", 57.0F},
    {"fish,", 85.0F},
    {"crustaceans,", 85.0F},
    {"mollusks, *liquid", 60.0F},
    {"mollusks,", 85.0F},
    {"salmon", 85.0F},
    {"*trout", 85.0F},
    {"smelt", 85.0F},
    {"beef broth", 241.0F},
    {"beef stew", 245.0F},
    {"beef pot pie", 217.0F},
    {"beef,", 85.0F},
    {"pork,", 85.0F},
    {"lamb,", 85.0F},
    {"veal,", 85.0F},
    {"game meat", 85.0F},
    {"chicken pot pie", 217.0F},
    {"turkey pot pie", 217.0F},
    {"chicken", 85.0F},
    {"turkey sticks", 64.0F},
    {"turkey", 85.0F},
    {"ground turkey", 85.0F},
    {"duck", 85.0F},
    {"goose", 85.0F},
    {"guinea", 85.0F},
    {"pheasant", 85.0F},
    {"quail", 85.0F},
    {"squab", 85.0F},
    {"dove", 85.0F},
    {"ostrich", 85.0F},
    {"emu", 85.0F},
    {"bison", 85.0F},
    {"buffalo", 85.0F},
    {"elk", 85.0F},
    {"moose", 85.0F},
    {"deer", 85.0F},
    {"bear", 85.0F},
    {"caribou", 85.0F},
    {"goat", 85.0F},
    {"mutton", 85.0F},
    {"squirrel", 85.0F},
    {"seal", 85.0F},
    {"sea lion", 85.0F},
    {"walrus", 85.0F},
    {"whale", 85.0F},
    {"owl", 85.0F},
    {"frog legs", 85.0F},
    {"turtle", 85.0F},
    {"poultry", 85.0F},
    {"meatballs", 85.0F},
    {"ham", 85.0F},
    {"corned beef loaf", 57.0F},
    {"meat extender", 22.0F},
    {"nuts, *coconut milk", 60.0F},
    {"nuts, *coconut cream", 30.0F},
    {"nuts, *coconut water", 240.0F},
    {"nuts, coconut meat, raw", 45.0F},
    {"nuts, chestnuts, *dried", 28.0F},
    {"nuts, chestnuts", 84.0F},
    {"nuts, ginkgo nuts", 28.0F},
    {"nuts, *butter", 32.0F},
    {"nuts, *paste", 28.0F},
    {"nuts,", 28.0F},
    {"hazelnuts", 28.0F},
    {"mouse nuts", 28.0F},
    {"pinon nuts", 28.0F},
    {"*seeds, *butter", 30.0F},
    {"seeds, flaxseed", 10.0F},
    {"seeds, chia", 28.0F},
    {"seeds, sesame seeds", 9.0F},
    {"seeds, poppy", 3.0F},
    {"seeds,", 28.0F},
    {"peanut flour", 15.0F},
    {"*peanut butter", 32.0F},
    {"peanut spread", 32.0F},
    {"*hazelnut spread", 37.0F},
    {"peanuts, *boiled", 63.0F},
    {"peanuts", 28.0F},
    {"soybeans, *roasted", 28.0F},
    {"tofu, dried", 17.0F},
    {"tofu, fried", 28.0F},
    {"tofu, salted", 11.0F},
    {"tofu", 126.0F},
    {"soybean, curd cheese", 56.0F},
    {"tempeh", 84.0F},
    {"natto", 88.0F},
    {"miso", 17.0F},
    {"*soy sauce", 16.0F},
    {"soy flour", 30.0F},
    {"soy meal", 30.0F},
    {"soy protein", 28.0F},
    {"protein supplement", 28.0F},
    {"hummus", 60.0F},
    {"falafel", 51.0F},
    {"papad", 13.0F},
    {"croutons", 7.0F},
    {"crackers", 30.0F},
    {"*crackers", 30.0F},
    {"cookies", 30.0F},
    {"*cookies", 30.0F},
    {"bread crumbs", 28.0F},
    {"bread sticks", 30.0F},
    {"bread stuffing", 100.0F},
    {"bread", 50.0F},
    {"garlic bread", 50.0F},
    {"rolls", 50.0F},
    {"tortillas", 50.0F},
    {"tortilla chips", 28.0F},
    {"taco shells", 30.0F},
    {"tostada shells", 30.0F},
    {"pretzels", 28.0F},
    {"popcorn", 24.0F},
    {"potato chips", 28.0F},
    {"rice cake", 18.0F},
    {"snacks, granola bar", 40.0F},
    {"snacks,", 28.0F},
    {"snack", 28.0F},
    {"granola bar", 40.0F},
    {"formulated bar", 50.0F},
    {"breakfast bar", 40.0F},
    {"*cereal bar", 40.0F},
    {"cake", 80.0F},
    {"coffeecake", 60.0F},
    {"pie crust", 23.0F},
    {"pie fillings", 74.0F},
    {"pie,", 125.0F},
    {"pie", 125.0F},
    {"phyllo", 38.0F},
    {"puff pastry", 40.0F},
    {"frostings", 35.0F},
    {"toppings", 30.0F},
    {"wheat germ", 28.0F},
    {"cereals ready-to-eat, wheat germ", 28.0F},
    {"wheat bran", 8.0F},
    {"corn bran", 8.0F},
    {"rice bran", 8.0F},
    {"oat bran, raw", 30.0F},
    {"cereals ready-to-eat, *granola", 55.0F},
    {"cereals ready-to-eat", 30.0F},
    {"cereals, *dry", 40.0F},
    {"candies", 40.0F},
    {"chocolate, dark", 40.0F},
    {"chocolate", 40.0F},
    {"baking chocolate", 14.0F},
    {"chewing gum", 3.0F},
    {"cocoa, dry", 5.0F},
    {"cocoa mix", 28.0F},
    {"carob flour", 8.0F},
    {"molasses", 20.0F},
    {"honey", 21.0F},
    {"sugar", 8.0F},
    {"sweeteners", 2.0F},
    {"syrups", 40.0F},
    {"agave", 21.0F},
    {"chocolate syrup", 39.0F},
    {"jams", 20.0F},
    {"jellies", 20.0F},
    {"marmalade", 20.0F},
    {"fruit butters", 17.0F},
    {"raisins", 40.0F},
    {"dates", 40.0F},
    {"figs, dried, uncooked", 40.0F},
    {"prunes, *uncooked", 40.0F},
    {"apricots, *uncooked", 40.0F},
    {"*dried, *uncooked", 40.0F},
    {"currants, zante", 40.0F},
    {"litchis, dried", 40.0F},
    {"longans, dried", 40.0F},
    {"jujube, dried", 40.0F},
    {"cranberries, dried", 40.0F},
    {"blueberries, dried", 40.0F},
    {"cherries, *dried", 40.0F},
    {"bananas, dehydrated", 10.0F},
    {"*dehydrated", 10.0F},
    {"candied fruit", 30.0F},
    {"maraschino", 10.0F},
    {"olives", 30.0F},
    {"pickle relish", 15.0F},
    {"pickles", 65.0F},
    {"catsup", 17.0F},
    {"salsa", 32.0F},
    {"sauce, pasta", 125.0F},
    {"sauce, *cheese", 63.0F},
    {"sauce, *pepper", 5.0F},
    {"sauce, *tabasco", 5.0F},
    {"sauce,", 30.0F},
    {"gravy", 60.0F},
    {"dip,", 30.0F},
    {"tomato products, canned, paste", 33.0F},
    {"tomato products, canned, puree", 63.0F},
    {"tomato powder", 10.0F},
    {"tomatoes, sun-dried", 14.0F},
    {"seaweed, *dried", 5.0F},
    {"seaweed", 10.0F},
    {"mushrooms, shiitake, dried", 14.0F},
    {"fungi, cloud ears", 7.0F},
    {"jew's ear", 50.0F},
    {"alcoholic beverage, beer", 356.0F},
    {"alcoholic beverage, malt", 356.0F},
    {"malt beverage", 356.0F},
    {"alcoholic beverage, wine, dessert", 103.0F},
    {"alcoholic beverage, wine, cooking", 30.0F},
    {"alcoholic beverage, wine", 148.0F},
    {"alcoholic beverage, distilled", 42.0F},
    {"alcoholic beverage, liqueur", 52.0F},
    {"alcoholic beverage, creme de menthe", 50.0F},
    {"alcoholic beverage, *rice (sake)", 58.0F},
    {"alcoholic beverage, *canned", 200.0F},
    {"alcoholic beverage", 120.0F},
    {"wine,", 148.0F},
    {"coffee, *espresso", 60.0F},
    {"coffee, *powder, prepared", 240.0F},
    {"coffee, *prepared", 240.0F},
    {"coffee, brewed", 237.0F},
    {"coffee, *powder", 2.0F},
    {"coffee and cocoa", 10.0F},
    {"coffee substitute, *powder", 4.0F},
    {"tea, *powder, *prepared", 240.0F},
    {"tea, *prepared", 240.0F},
    {"tea, *powder", 2.0F},
    {"tea,", 240.0F},
    {"carbonated beverage", 370.0F},
    {"energy drink", 240.0F},
    {"water,", 240.0F},
    {"orange juice, frozen concentrate, unsweetened, undiluted", 60.0F},
    {"*undiluted", 60.0F},
};

constexpr float helpingOfMeat = 85.0F; // three ounces, cooked

std::optional<float> helpingOf(std::string_view name)
{
    static const NamePattern::Table table([] {
        std::vector<std::string_view> patterns;
        for (const Helping &each : helpings)
            patterns.push_back(each.pattern);
        return patterns;
    }());
    const std::optional<std::size_t> found = table.find(name);
    return found ? std::optional(helpings[*found].grams) : std::nullopt;
}

// A measure that nobody empties at a sitting.
bool isPackage(const QString &title)
{
    static constexpr std::array words
        = {u"package", u"lb", u"can", u"loaf", u"bunch", u"unit", u"recipe", u"head", u"container", u"bottle"};
    const QString measure = title.section(u' ', 1);
    return std::any_of(words.begin(), words.end(), [&](const char16_t *word) {
        const QStringView begin(word);
        return measure.startsWith(begin) && (measure.size() == begin.size() || !measure[begin.size()].isLetter());
    });
}

// What a raw piece leaves is no measure that a person has before them.
bool isYield(const QString &title)
{
    return title.contains(u"yield") || title.contains(u"raw") || title.contains(u"hulls") || title.contains(u" unit");
}

// A chop or a patty is eaten whole where it is neither a morsel nor a dish for two.
std::optional<Portion> wholePiece(const Composition &composition)
{
    constexpr float least = 60.0F;
    constexpr float most = 150.0F;
    static constexpr std::array pieces = {u"1 chop", u"1 patty"};
    for (const QString &title : composition.unitTitles()) {
        const float grams = composition.gramsOfUnit(title).value_or(0.0F);
        if (grams >= least && grams <= most && std::any_of(pieces.begin(), pieces.end(), [&](const char16_t *piece) {
                return title.startsWith(QStringView(piece));
            }))
            return Portion{1.0F, title, grams};
    }
    return std::nullopt;
}

// As many of a measure as come near to the weight: one of it rather than two, two rather than half of it.
Portion inMeasures(const Composition &composition, float grams)
{
    struct Count {
        float amount;
        float reluctance; // on the scale of the logarithm of the weights' ratio
        float nearness; // how far off it may be
    };
    static constexpr std::array<Count, 5> counts = {
        {{1.0F, 0.0F, 0.24F}, {2.0F, 0.02F, 0.15F}, {0.5F, 0.03F, 0.15F}, {3.0F, 0.04F, 0.15F}, {4.0F, 0.06F, 0.15F}}};
    Portion portion{grams, QStringLiteral("g"), grams};
    float best = 1.0F;
    const QStringList titles = composition.unitTitles();
    for (const QString &title : titles.mid(1)) {
        const float each = composition.gramsOfUnit(title).value_or(0.0F);
        if (each <= 0.0F || isYield(title))
            continue;
        for (const Count &count : counts) {
            const float off = std::abs(std::log(count.amount * each / grams)) + count.reluctance;
            if (off < count.nearness && off < best) {
                best = off;
                portion = {count.amount, title, count.amount * each};
            }
        }
    }
    return portion;
}

Portion firstMeasure(const Composition &composition, float energy)
{
    constexpr float most = 250.0F;
    constexpr float mostenergy = 300.0F;
    constexpr float leastamount = 0.25F;
    constexpr float helping = 200.0F; // kcal, where no measure helps
    const QStringList titles = composition.unitTitles().mid(1);
    const auto first = std::find_if_not(titles.begin(), titles.end(), isPackage);
    if (!titles.isEmpty()) {
        const QString &title = first != titles.end() ? *first : titles.front();
        const float each = composition.gramsOfUnit(title).value_or(0.0F);
        for (float amount = 1.0F; each > 0.0F && amount >= leastamount; amount /= 2.0F) {
            const float grams = amount * each;
            if (grams <= most && grams / 100.0F * energy <= mostenergy)
                return {amount, title, grams};
        }
    }
    const float grams = std::round(std::min(most, energy > 0.0F ? helping / energy * 100.0F : most));
    return {grams, QStringLiteral("g"), grams};
}

} // namespace

Portion Portion::of(const QString &name, const Composition &composition, float energy)
{
    const std::string lower = NamePattern::lowerCase(name);
    const std::optional<float> helping = helpingOf(lower);
    if (!helping)
        return firstMeasure(composition, energy);
    if (*helping == helpingOfMeat)
        if (const std::optional<Portion> piece = wholePiece(composition))
            return *piece;
    return inMeasures(composition, *helping);
}
