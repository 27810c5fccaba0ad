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
