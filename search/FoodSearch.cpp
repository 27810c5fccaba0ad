// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "search/FoodSearch.h"

#include "search/FoodLexicon.h"
#include "search/FoodWords.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace {

using FoodQuery::Match;

constexpr qsizetype longestquery = 512;
constexpr std::size_t mostwords = 24;

std::vector<QByteArray> wordsOf(const QString &query)
{
    std::vector<QByteArray> words;
    for (const FoodWords::Token &word : FoodWords::tokenize(QStringView(query).left(longestquery))) {
        if (words.size() < mostwords && std::find(words.begin(), words.end(), word.text) == words.end())
            words.push_back(word.text);
    }
    return words;
}

// How many letters of the name the first letters of a word take, with the apostrophes among them.
int lettersTaken(const QString &name, const FoodIndex::NameWord &word, qsizetype letters)
{
    int taken = 0;
    for (; taken < word.length && letters > 0; ++taken) {
        if (name[word.start + taken] != u'\'')
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
    readings.clear();
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
    const bool bare = !quantities.empty() && !quantities.front().number.isEmpty();
    Answer whole;
    if (quantities.empty() || bare)
        whole = answerTo(text);
    if (!bare || !isOfFood(quantities.front(), whole)) {
        for (const FoodQuantity::Reading &reading : quantities) {
            Answer answer = answerTo(reading.rest);
            if (answer.ranks.empty())
                continue;
            askedquantity = reading.quantity;
            whole = std::move(answer);
            break;
        }
    }
    if (whole.ranks.empty() && !quantities.empty() && !bare)
        whole = answerTo(text);
    take(std::move(whole));
    return found;
}

FoodSearch::Answer FoodSearch::answerTo(const QString &query) const
{
    std::vector<QByteArray> words = wordsOf(query);
    Answer answer = answerToWords(words);
    if (answer.ranks.empty() && std::erase_if(words, FoodLexicon::isServing) > 0 && !words.empty())
        answer = answerToWords(words);
    return answer;
}

FoodSearch::Answer FoodSearch::answerToWords(const std::vector<QByteArray> &words) const
{
    Answer answer;
    answer.readings = FoodQuery::readings(words, *index);
    if (answer.readings.empty())
        return answer;
    for (int name = 0; name < foodnames.size(); ++name)
        if (const std::optional<FoodRank> best = bestRank(answer.readings, name))
            answer.ranks.push_back(*best);
    std::sort(answer.ranks.begin(), answer.ranks.end());
    return answer;
}

// Whether some name that has all the words has the number beside the word that it stands beside in the query, or has a
// number that is too large for a count of pieces.
bool FoodSearch::isOfFood(const FoodQuantity::Reading &reading, const Answer &whole) const
{
    constexpr double mostpieces = 12;
    constexpr qsizetype shortestprefix = 3;
    const auto &vocabulary = index->vocabulary();
    const auto isNeighbour = [&](const QByteArray &word) {
        return word == reading.neighbour
            || (reading.neighbour.size() >= shortestprefix && word.startsWith(reading.neighbour));
    };
    return std::any_of(whole.ranks.begin(), whole.ranks.end(), [&](const FoodRank &rank) {
        const FoodIndex::Name &name = index->names()[static_cast<std::size_t>(rank.name)];
        const FoodIndex::NameWord *words = index->wordsOf(name);
        for (int i = 0; i < name.count; ++i) {
            if (vocabulary[words[i].word].text != reading.number)
                continue;
            const int beside = reading.neighbourAfter ? i + 1 : i - 1;
            if (reading.quantity.count > mostpieces
                || (beside >= 0 && beside < name.count && isNeighbour(vocabulary[words[beside].word].text)))
                return true;
        }
        return false;
    });
}

std::optional<FoodRank> FoodSearch::bestRank(
    const std::vector<FoodQuery::Reading> &from, int name, const FoodQuery::Reading **by) const
{
    const quint16 usefulness = own.empty() ? FoodRank::notOwn : own[static_cast<std::size_t>(name)];
    std::optional<FoodRank> best;
    for (const FoodQuery::Reading &reading : from) {
        const std::optional<FoodRank> rank = FoodRank::of(reading, *index, name, usefulness);
        if (!rank || (best && !(*rank < *best)))
            continue;
        best = rank;
        if (by != nullptr)
            *by = &reading;
    }
    return best;
}

void FoodSearch::take(Answer answer)
{
    readings = std::move(answer.readings);
    found.reserve(answer.ranks.size());
    for (const FoodRank &rank : answer.ranks)
        found.push_back(rank.name);
}

std::vector<FoodSearch::Letters> FoodSearch::matchedLetters(int name) const
{
    const FoodQuery::Reading *reading = nullptr;
    if (!readings.empty())
        (void)bestRank(readings, name, &reading);
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
