// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "search/FoodWords.h"

#include <QString>

#include <algorithm>
#include <array>
#include <bit>
#include <cstdlib>
#include <string>

namespace {

constexpr int longestcompared = 40; // longer than any word of a food's name

struct SpecialLetter {
    QChar character;
    const char *letters;
};

// Letters that do not come apart into a plain one and an accent.
constexpr std::array<SpecialLetter, 5> specialletters{
    {{u'\u00df', "ss"}, {u'\u00e6', "ae"}, {u'\u00f8', "o"}, {u'\u0142', "l"}, {u'\u0153', "oe"}}};

// The letter or digit that an ASCII character stands for in a word, or 0.
constexpr std::array<char, 0x80> plainletters = [] {
    std::array<char, 0x80> table{};
    for (std::size_t i = 0; i < 26; ++i)
        table['a' + i] = table['A' + i] = static_cast<char>('a' + i);
    for (std::size_t i = 0; i < 10; ++i)
        table['0' + i] = static_cast<char>('0' + i);
    return table;
}();

// Adds the letters that a character stands for in a word; answers whether there were any.
bool addPlainLetters(std::string &letters, QChar character)
{
    const char16_t code = character.unicode();
    if (code < plainletters.size()) { // all of every food's name
        const char letter = plainletters[code];
        if (letter != 0)
            letters += letter;
        return letter != 0;
    }
    const auto special = std::find_if(specialletters.begin(), specialletters.end(),
        [lower = character.toLower()](const SpecialLetter &letter) { return letter.character == lower; });
    if (special != specialletters.end()) {
        letters += special->letters;
        return true;
    }
    bool any = false;
    for (const QChar part : QString(character).normalized(QString::NormalizationForm_KD))
        any = (part.unicode() < 0x80 && addPlainLetters(letters, part)) || any;
    return any;
}

// Whether an ampersand at the place makes one word of a letter or two and what follows: "M&M'S", but not "ham&cheese".
bool joinsInitials(QStringView text, qsizetype at, std::size_t letters)
{
    return text[at] == u'&' && letters >= 1 && letters <= 2 && at + 1 < text.size() && text[at + 1].isLetter();
}

bool joinsLetters(QChar character)
{
    return character == u'\'' || character == u'\u2019' || (character.unicode() >= 0x80 && character.isMark());
}

// Which letters and digits a word has, a bit each.
quint64 lettersOf(const QByteArray &word)
{
    constexpr int digits = 26; // come after the letters
    quint64 letters = 0;
    for (const char letter : word)
        letters |= quint64(1) << (letter >= 'a' && letter <= 'z' ? letter - 'a' : digits + (letter & 15));
    return letters;
}

} // namespace

void FoodWords::eachToken(QStringView text, const TokenReader &read)
{
    std::string letters; // most words fit into it without an allocation
    int start = 0;
    int end = 0;
    const auto finish = [&] {
        if (!letters.empty())
            read(letters, start, end - start);
        letters.clear();
    };
    for (int at = 0; at < text.size(); ++at) {
        const bool first = letters.empty();
        if (addPlainLetters(letters, text[at])) {
            if (first)
                start = at;
            end = at + 1;
        } else if (!joinsLetters(text[at]) && !joinsInitials(text, at, letters.size())) {
            finish();
        }
    }
    finish();
}

std::vector<FoodWords::Token> FoodWords::tokenize(QStringView text)
{
    std::vector<Token> words;
    eachToken(text, [&](std::string_view letters, int start, int length) {
        words.push_back({QByteArray(letters.data(), static_cast<qsizetype>(letters.size())), start, length});
    });
    return words;
}

std::vector<QByteArray> FoodWords::inflections(const QByteArray &word)
{
    std::vector<QByteArray> others;
    const auto swap = [&](const char *ending, const char *replacement) {
        const QByteArray end(ending);
        if (word.size() > end.size() + 1 && word.endsWith(end))
            others.push_back(word.chopped(end.size()) + replacement);
    };
    swap("ies", "y");
    swap("ves", "f");
    swap("ves", "fe");
    swap("es", "");
    swap("s", "");
    swap("y", "ies");
    swap("f", "ves");
    swap("fe", "ves");
    swap("", "es");
    swap("", "s");
    return others;
}

int FoodWords::editDistance(const QByteArray &typed, const QByteArray &word, int limit, bool prefix)
{
    const auto rows = static_cast<int>(typed.size());
    const int columns = std::min(static_cast<int>(word.size()), prefix ? rows + limit : longestcompared);
    if (rows > longestcompared || (!prefix && std::abs(rows - static_cast<int>(word.size())) > limit))
        return limit + 1;
    // Each edit brings in one letter at most: most words differ in too many for the long way to be worth while.
    if (std::popcount(lettersOf(typed) & ~lettersOf(word)) > limit)
        return limit + 1;

    using Row = std::array<int, 2 * longestcompared + 1>;
    Row before{};
    Row last{};
    Row current{};
    for (int column = 0; column <= columns; ++column)
        last[static_cast<std::size_t>(column)] = column;
    for (int row = 1; row <= rows; ++row) {
        current[0] = row;
        int least = row;
        for (int column = 1; column <= columns; ++column) {
            const auto at = static_cast<std::size_t>(column);
            const bool same = typed[row - 1] == word[column - 1];
            int count = std::min({last[at] + 1, current[at - 1] + 1, last[at - 1] + (same ? 0 : 1)});
            if (row > 1 && column > 1 && typed[row - 1] == word[column - 2] && typed[row - 2] == word[column - 1])
                count = std::min(count, before[at - 2] + 1);
            current[at] = count;
            least = std::min(least, count);
        }
        if (least > limit)
            return limit + 1;
        before = last;
        last = current;
    }
    if (!prefix)
        return std::min(last[static_cast<std::size_t>(columns)], limit + 1);
    return std::min(*std::min_element(last.begin(), last.begin() + columns + 1), limit + 1);
}
