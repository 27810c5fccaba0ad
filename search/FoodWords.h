// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QStringView>

#include <vector>

// Words as the food search sees them: lower case, ASCII, letters and digits only, an apostrophe swallowed ("KELLOGG'S"
// is kelloggs), everything else a gap. Accents are dropped, so that what a person types with them is found.
namespace FoodWords {

struct Word {
    QByteArray text;
    int start = 0; // where it stands in the text it was cut from, in letters
    int length = 0; // how many letters it takes there, swallowed apostrophes included

    bool operator==(const Word &) const = default;
};

[[nodiscard]] std::vector<Word> split(QStringView text);

// The plural of a singular and the singular of a plural, as far as spelling tells (-s, -es, -ies and -y, -ves and -f,
// -oes and -o), the word itself left out. Some of the answers are no words: ask a vocabulary which ones are.
[[nodiscard]] std::vector<QByteArray> otherNumbers(const QByteArray &word);

// How many letters somebody has to have got wrong, left out, put in or swapped with a neighbour to type `typed` for
// `word`, or for the beginning of it that comes closest when `beginning` is set; limit + 1 when it is more than that.
[[nodiscard]] int slips(const QByteArray &typed, const QByteArray &word, int limit, bool beginning);

} // namespace FoodWords
