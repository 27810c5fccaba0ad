// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "platform/UserDefaults.h"

#include "platform/PendingFile.h"
#include "platform/PropertyList.h"
#include "platform/StoreFile.h"

#include <QFile>

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
    if (!isleft)
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
        return PropertyList::read(waiting->bytes).value_or(QVariant());
    const SqliteStore::Value stored = store.read(key);
    Known form;
    form.isread = stored.answer != SqliteStore::Answer::Unavailable;
    std::optional<QVariant> value;
    if (stored.answer == SqliteStore::Answer::Found) {
        form.bytes = stored.bytes;
        value = PropertyList::read(stored.bytes);
        form.isunderstood = value.has_value();
    }
    if (form.isread)
        joined.remove(key);
    known.insert(key, form);
    return value ? *value : registered.value(key);
}

QVariant UserDefaults::peekObjectForKey(const QString &key) const
{
    const auto waiting = pending.constFind(key);
    const QByteArray bytes = waiting != pending.constEnd() ? waiting->bytes : store.read(key).bytes;
    return PropertyList::read(bytes).value_or(registered.value(key));
}

QStringList UserDefaults::storedKeys() const
{
    QStringList keys = store.keys().value_or(QStringList()) + pending.keys();
    keys.removeDuplicates();
    keys.sort();
    return keys;
}

bool UserDefaults::peekRange(const QString &first, const QString &last, const Row &row) const
{
    auto waiting = pending.lowerBound(first);
    const auto handOverUpTo = [&](const auto &isUpTo) {
        for (; waiting != pending.constEnd() && waiting.key() <= last && isUpTo(waiting.key()); ++waiting)
            row(waiting.key(), waiting->bytes);
    };
    const bool iswhole = store.scan(first, last, [&](const QString &key, const QByteArray &value) {
        handOverUpTo([&](const QString &mine) { return mine <= key; });
        if (!pending.contains(key))
            row(key, value);
    });
    handOverUpTo([](const QString &) { return true; });
    return iswhole;
}

bool UserDefaults::boolForKey(const QString &key) const
{
    const auto cached = flags.constFind(key);
    if (cached != flags.constEnd())
        return *cached;
    const bool flag = isTrue(objectForKey(key));
    flags.insert(key, flag);
    return flag;
}

void UserDefaults::setObject(const QVariant &value, const QString &key, const QVariant &changed)
{
    std::optional<QByteArray> bytes = PropertyList::write(value);
    Q_ASSERT(bytes);
    if (!bytes)
        return; // GCOVR_EXCL_LINE: a caller's mistake, which the assertion tells
    pending.insert(key, {*bytes, changed});
    isleft = false;
    flags.remove(key);
    synchronize();
}

void UserDefaults::keepUnread(const QString &key)
{
    known[key].isunderstood = false;
}

QVariantList UserDefaults::unreadObjectsForKey(const QString &key) const
{
    QVariantList copies;
    for (int number = 1;; ++number) {
        const SqliteStore::Value copy = store.read(SqliteStore::copyName(key, number));
        if (copy.answer != SqliteStore::Answer::Found)
            return copies;
        if (const std::optional<QVariant> value = PropertyList::read(copy.bytes))
            copies.append(*value);
    }
}

bool UserDefaults::synchronize()
{
    if (pending.isEmpty())
        return true;
    if (intransaction)
        return false;
    QHash<QString, Decision> written;
    const auto decideOnce = [&](const QString &key, const std::optional<QByteArray> &stored) {
        // A write that fails after its commit is tried again, and finds what it wrote.
        const auto earlier = written.constFind(key);
        if (earlier != written.constEnd() && stored == earlier->change.value)
            return SqliteStore::Change{*stored, {}};
        return written.insert(key, decide(key, stored))->change;
    };
    if (!store.write(pending.keys(), decideOnce))
        return false;
    for (auto each = written.constBegin(); each != written.constEnd(); ++each) {
        known.insert(each.key(), {true, true, each->change.value});
        if (each->joinedwith)
            joined.insert(each.key(), *each->joinedwith);
        else
            joined.remove(each.key());
    }
    pending.clear();
    flags.clear(); // some may have been read while the store could not be
    removePendingFile();
    return true;
}

UserDefaults::Decision UserDefaults::decide(const QString &key, const std::optional<QByteArray> &stored) const
{
    const QByteArray &mine = pending[key].bytes;
    if (!stored || *stored == mine)
        return {{mine, {}}, {}};
    const auto form = known.constFind(key);
    const bool isasked = form != known.constEnd();
    const bool isknown = isasked && form->isread && form->bytes == stored;
    const auto former = joined.constFind(key);
    if (isknown && form->isunderstood && former == joined.constEnd())
        return {{mine, {}}, {}};
    if (isasked && form->isunderstood) {
        const QByteArray other = isknown ? *former : *stored;
        if (const std::optional<SqliteStore::Change> change = joinWith(key, other))
            return {*change, other};
    }
    return {{mine, {*stored}}, {}};
}

std::optional<SqliteStore::Change> UserDefaults::joinWith(const QString &key, const QByteArray &stored) const
{
    const std::optional<QVariant> value = PropertyList::read(stored);
    if (!join || !value)
        return std::nullopt;
    const Waiting &mine = pending[key];
    const std::optional<Joined> both
        = join(key, *value, PropertyList::read(mine.bytes).value_or(QVariant()), mine.changed);
    const std::optional<QByteArray> bytes = both ? PropertyList::write(both->value) : std::nullopt;
    if (!bytes)
        return std::nullopt;
    return SqliteStore::Change{*bytes, both->whole ? QList<QByteArray>() : QList<QByteArray>{mine.bytes}};
}

QString UserDefaults::pendingPath(int number) const
{
    return PendingFile::pathOf(storepath, number);
}

bool UserDefaults::leavePending()
{
    if (pending.isEmpty() || isleft)
        return true;
    // One that is there and is not this run's was left by an earlier run and could not be taken in.
    const bool isnew = pendingfile.isEmpty();
    for (int number = 1; number <= PendingFile::mostFiles && pendingfile.isEmpty(); ++number) {
        if (!QFile::exists(pendingPath(number)))
            pendingfile = pendingPath(number);
    }
    if (pendingfile.isEmpty())
        return false;
    const auto record = [this](const QString &key, const std::optional<QByteArray> &) {
        const Waiting &mine = pending[key];
        const Known form = known.value(key);
        const bool isformerknown = form.isread && form.isunderstood && !joined.contains(key);
        return SqliteStore::Change{PendingFile::write({mine.bytes, mine.changed, isformerknown, form.bytes}), {}};
    };
    isleft = SqliteStore(pendingfile).write(pending.keys(), record);
    if (!isleft && isnew) {
        StoreFile::remove(pendingfile); // it holds nothing
        pendingfile.clear();
    }
    return isleft;
}

void UserDefaults::takeInPending()
{
    // One after the other, for a later one may hold other values of the same keys.
    for (int number = 1; number <= PendingFile::mostFiles && pending.isEmpty(); ++number) {
        if (!QFile::exists(pendingPath(number)))
            continue;
        const bool iswhole = takeIn(pendingPath(number));
        flags.clear();
        if (iswhole && pending.isEmpty() && !pendingfile.isEmpty())
            removePendingFile();
        if (!synchronize() && pendingfile.isEmpty())
            leavePending();
    }
}

// False when the file could not be read, and stays for another start, or was not understood, and is set aside.
bool UserDefaults::takeIn(const QString &path)
{
    SqliteStore file(path);
    const std::optional<QStringList> keys = file.keys();
    if (!keys)
        return false;
    QMap<QString, Waiting> values;
    QHash<QString, Known> forms;
    bool iswhole = true;
    for (const QString &key : *keys) {
        const SqliteStore::Value record = file.read(key);
        if (record.answer == SqliteStore::Answer::Unavailable)
            return false;
        const std::optional<PendingFile::Record> left = PendingFile::read(record.bytes);
        if (!left) {
            iswhole = false;
            continue;
        }
        values.insert(key, {left->value, left->changed});
        forms.insert(key, {left->isformerknown, true, left->former});
    }
    pending = values;
    known.insert(forms);
    if (iswhole && QFile::exists(path))
        pendingfile = path;
    else
        file.setAside();
    return iswhole;
}

// Once everything in it is in the store. A file that cannot be removed is taken in again, which adds nothing to what
// was joined and replaces only what did not change since.
void UserDefaults::removePendingFile()
{
    if (!pendingfile.isEmpty() && StoreFile::remove(pendingfile))
        pendingfile.clear();
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
    defaults.isleft = false;
    defaults.flags.clear();
}

bool UserDefaults::Transaction::commit()
{
    Q_ASSERT(isopen);
    isopen = false;
    defaults.intransaction = false;
    return defaults.synchronize();
}
