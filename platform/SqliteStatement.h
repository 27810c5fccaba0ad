// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

struct sqlite3;
struct sqlite3_stmt;

// One prepared statement, finalised with this object. It must not outlive its database connection.
class SqliteStatement final {
public:
    // A statement that does not compile says so at step().
    SqliteStatement(sqlite3 *database, const char *sql);
    ~SqliteStatement();
    Q_DISABLE_COPY_MOVE(SqliteStatement)

    // Places count from 1. An empty text or blob is bound as such, never as NULL.
    SqliteStatement &bind(int place, const QString &text);
    SqliteStatement &bind(int place, const QByteArray &blob);

    // SQLITE_ROW, SQLITE_DONE, or the primary code of the error.
    [[nodiscard]] int step();

    // Lets go of the row, and so of its transaction, for another use with other values.
    void rewind();

    // Of the row that step() reached; columns count from 0.
    [[nodiscard]] QByteArray blob(int column) const;
    [[nodiscard]] QString text(int column) const;
    [[nodiscard]] qint64 integer(int column) const;

private:
    sqlite3_stmt *statement = nullptr;
    int result;
};
