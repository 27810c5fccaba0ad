// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "search/FoodRank.h"

#include <algorithm>
#include <array>
#include <limits>

namespace {

using FoodQuery::Match;
using Place = FoodIndex::Place;
using Tier = FoodRank::Tier;
using Matches = std::array<Match, std::numeric_limits<quint8>::max() + 1>; // one for each word of the name

constexpr std::size_t at(Place place)
{
    return static_cast<std::size_t>(place);
}

struct Terms {
    quint8 prefixes = 0; // match a word of the name by a prefix alone
    quint8 missing = 0; // match none
};

// Nothing when a term matches no word of the name, or, when `partial` is set, when all of them match none.
std::optional<Terms> matchWords(const FoodQuery::Reading &reading, const FoodIndex::Name &name,
    const FoodIndex::NameWord *words, bool partial, Matches &matches)
{
    std::fill_n(matches.begin(), name.count, Match::None);
    Terms terms;
    bool any = false;
    for (const FoodQuery::Term &term : reading.terms) {
        Match best = Match::None;
        for (std::size_t i = 0; i < name.count; ++i) {
            const Match match = term.match(words[i]);
            matches[i] = std::max(matches[i], match);
            best = std::max(best, match);
        }
        if (best == Match::None && !partial)
            return std::nullopt;
        any = any || best != Match::None;
        terms.prefixes = static_cast<quint8>(terms.prefixes + (best == Match::Prefix ? 1 : 0));
        if (best == Match::None)
            terms.missing = static_cast<quint8>(terms.missing + (term.noun ? 2 : 1));
    }
    return any ? std::optional(terms) : std::nullopt;
}

struct Coverage {
    std::array<int, FoodIndex::placeCount> whole{};
    std::array<int, FoodIndex::placeCount> matched{}; // whole or by a prefix
    Match headstart = Match::None;
    Match headnoun = Match::None;
    bool pastheadstart = false;
    bool joint = false; // the head is two foods, of which not both were asked for: "Bacon and beef sticks"

    void add(const FoodIndex::NameWord &word, Match match)
    {
        if (word.place == Place::Head) {
            headstart = pastheadstart ? headstart : match;
            headnoun = word.noun ? match : headnoun;
            pastheadstart = true;
        }
        matched[at(word.place)] += match == Match::None ? 0 : 1;
        whole[at(word.place)] += match == Match::Whole ? 1 : 0;
    }
};

Tier tierOf(const Coverage &coverage, const FoodIndex::Name &name)
{
    const auto all = [&](const auto &counts, std::initializer_list<Place> places) {
        return std::any_of(places.begin(), places.end(),
            [&](Place place) { return name.size[at(place)] > 0 && counts[at(place)] == name.size[at(place)]; });
    };
    const auto some = [&](std::initializer_list<Place> places) {
        return std::any_of(places.begin(), places.end(), [&](Place place) { return coverage.whole[at(place)] > 0; });
    };
    if (all(coverage.whole, {Place::Head, Place::Shelf, Place::Alias}))
        return Tier::WholeHead;
    if ((coverage.headstart == Match::Whole && !coverage.joint) || all(coverage.whole, {Place::Kind, Place::Aside}))
        return Tier::HeadStart;
    if (coverage.headnoun == Match::Whole || coverage.headstart == Match::Whole)
        return Tier::HeadNoun;
    if (all(coverage.matched, {Place::Head, Place::Shelf}))
        return Tier::HeadPrefix;
    if (some({Place::Head, Place::Shelf, Place::Kind}))
        return Tier::PartOfHead;
    if (all(coverage.matched, {Place::Kind, Place::Alias}))
        return Tier::KindPrefix;
    if (coverage.headstart == Match::Prefix)
        return Tier::HeadStartPrefix;
    if (coverage.headnoun == Match::Prefix)
        return Tier::HeadNounPrefix;
    return some({Place::Later, Place::Alias}) ? Tier::Elsewhere : Tier::ElsewherePrefix;
}

// The sum of the weights of a name's words that were not asked for.
class UnaskedWeight {
public:
    explicit UnaskedWeight(bool offlesh)
        : flesh(offlesh)
    { }

    // `next` is the word after it, if any.
    void add(const FoodIndex::NameWord &word, const FoodIndex::VocabularyWord &meaning,
        const FoodIndex::VocabularyWord *next)
    {
        constexpr int shelfweight = 8;
        constexpr int companyweight = 24; // of "with": something else is in it
        constexpr int moreplainweight = FoodIndex::plainWeight / 4; // "raw" says nearly all that "raw, fresh" does
        int own = meaning.weight;
        if (flesh && (meaning.raw || meaning.cooked)) {
            total += meaning.cooked ? FoodIndex::plainWeight : 0;
            return;
        }
        if (next != nullptr && next->heat)
            own = 0; // "dry heat" is no dried food
        else if (meaning.processed && next != nullptr && next->either)
            own = 0; // "canned or bottled" is any
        else if (word.uneaten)
            own = 2 * FoodIndex::processedWeight;
        else if (word.place == Place::Shelf)
            own = shelfweight;
        else if (own == FoodIndex::plainWeight) {
            own = plain ? moreplainweight : own;
            plain = true;
        } else if (word.place == Place::Kind && !meaning.processed)
            own = own * 3 / 2;
        else if (meaning.text == "with" && next != nullptr && next->weight > 0)
            own = companyweight;
        const bool inbrackets = word.place == Place::Aside || word.place == Place::Alias;
        total += inbrackets ? own / 4 : own;
    }

    // A word of which only a prefix is typed is the likelier the more ordinary it is and the less is missing.
    void addPrefix(const FoodIndex::NameWord &word, const FoodIndex::VocabularyWord &meaning)
    {
        total += std::max<int>(meaning.weight, 0) + 2 * word.length;
    }

    [[nodiscard]] int weight() const { return total; }

private:
    bool flesh;
    int total = 0;
    bool plain = false;
};

} // namespace

std::optional<FoodRank> FoodRank::of(
    const FoodQuery::Reading &reading, const FoodIndex &index, int number, quint16 own, bool partial)
{
    const FoodIndex::Name &name = index.names()[static_cast<std::size_t>(number)];
    const FoodIndex::NameWord *words = index.wordsOf(name);
    Matches matches;
    const std::optional<Terms> terms = matchWords(reading, name, words, partial, matches);
    if (!terms)
        return std::nullopt;

    FoodRank rank;
    rank.own = own;
    rank.forFewOfAll = name.forFew;
    rank.ofBrandOfAll = name.ofBrand;
    Coverage coverage;
    UnaskedWeight unasked(name.flesh);
    for (std::size_t i = 0; i < name.count; ++i) {
        const FoodIndex::VocabularyWord &meaning = index.vocabulary()[words[i].word];
        rank.rawFlesh = rank.rawFlesh || (name.flesh && meaning.raw && matches[i] == Match::None);
        if (matches[i] == Match::None)
            unasked.add(words[i], meaning, i + 1 < name.count ? &index.vocabulary()[words[i + 1].word] : nullptr);
        else if (matches[i] == Match::Prefix)
            unasked.addPrefix(words[i], meaning);
        const bool whole = matches[i] == Match::Whole;
        rank.ofBrandOfAll = rank.ofBrandOfAll && !(whole && (meaning.brand || meaning.standIn));
        rank.forFewOfAll = rank.forFewOfAll && !(whole && meaning.forFew);
        if (meaning.counts())
            coverage.add(words[i], matches[i]);
        else if (words[i].place == Place::Head && matches[i] == Match::None && meaning.text == "and")
            coverage.joint = true;
    }
    rank.forFew = rank.forFewOfAll && own == notOwn;
    rank.ofBrand = rank.ofBrandOfAll && own == notOwn;
    rank.tier = tierOf(coverage, name);
    rank.prefixes = terms->prefixes;
    rank.missing = terms->missing;
    rank.bySynonym = reading.bySynonym;
    rank.weight = unasked.weight();
    rank.name = number;
    return rank;
}
