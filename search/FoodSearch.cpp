// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "search/FoodSearch.h"

#include "search/FoodLexicon.h"
#include "search/FoodSynonyms.h"
#include "search/FoodWords.h"
#include "search/QueryWords.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace {

using FoodQuery::Match;

constexpr qsizetype longestquery = 512;
// How many letters of the name the first letters of a word take, with the marks among them.
int lettersTaken(const QString &name, const FoodIndex::NameWord &word, qsizetype letters)
{
    int taken = 0;
    for (; taken < word.length && letters > 0; ++taken) {
        if (name[word.start + taken].isLetterOrNumber())
            --letters;
    }
    return taken;
}

} // namespace

FoodSearch::FoodSearch(const QStringList &names)
    : foodnames(names)
{ }

void FoodSearch::prepare()
{
    if (!index)
        index = std::make_unique<FoodIndex>(foodnames);
}

bool FoodSearch::isEmpty(const QString &query)
{
    return FoodWords::tokenize(QStringView(query).left(longestquery)).empty();
}

void FoodSearch::setOwnFoods(const QHash<int, float> &usefulness)
{
    std::vector<std::pair<float, int>> order;
    for (auto food = usefulness.cbegin(); food != usefulness.cend(); ++food)
        if (food.key() >= 0 && food.key() < foodnames.size())
            order.emplace_back(-food.value(), food.key());
    std::sort(order.begin(), order.end());
    own.assign(order.empty() ? 0 : static_cast<std::size_t>(foodnames.size()), FoodRank::notOwn);
    for (std::size_t i = 0; i < order.size(); ++i)
        own[static_cast<std::size_t>(order[i].second)] = static_cast<quint16>(i);
}

const std::vector<int> &FoodSearch::search(const QString &query)
{
    last = {};
    found.clear();
    askedquantity.reset();
    if (isEmpty(query)) {
        found.resize(static_cast<std::size_t>(foodnames.size()));
        std::iota(found.begin(), found.end(), 0);
        return found;
    }
    prepare();
    const QString text = query.left(longestquery);
    const std::vector<FoodQuantity::Reading> quantities = FoodQuantity::readings(text);
    Answer whole;
    if (quantities.empty())
        whole = answerTo(text);
    else if (quantities.front().number.isEmpty() || !isOfFood(quantities.front(), text, whole))
        whole = answerToRest(quantities);
    if (whole.ranks.empty() && !quantities.empty())
        whole = answerTo(text);
    const bool none = whole.ranks.empty();
    complete(whole,
        none && !quantities.empty() ? quantities.front().rest
            : askedquantity         ? quantities.front().rest
                                    : text);
    if (none && !whole.ranks.empty() && !quantities.empty())
        askedquantity = quantities.front().quantity;
    last = std::move(whole);
    if (askedquantity)
        judgeCounted(*askedquantity);
    found.reserve(last.ranks.size());
    for (const FoodRank &rank : last.ranks)
        found.push_back(rank.name);
    return found;
}

// A counted word that is no part of the food is a measure that nobody has heard of: "2 dollops honey" are no two
// honeys. But "3 delicious eggs" are three eggs, as several of a measure would be said in the plural.
void FoodSearch::judgeCounted(FoodQuantity &quantity) const
{
    if (!quantity.isPieces() || quantity.counted.isEmpty() || quantity.foodwords.size() < 2 || last.ranks.empty())
        return;
    const bool plural = quantity.counted.endsWith('s') && !quantity.counted.endsWith("us");
    const bool adjective = FoodLexicon::isServing(quantity.counted) || FoodLexicon::tellsState(quantity.counted)
        || quantity.counted == "whole" || (quantity.count > 1 && !plural);
    const QStringList missing = missingWords(last.ranks.front().name);
    if (!adjective && missing.contains(QString::fromLatin1(quantity.counted)))
        quantity.unit.name = quantity.counted;
}

FoodSearch::Answer FoodSearch::answerTo(const QString &query) const
{
    std::vector<QByteArray> words = QueryWords::of(query);
    Answer answer = rank(FoodQuery::readings(words, *index), false);
    if (answer.ranks.empty() && std::erase_if(words, FoodLexicon::isServing) > 0 && !words.empty())
        answer = rank(FoodQuery::readings(words, *index), false);
    return answer;
}

// The answer to the first reading that finds something, and that by whole words unless it is the last.
FoodSearch::Answer FoodSearch::answerToRest(const std::vector<FoodQuantity::Reading> &quantities)
{
    Answer answer;
    for (const FoodQuantity::Reading &reading : quantities) {
        answer = answerTo(reading.rest);
        const bool another = &reading != &quantities.back();
        if (answer.ranks.empty() || (another && answer.ranks.front().prefixes > 0))
            continue;
        askedquantity = reading.quantity;
        return answer;
    }
    return answer;
}

FoodSearch::Answer FoodSearch::rank(std::vector<FoodQuery::Reading> from, bool partial) const
{
    Answer answer;
    answer.readings = std::move(from);
    answer.partial = partial;
    if (answer.readings.empty())
        return answer;
    for (int name = 0; name < foodnames.size(); ++name)
        if (const std::optional<FoodRank> best = bestRank(answer, name))
            answer.ranks.push_back(*best);
    std::sort(answer.ranks.begin(), answer.ranks.end());
    return answer;
}

// Whether the name has the number beside the word that it stands beside in the query, or has a number that is too large
// for a count of pieces.
bool FoodSearch::claims(const FoodIndex::Name &name, const FoodQuantity::Reading &reading, int number) const
{
    constexpr double mostpieces = 12;
    constexpr qsizetype shortestprefix = 3;
    const FoodIndex::NameWord *words = index->wordsOf(name);
    for (int i = 0; i < name.count; ++i) {
        if (words[i].word != number)
            continue;
        const int beside = reading.neighbourAfter ? i + 1 : i - 1;
        if (reading.quantity.count > mostpieces)
            return true;
        if (beside < 0 || beside >= name.count)
            continue;
        const QByteArray &word = index->vocabulary()[words[beside].word].text;
        if (word == reading.neighbour
            || (reading.neighbour.size() >= shortestprefix && word.startsWith(reading.neighbour)))
            return true;
    }
    return false;
}

// Whether the bare number of the reading belongs to the food: to a synonym ("7 up") or to a name that has all the
// words.
bool FoodSearch::isOfFood(const FoodQuantity::Reading &reading, const QString &query, Answer &whole) const
{
    const auto &synonyms = foodSynonyms();
    const bool said = std::any_of(synonyms.begin(), synonyms.end(), [&](const FoodSynonym &each) {
        return reading.neighbourAfter && each.said.size() > 1 && each.said[0] == reading.number
            && each.said[1] == reading.neighbour;
    });
    const auto &names = index->names();
    const int number = index->find(reading.number);
    const auto isClaimedBy = [&](const FoodIndex::Name &name) { return claims(name, reading, number); };
    if (!said && (number < 0 || std::none_of(names.begin(), names.end(), isClaimedBy)))
        return false;
    whole = answerTo(query);
    return said || std::any_of(whole.ranks.begin(), whole.ranks.end(), [&](const FoodRank &rank) {
        return isClaimedBy(names[static_cast<std::size_t>(rank.name)]);
    });
}

std::optional<FoodRank> FoodSearch::bestRank(const Answer &answer, int name, const FoodQuery::Reading **by) const
{
    const quint16 usefulness = own.empty() ? FoodRank::notOwn : own[static_cast<std::size_t>(name)];
    std::optional<FoodRank> best;
    for (const FoodQuery::Reading &reading : answer.readings) {
        const std::optional<FoodRank> rank = FoodRank::of(reading, *index, name, usefulness, answer.partial);
        if (!rank || (best && !(*rank < *best)))
            continue;
        best = rank;
        if (by != nullptr)
            *by = &reading;
    }
    return best;
}

QStringList FoodSearch::missingWords(int name) const
{
    QStringList missing;
    const FoodQuery::Reading *reading = nullptr;
    if (!bestRank(last, name, &reading))
        return missing;
    const FoodIndex::Name &entry = index->names()[static_cast<std::size_t>(name)];
    const FoodIndex::NameWord *words = index->wordsOf(entry);
    for (const FoodQuery::Term &term : reading->terms)
        if (std::none_of(words, words + entry.count,
                [&](const FoodIndex::NameWord &word) { return term.match(word) != Match::None; }))
            missing << QString::fromLatin1(term.text.split('|').front());
    for (const QByteArray &word : last.missing)
        missing << QString::fromLatin1(word);
    return missing;
}

std::vector<FoodSearch::Letters> FoodSearch::matchedLetters(int name) const
{
    const FoodQuery::Reading *reading = nullptr;
    (void)bestRank(last, name, &reading);
    std::vector<Letters> letters;
    if (reading == nullptr)
        return letters;
    const FoodIndex::Name &entry = index->names()[static_cast<std::size_t>(name)];
    const FoodIndex::NameWord *words = index->wordsOf(entry);
    for (std::size_t i = 0; i < entry.count; ++i) {
        int most = 0;
        for (const FoodQuery::Term &term : reading->terms) {
            const Match match = term.match(words[i]);
            if (match == Match::Whole)
                most = words[i].length;
            else if (match == Match::Prefix)
                most = std::max(most, lettersTaken(foodnames[name], words[i], term.text.size()));
        }
        if (most > 0)
            letters.push_back({words[i].start, most});
    }
    return letters;
}
