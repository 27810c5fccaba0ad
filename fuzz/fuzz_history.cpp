// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "fuzz/StoredDays.h"
#include "history/Course.h"
#include "history/DayReader.h"
#include "history/Figures.h"
#include "history/Sources.h"
#include "history/Year.h"
#include "model/StoredDay.h"
#include "platform/LocalDay.h"

#include <algorithm>
#include <cmath>

// The history over whatever a store may hold. The first bytes choose the period and the nutrient.

namespace {

using Values = QMap<QString, QByteArray>;

void checkDays(const History::Days &days, const Values &values)
{
    qsizetype entries = 0;
    QDate former;
    for (const History::Day &day : days.all) {
        Fuzzing::require(former.isNull() || day.date > former, "the days are in order, each once");
        former = day.date;
        Fuzzing::require(day.entrycount > 0 && day.firstentry == entries, "each day has its entries");
        entries += day.entrycount;
        StoredDay stored
            = StoredDay::of(PropertyList::read(values.value(LocalDay::key(day.date))).value_or(QVariant()));
        const DaySums::Amounts sums = DaySums::of(stored.foods);
        Fuzzing::require(std::equal(sums.begin(), sums.end(), day.sums.begin(), Fuzzing::same),
            "a day's sums are those of opening it");
    }
    Fuzzing::require(entries == days.entries.size(), "each entry is of a day");
}

void checkCourse(const History::Days &days, int nutrient)
{
    const History::Course course = History::course(days, nutrient);
    QDate next = days.period.first;
    std::size_t logged = 0;
    for (const History::Bar &bar : course.bars) {
        Fuzzing::require(bar.days.first == next && bar.days.last >= next, "the bars are without a hole");
        next = bar.days.last.addDays(1);
        logged += static_cast<std::size_t>(bar.loggeddays);
    }
    Fuzzing::require(next == days.period.last.addDays(1), "the bars are all of the period");
    Fuzzing::require(logged == days.ofPeriod().size(), "each logged day is in a bar");
    for (const History::RunningMean &mean : course.running)
        Fuzzing::require(days.period.contains(mean.day), "the means are of the period");
}

void checkFigures(const History::Days &days)
{
    History::Allowances allowances{};
    allowances[1] = 50.0F;
    const std::optional<History::Table> table = History::figures(days, allowances);
    Fuzzing::require(table.has_value() == !days.ofPeriod().empty(), "there are figures where there are days");
    if (!table)
        return;
    for (const History::NutrientFigures &figures : *table) {
        Fuzzing::require(!(figures.lowest > figures.highest), "the lowest is not above the highest");
        Fuzzing::require(
            days.on(figures.lowestday) && days.on(figures.highestday), "the lowest and the highest day are logged");
        Fuzzing::require(figures.knownshare >= 0.0 && figures.knownshare < 1.000001, "a share is from 0 to 1");
    }
}

void checkSources(const History::Days &days, int nutrient)
{
    const History::Sources sources = History::sources(days, nutrient);
    const auto isEaten = [&](int count, QDate last) {
        return count > 0 && static_cast<std::size_t>(count) <= days.ofPeriod().size() && days.on(last);
    };
    for (std::size_t i = 0; i < sources.known.size(); ++i) {
        const History::Source &source = sources.known[i];
        Fuzzing::require(isEaten(source.days, source.lastday), "a source was eaten on a logged day");
        Fuzzing::require(i == 0 || !(source.amount > sources.known[i - 1].amount), "the most comes first");
        Fuzzing::require(
            source.share.has_value() == sources.known[0].share.has_value(), "all have a share or none has");
    }
    for (const History::UnknownSource &source : sources.unknown)
        Fuzzing::require(isEaten(source.days, source.lastday), "an unknown source was eaten on a logged day");
}

void checkYear(const History::Days &days, int nutrient)
{
    for (const float allowance : {0.0F, 50.0F}) {
        const History::Year year = History::year(days, nutrient, allowance);
        Fuzzing::require(year.weeks == 53 || year.weeks == 54, "a year has 53 weeks or 54");
        for (const History::Cell &cell : year.cells) {
            Fuzzing::require(cell.week < year.weeks && cell.weekday == cell.date.dayOfWeek() - 1, "a cell is a day");
            Fuzzing::require(cell.step.has_value() == (days.on(cell.date) != nullptr), "a logged day has a step");
            Fuzzing::require(!cell.step || (*cell.step >= 0 && *cell.step < History::steps), "a step is one of five");
        }
    }
}

void checkNeighbours(History::DayReader &reader, QDate date)
{
    const History::Days all = reader.readOnly({LocalDay::firstDate(), LocalDay::lastDate()});
    const std::span<const History::Day> before = all.between(LocalDay::firstDate(), date.addDays(-1));
    const std::span<const History::Day> after = all.between(date.addDays(1), LocalDay::lastDate());
    Fuzzing::require(reader.loggedBefore(date) == (before.empty() ? std::nullopt : std::optional(before.back().date)),
        "the logged day before is found");
    Fuzzing::require(reader.loggedAfter(date) == (after.empty() ? std::nullopt : std::optional(after.front().date)),
        "the logged day after is found");
}

History::Days readDays(History::DayReader &reader, QDate last, unsigned choice)
{
    if (choice % 5 == 4)
        return reader.readAll(last);
    return reader.read(History::periodUpTo(last, static_cast<History::Length>(choice % 5)));
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    StoredDays::prepareFoods();
    StoredDays::Input input(data, size);
    const unsigned choice = input.number(1);
    const int nutrient = static_cast<int>(input.number(1) % NutrientCatalogue::nutrientCount);
    const std::optional<QDate> last
        = LocalDay::dateOfKey(QString::fromLatin1(StoredDays::keys[choice / 5 % StoredDays::keys.size()]));
    if (!last)
        return 0;
    const Values values = StoredDays::read(input);
    History::DayReader reader([&](const QString &first, const QString &end, const History::DayReader::Row &row) {
        for (auto at = values.lowerBound(first); at != values.end() && at.key() <= end; ++at)
            row(at.key(), *at);
        return true;
    });
    History::Days days = readDays(reader, *last, choice);
    checkDays(days, values);
    checkNeighbours(reader, *last);
    for (int pass = 0; pass < 2; ++pass) {
        checkCourse(days, nutrient);
        checkFigures(days);
        checkSources(days, nutrient);
        checkYear(days, nutrient);
        const QList<QDate> incomplete = History::incompleteDays(days);
        const std::size_t left = days.ofPeriod().size() - static_cast<std::size_t>(incomplete.size());
        days = days.without(incomplete);
        Fuzzing::require(days.ofPeriod().size() == left, "incomplete days are logged ones");
    }
    return 0;
}
