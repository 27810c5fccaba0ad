// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "app/AppDelegate.h"

#include "app/SettingsKeys.h"
#include "model/FoodRecord.h"
#include "platform/NumberText.h"
#include "platform/UserDefaults.h"
#include "ui/table/MenuItemUnit.h"
#include "ui/table/TableView.h"

// The two edits differ, on purpose, in when the selection is cleared and in what is reloaded.

void AppDelegate::setObjectValue(const TableView *table, const QVariant &value, const QString &column, int row)
{
    if (table != logtable || column != QStringLiteral("Amount"))
        return;
    logtable->deselectAll(); // its handler shows the day's totals before they change
    subtractRecomputedEntry(row);
    foods[static_cast<std::size_t>(row)]->setCuramount(NumberText::floatValue(value.toString()));
    curdatefoods[row] = FoodRecord::archivedDataWithRootObject(*foods[static_cast<std::size_t>(row)]);
    replaceEntry(row);
    // No table is reloaded here; the interface asks for fresh figures once the editor has closed.
}

void AppDelegate::updateUnit(const MenuItemUnit &item)
{
    const int row = item.tag();
    Food &food = *foods[static_cast<std::size_t>(row)];
    subtractRecomputedEntry(row);
    food.setUnit(item.title(), item.idx(), prefs->boolForKey(SettingsKeys::RecalculateAmount));
    curdatefoods[row] = FoodRecord::archivedDataWithRootObject(food);
    logtable->deselectAll(); // after the change and before the new amounts are added
    replaceEntry(row);
    logtable->reloadData();
    nutrienttable->reloadData();
}
