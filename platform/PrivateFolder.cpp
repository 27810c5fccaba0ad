// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "platform/PrivateFolder.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

int openFolder(const QString &path)
{
    return ::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
}

// Another start may be making the same folders at the same time.
bool makeFolder(const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    const QString parent = QFileInfo(path).path();
    int made = ::mkdir(name.constData(), 0700);
    if (made != 0 && errno == ENOENT && parent != path && makeFolder(parent))
        made = ::mkdir(name.constData(), 0700);
    if (made != 0)
        return errno == EEXIST;
    if (const int handle = openFolder(parent); handle >= 0) {
        ::fsync(handle);
        ::close(handle);
    }
    return true;
}

} // namespace

int openPrivateFolder(const QString &path)
{
    int folder = openFolder(path);
    if (folder < 0 && errno == ENOENT && makeFolder(path))
        folder = openFolder(path);
    struct stat status = {};
    if (folder >= 0 && ::fstat(folder, &status) == 0 && status.st_uid == ::getuid() && (status.st_mode & 077U) != 0)
        ::fchmod(folder, 0700);
    return folder;
}
