// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

// What the main interface does for the history: it hands the sheet what it shows, and goes to the day chosen there.

#include "app/AppDelegate.h"
#include "app/SettingsKeys.h"
#include "platform/LocalDay.h"
#include "platform/UserDefaults.h"
#include "ui/CalendarMarks.h"
#include "ui/MainInterface.h"
#include "ui/SheetSize.h"
#include "ui/controls/DatePicker.h"
#include "ui/historysheet/HistorySheet.h"
#include "ui_MainWindow.h"

#include <QMainWindow>

#include <utility>

void MainInterface::connectHistory()
{
    connect(main->actionhistory, &QAction::triggered, this, &MainInterface::openHistory);
    connect(main->actionpreviousloggedday, &QAction::triggered, this, [this] { goToLoggedDay(false); });
    connect(main->actionnextloggedday, &QAction::triggered, this, [this] { goToLoggedDay(true); });
    new CalendarMarks(main->datepicker, [this] {
        const auto reader = std::make_shared<History::DayReader>(UserDefaults::standardUserDefaults());
        return [this, reader](const History::Period &period) { return reader->readOnly(period, shownDay()); };
    });
}

// Made when it is first asked for: most runs never do.
void MainInterface::makeHistory()
{
    history = new HistorySheet(window.get());
    history->addAction(main->actionquit);
    history->resize(window->size());
    new SheetSize(history, SettingsKeys::HistorySheetSize);
    connect(history, &HistorySheet::dayChosen, this, &MainInterface::goToDay);
}

void MainInterface::openHistory()
{
    endEditing();
    if (history == nullptr)
        makeHistory();
    const UserDefaults &store = UserDefaults::standardUserDefaults();
    HistorySheet::Sources sources;
    sources.reader = std::make_unique<History::DayReader>(store);
    sources.shown = shownDay();
    sources.allowances = controller.rdas;
    sources.today = LocalDay::dateOf(controller.now());
    history->openWith(std::move(sources));
}

std::optional<QDate> MainInterface::loggedDay(bool later) const
{
    const QDate from = LocalDay::dateOf(controller.curdate);
    History::DayReader reader(UserDefaults::standardUserDefaults());
    return later ? reader.loggedAfter(from) : reader.loggedBefore(from);
}

// Nowhere when there is none.
void MainInterface::goToLoggedDay(bool later)
{
    endEditing();
    if (const std::optional<QDate> day = loggedDay(later))
        goToDay(*day);
}

// The date field takes it as if it had been chosen there.
void MainInterface::goToDay(QDate day)
{
    leaveDayFor(LocalDay::onDate(controller.curdate, day));
    main->datepicker->setDate(day);
}

std::optional<History::ShownDay> MainInterface::shownDay() const
{
    return History::ShownDay{LocalDay::dateOf(controller.curdate), controller.curdatefoods};
}
