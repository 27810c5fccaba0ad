// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

// Loaded into the export in place of the C library's: a store that is saved while it is read. When its journal is first
// looked for, what lies beside it as "<store>.next" is written over it.

#include <cstdarg>
#include <cstdio>
#include <fcntl.h>
#include <string>
#include <string_view>

namespace {

void save(const std::string &store)
{
    const std::string next = store + ".next";
    std::FILE *from = std::fopen(next.c_str(), "rb");
    if (from == nullptr)
        return;
    std::FILE *to = std::fopen(store.c_str(), "r+b");
    for (int byte = std::fgetc(from); byte != EOF; byte = std::fgetc(from))
        std::fputc(byte, to);
    std::fclose(to);
    std::fclose(from);
    std::remove(next.c_str());
}

} // namespace

extern "C" int open(const char *path, int flags, ...)
{
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    constexpr std::string_view tail = "-journal";
    const std::string name = path;
    if (name.ends_with(tail))
        save(name.substr(0, name.size() - tail.size()));
    return ::openat(AT_FDCWD, path, flags, mode);
}
