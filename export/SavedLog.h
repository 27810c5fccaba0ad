// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/PendingFile.h"
#include "platform/StoreCopy.h"

#include <QMap>

namespace Export {

// The days as the next start of the program would find them: those of the store, and what earlier runs could not save
// and left beside it. All of it is in memory; the files stay as they are.
class SavedLog final {
public:
    // What is wrong, in a sentence without a period; empty when all was read.
    [[nodiscard]] QString read(const QString &storepath);
    // Whether the program is running: what it has not saved yet is not in here.
    [[nodiscard]] bool isInUse() const { return store.isInUse(); }

    // The values of the days between two keys, both included, in order; fit for History::DayReader. False
    // when some of them could not be read.
    bool scan(const QString &firstkey, const QString &lastkey, const StoreCopy::Row &row) const;

private:
    [[nodiscard]] std::optional<QByteArray> valueOf(const QString &key) const;
    void takeIn(const QString &key, const PendingFile::Record &record);

    StoreCopy store;
    QMap<QString, QByteArray> pending; // values that stand in for the store's
};

} // namespace Export
