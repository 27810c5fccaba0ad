// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "platform/LocalDay.h"

#include <algorithm>
#include <ctime>

namespace {

constexpr qint64 dayseconds = 86'400;

// How far the zone in force is ahead of UTC at an instant, in seconds.
qint64 offsetAt(qint64 seconds)
{
    const auto time = static_cast<std::time_t>(seconds);
    std::tm fields{};
    ::tzset();
    return ::localtime_r(&time, &fields) != nullptr ? fields.tm_gmtoff : 0;
}

// Local times are counted like instants: the seconds that would have passed had UTC always been in force.
qint64 localSeconds(qint64 seconds)
{
    return seconds + offsetAt(seconds);
}

// The first instant that has this local time, or the first one after it where the clock skips it.
qint64 instantOf(qint64 local)
{
    const qint64 before = offsetAt(local - dayseconds);
    const qint64 after = offsetAt(local + dayseconds);
    qint64 early = local - std::max(before, after);
    qint64 late = local - std::min(before, after);
    for (const qint64 instant : {early, late}) {
        if (localSeconds(instant) == local)
            return instant;
    }
    // Inside a gap: local time jumps over it once between the two.
    while (late - early > 1) {
        const qint64 middle = early + (late - early) / 2;
        (localSeconds(middle) < local ? early : late) = middle;
    }
    return late;
}

QDateTime fromMilliseconds(qint64 milliseconds)
{
    return QDateTime::fromMSecsSinceEpoch(milliseconds, Qt::UTC);
}

qint64 floorSeconds(const QDateTime &instant)
{
    const qint64 milliseconds = instant.toMSecsSinceEpoch();
    return (milliseconds - (milliseconds % 1000 + 1000) % 1000) / 1000;
}

qint64 midnight(QDate date)
{
    return QDateTime(date, QTime(0, 0), Qt::UTC).toSecsSinceEpoch();
}

} // namespace

QDate LocalDay::dateOf(const QDateTime &instant)
{
    return QDateTime::fromSecsSinceEpoch(localSeconds(floorSeconds(instant)), Qt::UTC).date();
}

QDateTime LocalDay::onDate(const QDateTime &instant, QDate date)
{
    const qint64 seconds = floorSeconds(instant);
    const qint64 fraction = instant.toMSecsSinceEpoch() - seconds * 1000;
    const qint64 timeofday = localSeconds(seconds) - midnight(dateOf(instant));
    const qint64 wanted = midnight(date) + timeofday;
    const qint64 chosen = instantOf(wanted);
    return fromMilliseconds(chosen * 1000 + (localSeconds(chosen) == wanted ? fraction : 0));
}

QDateTime LocalDay::dayBefore(const QDateTime &instant)
{
    const QDate date = dateOf(instant);
    // A zone that moved across the date line left a whole day out, whose every time is one of the day after it.
    for (QDate earlier = date.addDays(-1); earlier >= firstDate(); earlier = earlier.addDays(-1)) {
        const QDateTime found = onDate(instant, earlier);
        if (dateOf(found) < date)
            return found;
    }
    return instant.toUTC();
}

QDateTime LocalDay::dayAfter(const QDateTime &instant)
{
    const QDate date = dateOf(instant);
    return date < lastDate() ? onDate(instant, date.addDays(1)) : instant.toUTC();
}

QString LocalDay::key(QDate date)
{
    return QStringLiteral("%1_%2_%3")
        .arg(date.year(), 4, 10, QLatin1Char('0'))
        .arg(date.month(), 2, 10, QLatin1Char('0'))
        .arg(date.day(), 2, 10, QLatin1Char('0'));
}

QString LocalDay::key(const QDateTime &instant)
{
    return key(dateOf(instant));
}

std::optional<QDate> LocalDay::dateOfKey(const QString &text)
{
    constexpr int length = 10;
    if (text.size() != length)
        return std::nullopt;
    for (int i = 0; i < length; ++i) {
        const bool isline = i == 4 || i == 7;
        if (isline ? text[i] != u'_' : text[i] < u'0' || text[i] > u'9')
            return std::nullopt;
    }
    const QDate date(text.left(4).toInt(), text.mid(5, 2).toInt(), text.right(2).toInt());
    return date.isValid() ? std::optional(date) : std::nullopt;
}
