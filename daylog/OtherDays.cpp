// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "app/AppDelegate.h"

#include "model/StoredDay.h"
#include "platform/LocalDay.h"
#include "platform/UserDefaults.h"
#include "ui/table/TableView.h"

#include <algorithm>
#include <utility>

std::vector<AppDelegate::FoodPointer> AppDelegate::entriesOf(QDate day) const
{
    std::vector<FoodPointer> entries;
    StoredDay stored = StoredDay::of(prefs->peekObjectForKey(LocalDay::key(day)));
    for (Food &food : stored.foods)
        entries.push_back(std::make_shared<Food>(std::move(food)));
    return entries;
}

std::optional<QDate> AppDelegate::otherLoggedDay(QDate from, bool islater) const
{
    QStringList keys = prefs->storedKeys(); // the days' among them are in the order of the calendar
    if (!islater)
        std::reverse(keys.begin(), keys.end());
    const QDate shown = LocalDay::dateOf(curdate);
    for (const QString &key : std::as_const(keys)) {
        const std::optional<QDate> day = LocalDay::dateOfKey(key);
        if (!day || *day == shown || (islater ? *day <= from : *day >= from))
            continue;
        if (!StoredDay::of(prefs->peekObjectForKey(key)).foods.empty())
            return day;
    }
    return std::nullopt;
}

bool AppDelegate::holds(const Food &food) const
{
    return holdsName(foods, food.name());
}

void AppDelegate::addEntries(const std::vector<FoodPointer> &entries)
{
    for (const FoodPointer &food : entries)
        addFoodPriv(food);
    logtable->reloadData();
    nutrienttable->reloadData();
}
