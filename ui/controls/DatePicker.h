// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDate>
#include <QDateEdit>
#include <QDateTime>

class QCalendarWidget;

// A date field with a calendar that holds an instant: choosing another date keeps the instant's local time of day, as
// LocalDay has it. A typed date is sent once, when it is complete, and one of the calendar when it is chosen there by
// Enter or a click: its arrow keys only look. A plain QDateEdit holds a local date and sends
// whatever code sets.
class DatePicker final : public QDateEdit {
    Q_OBJECT

public:
    explicit DatePicker(QWidget *parent = nullptr);

    // The instant, in UTC.
    [[nodiscard]] QDateTime dateValue() const { return instant; }
    // Never sends the action. An instant beyond the range of dates becomes the nearest one of its time of day; an
    // invalid one changes nothing.
    void setDateValue(const QDateTime &value);
    // Forgets what was typed and not entered.
    void discardTyped() { setDateValue(instant); }
    // Whether somebody is choosing in it: it has its window's keyboard, or is being left. A date that code sets is
    // nobody's choice.
    [[nodiscard]] bool isInUse() const { return leaving || window()->focusWidget() == this; }

signals:
    // The action: the user chose another date. dateValue() has it.
    void dateChosen();

protected:
    void focusOutEvent(QFocusEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    void openCalendar();
    void choose(QDate date);

    QDateTime instant;
    QCalendarWidget *calendar = nullptr; // Qt makes it when it is first opened
    bool leaving = false; // the field that has the keyboard next has it already
};
