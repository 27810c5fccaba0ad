// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "bynutrient/NamePattern.h"

#include <QString>

namespace {

bool isWordLetter(char letter)
{
    return (letter >= 'a' && letter <= 'z') || (letter >= '0' && letter <= '9');
}

// Where the piece stands at or after a place, at the beginning of a word if it begins with a letter.
std::size_t findPiece(std::string_view name, std::string_view piece, std::size_t from)
{
    std::size_t place = name.find(piece, from);
    while (place != std::string_view::npos && place > 0 && isWordLetter(piece.front()) && isWordLetter(name[place - 1]))
        place = name.find(piece, place + 1);
    return place;
}

constexpr std::size_t letters = 26;

// A letter's number, all other characters' last.
std::size_t numberOf(char letter)
{
    return letter >= 'a' && letter <= 'z' ? static_cast<std::size_t>(letter - 'a') : letters;
}

// A bit for each letter that stands after a character of a kind.
template <typename Before>
std::uint32_t initialsOf(std::string_view text, Before before)
{
    std::uint32_t initials = 0;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (numberOf(text[i]) < letters && (i == 0 ? before(' ') : before(text[i - 1])))
            initials |= 1U << numberOf(text[i]);
    return initials;
}

} // namespace

std::string NamePattern::lowerCase(const QString &name)
{
    return name.toLower().toStdString();
}

bool NamePattern::matches(std::string_view pattern, std::string_view name)
{
    std::size_t star = pattern.find('*');
    if (!name.starts_with(pattern.substr(0, star)))
        return false;
    std::size_t place = star;
    while (star != std::string_view::npos) {
        pattern.remove_prefix(star + 1);
        star = pattern.find('*');
        const std::string_view piece = pattern.substr(0, star);
        place = findPiece(name, piece, place);
        if (place == std::string_view::npos)
            return false;
        place += piece.size();
    }
    return true;
}

bool NamePattern::hasWord(std::string_view name, std::string_view words)
{
    while (!words.empty()) {
        const std::size_t blank = words.find(' ');
        if (findPiece(name, words.substr(0, blank), 0) != std::string_view::npos)
            return true;
        words.remove_prefix(blank == std::string_view::npos ? words.size() : blank + 1);
    }
    return false;
}

std::string_view NamePattern::head(std::string_view name)
{
    return name.substr(0, name.find(','));
}

NamePattern::Table::Table(const std::vector<std::string_view> &patterns)
{
    for (std::size_t place = 0; place < patterns.size(); ++place) {
        const std::string_view pattern = patterns[place];
        const Entry entry{place, pattern, initialsOf(pattern, [](char before) { return before == '*'; })};
        for (std::size_t first = 0; first < byfirst.size(); ++first)
            if (pattern.front() == '*' || numberOf(pattern.front()) == first)
                byfirst[first].push_back(entry);
    }
}

std::optional<std::size_t> NamePattern::Table::find(std::string_view name) const
{
    const std::uint32_t initials = initialsOf(name, [](char before) { return !isWordLetter(before); });
    for (const Entry &entry : byfirst[name.empty() ? letters : numberOf(name.front())])
        if ((entry.initials & ~initials) == 0 && matches(entry.pattern, name))
            return entry.place;
    return std::nullopt;
}
