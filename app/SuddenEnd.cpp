// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "app/SuddenEnd.h"

#include <QMetaObject>

#include <atomic>
#include <cstdlib>
#include <dlfcn.h>
#include <mutex>
#include <unistd.h>

namespace {

std::mutex guard; // of `current` against its going, while another thread ends the process
SuddenEnd *current = nullptr;
pid_t process = 0;
std::atomic<bool> isover = false;

// GCOVR_EXCL_START: a process that ends by its last word leaves no counts
// Returns when the process may end as it was asked to.
void endByLastWord(int status)
{
    if (::getpid() != process)
        return;
    if (::gettid() == process) {
        if (current != nullptr)
            current->end(status);
        return;
    }
    {
        const std::lock_guard lock(guard);
        if (current == nullptr)
            return;
        QMetaObject::invokeMethod(
            current, [ending = current, status] { ending->end(status); }, Qt::QueuedConnection);
    }
    isover.wait(false);
}

} // namespace

extern "C" void exit(int status) noexcept
{
    endByLastWord(status);
    reinterpret_cast<void (*)(int)>(::dlsym(RTLD_NEXT, "exit"))(status);
    std::abort(); // it does not return
}

extern "C" void _exit(int status)
{
    endByLastWord(status);
    std::_Exit(status);
}
// GCOVR_EXCL_STOP

SuddenEnd::SuddenEnd()
{
    process = ::getpid();
    isover = false;
    current = this;
}

SuddenEnd::~SuddenEnd()
{
    {
        const std::lock_guard lock(guard);
        current = nullptr;
    }
    isover = true;
    isover.notify_all();
}

// GCOVR_EXCL_START: as above
void SuddenEnd::end(int status)
{
    if (++calls <= 2 && lastword)
        lastword();
    std::_Exit(status);
}
// GCOVR_EXCL_STOP
