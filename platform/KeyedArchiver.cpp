// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "platform/KeyedArchiver.h"

#include "platform/NumberText.h"

#include <algorithm>
#include <cmath>
#include <limits>

using PropertyList::Document;
using PropertyList::Kind;
using PropertyList::Reference;

namespace {

constexpr qint64 archiveVersion = 100000;
constexpr QLatin1String archiverName("NSKeyedArchiver");
constexpr QLatin1String nullName("$null");

constexpr qint64 smallest = std::numeric_limits<qint32>::min();
constexpr qint64 largest = std::numeric_limits<qint32>::max();

qint32 clamped(qint64 value)
{
    return static_cast<qint32>(std::clamp(value, smallest, largest));
}

qint32 truncated(double value)
{
    if (std::isnan(value))
        return 0;
    return static_cast<qint32>(std::clamp(value, double(smallest), double(largest)));
}

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

// Blanks and a sign may stand before the digits; the blanks are those of number text.
qint32 leadingInteger(QStringView text)
{
    qsizetype at = 0;
    while (at < text.size() && (text[at] == u' ' || (text[at] >= u'\t' && text[at] <= u'\r')))
        ++at;
    const bool negative = at < text.size() && text[at] == u'-';
    if (at < text.size() && (text[at] == u'-' || text[at] == u'+'))
        ++at;
    qint64 value = 0;
    for (; at < text.size() && isDigit(text[at]) && value <= largest; ++at)
        value = value * 10 + (text[at].unicode() - u'0');
    return clamped(negative ? -value : value);
}

} // namespace

KeyedArchiver::KeyedArchiver(const QString &className)
    : classname(className)
    , objects{writer.addString(nullName)}
{ }

void KeyedArchiver::encodeObject(Reference object, QLatin1String key)
{
    objects.append(object);
    // The root, which is written last, takes place 1 among the objects.
    rootentries.emplace_back(writer.addString(key), writer.addUid(static_cast<quint32>(objects.size())));
}

void KeyedArchiver::encodeString(const std::optional<QString> &value, QLatin1String key)
{
    if (value)
        encodeObject(writer.addString(*value), key);
    else
        rootentries.emplace_back(writer.addString(key), writer.addUid(0));
}

void KeyedArchiver::encodeFloat(float value, QLatin1String key)
{
    encodeObject(writer.addFloat(value), key);
}

void KeyedArchiver::encodeInt(qint32 value, QLatin1String key)
{
    encodeObject(writer.addInteger(value), key);
}

QByteArray KeyedArchiver::archivedData() const
{
    PropertyList::Writer out = writer;
    const auto text = [&out](const char *ascii) { return out.addString(QLatin1String(ascii)); };

    QList<Reference> all = objects;
    const Reference name = out.addString(classname);
    const Reference classes = out.addArray({name, text("NSObject")});
    all.append(out.addDictionary({{text("$classname"), name}, {text("$classes"), classes}}));

    auto entries = rootentries;
    entries.emplace_back(text("$class"), out.addUid(static_cast<quint32>(all.size())));
    all.insert(1, out.addDictionary(entries));

    const Reference top = out.addDictionary({{text("root"), out.addUid(1)}});
    return out.document(out.addDictionary({{text("$version"), out.addInteger(archiveVersion)},
        {text("$archiver"), out.addString(archiverName)}, {text("$top"), top}, {text("$objects"), out.addArray(all)}}));
}

KeyedUnarchiver::KeyedUnarchiver(const Document &archive)
    : document(archive)
{ }

std::optional<KeyedUnarchiver> KeyedUnarchiver::unarchive(const QByteArray &data, const QString &rootClassName)
{
    const std::optional<Document> document = Document::parse(data);
    if (!document)
        return {};
    const auto entry = [&document](std::optional<Reference> dictionary, const char *key) {
        return dictionary ? document->valueForKey(*dictionary, QLatin1String(key)) : std::nullopt;
    };
    const std::optional<Reference> archiver = entry(document->root(), "$archiver");
    const std::optional<Reference> version = entry(document->root(), "$version");
    const std::optional<Reference> objects = entry(document->root(), "$objects");
    const std::optional<Reference> top = entry(entry(document->root(), "$top"), "root");
    if (!archiver || !document->isString(*archiver, archiverName) || !version
        || document->integer(*version) != archiveVersion || !objects || document->kind(*objects) != Kind::Array || !top)
        return {};

    KeyedUnarchiver decoder(*document);
    decoder.objects = *objects;
    const std::optional<Reference> root = decoder.objectForUid(*top);
    const std::optional<Reference> classuid = entry(root, "$class");
    const std::optional<Reference> classname
        = entry(classuid ? decoder.objectForUid(*classuid) : std::nullopt, "$classname");
    if (!classname || document->string(*classname) != rootClassName)
        return {};
    decoder.root = *root;
    return decoder;
}

// The object that a reference object names; nothing for "$null", which is always the first.
std::optional<Reference> KeyedUnarchiver::objectForUid(Reference uid) const
{
    const std::optional<quint64> place = document.uid(uid);
    if (!place || *place == 0 || *place >= document.count(objects))
        return {};
    return document.element(objects, *place);
}

std::optional<Reference> KeyedUnarchiver::objectForKey(QLatin1String key) const
{
    const std::optional<Reference> entry = document.valueForKey(root, key);
    return entry ? objectForUid(*entry) : std::nullopt;
}

// A mutable string is archived as an object that holds the text under this name.
std::optional<QString> KeyedUnarchiver::stringOf(Reference object) const
{
    if (document.kind(object) != Kind::Dictionary)
        return document.string(object);
    const std::optional<Reference> text = document.valueForKey(object, QLatin1String("NS.string"));
    return text ? document.string(*text) : std::nullopt;
}

std::optional<QString> KeyedUnarchiver::decodeString(QLatin1String key) const
{
    const std::optional<Reference> object = objectForKey(key);
    return object ? stringOf(*object) : std::nullopt;
}

float KeyedUnarchiver::decodeFloat(QLatin1String key) const
{
    const std::optional<Reference> object = objectForKey(key);
    if (!object)
        return 0.0F;
    if (const auto number = document.floatReal(*object))
        return *number;
    if (const auto number = document.doubleReal(*object))
        return static_cast<float>(*number);
    if (const auto number = document.integer(*object))
        return static_cast<float>(*number);
    if (const auto flag = document.boolean(*object))
        return *flag ? 1.0F : 0.0F;
    const std::optional<QString> text = stringOf(*object);
    return text ? NumberText::floatValue(QStringView(*text)) : 0.0F;
}

qint32 KeyedUnarchiver::decodeInt(QLatin1String key) const
{
    const std::optional<Reference> object = objectForKey(key);
    if (!object)
        return 0;
    if (const auto number = document.integer(*object))
        return clamped(*number);
    if (const auto number = document.floatReal(*object))
        return truncated(double(*number));
    if (const auto number = document.doubleReal(*object))
        return truncated(*number);
    if (const auto flag = document.boolean(*object))
        return *flag ? 1 : 0;
    const std::optional<QString> text = stringOf(*object);
    return text ? leadingInteger(*text) : 0;
}
