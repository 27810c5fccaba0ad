// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "model/StoredDay.h"

#include "platform/PropertyList.h"

#include <QHash>
#include <QSet>

#include <algorithm>

namespace {

// Up to so many entries it takes less to look through the names than to make a set of them.
constexpr qsizetype usualDay = 40;
// So many have room from the beginning: what a list claims to hold may be no food at all.
constexpr qsizetype mostreserved = 64;

std::optional<Food> foodOf(const QVariant &item)
{
    return item.typeId() == QMetaType::QByteArray ? FoodRecord::unarchiveObjectWithData(item.toByteArray())
                                                  : std::nullopt;
}

// The entries of a list whose items give themselves up by `foodOf`, and what is kept of one that is no food by `kept`.
template <typename Items, typename FoodOf, typename Kept>
StoredDay dayOf(const Items &items, const FoodOf &foodOf, const Kept &kept)
{
    StoredDay day;
    day.foods.reserve(static_cast<std::size_t>(std::min(items.size(), mostreserved)));
    QSet<QString> names;
    const auto isKnown = [&](const QString &name) {
        if (items.size() <= usualDay)
            return std::any_of(
                day.foods.begin(), day.foods.end(), [&](const Food &food) { return food.name() == name; });
        const qsizetype former = names.size();
        names.insert(name);
        return names.size() == former;
    };
    for (const auto &item : items) {
        std::optional<Food> food = foodOf(item);
        if (!food) {
            day.unread.append(kept(item));
            continue;
        }
        if (food->name() && isKnown(*food->name())) // an absent name equals no name
            continue;
        day.foods.push_back(*std::move(food));
    }
    return day;
}

} // namespace

StoredDay StoredDay::of(const QVariant &value)
{
    if (value.typeId() != QMetaType::QVariantList)
        return {};
    return dayOf(value.toList(), foodOf, [](const QVariant &item) { return item; });
}

StoredDay StoredDay::ofStored(const QByteArray &bytes, FoodRecord::Reader &reader)
{
    const std::optional<QList<QByteArray>> records = PropertyList::readDataInPlace(bytes);
    if (!records)
        return of(PropertyList::read(bytes).value_or(QVariant()));
    return dayOf(
        *records, [&](const QByteArray &record) { return reader.unarchiveObjectWithData(record); },
        [](const QByteArray &record) { return QByteArray(record.constData(), record.size()); });
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
