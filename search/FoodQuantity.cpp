// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "search/FoodQuantity.h"

#include "search/FoodWords.h"

#include <algorithm>
#include <optional>

namespace {

using MeasureText::Token;
using MeasureText::Unit;
using Tokens = std::vector<Token>;

constexpr double most = 100000; // of anything: a larger number is no helping

bool isWord(const Tokens &tokens, std::size_t at, const char *word)
{
    return at < tokens.size() && tokens[at].word == word;
}

// "x3"; nothing for any other word.
std::optional<double> multiplierOf(const QByteArray &word)
{
    bool number = false;
    const int count = word.mid(1).toInt(&number);
    return word.size() > 1 && word[0] == 'x' && number && count > 0 ? std::optional<double>(count) : std::nullopt;
}

struct Number {
    double value = 1;
    std::size_t count = 0; // how many tokens tell it
};

// A number of digits, with the "x" that may stand on either side of it.
std::optional<Number> digitsAt(const Tokens &tokens, std::size_t at)
{
    if (at >= tokens.size())
        return std::nullopt;
    if (const auto times = multiplierOf(tokens[at].word))
        return Number{*times, 1};
    const std::size_t first = isWord(tokens, at, "x") || isWord(tokens, at, "\u00d7") ? at + 1 : at;
    if (first >= tokens.size() || !tokens[first].isNumber())
        return std::nullopt;
    std::size_t count = first - at + 1;
    double value = tokens[first].number;
    if (isWord(tokens, at + count, "and") && isWord(tokens, at + count + 1, "a")
        && isWord(tokens, at + count + 2, "half")) {
        value += 0.5;
        count += 3;
    } else if (isWord(tokens, at + count, "and") && at + count + 1 < tokens.size() && tokens[at + count + 1].isNumber()
        && tokens[at + count + 1].number < 1) {
        value += tokens[at + count + 1].number;
        count += 2;
    } else if (isWord(tokens, at + count, "dozen")) {
        value *= 12;
        ++count;
    }
    if (isWord(tokens, at + count, "x"))
        ++count;
    return Number{value, count};
}

// A number of words: "half a", "a couple of", "two and a half", "three quarters of a".
std::optional<Number> wordsAt(const Tokens &tokens, std::size_t first)
{
    std::size_t at = first;
    if (isWord(tokens, at, "half") && (isWord(tokens, at + 1, "and") || isWord(tokens, at + 1, "n")))
        return std::nullopt; // a food
    double value = 1;
    bool any = false;
    while (at < tokens.size() && !tokens[at].isNumber()) {
        if (any && tokens[at].word == "and") {
            const bool half = isWord(tokens, at + 1, "a") && isWord(tokens, at + 2, "half");
            if (!half)
                break;
            value += 0.5;
            at += 3;
            continue;
        }
        const bool article = tokens[at].word == "a" || tokens[at].word == "an";
        if (tokens[at].word == "of" && any) {
            ++at;
            continue;
        }
        const std::optional<double> number = MeasureText::numberCalled(tokens[at].word);
        if (!number || (any && !article && *number >= 1 && *number < 12 && value >= 1 && at > first + 1))
            break;
        value *= *number;
        any = true;
        ++at;
    }
    if (!any || isWord(tokens, at, "fat") || isWord(tokens, at, "sour"))
        return std::nullopt;
    return Number{value, at - first};
}

class Reader {
public:
    explicit Reader(QStringView query)
        : text(query)
        , tokens(MeasureText::tokenize(query))
    { }

    std::vector<FoodQuantity::Reading> read()
    {
        readFront();
        readEnd();
        if (answer.empty())
            readMiddle();
        return std::move(answer);
    }

private:
    static bool isTelling(const Unit &unit, const Token &token)
    {
        return unit.kind == Unit::Kind::Measure ? !unit.name.isEmpty() : token.word.size() > 1;
    }

    static bool isMass(const Unit &unit) { return unit.kind == Unit::Kind::Mass; }

    [[nodiscard]] std::size_t afterOf(std::size_t at) const { return isWord(tokens, at, "of") ? at + 1 : at; }

    struct Pack {
        double value = 0;
        Unit unit;
        std::size_t count = 0;
    };

    // A number of digits with a mass or a volume, which another quantity stands before: "4 oz", "330 ml".
    [[nodiscard]] std::optional<Pack> packAt(std::size_t at) const
    {
        if (at >= tokens.size() || !tokens[at].isNumber())
            return std::nullopt;
        const std::optional<MeasureText::UnitWords> unit = MeasureText::unitAt(tokens, at + 1);
        if (!unit || unit->unit.kind == Unit::Kind::Measure)
            return std::nullopt;
        return Pack{tokens[at].number, unit->unit, unit->count + 1};
    }

    void readFront()
    {
        std::optional<Number> number = digitsAt(tokens, 0);
        const bool digits = number.has_value();
        if (!number)
            number = wordsAt(tokens, 0);
        std::size_t next = number ? number->count : 0;
        if (next < tokens.size() && number && MeasureText::makesNumberOfFood(tokens[next].word))
            return;
        std::optional<MeasureText::UnitWords> unit = MeasureText::unitAt(tokens, next);
        if (!number && unit) {
            // A measure alone is one of it: "tbsp honey", "slice of bread", "small glass of wine". A size alone is a
            // word for the food.
            const std::optional<MeasureText::UnitWords> second = MeasureText::unitAt(tokens, next + unit->count);
            const bool of = isWord(tokens, next + unit->count + (second ? second->count : 0), "of");
            if (!isTelling(unit->unit, tokens[next]) || (unit->unit.kind != Unit::Kind::Volume && !of)
                || tokens.size() <= unit->count)
                return;
            number = Number{1, 0};
        }
        if (!number)
            return;
        // "2 x 200 g yogurt"
        if (const auto each = packAt(next); each && digits) {
            add(number->value * each->value, each->unit, 0, afterOf(next + each->count), false);
            return;
        }
        Unit chosen;
        std::size_t end = next;
        if (unit && next + unit->count < tokens.size()) {
            chosen = unit->unit;
            end = next + unit->count;
            // "1 lb 4 oz beef"
            if (const auto rest = packAt(end); rest && isMass(chosen) && isMass(rest->unit)) {
                number->value += rest->value * rest->unit.size / chosen.size;
                end += rest->count;
            }
            // "2 large slices ham"
            const std::optional<MeasureText::UnitWords> second = MeasureText::unitAt(tokens, end);
            if (chosen.kind == Unit::Kind::Measure && second && end + second->count < tokens.size()
                && !isMass(second->unit)) {
                chosen = second->unit;
                end += second->count;
            }
        }
        end = afterOf(end);
        const bool bare = chosen == Unit();
        add(number->value, chosen, 0, end, bare && (digits || number->count == 1));
        // "2 bread slices"
        if (const auto last = MeasureText::unitAt(tokens, tokens.size() - 1);
            bare && last && tokens.size() > end + 1 && last->unit.kind == Unit::Kind::Measure)
            add(number->value, last->unit, 0, end, false, tokens.size() - 1);
    }

    void readEnd()
    {
        if (!answer.empty())
            return;
        for (std::size_t first = tokens.size(); first-- > 1 && first + 4 > tokens.size();) {
            std::optional<Number> number = digitsAt(tokens, first);
            if (!number)
                continue;
            if (first > 1 && isWord(tokens, first - 1, "x"))
                --first;
            const std::size_t next = tokens[first].word == "x" ? first + 2 : first + number->count;
            const std::optional<MeasureText::UnitWords> unit = MeasureText::unitAt(tokens, next);
            if (next == tokens.size())
                add(number->value, Unit(), first, next, true);
            else if (unit && next + unit->count == tokens.size())
                addAtEnd(number->value, unit->unit, first);
            return;
        }
    }

    void addAtEnd(double value, const Unit &unit, std::size_t first)
    {
        const auto pounds = first > 2 ? packAt(first - 2) : std::nullopt;
        if (pounds && isMass(pounds->unit) && isMass(unit)) // "beef 1 lb 4 oz"
            add(pounds->value + value * unit.size / pounds->unit.size, pounds->unit, first - 2, tokens.size(), false);
        else if (first > 1 && tokens[first - 1].isNumber() && unit.kind != Unit::Kind::Measure) // "yogurt 2 x 200 g"
            add(tokens[first - 1].number * value, unit, first - 1, tokens.size(), false);
        else
            add(value, unit, first, tokens.size(), false);
    }

    // "boiled rice 150 g cold": only a mass or a volume stands there.
    void readMiddle()
    {
        for (std::size_t first = 1; first < tokens.size(); ++first) {
            const std::optional<MeasureText::UnitWords> unit
                = tokens[first].isNumber() ? MeasureText::unitAt(tokens, first + 1) : std::nullopt;
            if (unit && unit->unit.kind != Unit::Kind::Measure) {
                add(tokens[first].number, unit->unit, first, first + 1 + unit->count, false);
                return;
            }
        }
    }

    // A reading without the tokens from `first` to `end`, and without those from `cut` on.
    void add(double count, const Unit &unit, std::size_t first, std::size_t end, bool bare,
        std::size_t cut = static_cast<std::size_t>(-1))
    {
        if (!(count > 0) || count > most)
            return;
        FoodQuantity::Reading reading;
        reading.quantity.count = count;
        reading.quantity.unit = unit;
        QString rest = text.toString();
        for (std::size_t i = 0; i < tokens.size(); ++i) {
            const bool taken = (i >= first && i < end) || i >= cut;
            if (!taken)
                continue;
            for (qsizetype letter = tokens[i].start; letter < tokens[i].end; ++letter)
                rest[letter] = u' ';
        }
        for (const FoodWords::Token &word : FoodWords::tokenize(rest))
            reading.quantity.foodwords.push_back(word.text);
        if (reading.quantity.foodwords.empty())
            return;
        reading.rest = rest;
        if (bare) {
            const std::vector<FoodWords::Token> number
                = FoodWords::tokenize(text.mid(tokens[first].start, tokens[end - 1].end - tokens[first].start));
            reading.neighbourAfter = first == 0;
            if (reading.neighbourAfter)
                reading.quantity.counted = reading.quantity.foodwords.front();
            if (number.size() == 1) {
                reading.number = number.front().text;
                reading.neighbour
                    = reading.neighbourAfter ? reading.quantity.foodwords.front() : reading.quantity.foodwords.back();
            }
        }
        if (unit.name == "can" || unit.name == "tin") {
            FoodQuantity::Reading canned = reading;
            canned.rest += QStringLiteral(" canned");
            answer.push_back(std::move(canned));
        }
        answer.push_back(std::move(reading));
    }

    QStringView text;
    Tokens tokens;
    std::vector<FoodQuantity::Reading> answer;
};

} // namespace

std::vector<FoodQuantity::Reading> FoodQuantity::readings(QStringView query)
{
    return Reader(query).read();
}
