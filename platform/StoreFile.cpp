// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "platform/StoreFile.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

void syncFolder(const QString &folder)
{
    const int handle = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle >= 0) {
        ::fsync(handle); // a file system that cannot do it has no better way either
        ::close(handle);
    }
}

// The folder and those above it, each for its owner alone, as far as they are missing.
bool makeFolder(const QString &folder)
{
    const QByteArray name = QFile::encodeName(folder);
    const QString parent = QFileInfo(folder).path();
    if (::mkdir(name.constData(), 0700) != 0) {
        if (errno == EEXIST)
            return true;
        if (errno != ENOENT || parent == folder || !makeFolder(parent) || ::mkdir(name.constData(), 0700) != 0)
            return false;
    }
    syncFolder(parent);
    return true;
}

} // namespace

StoreFile::Look StoreFile::look(const QString &path)
{
    // Without its times: a file whose times were looked at gets a new one with its next write, and a save, which has to
    // put that on the disk too, then takes a quarter longer.
    struct statx status { };
    if (::statx(AT_FDCWD, QFile::encodeName(path).constData(), 0, STATX_TYPE | STATX_INO | STATX_SIZE, &status) != 0)
        return {errno == ENOENT ? Look::Kind::Missing : Look::Kind::Other, 0, {}};
    return {S_ISREG(status.stx_mode) ? Look::Kind::Regular : Look::Kind::Other, qint64(status.stx_size),
        {status.stx_dev_major, status.stx_dev_minor, status.stx_ino}};
}

bool StoreFile::create(const QString &path)
{
    const QString folder = QFileInfo(path).absolutePath();
    if (!makeFolder(folder))
        return false;
    // SQLite would let everybody read the file. The journal takes the file's mode.
    const int file = ::open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (file < 0)
        return false;
    ::close(file);
    syncFolder(folder);
    return true;
}

bool StoreFile::setAside(const QString &path)
{
    // The journal comes before the store: it would be played back into the next one of this name.
    const QStringList parts = {QStringLiteral("-journal"), QStringLiteral("-wal"), QStringLiteral("-shm"), QString()};
    const auto isTaken = [&parts](const QString &name) {
        return std::any_of(parts.begin(), parts.end(), [&name](const QString &part) {
            return QFileInfo(name + part).isSymLink() || QFileInfo::exists(name + part);
        });
    };
    QString aside = path + QStringLiteral(".unusable");
    for (int number = 2; isTaken(aside); ++number)
        aside = path + QStringLiteral(".unusable-%1").arg(number);
    for (const QString &part : parts) {
        if (QFileInfo::exists(path + part) && !QFile::rename(path + part, aside + part))
            return false;
    }
    syncFolder(QFileInfo(path).absolutePath());
    return true;
}
