// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "tools/ReleaseTable.h"

#include "tools/Refusal.h"

#include <QFile>
#include <QString>

#include <algorithm>

namespace {

std::string fromLatin1(std::string_view text)
{
    return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size())).toStdString();
}

bool holdsControlCharacter(std::string_view text)
{
    return std::ranges::any_of(text, [](char c) { return static_cast<unsigned char>(c) < ' '; });
}

} // namespace

std::string readFile(const std::string &path)
{
    QFile file(QFile::decodeName(path.c_str()));
    if (!file.open(QIODevice::ReadOnly))
        throw Refusal(path, "cannot be read: " + file.errorString().toStdString());
    std::string content = file.readAll().toStdString();
    if (file.error() != QFile::NoError)
        throw Refusal(path, "cannot be read: " + file.errorString().toStdString()); // GCOVR_EXCL_LINE: a failing disk
    if (content.empty())
        throw Refusal(path, "is empty");
    return content;
}

bool Lines::next(std::string_view &line)
{
    if (rest.empty())
        return false;
    const std::size_t end = rest.find('\n');
    line = rest.substr(0, end);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    ++count;
    return true;
}

ReleaseTable::ReleaseTable(const std::string &folder, const std::string &name, std::size_t fields)
    : file(folder + '/' + name)
    , content(readFile(file))
    , width(fields)
    , lines(content)
{ }

bool ReleaseTable::next()
{
    std::string_view line;
    if (!lines.next(line))
        return false;
    row.clear();
    for (std::size_t begin = 0; begin <= line.size();) {
        const std::size_t end = std::min(line.find('^', begin), line.size());
        row.push_back(line.substr(begin, end - begin));
        begin = end + 1;
    }
    if (row.size() != width)
        refuse(std::to_string(row.size()) + " fields, not " + std::to_string(width));
    return true;
}

std::string ReleaseTable::text(std::size_t field) const
{
    const std::string_view whole = row[field - 1];
    if (whole.size() < 2 || !whole.starts_with('~') || !whole.ends_with('~'))
        refuse("field " + std::to_string(field) + " is no text between tildes");
    if (holdsControlCharacter(whole))
        refuse("field " + std::to_string(field) + " holds a control character");
    return fromLatin1(whole.substr(1, whole.size() - 2));
}

std::string ReleaseTable::key(std::size_t field, std::size_t digits) const
{
    std::string key = text(field);
    if (key.size() != digits || !std::ranges::all_of(key, [](char c) { return c >= '0' && c <= '9'; }))
        refuse("field " + std::to_string(field) + " is no number of " + std::to_string(digits) + " digits");
    return key;
}

std::string ReleaseTable::number(std::size_t field) const
{
    static_cast<void>(value(field));
    return std::string(row[field - 1]);
}

Decimal ReleaseTable::value(std::size_t field) const
{
    const std::optional<Decimal> value = Decimal::fromText(row[field - 1]);
    if (!value)
        refuse("field " + std::to_string(field) + " is no number: \"" + fromLatin1(row[field - 1]) + '"');
    return *value;
}

void ReleaseTable::refuse(const std::string &reason) const
{
    throw Refusal(file, lines.number(), reason);
}
