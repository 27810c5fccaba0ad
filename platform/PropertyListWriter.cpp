// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "platform/PropertyList.h"

#include <algorithm>
#include <bit>

namespace PropertyList {

namespace {

void appendBigEndian(QByteArray &bytes, quint64 number, int size)
{
    for (int shift = (size - 1) * 8; shift >= 0; shift -= 8)
        bytes.append(static_cast<char>(number >> shift & 0xffU));
}

// How many bytes the number takes: 1, 2, 4 or 8.
int widthOf(quint64 number)
{
    return number <= 0xff ? 1 : number <= 0xffff ? 2 : number <= 0xffffffff ? 4 : 8;
}

QByteArray marked(unsigned marker, quint64 bits, int size)
{
    QByteArray encoded(1, static_cast<char>(marker));
    appendBigEndian(encoded, bits, size);
    return encoded;
}

// An integer of up to four bytes has no sign, so a negative one takes eight.
QByteArray encodedInteger(qint64 value)
{
    const auto bits = static_cast<quint64>(value);
    const int size = widthOf(bits);
    return marked(0x10U + static_cast<unsigned>(std::countr_zero(static_cast<unsigned>(size))), bits, size);
}

QByteArray markedCount(unsigned marker, qsizetype count)
{
    if (count < 15)
        return QByteArray(1, static_cast<char>(marker | static_cast<unsigned>(count)));
    return QByteArray(1, static_cast<char>(marker | 0xfU)) + encodedInteger(count);
}

} // namespace

Reference Writer::addLeaf(const QByteArray &encoded)
{
    const auto found = leaves.constFind(encoded);
    if (found != leaves.constEnd())
        return *found;
    const auto reference = static_cast<Reference>(entries.size());
    entries.append({encoded, {}});
    leaves.insert(encoded, reference);
    return reference;
}

Reference Writer::addContainer(unsigned marker, qsizetype count, const QList<Reference> &references)
{
    entries.append({markedCount(marker, count), references});
    return static_cast<Reference>(entries.size() - 1);
}

Reference Writer::addBoolean(bool value)
{
    return addLeaf(QByteArray(1, value ? '\x09' : '\x08'));
}

Reference Writer::addInteger(qint64 value)
{
    return addLeaf(encodedInteger(value));
}

Reference Writer::addFloat(float value)
{
    return addLeaf(marked(0x22, std::bit_cast<quint32>(value), 4));
}

Reference Writer::addDouble(double value)
{
    return addLeaf(marked(0x23, std::bit_cast<quint64>(value), 8));
}

Reference Writer::addDate(double secondsSince2001)
{
    return addLeaf(marked(0x33, std::bit_cast<quint64>(secondsSince2001), 8));
}

Reference Writer::addData(const QByteArray &value)
{
    return addLeaf(markedCount(0x40, value.size()) + value);
}

Reference Writer::addString(const QString &value)
{
    const bool narrow = std::all_of(value.begin(), value.end(), [](QChar c) { return c.unicode() < 0x80; });
    if (narrow)
        return addLeaf(markedCount(0x50, value.size()) + value.toLatin1());
    QByteArray encoded = markedCount(0x60, value.size());
    for (const QChar c : value)
        appendBigEndian(encoded, c.unicode(), 2);
    return addLeaf(encoded);
}

Reference Writer::addUid(quint32 value)
{
    const int size = widthOf(value);
    return addLeaf(marked(0x80U + static_cast<unsigned>(size) - 1, value, size));
}

Reference Writer::addArray(const QList<Reference> &elements)
{
    return addContainer(0xa0, elements.size(), elements);
}

Reference Writer::addDictionary(const QList<std::pair<Reference, Reference>> &pairs)
{
    QList<Reference> references;
    references.reserve(2 * pairs.size());
    for (const auto &[key, value] : pairs)
        references.append(key);
    for (const auto &[key, value] : pairs)
        references.append(value);
    return addContainer(0xd0, pairs.size(), references);
}

QByteArray Writer::document(Reference root) const
{
    Q_ASSERT(root < static_cast<Reference>(entries.size()));
    const int referencesize = widthOf(static_cast<quint64>(entries.size() - 1));
    QByteArray bytes("bplist00");
    QList<quint64> offsets;
    offsets.reserve(entries.size());
    for (const Entry &entry : entries) {
        offsets.append(static_cast<quint64>(bytes.size()));
        bytes.append(entry.head);
        for (const Reference reference : entry.references)
            appendBigEndian(bytes, reference, referencesize);
    }
    const auto tableoffset = static_cast<quint64>(bytes.size());
    const int offsetsize = widthOf(tableoffset);
    for (const quint64 offset : offsets)
        appendBigEndian(bytes, offset, offsetsize);
    bytes.append(6, '\0');
    appendBigEndian(bytes, static_cast<quint64>(offsetsize), 1);
    appendBigEndian(bytes, static_cast<quint64>(referencesize), 1);
    appendBigEndian(bytes, static_cast<quint64>(entries.size()), 8);
    appendBigEndian(bytes, root, 8);
    appendBigEndian(bytes, tableoffset, 8);
    return bytes;
}

} // namespace PropertyList
