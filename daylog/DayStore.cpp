// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "app/AppDelegate.h"

#include "model/FoodRecord.h"
#include "platform/UserDefaults.h"
#include "ui/DatePicker.h"
#include "ui/TableView.h"

QString AppDelegate::dayKey(const QDateTime &date)
{
    const QDate day = DatePicker::localDate(date);
    return QStringLiteral("%1_%2_%3")
        .arg(day.year(), 4, 10, QLatin1Char('0'))
        .arg(day.month(), 2, 10, QLatin1Char('0'))
        .arg(day.day(), 2, 10, QLatin1Char('0'));
}

void AppDelegate::setDate(const QDateTime &date)
{
    nutrienttable->reloadData();
    // Another instant of the day shown is not taken: the earlier one stays, and is what is remembered.
    if (curdate.isValid() && dayKey(curdate) == dayKey(date))
        return;
    if (curdate.isValid())
        saveDay();
    datepicker->setDateValue(date);
    foods.clear();
    curdatefoods.clear();
    unreadfoods.clear();
    clearSums();
    loadDay(dayKey(date));
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
    prefs->setObject(items, dayKey(curdate));
}

// Adds the foods stored under a day's key as if they had been added by hand, so that a second entry of a name is
// dropped.
void AppDelegate::loadDay(const QString &key)
{
    const QVariant stored = prefs->objectForKey(key);
    if (stored.isValid() && stored.typeId() != QMetaType::QVariantList)
        prefs->keepUnread(key);
    const QVariantList items = stored.typeId() == QMetaType::QVariantList ? stored.toList() : QVariantList();
    for (const QVariant &item : items) {
        const auto food = item.typeId() == QMetaType::QByteArray
            ? FoodRecord::unarchiveObjectWithData(item.toByteArray())
            : std::nullopt;
        if (food)
            addFoodPriv(std::make_shared<Food>(*food));
        else
            unreadfoods.append(item);
    }
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
    setDate(DatePicker::dayBefore(curdate));
}

void AppDelegate::nextDay()
{
    setDate(DatePicker::dayAfter(curdate));
}
