// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "history/Days.h"

#include <QObject>

#include <functional>

class DatePicker;
class QCalendarWidget;

// Logged days in bold in the date field's calendar, with a tip of how much is in them. A month is read when it is
// looked at, and anew each time. Qt makes the calendar when it is first opened, so that is when this begins.
class CalendarMarks final : public QObject {
public:
    using Read = std::function<History::Days(const History::Period &)>;
    using Begin = std::function<Read()>;

    // A child of the field. What the reading begins with is kept while the calendar is open.
    CalendarMarks(DatePicker *field, Begin reading);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void mark();

    Begin begin;
    Read read; // none while the calendar is closed
    QCalendarWidget *calendar = nullptr;
};
