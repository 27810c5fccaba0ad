// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "search/FoodIndex.h"
#include "search/FoodQuery.h"

#include <compare>
#include <optional>

// How likely a found food is the one that a person means: the least rank comes first. The members are compared in
// their order, so that no sum of small reasons outweighs a large one.
//
// What of the name was asked for comes before how it was asked for. Ordering as-typed matches before every synonym was
// tried first: "soda" then showed soda crackers and club soda and no cola, "mince" mince pie and no meat. A synonym
// that names a food as a whole is a better answer than a typed word met in passing. Plainness and length are one
// figure, the information in what nobody asked for: raw apples before dried ones because "dried" is heavy, cheddar
// before gjetost because the catalogue itself speaks of cheddar more often.
struct FoodRank {
    // What part of the name the query matches, in descending order of how much that is the food itself. A Prefix tier
    // is that of the part as far as it has been typed.
    enum class Tier : quint8 {
        WholeHead, // all that the food is called: "butter" for "Butter, salted"
        HeadStart, // "coconut" for "coconut meat"; or all of its kind: "cheddar" for "Cheese, cheddar"
        HeadNoun, // "butter" for "Peanut butter"
        HeadPrefix, // "butt" for "Butter, salted"
        PartOfHead,
        KindPrefix,
        HeadStartPrefix,
        HeadNounPrefix,
        Elsewhere,
        ElsewherePrefix
    };

    static constexpr quint16 notOwn = 0xffff;

    quint8 missing = 0; // terms that the name does not match, where none matches all; a noun counts twice
    bool forFew = false; // baby foods and one people's dishes last
    bool ofBrand = false; // then brands and stand-ins, all unless asked for
    Tier tier = Tier::ElsewherePrefix;
    quint16 own = notOwn; // the person's own foods, the most useful one is 0; neither for few nor a stranger's brand
    quint8 prefixes = 0; // terms of which only a prefix match is there
    bool bySynonym = false;
    bool rawFlesh = false; // meat and fish are eaten cooked
    int weight = 0; // the inverse document frequencies of what was not asked for, see FoodIndex::VocabularyWord
    int name = 0; // catalogue order
    bool forFewOfAll = false; // what the two are by this reading, whoever's food it is; last, so that
    bool ofBrandOfAll = false; // they decide nothing between two foods

    auto operator<=>(const FoodRank &) const = default;

    // Nothing when the reading does not find the name, though a partial match needs but one term.
    [[nodiscard]] static std::optional<FoodRank> of(const FoodQuery::Reading &reading, const FoodIndex &index, int name,
        quint16 own = notOwn, bool partial = false);
};
