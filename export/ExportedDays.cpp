// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "export/ExportedDays.h"

#include "history/DayReader.h"
#include "history/Figures.h"
#include "model/StoredDay.h"
#include "platform/LocalDay.h"

#include <algorithm>
#include <functional>

namespace Export {

namespace {

// "Energy (kcal)"; the amino acids in full, since "ALA" alone may be a fatty acid too.
QStringList nutrientColumns()
{
    QStringList columns;
    for (int i = 0; i < NutrientCatalogue::nutrientCount; ++i)
        columns.append(QStringLiteral("%1 (%2)").arg(NutrientCatalogue::fullNames()[i], NutrientCatalogue::units()[i]));
    return columns;
}

QStringList shareColumns()
{
    QStringList columns;
    for (const QString &name : NutrientCatalogue::fullNames())
        columns.append(QStringLiteral("%1, known share").arg(name));
    return columns;
}

QString dateText(QDate date)
{
    return LocalDay::key(date).replace(u'_', u'-');
}

History::Days daysOf(const SavedLog &log, const History::Period &period)
{
    History::DayReader reader(std::bind_front(&SavedLog::scan, &log));
    return reader.readOnly(period);
}

void addEntry(RowWriter &writer, QDate date, const Food &food, float grams, const Composition &composition)
{
    writer.addText(dateText(date));
    writer.addText(food.name());
    writer.addNumber(std::optional(food.curamount()));
    writer.addText(food.curunit());
    writer.addNumber(std::optional(grams));
    for (int i = 0; i < NutrientCatalogue::nutrientCount; ++i) {
        const std::optional<float> per100grams = composition.amount(i);
        writer.addNumber(per100grams ? std::optional(Composition::amountIn(grams, *per100grams)) : std::nullopt);
    }
}

} // namespace

ExportedDays::ExportedDays(const SavedLog &savedlog, const History::Period &period)
    : log(savedlog)
    , days(daysOf(savedlog, period))
{ }

bool ExportedDays::writeEntries(Format format, std::FILE *file) const
{
    RowWriter writer(format,
        QStringList{QStringLiteral("date"), QStringLiteral("food"), QStringLiteral("amount"), QStringLiteral("unit"),
            QStringLiteral("grams")}
            + nutrientColumns(),
        file);
    // The history keeps what an entry weighs, not how that was put, so the days are read once more.
    const std::span<const History::Day> all = days.ofPeriod();
    auto day = all.begin();
    bool iswritten = true;
    FoodRecord::Reader records;
    log.scan(LocalDay::key(days.period.first), LocalDay::key(days.period.last),
        [&](const QString &key, const QByteArray &value) {
            if (!iswritten || day == all.end() || key != LocalDay::key(day->date))
                return;
            const StoredDay stored = StoredDay::ofStored(value, records);
            const std::span<const History::Entry> entries = days.entriesOf(*day);
            Q_ASSERT(entries.size() == stored.foods.size());
            for (std::size_t i = 0; iswritten && i < entries.size(); ++i) {
                const auto food = static_cast<std::size_t>(entries[i].food);
                addEntry(writer, day->date, stored.foods[i], entries[i].grams, (*days.foods)[food].composition);
                iswritten = writer.endRow();
            }
            ++day;
        });
    return iswritten && day == all.end();
}

bool ExportedDays::writeDays(Format format, std::FILE *file) const
{
    RowWriter writer(format,
        QStringList{QStringLiteral("date"), QStringLiteral("entries")} + nutrientColumns() + shareColumns(), file);
    const std::span<const History::Day> all = days.ofPeriod();
    History::KnownShareCounter shares(days);
    bool iswritten = true;
    for (std::size_t i = 0; iswritten && i < all.size(); ++i) {
        const History::Day &day = all[i];
        const std::span<const History::Entry> entries = days.entriesOf(day);
        writer.addText(dateText(day.date));
        writer.addCount(day.entrycount);
        for (int nutrient = 0; nutrient < NutrientCatalogue::nutrientCount; ++nutrient) {
            const bool isknown = std::any_of(entries.begin(), entries.end(), [&](const History::Entry &entry) {
                return (*days.foods)[static_cast<std::size_t>(entry.food)].composition.amount(nutrient).has_value();
            });
            writer.addNumber(isknown ? std::optional(day.sums[static_cast<std::size_t>(nutrient)]) : std::nullopt);
        }
        for (const double share : shares.of(all.subspan(i, 1)))
            writer.addNumber(std::optional(share));
        iswritten = writer.endRow();
    }
    return iswritten;
}

} // namespace Export
