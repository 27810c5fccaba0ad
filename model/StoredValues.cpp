// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "model/StoredValues.h"

#include "catalog/NutrientCatalogue.h"
#include "model/FoodRecord.h"
#include "platform/LocalDay.h"
#include "platform/NumberText.h"

#include <QHash>
#include <QSet>

namespace {

std::optional<Food> foodOf(const QVariant &item)
{
    return item.typeId() == QMetaType::QByteArray ? FoodRecord::unarchiveObjectWithData(item.toByteArray())
                                                  : std::nullopt;
}

UserDefaults::Joined joinDays(const QVariantList &stored, const QVariantList &mine)
{
    QVariantList entries;
    QVariantList unread;
    QHash<QString, QByteArray> records;
    for (const QVariant &item : stored) {
        const std::optional<Food> food = foodOf(item);
        (food ? entries : unread).append(item);
        if (food && food->name() && !records.contains(*food->name()))
            records.insert(*food->name(), FoodRecord::archivedDataWithRootObject(*food));
    }
    bool iswhole = true;
    for (const QVariant &item : mine) {
        const std::optional<Food> food = foodOf(item);
        if (!food && !unread.contains(item))
            unread.append(item);
        if (!food)
            continue;
        const auto same = food->name() ? records.constFind(*food->name()) : records.constEnd();
        if (same == records.constEnd())
            entries.append(item);
        else
            iswhole = iswhole && *same == FoodRecord::archivedDataWithRootObject(*food);
    }
    return {entries + unread, iswhole};
}

UserDefaults::Joined joinRDAs(const QVariantList &stored, const QVariantList &mine, const QVariantList &changed)
{
    QVariantList values;
    for (int i = 0; i < NutrientCatalogue::nutrientCount; ++i)
        values.append(StoredValues::rda(changed.value(i).toBool() ? mine.value(i) : stored.value(i)));
    return {values};
}

} // namespace

StoredValues::Day StoredValues::day(const QVariant &value)
{
    Day day;
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

float StoredValues::rda(const QVariant &element)
{
    switch (element.typeId()) {
    case QMetaType::QString:
        return NumberText::floatValue(element.toString());
    case QMetaType::Bool:
        return element.toBool() ? 1.0F : 0.0F;
    case QMetaType::Float:
        return element.value<float>();
    case QMetaType::Double:
        return static_cast<float>(element.value<double>());
    case QMetaType::Int:
    case QMetaType::LongLong:
        return static_cast<float>(element.toLongLong());
    default:
        return 0.0F;
    }
}

std::optional<UserDefaults::Joined> StoredValues::join(
    const QString &key, const QVariant &stored, const QVariant &mine, const QVariant &changed)
{
    if (stored.typeId() != QMetaType::QVariantList)
        return std::nullopt;
    if (key == rdaskey)
        return joinRDAs(stored.toList(), mine.toList(), changed.toList());
    if (LocalDay::dateOfKey(key))
        return joinDays(stored.toList(), mine.toList());
    return std::nullopt;
}
