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

    // A child of the field.
    CalendarMarks(DatePicker *field, Read days);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void mark();

    Read read;
    QCalendarWidget *calendar = nullptr;
};
