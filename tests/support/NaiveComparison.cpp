// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "NaiveComparison.h"

#include "model/FoodRecord.h"
#include "ui/controls/DatePicker.h"
#include "ui/table/PopUpButtonCell.h"
#include "ui/table/TextFieldCellRDA.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

namespace {

const QString amountcolumn = QStringLiteral("Amount");
const QString unitcolumn = QStringLiteral("Unit");

QString wrong(const char *what, std::size_t place, const QString &is, const std::string &expected)
{
    return QStringLiteral("%1 %2: \"%3\" for \"%4\"")
        .arg(QString::fromLatin1(what))
        .arg(place)
        .arg(is, QString::fromStdString(expected));
}

bool same(const QString &text, const std::string &expected)
{
    return text == QString::fromStdString(expected);
}

bool same(const Food &food, const Naive::Record &record)
{
    return food.name() == toText(record.name) && bitsOf(food.curamount()) == bitsOf(record.amount)
        && food.curunit() == toText(record.unit) && food.curunitidx() == record.unitindex;
}

bool sameRecord(const QByteArray &data, const Naive::Record &record)
{
    const auto food = FoodRecord::unarchiveObjectWithData(data);
    return food && same(*food, record);
}

QString differenceOfEntries(const TestedAppDelegate &log, const Naive::Log &naive)
{
    const std::size_t count = naive.foods.size();
    if (log.foods.size() != count || std::size_t(log.curdatefoods.size()) != count)
        return QStringLiteral("%1 entries for %2").arg(log.foods.size()).arg(count);
    for (std::size_t row = 0; row < count; ++row) {
        if (!same(*log.foods[row], recordOf(*naive.foods[row])))
            return QStringLiteral("entry %1").arg(row);
        if (!sameRecord(log.curdatefoods[int(row)], naive.records[row]))
            return QStringLiteral("record %1").arg(row);
    }
    if (log.copyfoods.size() != naive.clipboard.size())
        return QStringLiteral("clipboard size");
    for (std::size_t i = 0; i < naive.clipboard.size(); ++i)
        if (!same(*log.copyfoods[i], recordOf(*naive.clipboard[i])))
            return QStringLiteral("clipboard food %1").arg(i);
    return {};
}

QString differenceOfSums(const TestedAppDelegate &log, const Naive::Log &naive)
{
    const std::size_t count = naive.foods.size();
    for (std::size_t i = 0; i < Naive::nutrientcount; ++i) {
        if (log.nutrients[i].size() != count)
            return QStringLiteral("length of column %1").arg(i);
        for (std::size_t row = 0; row < count; ++row)
            if (bitsOf(log.nutrients[i][row]) != bitsOf(naive.amounts[row][i]))
                return QStringLiteral("column %1, row %2").arg(i).arg(row);
        if (bitsOf(log.nutrientstotal[i]) != bitsOf(naive.total[i]))
            return QStringLiteral("total %1: %2 for %3")
                .arg(i)
                .arg(double(log.nutrientstotal[i]))
                .arg(double(naive.total[i]));
        if (bitsOf(log.nutrientsselected[i]) != bitsOf(naive.selected[i]))
            return QStringLiteral("selected sum %1").arg(i);
        if (bitsOf(log.rdas[i]) != bitsOf(naive.rdas[i]))
            return QStringLiteral("RDA %1").arg(i);
    }
    return {};
}

QString differenceOfControls(const TestedAppDelegate &log, const Naive::Log &naive)
{
    QList<int> selection;
    for (const std::size_t row : naive.selection)
        selection.append(int(row));
    if (log.logtable->selectedRowIndexes() != selection)
        return QStringLiteral("selection");
    if (!log.nutrienttable->selectedRowIndexes().isEmpty())
        return QStringLiteral("a selected nutrient");
    if (!same(log.label->text(), naive.label))
        return wrong("label", 0, log.label->text(), naive.label);
    if (log.curdate != instantOf(*naive.curdate))
        return QStringLiteral("date");
    if (log.datepicker->dateValue() != instantOf(naive.picker))
        return QStringLiteral("date in the picker");
    if (log.rdamenu->currentIndex() != naive.rdamenu)
        return QStringLiteral("RDA menu");
    if (!same(log.rdainput->text(), naive.rdainput))
        return wrong("RDA field", 0, log.rdainput->text(), naive.rdainput);
    if (!same(log.rdalabel->text(), naive.rdalabel))
        return wrong("RDA unit", 0, log.rdalabel->text(), naive.rdalabel);
    return {};
}

// The menu that each row would open now.
QString differenceOfMenus(Run &run, Naive::Log &naive)
{
    PopUpButtonCell units;
    for (std::size_t row = 0; row < naive.foods.size(); ++row) {
        const int r = int(row);
        units.setObjectValue(run.logCell(unitcolumn, r));
        if (units.objectValue() != QVariant(naive.foods[row]->unitindex))
            return QStringLiteral("unit index of row %1").arg(row);
        run.controller.willDisplayCell(run.controller.logtable, units, unitcolumn, r);
        const std::vector<std::string> titles = naive.unitTitles(row);
        bool sametitles = std::size_t(units.items().size()) == titles.size();
        for (std::size_t i = 0; sametitles && i < titles.size(); ++i) {
            const MenuItemUnit &item = units.items()[int(i)];
            sametitles = same(item.title(), titles[i]) && item.idx() == int(i) && item.tag() == r;
        }
        if (!sametitles || units.indexOfSelectedItem() != int(naive.shownUnit(row)))
            return QStringLiteral("units of row %1").arg(row);
    }
    return {};
}

// The bar that each nutrient would have if its table were reloaded now.
QString differenceOfBars(TestedAppDelegate &log, const Naive::Log &naive)
{
    TextFieldCellRDA bar;
    for (std::size_t i = 0; i < Naive::nutrientcount; ++i) {
        const float ratio = naive.rdaRatio(i);
        log.willDisplayCell(log.nutrienttable, bar, amountcolumn, int(i));
        if (bitsOf(bar.percent()) != bitsOf(ratio) || bar.drawsBackground() != (ratio != 0.0F))
            return QStringLiteral("bar %1").arg(i);
    }
    return {};
}

// What both tables show: what was asked for after their last reload, and nothing newer.
QString differenceOfTables(const TestedAppDelegate &log, Naive::Log &naive)
{
    naive.look();
    const auto cell = [](const TableView *table, std::size_t row, int column) {
        return table->model()->index(int(row), column).data().toString();
    };
    if (std::size_t(log.logtable->model()->rowCount()) != naive.shownlog.size())
        return QStringLiteral("rows of the log");
    for (std::size_t row = 0; row < naive.shownlog.size(); ++row) {
        const Naive::ShownEntry &expected = naive.shownlog[row];
        if (!same(cell(log.logtable, row, 0), expected.name) || !same(cell(log.logtable, row, 1), expected.amount)
            || !same(cell(log.logtable, row, 2), expected.unit) || !same(cell(log.logtable, row, 3), expected.energy))
            return QStringLiteral("row %1 of the log as shown").arg(row);
    }
    // The column's one cell, prepared by the look at the text.
    const auto *bar = dynamic_cast<const TextFieldCellRDA *>(log.nutrienttable->cellForColumn(amountcolumn));
    for (std::size_t i = 0; i < Naive::nutrientcount; ++i) {
        if (const QString text = cell(log.nutrienttable, i, 1); !same(text, naive.shownnutrients[i]))
            return wrong("nutrient as shown", i, text, naive.shownnutrients[i]);
        if (bar == nullptr || bitsOf(bar->percent()) != bitsOf(naive.shownratios[i]))
            return QStringLiteral("bar %1 as shown").arg(i);
    }
    return {};
}

} // namespace

QString differenceBetween(Run &run, Naive::Log &naive)
{
    const TestedAppDelegate &log = run.controller;
    // Entries first: the others count on them.
    QString difference = differenceOfEntries(log, naive);
    if (difference.isEmpty())
        difference = differenceOfSums(log, naive);
    if (difference.isEmpty())
        difference = differenceOfControls(log, naive);
    if (difference.isEmpty())
        difference = differenceOfMenus(run, naive);
    if (difference.isEmpty())
        difference = differenceOfBars(run.controller, naive);
    if (difference.isEmpty())
        difference = differenceOfTables(log, naive);
    return difference;
}

QString differenceOfStoredDay(Run &run, const Naive::Log &naive, const QString &key)
{
    const auto expected = naive.store.find(key.toStdString());
    const QVariantList items = run.store.objectForKey(key).toList();
    if (expected == naive.store.end())
        return items.isEmpty() ? QString() : QStringLiteral("a day stored too early");
    if (std::size_t(items.size()) != expected->second.size())
        return QStringLiteral("stored entries of %1").arg(key);
    for (std::size_t i = 0; i < expected->second.size(); ++i)
        if (!sameRecord(items[int(i)].toByteArray(), expected->second[i]))
            return QStringLiteral("stored entry %1 of %2").arg(i).arg(key);
    return {};
}
