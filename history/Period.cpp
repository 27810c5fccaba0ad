// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "history/Period.h"

#include "platform/LocalDay.h"

#include <algorithm>

namespace History {

namespace {

QDate within(QDate date)
{
    return date.isValid() ? std::clamp(date, LocalDay::firstDate(), LocalDay::lastDate()) : LocalDay::firstDate();
}

int daysOf(Length length)
{
    return length == Length::Days7 ? 7 : length == Length::Days30 ? 30 : 90;
}

} // namespace

Period periodUpTo(QDate last, Length length)
{
    const QDate first = length == Length::Year ? last.addYears(-1).addDays(1) : last.addDays(1 - daysOf(length));
    return {within(first), within(last)};
}

Period before(const Period &period, Length length)
{
    if (period.first <= LocalDay::firstDate())
        return period;
    return periodUpTo(period.first.addDays(-1), length);
}

Period after(const Period &period, Length length)
{
    if (period.last >= LocalDay::lastDate())
        return period;
    const QDate first = period.last.addDays(1);
    const QDate last = length == Length::Year ? first.addYears(1).addDays(-1) : first.addDays(daysOf(length) - 1);
    return {first, within(last)};
}

} // namespace History
