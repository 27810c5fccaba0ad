// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "platform/UserDefaults.h"

#include "platform/PropertyList.h"
#include "platform/StoreFile.h"

namespace {

UserDefaults *replacement = nullptr;

bool isBlank(QChar c)
{
    return c == u' ' || (c >= u'\t' && c <= u'\r');
}

bool isTrue(const QString &text)
{
    auto at = text.begin();
    while (at != text.end() && isBlank(*at))
        ++at;
    if (at != text.end() && (*at == u'-' || *at == u'+'))
        ++at;
    while (at != text.end() && *at == u'0')
        ++at;
    return at != text.end() && (QStringView(u"YyTt").contains(*at) || (*at >= u'1' && *at <= u'9'));
}

bool isTrue(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
        return value.toBool();
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
        return value.toLongLong() != 0;
    case QMetaType::Float:
    case QMetaType::Double:
        return value.toDouble() != 0.0;
    case QMetaType::QString:
        return isTrue(value.toString());
    default:
        return false;
    }
}

} // namespace

UserDefaults::UserDefaults(const QString &storePath)
    : storepath(storePath)
    , store(storePath)
{ }

UserDefaults::~UserDefaults()
{
    Q_ASSERT(!intransaction);
    synchronize();
    if (replacement == this)
        replacement = nullptr;
}

UserDefaults &UserDefaults::standardUserDefaults()
{
    if (replacement != nullptr)
        return *replacement;
    static UserDefaults standard(standardStorePath());
    return standard;
}

void UserDefaults::setStandardUserDefaults(UserDefaults *defaults)
{
    replacement = defaults;
}

QString UserDefaults::standardStorePath()
{
    return StoreFile::standardPath();
}

void UserDefaults::registerDefaults(const QVariantMap &defaults)
{
    registered.insert(defaults);
    flags.clear();
}

QVariant UserDefaults::objectForKey(const QString &key) const
{
    if (const auto waiting = pending.constFind(key); waiting != pending.constEnd())
        return PropertyList::read(*waiting).value_or(QVariant());
    const SqliteStore::Value stored = store.read(key);
    if (stored.answer == SqliteStore::Answer::Found) {
        if (std::optional<QVariant> value = PropertyList::read(stored.bytes))
            return *value;
    }
    // For good until it is written, although a later look may understand it: at worst a copy is kept that nobody needs.
    if (stored.answer != SqliteStore::Answer::Absent)
        unread.insert(key);
    return registered.value(key);
}

bool UserDefaults::boolForKey(const QString &key) const
{
    const auto known = flags.constFind(key);
    if (known != flags.constEnd())
        return *known;
    const bool flag = isTrue(objectForKey(key));
    flags.insert(key, flag);
    return flag;
}

void UserDefaults::setObject(const QVariant &value, const QString &key)
{
    std::optional<QByteArray> bytes = PropertyList::write(value);
    Q_ASSERT(bytes);
    if (!bytes)
        return; // GCOVR_EXCL_LINE: a caller's mistake, which the assertion tells
    pending.insert(key, *bytes);
    flags.remove(key);
    synchronize();
}

void UserDefaults::keepUnread(const QString &key)
{
    unread.insert(key);
}

bool UserDefaults::synchronize()
{
    if (pending.isEmpty())
        return true;
    if (intransaction)
        return false;
    QList<SqliteStore::Change> changes;
    changes.reserve(pending.size());
    for (auto change = pending.constBegin(); change != pending.constEnd(); ++change)
        changes.append({change.key(), change.value(), unread.contains(change.key())});
    if (!store.write(changes))
        return false;
    for (const SqliteStore::Change &change : qAsConst(changes))
        unread.remove(change.key);
    pending.clear();
    flags.clear(); // some may have been read while the store could not be
    return true;
}

UserDefaults::Transaction::Transaction(UserDefaults &userDefaults)
    : defaults(userDefaults)
    , former(userDefaults.pending)
{
    Q_ASSERT(!defaults.intransaction);
    defaults.intransaction = true;
}

UserDefaults::Transaction::~Transaction()
{
    if (!isopen)
        return;
    defaults.intransaction = false;
    defaults.pending = former;
    defaults.flags.clear();
}

bool UserDefaults::Transaction::commit()
{
    Q_ASSERT(isopen);
    isopen = false;
    defaults.intransaction = false;
    return defaults.synchronize();
}
