// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "history/OwnFoods.h"

#include "model/StoredDay.h"
#include "platform/LocalDay.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace History {

namespace {

// Newest first; the shown day too, whatever the store has of it.
QList<QDate> daysOf(const UserDefaults &prefs, const std::optional<ShownDay> &shown)
{
    QList<QDate> days;
    const QStringList keys = prefs.storedKeys();
    for (const QString &key : keys) {
        if (const std::optional<QDate> day = LocalDay::dateOfKey(key); day && !(shown && *day == shown->date))
            days.append(*day);
    }
    if (shown)
        days.append(shown->date);
    std::sort(days.begin(), days.end(), std::greater());
    return days;
}

QVariant valueOf(QDate day, const UserDefaults &prefs, const std::optional<ShownDay> &shown)
{
    if (!shown || day != shown->date)
        return prefs.peekObjectForKey(LocalDay::key(day));
    QVariantList items;
    for (const QByteArray &record : shown->records)
        items.append(record);
    return items;
}

} // namespace

OwnFoods::OwnFoods(const UserDefaults &prefs, const std::optional<ShownDay> &shown, QDate today)
{
    int found = 0;
    QDate newest;
    const QList<QDate> days = daysOf(prefs, shown);
    for (const QDate day : days) {
        const StoredDay stored = StoredDay::of(valueOf(day, prefs, shown));
        if (stored.foods.empty())
            continue;
        if (newest.isNull() && !(today.isValid() && day > today))
            newest = day;
        // A day that is yet to come makes none of those before it any older.
        const double age = newest.isNull() ? 0.0 : double(day.daysTo(newest));
        addDay(day, stored.foods, std::exp2(-age / halflife));
        if (++found == loggeddays)
            break;
    }
    std::stable_sort(foods.begin(), foods.end(),
        [](const OwnFood &one, const OwnFood &other) { return one.usefulness > other.usefulness; });
    for (std::size_t place = 0; place < foods.size(); ++place)
        places.insert(foods[place].name, place);
}

void OwnFoods::addDay(QDate day, const std::vector<Food> &entries, double weight)
{
    for (const Food &entry : entries) {
        if (!entry.name())
            continue;
        const auto place = places.constFind(*entry.name());
        if (place != places.constEnd()) {
            foods[*place].usefulness += weight;
            continue;
        }
        places.insert(*entry.name(), foods.size());
        foods.push_back({*entry.name(), day, entry.curamount(), entry.curunit(), entry.curunitidx(), weight});
    }
}

std::span<const OwnFood> OwnFoods::mostUseful() const
{
    return std::span(foods).first(std::min(foods.size(), listed));
}

const OwnFood *OwnFoods::named(const QString &name) const
{
    const auto place = places.constFind(name);
    return place != places.constEnd() ? &foods[*place] : nullptr;
}

} // namespace History
