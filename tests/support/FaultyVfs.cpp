// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "tests/support/FaultyVfs.h"

#include "tests/support/VfsLayer.h"

#include <QFile>

#include <sqlite3.h>

#include <new>

namespace {

using VfsLayer::onDisk;

sqlite3_vfs *diskVfs()
{
    static sqlite3_vfs *disk = sqlite3_vfs_find("unix");
    return disk;
}

// The layer's part of SQLite's file object.
struct LayeredFile {
    sqlite3_file base;
    FaultyVfs *layer;
    QString *path;
};

static_assert(sizeof(LayeredFile) <= VfsLayer::ownSize);

LayeredFile *layered(sqlite3_file *file)
{
    return reinterpret_cast<LayeredFile *>(file);
}

int closeFile(sqlite3_file *file)
{
    delete layered(file)->path;
    return onDisk(file)->pMethods->xClose(onDisk(file));
}

int readFile(sqlite3_file *file, void *bytes, int size, sqlite3_int64 offset)
{
    if (const int error = layered(file)->layer->strike(FaultyVfs::Operation::Read); error != SQLITE_OK)
        return error;
    return onDisk(file)->pMethods->xRead(onDisk(file), bytes, size, offset);
}

int writeFile(sqlite3_file *file, const void *bytes, int size, sqlite3_int64 offset)
{
    if (const int error = layered(file)->layer->strike(FaultyVfs::Operation::Write); error != SQLITE_OK) {
        if (!layered(file)->layer->losesWrites())
            return error;
        if (offset > 0)
            return SQLITE_OK;
    }
    layered(file)->layer->written(*layered(file)->path, offset, QByteArray(static_cast<const char *>(bytes), size));
    return onDisk(file)->pMethods->xWrite(onDisk(file), bytes, size, offset);
}

int truncateFile(sqlite3_file *file, sqlite3_int64 size)
{
    if (const int error = layered(file)->layer->strike(FaultyVfs::Operation::Truncate); error != SQLITE_OK)
        return error;
    layered(file)->layer->truncated(*layered(file)->path, size);
    return onDisk(file)->pMethods->xTruncate(onDisk(file), size);
}

int syncFile(sqlite3_file *file, int /*flags*/)
{
    if (const int error = layered(file)->layer->strike(FaultyVfs::Operation::Sync); error != SQLITE_OK)
        return error;
    layered(file)->layer->synced(*layered(file)->path);
    return SQLITE_OK; // the real disk need not be waited for
}

int fileSize(sqlite3_file *file, sqlite3_int64 *size)
{
    if (const int error = layered(file)->layer->strike(FaultyVfs::Operation::Look); error != SQLITE_OK)
        return error;
    return onDisk(file)->pMethods->xFileSize(onDisk(file), size);
}

int lockFile(sqlite3_file *file, int level)
{
    if (const int error = layered(file)->layer->strike(FaultyVfs::Operation::Look); error != SQLITE_OK)
        return error;
    return onDisk(file)->pMethods->xLock(onDisk(file), level);
}

const sqlite3_io_methods methods = {1, closeFile, readFile, writeFile, truncateFile, syncFile, fileSize, lockFile,
    VfsLayer::unlockFile, VfsLayer::checkReservedLock, VfsLayer::fileControl, VfsLayer::sectorSize,
    VfsLayer::deviceCharacteristics, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr};

FaultyVfs *layerOf(sqlite3_vfs *vfs)
{
    return static_cast<FaultyVfs *>(vfs->pAppData);
}

int openFile(sqlite3_vfs *vfs, const char *name, sqlite3_file *file, int flags, int *outflags)
{
    file->pMethods = nullptr;
    if (const int error = layerOf(vfs)->strike(FaultyVfs::Operation::Open); error != SQLITE_OK)
        return error;
    const QString path = QFile::decodeName(name);
    const bool created = !QFile::exists(path);
    const int result = diskVfs()->xOpen(diskVfs(), name, onDisk(file), flags, outflags);
    if (result != SQLITE_OK)
        return result;
    auto *own = new (file) LayeredFile{{&methods}, layerOf(vfs), new QString(path)};
    own->layer->opened(path, created);
    return SQLITE_OK;
}

int deleteFile(sqlite3_vfs *vfs, const char *name, int syncfolder)
{
    if (const int error = layerOf(vfs)->strike(FaultyVfs::Operation::Delete); error != SQLITE_OK)
        return error;
    layerOf(vfs)->removed(QFile::decodeName(name), syncfolder != 0);
    return diskVfs()->xDelete(diskVfs(), name, 0);
}

int accessFile(sqlite3_vfs *vfs, const char *name, int flags, int *result)
{
    if (const int error = layerOf(vfs)->strike(FaultyVfs::Operation::Look); error != SQLITE_OK)
        return error;
    return diskVfs()->xAccess(diskVfs(), name, flags, result);
}

} // namespace

FaultyVfs::FaultyVfs()
    : vfs(std::make_unique<sqlite3_vfs>(*diskVfs()))
{
    vfs->iVersion = 1;
    vfs->szOsFile = VfsLayer::ownSize + diskVfs()->szOsFile;
    vfs->pNext = nullptr;
    vfs->zName = "faulty";
    vfs->pAppData = this;
    vfs->xOpen = openFile;
    vfs->xDelete = deleteFile;
    vfs->xAccess = accessFile;
    sqlite3_vfs_register(vfs.get(), 1);
}

FaultyVfs::~FaultyVfs()
{
    sqlite3_vfs_unregister(vfs.get());
    sqlite3_vfs_register(diskVfs(), 1);
}

void FaultyVfs::arm(Fault newfault, int operation, bool lasting, Count newcount)
{
    fault = newfault;
    count = newcount;
    target = operation;
    islasting = lasting || newfault == Fault::PowerCut;
    counted = 0;
    struck = false;
}

void FaultyVfs::disarm()
{
    target = 0;
}

int FaultyVfs::strike(Operation operation)
{
    if (target == 0 || (losesWrites() && operation != Operation::Write))
        return SQLITE_OK;
    const bool iswriting = operation == Operation::Write || operation == Operation::Truncate
        || operation == Operation::Sync || operation == Operation::Delete;
    const bool isoff = struck && fault == Fault::PowerCut; // then nothing works any more
    if (!isoff) {
        if (!iswriting && count == Count::Writing)
            return SQLITE_OK;
        ++counted;
        if (counted < target || (counted > target && !islasting))
            return SQLITE_OK;
        struck = true;
    }
    switch (operation) {
    case Operation::Open:
        return SQLITE_CANTOPEN;
    case Operation::Read:
        return SQLITE_IOERR_READ;
    case Operation::Write:
        return fault == Fault::DiskFull ? SQLITE_FULL : SQLITE_IOERR_WRITE;
    case Operation::Truncate:
        return SQLITE_IOERR_TRUNCATE;
    case Operation::Sync:
        return SQLITE_IOERR_FSYNC;
    case Operation::Delete:
        return SQLITE_IOERR_DELETE;
    case Operation::Look:
        break;
    }
    return SQLITE_IOERR;
}

void FaultyVfs::opened(const QString &path, bool created)
{
    const auto known = files.find(path);
    if (known != files.end() && known->exists)
        return;
    File file;
    if (known != files.end())
        file = *known; // its removal may not last
    else if (!created) {
        QFile disk(path);
        file.isdurable = disk.open(QIODevice::ReadOnly);
        file.durable = disk.readAll();
    }
    file.exists = true;
    file.unsynced.clear();
    files.insert(path, file);
}

void FaultyVfs::written(const QString &path, qint64 offset, const QByteArray &bytes)
{
    files[path].unsynced.append({offset, bytes, false});
}

void FaultyVfs::truncated(const QString &path, qint64 size)
{
    files[path].unsynced.append({size, {}, true});
}

// The disk's layer syncs the folder with a new journal, so the name is durable as well.
void FaultyVfs::synced(const QString &path)
{
    File &file = files[path];
    QFile disk(path);
    file.isdurable = disk.open(QIODevice::ReadOnly);
    file.durable = disk.readAll();
    file.unsynced.clear();
}

void FaultyVfs::removed(const QString &path, bool foldersynced)
{
    if (foldersynced) {
        files.remove(path);
        return;
    }
    File &file = files[path];
    file.exists = false;
    file.unsynced.clear();
}

void FaultyVfs::putBack(const QString &path, const File &file, Survivors survivors, QRandomGenerator &random) const
{
    constexpr qsizetype sector = 512;
    const auto survives
        = [&] { return survivors == Survivors::All || (survivors == Survivors::Some && random.bounded(2) == 0); };
    if ((!file.isdurable && !survives()) || (!file.exists && survives())) {
        QFile::remove(path);
        return;
    }
    QByteArray bytes = file.durable;
    for (const Change &change : file.unsynced) {
        if (change.istruncation) {
            if (survives())
                bytes.truncate(change.offset);
            continue;
        }
        for (qsizetype from = 0; from < change.bytes.size(); from += sector) {
            if (!survives())
                continue;
            const QByteArray piece = change.bytes.mid(from, sector);
            const qsizetype at = change.offset + from;
            if (bytes.size() < at + piece.size())
                bytes.append(at + piece.size() - bytes.size(), '\0');
            bytes.replace(at, piece.size(), piece);
        }
    }
    QFile disk(path);
    if (!disk.open(QIODevice::WriteOnly) || disk.write(bytes) != bytes.size())
        qFatal("the disk's contents cannot be put back");
}

void FaultyVfs::restart(Survivors survivors, quint32 seed)
{
    QRandomGenerator random(seed);
    for (auto file = files.constBegin(); file != files.constEnd(); ++file)
        putBack(file.key(), *file, survivors, random);
    files.clear();
    disarm();
}
