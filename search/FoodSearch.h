// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "search/FoodIndex.h"
#include "search/FoodQuantity.h"
#include "search/FoodQuery.h"
#include "search/FoodRank.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

// Finds foods by what people type: a name should hold every token of the query as a prefix of a word, in any order and
// whatever the case, and what is most likely meant comes first (see FoodRank). The search goes through all names for
// each query: 0.4 ms a key, against which an inverted index, or keeping the last answer to narrow it down, would save
// nothing that a person could see.
class FoodSearch final {
public:
    struct Letters {
        int start = 0;
        int count = 0;

        bool operator==(const Letters &) const = default;
    };

    explicit FoodSearch(const QStringList &names);

    // Whether the query has no letter and no digit, so that it asks for nothing.
    [[nodiscard]] static bool isEmpty(const QString &query);

    // The foods that the person logs, by index, and how useful each is to them, the more the larger. Such a food comes
    // before the others of its tier (see FoodRank). The next query is the first that heeds it.
    void setOwnFoods(const QHash<int, float> &usefulness);

    // Builds the index, which the first query would do otherwise.
    void prepare();

    // The indexes of the names that the query finds, the likeliest first; all of them in their own order when the query
    // holds no word. When no name holds all the words, those that tell only a helping ("a cup of tea") are left out.
    // A quantity in the query ("3 eggs", "rice 150 g") is no word of it, unless the names say that it is ("100 grand").
    // Valid until the next query. Only the first 512 characters and the first 24 different words count.
    const std::vector<int> &search(const QString &query);

    // How much of a food the last query asked for, if it did.
    [[nodiscard]] const std::optional<FoodQuantity> &quantity() const { return askedquantity; }

    // The words of the last query that a found name lacks. Where no name holds all of them, or few do, names that hold
    // the most are found too.
    [[nodiscard]] QStringList missingWords(int name) const;

    // The letters of a found name that the last query found it by, in ascending order and apart from each other.
    [[nodiscard]] std::vector<Letters> matchedLetters(int name) const;

private:
    struct Answer {
        std::vector<FoodQuery::Reading> readings;
        std::vector<FoodRank> ranks; // the least first
        bool partial = false;
        std::vector<QByteArray> missing; // words that were left out
    };

    void judgeCounted(FoodQuantity &quantity) const;
    [[nodiscard]] Answer answerTo(const QString &query) const;
    void complete(Answer &whole, const QString &query) const;
    [[nodiscard]] std::optional<FoodRank> bestForAnyone(const Answer &answer) const;
    [[nodiscard]] Answer answerToMain(const QString &query) const;
    [[nodiscard]] Answer partialAnswerTo(const QString &query) const;
    void addOtherFood(Answer &partial) const;
    [[nodiscard]] Answer rank(std::vector<FoodQuery::Reading> from, bool partial) const;
    [[nodiscard]] Answer answerToRest(const std::vector<FoodQuantity::Reading> &quantities);
    [[nodiscard]] bool claims(const FoodIndex::Name &name, const FoodQuantity::Reading &reading, int number) const;
    [[nodiscard]] bool isOfFood(const FoodQuantity::Reading &reading, const QString &query, Answer &whole) const;
    [[nodiscard]] std::optional<FoodRank> bestRank(
        const Answer &answer, int name, const FoodQuery::Reading **by = nullptr) const;

    QStringList foodnames;
    std::unique_ptr<FoodIndex> index;
    Answer last; // to the last query
    std::vector<int> found;
    std::optional<FoodQuantity> askedquantity;
    std::vector<quint16> own; // one a food, see FoodRank; empty without any
};
