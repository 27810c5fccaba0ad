// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "app/TerminationSignals.h"

#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

#include <utility>

namespace {

constexpr std::array handled = {SIGTERM, SIGINT, SIGHUP};
volatile std::sig_atomic_t signalsender = -1;

extern "C" void noteSignal(int)
{
    const int error = errno;
    const char byte = 's';
    [[maybe_unused]] const ssize_t written = ::write(signalsender, &byte, 1);
    errno = error;
}

void setHandler(void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    for (const int signal : handled) {
        struct sigaction former = {};
        // Who started the program with one ignored, as nohup does, means it to go on.
        if (::sigaction(signal, nullptr, &former) == 0 && former.sa_handler != SIG_IGN)
            ::sigaction(signal, &action, nullptr);
    }
}

} // namespace

TerminationSignals::TerminationSignals(std::function<void()> terminate)
{
    std::array<int, 2> pair = {-1, -1};
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, pair.data()) != 0)
        return; // GCOVR_EXCL_LINE: only without free descriptors
    receiver = pair[0];
    signalsender = pair[1];
    auto *notifier = new QSocketNotifier(receiver, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this, terminate = std::move(terminate)] {
        std::array<char, 16> bytes{};
        [[maybe_unused]] const ssize_t count = ::read(receiver, bytes.data(), bytes.size());
        terminate();
    });
    setHandler(noteSignal);
}

TerminationSignals::~TerminationSignals()
{
    if (receiver < 0)
        return; // GCOVR_EXCL_LINE: only without free descriptors
    setHandler(SIG_IGN); // the program is ending: a request that comes late must not make a failure of it
    ::close(signalsender);
    ::close(receiver);
    signalsender = -1;
}
