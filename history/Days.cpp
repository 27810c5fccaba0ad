// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "history/Days.h"

#include <algorithm>
#include <cmath>

namespace History {

namespace {

bool isBefore(const Day &day, QDate date)
{
    return day.date < date;
}

} // namespace

std::span<const Day> Days::between(QDate first, QDate last) const &
{
    const auto begin = std::lower_bound(all.cbegin(), all.cend(), first, isBefore);
    const auto end = std::lower_bound(begin, all.cend(), last.addDays(1), isBefore);
    return {all.constData() + (begin - all.cbegin()), static_cast<std::size_t>(end - begin)};
}

const Day *Days::on(QDate date) const
{
    const auto day = std::lower_bound(all.cbegin(), all.cend(), date, isBefore);
    return day != all.cend() && day->date == date ? &*day : nullptr;
}

std::span<const Entry> Days::entriesOf(const Day &day) const
{
    return {entries.constData() + day.firstentry, static_cast<std::size_t>(day.entrycount)};
}

Days Days::without(const QList<QDate> &dates) const
{
    QList<QDate> sorted = dates; // a log of 300 years may have as many of them as days
    std::sort(sorted.begin(), sorted.end());
    Days left = *this;
    left.all.removeIf([&](const Day &day) {
        return period.contains(day.date) && std::binary_search(sorted.cbegin(), sorted.cend(), day.date);
    });
    return left;
}

QList<QDate> incompleteDays(const Days &days)
{
    std::vector<float> energies;
    for (const Day &day : days.ofPeriod()) {
        if (!std::isnan(day.energy()))
            energies.push_back(day.energy());
    }
    if (energies.empty())
        return {};
    std::sort(energies.begin(), energies.end());
    const std::size_t middle = energies.size() / 2;
    const double upper = double(energies[middle]);
    const double median = energies.size() % 2 != 0 ? upper : (double(energies[middle - 1]) + upper) / 2.0;
    QList<QDate> incomplete;
    for (const Day &day : days.ofPeriod()) {
        if (double(day.energy()) < median / 2.0)
            incomplete.append(day.date);
    }
    return incomplete;
}

} // namespace History
