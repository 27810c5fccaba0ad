// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <sqlite3.h>

// What a layer above SQLite's own disk leaves to it. A file object holds the layer's part and after it, in the same
// memory, the disk's.
namespace VfsLayer {

constexpr int ownSize = 64; // at most; aligned for whatever the disk keeps after it

inline sqlite3_file *onDisk(sqlite3_file *file)
{
    return reinterpret_cast<sqlite3_file *>(reinterpret_cast<char *>(file) + ownSize);
}

inline int unlockFile(sqlite3_file *file, int level)
{
    return onDisk(file)->pMethods->xUnlock(onDisk(file), level);
}

inline int checkReservedLock(sqlite3_file *file, int *islocked)
{
    return onDisk(file)->pMethods->xCheckReservedLock(onDisk(file), islocked);
}

inline int fileControl(sqlite3_file *file, int operation, void *argument)
{
    return onDisk(file)->pMethods->xFileControl(onDisk(file), operation, argument);
}

inline int sectorSize(sqlite3_file *file)
{
    return onDisk(file)->pMethods->xSectorSize(onDisk(file));
}

inline int deviceCharacteristics(sqlite3_file *file)
{
    return onDisk(file)->pMethods->xDeviceCharacteristics(onDisk(file));
}

} // namespace VfsLayer
