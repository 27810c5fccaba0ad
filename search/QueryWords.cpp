// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "search/QueryWords.h"

#include "search/FoodWords.h"

#include <algorithm>

namespace {

constexpr std::size_t mostwords = 24;

bool isAnd(const QByteArray &word)
{
    return word == "and" || word == "n";
}

} // namespace

std::vector<QByteArray> QueryWords::of(const QString &query)
{
    std::vector<FoodWords::Token> tokens = FoodWords::tokenize(query);
    const auto gapAfter = [&](std::size_t i) {
        const int from = tokens[i].start + tokens[i].length;
        const int to = i + 1 < tokens.size() ? tokens[i + 1].start : static_cast<int>(query.size());
        return QStringView(query).mid(from, to - from);
    };
    std::vector<QByteArray> words;
    for (std::size_t i = 0; i < tokens.size() && words.size() < mostwords; ++i) {
        QByteArray word = tokens[i].text;
        std::size_t next = i + 1;
        if (word == "w" && gapAfter(i).startsWith(u'/')) {
            const bool without = next < tokens.size() && tokens[next].text == "o" && gapAfter(i).size() == 1;
            word = without ? "without" : "with";
            next += without ? 1 : 0;
        } else if (word.size() == 1 && next < tokens.size()) {
            const bool sign = gapAfter(i).contains(u'&');
            const std::size_t other = next + (!sign && isAnd(tokens[next].text) ? 1 : 0);
            if ((sign || other > next) && other < tokens.size() && tokens[other].text.size() <= 2) {
                word += tokens[other].text;
                next = other + 1;
            }
        }
        i = next - 1;
        if (std::find(words.begin(), words.end(), word) == words.end())
            words.push_back(word);
    }
    return words;
}
