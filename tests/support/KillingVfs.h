// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <atomic>

// What a process that may be killed at any moment tells its parent, in a file that both have mapped: it outlives the
// process by itself.
struct Progress {
    enum Phase { Starting, Between, Saving, Ended };

    std::atomic<int> phase; // of Phase
    std::atomic<int> begun; // saves whose journal has been written to
    std::atomic<int> finished; // saves whose journal has been made void
    std::atomic<int> operations; // writes, truncations, syncs and removals inside saves
};

// A layer between SQLite and the disk that tells the progress of each save, and kills the process at one of its
// operations. A save is what happens from the first write of the journal until the journal is made void: removed,
// emptied, or its header zeroed.
namespace KillingVfs {

enum class When { Before, Halfway, After }; // a write is cut in half; anything else is halfway before it begins

// From now on; the process dies at the operation of that number, counted from 1, or at none if 0.
void install(Progress &progress, int operation, When when);

} // namespace KillingVfs
