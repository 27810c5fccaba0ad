// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "app/AppDelegate.h"

#include "model/FoodRecord.h"
#include "ui/foodsheet/AddFoodSheet.h"
#include "ui/foodsheet/ArrayController.h"
#include "ui/table/TableView.h"

#include <QLabel>

#include <algorithm>
#include <utility>

namespace {

// The name that marks an entry for the sweep. An entry that already bears it is swept with the next removal of any row,
// and its amounts stay in the totals: pasting after the removal of a pasted row makes such an entry. So it is meant.
const QString removalmark = QStringLiteral("del");

QString countText(qsizetype count, const QString &one, const QString &many)
{
    return count == 1 ? one : many.arg(count);
}

// Removes the elements at the positions for which `gone` is true, in one pass.
template <typename List>
void removePositions(List &list, const std::vector<bool> &gone)
{
    auto kept = list.begin();
    for (auto each = list.begin(); each != list.end(); ++each) {
        if (gone[static_cast<std::size_t>(each - list.begin())])
            continue;
        if (kept != each)
            *kept = std::move(*each);
        ++kept;
    }
    list.erase(kept, list.end());
}

} // namespace

void AppDelegate::addFood()
{
    QStringList names;
    for (const FoodPointer &food : foods)
        names.append(food->name().value_or(QString()));
    addview->setFoodsInLog(names);
    addview->open();
}

void AppDelegate::addSelectedFoods()
{
    addview->done(0);
    const QStringList names = foodlistcontroller->selectedObjects();
    for (const QString &name : names)
        addFoodPriv(std::make_shared<Food>(name));
    logtable->reloadData();
    nutrienttable->reloadData();
}

// Appends the very object it is given; a food whose name is in the log already is dropped without a word. No
// table is reloaded: every caller does so after its loop.
void AppDelegate::addFoodPriv(const FoodPointer &food)
{
    if (holdsName(foods, food->name()))
        return;
    foods.push_back(food);
    curdatefoods.append(FoodRecord::archivedDataWithRootObject(*food));
    addEntry(*food);
    showCount();
}

bool AppDelegate::holdsName(const std::vector<FoodPointer> &list, const std::optional<QString> &name)
{
    return name && std::any_of(list.begin(), list.end(), [&](const FoodPointer &each) { return each->name() == name; });
}

void AppDelegate::removeSelected()
{
    const QList<int> selected = logtable->selectedRowIndexes();
    if (selected.isEmpty())
        return;
    for (const int row : selected) {
        subtractStoredEntry(row);
        foods[static_cast<std::size_t>(row)]->setName(removalmark);
    }
    sweepRemoved();
    logtable->deselectAll(); // its handler sets the label
    logtable->reloadData();
    nutrienttable->reloadData();
}

// Deletes every entry that bears the removal mark, selected or not: the sweep goes by name, not by row.
void AppDelegate::sweepRemoved()
{
    std::vector<bool> gone;
    gone.reserve(foods.size());
    for (const FoodPointer &food : foods)
        gone.push_back(food->name() == removalmark);
    removePositions(foods, gone);
    removePositions(curdatefoods, gone);
    for (std::vector<float> &column : nutrients)
        removePositions(column, gone);
}

void AppDelegate::cut()
{
    copy();
    removeSelected();
}

void AppDelegate::copy()
{
    const QList<int> selected = logtable->selectedRowIndexes();
    if (selected.isEmpty())
        return;
    copyfoods.clear();
    for (const int row : selected) {
        const Food &entry = *foods[static_cast<std::size_t>(row)];
        auto food = std::make_shared<Food>(entry.name());
        food->setCuramount(entry.curamount());
        food->setCurunit(entry.curunit()); // the title alone: the index stays the default one
        copyfoods.push_back(std::move(food));
    }
}

void AppDelegate::paste()
{
    // No copies are made: a pasted entry and its clipboard food are one, so later edits of it go with the clipboard.
    for (const FoodPointer &food : copyfoods)
        addFoodPriv(food);
    nutrienttable->reloadData();
    logtable->reloadData();
}

void AppDelegate::showCount()
{
    const auto selected = logtable->selectedRowIndexes().size();
    if (selected == 0)
        showEntryCount();
    else
        label->setText(countText(selected, QStringLiteral("1 selected food"), QStringLiteral("%1 selected foods")));
}

void AppDelegate::showEntryCount()
{
    label->setText(
        countText(static_cast<qsizetype>(foods.size()), QStringLiteral("1 food"), QStringLiteral("%1 foods")));
}
