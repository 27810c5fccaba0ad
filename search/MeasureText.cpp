// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "search/MeasureText.h"

#include "search/FoodWords.h"

#include <QHash>
#include <QSet>
#include <QString>

#include <algorithm>
#include <array>

namespace {

using MeasureText::Token;
using MeasureText::Unit;

constexpr double ounce = 28.349523125;
constexpr double pound = 453.59237;
constexpr double fluidounce = 29.5735295625;
constexpr double cup = 8 * fluidounce;
constexpr double teaspoon = fluidounce / 6;

bool isDigit(QChar character)
{
    return character >= u'0' && character <= u'9';
}

bool isApostrophe(QChar character)
{
    return character == u'\'' || character == u'\u2019';
}

QSet<QByteArray> setOf(const char *words)
{
    const QList<QByteArray> list = QByteArray(words).split(' ');
    return {list.begin(), list.end()};
}

QHash<QByteArray, Unit> unitTable()
{
    QHash<QByteArray, Unit> table;
    const auto add = [&table](Unit::Kind kind, double size, const char *spellings) {
        for (const QByteArray &spelling : QByteArray(spellings).split(' '))
            table.insert(spelling, {kind, size, QByteArray()});
    };
    add(Unit::Kind::Mass, 1, "g gr gm gram gramme");
    add(Unit::Kind::Mass, 0.001, "mg milligram");
    add(Unit::Kind::Mass, 1000, "kg kilo kilogram kilogramme");
    add(Unit::Kind::Mass, ounce, "oz ounce");
    add(Unit::Kind::Mass, pound, "lb pound");
    add(Unit::Kind::Volume, 1, "ml mil millilitre milliliter cc");
    add(Unit::Kind::Volume, 10, "cl centilitre centiliter dessertspoon dsp");
    add(Unit::Kind::Volume, 100, "dl decilitre deciliter");
    add(Unit::Kind::Volume, 1000, "l ltr litre liter");
    add(Unit::Kind::Volume, teaspoon, "tsp teaspoon teaspoonful");
    add(Unit::Kind::Volume, 3 * teaspoon, "tbsp tbs tbl tblsp tablespoon tablespoonful");
    add(Unit::Kind::Volume, fluidounce, "floz");
    add(Unit::Kind::Volume, cup, "c cup cupful");
    add(Unit::Kind::Volume, 2 * cup, "pt pint");
    add(Unit::Kind::Volume, 4 * cup, "qt quart");
    add(Unit::Kind::Volume, 16 * cup, "gal gallon");
    for (const char *word : {"bag", "ball", "bar", "bit", "block", "bottle", "bowl", "box", "bunch", "can", "carton",
             "chunk", "clove", "cob", "container", "cube", "dash", "drizzle", "drop", "ear", "envelope", "fillet",
             "finger", "floret", "glass", "glug", "handful", "head", "helping", "jar", "jigger", "jumbo", "knob",
             "large", "leaf", "link", "loaf", "measure", "medallion", "medium", "mug", "pack", "package", "packet",
             "pat", "patty", "piece", "pinch", "plate", "pod", "portion", "pot", "pouch", "punnet", "rasher", "ring",
             "sachet", "scoop", "serving", "sheet", "shot", "slice", "small", "spear", "splash", "spoon", "sprig",
             "square", "squeeze", "squirt", "stalk", "stick", "strip", "tin", "tub", "wedge"})
        table.insert(word, {Unit::Kind::Measure, 0, word});
    for (const auto &[spelling, word] : std::initializer_list<std::pair<const char *, const char *>>{{"lg", "large"},
             {"med", "medium"}, {"pc", "piece"}, {"pce", "piece"}, {"pkg", "package"}, {"pkt", "packet"},
             {"big", "large"}, {"sm", "small"}, {"slc", "slice"}, {"spoonful", "spoon"}, {"med", "medium"}})
        table.insert(spelling, {Unit::Kind::Measure, 0, word});
    return table;
}

// The unit of a word or of the word that it is a plural of.
std::optional<Unit> unitCalled(const QByteArray &word)
{
    static const QHash<QByteArray, Unit> table = unitTable();
    const auto found = table.constFind(word);
    if (found != table.constEnd())
        return *found;
    if (!word.endsWith('s'))
        return std::nullopt;
    for (const QByteArray &other : FoodWords::inflections(word)) {
        const auto singular = table.constFind(other);
        if (other.size() < word.size() && singular != table.constEnd())
            return *singular;
    }
    return std::nullopt;
}

bool tellsHowFull(const QByteArray &word)
{
    static const QSet<QByteArray> words = setOf("full generous good heaped heaping level rounded scant");
    return words.contains(word);
}

// Reads a text from its front.
class Scanner {
public:
    explicit Scanner(QStringView view)
        : text(view)
    { }

    std::vector<Token> tokens()
    {
        while (at < text.size()) {
            if (startsNumber(at))
                readNumber();
            else if (text[at].isLetterOrNumber())
                readWord(at);
            else
                ++at;
        }
        return std::move(list);
    }

private:
    [[nodiscard]] QChar letter(qsizetype place) const { return place < text.size() ? text[place] : QChar(); }

    [[nodiscard]] bool startsNumber(qsizetype place) const
    {
        return isDigit(letter(place)) || fractionOf(letter(place)) > 0
            || (letter(place) == u'.' && isDigit(letter(place + 1)));
    }

    // What a sign such as "1/2" in one character is worth; 0 for another character.
    static double fractionOf(QChar sign)
    {
        struct Sign {
            char16_t character;
            double value;
        };
        static constexpr std::array<Sign, 13> signs{{{u'\u00bc', 0.25}, {u'\u00bd', 0.5}, {u'\u00be', 0.75},
            {u'\u2153', 1.0 / 3}, {u'\u2154', 2.0 / 3}, {u'\u2155', 0.2}, {u'\u2156', 0.4}, {u'\u2157', 0.6},
            {u'\u2158', 0.8}, {u'\u215b', 0.125}, {u'\u215c', 0.375}, {u'\u215d', 0.625}, {u'\u215e', 0.875}}};
        const auto found
            = std::find_if(signs.begin(), signs.end(), [&](const Sign &each) { return each.character == sign; });
        return found == signs.end() ? 0 : found->value;
    }

    double readDigits()
    {
        double value = 0;
        for (; isDigit(letter(at)); ++at)
            value = value * 10 + (text[at].unicode() - u'0');
        return value;
    }

    // "250", "1.5", "1,5" and "1,000".
    double readDecimal()
    {
        const qsizetype start = at;
        double value = readDigits();
        if ((letter(at) != u'.' && letter(at) != u',') || !isDigit(letter(at + 1)))
            return value;
        const bool comma = text[at++] == u',';
        const qsizetype decimals = at;
        const double digits = readDigits();
        if (comma && at - decimals == 3 && value > 0 && decimals - start <= 4)
            return value * 1000 + digits;
        double scale = 1;
        for (qsizetype i = decimals; i < at; ++i)
            scale *= 10;
        return value + digits / scale;
    }

    // The fraction at the place, which it goes on from: "1/2". Nothing, and no step, where none of a kitchen stands.
    std::optional<double> readFraction()
    {
        if (const double sign = fractionOf(letter(at)); sign > 0) {
            ++at;
            return sign;
        }
        constexpr double finest = 16;
        const qsizetype start = at;
        const double above = isDigit(letter(at)) ? readDigits() : 0;
        if (above > 0 && (letter(at) == u'/' || letter(at) == u'\u2044') && isDigit(letter(at + 1))) {
            ++at;
            const double below = readDigits();
            if (below > above && below <= finest)
                return above / below;
        }
        at = start;
        return std::nullopt;
    }

    void readNumber()
    {
        const qsizetype start = at;
        double value = 0;
        if (const std::optional<double> fraction = readFraction()) {
            value = *fraction;
        } else {
            value = readDecimal();
            const qsizetype whole = at;
            while (letter(at) == u' ' || (letter(at) == u'-' && at == whole))
                ++at;
            const std::optional<double> rest = readFraction();
            at = rest ? at : whole;
            value += rest.value_or(0);
        }
        if (isOfFood() || !(value > 0)) {
            if (letter(at) == u'/' && isDigit(letter(at + 1))) { // "90/10"
                ++at;
                (void)readDigits();
            }
            readWord(start);
            return;
        }
        list.push_back({QByteArray(), value, start, at});
    }

    // Whether the number that ends here is a part of the food: "2%", "5th", "80/20", "7-grain", "2-3".
    [[nodiscard]] bool isOfFood() const
    {
        qsizetype next = at;
        while (letter(next) == u' ')
            ++next;
        if (letter(next) == u'%')
            return true;
        if (letter(at) == u'"' || letter(at) == u'/')
            return true;
        const bool hyphen = letter(at) == u'-';
        const qsizetype first = hyphen ? at + 1 : at;
        if (hyphen && isDigit(letter(first)))
            return true;
        if (!letter(first).isLetter())
            return false;
        qsizetype last = first;
        while (letter(last).isLetter())
            ++last;
        const QByteArray word = text.mid(first, last - first).toString().toLower().toLatin1();
        return !unitCalled(word) && word != "x" && word != "fl";
    }

    void readWord(qsizetype start)
    {
        at = std::max(at, start);
        while (at < text.size() && (text[at].isLetterOrNumber() || text[at].isMark() || isApostrophe(text[at]))
            && fractionOf(text[at]) == 0)
            ++at;
        QByteArray word;
        for (const FoodWords::Token &part : FoodWords::tokenize(text.mid(start, at - start)))
            word += part.text;
        if (!word.isEmpty())
            list.push_back({word, 0, start, at});
    }

    QStringView text;
    qsizetype at = 0;
    std::vector<Token> list;
};

} // namespace

std::vector<Token> MeasureText::tokenize(QStringView text)
{
    return Scanner(text).tokens();
}

std::optional<double> MeasureText::numberCalled(const QByteArray &word)
{
    struct Called {
        const char *word;
        double number;
    };
    static constexpr std::array<Called, 24> table{{{"a", 1}, {"an", 1}, {"one", 1}, {"two", 2}, {"three", 3},
        {"four", 4}, {"five", 5}, {"six", 6}, {"seven", 7}, {"eight", 8}, {"nine", 9}, {"ten", 10}, {"eleven", 11},
        {"twelve", 12}, {"dozen", 12}, {"couple", 2}, {"half", 0.5}, {"third", 1.0 / 3}, {"quarter", 0.25},
        {"thirds", 1.0 / 3}, {"quarters", 0.25}, {"halves", 0.5}, {"fourth", 0.25}, {"eighth", 0.125}}};
    const auto *const found
        = std::find_if(table.begin(), table.end(), [&](const Called &each) { return word == each.word; });
    return found == table.end() ? std::nullopt : std::optional(found->number);
}

bool MeasureText::makesNumberOfFood(const QByteArray &word)
{
    static const QSet<QByteArray> words = setOf("cal calorie calories grain inch inches kcal minute month months pct "
                                                "per percent proof star way year years");
    return words.contains(word);
}

std::optional<MeasureText::UnitWords> MeasureText::unitAt(const std::vector<Token> &tokens, std::size_t first)
{
    if (first >= tokens.size() || tokens[first].isNumber())
        return std::nullopt;
    const QByteArray &word = tokens[first].word;
    const QByteArray next = first + 1 < tokens.size() ? tokens[first + 1].word : QByteArray();
    const std::optional<Unit> following = unitCalled(next);
    const bool ounces = following && following->size == ounce;
    if (ounces && (word == "fl" || word == "fluid"))
        return UnitWords{{Unit::Kind::Volume, fluidounce, QByteArray()}, 2};
    if (following && tellsHowFull(word))
        return UnitWords{*following, 2};
    if (word == "extra" && following && (following->name == "large" || following->name == "small"))
        return UnitWords{{Unit::Kind::Measure, 0, "extra " + following->name}, 2};
    if (const std::optional<Unit> unit = unitCalled(word))
        return UnitWords{*unit, unit->name == "medium" && next == "sized" ? std::size_t(2) : std::size_t(1)};
    return std::nullopt;
}
