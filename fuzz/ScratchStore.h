// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/SqliteStatement.h"

#include <QByteArray>
#include <QMap>
#include <QString>

#include <sqlite3.h>

namespace Fuzzing {

// A store with these values, as the program would have made it but for waiting for the disk.
inline void writeStore(const QString &path, const QMap<QString, QByteArray> &values)
{
    sqlite3 *handle = nullptr;
    sqlite3_open(path.toUtf8().constData(), &handle);
    sqlite3_exec(handle,
        "PRAGMA synchronous=OFF; BEGIN; CREATE TABLE defaults(key TEXT PRIMARY KEY, value BLOB NOT NULL);"
        "PRAGMA user_version=1",
        nullptr, nullptr, nullptr);
    for (auto value = values.begin(); value != values.end(); ++value) {
        SqliteStatement statement(handle, "REPLACE INTO defaults(key, value) VALUES(?1, ?2)");
        static_cast<void>(statement.bind(1, value.key()).bind(2, *value).step());
    }
    sqlite3_exec(handle, "COMMIT", nullptr, nullptr, nullptr);
    sqlite3_close(handle);
}

} // namespace Fuzzing
