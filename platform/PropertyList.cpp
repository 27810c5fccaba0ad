// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "platform/PropertyList.h"

#include <QtEndian>

#include <bit>
#include <limits>
#include <string_view>

namespace PropertyList {

namespace {

constexpr quint64 headerSize = 8;
constexpr quint64 trailerSize = 32;

} // namespace

std::optional<Document> Document::parse(const QByteArray &bytes)
{
    const auto size = static_cast<quint64>(bytes.size());
    if (size < headerSize + 1 + 1 + trailerSize || !bytes.startsWith("bplist00"))
        return {};
    Document document;
    document.bytes = bytes;
    const quint64 trailer = size - trailerSize;
    document.offsetsize = document.bigEndian(trailer + 6, 1);
    document.referencesize = document.bigEndian(trailer + 7, 1);
    document.objectcount = document.bigEndian(trailer + 8, 8);
    document.top = document.bigEndian(trailer + 16, 8);
    document.tableoffset = document.bigEndian(trailer + 24, 8);

    const auto isWidth = [](quint64 width) { return width >= 1 && width <= 8; };
    if (!isWidth(document.offsetsize) || !isWidth(document.referencesize))
        return {};
    if (document.tableoffset <= headerSize || document.tableoffset >= trailer)
        return {};
    if (document.objectcount > (trailer - document.tableoffset) / document.offsetsize)
        return {};
    return document;
}

// The unsigned number of 1 to 8 bytes at that place, which the caller knows to be inside the document.
inline quint64 Document::bigEndian(quint64 offset, quint64 size) const
{
    const char *at = bytes.constData() + offset;
    if (size == 1) // nearly always, and a record is asked for some fifty of them
        return static_cast<quint8>(*at);
    quint64 number = 0;
    for (quint64 i = 0; i < size; ++i)
        number = number << 8 | static_cast<quint8>(at[i]);
    return number;
}

// The object with the place and size of its payload, both known to be inside the document's object area: nobody who
// reads it needs to look at a bound again.
inline Document::Object Document::object(Reference reference) const
{
    if (reference >= objectcount)
        return {};
    const quint64 offset = bigEndian(tableoffset + reference * offsetsize, offsetsize);
    if (offset < headerSize || offset >= tableoffset)
        return {};
    const auto marker = static_cast<unsigned>(bigEndian(offset, 1));
    const quint64 payload = offset + 1;
    const quint64 left = tableoffset - payload;
    const auto fixed = [&](Kind kind, quint64 size) { return size <= left ? Object{kind, payload, size} : Object{}; };
    switch (marker) {
    case 0x08:
    case 0x09:
        return {Kind::Boolean, offset, 1};
    case 0x10:
    case 0x11:
    case 0x12:
    case 0x13:
    case 0x14:
        return fixed(Kind::Integer, quint64(1) << (marker & 0xfU));
    case 0x22:
        return fixed(Kind::Float, 4);
    case 0x23:
        return fixed(Kind::Double, 8);
    case 0x33:
        return fixed(Kind::Date, 8);
    default:
        break;
    }
    if (marker >= 0x80 && marker <= 0x87)
        return fixed(Kind::Uid, (marker & 0xfU) + 1);
    return sized(marker, payload);
}

// Data, strings and containers: their marker ends in the count, or in 15 when the count stands after it as an integer.
Document::Object Document::sized(unsigned marker, quint64 payload) const
{
    Object object;
    quint64 width = 0;
    switch (marker >> 4U) {
    case 0x4:
        object.kind = Kind::Data;
        width = 1;
        break;
    case 0x5:
        object.kind = Kind::String;
        width = 1;
        break;
    case 0x6:
        object.kind = Kind::String;
        object.wide = true;
        width = 2;
        break;
    case 0xa:
        object.kind = Kind::Array;
        width = referencesize;
        break;
    case 0xd:
        object.kind = Kind::Dictionary;
        width = 2 * referencesize;
        break;
    default:
        return {};
    }
    object.count = marker & 0xfU;
    object.offset = payload;
    if (object.count == 0xf) {
        if (payload >= tableoffset)
            return {};
        const auto counter = static_cast<unsigned>(bigEndian(payload, 1));
        if (counter < 0x10 || counter > 0x13)
            return {};
        const quint64 size = quint64(1) << (counter & 0xfU);
        if (size > tableoffset - payload - 1)
            return {};
        object.count = bigEndian(payload + 1, size);
        object.offset = payload + 1 + size;
    }
    // No division, which would be a third of what a record costs; the first half keeps the product from overflowing.
    const quint64 left = tableoffset - object.offset;
    if (object.count > left || object.count * width > left)
        return {};
    return object;
}

Reference Document::referenceAt(const Object &object, quint64 index) const
{
    return bigEndian(object.offset + index * referencesize, referencesize);
}

Kind Document::kind(Reference reference) const
{
    return object(reference).kind;
}

std::optional<bool> Document::boolean(Reference reference) const
{
    const Object found = object(reference);
    if (found.kind != Kind::Boolean)
        return {};
    return bigEndian(found.offset, 1) == 0x09;
}

std::optional<qint64> Document::integer(Reference reference) const
{
    const Object found = object(reference);
    if (found.kind != Kind::Integer)
        return {};
    // Up to four bytes are without a sign, eight and sixteen are two's complement.
    if (found.count <= 8)
        return static_cast<qint64>(bigEndian(found.offset, found.count));
    const auto high = static_cast<qint64>(bigEndian(found.offset, 8));
    const auto low = static_cast<qint64>(bigEndian(found.offset + 8, 8));
    if (high == (low < 0 ? -1 : 0))
        return low;
    return high < 0 ? std::numeric_limits<qint64>::min() : std::numeric_limits<qint64>::max();
}

std::optional<float> Document::floatReal(Reference reference) const
{
    const Object found = object(reference);
    if (found.kind != Kind::Float)
        return {};
    return std::bit_cast<float>(static_cast<quint32>(bigEndian(found.offset, 4)));
}

std::optional<double> Document::doubleReal(Reference reference) const
{
    const Object found = object(reference);
    if (found.kind != Kind::Double)
        return {};
    return std::bit_cast<double>(bigEndian(found.offset, 8));
}

std::optional<double> Document::date(Reference reference) const
{
    const Object found = object(reference);
    if (found.kind != Kind::Date)
        return {};
    return std::bit_cast<double>(bigEndian(found.offset, 8));
}

std::optional<QByteArray> Document::data(Reference reference) const
{
    const Object found = object(reference);
    if (found.kind != Kind::Data)
        return {};
    return bytes.mid(static_cast<qsizetype>(found.offset), static_cast<qsizetype>(found.count));
}

std::optional<QByteArray> Document::dataInPlace(Reference reference) const
{
    const Object found = object(reference);
    if (found.kind != Kind::Data)
        return {};
    return QByteArray::fromRawData(bytes.constData() + found.offset, static_cast<qsizetype>(found.count));
}

std::optional<QString> Document::string(Reference reference) const
{
    const Object found = object(reference);
    if (found.kind != Kind::String)
        return {};
    const char *text = bytes.constData() + found.offset;
    const auto size = static_cast<qsizetype>(found.count);
    if (!found.wide) {
        for (qsizetype i = 0; i < size; ++i) {
            if (static_cast<quint8>(text[i]) >= 0x80)
                return {};
        }
        return QString::fromLatin1(text, size);
    }
    QString wide(size, Qt::Uninitialized);
    qFromBigEndian<quint16>(text, size, wide.data());
    return wide;
}

std::optional<quint64> Document::uid(Reference reference) const
{
    const Object found = object(reference);
    if (found.kind != Kind::Uid)
        return {};
    return bigEndian(found.offset, found.count);
}

quint64 Document::count(Reference reference) const
{
    const Object found = object(reference);
    switch (found.kind) {
    case Kind::Data:
    case Kind::String:
    case Kind::Array:
    case Kind::Dictionary:
        return found.count;
    default:
        return 0;
    }
}

Reference Document::element(Reference array, quint64 index) const
{
    const Object found = object(array);
    Q_ASSERT(found.kind == Kind::Array && index < found.count);
    return referenceAt(found, index);
}

Reference Document::key(Reference dictionary, quint64 index) const
{
    const Object found = object(dictionary);
    Q_ASSERT(found.kind == Kind::Dictionary && index < found.count);
    return referenceAt(found, index);
}

Reference Document::value(Reference dictionary, quint64 index) const
{
    const Object found = object(dictionary);
    Q_ASSERT(found.kind == Kind::Dictionary && index < found.count);
    return referenceAt(found, found.count + index);
}

// Compared in place, and only when the lengths agree: a dictionary whose many entries share one long key costs no more
// than their number.
bool Document::isString(Reference reference, QLatin1String text) const
{
    const Object found = object(reference);
    if (found.kind != Kind::String || found.count != static_cast<quint64>(text.size()))
        return false;
    if (!found.wide)
        return std::string_view(bytes.constData() + found.offset, found.count)
            == std::string_view(text.data(), found.count);
    for (quint64 i = 0; i < found.count; ++i) {
        if (bigEndian(found.offset + i * 2, 2) != QChar(text.at(static_cast<qsizetype>(i))).unicode())
            return false;
    }
    return true;
}

std::optional<Reference> Document::valueForKey(Reference dictionary, QLatin1String key) const
{
    const Object found = object(dictionary);
    if (found.kind != Kind::Dictionary)
        return {};
    for (quint64 i = 0; i < found.count; ++i) {
        if (isString(referenceAt(found, i), key))
            return referenceAt(found, found.count + i);
    }
    return {};
}

} // namespace PropertyList
