// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "app/AppDelegate.h"

#include "model/DaySums.h"
#include "ui/table/TableView.h"

// Every sum is one float operation at a time, in the order written: the last bits depend on it, and are part of what
// the program promises. A total is moved by each change and never summed anew while its day is shown.

// The amounts of an entry that has just been appended to the log, in ascending nutrient order. The selection's sums
// stay.
void AppDelegate::addEntry(Food &food)
{
    const DaySums::Amounts amounts = DaySums::amountsOf(food);
    DaySums::add(nutrientstotal, amounts);
    for (std::size_t i = 0; i < nutrients.size(); ++i)
        nutrients[i].push_back(amounts[i]);
}

// Takes an entry that is about to be removed out of the totals by the amounts stored in the columns. An edit, unlike
// this, takes out what it computes afresh.
void AppDelegate::subtractStoredEntry(int row)
{
    for (std::size_t i = 0; i < nutrients.size(); ++i) {
        nutrientsselected[i] = 0.0F;
        nutrientstotal[i] = nutrientstotal[i] - nutrients[i][static_cast<std::size_t>(row)];
    }
}

// Takes an entry that is about to be edited out of the totals, by its amounts computed afresh: the columns are not
// read.
void AppDelegate::subtractRecomputedEntry(int row)
{
    const DaySums::Amounts amounts = DaySums::amountsOf(*foods[static_cast<std::size_t>(row)]);
    for (std::size_t i = 0; i < nutrients.size(); ++i) {
        nutrientsselected[i] = 0.0F;
        nutrientstotal[i] = nutrientstotal[i] - amounts[i];
    }
}

// Puts an edited entry's new amounts into the totals and the columns.
void AppDelegate::replaceEntry(int row)
{
    const DaySums::Amounts amounts = DaySums::amountsOf(*foods[static_cast<std::size_t>(row)]);
    DaySums::add(nutrientstotal, amounts);
    for (std::size_t i = 0; i < nutrients.size(); ++i)
        nutrients[i][static_cast<std::size_t>(row)] = amounts[i];
}

void AppDelegate::clearSums()
{
    nutrientsselected.fill(0.0F);
    nutrientstotal.fill(0.0F);
    for (std::vector<float> &column : nutrients)
        column.clear();
}

void AppDelegate::tableViewSelectionDidChange()
{
    const QList<int> selected = logtable->selectedRowIndexes();
    // An empty selection leaves the selection's sums as they were: nothing shows them then.
    if (!selected.isEmpty()) {
        nutrientsselected.fill(0.0F);
        for (const int row : selected)
            for (std::size_t i = 0; i < nutrients.size(); ++i)
                nutrientsselected[i] = nutrientsselected[i] + nutrients[i][static_cast<std::size_t>(row)];
    }
    showCount();
    nutrienttable->reloadData();
}
