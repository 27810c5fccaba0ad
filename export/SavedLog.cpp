// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "export/SavedLog.h"

#include "model/StoredDay.h"
#include "platform/LocalDay.h"
#include "platform/PropertyList.h"

#include <utility>
#include <vector>

namespace Export {

namespace {

QString faultOf(StoreCopy::Result result, const QString &path)
{
    switch (result) {
    case StoreCopy::Result::Read:
        break;
    case StoreCopy::Result::Missing:
        return QStringLiteral("there is no log at %1").arg(path);
    case StoreCopy::Result::Unreadable:
        return QStringLiteral("%1 cannot be read").arg(path);
    case StoreCopy::Result::Unfinished:
        return QStringLiteral("%1 has a save that did not end: start Provender, quit it and try again").arg(path);
    case StoreCopy::Result::Unusable:
        return QStringLiteral("%1 is damaged, of a newer version or no log").arg(path);
    }
    return {};
}

} // namespace

QString SavedLog::read(const QString &storepath)
{
    const QString firstkey = LocalDay::key(LocalDay::firstDate());
    const QString lastkey = LocalDay::key(LocalDay::lastDate());
    // Before the store, so that what a starting program takes in meanwhile is found in one of the two at least.
    std::vector<std::pair<QString, PendingFile::Record>> records;
    bool haspending = false;
    for (int number = 1; number <= PendingFile::mostFiles; ++number) {
        const QString path = PendingFile::pathOf(storepath, number);
        StoreCopy file;
        const StoreCopy::Result result = file.read(path);
        if (result == StoreCopy::Result::Missing)
            continue;
        if (const QString fault = faultOf(result, path); !fault.isEmpty())
            return fault;
        haspending = true;
        file.scan(firstkey, lastkey, [&](const QString &key, const QByteArray &bytes) {
            if (std::optional<PendingFile::Record> record = PendingFile::read(bytes))
                records.emplace_back(key, *std::move(record));
        });
    }
    const StoreCopy::Result result = store.read(storepath);
    if (const QString fault = faultOf(result, storepath);
        !fault.isEmpty() && !(result == StoreCopy::Result::Missing && haspending))
        return fault;
    for (const auto &[key, record] : records)
        takeIn(key, record);
    return {};
}

std::optional<QByteArray> SavedLog::valueOf(const QString &key) const
{
    std::optional<QByteArray> found;
    scan(key, key, [&](const QString &, const QByteArray &value) { found = value; });
    return found;
}

// As UserDefaults takes a record in: it replaces what its run had read, and is joined with anything else.
void SavedLog::takeIn(const QString &key, const PendingFile::Record &record)
{
    const std::optional<QByteArray> stored = valueOf(key);
    QByteArray value = record.value;
    if (stored && *stored != value && !(record.isformerknown && record.former == stored)) {
        const QVariant other = PropertyList::read(*stored).value_or(QVariant());
        if (other.typeId() == QMetaType::QVariantList) {
            const QVariantList mine = PropertyList::read(value).value_or(QVariant()).toList();
            value = PropertyList::write(StoredDay::joined(other.toList(), mine).value).value_or(value);
        }
    }
    pending.insert(key, value);
}

bool SavedLog::scan(const QString &firstkey, const QString &lastkey, const StoreCopy::Row &row) const
{
    auto waiting = pending.lowerBound(firstkey);
    const auto handOverBefore = [&](const QString *key) {
        for (; waiting != pending.constEnd() && waiting.key() <= lastkey && (key == nullptr || waiting.key() < *key);
             ++waiting)
            row(waiting.key(), *waiting);
    };
    const bool iswhole = store.scan(firstkey, lastkey, [&](const QString &key, const QByteArray &value) {
        handOverBefore(&key);
        if (!pending.contains(key))
            row(key, value);
    });
    handOverBefore(nullptr);
    return iswhole;
}

} // namespace Export
