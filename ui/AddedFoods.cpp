// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/MainInterface.h"

#include "app/AppDelegate.h"
#include "app/SettingsKeys.h"
#include "history/OwnFoods.h"
#include "platform/LocalDay.h"
#include "platform/UserDefaults.h"
#include "ui/foodsheet/AddFoodSheet.h"
#include "ui/table/PopUpButtonCell.h"
#include "ui_MainWindow.h"

#include <QLocale>

// What the interface does around adding foods: what the sheet is told before, and the quantities that are entered
// after.

namespace {

const QString namecolumn = QStringLiteral("Name");
const QString unitcolumn = QStringLiteral("Unit");
constexpr int amountplace = 1; // of the amount among the log's columns

QString dayText(QDate day, QDate today)
{
    if (day == today)
        return MainInterface::tr("today");
    if (day == today.addDays(-1))
        return MainInterface::tr("yesterday");
    const bool thisyear = day.year() == today.year();
    return QLocale::c().toString(day, thisyear ? QStringLiteral("d MMM") : QStringLiteral("d MMM yyyy"));
}

} // namespace

void MainInterface::openFoodSheet()
{
    main->logtable->endEditing();
    // A date typed but not entered counts now: the sheet is to mark the foods of the day that it adds to.
    main->datepicker->interpretText();
    prepareFoodSheet();
    controller.addFood();
}

void MainInterface::prepareFoodSheet()
{
    const UserDefaults &store = UserDefaults::standardUserDefaults();
    std::vector<LoggedFood> logged;
    const QDate today = LocalDay::dateOf(controller.now());
    const History::OwnFoods own(
        store, History::ShownDay{LocalDay::dateOf(controller.curdate), controller.curdatefoods}, today);
    for (const History::OwnFood &food : own.all())
        logged.push_back({food.name, dayText(food.lastday, today), food.amount, food.unit, float(food.usefulness)});
    const bool first = store.boolForKey(SettingsKeys::OwnFoodsFirst);
    addview->setAllowances(controller.rdas);
    addview->setOwnFoods(std::move(logged), first ? int(History::OwnFoods::listed) : 0);
}

void MainInterface::addSelectedFoods()
{
    const int former = controller.numberOfRowsInTableView(main->logtable);
    controller.addSelectedFoods();
    showFoodsLeft();
    main->logtable->setFocus();
    const int rows = controller.numberOfRowsInTableView(main->logtable);
    for (int row = former; row < rows; ++row)
        enterQuantity(row);
    frameAddedFood(former);
    showKept();
}

// The steps of a person who chooses a unit in the row's menu and types an amount.
void MainInterface::enterQuantity(int row)
{
    const QString name = controller.objectValueForTableColumn(main->logtable, namecolumn, row).toString();
    const std::optional<Quantity> quantity = addview->foodlistcontroller()->quantityOf(name);
    if (!quantity)
        return;
    auto &cell = static_cast<PopUpButtonCell &>(*main->logtable->cellForColumn(unitcolumn));
    controller.willDisplayCell(main->logtable, cell, unitcolumn, row);
    const QList<MenuItemUnit> items = cell.items();
    if (items.value(quantity->unitidx).title() != quantity->unit)
        return; // the food's file has changed meanwhile, and the amount would be one of something else
    const MenuItemUnit &chosen = items[quantity->unitidx];
    chosen.action(chosen);
    QAbstractItemModel *cells = main->logtable->model();
    cells->setData(cells->index(row, amountplace), quantity->amount, Qt::EditRole);
    controller.updateNutrients();
}
