// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/foodsheet/AddFoodSheet.h"

#include "ui_AddFoodSheet.h"

#include <algorithm>
#include <utility>

// How much of the foods: what the query, a row, or the preview says, on the list "To be added" and when all is added.

void AddFoodSheet::setOwnFoods(std::vector<LoggedFood> logged, int listed)
{
    ownfoods = std::move(logged);
    ownfoodslisted = listed;
}

std::optional<Quantity> AddFoodSheet::quantityAt(int row) const
{
    if (const auto place = entered.constFind(row); place != entered.constEnd())
        return *place;
    const std::optional<Quantity> said = foods->saidQuantity(row);
    // Who chooses a food again and says no quantity leaves it as it is on the list.
    return said ? said : controller.quantityToBeAdded(int(controller.foodsToBeAdded().indexOf(foods->nameAt(row))));
}

QString AddFoodSheet::noteAt(int row) const
{
    QStringList notes;
    const std::optional<Quantity> quantity = quantityAt(row);
    if (foods->askedQuantity() && !quantity)
        notes << tr("No unit of this food fits what you typed. It is added as 100 g.");
    const std::optional<Quantity> last = foods->lastQuantity(row);
    if (last && quantity != last)
        notes << tr("Alt+Enter adds %1 (%2).").arg(last->text(), foods->lastTime(row));
    return notes.join(u' ');
}

void AddFoodSheet::quantityChosen(const Quantity &quantity)
{
    if (tobeaddedshown) {
        const int row = ui->tobeaddedlist->currentRow();
        if (row < 0)
            return;
        controller.setQuantityToBeAdded(row, quantity);
        showQuantityToBeAdded(row);
    } else if (ui->foodlist->currentIndex().isValid()) {
        entered.insert(ui->foodlist->currentIndex().row(), quantity);
    }
    sayChoice();
}

void AddFoodSheet::takeLastQuantities()
{
    const QList<int> rows = selectedRows();
    for (const int row : rows) {
        if (const std::optional<Quantity> last = foods->lastQuantity(row))
            entered.insert(row, *last);
    }
}

void AddFoodSheet::showFoodsToBeAdded()
{
    const QStringList &names = controller.foodsToBeAdded();
    ui->tobeaddedlist->clear();
    for (const QString &name : names) {
        auto *item = new QListWidgetItem(name, ui->tobeaddedlist);
        item->setToolTip(name);
        showQuantityToBeAdded(ui->tobeaddedlist->row(item));
    }
    ui->tobeaddedpages->setCurrentWidget(names.isEmpty() ? static_cast<QWidget *>(ui->emptypage) : ui->tobeaddedlist);
    foods->setMarkedFoods(foodsinlog, names);
}

void AddFoodSheet::showQuantityToBeAdded(int row)
{
    const std::optional<Quantity> quantity = controller.quantityToBeAdded(row);
    QListWidgetItem *item = ui->tobeaddedlist->item(row);
    for (const int role : {int(FoodListModel::MarkRole), int(Qt::AccessibleDescriptionRole)})
        item->setData(role, quantity ? quantity->text() : QString());
}

void AddFoodSheet::showFoodToBeAdded()
{
    const int row = ui->tobeaddedlist->currentRow();
    if (row < 0)
        return;
    tobeaddedshown = true;
    ui->preview->showFood(controller.foodsToBeAdded()[row], controller.quantityToBeAdded(row));
    sayChoice();
}

void AddFoodSheet::keepFoods()
{
    const QList<int> rows = selectedRows();
    if (rows.isEmpty())
        return;
    for (const int row : rows)
        controller.addFoodToBeAdded(foods->nameAt(row), quantityAt(row));
    showFoodsToBeAdded();
    ui->tobeaddedlist->scrollToBottom();
    if (ui->searchfield->text().isEmpty())
        search({});
    ui->searchfield->clear();
    ui->searchfield->setFocus();
}

void AddFoodSheet::removeFood()
{
    const int row = ui->tobeaddedlist->currentRow();
    controller.removeFoodToBeAdded(row);
    showFoodsToBeAdded();
    const int left = ui->tobeaddedlist->count();
    ui->tobeaddedlist->setCurrentRow(std::min(row, left - 1));
    showChoice();
    if (left == 0) {
        showCurrentFood();
        ui->searchfield->setFocus();
    }
}

void AddFoodSheet::accept()
{
    ui->preview->amountField()->commitComposition();
    QHash<QString, Quantity> quantities;
    const QList<int> rows = selectedRows();
    QStringList names;
    for (const int row : rows) {
        const QString name = foods->nameAt(row);
        if (const std::optional<Quantity> quantity = quantityAt(row); quantity && !names.contains(name))
            quantities.insert(name, *quantity);
        names << name;
    }
    controller.setSelection(names, quantities);
    emit addSelectedFoods();
}

void AddFoodSheet::reject()
{
    if (isVisible()) {
        foodsleft.clear();
        for (int row = 0; row < controller.foodsToBeAdded().size(); ++row)
            foodsleft.push_back({controller.foodsToBeAdded()[row], controller.quantityToBeAdded(row)});
    }
    controller.clearSelection();
    emit addSelectedFoods();
}
