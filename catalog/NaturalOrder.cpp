// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "catalog/NaturalOrder.h"

#include <array>
#include <string_view>

namespace {

// In the order of the default collation table. Digits and letters follow it.
constexpr std::string_view blankAndPunctuation = " _-,;:!?.'\"()[]{}@*/\\&#%`^+<=>|~$";

constexpr int outsideRank = 0x100;

constexpr std::array<unsigned char, 128> ranks = [] {
    std::array<unsigned char, 128> table{};
    table.fill(0xff);
    unsigned char rank = 0;
    for (const char c : blankAndPunctuation)
        table[static_cast<unsigned char>(c)] = rank++;
    for (unsigned char c = '0'; c <= '9'; ++c)
        table[c] = rank++;
    for (unsigned char c = 'a'; c <= 'z'; ++c) {
        table[c] = rank;
        table[static_cast<std::size_t>(c - 'a' + 'A')] = rank++;
    }
    return table;
}();

// A name with an ending after it, read from the left without making one text of the two.
class FileName {
public:
    FileName(QStringView text, QStringView tail)
        : name(text)
        , ending(tail)
    { }

    [[nodiscard]] bool atEnd() const { return place >= name.size() + ending.size(); }
    [[nodiscard]] char16_t current() const
    {
        return (place < name.size() ? name[place] : ending[place - name.size()]).unicode();
    }
    [[nodiscard]] bool atDigit() const { return !atEnd() && current() >= u'0' && current() <= u'9'; }
    [[nodiscard]] int rank() const
    {
        const char16_t unit = current();
        return unit < ranks.size() && ranks[unit] != 0xff ? ranks[unit] : outsideRank + unit;
    }
    void advance() { ++place; }

private:
    QStringView name;
    QStringView ending;
    qsizetype place = 0;
};

// Both stand at a digit and are left after their runs of digits. The longer run without its leading zeros is the
// larger number; of two as long, the first digit that differs decides.
int compareNumbers(FileName &left, FileName &right)
{
    for (FileName *side : {&left, &right}) {
        while (side->atDigit() && side->current() == u'0')
            side->advance();
    }
    int order = 0;
    while (left.atDigit() && right.atDigit()) {
        if (order == 0)
            order = left.current() - right.current();
        left.advance();
        right.advance();
    }
    if (left.atDigit() || right.atDigit())
        return left.atDigit() ? 1 : -1;
    return order;
}

int compare(FileName left, FileName right)
{
    while (!left.atEnd() && !right.atEnd()) {
        if (left.atDigit() && right.atDigit()) {
            if (const int order = compareNumbers(left, right); order != 0)
                return order;
            continue;
        }
        if (const int order = left.rank() - right.rank(); order != 0)
            return order;
        left.advance();
        right.advance();
    }
    return int(right.atEnd()) - int(left.atEnd());
}

} // namespace

int NaturalOrder::compareFoodNames(QStringView left, QStringView right)
{
    return compare({left, u".xml"}, {right, u".xml"});
}
