// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "search/FoodIndex.h"

#include <QByteArray>

#include <vector>

// What a person may have meant by the words of a query. There is one reading as typed, and further ones where everyday
// speech has another name for a thing ("prawns"), writes one word for two or two for one ("cornflakes", "soy milk"), or
// where a word is in no name at all and is taken as misspelt. A name is found when one reading finds it.
namespace FoodQuery {

enum class Match : quint8 {
    None,
    Beginning, // the typed word is how the name's word begins
    Whole // the word itself, or its plural or singular
};

struct Term {
    QByteArray text;
    std::vector<Match> matches; // one for each word of the vocabulary
    bool found = false; // some word matches

    [[nodiscard]] Match match(const FoodIndex::NameWord &word) const { return matches[word.word]; }
};

struct Reading {
    std::vector<Term> terms; // a name must match each of them
    bool borrowed = false; // says it in other words than the person
};

// Empty when no name can be found; else at most eight readings, the one as typed first. The words are lower case, as
// FoodWords::split() gives them.
[[nodiscard]] std::vector<Reading> readings(const std::vector<QByteArray> &typed, const FoodIndex &index);

} // namespace FoodQuery
