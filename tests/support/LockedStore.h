// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/StoreHome.h"

// Another program that reads the store, so that nobody can write it, or has it for itself, so that nobody can read it,
// for as long as this lives.
class LockedStore final {
public:
    enum Lock { Shared, Exclusive };

    LockedStore(const QString &path, Lock lock)
        : connection(path)
    {
        connection.run(lock == Shared ? "BEGIN; SELECT count(*) FROM defaults" : "BEGIN EXCLUSIVE");
    }

private:
    StoreView connection;
};
