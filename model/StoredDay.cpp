// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "model/StoredDay.h"

#include "model/FoodRecord.h"

#include <QHash>
#include <QSet>

namespace {

std::optional<Food> foodOf(const QVariant &item)
{
    return item.typeId() == QMetaType::QByteArray ? FoodRecord::unarchiveObjectWithData(item.toByteArray())
                                                  : std::nullopt;
}

} // namespace

StoredDay StoredDay::of(const QVariant &value)
{
    StoredDay day;
    if (value.typeId() != QMetaType::QVariantList)
        return day;
    QSet<QString> names;
    const QVariantList items = value.toList();
    for (const QVariant &item : items) {
        std::optional<Food> food = foodOf(item);
        if (!food) {
            day.unread.append(item);
            continue;
        }
        if (food->name()) { // an absent name equals no name
            if (names.contains(*food->name()))
                continue;
            names.insert(*food->name());
        }
        day.foods.push_back(*std::move(food));
    }
    return day;
}

UserDefaults::Joined StoredDay::joined(const QVariantList &stored, const QVariantList &mine)
{
    QVariantList entries;
    QVariantList unread;
    QHash<QString, QByteArray> records; // by what they are known by
    // An absent name equals no name, so such an entry is known by its record.
    const auto identity
        = [](const Food &food, const QByteArray &record) { return food.name().value_or(QString::fromLatin1(record)); };
    for (const QVariant &item : stored) {
        const std::optional<Food> food = foodOf(item);
        (food ? entries : unread).append(item);
        if (!food)
            continue;
        const QByteArray record = FoodRecord::archivedDataWithRootObject(*food);
        if (!records.contains(identity(*food, record)))
            records.insert(identity(*food, record), record);
    }
    bool iswhole = true;
    for (const QVariant &item : mine) {
        const std::optional<Food> food = foodOf(item);
        if (!food) {
            if (!unread.contains(item))
                unread.append(item);
            continue;
        }
        const QByteArray record = FoodRecord::archivedDataWithRootObject(*food);
        const auto same = records.constFind(identity(*food, record));
        if (same == records.constEnd())
            entries.append(item);
        else
            iswhole = iswhole && *same == record;
    }
    return {entries + unread, iswhole};
}
