// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "platform/SqliteStatement.h"

#include <sqlite3.h>

namespace {

// The low byte of a result; the rest refines it.
constexpr int primaryCode(int result)
{
    return result & 0xff;
}

} // namespace

SqliteStatement::SqliteStatement(sqlite3 *database, const char *sql)
    : result(primaryCode(sqlite3_prepare_v2(database, sql, -1, &statement, nullptr)))
{ }

SqliteStatement::~SqliteStatement()
{
    sqlite3_finalize(statement);
}

SqliteStatement &SqliteStatement::bind(int place, const QString &text)
{
    const QByteArray utf8 = text.toUtf8();
    if (result == SQLITE_OK)
        result = primaryCode(sqlite3_bind_text64(statement, place, utf8.constData(),
            static_cast<sqlite3_uint64>(utf8.size()), SQLITE_TRANSIENT, SQLITE_UTF8));
    return *this;
}

SqliteStatement &SqliteStatement::bind(int place, const QByteArray &blob)
{
    if (result == SQLITE_OK)
        result = primaryCode(sqlite3_bind_blob64(
            statement, place, blob.constData(), static_cast<sqlite3_uint64>(blob.size()), SQLITE_TRANSIENT));
    return *this;
}

int SqliteStatement::step()
{
    return result == SQLITE_OK ? primaryCode(sqlite3_step(statement)) : result;
}

void SqliteStatement::rewind()
{
    sqlite3_reset(statement);
}

QByteArray SqliteStatement::blob(int column) const
{
    const void *bytes = sqlite3_column_blob(statement, column);
    return {static_cast<const char *>(bytes), sqlite3_column_bytes(statement, column)};
}

QString SqliteStatement::text(int column) const
{
    const QByteArray utf8 = blob(column);
    return QString::fromUtf8(utf8);
}

qint64 SqliteStatement::integer(int column) const
{
    return sqlite3_column_int64(statement, column);
}
