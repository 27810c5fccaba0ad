// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "tools/Decimal.h"

#include <QtGlobal>

#include <string>
#include <string_view>
#include <vector>

// The whole of a file; a Refusal when it cannot be read or is empty.
[[nodiscard]] std::string readFile(const std::string &path);

// Goes through a text line by line.
class Lines final {
public:
    explicit Lines(std::string_view whole)
        : rest(whole)
    { }

    // The next line without its line end (LF or CRLF); false after the last one.
    [[nodiscard]] bool next(std::string_view &line);
    [[nodiscard]] int number() const { return count; }

private:
    std::string_view rest;
    int count = 0;
};

// One table of the release, read row by row: ISO 8859-1, fields parted by "^", texts between "~". Every function throws
// a Refusal that names the table's file and the row's line when the row is not as it should be. Fields are counted from
// 1, as the release's documentation does.
class ReleaseTable final {
public:
    ReleaseTable(const std::string &folder, const std::string &name, std::size_t fields);
    Q_DISABLE_COPY_MOVE(ReleaseTable)

    // Goes to the next row; false after the last one.
    [[nodiscard]] bool next();

    // A text field without its tildes, as UTF-8, and a text that consists of this many digits.
    [[nodiscard]] std::string text(std::size_t field) const;
    [[nodiscard]] std::string key(std::size_t field, std::size_t digits) const;

    // A number field, as written or as its value.
    [[nodiscard]] std::string number(std::size_t field) const;
    [[nodiscard]] Decimal value(std::size_t field) const;

    [[noreturn]] void refuse(const std::string &reason) const;

private:
    std::string file;
    std::string content;
    std::size_t width;
    Lines lines;
    std::vector<std::string_view> row;
};
