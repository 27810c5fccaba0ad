// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "bynutrient/Standing.h"

#include "bynutrient/FoodKinds.h"
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

Rank rankOf(const QString &printed, std::string_view name, const FoodIndex::Name &words, bool hascookedkin)
{
    const std::optional<Rank> listed = FoodKinds::rankOf(name);
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
