// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDate>
#include <QObject>

class AppDelegate;
class DaySheet;

// Stands between the controller and the sheet with another day's entries, which do not know each other: it hands over
// the days that the sheet asks for, and adds what was ticked. Owned by the main interface, as the sheet is.
class OtherDay final : public QObject {
    Q_OBJECT

public:
    OtherDay(AppDelegate &appdelegate, DaySheet &daysheet);

    // Opens the sheet with the last day before the shown one that has entries, else with the first one after it.
    void open(QDate shownday);

signals:
    // The sheet is closed and both tables are reloaded.
    void entriesAdded();

private:
    void goTo(QDate from, bool islater);
    void show(QDate day);
    void add(const QList<int> &places);

    AppDelegate &controller;
    DaySheet &sheet;
    QDate shown; // the log's day
    QDate offered; // the sheet's; invalid when no other day has entries
};
