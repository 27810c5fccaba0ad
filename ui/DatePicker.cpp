// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/DatePicker.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLocale>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QWheelEvent>

#include <algorithm>
#include <ctime>

namespace {

constexpr qint64 dayseconds = 86'400;

// How far the zone in force is ahead of UTC at an instant, in seconds. Asked of the C library, which knows every form
// of TZ; QTimeZone knows names alone.
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

// The instant's local time of day on another date, with its fraction of a second.
QDateTime onDate(const QDateTime &instant, QDate date)
{
    const qint64 seconds = floorSeconds(instant);
    const qint64 fraction = instant.toMSecsSinceEpoch() - seconds * 1000;
    const qint64 timeofday = localSeconds(seconds) - midnight(DatePicker::localDate(instant));
    const qint64 wanted = midnight(date) + timeofday;
    const qint64 chosen = instantOf(wanted);
    return fromMilliseconds(chosen * 1000 + (localSeconds(chosen) == wanted ? fraction : 0));
}

// The user's own way of writing dates, but with the whole year: two digits cannot say which century.
QString displayFormatOf(const QLocale &locale)
{
    QString format = locale.dateFormat(QLocale::ShortFormat);
    if (!format.contains(QStringLiteral("yyyy")))
        format.replace(QStringLiteral("yy"), QStringLiteral("yyyy"));
    return format;
}

} // namespace

DatePicker::DatePicker(QWidget *parent)
    : QDateEdit(parent)
    , instant(fromMilliseconds(0))
{
    // The field holds a date and nothing else: in UTC every date has every time.
    setTimeSpec(Qt::UTC);
    setDateRange(firstDate(), lastDate());
    setDisplayFormat(displayFormatOf(locale()));
    setCalendarPopup(true);
    setKeyboardTracking(false);
    setFocusPolicy(Qt::StrongFocus);
    setDateValue(QDateTime::currentDateTimeUtc());
    connect(this, &QDateEdit::dateChanged, this, &DatePicker::choose);
}

void DatePicker::setDateValue(const QDateTime &value)
{
    if (!value.isValid())
        return;
    const QDate shown = std::clamp(localDate(value), firstDate(), lastDate());
    instant = shown == localDate(value) ? value.toUTC() : onDate(value, shown);
    const QSignalBlocker quiet(this);
    setDate(shown);
}

QDate DatePicker::localDate(const QDateTime &instant)
{
    return QDateTime::fromSecsSinceEpoch(localSeconds(floorSeconds(instant)), Qt::UTC).date();
}

QDateTime DatePicker::dayBefore(const QDateTime &instant)
{
    const QDate date = localDate(instant);
    // A zone that moved across the date line left a whole day out, whose every time is one of the day after it.
    for (QDate earlier = date.addDays(-1); earlier >= firstDate(); earlier = earlier.addDays(-1)) {
        const QDateTime found = onDate(instant, earlier);
        if (localDate(found) < date)
            return found;
    }
    return instant.toUTC();
}

QDateTime DatePicker::dayAfter(const QDateTime &instant)
{
    const QDate date = localDate(instant);
    return date < lastDate() ? onDate(instant, date.addDays(1)) : instant.toUTC();
}

void DatePicker::keyPressEvent(QKeyEvent *event)
{
    if ((event->key() == Qt::Key_Down && event->modifiers() == Qt::AltModifier) || event->key() == Qt::Key_F4)
        openCalendar();
    else
        QDateEdit::keyPressEvent(event);
}

void DatePicker::wheelEvent(QWheelEvent *event)
{
    if (hasFocus())
        QDateEdit::wheelEvent(event);
    else
        event->ignore();
}

// Qt opens the calendar for a press on the arrow alone.
void DatePicker::openCalendar()
{
    QStyleOptionComboBox option;
    option.initFrom(this);
    option.subControls = QStyle::SC_All;
    option.editable = true;
    const QPointF arrow
        = style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, this).center();
    QMouseEvent press(
        QEvent::MouseButtonPress, arrow, mapToGlobal(arrow), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    mousePressEvent(&press);
}

void DatePicker::choose(QDate date)
{
    // Qt also sends the date it goes back to when what was typed is no date, and a date may not exist in the zone.
    const QDate before = localDate(instant);
    if (date != before)
        setDateValue(onDate(instant, date));
    if (localDate(instant) != before)
        emit dateChosen();
}
