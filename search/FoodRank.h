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
    // What part of the name the query speaks of, in descending order of how much it is the food itself.
    enum class Tier : quint8 {
        WholeHead, // all that the food is called: "butter" for "Butter, salted"
        HeadStart, // "coconut" for "coconut meat"; or all of its kind: "cheddar" for "Cheese, cheddar"
        HeadNoun, // "butter" for "Peanut butter"
        BegunHead, // all of it, as far as typed: "butt"
        PartOfHead,
        BegunKind,
        BegunHeadStart,
        BegunHeadNoun,
        Elsewhere,
        BegunElsewhere
    };

    bool forFew = false; // baby foods and one people's dishes last
    bool ofBrand = false; // then brands and stand-ins, all unless asked for
    Tier tier = Tier::BegunElsewhere;
    quint8 begun = 0; // query words of which only the beginning is there
    bool borrowed = false;
    int weight = 0; // of what was not asked for, see FoodIndex::VocabularyWord
    int name = 0; // catalogue order

    auto operator<=>(const FoodRank &) const = default;

    // Nothing when the reading does not find the name.
    [[nodiscard]] static std::optional<FoodRank> of(
        const FoodQuery::Reading &reading, const FoodIndex &index, int name);
};
