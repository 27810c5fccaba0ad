// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

// The menus of the tables' rows, and which of the commands would do something.

#include "ui/MainInterface.h"

#include "app/AppDelegate.h"
#include "platform/LocalDay.h"
#include "ui/table/TableView.h"
#include "ui_MainWindow.h"
#include "ui_PreferencesSheet.h"

#include <QApplication>
#include <QMainWindow>
#include <QMenu>

#include <algorithm>

void MainInterface::makeMenus()
{
    TableView *log = main->logtable;
    for (QAction *action : {main->actioneditamount, main->actionchooseunit}) {
        // Elsewhere in the window Alt+Down opens the calendar.
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        log->addAction(action);
    }
    connect(main->actioneditamount, &QAction::triggered, this, [this] {
        main->datepicker->discardTyped();
        main->logtable->editCurrentRow();
    });
    connect(main->actionchooseunit, &QAction::triggered, this, [this] {
        main->datepicker->discardTyped();
        main->logtable->openMenuOfCurrentRow();
    });
    connect(main->actionsetallowance, &QAction::triggered, this,
        [this] { setAllowance(main->nutrienttable->currentIndex().row()); });

    QAction *const between = nullptr;
    addRowMenu(log, tr("Food"),
        {main->actioneditamount, main->actionchooseunit, between, main->actioncut, main->actioncopy, main->actionpaste,
            between, main->actionremove});
    addRowMenu(main->nutrienttable, tr("Nutrient"), {main->actionfoodsbynutrient, main->actionsetallowance});
    setConditions();
    menuitems.watch(main->editmenu);
    menuitems.watch(main->daymenu);
    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget *former, const QWidget *now) {
        if (now == main->menubar && former != nullptr)
            barcamefromlog = isLog(former);
    });
}

void MainInterface::addRowMenu(TableView *table, const QString &name, const QList<QAction *> &items)
{
    connect(table, &TableView::rowMenuWanted, this, [this, table, name, items](const QPoint &place) {
        auto *menu = new QMenu(table);
        menu->setAttribute(Qt::WA_DeleteOnClose);
        menu->setAccessibleName(name);
        for (QAction *item : items) {
            if (item != nullptr)
                menu->addAction(item);
            else
                menu->addSeparator();
        }
        menuitems.watch(menu);
        menu->popup(place);
    });
}

void MainInterface::setConditions()
{
    const TableView *log = main->logtable;
    const auto hasrows = [this, log] { return controller.numberOfRowsInTableView(log) > 0; };
    const auto isselected = [log] { return !log->selectedRowIndexes().isEmpty(); };
    for (QAction *action : {main->actioneditamount, main->actionchooseunit})
        menuitems.setCondition(action, hasrows);
    for (QAction *action : {main->actioncut, main->actioncopy, main->actionremove})
        menuitems.setCondition(action, [this, isselected] { return isselected() || hasFramedRow(); });
    menuitems.setCondition(main->actionpaste, [this] {
        return std::any_of(controller.copyfoods.begin(), controller.copyfoods.end(),
            [this](const auto &food) { return !AppDelegate::holdsName(controller.foods, food->name()); });
    });
    menuitems.setCondition(main->actionselectall,
        [this, log] { return log->selectedRowIndexes().size() < controller.numberOfRowsInTableView(log); });
    menuitems.setCondition(main->actiondeselect, isselected);

    const auto isleft
        = [this](const QDateTime &next) { return LocalDay::key(next) != LocalDay::key(controller.curdate); };
    menuitems.setCondition(
        main->actionpreviousday, [this, isleft] { return isleft(LocalDay::dayBefore(controller.curdate)); });
    menuitems.setCondition(
        main->actionnextday, [this, isleft] { return isleft(LocalDay::dayAfter(controller.curdate)); });
    menuitems.setCondition(main->actiontoday, [this, isleft] { return isleft(controller.now()); });
    menuitems.setCondition(main->actionpreviousloggedday, [this] { return loggedDay(false).has_value(); });
    menuitems.setCondition(main->actionnextloggedday, [this] { return loggedDay(true).has_value(); });
}

bool MainInterface::isLog(const QWidget *keyboard) const
{
    return keyboard == main->logtable || main->logtable->isAncestorOf(keyboard);
}

bool MainInterface::hasFramedRow() const
{
    const QWidget *keyboard = window->focusWidget();
    // The menu bar borrows the keyboard while it is walked through by keys.
    const bool islog = keyboard == main->menubar ? barcamefromlog : keyboard != nullptr && isLog(keyboard);
    return islog && main->logtable->currentIndex().isValid();
}

void MainInterface::setAllowance(int nutrient)
{
    endEditing();
    controller.showPrefs();
    prefs->rdamenu->setCurrentIndex(nutrient);
    controller.RDAtick();
    prefs->rdainput->setFocus();
    prefs->rdainput->selectAll();
}
