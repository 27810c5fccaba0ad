// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/StoreFile.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>

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
    struct Change {
        QString key;
        QByteArray value;
        // Copies the stored value, if there is one, to "<key>.unread" first ("<key>.unread.2" when that is taken by
        // other bytes, and so on).
        bool keepformer = false;
    };

    // Unavailable means that nobody can tell now whether there is a value.
    [[nodiscard]] Value read(const QString &key);
    // All of the changes or none; false when none was made.
    [[nodiscard]] bool write(const QList<Change> &changes);

private:
    enum class State { Ready, Missing, Unavailable };

    State open();
    int examine();
    [[nodiscard]] bool isReplaced() const;
    void close();
    [[nodiscard]] bool isUnusable(int result);
    bool setAside();

    [[nodiscard]] bool isRefusal(int result, bool isnew);

    int commit(const QList<Change> &changes);
    int apply(const QList<Change> &changes);
    int readBack();
    int keepFormer(const QString &key);
    int put(const QString &key, const QByteArray &value);
    int execute(const char *sql);

    QString path;
    sqlite3 *database = nullptr;
    bool hastable = false; // of the open database
    StoreFile::Identity identity; // the file that is open, whatever its name
    QHash<QString, QByteArray> written; // by the last transaction
    bool haswaited = false; // a read that met a lock waited for it once
};
