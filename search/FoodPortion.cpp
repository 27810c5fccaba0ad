// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "search/FoodPortion.h"

#include "search/FoodWords.h"

#include <QList>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>

namespace {

using MeasureText::Token;
using Unit = MeasureText::Unit;

// What a unit's title says.
struct Measure {
    int index = 0;
    double count = 1; // "3" of "3 oz"
    std::vector<QByteArray> words; // of the title after the count, up to the first comma or bracket
    std::vector<QByteArray> words_all; // of the whole title
    double millilitres = 0; // of the whole unit, where the title tells
    bool volume = false; // it is no more than a volume: "cup, sliced"
    bool mass = false;
    bool serving = false; // "serving", "cup (8 fl oz)": what somebody has at once
    bool yield = false; // what some raw weight comes to
    bool package = false; // it may hold any number of pieces

    [[nodiscard]] bool isPiece() const { return !volume && !mass && !serving && !yield && !package && !words.empty(); }
    [[nodiscard]] bool has(const QByteArray &word) const
    {
        return std::find(words.begin(), words.end(), word) != words.end();
    }
};

bool isSame(const QByteArray &a, const QByteArray &b)
{
    if (a == b)
        return true;
    const std::vector<QByteArray> others = FoodWords::inflections(a);
    return std::find(others.begin(), others.end(), b) != others.end();
}

bool beginsWith(const std::vector<QByteArray> &words, const QByteArray &said)
{
    const qsizetype blank = said.indexOf(' ');
    if (blank < 0)
        return !words.empty() && isSame(words[0], said);
    return words.size() > 1 && words[0] == said.left(blank) && words[1] == said.mid(blank + 1);
}

// The first volume that the title tells anywhere, in millilitres: "can (12 fl oz)".
double volumeIn(const std::vector<Token> &tokens)
{
    for (std::size_t i = 0; i + 1 < tokens.size(); ++i) {
        const auto unit = tokens[i].isNumber() ? MeasureText::unitAt(tokens, i + 1) : std::nullopt;
        if (unit && unit->unit.kind == Unit::Kind::Volume)
            return tokens[i].number * unit->unit.size;
    }
    return 0;
}

constexpr std::array packages{"bag", "box", "jar", "loaf", "package", "recipe"};

Measure measureOf(const QString &title, int index)
{
    Measure measure;
    measure.index = index;
    std::vector<Token> tokens = MeasureText::tokenize(title);
    if (!tokens.empty() && tokens.front().isNumber()) {
        measure.count = tokens.front().number;
        tokens.erase(tokens.begin());
    }
    qsizetype phraseend = 0; // of the first phrase
    while (phraseend < title.size() && title[phraseend] != u',' && title[phraseend] != u'(')
        ++phraseend;
    for (const Token &token : tokens) {
        measure.words_all.push_back(token.word);
        if (token.start < phraseend && !token.isNumber())
            measure.words.push_back(token.word);
        measure.serving = measure.serving || token.word == "serving" || token.word == "servings";
        measure.yield = measure.yield || token.word == "yield" || token.word == "yields";
    }
    const std::size_t first
        = tokens.size() > 2 && tokens[0].word == "x" && tokens[1].isNumber() ? 2 : 0; // "x 0.75 cup"
    measure.package = std::any_of(packages.begin(), packages.end(),
        [&](const char *package) { return !measure.words.empty() && isSame(measure.words.front(), package); });
    const auto unit = MeasureText::unitAt(tokens, first);
    const double told = volumeIn(tokens) * measure.count;
    measure.mass = unit && unit->unit.kind == Unit::Kind::Mass;
    const bool volume = unit && unit->unit.kind == Unit::Kind::Volume;
    measure.millilitres = volume && told <= 0 ? measure.count * unit->unit.size : told;
    measure.serving = measure.serving || (volume && told > 0 && first == 0);
    measure.volume = volume;
    return measure;
}

// A measure, and what other foods call nearly the same.
constexpr std::array<const char *, 36> equals{"bag package packet container", "bottle can", "box package packet",
    "bunch head", "can tin bottle", "carton container", "chunk piece cube", "cob ear", "fillet piece", "floret spear",
    "helping serving portion order", "jar container", "knob pat", "measure jigger", "pack package packet container",
    "package packet container bag", "packet package pouch envelope bag", "patty burger piece", "piece slice item each",
    "portion serving order piece", "pot container", "pouch packet package", "punnet package container",
    "rasher slice strip piece", "ring rings slice", "sachet packet envelope", "serving portion order package",
    "shot jigger", "slice piece wedge", "spear stalk", "stalk stick rib", "stick stalk piece", "strip slice stick",
    "tin can", "tub container", "wedge slice piece"};

std::vector<QByteArray> wordsFor(const QByteArray &word)
{
    for (const char *group : equals) {
        const QList<QByteArray> words = QByteArray(group).split(' ');
        if (words.front() == word)
            return {words.begin(), words.end()};
    }
    return {word};
}

constexpr double cup = 236.5882365;

// What a measure holds of which no food says how much: a glass, a bowl and a mug are a cup, a splash is a tablespoon,
// a drizzle a teaspoon.
double millilitresOf(const QByteArray &word)
{
    if (word == "glass" || word == "bowl" || word == "mug")
        return cup;
    if (word == "shot" || word == "jigger" || word == "measure")
        return cup / 16 * 3;
    if (word == "splash" || word == "glug")
        return cup / 16;
    if (word == "drizzle" || word == "squeeze" || word == "squirt")
        return cup / 48;
    if (word == "dash")
        return cup / 384;
    return word == "pinch" ? cup / 768 : 0;
}

class Chooser {
public:
    Chooser(const FoodQuantity &foodquantity, std::span<const FoodUnit> foodunits)
        : quantity(foodquantity)
        , units(foodunits)
    {
        for (std::size_t i = 1; i < units.size(); ++i)
            if (const Measure measure = measureOf(units[i].title, static_cast<int>(i));
                measure.count > 0 && units[i].grams > 0.0F)
                measures.push_back(measure);
    }

    FoodPortion choose()
    {
        const Unit &unit = quantity.unit;
        if (unit.kind == Unit::Kind::Mass)
            return portion(0, quantity.count * unit.size);
        if (unit.kind == Unit::Kind::Volume)
            return byVolume(unit.size);
        if (const Measure *measure = quantity.isPieces() ? piece() : named(unit.name))
            return portion(measure->index, quantity.count / measure->count);
        if (const double size = millilitresOf(unit.name); size > 0) {
            const Measure *glass
                = first([&](const Measure &one) { return size >= cup && one.serving && one.millilitres > 0; });
            return glass != nullptr ? portion(glass->index, quantity.count / glass->count) : byVolume(size);
        }
        return none();
    }

private:
    FoodPortion none() const { return {0, QStringLiteral("100"), 100.0F, false}; }

    FoodPortion portion(int index, double amount) const
    {
        const auto value = static_cast<float>(amount);
        std::array<char, 64> letters{};
        const auto written
            = std::to_chars(letters.data(), letters.data() + letters.size(), value, std::chars_format::fixed);
        const float weight = index == 0 ? value : units[static_cast<std::size_t>(index)].grams * value;
        if (!std::isfinite(weight) || value <= 0.0F)
            return none();
        return {index, QString::fromLatin1(letters.data(), written.ptr - letters.data()), weight, true};
    }

    FoodPortion byVolume(double size) const
    {
        // How much of the measure the wanted volume is.
        const auto amountOf = [&](const Measure &measure) { return quantity.count * size / measure.millilitres; };
        const auto isExact = [&](const Measure &measure) {
            return measure.volume && std::abs(measure.millilitres / measure.count - size) < size * 1e-6;
        };
        const auto same = std::find_if(measures.begin(), measures.end(), isExact);
        if (same != measures.end())
            return portion(same->index, amountOf(*same));
        for (const bool volume : {true, false}) {
            const Measure *best = nullptr;
            for (const Measure &measure : measures) {
                if (measure.millilitres <= 0 || measure.volume != volume)
                    continue;
                const bool above = amountOf(measure) < 1;
                const bool bestabove = best != nullptr && amountOf(*best) < 1;
                const bool larger = best != nullptr && measure.millilitres > best->millilitres;
                const bool smaller = best != nullptr && measure.millilitres < best->millilitres;
                if (best == nullptr || (bestabove && !above) || (above == bestabove && (above ? smaller : larger)))
                    best = &measure;
            }
            if (best != nullptr)
                return portion(best->index, amountOf(*best));
        }
        return none();
    }

    template <typename Test>
    [[nodiscard]] const Measure *first(Test test) const
    {
        const auto found = std::find_if(measures.begin(), measures.end(), test);
        return found == measures.end() ? nullptr : &*found;
    }

    [[nodiscard]] static bool isSize(const QByteArray &word)
    {
        return word == "large" || word == "medium" || word == "small" || word == "jumbo" || word.startsWith("extra ");
    }

    [[nodiscard]] const Measure *named(const QByteArray &word) const
    {
        for (const QByteArray &each : wordsFor(word)) {
            if (const Measure *measure = first([&](const Measure &one) { return beginsWith(one.words, each); }))
                return measure;
            if (const Measure *measure = first([&](const Measure &one) {
                    return std::any_of(one.words.begin(), one.words.end(),
                               [&](const QByteArray &other) { return isSame(other, each); })
                        && !one.volume && !one.mass;
                }))
                return measure;
        }
        if (!isSize(word))
            return word == "serving" || word == "portion" || word == "helping"
                ? first([](const Measure &one) { return one.serving; })
                : nullptr;
        const Measure *sized = first([&](const Measure &one) {
            return one.isPiece() && std::find(one.words_all.begin(), one.words_all.end(), word) != one.words_all.end();
        });
        return sized != nullptr ? sized : piece();
    }

    // A measure that says no more than what the food is called: "frankfurter", "thigh, bone removed".
    [[nodiscard]] bool isCalledLikeFood(const Measure &measure) const
    {
        if (!measure.isPiece())
            return false;
        const auto isFoodWord = [&](const QByteArray &word) {
            return std::any_of(quantity.foodwords.begin(), quantity.foodwords.end(),
                [&](const QByteArray &other) { return isSame(other, word); });
        };
        for (const QByteArray &word : measure.words) {
            if (word == "with" || word == "without")
                return &word != measure.words.data();
            if (!isFoodWord(word))
                return false;
        }
        return true;
    }

    [[nodiscard]] const Measure *piece() const
    {
        if (const Measure *called = first([&](const Measure &one) { return isCalledLikeFood(one); }))
            return called;
        for (const char *size : {"large", "medium", "small", "jumbo"})
            if (const Measure *sized
                = first([&](const Measure &one) { return one.isPiece() && beginsWith(one.words, size); }))
                return sized;
        if (const Measure *any = first([](const Measure &one) { return one.isPiece(); }))
            return any;
        if (const Measure *serving = first([](const Measure &one) { return one.serving; }))
            return serving;
        // Nobody who counts twenty chips has eaten twenty bags.
        constexpr double mostpackages = 2;
        return first([&](const Measure &one) {
            return !one.volume && !one.mass && (!one.package || quantity.count <= mostpackages);
        });
    }

    const FoodQuantity &quantity;
    std::span<const FoodUnit> units;
    std::vector<Measure> measures;
};

} // namespace

FoodPortion FoodPortion::of(const FoodQuantity &quantity, std::span<const FoodUnit> units)
{
    return Chooser(quantity, units).choose();
}
