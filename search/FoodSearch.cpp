// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "search/FoodSearch.h"

#include "search/FoodLexicon.h"
#include "search/FoodRank.h"
#include "search/FoodWords.h"

#include <algorithm>
#include <numeric>

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

const std::vector<int> &FoodSearch::search(const QString &query)
{
    readings.clear();
    found.clear();
    std::vector<QByteArray> words = wordsOf(query);
    if (words.empty()) {
        found.resize(static_cast<std::size_t>(foodnames.size()));
        std::iota(found.begin(), found.end(), 0);
        return found;
    }
    prepare();
    readings = FoodQuery::readings(words, *index);
    rankNames();
    if (found.empty() && std::erase_if(words, FoodLexicon::isServing) > 0 && !words.empty()) {
        readings = FoodQuery::readings(words, *index);
        rankNames();
    }
    return found;
}

void FoodSearch::rankNames()
{
    std::vector<FoodRank> ranks;
    for (int name = 0; name < foodnames.size(); ++name) {
        std::optional<FoodRank> best;
        for (const FoodQuery::Reading &reading : readings) {
            const std::optional<FoodRank> rank = FoodRank::of(reading, *index, name);
            if (rank && (!best || *rank < *best))
                best = rank;
        }
        if (best)
            ranks.push_back(*best);
    }
    std::sort(ranks.begin(), ranks.end());
    found.reserve(ranks.size());
    for (const FoodRank &rank : ranks)
        found.push_back(rank.name);
}

std::vector<FoodSearch::Letters> FoodSearch::matchedLetters(int name) const
{
    const FoodQuery::Reading *reading = nullptr;
    std::optional<FoodRank> best;
    for (const FoodQuery::Reading &candidate : readings) {
        const std::optional<FoodRank> rank = FoodRank::of(candidate, *index, name);
        if (rank && (!best || *rank < *best)) {
            best = rank;
            reading = &candidate;
        }
    }
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
