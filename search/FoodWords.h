// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QStringView>

#include <functional>
#include <string_view>
#include <vector>

// The tokens that the food search compares: lower case, ASCII, letters and digits only, an apostrophe swallowed
// ("KELLOGG'S" is kelloggs) and an ampersand between initials ("M&M'S" is mms), everything else a gap. Accents are
// dropped, so that what a person types with them is found.
namespace FoodWords {

struct Token {
    QByteArray text;
    int start = 0; // where it stands in the text it was cut from, in letters
    int length = 0; // how many letters it takes there, swallowed apostrophes included

    bool operator==(const Token &) const = default;
};

[[nodiscard]] std::vector<Token> tokenize(QStringView text);
// The same one after another, for whoever goes through thousands of names: the text is valid during the call alone.
using TokenReader = std::function<void(std::string_view text, int start, int length)>;
void eachToken(QStringView text, const TokenReader &read);

// The plural of a singular and the singular of a plural, as far as spelling tells (-s, -es, -ies and -y, -ves and -f,
// -oes and -o), the word itself left out. Some of the answers are no words: ask a vocabulary which ones are. A stemmer
// would do the same for both sides, but takes different words for one.
[[nodiscard]] std::vector<QByteArray> inflections(const QByteArray &word);

// The edit distance (optimal string alignment): how many letters were got wrong, left out, put in or swapped with a
// neighbour to type `typed` for `word`, or, when `prefix` is set, for the prefix of it that comes closest; limit + 1
// when it is more than that.
[[nodiscard]] int editDistance(const QByteArray &typed, const QByteArray &word, int limit, bool prefix);

} // namespace FoodWords
