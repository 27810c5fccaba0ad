// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/CalendarMarks.h"

#include "platform/LocalDay.h"
#include "platform/NumberText.h"
#include "ui/controls/DatePicker.h"

#include <QCalendarWidget>
#include <QCoreApplication>
#include <QEvent>
#include <QTextCharFormat>

#include <algorithm>
#include <utility>

CalendarMarks::CalendarMarks(DatePicker *field, Begin reading)
    : QObject(field)
    , begin(std::move(reading))
{
    field->installEventFilter(this);
}

bool CalendarMarks::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ChildPolished && calendar == nullptr) {
        calendar = parent()->findChild<QCalendarWidget *>();
        if (calendar != nullptr) {
            calendar->installEventFilter(this);
            connect(calendar, &QCalendarWidget::currentPageChanged, this, &CalendarMarks::mark);
        }
    }
    if (event->type() == QEvent::Show && watched == calendar) {
        read = begin();
        mark();
    }
    if (event->type() == QEvent::Hide && watched == calendar)
        read = nullptr;
    return false;
}

void CalendarMarks::mark()
{
    if (!read)
        return; // a page turned to while nobody looks
    constexpr int beside = 14; // days of the months before and after that its page has room for
    const QDate first(calendar->yearShown(), calendar->monthShown(), 1);
    const QDate last = first.addMonths(1).addDays(beside);
    const History::Days days
        = read({std::max(first.addDays(-beside), LocalDay::firstDate()), std::min(last, LocalDay::lastDate())});
    calendar->setDateTextFormat({}, {});
    for (const History::Day &day : days.all) {
        QTextCharFormat format;
        format.setFontWeight(QFont::Bold);
        const QString energy = NumberText::fixed(double(day.energy()), 0) + QStringLiteral(" kcal");
        format.setToolTip(day.entrycount == 1
                ? QCoreApplication::translate("CalendarMarks", "1 entry, %1").arg(energy)
                : QCoreApplication::translate("CalendarMarks", "%1 entries, %2").arg(day.entrycount).arg(energy));
        calendar->setDateTextFormat(day.date, format);
    }
}
