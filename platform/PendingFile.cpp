// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "platform/PendingFile.h"

#include "platform/PropertyList.h"

namespace {

const QString valuekey = QStringLiteral("value");
const QString changedkey = QStringLiteral("changed");
const QString formerkey = QStringLiteral("former");

} // namespace

QString PendingFile::pathOf(const QString &storepath, int number)
{
    const QString path = storepath + QStringLiteral(".pending");
    return number == 1 ? path : path + u'-' + QString::number(number);
}

std::optional<PendingFile::Record> PendingFile::read(const QByteArray &bytes)
{
    const QVariantMap entry = PropertyList::read(bytes).value_or(QVariant()).toMap();
    Record record{entry.value(valuekey).toByteArray(), entry.value(changedkey), entry.contains(formerkey), {}};
    if (!PropertyList::read(record.value))
        return std::nullopt;
    const QByteArray former = entry.value(formerkey).toByteArray();
    if (!former.isEmpty())
        record.former = former;
    return record;
}

QByteArray PendingFile::write(const Record &record)
{
    QVariantMap entry{{valuekey, record.value}};
    if (record.changed.isValid())
        entry.insert(changedkey, record.changed);
    if (record.isformerknown)
        entry.insert(formerkey, record.former.value_or(QByteArray()));
    return PropertyList::write(entry).value();
}
