// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "tests/support/KillingVfs.h"

#include "tests/support/VfsLayer.h"

#include <algorithm>
#include <csignal>
#include <cstring>
#include <string_view>

#include <sqlite3.h>

namespace {

using VfsLayer::onDisk;

Progress *told = nullptr;
int fatal = 0;
KillingVfs::When moment = KillingVfs::When::Before;
sqlite3_vfs *disk = nullptr;

// The layer's part of SQLite's file object.
struct WatchedFile {
    sqlite3_file base;
    bool isjournal;
};

static_assert(sizeof(WatchedFile) <= VfsLayer::ownSize);

bool isJournal(sqlite3_file *file)
{
    return reinterpret_cast<WatchedFile *>(file)->isjournal;
}

bool isSaving()
{
    return told->phase == Progress::Saving;
}

[[noreturn]] void die()
{
    while (true)
        std::raise(SIGKILL);
}

// Runs an operation of a save, with its half if it has one, unless the process dies of it.
template <typename Whole, typename Half>
int operate(Whole whole, Half half)
{
    if (!isSaving())
        return whole();
    const bool isfatal = ++told->operations == fatal;
    if (isfatal && moment == KillingVfs::When::Before)
        die();
    if (isfatal && moment == KillingVfs::When::Halfway) {
        half();
        die();
    }
    const int result = whole();
    if (isfatal)
        die();
    return result;
}

template <typename Whole>
int operate(Whole whole)
{
    return operate(whole, [] {});
}

void journalIsVoid()
{
    if (!isSaving())
        return;
    ++told->finished;
    told->phase = Progress::Between;
}

int closeFile(sqlite3_file *file)
{
    return onDisk(file)->pMethods->xClose(onDisk(file));
}

int readFile(sqlite3_file *file, void *bytes, int size, sqlite3_int64 offset)
{
    return onDisk(file)->pMethods->xRead(onDisk(file), bytes, size, offset);
}

int writeFile(sqlite3_file *file, const void *bytes, int size, sqlite3_int64 offset)
{
    const auto *begin = static_cast<const char *>(bytes);
    const bool isvoid
        = isJournal(file) && offset == 0 && std::all_of(begin, begin + size, [](char c) { return c == 0; });
    if (isJournal(file) && !isvoid && !isSaving()) {
        ++told->begun;
        told->phase = Progress::Saving;
    }
    const auto write = [&](int length) { return onDisk(file)->pMethods->xWrite(onDisk(file), bytes, length, offset); };
    return operate(
        [&] {
            const int result = write(size);
            if (isvoid && result == SQLITE_OK)
                journalIsVoid();
            return result;
        },
        [&] { write(size / 2); });
}

int truncateFile(sqlite3_file *file, sqlite3_int64 size)
{
    return operate([&] {
        const int result = onDisk(file)->pMethods->xTruncate(onDisk(file), size);
        if (isJournal(file) && size == 0 && result == SQLITE_OK)
            journalIsVoid();
        return result;
    });
}

int syncFile(sqlite3_file * /*file*/, int /*flags*/)
{
    return operate([] { return SQLITE_OK; }); // what was written outlives the process without the disk
}

int fileSize(sqlite3_file *file, sqlite3_int64 *size)
{
    return onDisk(file)->pMethods->xFileSize(onDisk(file), size);
}

int lockFile(sqlite3_file *file, int level)
{
    return onDisk(file)->pMethods->xLock(onDisk(file), level);
}

const sqlite3_io_methods methods = {1, closeFile, readFile, writeFile, truncateFile, syncFile, fileSize, lockFile,
    VfsLayer::unlockFile, VfsLayer::checkReservedLock, VfsLayer::fileControl, VfsLayer::sectorSize,
    VfsLayer::deviceCharacteristics, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr};

int openFile(sqlite3_vfs * /*vfs*/, const char *name, sqlite3_file *file, int flags, int *outflags)
{
    file->pMethods = nullptr;
    const int result = disk->xOpen(disk, name, onDisk(file), flags, outflags);
    if (result == SQLITE_OK)
        *reinterpret_cast<WatchedFile *>(file) = {{&methods}, (flags & SQLITE_OPEN_MAIN_JOURNAL) != 0};
    return result;
}

int deleteFile(sqlite3_vfs * /*vfs*/, const char *name, int /*syncfolder*/)
{
    return operate([&] {
        const int result = disk->xDelete(disk, name, 0);
        if (std::string_view(name).ends_with("-journal") && result == SQLITE_OK)
            journalIsVoid();
        return result;
    });
}

} // namespace

void KillingVfs::install(Progress &progress, int operation, When when)
{
    told = &progress;
    fatal = operation;
    moment = when;
    disk = sqlite3_vfs_find(nullptr);
    static sqlite3_vfs layer = *disk;
    layer.zName = "killing";
    layer.szOsFile = VfsLayer::ownSize + disk->szOsFile;
    layer.xOpen = openFile;
    layer.xDelete = deleteFile;
    sqlite3_vfs_register(&layer, 1);
}
