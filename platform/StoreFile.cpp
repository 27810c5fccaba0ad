// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "platform/StoreFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <pwd.h>
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

// The folder and those above it, each for its owner alone, as far as they are missing. Another start may be making the
// same ones at the same time.
bool makeFolder(const QString &folder)
{
    const QByteArray name = QFile::encodeName(folder);
    const QString parent = QFileInfo(folder).path();
    int made = ::mkdir(name.constData(), 0700);
    if (made != 0 && errno == ENOENT && parent != folder && makeFolder(parent))
        made = ::mkdir(name.constData(), 0700);
    if (made != 0)
        return errno == EEXIST;
    syncFolder(parent);
    return true;
}

// What SQLite may put beside the store. A journal is played back into whatever lies beside it.
QStringList journals()
{
    return {QStringLiteral("-journal"), QStringLiteral("-wal"), QStringLiteral("-shm")};
}

enum class Links { Follow, Keep };

bool status(const QString &path, Links links, struct statx &found)
{
    // Without its times: a file whose times were looked at gets a new one with its next write, and a save, which has to
    // put that on the disk too, then takes a quarter longer.
    return ::statx(AT_FDCWD, QFile::encodeName(path).constData(), links == Links::Follow ? 0 : AT_SYMLINK_NOFOLLOW,
               STATX_TYPE | STATX_MODE | STATX_UID | STATX_INO | STATX_SIZE, &found)
        == 0;
}

bool isTaken(const QString &path)
{
    struct statx found { };
    return status(path, Links::Keep, found);
}

// SQLite would open a pipe and wait for somebody to write into it.
bool hasStrangeJournal(const QString &path)
{
    struct statx found { };
    const bool islink = status(path, Links::Keep, found) && S_ISLNK(found.stx_mode);
    const QString file = islink ? QFileInfo(path).canonicalFilePath() : path; // SQLite looks beside the file itself
    const QStringList parts = journals();
    return !file.isEmpty() && std::any_of(parts.begin(), parts.end(), [&](const QString &part) {
        return status(file + part, Links::Keep, found) && !S_ISREG(found.stx_mode);
    });
}

// Leaves no more of its mode than this, which is for the owner alone.
void narrow(const QString &path, const struct statx &found, mode_t most)
{
    if (found.stx_uid == ::geteuid() && (found.stx_mode & 0777 & ~most) != 0)
        ::chmod(QFile::encodeName(path).constData(), found.stx_mode & most);
}

void narrowFolder(const QString &path)
{
    struct statx found { };
    if (QFileInfo(path).fileName() == QLatin1String("provender") && status(path, Links::Keep, found)
        && S_ISDIR(found.stx_mode))
        narrow(path, found, 0700);
}

// Never replaces and never copies: a copy would have another mode and take the disk's room. False where the file system
// can neither rename so nor link.
bool move(const QString &from, const QString &to)
{
    const QByteArray former = QFile::encodeName(from);
    const QByteArray name = QFile::encodeName(to);
    if (::renameat2(AT_FDCWD, former.constData(), AT_FDCWD, name.constData(), RENAME_NOREPLACE) == 0)
        return true;
    if ((errno != EINVAL && errno != ENOSYS) || ::link(former.constData(), name.constData()) != 0)
        return false;
    if (::unlink(former.constData()) == 0)
        return true;
    ::unlink(name.constData()); // GCOVR_EXCL_LINE: only in a folder that takes a name and gives none away
    return false; // GCOVR_EXCL_LINE: as above
}

// The absolute path in these bytes, or nothing: a text that does not lead back to them would name another folder.
QString absolutePath(const QByteArray &bytes)
{
    const QString path = QFile::decodeName(bytes);
    return bytes.startsWith('/') && QFile::encodeName(path) == bytes ? path : QString();
}

QString homeFolder()
{
    QString home = absolutePath(qgetenv("HOME"));
    if (!home.isEmpty())
        return home;
    const passwd *person = ::getpwuid(::getuid());
    home = person != nullptr ? absolutePath(person->pw_dir) : QString();
    return home.isEmpty() ? QStringLiteral("/") : home;
}

} // namespace

QString StoreFile::standardPath()
{
    QString folder = absolutePath(qgetenv("XDG_DATA_HOME"));
    if (folder.isEmpty())
        folder = QDir(homeFolder()).filePath(QStringLiteral(".local/share"));
    return folder + QStringLiteral("/provender/preferences.sqlite");
}

StoreFile::Look StoreFile::look(const QString &path)
{
    struct statx found { };
    const bool isthere = status(path, Links::Follow, found);
    if ((!isthere && errno != ENOENT) || hasStrangeJournal(path))
        return {};
    if (!isthere)
        return {Look::Kind::Missing, 0, {}};
    return {S_ISREG(found.stx_mode) ? Look::Kind::Regular : Look::Kind::Other, qint64(found.stx_size),
        {found.stx_dev_major, found.stx_dev_minor, found.stx_ino}};
}

void StoreFile::makePrivate(const QString &path)
{
    struct statx found { };
    if (status(path, Links::Follow, found) && S_ISREG(found.stx_mode))
        narrow(path, found, 0600);
    narrowFolder(QFileInfo(path).path());
}

int StoreFile::openFolder(const QString &path)
{
    const auto open
        = [&path] { return ::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); };
    int folder = open();
    if (folder < 0 && errno == ENOENT && makeFolder(path))
        folder = open();
    if (folder >= 0)
        narrowFolder(path);
    return folder;
}

bool StoreFile::remove(const QString &path)
{
    // SQLite takes a journal without its file for a stale one; the other way round it would be played back.
    if (!QFile::remove(path))
        return false;
    QFile::remove(path + QStringLiteral("-journal"));
    syncFolder(QFileInfo(path).path());
    return true;
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
    // The journals come before the store: they would be played back into the next one of this name.
    const QStringList parts = journals() << QString();
    const auto isAnyTaken = [&parts](const QString &name) {
        return std::any_of(parts.begin(), parts.end(), [&name](const QString &part) { return isTaken(name + part); });
    };
    QString aside = path + QStringLiteral(".unusable");
    for (int number = 2; isAnyTaken(aside); ++number)
        aside = path + QStringLiteral(".unusable-%1").arg(number);
    QStringList moved;
    for (const QString &part : parts) {
        if (!isTaken(path + part))
            continue;
        if (!move(path + part, aside + part)) {
            for (const QString &journal : qAsConst(moved)) // which belong to the store, where it stays
                static_cast<void>(move(aside + journal, path + journal)); // GCOVR_EXCL_LINE: where it alone stays
            return false;
        }
        moved.append(part);
    }
    syncFolder(QFileInfo(path).absolutePath());
    return true;
}
