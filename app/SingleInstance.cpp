// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "app/SingleInstance.h"

#include "platform/StoreFile.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QFileInfo>
#include <QSocketNotifier>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <utility>

namespace {

constexpr int patience = 2000; // milliseconds that a second start waits for the first to answer
constexpr int interval = 10; // and between two looks at one that is just starting or ending
constexpr const char *socketname = "instance.socket";

// Through the open folder, whose own path may be too long for an address.
struct Address {
    sockaddr_un socket = {};

    explicit Address(int folder)
    {
        socket.sun_family = AF_UNIX;
        std::snprintf(socket.sun_path, sizeof socket.sun_path, "/proc/self/fd/%d/%s", folder, socketname);
    }
    [[nodiscard]] const sockaddr *get() const { return reinterpret_cast<const sockaddr *>(&socket); }
};

// Whom the folder belongs to, who we are, and who may do everything anyway.
bool isTrusted(uid_t user, int folder)
{
    struct stat status = {};
    return user == ::getuid() || user == 0 || (::fstat(folder, &status) == 0 && user == status.st_uid);
}

// Not the owner of its folder below /proc, which may be root for anybody's.
bool isOurs(const QByteArray &process, int folder)
{
    QFile status(QStringLiteral("/proc/%1/status").arg(QString::fromLatin1(process)));
    if (!status.open(QIODevice::ReadOnly))
        return false;
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith("Uid:"))
            return isTrusted(line.simplified().split(' ').value(1).toUInt(), folder);
    }
    return false; // GCOVR_EXCL_LINE: only when it has just ended
}

// Whether a process of ours holds the folder's lock, and not one of a stranger who opened the folder while it was open
// to others.
bool isLockedByUs(int folder)
{
    struct stat status = {};
    QFile locks(QStringLiteral("/proc/locks"));
    if (::fstat(folder, &status) != 0 || !locks.open(QIODevice::ReadOnly))
        return true; // GCOVR_EXCL_LINE: only without /proc
    // By the inode alone: the device is not the one that fstat tells on every file system.
    const QByteArray inode = ':' + QByteArray::number(qulonglong(status.st_ino));
    for (const QByteArray &line : locks.readAll().split('\n')) {
        const QList<QByteArray> fields = line.simplified().split(' ');
        if (fields.size() > 5 && fields[1] == "FLOCK" && fields[5].endsWith(inode) && isOurs(fields[4], folder))
            return true;
    }
    return false;
}

// Asks the instance that listens in the folder to show itself. False when there is none, or it ended without an answer.
bool askToRaise(int folder)
{
    struct stat status = {};
    if (::fstatat(folder, socketname, &status, AT_SYMLINK_NOFOLLOW) != 0 || !isTrusted(status.st_uid, folder))
        return false;
    // Not blocking: connecting would wait for ever for one that is stopped and has had its fill of connections.
    const int connection = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (connection < 0)
        return false; // GCOVR_EXCL_LINE: only without a free descriptor
    const Address address(folder);
    bool isthere = true;
    if (::connect(connection, address.get(), sizeof address.socket) != 0) {
        isthere = errno == EAGAIN;
    } else {
        char byte = 0;
        pollfd waiting = {connection, POLLIN, 0};
        isthere = ::poll(&waiting, 1, patience) <= 0 || ::read(connection, &byte, 1) == 1;
    }
    ::close(connection);
    return isthere;
}

} // namespace

SingleInstance::SingleInstance(const QString &storepath, std::function<void()> raise)
    : raisewindow(std::move(raise))
    , folder(StoreFile::openFolder(QFileInfo(storepath).path()))
{
    if (folder < 0)
        return;
    first = isFree();
    if (first)
        listen();
}

SingleInstance::~SingleInstance()
{
    if (listener >= 0) {
        ::unlinkat(folder, socketname, 0);
        ::close(listener);
    }
    if (folder >= 0)
        ::close(folder); // the lock goes last: who has it may take the socket's name
}

// Looks again for a while at one that neither answers nor goes: it may be just starting, or ending.
bool SingleInstance::isFree() const
{
    const QDeadlineTimer deadline(patience);
    while (::flock(folder, LOCK_EX | LOCK_NB) != 0) {
        const bool haslocks = errno == EWOULDBLOCK;
        if (askToRaise(folder))
            return false;
        if (!haslocks)
            return true;
        if (deadline.hasExpired())
            return !isLockedByUs(folder);
        ::poll(nullptr, 0, interval);
    }
    // One that began while a stranger held the lock listens without it.
    return !askToRaise(folder);
}

void SingleInstance::listen()
{
    const int candidate = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (candidate < 0)
        return; // GCOVR_EXCL_LINE: only without a free descriptor
    ::unlinkat(folder, socketname, 0); // one that a kill left over
    ::fchmod(candidate, 0600); // binding gives this mode to the name
    const Address address(folder);
    if (::bind(candidate, address.get(), sizeof address.socket) != 0 || ::listen(candidate, 8) != 0) {
        ::close(candidate); // a later start then ends without being seen
        return;
    }
    listener = candidate;
    auto *notifier = new QSocketNotifier(listener, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] { answer(); });
}

void SingleInstance::answer()
{
    const int connection = ::accept4(listener, nullptr, nullptr, SOCK_CLOEXEC);
    if (connection < 0)
        return; // GCOVR_EXCL_LINE: only without a free descriptor
    ucred peer = {};
    socklen_t length = sizeof peer;
    if (::getsockopt(connection, SOL_SOCKET, SO_PEERCRED, &peer, &length) == 0 && isTrusted(peer.uid, folder)) {
        raisewindow();
        const char byte = 'k';
        ::send(connection, &byte, 1, MSG_NOSIGNAL);
    }
    ::close(connection);
}
