// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/controls/DatePicker.h"

#include "platform/LocalDay.h"

#include <QCalendarWidget>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLocale>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QWheelEvent>

#include <algorithm>

namespace {

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
    , instant(QDateTime::fromMSecsSinceEpoch(0, Qt::UTC))
{
    // The field holds a date and nothing else: in UTC every date has every time.
    setTimeSpec(Qt::UTC);
    setDateRange(LocalDay::firstDate(), LocalDay::lastDate());
    setDisplayFormat(displayFormatOf(locale()));
    setCalendarPopup(true);
    setKeyboardTracking(false);
    setFocusPolicy(Qt::StrongFocus);
    setDateValue(QDateTime::currentDateTimeUtc());
    connect(this, &QDateEdit::dateChanged, this, [this](QDate date) {
        if (calendar == nullptr || !calendar->isVisible()) // else it is only looked at
            choose(date);
    });
}

void DatePicker::setDateValue(const QDateTime &value)
{
    if (!value.isValid())
        return;
    const QDate shown = std::clamp(LocalDay::dateOf(value), LocalDay::firstDate(), LocalDay::lastDate());
    instant = shown == LocalDay::dateOf(value) ? value.toUTC() : LocalDay::onDate(value, shown);
    const QSignalBlocker quiet(this);
    setDate(shown);
}

// A menu or another window only borrows the keyboard; going elsewhere in the window enters what was typed.
void DatePicker::focusOutEvent(QFocusEvent *event)
{
    const Qt::FocusReason reason = event->reason();
    if (reason != Qt::PopupFocusReason && reason != Qt::MenuBarFocusReason && reason != Qt::ActiveWindowFocusReason) {
        leaving = true;
        QDateEdit::focusOutEvent(event);
        leaving = false;
        return;
    }
    // An arrow key that is held steps until it is let go, which the other window hears.
    QKeyEvent letgo(QEvent::KeyRelease, Qt::Key_unknown, Qt::NoModifier);
    keyReleaseEvent(&letgo);
    QWidget::focusOutEvent(event);
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

void DatePicker::mousePressEvent(QMouseEvent *event)
{
    QDateEdit::mousePressEvent(event);
    auto *opened = calendar == nullptr ? findChild<QCalendarWidget *>() : nullptr;
    if (opened == nullptr)
        return;
    calendar = opened;
    calendar->installEventFilter(this);
    for (const auto chosen : {&QCalendarWidget::activated, &QCalendarWidget::clicked})
        connect(calendar, chosen, this, &DatePicker::choose);
}

bool DatePicker::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == calendar && event->type() == QEvent::Hide)
        setDateValue(instant); // Qt's field has followed what was looked at
    return QDateEdit::eventFilter(watched, event);
}

void DatePicker::choose(QDate date)
{
    // Qt also sends the date it goes back to when what was typed is no date, and a date may not exist in the zone.
    const QDate before = LocalDay::dateOf(instant);
    if (date != before)
        setDateValue(LocalDay::onDate(instant, date));
    if (LocalDay::dateOf(instant) != before)
        emit dateChosen();
}
