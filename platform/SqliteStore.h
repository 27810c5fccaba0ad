// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/SqliteStatement.h"
#include "platform/StoreFile.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QStringList>

#include <functional>
#include <optional>

struct sqlite3;

// Keys and byte values in one SQLite file, "defaults(key, value)": a key is looked up and replaced in the same time
// however long the history is, and every write is a transaction that is on the disk, and was read back from there, when
// write() returns.
//
// The file is opened at the first read or write and belongs to this process until the object goes (exclusive locking).
// Opening writes nothing. A missing file, with its folders, is created by the first write.
//
// A file that is surely not usable (no database, damaged by the verdict of an integrity check, of a newer version or
// format, with another program's table, or one that can be read and never written) is renamed to "<path>.unusable" or
// the first free "<path>.unusable-<n>", its journal with it, and counts as missing from then on; what was to be written
// goes to a new one. Every other trouble leaves it where it is and is tried again later: a
// lock, a full disk, an input or output error, a permission, want of memory.
class SqliteStore final {
public:
    explicit SqliteStore(const QString &path);
    ~SqliteStore();
    Q_DISABLE_COPY_MOVE(SqliteStore)

    enum class Answer { Found, Absent, Unavailable };
    struct Value {
        Answer answer = Answer::Unavailable;
        QByteArray bytes;
    };
    // What a write does to one key.
    struct Change {
        QByteArray value;
        QList<QByteArray> copies; // kept first, each under the first name of copyName() that is free or holds the same
    };
    // Decides a key's change from the bytes that the transaction finds stored under it; nothing when there are none. A
    // write that is tried again asks again.
    using Decision = std::function<Change(const QString &key, const std::optional<QByteArray> &stored)>;

    // Unavailable means that nobody can tell now whether there is a value.
    [[nodiscard]] Value read(const QString &key);
    // Changes all of the keys or none; false when none was changed.
    [[nodiscard]] bool write(const QStringList &keys, const Decision &decide);
    // In the order of their bytes; nothing when nobody can tell now.
    [[nodiscard]] std::optional<QStringList> keys();
    // Hands over every key between two, both included, with its value, in the order of the keys' bytes and in one
    // query. False when nobody can tell whether these were all. Whoever takes a row leaves the store alone meanwhile.
    using Row = std::function<void(const QString &key, const QByteArray &value)>;
    bool scan(const QString &first, const QString &last, const Row &row);
    // Moves the file, if there is one, out of the way as one that is not usable; false when it could not be moved.
    bool setAside();

    // Where the copies of a key's values are kept, counted from 1: "<key>.unread", "<key>.unread.2" and so on.
    [[nodiscard]] static QString copyName(const QString &key, int number);

private:
    enum class State { Ready, Missing, Unavailable };

    State open();
    int examine();
    [[nodiscard]] bool isReplaced() const;
    void close();
    [[nodiscard]] bool isUnusable(int result);

    Answer ask(const std::function<int()> &question);
    [[nodiscard]] bool isRefusal(int result, bool isnew);

    int commit(const QStringList &keys, const Decision &decide);
    int apply(const QStringList &keys, const Decision &decide);
    int readBack();
    int keepCopy(const QString &key, const QByteArray &value);
    int get(const QString &key, std::optional<QByteArray> &value);
    int put(const QString &key, const QByteArray &value);
    int execute(const char *sql);

    QString path;
    sqlite3 *database = nullptr;
    bool hastable = false; // of the open database
    std::optional<SqliteStatement> valuestatement; // for a value; a save asks for each twice
    StoreFile::Identity identity; // the file that is open, whatever its name
    QHash<QString, QByteArray> written; // by the last transaction
    bool haswaited = false; // a read that met a lock waited for it once
};
