// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QSet>

#include <vector>

// What people call a food that the catalogue calls something else, or a short word for the most ordinary one of many.
// The words are as FoodWords::tokenize() gives them, but a word that is meant may be several parted by "|", of which a
// name needs one. The plural of what is said is said by its singular. What is said in more words comes first.
struct FoodSynonym {
    std::vector<QByteArray> said;
    std::vector<QByteArray> meant;
};

[[nodiscard]] const std::vector<FoodSynonym> &foodSynonyms();

// The whole word for one that people write short: "pudding" for "pud". Any other word for itself.
[[nodiscard]] QByteArray writtenOut(const QByteArray &word);

// All the words that are said in them: real ones, and no misspelling of others.
[[nodiscard]] const QSet<QByteArray> &foodSynonymWords();
