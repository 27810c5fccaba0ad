// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

// Loaded into the program in place of the C library's: a file system that has no locks.

#include <cerrno>
#include <sys/file.h>

extern "C" int flock(int /*descriptor*/, int /*operation*/) noexcept
{
    errno = EOPNOTSUPP;
    return -1;
}
