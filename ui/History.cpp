// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

// What the main interface does for the history: it hands the sheet what it shows, and goes to the day chosen there.

#include "app/AppDelegate.h"
#include "app/SettingsKeys.h"
#include "platform/LocalDay.h"
#include "platform/UserDefaults.h"
#include "ui/MainInterface.h"
#include "ui/WindowState.h"
#include "ui/controls/DatePicker.h"
#include "ui/historysheet/HistorySheet.h"

#include <QAction>
#include <QGuiApplication>
#include <QMainWindow>
#include <QScreen>

// Made when it is first asked for: most runs never do.
void MainInterface::makeHistory(QAction *quit)
{
    history = new HistorySheet(window.get());
    history->addAction(quit);
    QRect screens;
    for (const QScreen *screen : QGuiApplication::screens())
        screens |= screen->geometry();
    const QVariant stored = UserDefaults::standardUserDefaults().objectForKey(SettingsKeys::HistorySize);
    history->resize(WindowState::sizeOf(stored, screens.size()).value_or(window->size()));
    // The date field takes it as if it had been chosen there.
    connect(history, &HistorySheet::dayChosen, controller.datepicker, &DatePicker::setDate);
}

void MainInterface::openHistory(QAction *quit)
{
    endEditing();
    if (history == nullptr)
        makeHistory(quit);
    const UserDefaults &store = UserDefaults::standardUserDefaults();
    history->openWith(
        {std::make_unique<History::DayReader>(store), shownDay(), controller.rdas, LocalDay::dateOf(controller.now())});
}

std::optional<History::ShownDay> MainInterface::shownDay() const
{
    return History::ShownDay{LocalDay::dateOf(controller.curdate), controller.curdatefoods};
}
