// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

// What the fuzz targets share. A target does more than wait for a crash: it states what must hold whatever the input
// is, and what does not hold ends the run as a crash does, so that libFuzzer keeps the input.
namespace Fuzzing {

inline void require(bool holds, const char *what)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}

inline QByteArray bytes(const std::uint8_t *data, std::size_t size)
{
    return {reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)};
}

// Where scratch files go: in memory, since a run makes thousands of them a second.
constexpr const char *scratchFolder = "/dev/shm";

// The same float; every NaN counts as the same.
inline bool same(float left, float right)
{
    return (std::isnan(left) && std::isnan(right))
        || std::bit_cast<std::uint32_t>(left) == std::bit_cast<std::uint32_t>(right);
}

} // namespace Fuzzing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);
