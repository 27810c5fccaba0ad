// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "export/RowWriter.h"

#include "platform/NumberText.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <cmath>

namespace Export {

namespace {

// Control characters that no CSV field may hold are replaced; a record of another program's making may hold them.
QByteArray csvText(const QString &text)
{
    QString field = text;
    bool isquoted = false;
    for (QChar &c : field) {
        isquoted = isquoted || c == u',' || c == u'"' || c == u'\r' || c == u'\n';
        if ((c < u' ' && c != u'\t' && c != u'\r' && c != u'\n') || c == u'\u007f')
            c = QChar::ReplacementCharacter;
    }
    if (isquoted)
        field = u'"' + field.replace(u'"', QStringLiteral("\"\"")) + u'"';
    return field.toUtf8();
}

QByteArray jsonText(const QString &text)
{
    const QByteArray array = QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact);
    return array.mid(1, array.size() - 2);
}

} // namespace

RowWriter::RowWriter(Format outputformat, const QStringList &columns, std::FILE *output)
    : format(outputformat)
    , file(output)
{
    for (const QString &name : columns) {
        keys.append(jsonText(name) + ':');
        if (format == Format::Csv)
            addText(name);
    }
    if (format == Format::Csv)
        endRow();
}

void RowWriter::addText(const std::optional<QString> &text)
{
    if (!text)
        addField({});
    else
        addField(format == Format::Csv ? csvText(*text) : jsonText(*text));
}

void RowWriter::addNumber(std::optional<float> number)
{
    addNumber(number ? NumberText::exact(*number) : QByteArray(), number && std::isfinite(*number));
}

void RowWriter::addNumber(std::optional<double> number)
{
    addNumber(number ? NumberText::exact(*number) : QByteArray(), number && std::isfinite(*number));
}

void RowWriter::addNumber(const QByteArray &text, bool isfinite)
{
    addField(format == Format::Csv || isfinite || text.isEmpty() ? text : '"' + text + '"');
}

void RowWriter::addCount(qsizetype count)
{
    addField(QByteArray::number(count));
}

void RowWriter::addField(const QByteArray &text)
{
    row += column == 0 ? (format == Format::Csv ? "" : "{") : ",";
    if (format == Format::Json)
        row += keys.at(column);
    row += format == Format::Json && text.isEmpty() ? QByteArrayLiteral("null") : text;
    ++column;
}

bool RowWriter::endRow()
{
    Q_ASSERT(column == keys.size());
    row += format == Format::Csv ? "\r\n" : "}\n";
    const bool iswritten
        = std::fwrite(row.constData(), 1, static_cast<std::size_t>(row.size()), file) == std::size_t(row.size());
    row.resize(0); // keeps its memory for the next
    column = 0;
    return iswritten;
}

} // namespace Export
