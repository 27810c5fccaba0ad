// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/PropertyList.h"

#include <QByteArray>
#include <QLatin1String>
#include <QList>
#include <QString>

#include <optional>

// Keyed archives of one flat object: what the object hands over under names of its choice, as other keyed archivers of
// the platform family write it ("$archiver" is "NSKeyedArchiver"), so that records can be exchanged with them. Strings
// and numbers are written as objects of their own, referred to by the root.
//
// General graphs are not supported: the program archives nothing else, and an unarchiver that follows references of
// references would have to guard against cycles.
class KeyedArchiver final {
public:
    // The name of the root object's class, which the unarchiver asks for.
    explicit KeyedArchiver(const QString &className);

    // Each key once; a key does not begin with "$". An absent string is a reference to "$null".
    void encodeString(const std::optional<QString> &value, QLatin1String key);
    void encodeFloat(float value, QLatin1String key);
    void encodeInt(qint32 value, QLatin1String key);

    // The archive of what was encoded so far.
    [[nodiscard]] QByteArray archivedData() const;

private:
    void encodeObject(PropertyList::Reference object, QLatin1String key);

    QString classname;
    PropertyList::Writer writer;
    QList<PropertyList::Reference> objects; // "$objects", the root's place left out
    QList<std::pair<PropertyList::Reference, PropertyList::Reference>> rootentries;
};

// Reads such an archive, whoever wrote it: objects in any order, shared by several keys, strings wrapped as mutable
// ones, numbers of any width or as text. A value of a kind that cannot be what is asked for reads as a missing one.
class KeyedUnarchiver final {
public:
    // Nothing when the data is no keyed archive or its root is not an object of that very class (a subclass is another
    // class: its coding is unknown).
    [[nodiscard]] static std::optional<KeyedUnarchiver> unarchive(const QByteArray &data, const QString &rootClassName);

    // The string, or nothing when the key is missing, refers to "$null" or holds no string.
    [[nodiscard]] std::optional<QString> decodeString(QLatin1String key) const;
    // The number as a float, rounded once; a string gives the number that it begins with; 0 when there is none.
    [[nodiscard]] float decodeFloat(QLatin1String key) const;
    // The number as an integer: a real loses its fraction, what is beyond 32 bits gives the nearest end, a NaN gives 0;
    // a string gives the integer that it begins with; 0 when there is none.
    [[nodiscard]] qint32 decodeInt(QLatin1String key) const;

private:
    explicit KeyedUnarchiver(const PropertyList::Document &archive);

    [[nodiscard]] std::optional<PropertyList::Reference> objectForUid(PropertyList::Reference uid) const;
    [[nodiscard]] std::optional<PropertyList::Reference> objectForKey(QLatin1String key) const;
    [[nodiscard]] std::optional<QString> stringOf(PropertyList::Reference object) const;

    PropertyList::Document document;
    PropertyList::Reference objects = 0;
    PropertyList::Reference root = 0;
};
