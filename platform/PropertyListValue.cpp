// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "platform/PropertyList.h"

#include <QDateTime>

#include <cmath>

namespace PropertyList {

namespace {

constexpr qint64 millisecondsTo2001 = 978307200000;
// About 31,000 years either side of 2001: QDateTime counts them with room to spare.
constexpr double latestDate = 1e12;

// Turns the objects below one root into a value, within what is left of three budgets.
class Expansion final {
public:
    Expansion(const Document &source, qsizetype documentsize)
        : document(source)
        , objectsleft(documentsize)
        , bytesleft(documentsize + sharedbytes)
    { }

    std::optional<QVariant> value(Reference object, int depth);

private:
    std::optional<QVariant> array(Reference object, int depth);
    std::optional<QVariant> dictionary(Reference object, int depth);
    bool spend(Reference object);

    // Every reference takes a byte or more: a value of more objects than the document has bytes comes from arrays that
    // share arrays. Data and strings may well be shared, by up to this much.
    static constexpr qsizetype sharedbytes = 16 << 20;

    const Document &document;
    qsizetype objectsleft;
    qsizetype bytesleft;
};

bool Expansion::spend(Reference object)
{
    const Kind kind = document.kind(object);
    if (kind == Kind::Data || kind == Kind::String)
        bytesleft -= static_cast<qsizetype>(document.count(object));
    return --objectsleft >= 0 && bytesleft >= 0;
}

template <typename T>
std::optional<QVariant> asVariant(const std::optional<T> &value)
{
    return value ? std::optional(QVariant::fromValue(*value)) : std::nullopt;
}

std::optional<QVariant> dateVariant(double seconds)
{
    if (!(std::abs(seconds) <= latestDate))
        return {};
    const qint64 milliseconds = std::llround(seconds * 1000.0) + millisecondsTo2001;
    return QVariant(QDateTime::fromMSecsSinceEpoch(milliseconds, Qt::UTC));
}

std::optional<QVariant> Expansion::value(Reference object, int depth)
{
    if (!spend(object))
        return {};
    switch (document.kind(object)) {
    case Kind::Boolean:
        return asVariant(document.boolean(object));
    case Kind::Integer:
        return asVariant(document.integer(object));
    case Kind::Float:
        return asVariant(document.floatReal(object));
    case Kind::Double:
        return asVariant(document.doubleReal(object));
    case Kind::Date:
        return dateVariant(*document.date(object));
    case Kind::Data:
        return asVariant(document.data(object));
    case Kind::String:
        return asVariant(document.string(object));
    case Kind::Array:
        return depth < depthLimit ? array(object, depth + 1) : std::nullopt;
    case Kind::Dictionary:
        return depth < depthLimit ? dictionary(object, depth + 1) : std::nullopt;
    case Kind::Uid:
    case Kind::Unknown:
        break;
    }
    return {};
}

std::optional<QVariant> Expansion::array(Reference object, int depth)
{
    QVariantList list;
    const quint64 count = document.count(object);
    for (quint64 i = 0; i < count; ++i) {
        std::optional<QVariant> element = value(document.element(object, i), depth);
        if (!element)
            return {};
        list.append(*std::move(element));
    }
    return QVariant(list);
}

std::optional<QVariant> Expansion::dictionary(Reference object, int depth)
{
    QVariantMap map;
    const quint64 count = document.count(object);
    for (quint64 i = 0; i < count; ++i) {
        const Reference key = document.key(object, i);
        std::optional<QString> name = spend(key) ? document.string(key) : std::nullopt;
        std::optional<QVariant> entry = name ? value(document.value(object, i), depth) : std::nullopt;
        if (!entry)
            return {};
        map.insert(*name, *std::move(entry));
    }
    return QVariant(map);
}

std::optional<Reference> add(Writer &writer, const QVariant &value, int depth);

std::optional<Reference> addList(Writer &writer, const QVariantList &list, int depth)
{
    QList<Reference> elements;
    elements.reserve(list.size());
    for (const QVariant &element : list) {
        const std::optional<Reference> reference = add(writer, element, depth);
        if (!reference)
            return {};
        elements.append(*reference);
    }
    return writer.addArray(elements);
}

std::optional<Reference> addMap(Writer &writer, const QVariantMap &map, int depth)
{
    QList<std::pair<Reference, Reference>> pairs;
    for (auto entry = map.constBegin(); entry != map.constEnd(); ++entry) {
        const std::optional<Reference> reference = add(writer, entry.value(), depth);
        if (!reference)
            return {};
        pairs.emplace_back(writer.addString(entry.key()), *reference);
    }
    return writer.addDictionary(pairs);
}

std::optional<Reference> addDateTime(Writer &writer, const QDateTime &date)
{
    if (!date.isValid())
        return {};
    const qint64 milliseconds = date.toMSecsSinceEpoch() - millisecondsTo2001;
    return writer.addDate(static_cast<double>(milliseconds) / 1000.0);
}

std::optional<Reference> add(Writer &writer, const QVariant &value, int depth)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
        return writer.addBoolean(value.toBool());
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
        return writer.addInteger(value.toLongLong());
    case QMetaType::Float:
        return writer.addFloat(value.toFloat());
    case QMetaType::Double:
        return writer.addDouble(value.toDouble());
    case QMetaType::QDateTime:
        return addDateTime(writer, value.toDateTime());
    case QMetaType::QByteArray:
        return writer.addData(value.toByteArray());
    case QMetaType::QString:
        return writer.addString(value.toString());
    case QMetaType::QVariantList:
        return depth < depthLimit ? addList(writer, value.toList(), depth + 1) : std::nullopt;
    case QMetaType::QVariantMap:
        return depth < depthLimit ? addMap(writer, value.toMap(), depth + 1) : std::nullopt;
    default:
        return {};
    }
}

} // namespace

std::optional<QVariant> read(const QByteArray &bytes)
{
    const std::optional<Document> document = Document::parse(bytes);
    if (!document)
        return {};
    return Expansion(*document, bytes.size()).value(document->root(), 0);
}

std::optional<QList<QByteArray>> readDataInPlace(const QByteArray &bytes)
{
    const std::optional<Document> document = Document::parse(bytes);
    if (!document || document->kind(document->root()) != Kind::Array)
        return {};
    QList<QByteArray> elements;
    qsizetype left = bytes.size();
    for (quint64 i = 0, count = document->count(document->root()); i < count; ++i) {
        const std::optional<QByteArray> data = document->dataInPlace(document->element(document->root(), i));
        if (!data || (left -= data->size()) < 0)
            return {};
        elements.append(*data);
    }
    return elements;
}

std::optional<QByteArray> write(const QVariant &value)
{
    Writer writer;
    const std::optional<Reference> root = add(writer, value, 0);
    if (!root)
        return {};
    return writer.document(*root);
}

} // namespace PropertyList
