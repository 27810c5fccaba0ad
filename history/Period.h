// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDate>

// Calendar days, as their keys name them: no time of day and no zone is in any of this.
namespace History {

// From the first day to the last, both included. Never empty, and never beyond the years 1 to 9999.
struct Period {
    QDate first;
    QDate last;

    bool operator==(const Period &other) const = default;
    [[nodiscard]] int days() const { return static_cast<int>(first.daysTo(last)) + 1; }
    [[nodiscard]] bool contains(QDate day) const { return first <= day && day <= last; }
};

// What a person chooses from. All of it is asked of the reader (DayReader::readAll()).
enum class Length { Days7, Days30, Days90, Year };

// The period of that length whose last day is given: yesterday, or today. A year is a calendar one, to the same day.
[[nodiscard]] Period periodUpTo(QDate last, Length length);

// The periods of that length right before and right after one; cut off where the calendar ends, and the period itself
// where nothing is left.
[[nodiscard]] Period before(const Period &period, Length length);
[[nodiscard]] Period after(const Period &period, Length length);

} // namespace History
