// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "bynutrient/Standing.h"

#include "bynutrient/NamePattern.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace {

using NamePattern::hasWord;
using Rank = Standing::Rank;

struct RankedPattern {
    std::string_view pattern;
    Rank rank;
};

// The first pattern that fits counts. What is raw or a brand is told from words and needs no line here.
constexpr RankedPattern patterns[] = {
    {"pork, fresh, loin, whole", Rank::Further},
    {"pork, fresh, shoulder, whole", Rank::Further},
    {"pork, fresh, leg (ham), whole", Rank::Further},
    {"*pre-basted", Rank::Further},
    {"*prepackaged", Rank::Further},
    {"semolina", Rank::NotAsSuch},
    {"breakfast bar", Rank::Further},
    {"snacks, crisped rice bar", Rank::Further},
    {"snacks, granola bar", Rank::Further},
    {"milk and cereal bar", Rank::Further},
    {"fish, tuna, fresh, bluefin", Rank::Further},
    {"fish, sturgeon", Rank::Further},
    {"fish, bluefish", Rank::Further},
    {"fish, bass", Rank::Further},
    {"fish, seatrout", Rank::Further},
    {"fish, sea bass", Rank::Further},
    {"thuringer", Rank::Further},
    {"lebanon bologna", Rank::Further},
    {"liver cheese", Rank::Further},
    {"berliner", Rank::Further},
    {"*berliner", Rank::Further},
    {"luncheon sausage", Rank::Further},
    {"luncheon meat", Rank::Further},
    {"new england brand", Rank::Further},
    {"headcheese", Rank::Further},
    {"blood sausage", Rank::Further},
    {"mother's loaf", Rank::Further},
    {"olive loaf", Rank::Further},
    {"peppered loaf", Rank::Further},
    {"picnic loaf", Rank::Further},
    {"pickle and pimiento", Rank::Further},
    {"dutch brand", Rank::Further},
    {"honey loaf", Rank::Further},
    {"barbecue loaf", Rank::Further},
    {"beerwurst", Rank::Further},
    {"yachtwurst", Rank::Further},
    {"swisswurst", Rank::Further},
    {"bockwurst", Rank::Further},
    {"macaroni and cheese loaf", Rank::Further},
    {"ham and cheese loaf", Rank::Further},
    {"*heavy syrup", Rank::Further},
    {"*light syrup", Rank::Further},
    {"*frozen, *sweetened", Rank::Further},
    {"*canned, sweetened", Rank::Further},
    {"rhubarb, frozen", Rank::Further},
    {"*pickled, canned", Rank::Further},
    {"adobo fresco", Rank::NotAsSuch},
    {"jellyfish", Rank::Further},
    {"chicken, skin", Rank::NotAsSuch},
    {"milk, filled", Rank::Further},
    {"milk, imitation", Rank::Further},
    {"nuts, formulated", Rank::Further},
    {"oil, nutmeg", Rank::Further},
    {"oil, ucuhuba", Rank::Further},
    {"oil, cupu", Rank::Further},
    {"oil, babassu", Rank::Further},
    {"oil, sheanut", Rank::Further},
    {"oil, teaseed", Rank::Further},
    {"oil, tomatoseed", Rank::Further},
    {"alcoholic beverage, wine, cooking", Rank::NotAsSuch},
    {"puff pastry", Rank::NotAsSuch},
    {"phyllo", Rank::NotAsSuch},
    {"pie crust", Rank::NotAsSuch},
    {"wonton", Rank::NotAsSuch},
    {"arrowroot", Rank::NotAsSuch},
    {"cassava, raw", Rank::NotAsSuch},
    {"yautia", Rank::Further},
    {"yam, raw", Rank::NotAsSuch},
    {"guavas, strawberry", Rank::Further},
    {"broccoli, leaves", Rank::Further},
    {"eppaw", Rank::NotAsSuch},
    {"plantains, raw", Rank::NotAsSuch},
    {"goose", Rank::Further},
    {"mollusks, octopus", Rank::Further},
    {"crustaceans, spiny lobster", Rank::Further},
    {"crustaceans, crayfish", Rank::Further},
    {"fish, eel", Rank::Further},
    {"fish, carp", Rank::Further},
    {"fish, roe", Rank::Further},
    {"game meat, deer", Rank::Further},
    {"*cured, breakfast strips", Rank::Further},
    {"*petite tender", Rank::Further},
    {"ham and cheese spread", Rank::Further},
    {"spinach souffle", Rank::Further},
    {"milk, chocolate", Rank::Further},
    {"rice and wheat cereal bar", Rank::Further},
    {"waffle", Rank::Further},
    {"toaster pastries", Rank::Further},
    {"lamb, new zealand", Rank::Further},
    {"lamb, australian", Rank::Further},
    {"fish, shad", Rank::Further},
    {"fish, milkfish", Rank::Further},
    {"fish, spot", Rank::Further},
    {"fish, sucker", Rank::Further},
    {"fish, cusk", Rank::Further},
    {"fish, sheepshead", Rank::Further},
    {"fish, scup", Rank::Further},
    {"fish, drum", Rank::Further},
    {"fish, ling", Rank::Further},
    {"fish, wolffish", Rank::Further},
    {"fish, tilefish", Rank::Further},
    {"fish, croaker", Rank::Further},
    {"fish, butterfish", Rank::Further},
    {"fish, roughy", Rank::Further},
    {"fish, pout", Rank::Further},
    {"fish, sablefish", Rank::Further},
    {"fish, lingcod", Rank::Further},
    {"fish, yellowtail", Rank::Further},
    {"fish, mullet", Rank::Further},
    {"fish, dolphinfish", Rank::Further},
    {"fish, pumpkin", Rank::Further},
    {"fish, sunfish", Rank::Further},
    {"fish, greenland", Rank::Further},
    {"pork, fresh, enhanced", Rank::Further},
    {"pate", Rank::Further},
    {"*composite of", Rank::Further},
    {"corn pudding", Rank::Further},
    {"*chinese restaurant", Rank::Further},
    {"*pie mix", Rank::Further},
    {"cowpeas, catjang", Rank::Further},
    {"passion-fruit", Rank::Further},
    {"cake", Rank::Further},
    {"pie,", Rank::Further},
    {"cookies", Rank::Further},
    {"chili", Rank::Further},
    {"burrito", Rank::Further},
    {"luxury loaf", Rank::Further},
    {"eggs, scrambled, frozen", Rank::Further},
    {"gravy", Rank::Further},
    {"fish, mackerel, salted", Rank::Further},
    {"fish, burbot", Rank::Further},
    {"fish, cisco", Rank::Further},
    {"milk, *low sodium", Rank::Further},
    {"milk shakes", Rank::Further},
    {"*variety meats and by-products, liver", Rank::Everyday},
    {"milk, sheep", Rank::Further},
    {"milk, indian", Rank::Further},
    {"milk, human", Rank::NotAsSuch},
    {"milk, goat", Rank::Further},
    {"mollusks, whelk", Rank::Further},
    {"mollusks, conch", Rank::Further},
    {"mollusks, cuttlefish", Rank::Further},
    {"mollusks, abalone", Rank::Further},
    {"seeds, sisymbrium", Rank::Further},
    {"seeds, watermelon", Rank::Further},
    {"seeds, lotus", Rank::Further},
    {"seeds, breadnut", Rank::Further},
    {"seeds, breadfruit", Rank::Further},
    {"radishes, oriental, dried", Rank::NotAsSuch},
    {"soybean, curd", Rank::Further},
    {"tofu yogurt", Rank::Further},
    {"bean beverage", Rank::Further},
    {"vermicelli, made from soy", Rank::Further},
    {"nopales", Rank::Further},
    {"prickly pears", Rank::Further},
    {"kamut", Rank::Further},
    {"*fast food", Rank::Further},
    {"*juice drink", Rank::Further},
    {"grape drink", Rank::Further},
    {"orange drink", Rank::Further},
    {"*drink,", Rank::Further},
    {"cornmeal", Rank::NotAsSuch},
    {"corn flour", Rank::NotAsSuch},
    {"*variety meats", Rank::Further},
    {"*heart, all classes", Rank::Further},
    {"*gizzard", Rank::Further},
    {"milk, *with added calcium", Rank::Further},
    {"rice drink", Rank::Further},
    {"soup, *dry", Rank::NotAsSuch},
    {"soup, *frozen", Rank::Further},
    {"*, raw, frozen", Rank::NotAsSuch},
    {"pie fillings", Rank::Further},
    {"frostings", Rank::Further},
    {"*with calcium", Rank::Further},
    {"veggie burgers", Rank::Further},
    {"tofu, salted", Rank::Further},
    {"poultry food products", Rank::Further},
    {"beefalo", Rank::Further},
    {"sausage, *smoked", Rank::Everyday},
    {"cereals ready-to-eat, wheat germ", Rank::Everyday},
    {"cereals ready-to-eat, shredded wheat", Rank::Everyday},
    {"cereals ready-to-eat, wheat and bran", Rank::Everyday},
    {"cereals ready-to-eat, granola, homemade", Rank::Everyday},
    {"cereals ready-to-eat", Rank::Further},
    {"cereals ready to eat", Rank::Further},
    {"cereals, *fortified", Rank::Further},
    {"cereals, *enriched", Rank::Further},
    {"cereals, cream of", Rank::Further},
    {"yeast extract spread", Rank::Further},
    {"*canned entree", Rank::Further},
    {"*frozen entree", Rank::Further},
    {"entrees", Rank::Further},
    {"grape leaves", Rank::NotAsSuch},
    {"desserts, rennin", Rank::NotAsSuch},
    {"gravy, *dry", Rank::NotAsSuch},
    {"*ensure", Rank::Further},
    {"nutritional supplement", Rank::Further},
    {"meal supplement", Rank::Further},
    {"*powder, prepared", Rank::Further},
    {"*powder, chocolate, prepared", Rank::Further},
    {"*dry mix, *prepared", Rank::Further},
    {"*mix, *prepared", Rank::Further},
    {"ready-to-drink", Rank::Further},
    {"soup, *prepared", Rank::Everyday},
    {"coffee, *prepared", Rank::Everyday},
    {"tea, *prepared", Rank::Everyday},
    {"orange juice, *diluted with", Rank::Everyday},
    {"*concentrate, *diluted with", Rank::Everyday},
    {"hibiscus tea", Rank::Further},
    {"game meat, bison", Rank::Everyday},
    {"game meat, deer", Rank::Further},
    {"game meat", Rank::Further},
    {"emu", Rank::Further},
    {"ostrich", Rank::Further},
    {"seal", Rank::NotAsSuch},
    {"whale", Rank::NotAsSuch},
    {"walrus", Rank::NotAsSuch},
    {"sea lion", Rank::NotAsSuch},
    {"bear", Rank::NotAsSuch},
    {"owl", Rank::NotAsSuch},
    {"caribou", Rank::Further},
    {"squab", Rank::Further},
    {"pheasant", Rank::Further},
    {"guinea", Rank::Further},
    {"dove", Rank::Further},
    {"quail", Rank::Further},
    {"frog", Rank::Further},
    {"turtle", Rank::Further},
    {"squirrel", Rank::Further},
    {"hyacinth", Rank::Further},
    {"winged bean", Rank::Further},
    {"mothbeans", Rank::Further},
    {"mungo", Rank::Further},
    {"lupins", Rank::Further},
    {"yardlong", Rank::Further},
    {"broadbeans, imm", Rank::Further},
    {"rowal", Rank::Further},
    {"sesbania", Rank::Further},
    {"drumstick", Rank::Further},
    {"balsam-pear", Rank::Further},
    {"acerola", Rank::Further},
    {"rose hips", Rank::Further},
    {"rose-apples", Rank::Further},
    {"fireweed", Rank::Further},
    {"lambsquarters", Rank::Further},
    {"lambs quarters", Rank::Further},
    {"jute", Rank::Further},
    {"amaranth leaves", Rank::Further},
    {"taro", Rank::Further},
    {"borage", Rank::Further},
    {"butterbur", Rank::Further},
    {"chrysanthemum", Rank::Further},
    {"garland", Rank::Further},
    {"dock", Rank::Further},
    {"cardoon", Rank::Further},
    {"celtuce", Rank::Further},
    {"chayote", Rank::Further},
    {"arrowhead", Rank::Further},
    {"fungi", Rank::Further},
    {"jew's ear", Rank::Further},
    {"pepeao", Rank::Further},
    {"pokeberry", Rank::Further},
    {"purslane", Rank::Further},
    {"sweet potato leaves", Rank::Further},
    {"pumpkin leaves", Rank::Further},
    {"vinespinach", Rank::Further},
    {"malabar", Rank::Further},
    {"new zealand spinach", Rank::Further},
    {"swamp cabbage", Rank::Further},
    {"gourd", Rank::Further},
    {"waxgourd", Rank::Further},
    {"tree fern", Rank::Further},
    {"fiddlehead", Rank::Further},
    {"abiyuch", Rank::Further},
    {"breadfruit", Rank::Further},
    {"carissa", Rank::Further},
    {"cherimoya", Rank::Further},
    {"custard-apple", Rank::Further},
    {"durian", Rank::Further},
    {"elderberries", Rank::Further},
    {"feijoa", Rank::Further},
    {"groundcherries", Rank::Further},
    {"jackfruit", Rank::Further},
    {"java-plum", Rank::Further},
    {"jujube", Rank::Further},
    {"longans", Rank::Further},
    {"loquats", Rank::Further},
    {"mammy-apple", Rank::Further},
    {"mountain yam", Rank::Further},
    {"nance", Rank::Further},
    {"naranjilla", Rank::Further},
    {"oheloberries", Rank::Further},
    {"pitanga", Rank::Further},
    {"roselle", Rank::Further},
    {"sapodilla", Rank::Further},
    {"sapote", Rank::Further},
    {"soursop", Rank::Further},
    {"sugar-apples", Rank::Further},
    {"tamarinds", Rank::Further},
    {"horned melon", Rank::Further},
    {"teff", Rank::Further},
    {"incaparina", Rank::Further},
    {"acorn stew", Rank::NotAsSuch},
    {"agutuk", Rank::NotAsSuch},
    {"infant formula", Rank::NotAsSuch},
    {"child formula", Rank::NotAsSuch},
    {"babyfood", Rank::NotAsSuch},
    {"baby food", Rank::NotAsSuch},
    {"*alaska native", Rank::NotAsSuch},
    {"spices,", Rank::NotAsSuch},
    {"salt,", Rank::NotAsSuch},
    {"leavening agents", Rank::NotAsSuch},
    {"gelatins, dry", Rank::NotAsSuch},
    {"rennin", Rank::NotAsSuch},
    {"pectin", Rank::NotAsSuch},
    {"*vanilla extract", Rank::NotAsSuch},
    {"celery flakes", Rank::NotAsSuch},
    {"*freeze-dried", Rank::NotAsSuch},
    {"fish oil, cod liver", Rank::Everyday},
    {"fish oil", Rank::NotAsSuch},
    {"shortening", Rank::NotAsSuch},
    {"*lecithin", Rank::NotAsSuch},
    {"meat drippings", Rank::NotAsSuch},
    {"animal fat", Rank::NotAsSuch},
    {"fat,", Rank::NotAsSuch},
    {"protein supplement", Rank::NotAsSuch},
    {"soy protein", Rank::NotAsSuch},
    {"soy flour", Rank::NotAsSuch},
    {"soy meal", Rank::NotAsSuch},
    {"meat extender", Rank::NotAsSuch},
    {"vital wheat gluten", Rank::NotAsSuch},
    {"cream substitute", Rank::Further},
    {"*bread crumbs", Rank::NotAsSuch},
    {"cornstarch", Rank::NotAsSuch},
    {"cracker meal", Rank::NotAsSuch},
    {"*flour, ", Rank::NotAsSuch},
    {"wheat flour", Rank::NotAsSuch},
    {"*variety meats and by-products, brain", Rank::NotAsSuch},
    {"*variety meats and by-products, lungs", Rank::NotAsSuch},
    {"*variety meats and by-products, spleen", Rank::NotAsSuch},
    {"*variety meats and by-products, pancreas", Rank::NotAsSuch},
    {"*variety meats and by-products, thymus", Rank::NotAsSuch},
    {"*variety meats and by-products, mechanically", Rank::NotAsSuch},
    {"*mechanically deboned", Rank::NotAsSuch},
    {"*mechanically separated", Rank::NotAsSuch},
    {"*giblets", Rank::NotAsSuch},
    {"*, neck", Rank::NotAsSuch},
    {"*skin only", Rank::NotAsSuch},
    {"*separable fat", Rank::NotAsSuch},
    {"seeds, *flour", Rank::NotAsSuch},
    {"seeds, *meal", Rank::NotAsSuch},
    {"seeds, cottonseed", Rank::NotAsSuch},
    {"seeds, safflower", Rank::NotAsSuch},
    {"nuts, *flour", Rank::NotAsSuch},
    {"nuts, *meal, partially defatted", Rank::NotAsSuch},
    {"egg, *dried", Rank::NotAsSuch},
    {"egg, *raw", Rank::NotAsSuch},
    {"egg substitute, powder", Rank::NotAsSuch},
    {"egg, duck", Rank::NotAsSuch},
    {"milk, dry", Rank::NotAsSuch},
    {"milk, buttermilk, dried", Rank::NotAsSuch},
    {"milk, canned, condensed", Rank::NotAsSuch},
    {"whey, *dried", Rank::NotAsSuch},
    {"whey,", Rank::NotAsSuch},
    {"mollusks, *liquid", Rank::NotAsSuch},
    {"corn bran", Rank::NotAsSuch},
    {"rice bran", Rank::NotAsSuch},
    {"wheat bran", Rank::NotAsSuch},
    {"cocoa, dry", Rank::NotAsSuch},
    {"carob flour", Rank::NotAsSuch},
    {"coffee, *prepared with", Rank::Everyday},
    {"*powder", Rank::NotAsSuch},
    {"*dry mix, prepared", Rank::Further},
    {"*dry mix", Rank::NotAsSuch},
    {"*, mix,", Rank::NotAsSuch},
    {"*mix, dry", Rank::NotAsSuch},
    {"*condensed", Rank::NotAsSuch},
    {"*undiluted", Rank::NotAsSuch},
    {"*concentrate, unsw", Rank::NotAsSuch},
    {"tofu, dried", Rank::NotAsSuch},
    {"seaweed, *dried", Rank::NotAsSuch},
    {"mushrooms, shiitake, dried", Rank::NotAsSuch},
    {"fungi, *dried", Rank::NotAsSuch},
    {"fish, *dried", Rank::NotAsSuch},
    {"carrot, dehydrated", Rank::NotAsSuch},
    {"*dehydrated", Rank::NotAsSuch},
    {"peppers, *dried", Rank::NotAsSuch},
    {"wheat,", Rank::NotAsSuch},
    {"oats", Rank::NotAsSuch},
    {"rye", Rank::NotAsSuch},
    {"sorghum", Rank::NotAsSuch},
    {"triticale", Rank::NotAsSuch},
    {"kamut, uncooked", Rank::NotAsSuch},
    {"barley", Rank::NotAsSuch},
    {"cereals, *, dry", Rank::NotAsSuch},
    {"cereals, *dry", Rank::NotAsSuch},
    {"*pasta, *dry", Rank::NotAsSuch},
    {"spaghetti, dry", Rank::NotAsSuch},
    {"*noodles, *dry", Rank::NotAsSuch},
    {"macaroni, *dry", Rank::NotAsSuch},
    {"couscous, dry", Rank::NotAsSuch},
    {"bulgur, dry", Rank::NotAsSuch},
    {"buckwheat", Rank::NotAsSuch},
    {"amaranth, uncooked", Rank::NotAsSuch},
    {"leavening", Rank::NotAsSuch},
    {"fast food", Rank::Further},
    {"restaurant", Rank::Further},
    {"formulated bar", Rank::Further},
    {"energy drink", Rank::Further},
    {"candies, *dietetic", Rank::Further},
};

// What a person eats raw although the catalogue has it cooked, too.
constexpr std::string_view eatenRaw[]
    = {"apples", "apricots", "avocados", "bananas", "beans, snap", "blackberries", "blueberries", "broccoli", "cabbage",
        "carrots", "cauliflower", "celery", "chard", "cherries", "chicory", "chives", "coriander", "cress", "cucumber",
        "dandelion", "endive", "fennel", "figs", "fruit", "grapefruit", "grapes", "guavas", "kale", "kiwi", "lettuce",
        "mangos", "melons", "mollusks, clam", "mollusks, oyster", "mung beans, mature seeds, sprouted", "mushrooms",
        "nectarines", "nuts", "onions", "oranges", "papayas", "parsley", "peaches", "peanuts", "pears", "peas, edible",
        "peas, green, raw", "peppers, sweet", "persimmons", "pineapple", "plantains", "plums", "prunes",
        "pumpkin flowers", "purslane", "radishes", "raspberries", "rhubarb, raw", "seeds", "spinach", "squash, summer",
        "strawberries", "tangerines", "tomatoes", "turnip", "watercress", "watermelon", "wheat germ"};

template <std::size_t count>
bool beginsWithOneOf(std::string_view text, const std::string_view (&beginnings)[count])
{
    return std::any_of(
        std::begin(beginnings), std::end(beginnings), [text](std::string_view each) { return text.starts_with(each); });
}

// Whether the food is what one buys to cook or to dissolve. Of what only ever comes raw, raw is how it is eaten; dried
// fruit is sold uncooked and eaten so.
bool isBeforeCooking(std::string_view name, bool hascookedkin)
{
    const bool uncooked = hasWord(name, "uncooked unprepared unheated unpopped undiluted") && !hasWord(name, "dried");
    const bool dry = name.ends_with(", dry") || name.ends_with(", dry form") || NamePattern::matches("*dry mix", name)
        || NamePattern::matches("*not reconst", name) || hasWord(NamePattern::head(name), "flour");
    const bool raw = NamePattern::matches("*raw", name)
        && (hascookedkin
            || hasWord(name, "beef pork chicken turkey poultry sausage bockwurst bratwurst frankfurter chorizo goat"));
    return uncooked || dry || (raw && !beginsWithOneOf(name, eatenRaw));
}

// Brands are printed in capitals: "GREEN GIANT" is one although "green" is a word like any other.
bool beginsWithBrand(const QString &name)
{
    constexpr int capitals = 3;
    int run = 0;
    for (const QChar letter : name) {
        if (letter == u',')
            break;
        run = letter.isUpper() ? run + 1 : 0;
        if (run >= capitals)
            return true;
    }
    return false;
}

// What the table says of the food, if anything.
std::optional<Rank> listedRank(std::string_view name)
{
    static const NamePattern::Table table([] {
        std::vector<std::string_view> list;
        for (const RankedPattern &each : patterns)
            list.push_back(each.pattern);
        return list;
    }());
    const std::optional<std::size_t> found = table.find(name);
    return found ? std::optional(patterns[*found].rank) : std::nullopt;
}

Rank rankOf(const QString &printed, std::string_view name, const FoodIndex::Name &words, bool hascookedkin)
{
    const std::optional<Rank> listed = listedRank(name);
    if (listed == Rank::NotAsSuch || words.forFew || isBeforeCooking(name, hascookedkin))
        return Rank::NotAsSuch;
    if (listed == Rank::Further || words.ofBrand || beginsWithBrand(printed)
        || (!listed && hasWord(name, "fortified enhanced supplement substitute vegetarian meatless")))
        return Rank::Further;
    return Rank::Everyday;
}

std::string withoutBrackets(std::string_view name)
{
    std::string text;
    int depth = 0;
    for (const char letter : name) {
        depth += letter == '(' ? 1 : 0;
        if (depth == 0 && !(letter == ',' && text.ends_with(' ')))
            text += letter;
        depth -= letter == ')' && depth > 0 ? 1 : 0;
    }
    while (text.ends_with(' '))
        text.pop_back();
    return text;
}

std::vector<std::string_view> partsOf(std::string_view name)
{
    std::vector<std::string_view> parts;
    while (!name.empty()) {
        const std::size_t comma = name.find(',');
        std::string_view part = name.substr(0, comma);
        while (part.starts_with(' '))
            part.remove_prefix(1);
        while (part.ends_with(' '))
            part.remove_suffix(1);
        parts.push_back(part);
        name.remove_prefix(comma == std::string_view::npos ? name.size() : comma + 1);
    }
    return parts;
}

struct Keys {
    std::string food;
    std::string shelf;
    std::string dish;
};

// The cut that a name of meat speaks of; nothing for other foods.
std::optional<std::string_view> cutOf(std::string_view name)
{
    static constexpr std::string_view cuts[] = {"liver", "tongue", "tenderloin", "sirloin", "loin", "rib", "ground",
        "chuck", "round", "brisket", "flank", "shank", "plate", "skirt", "shoulder", "leg", "ham", "bacon", "breast",
        "thigh", "drumstick", "wing", "light", "dark", "giblets"};
    if (!hasWord(NamePattern::head(name), "beef pork lamb veal chicken turkey duck goose"))
        return std::nullopt;
    if (hasWord(name, "chop") && !hasWord(name, "tenderloin"))
        return "loin"; // which chops are cut from
    const auto *const found
        = std::find_if(std::begin(cuts), std::end(cuts), [name](std::string_view cut) { return hasWord(name, cut); });
    return found != std::end(cuts) ? std::optional(*found) : std::nullopt;
}

// The name without what was done to the food: its salt, its fat trimmed away, how it was cooked.
std::string dishOf(const std::vector<std::string_view> &parts)
{
    static constexpr std::string_view ends[] = {"cooked", "heated", "roasted", "broiled", "stewed", "dry roasted",
        "dry-roasted", "oil roasted", "toasted", "blanched", "dried", "boiled", "baked"};
    static constexpr std::string_view details[]
        = {"separable", "trimmed", "domestic", "australian", "new zealand", "imported", "fresh", "frozen", "boneless",
            "bone-in", "bone in", "meat only", "meat and skin", "all classes", "whole", "farmed", "wild", "atlantic",
            "pacific", "eastern", "mixed species", "with salt", "without salt", "with added salt", "without added salt",
            "with salt added", "without salt added", "no salt added", "salted", "unsalted"};
    std::string dish;
    for (const std::string_view part : parts) {
        if (!dish.empty() && beginsWithOneOf(part, ends))
            break;
        if (dish.empty() || !beginsWithOneOf(part, details))
            dish.append(part).append(",");
    }
    return dish;
}

// Whose second part is the food. Fewer than the search has: soda of every taste is one food to who asks for sugar.
bool isShelf(std::string_view head)
{
    static constexpr std::string_view shelves[]
        = {"alcoholic beverage", "cereals", "crustaceans", "fish", "mollusks", "nuts", "seeds"};
    return std::find(std::begin(shelves), std::end(shelves), head) != std::end(shelves);
}

Keys keysOf(std::string_view name)
{
    const std::string plain = withoutBrackets(name);
    const std::vector<std::string_view> parts = partsOf(plain);
    const std::string head(parts.front());
    Keys keys;
    keys.food = head;
    const std::optional<std::string_view> cut = cutOf(name);
    keys.dish = dishOf(parts);
    if (parts.size() > 1 && isShelf(head)) {
        std::string_view kind = parts[1].substr(0, parts[1].find(' '));
        kind.remove_suffix(kind.ends_with('s') ? 1 : 0);
        keys.shelf = head;
        keys.food.append(",").append(kind);
    } else if (hasWord(head, "chicken")) {
        keys.food = "chicken";
    } else if (hasWord(head, "turkey")) {
        keys.food = "turkey";
    } else if (head == "bison") {
        keys.food = "game meat";
    } else if (head == "pork" && parts.size() > 1 && parts[1] == "cured") {
        keys.food = "ham and bacon";
    }
    if (cut)
        keys.dish = keys.food + "," + std::string(*cut);
    return keys;
}

// Gives each new text the next number, from 1; 0 is the empty text's.
class Numbers {
public:
    int of(const std::string &text)
    {
        return text.empty() ? 0 : numbers.try_emplace(text, static_cast<int>(numbers.size()) + 1).first->second;
    }

private:
    std::unordered_map<std::string, int> numbers;
};

} // namespace

Standing::Standing(const QStringList &foodnames)
{
    const FoodIndex index(foodnames);
    std::vector<std::string> lower;
    std::unordered_set<std::string_view> cooked; // heads
    lower.reserve(static_cast<std::size_t>(foodnames.size()));
    for (const QString &name : foodnames)
        lower.push_back(NamePattern::lowerCase(name));
    for (const std::string &name : lower)
        if (hasWord(name, "cooked boiled baked broiled roasted simmered fried"))
            cooked.insert(NamePattern::head(name));

    Numbers numbers;
    foods.reserve(lower.size());
    for (std::size_t i = 0; i < lower.size(); ++i) {
        const Keys keys = keysOf(lower[i]);
        const bool hascookedkin = cooked.contains(NamePattern::head(lower[i]));
        const Rank rank = rankOf(foodnames[static_cast<qsizetype>(i)], lower[i], index.names()[i], hascookedkin);
        foods.push_back({rank, numbers.of(keys.food), numbers.of(keys.shelf), numbers.of(keys.dish)});
    }
}
