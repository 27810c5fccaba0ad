// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "export/RowWriter.h"
#include "history/Period.h"

#include <QStringList>

namespace Export {

enum class Rows { Entries, Days };

// What the program is asked for. Read by hand, for QCommandLineParser prints texts of its own and ends the program.
struct Arguments {
    History::Period period; // all days when nothing else is said
    Rows rows = Rows::Entries;
    Format format = Format::Csv;
    QString storepath;
    bool wantshelp = false;
    bool wantsversion = false;
    QString fault; // what is wrong with them, in a sentence without a period; else empty
};

// Without the program's own name. Each option at most once counts: the last one. "--name value" is "--name=value".
[[nodiscard]] Arguments argumentsOf(const QStringList &words);

// What --help prints.
[[nodiscard]] QByteArray usage();

} // namespace Export
