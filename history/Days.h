// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "history/Period.h"
#include "model/Composition.h"
#include "model/DaySums.h"

#include <QList>

#include <deque>
#include <memory>
#include <optional>
#include <span>

namespace History {

// A food that entries name, with what its file says. The entries without a name share one that has none.
struct NamedFood {
    std::optional<QString> name;
    Composition composition;
};
using Foods = std::deque<NamedFood>; // never shrinks, so that an index stays what it is

// An entry of a logged day: eight bytes, since 20 years have 146,100 of them.
struct Entry {
    int food; // its place in Days::foods
    float grams;
};

// A logged day: one with at least one entry that could be read.
struct Day {
    QDate date;
    qsizetype firstentry; // its place in Days::entries
    qsizetype entrycount;
    DaySums::Amounts sums; // what opening the day would show, bit for bit

    [[nodiscard]] float energy() const { return sums[0]; }
};

// The logged days of a period and around it. A copy costs next to nothing. It stays valid when its reader goes.
struct Days {
    Period period;
    // In the order of the calendar, each date once: those of the period, of the six days before it (for the mean over
    // seven), and of the rest of the calendar year in which it ends (for the year at a glance).
    QList<Day> all;
    QList<Entry> entries;
    std::shared_ptr<const Foods> foods;
    bool iswhole = true; // false when a part of the store could not be read

    // They point into this: not to be asked of what is gone at the end of the line.
    [[nodiscard]] std::span<const Day> ofPeriod() const & { return between(period.first, period.last); }
    [[nodiscard]] std::span<const Day> between(QDate first, QDate last) const &;
    std::span<const Day> ofPeriod() && = delete;
    std::span<const Day> between(QDate first, QDate last) && = delete;
    // The day, if it is logged and was read.
    [[nodiscard]] const Day *on(QDate date) const;
    [[nodiscard]] std::span<const Entry> entriesOf(const Day &day) const;
    // The same without some days of the period, as if they were not logged.
    [[nodiscard]] Days without(const QList<QDate> &dates) const;
};

// The period's logged days whose energy is below half of the median of its logged days: only a part of what was eaten
// may be in them. The median of an even number is the mean of the middle two. A day whose energy is no number counts
// for nothing here.
[[nodiscard]] QList<QDate> incompleteDays(const Days &days);

} // namespace History
