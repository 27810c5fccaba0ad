// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

#include <functional>

struct sqlite3;

// What a store file holds, read whole into memory, for those who only want to look: the file may belong to a running
// program, which keeps it locked as long as it lives. So no lock is asked for and nothing beside the file is made. What
// was read counts only if the file did not change meanwhile and no save was going on; else it is read again, for a
// second at the most.
class StoreCopy final {
public:
    StoreCopy() = default;
    ~StoreCopy();
    Q_DISABLE_COPY_MOVE(StoreCopy)

    enum class Result {
        Read,
        Missing,
        Unreadable, // not allowed, no regular file, larger than memory, or an error of the disk
        Unfinished, // with a journal of a save that did not end, or changing all the time
        Unusable // no database, a damaged one, or one of another version
    };
    [[nodiscard]] Result read(const QString &path);
    // Whether another program had the file open when it was read.
    [[nodiscard]] bool isInUse() const { return inuse; }

    // Hands over every key between two, both included, with its value, in the order of the keys' bytes; nothing before
    // a store was read. False when these were not all.
    using Row = std::function<void(const QString &key, const QByteArray &value)>;
    bool scan(const QString &first, const QString &last, const Row &row) const;

private:
    Result attempt(const QByteArray &path);
    [[nodiscard]] Result examine();
    void close();

    sqlite3 *database = nullptr;
    bool hastable = false;
    bool inuse = false;
};
