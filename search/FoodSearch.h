// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "search/FoodIndex.h"
#include "search/FoodQuery.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

// Finds foods by what people type: every token of the query must be a prefix of a word of the name, in any order and
// whatever the case, and what is most likely meant comes first (see FoodRank). The search goes through all names for
// each query: 0.2 ms a key, against which an inverted index, or keeping the last answer to narrow it down, would save
// nothing that a person could see.
class FoodSearch final {
public:
    struct Letters {
        int start = 0;
        int count = 0;

        bool operator==(const Letters &) const = default;
    };

    explicit FoodSearch(const QStringList &names);

    // Builds the index, which the first query would do otherwise.
    void prepare();

    // The indexes of the names that the query finds, the likeliest first; all of them in their own order when the query
    // holds no word. When no name holds all the words, those that tell only a helping ("a cup of tea") are left out.
    // Valid until the next query. Only the first 512 characters and the first 24 different words count.
    const std::vector<int> &search(const QString &query);

    // The letters of a found name that the last query found it by, in ascending order and apart from each other.
    [[nodiscard]] std::vector<Letters> matchedLetters(int name) const;

private:
    void rankNames();

    QStringList foodnames;
    std::unique_ptr<FoodIndex> index;
    std::vector<FoodQuery::Reading> readings; // of the last query
    std::vector<int> found;
};
