// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "app/AppDelegate.h"

#include "model/FoodRecord.h"
#include "model/StoredDay.h"
#include "platform/LocalDay.h"
#include "platform/UserDefaults.h"
#include "ui/controls/DatePicker.h"
#include "ui/table/TableView.h"

void AppDelegate::setDate(const QDateTime &date)
{
    nutrienttable->reloadData();
    // Another instant of the day shown is not taken: the earlier one stays, and is what is remembered.
    if (curdate.isValid() && LocalDay::key(curdate) == LocalDay::key(date))
        return;
    if (curdate.isValid())
        saveDay();
    datepicker->setDateValue(date);
    foods.clear();
    curdatefoods.clear();
    clearSums();
    loadDay(LocalDay::key(date));
    logtable->reloadData();
    nutrienttable->reloadData();
    curdate = date.toUTC();
    showEntryCount(); // whatever is selected
}

void AppDelegate::saveDay()
{
    QVariantList items;
    items.reserve(curdatefoods.size() + unreadfoods.size());
    for (const QByteArray &record : curdatefoods)
        items.append(record);
    items.append(unreadfoods);
    prefs->setObject(items, LocalDay::key(curdate));
}

// Adds the foods stored under a day's key as if they had been added by hand, so that a second entry of a name is
// dropped.
void AppDelegate::loadDay(const QString &key)
{
    const QVariant stored = prefs->objectForKey(key);
    if (stored.isValid() && stored.typeId() != QMetaType::QVariantList)
        prefs->keepUnread(key);
    StoredDay day = StoredDay::of(stored);
    for (Food &food : day.foods)
        addFoodPriv(std::make_shared<Food>(std::move(food)));
    unreadfoods = day.unread;
}

std::vector<AppDelegate::FoodPointer> AppDelegate::keptFoods() const
{
    std::vector<FoodPointer> kept;
    QList<QByteArray> records = curdatefoods; // by which an entry without a name is known
    const QVariantList copies = prefs->unreadObjectsForKey(LocalDay::key(curdate));
    for (const QVariant &copy : copies) {
        StoredDay day = StoredDay::of(copy);
        for (Food &food : day.foods) {
            const QByteArray record = FoodRecord::archivedDataWithRootObject(food);
            if (holdsName(foods, food.name()) || holdsName(kept, food.name()) || records.contains(record))
                continue;
            records.append(record);
            kept.push_back(std::make_shared<Food>(std::move(food)));
        }
    }
    return kept;
}

void AppDelegate::addKeptFoods()
{
    addEntries(keptFoods());
}

void AppDelegate::updateDate()
{
    setDate(datepicker->dateValue());
}

void AppDelegate::today()
{
    setDate(now());
}

void AppDelegate::previousDay()
{
    setDate(LocalDay::dayBefore(curdate));
}

void AppDelegate::nextDay()
{
    setDate(LocalDay::dayAfter(curdate));
}
