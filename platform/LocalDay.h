// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>

#include <optional>

// The calendar around an instant, in the time zone that is in force at the moment of asking: nothing is kept, since a
// laptop crosses borders. Dates are Gregorian and run from year 1 to 9999.
//
// The zone is asked of the C library, which knows every form of TZ; QTimeZone knows names alone.
namespace LocalDay {

[[nodiscard]] inline QDate firstDate()
{
    return {1, 1, 1};
}
[[nodiscard]] inline QDate lastDate()
{
    return {9999, 12, 31};
}

// The local date of an instant; it may lie beyond the range.
[[nodiscard]] QDate dateOf(const QDateTime &instant);

// The instant's local time of day on another date, in UTC; the first valid later time where the clock skips it.
[[nodiscard]] QDateTime onDate(const QDateTime &instant, QDate date);

// The instant of the calendar day before or after at the same local time of day, in UTC; the instant itself at the end
// of the range. A day that the zone left out is passed over.
[[nodiscard]] QDateTime dayBefore(const QDateTime &instant);
[[nodiscard]] QDateTime dayAfter(const QDateTime &instant);

// The store's key of a day, "2015_05_11": four digits of the year, two of the month and two of the day, all ASCII.
[[nodiscard]] QString key(QDate date);
[[nodiscard]] QString key(const QDateTime &instant);
// The day of a key; nothing for any other text.
[[nodiscard]] std::optional<QDate> dateOfKey(const QString &key);

} // namespace LocalDay
