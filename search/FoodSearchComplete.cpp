// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

// What FoodSearch answers when no name holds all the words of a query, or few do.

#include "search/FoodSearch.h"

#include "search/FoodLexicon.h"
#include "search/QueryWords.h"

#include <algorithm>
#include <utility>

using FoodQuery::Match;

// What is meant where all the words together find nothing, nothing but baby food, or few foods: of "scone with jam" the
// scone, else the names that match the most of the words. Few foods are only followed by those, up to a first glance's
// worth, unless one of them is called what was typed. Foods of one's own among those take nobody's place.
void FoodSearch::complete(Answer &whole, const QString &query) const
{
    constexpr std::size_t glance = 5;
    const bool unmeant = whole.ranks.empty() || whole.ranks.front().forFew;
    if (!unmeant && whole.ranks.size() >= glance)
        return;
    const std::optional<FoodRank> best = bestForAnyone(whole);
    const bool sure = best && best->tier == FoodRank::Tier::WholeHead && best->prefixes == 0 && !best->ofBrand;
    if (!unmeant && sure)
        return;
    Answer more = answerToMain(query);
    if (more.ranks.empty() || (!unmeant && best->tier <= more.ranks.front().tier))
        more = partialAnswerTo(query);
    if (more.ranks.empty() || more.ranks.front().forFew)
        return;
    if (unmeant) {
        whole = std::move(more);
        if (whole.partial)
            addOtherFood(whole);
        return;
    }
    whole.readings.insert(whole.readings.end(), more.readings.begin(), more.readings.end());
    whole.partial = more.partial;
    const std::vector<FoodRank> first = whole.ranks;
    std::size_t shown = first.size(); // without those that follow because they are the person's own
    for (const FoodRank &rank : more.ranks) {
        if (shown >= glance)
            return;
        if (std::any_of(first.begin(), first.end(), [&](const FoodRank &each) { return each.name == rank.name; }))
            continue;
        whole.ranks.push_back(rank);
        shown += rank.own == FoodRank::notOwn ? 1 : 0;
    }
}

// The best food, were none the person's own: what one logs takes nothing out of the list.
std::optional<FoodRank> FoodSearch::bestForAnyone(const Answer &answer) const
{
    std::optional<FoodRank> best;
    for (FoodRank rank : answer.ranks) {
        rank.own = FoodRank::notOwn;
        rank.ofBrand = rank.ofBrandOfAll;
        rank.forFew = rank.forFewOfAll;
        if (!best || rank < *best)
            best = rank;
    }
    return best;
}

// The answer to what stands before a "with". An "and" joins equals, and who eats "cheese and onion crisps" no cheese.
FoodSearch::Answer FoodSearch::answerToMain(const QString &query) const
{
    std::vector<QByteArray> words = QueryWords::of(query);
    const auto joint = std::find_if(words.begin(), words.end(), [](const QByteArray &word) {
        return word == "with" || word == "without" || word == "no" || word == "on" || word == "in";
    });
    if (joint == words.begin() || joint == words.end())
        return {};
    std::vector<QByteArray> rest(joint, words.end());
    words.erase(joint, words.end());
    std::erase_if(words, FoodLexicon::isServing);
    std::erase_if(rest, FoodLexicon::isServing);
    Answer answer = rank(words.empty() ? std::vector<FoodQuery::Reading>() : FoodQuery::readings(words, *index), false);
    answer.missing = std::move(rest);
    return answer;
}

// The names that match the most of the words, when none matches all.
FoodSearch::Answer FoodSearch::partialAnswerTo(const QString &query) const
{
    std::vector<QByteArray> words = QueryWords::of(query);
    std::erase_if(words, FoodLexicon::isServing);
    Answer answer;
    if (words.size() > 1)
        answer = rank(FoodQuery::partialReadings(words, *index), true);
    // A number that only foods for few have: of "omega 3 egg" the egg is meant, not what babies eat at three months.
    const auto isNumber = [](const QByteArray &word) { return word[0] >= '0' && word[0] <= '9'; };
    if ((answer.ranks.empty() || answer.ranks.front().forFew) && std::erase_if(words, isNumber) > 0 && !words.empty())
        answer = rank(FoodQuery::partialReadings(words, *index), true);
    const auto full
        = std::find_if(answer.ranks.begin(), answer.ranks.end(), [](const FoodRank &each) { return each.missing > 0; });
    const auto others
        = std::find_if(full, answer.ranks.end(), [&](const FoodRank &each) { return each.missing != full->missing; });
    answer.ranks.erase(others, answer.ranks.end());
    return answer;
}

// Of "bagel cream cheese" a bagel is eaten as well: where the words that the best name lacks are what another food is
// called, its likeliest forms stand among the first too, in the order in which the two were typed.
void FoodSearch::addOtherFood(Answer &partial) const
{
    constexpr std::size_t formsofone = 3;
    const FoodIndex::Name &best = index->names()[static_cast<std::size_t>(bestForAnyone(partial)->name)];
    const FoodIndex::NameWord *words = index->wordsOf(best);
    const auto lacks = [&](const FoodQuery::Term &term) {
        return std::none_of(words, words + best.count,
            [&](const FoodIndex::NameWord &word) { return term.match(word) != Match::None; });
    };
    const auto isKnown = [](const FoodQuery::Term &term) { return term.found && !term.corrected; };
    std::vector<FoodQuery::Reading> lacking;
    bool before = false;
    for (const FoodQuery::Reading &reading : partial.readings) {
        const auto &terms = reading.terms;
        if (!lacks(terms.front()) && !lacks(terms.back()))
            continue; // "cheese and onion crisps" are no onions
        const auto from = std::find_if(terms.begin(), terms.end(), lacks);
        const auto to = std::find_if_not(from, terms.end(), lacks);
        const bool apart = std::any_of(to, terms.end(), lacks);
        if (apart || to - from == std::ssize(terms) || !std::all_of(from, to, isKnown))
            continue;
        before = before || from == terms.begin();
        lacking.push_back({{from, to}, reading.bySynonym});
    }
    const Answer other = rank(std::move(lacking), false);
    if (other.ranks.empty())
        return;
    const FoodRank &first = other.ranks.front();
    if (first.tier != FoodRank::Tier::WholeHead || first.forFew || first.ofBrand || first.prefixes > 0)
        return;
    std::vector<FoodRank> &ranks = partial.ranks;
    std::size_t put = before ? 0 : std::min(formsofone, ranks.size());
    std::size_t forms = 0; // without the person's own, which take nobody's place here either
    for (const FoodRank &rank : other.ranks) {
        if (rank.tier != first.tier || forms == formsofone)
            return;
        forms += rank.own == FoodRank::notOwn ? 1 : 0;
        std::erase_if(ranks, [&](const FoodRank &each) { return each.name == rank.name; });
        put = std::min(put, ranks.size());
        ranks.insert(ranks.begin() + static_cast<std::ptrdiff_t>(put++), rank);
    }
}
