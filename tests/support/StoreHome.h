// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/SqliteStatement.h"
#include "platform/UserDefaults.h"

#include <QtTest>

#include <memory>
#include <sqlite3.h>

// What the tests of the store share: a home of their own with a store's folder in it, and another program's view of
// the file.

inline const QString day = QStringLiteral("2015_05_11");
inline const QString rdas = QStringLiteral("RDAs");

// A connection of another program to the store.
class Connection final {
public:
    explicit Connection(const QString &path) { sqlite3_open(path.toUtf8().constData(), &handle); }
    ~Connection() { sqlite3_close(handle); }
    Q_DISABLE_COPY_MOVE(Connection)

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

    int rows()
    {
        SqliteStatement statement(handle, "SELECT count(*) FROM defaults");
        return statement.step() == SQLITE_ROW ? int(statement.integer(0)) : -1;
    }

    sqlite3 *handle = nullptr;
};

inline QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

inline void writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

inline QVariant number(int value)
{
    return QVariant(qint64(value));
}

// A new home for each test.
struct StoreHome {
    QTemporaryDir home;
    QString folder = home.filePath(QStringLiteral("provender"));
    QString path = folder + QStringLiteral("/preferences.sqlite");

    StoreHome() { QDir().mkdir(folder); }

    [[nodiscard]] QVariant stored(const QString &key) const { return UserDefaults(path).objectForKey(key); }
    [[nodiscard]] QString aside(const char *tail = "") const
    {
        return path + QStringLiteral(".unusable") + QLatin1String(tail);
    }
    [[nodiscard]] QStringList files() const
    {
        return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot | QDir::System);
    }
};
