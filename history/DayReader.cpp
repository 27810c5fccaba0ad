// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "history/DayReader.h"

#include "model/StoredDay.h"
#include "platform/LocalDay.h"
#include "platform/PropertyList.h"

#include <algorithm>
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

// Every day of the range that has a value, in order; the shown one with its own. False when some could not be read.
bool eachDay(const DayReader::Scan &scan, const Period &range, const std::optional<ShownDay> &shown,
    const std::function<void(QDate date, const QVariant &value)> &each)
{
    bool iswaiting = shown && range.contains(shown->date);
    const auto handOverShown = [&] {
        iswaiting = false;
        each(shown->date, listOf(*shown));
    };
    const auto take = [&](const QString &key, const QByteArray &value) {
        const std::optional<QDate> date = LocalDay::dateOfKey(key);
        if (!date)
            return; // a kept copy of a day lies between the days
        if (iswaiting && *date >= shown->date)
            handOverShown();
        if (!shown || *date != shown->date)
            each(*date, PropertyList::read(value).value_or(QVariant()));
    };
    const bool iswhole = scan(LocalDay::key(range.first), LocalDay::key(range.last), take);
    if (iswaiting)
        handOverShown();
    return iswhole;
}

} // namespace

DayReader::DayReader(const UserDefaults &prefs)
    : DayReader([&prefs](const QString &first, const QString &last, const Row &row) {
        return prefs.peekRange(first, last, row);
    })
{ }

DayReader::DayReader(Scan rows)
    : scan(std::move(rows))
    , foods(std::make_shared<Foods>())
{ }

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
    days.iswhole = eachDay(scan, range, shown, [&](QDate date, const QVariant &value) { add(days, date, value); });
    return days;
}

void DayReader::add(Days &days, QDate date, const QVariant &value)
{
    const StoredDay stored = StoredDay::of(value);
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
        eachDay(scan, range, shown, [&](QDate day, const QVariant &value) {
            if (!StoredDay::of(value).foods.empty())
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
        eachDay(scan, range, shown, [&](QDate day, const QVariant &value) {
            if (!found && !StoredDay::of(value).foods.empty())
                found = day;
        });
        begin = range.last;
    }
    return found;
}

} // namespace History
