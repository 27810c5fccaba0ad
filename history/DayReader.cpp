// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "history/DayReader.h"

#include "model/StoredDay.h"
#include "platform/LocalDay.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace History {

namespace {

// How many days before a period the mean over seven reaches.
constexpr int leadin = 6;

Period clipped(QDate first, QDate last)
{
    return {std::max(first, LocalDay::firstDate()), std::min(last, LocalDay::lastDate())};
}

QVariant listOf(const ShownDay &shown)
{
    QVariantList items;
    for (const QByteArray &record : shown.records)
        items.append(record);
    return items;
}

} // namespace

DayReader::DayReader(const UserDefaults &prefs)
    : DayReader(std::bind_front(&UserDefaults::peekRange, &prefs))
{ }

DayReader::DayReader(Scan rows)
    : scan(std::move(rows))
    , foods(std::make_shared<Foods>())
{ }

bool DayReader::eachDay(const Period &range, const std::optional<ShownDay> &shown,
    const std::function<void(QDate date, const StoredDay &day)> &each)
{
    bool iswaiting = shown && range.contains(shown->date);
    const auto handOverShown = [&] {
        iswaiting = false;
        each(shown->date, StoredDay::of(listOf(*shown)));
    };
    const auto take = [&](const QString &key, const QByteArray &value) {
        const std::optional<QDate> date = LocalDay::dateOfKey(key);
        if (!date)
            return; // a kept copy of a day lies between the days
        if (iswaiting && *date >= shown->date)
            handOverShown();
        if (!shown || *date != shown->date)
            each(*date, StoredDay::ofStored(value, records));
    };
    const bool iswhole = scan(LocalDay::key(range.first), LocalDay::key(range.last), take);
    if (iswaiting)
        handOverShown();
    return iswhole;
}

Days DayReader::read(const Period &period, const std::optional<ShownDay> &shown)
{
    const int year = period.last.year();
    Days days
        = readRange(clipped(std::min(period.first.addDays(-leadin), QDate(year, 1, 1)), QDate(year, 12, 31)), shown);
    days.period = period;
    return days;
}

Days DayReader::readAll(QDate last, const std::optional<ShownDay> &shown)
{
    Days days = readRange({LocalDay::firstDate(), QDate(last.year(), 12, 31)}, shown);
    const bool isempty = days.all.isEmpty() || days.all.first().date > last;
    days.period = {isempty ? last : days.all.first().date, last};
    return days;
}

Days DayReader::readOnly(const Period &period, const std::optional<ShownDay> &shown)
{
    return readRange(period, shown);
}

Days DayReader::readRange(const Period &range, const std::optional<ShownDay> &shown)
{
    Days days{range, {}, {}, foods};
    days.iswhole = eachDay(range, shown, [&](QDate date, const StoredDay &day) { add(days, date, day); });
    return days;
}

void DayReader::add(Days &days, QDate date, const StoredDay &stored)
{
    if (stored.foods.empty())
        return;
    Day day{date, days.entries.size(), static_cast<qsizetype>(stored.foods.size()), {}};
    for (const Food &food : stored.foods) {
        const int place = placeOf(food.name());
        const Composition &composition = (*foods)[static_cast<std::size_t>(place)].composition;
        const float grams = composition.grams(food.curamount(), food.curunit());
        days.entries.append({place, grams});
        DaySums::add(day.sums, composition, grams);
    }
    days.all.append(day);
}

int DayReader::placeOf(const std::optional<QString> &name)
{
    // The reader of records hands out one text again and again. To know it by its place in memory takes a third of
    // what the look at all its letters takes.
    const bool isshared = name && !name->isDetached();
    if (isshared) {
        const auto known = sharednames.constFind(name->constData());
        if (known != sharednames.constEnd())
            return known->place;
    }
    const int place = placeByName(name);
    if (isshared)
        sharednames.insert(name->constData(), {*name, place});
    return place;
}

int DayReader::placeByName(const std::optional<QString> &name)
{
    const int place = name ? places.value(*name, -1) : namelessplace;
    if (place >= 0)
        return place;
    const int newplace = static_cast<int>(foods->size());
    NamedFood &food = foods->emplace_back();
    food.name = name;
    static_cast<void>(food.composition.read(name)); // without a file nothing is known of it
    if (name)
        places.insert(*name, newplace);
    else
        namelessplace = newplace;
    return newplace;
}

std::optional<QDate> DayReader::loggedBefore(QDate date, const std::optional<ShownDay> &shown)
{
    std::optional<QDate> found;
    QDate end = date;
    for (int length = 1; !found && end > LocalDay::firstDate(); length *= 4) {
        const Period range = clipped(end.addDays(-length), end.addDays(-1));
        eachDay(range, shown, [&](QDate day, const StoredDay &stored) {
            if (!stored.foods.empty())
                found = day;
        });
        end = range.first;
    }
    return found;
}

std::optional<QDate> DayReader::loggedAfter(QDate date, const std::optional<ShownDay> &shown)
{
    std::optional<QDate> found;
    QDate begin = date;
    for (int length = 1; !found && begin < LocalDay::lastDate(); length *= 4) {
        const Period range = clipped(begin.addDays(1), begin.addDays(length));
        eachDay(range, shown, [&](QDate day, const StoredDay &stored) {
            if (!found && !stored.foods.empty())
                found = day;
        });
        begin = range.last;
    }
    return found;
}

} // namespace History
