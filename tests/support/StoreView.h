// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/SqliteStatement.h"

#include <QFile>
#include <QStringList>

#include <sqlite3.h>

// Another program's connection to a store.
class StoreView final {
public:
    explicit StoreView(const QString &path) { sqlite3_open(QFile::encodeName(path).constData(), &handle); }
    ~StoreView() { sqlite3_close(handle); }
    Q_DISABLE_COPY_MOVE(StoreView)

    bool run(const char *sql) { return sqlite3_exec(handle, sql, nullptr, nullptr, nullptr) == SQLITE_OK; }

    // Stores these bytes as they are.
    bool put(const QString &key, const QByteArray &bytes)
    {
        SqliteStatement statement(handle, "REPLACE INTO defaults(key, value) VALUES(?1, ?2)");
        return statement.bind(1, key).bind(2, bytes).step() == SQLITE_DONE;
    }

    // The bytes under a key; a null array when there are none.
    QByteArray bytes(const QString &key)
    {
        SqliteStatement statement(handle, "SELECT value FROM defaults WHERE key = ?1");
        return statement.bind(1, key).step() == SQLITE_ROW ? statement.blob(0) : QByteArray();
    }

    // The first column of every row, in their order.
    QStringList column(const char *sql)
    {
        QStringList values;
        SqliteStatement query(handle, sql);
        while (query.step() == SQLITE_ROW)
            values.append(query.text(0));
        return values;
    }
    int rows() { return int(column("SELECT key FROM defaults").size()); }
    QString integrity() { return column("PRAGMA integrity_check").join(u'\n'); }

    sqlite3 *handle = nullptr;
};
