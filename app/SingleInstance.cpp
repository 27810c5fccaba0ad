// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "app/SingleInstance.h"

#include <QCryptographicHash>
#include <QFileInfo>
#include <QSocketNotifier>

#include <cerrno>
#include <cstddef>
#include <cstring>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <utility>

namespace {

constexpr int patience = 2000; // milliseconds that a second start waits for the first to answer
constexpr int attempts = 3; // for a first instance that is just ending

QByteArray socketName(const QString &storepath)
{
    const QFileInfo store(storepath);
    const QString folder = QFileInfo(store.absolutePath()).canonicalFilePath();
    const QString path = folder.isEmpty() ? store.absoluteFilePath() : folder + u'/' + store.fileName();
    return "org.provender.Provender/" + QByteArray::number(::getuid()) + '/'
        + QCryptographicHash::hash(path.toUtf8(), QCryptographicHash::Sha1).toHex();
}

struct Address {
    sockaddr_un socket = {};
    socklen_t length = 0;

    explicit Address(const QByteArray &name)
    {
        socket.sun_family = AF_UNIX; // the path's first byte stays NUL: an abstract name
        const auto size = static_cast<std::size_t>(name.size());
        std::memcpy(socket.sun_path + 1, name.constData(), size);
        length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + size);
    }
    [[nodiscard]] const sockaddr *get() const { return reinterpret_cast<const sockaddr *>(&socket); }
};

bool isOurUser(int connection)
{
    ucred peer = {};
    socklen_t length = sizeof peer;
    return ::getsockopt(connection, SOL_SOCKET, SO_PEERCRED, &peer, &length) == 0 && peer.uid == ::getuid();
}

enum class Reply { Asked, Gone, Stranger };

// Asks the listening instance to show itself. Gone when it went away without an answer, so that its place is free.
Reply askToRaise(const QByteArray &name)
{
    // Not blocking: connecting would wait for ever for one that is stopped and has had its fill of connections.
    const int connection = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (connection < 0)
        return Reply::Gone; // GCOVR_EXCL_LINE: only without a free descriptor
    const Address address(name);
    Reply reply = Reply::Asked;
    if (::connect(connection, address.get(), address.length) != 0) {
        reply = errno == EAGAIN ? Reply::Asked : Reply::Gone;
    } else if (!isOurUser(connection)) {
        reply = Reply::Stranger;
    } else {
        char byte = 0;
        pollfd waiting = {connection, POLLIN, 0};
        if (::poll(&waiting, 1, patience) > 0 && ::read(connection, &byte, 1) != 1)
            reply = Reply::Gone;
    }
    ::close(connection);
    return reply;
}

} // namespace

SingleInstance::SingleInstance(const QString &storepath, std::function<void()> raise)
    : raisewindow(std::move(raise))
{
    const QByteArray name = socketName(storepath);
    for (int attempt = 0; attempt < attempts; ++attempt) {
        if (listen(name) || errno != EADDRINUSE)
            return;
        const Reply reply = askToRaise(name);
        if (reply == Reply::Stranger) // who took the name to keep us out: the store itself has a lock
            return;
        if (reply == Reply::Asked)
            break;
    }
    first = false;
}

SingleInstance::~SingleInstance()
{
    if (listener >= 0)
        ::close(listener);
}

bool SingleInstance::listen(const QByteArray &name)
{
    const int candidate = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (candidate < 0)
        return false; // GCOVR_EXCL_LINE: only without a free descriptor
    const Address address(name);
    if (::bind(candidate, address.get(), address.length) != 0 || ::listen(candidate, 8) != 0) {
        const int error = errno;
        ::close(candidate);
        errno = error;
        return false;
    }
    listener = candidate;
    auto *notifier = new QSocketNotifier(listener, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] { answer(); });
    return true;
}

void SingleInstance::answer()
{
    const int connection = ::accept4(listener, nullptr, nullptr, SOCK_CLOEXEC);
    if (connection < 0)
        return; // GCOVR_EXCL_LINE: only without a free descriptor
    if (isOurUser(connection)) {
        raisewindow();
        const char byte = 'k';
        ::send(connection, &byte, 1, MSG_NOSIGNAL);
    }
    ::close(connection);
}
