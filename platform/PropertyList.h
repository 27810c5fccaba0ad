// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QHash>
#include <QLatin1String>
#include <QList>
#include <QString>
#include <QVariant>

#include <optional>
#include <utility>

// Binary property lists ("bplist00"): the form of every value in the preferences store and of a food record.
//
// Such a document is a flat table of objects that name each other by index, and it may have been written by anybody.
// So the reader expands nothing: a Document answers for one object at a time, straight from the bytes, whatever the
// objects refer to. Whoever walks from object to object bounds the walk. libplist builds the whole tree instead: a
// record of 144 bytes whose arrays share their elements grew to 230 MB there, and 200,000 nested arrays ended it.
namespace PropertyList {

enum class Kind { Unknown, Boolean, Integer, Float, Double, Date, Data, String, Array, Dictionary, Uid };

// An object of a document, by its place in the table.
using Reference = quint64;

// What a document of the program may hold as a value: bool, qint64, float, double, QDateTime (UTC), QByteArray,
// QString, QVariantList and QVariantMap of these. The deepest nesting that read() and write() follow:
constexpr int depthLimit = 8;

class Document final {
public:
    // Nothing when the header, the trailer or the place of the offset table is wrong. The objects are looked at later,
    // one by one, as they are asked for; one that is broken is of kind Unknown.
    [[nodiscard]] static std::optional<Document> parse(const QByteArray &bytes);

    [[nodiscard]] Reference root() const { return top; }
    [[nodiscard]] Kind kind(Reference object) const;

    // Each gives nothing when the object is of another kind. An integer beyond 64 bits is the nearest of 64 bits; a
    // date is in seconds since the first moment of 2001, UTC.
    [[nodiscard]] std::optional<bool> boolean(Reference object) const;
    [[nodiscard]] std::optional<qint64> integer(Reference object) const;
    [[nodiscard]] std::optional<float> floatReal(Reference object) const;
    [[nodiscard]] std::optional<double> doubleReal(Reference object) const;
    [[nodiscard]] std::optional<double> date(Reference object) const;
    [[nodiscard]] std::optional<QByteArray> data(Reference object) const;
    [[nodiscard]] std::optional<QString> string(Reference object) const;
    [[nodiscard]] std::optional<quint64> uid(Reference object) const;
    // Whether the object is a string and this one.
    [[nodiscard]] bool isString(Reference object, QLatin1String text) const;

    // Elements of an array, entries of a dictionary, bytes of data, characters of a string; 0 of anything else.
    [[nodiscard]] quint64 count(Reference object) const;
    // `index` below count() of an array; the reference may point nowhere, which reads as kind Unknown.
    [[nodiscard]] Reference element(Reference array, quint64 index) const;
    [[nodiscard]] Reference key(Reference dictionary, quint64 index) const;
    [[nodiscard]] Reference value(Reference dictionary, quint64 index) const;
    // The first entry of that key; nothing when there is none or the object is no dictionary.
    [[nodiscard]] std::optional<Reference> valueForKey(Reference dictionary, QLatin1String key) const;

    // The data's bytes where they stand in what was parsed, and valid as long as that; nothing for another kind.
    [[nodiscard]] std::optional<QByteArray> dataInPlace(Reference object) const;

private:
    struct Object {
        Kind kind = Kind::Unknown;
        quint64 offset = 0; // of the payload
        quint64 count = 0; // bytes, characters, elements or entries
        bool wide = false; // a string of two-byte characters
    };

    Document() = default;

    [[nodiscard]] quint64 bigEndian(quint64 offset, quint64 size) const;
    [[nodiscard]] Object object(Reference reference) const;
    [[nodiscard]] Object sized(unsigned marker, quint64 payload) const;
    [[nodiscard]] Reference referenceAt(const Object &object, quint64 index) const;

    QByteArray bytes;
    quint64 offsetsize = 0;
    quint64 referencesize = 0;
    quint64 objectcount = 0;
    quint64 top = 0;
    quint64 tableoffset = 0;
};

// Collects the objects of a document, then writes it. Equal leaves (whatever is no array and no dictionary) become one
// object, as other writers do it.
class Writer final {
public:
    Reference addBoolean(bool value);
    Reference addInteger(qint64 value);
    Reference addFloat(float value);
    Reference addDouble(double value);
    Reference addDate(double secondsSince2001);
    Reference addData(const QByteArray &value);
    Reference addString(const QString &value);
    Reference addUid(quint32 value);
    Reference addArray(const QList<Reference> &elements);
    Reference addDictionary(const QList<std::pair<Reference, Reference>> &entries);

    [[nodiscard]] QByteArray document(Reference root) const;

private:
    struct Entry {
        QByteArray head; // the whole of a leaf; marker and count of a container
        QList<Reference> references; // of an array its elements, of a dictionary the keys and then the values
    };

    Reference addLeaf(const QByteArray &encoded);
    Reference addContainer(unsigned marker, qsizetype count, const QList<Reference> &references);

    QList<Entry> entries;
    QHash<QByteArray, Reference> leaves;
};

// The document's value as a whole. Nothing when any of it is broken or of a kind that is no value, when it nests deeper
// than the limit, or when its objects share each other so that the value would be far larger than the document. A date
// beyond the years that QDateTime can count is no value either.
[[nodiscard]] std::optional<QVariant> read(const QByteArray &bytes);

// The elements of a document that is an array of nothing but data, in place: valid as long as `bytes`. Nothing for any
// other document, and for one whose elements share their bytes.
[[nodiscard]] std::optional<QList<QByteArray>> readDataInPlace(const QByteArray &bytes);

// The document of a value; nothing when the value is of a kind that has no place in one or nests deeper than the limit.
// Dates keep milliseconds.
[[nodiscard]] std::optional<QByteArray> write(const QVariant &value);

} // namespace PropertyList
