// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/NaiveLog.h"
#include "tests/support/Run.h"

// What a run of the program and the naive log have not in common: a few words about the first difference, or nothing.
// Sums, columns and bars are compared by their bits. Both tables are looked at, so that the next comparison tells
// whether one was reloaded meanwhile.
[[nodiscard]] QString differenceBetween(Run &run, Naive::Log &naive);

// The same of a day that is stored.
[[nodiscard]] QString differenceOfStoredDay(Run &run, const Naive::Log &naive, const QString &key);

[[nodiscard]] inline QDateTime instantOf(Naive::Seconds seconds)
{
    return QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC);
}

[[nodiscard]] inline std::optional<QString> toText(const Naive::Text &text)
{
    return text ? std::optional<QString>(QString::fromStdString(*text)) : std::nullopt;
}
