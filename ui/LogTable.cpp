// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "app/AppDelegate.h"

#include "platform/NumberText.h"
#include "ui/table/MenuItemUnit.h"
#include "ui/table/PopUpButtonCell.h"
#include "ui/table/TableView.h"
#include "ui/table/TextFieldCellRDA.h"

namespace {

// "28.35 g", "50 g".
QString weightText(float grams)
{
    QString text = NumberText::fixed(double(grams), 2);
    while (text.contains(u'.') && (text.endsWith(u'0') || text.endsWith(u'.')))
        text.chop(1);
    return text + QStringLiteral(" g");
}

} // namespace

// The callbacks of both tables come here first; which table asks is told by identity.

int AppDelegate::numberOfRowsInTableView(const TableView *table) const
{
    if (table == logtable)
        return static_cast<int>(foods.size());
    return table == nutrienttable ? NutrientCatalogue::nutrientCount : 0;
}

QVariant AppDelegate::objectValueForTableColumn(const TableView *table, const QString &column, int row)
{
    if (table == logtable)
        return logValue(column, row);
    return table == nutrienttable ? nutrientValue(column, row) : QString();
}

QVariant AppDelegate::logValue(const QString &column, int row)
{
    Food &food = *foods[static_cast<std::size_t>(row)];
    if (column == QStringLiteral("Name"))
        return food.name().value_or(QString());
    if (column == QStringLiteral("Amount"))
        return NumberText::fixed(double(food.curamount()), 2);
    if (column == QStringLiteral("Unit"))
        return food.curunitidx();
    // Every other column is an energy column, whatever it is called; its cell does the formatting.
    return food.getAmountOfNutrient(QStringLiteral("Energy"));
}

std::optional<QList<int>> AppDelegate::selectionIndexesForProposedSelection(
    const TableView *table, const QList<int> &proposed)
{
    if (table == logtable)
        return proposed;
    return std::nullopt;
}

void AppDelegate::willDisplayCell(const TableView *table, TableCell &cell, const QString &column, int row)
{
    if (table == logtable && column == QStringLiteral("Unit"))
        rebuildUnits(static_cast<PopUpButtonCell &>(cell), row);
    else if (table == nutrienttable && column == QStringLiteral("Amount"))
        prepareBar(static_cast<TextFieldCellRDA &>(cell), row);
}

// Fills the unit pop-up for a row and selects its unit by title. The stored index is deliberately not what is shown.
void AppDelegate::rebuildUnits(PopUpButtonCell &cell, int row)
{
    cell.removeAllItems();
    Food &food = *foods[static_cast<std::size_t>(row)];
    int position = 0;
    int chosen = 0;
    const QStringList titles = food.getUnitNames();
    for (const QString &title : titles) {
        MenuItemUnit item;
        item.setTag(row);
        item.setTitle(title);
        if (title == food.curunit())
            chosen = position; // the last match wins
        item.action = [this](const MenuItemUnit &picked) { updateUnit(picked); };
        item.detail = [grams = food.gramsOfUnit(title).value_or(0.0F)] { return weightText(grams); };
        item.setIdx(position++);
        cell.addItem(item);
    }
    cell.selectItemAtIndex(chosen);
}
