// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <cstdio>
#include <optional>

namespace Export {

// CSV as RFC 4180 has it, with a line of the columns' names; or a JSON object a line (RFC 8259), its keys the columns'
// names. Both in UTF-8.
enum class Format { Csv, Json };

// Writes rows of one table, field by field in the order of the columns. Nothing is an empty field in CSV and null in
// JSON, which has no infinite numbers either: they are the texts "inf", "-inf" and "nan" there.
class RowWriter final {
public:
    // The file stays the caller's, who looks for its error when all is written.
    RowWriter(Format format, const QStringList &columns, std::FILE *file);
    Q_DISABLE_COPY_MOVE(RowWriter)

    void addText(const std::optional<QString> &text);
    void addNumber(std::optional<float> number);
    void addNumber(std::optional<double> number);
    void addCount(qsizetype count);
    // False when it could not be written. The next field is of the next row.
    bool endRow();

private:
    void addNumber(const QByteArray &text, bool isfinite);
    void addField(const QByteArray &text);

    Format format;
    QList<QByteArray> keys; // as they stand before a JSON value
    qsizetype column = 0;
    QByteArray row;
    std::FILE *file;
};

} // namespace Export
