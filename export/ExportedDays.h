// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "export/RowWriter.h"
#include "export/SavedLog.h"
#include "history/Days.h"

namespace Export {

// The logged days of a period, as the history counts them: with its weights, sums and known shares, to the last bit.
class ExportedDays final {
public:
    // Outlived by the log.
    ExportedDays(const SavedLog &log, const History::Period &period);

    // False when not all could be written.
    bool writeEntries(Format format, std::FILE *file) const;
    bool writeDays(Format format, std::FILE *file) const;

private:
    const SavedLog &log;
    History::Days days;
};

} // namespace Export
