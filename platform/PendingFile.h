// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>
#include <QVariant>

#include <optional>

// The files beside a store that hold what a run could not save: databases of the store's form whose values are records
// of this one. Apart from UserDefaults, which writes them and takes them in, because others only look at them.
namespace PendingFile {

// Files of runs that could not save, until a start can take them in.
constexpr int mostFiles = 9;
// "<store>.pending" and, from the second on, "<store>.pending-<n>".
[[nodiscard]] QString pathOf(const QString &storepath, int number);

struct Record {
    QByteArray value; // the bytes to be stored under the key: a property list
    QVariant changed; // as it was given to UserDefaults::setObject
    bool isformerknown = false;
    std::optional<QByteArray> former; // what the run had read under the key; nothing when there was no value
};
// Nothing when the bytes are no record or its value is no property list.
[[nodiscard]] std::optional<Record> read(const QByteArray &bytes);
[[nodiscard]] QByteArray write(const Record &record);

} // namespace PendingFile
