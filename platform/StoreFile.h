// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

// The store's file as its folder sees it: found, made and moved out of the way, whatever database is in it. Apart from
// SqliteStore because none of it needs SQLite. Never opens a file that is there: closing any handle of a file takes
// away the locks that the process holds on it, SQLite's too.
namespace StoreFile {

// A file, by whatever name.
struct Identity {
    quint32 major = 0;
    quint32 minor = 0;
    quint64 inode = 0;
    bool operator==(const Identity &) const = default;
};

struct Look {
    enum class Kind { Missing, Regular, Other };
    Kind kind = Kind::Other; // also when nobody can tell, or when a journal beside it is no regular file
    qint64 size = 0;
    Identity identity;
};

// provender/preferences.sqlite in the user's data folder: $XDG_DATA_HOME, else ~/.local/share, where ~ is $HOME, else
// the password file's home folder. A variable that is no absolute path, or no text, counts as unset.
[[nodiscard]] QString standardPath();

// What the path leads to.
[[nodiscard]] Look look(const QString &path);

// Takes the file, and the folder it is in when that is our own, away from everybody but their owner, if that is the
// user. What links lead to is not our folder.
void makePrivate(const QString &path);

// Opens a folder, made when it is missing, with those above it, each for its owner alone. One of our own that is open
// to others is closed to them, unless only a link leads there. The caller closes the descriptor; -1 when there is none
// and none can be made. What was made is on the disk by then.
[[nodiscard]] int openFolder(const QString &path);

// Removes the file and its journal, for good when it returns. False when the file is still there.
bool remove(const QString &path);

// An empty file for its owner alone, with the folders that are missing, on the disk; false when that cannot be. A file
// that is there stays as it is.
[[nodiscard]] bool create(const QString &path);

// Renames the file to "<path>.unusable" or the first free "<path>.unusable-<n>", its journals with it; nothing is ever
// replaced or copied. False when it is still in its place.
[[nodiscard]] bool setAside(const QString &path);

} // namespace StoreFile
