// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "search/FoodIndex.h"

#include <QByteArray>

#include <vector>

// What a person may have meant by the tokens of a query: query expansion, one rewritten query being a reading. There is
// one as typed, and further ones where everyday speech has another name for a thing ("prawns") or writes one word for
// two or two for one ("cornflakes", "soy milk"). A typed token that is in no name and that no reading rewrites is taken
// as misspelt and stands for the words at the least edit distance. A name is found when one reading finds it.
namespace FoodQuery {

enum class Match : quint8 {
    None,
    Prefix, // the typed word is how the name's word begins
    Whole // the word itself, or another inflection of it
};

struct Term {
    QByteArray text;
    std::vector<Match> matches; // one for each word of the vocabulary
    bool found = false; // some word matches
    bool corrected = false; // the words that match are not what was typed
    bool noun = false; // what the food is: of "pumpkin latte" the latte, of "lamb leg" both

    [[nodiscard]] Match match(const FoodIndex::NameWord &word) const { return matches[word.word]; }
};

struct Reading {
    std::vector<Term> terms; // a name must match each of them
    bool bySynonym = false; // a synonym stands in it for what was typed
};

// Empty when no name can be found; else at most eight readings, the one as typed first. The words are lower case, as
// FoodWords::tokenize() gives them.
[[nodiscard]] std::vector<Reading> readings(const std::vector<QByteArray> &typed, const FoodIndex &index);

// The same readings for names that need not match each term: those whose words are in no name are among them.
[[nodiscard]] std::vector<Reading> partialReadings(const std::vector<QByteArray> &typed, const FoodIndex &index);

} // namespace FoodQuery
