// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/historysheet/HistoryTables.h"

#include "platform/NumberText.h"
#include "ui/historysheet/HistoryText.h"
#include "ui/table/TableView.h"
#include "ui/table/TextFieldCellRDA.h"

#include <QCoreApplication>
#include <QHeaderView>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

namespace {

const QString Name = QStringLiteral("Name");
const QString Mean = QStringLiteral("Mean");
const QString Lowest = QStringLiteral("Lowest");
const QString Highest = QStringLiteral("Highest");
const QString Known = QStringLiteral("Known");
const QString Percent = QStringLiteral("Percent");
const QString Amount = QStringLiteral("Amount");
const QString Days = QStringLiteral("Days");
const QString Running = QStringLiteral("Running");
const QString Date = QStringLiteral("Date");
const QString Entries = QStringLiteral("Entries");
const QString Energy = QStringLiteral("Energy");

QString tr(const char *text)
{
    return QCoreApplication::translate("HistoryTables", text);
}

// Adds a column as wide as a text that it usually holds, or its title.
class Columns final {
public:
    explicit Columns(TableView &view)
        : table(view)
    { }

    void add(const QString &identifier, const QString &title, const QString &usual,
        std::unique_ptr<TableCell> cell = std::make_unique<TableCell>(), bool right = true)
    {
        if (right)
            cell->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        table.addTableColumn({identifier, title, std::move(cell)});
        const QFontMetrics metrics = table.fontMetrics();
        const int width
            = std::max(metrics.horizontalAdvance(usual) + cellmargins, metrics.horizontalAdvance(title) + titlemargins);
        table.setColumnWidth(int(columns.widths.size()), width);
        columns.widths.push_back(width);
    }
    // For most of a food's name, and for what room the other columns leave.
    void addFood(const QString &title)
    {
        add(Name, title, QString(20, u'n'), std::make_unique<TableCell>(), false);
        table.horizontalHeader()->setStretchLastSection(false);
        table.horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    }
    void addBars(const QString &title, const QString &usual)
    {
        add(Percent, title, usual, std::make_unique<TextFieldCellRDA>());
    }
    // The bars of the last column take what room there is.
    void stretchBars() { table.horizontalHeader()->setStretchLastSection(true); }
    [[nodiscard]] FittedColumns withSpare(const std::vector<int> &spare, const std::vector<int> &last = {}) &&
    {
        columns.spare = spare;
        columns.last = last;
        return std::move(columns);
    }

private:
    static constexpr int cellmargins = 16;
    static constexpr int titlemargins = 20; // with the mark of the order

    TableView &table;
    FittedColumns columns;
};

void prepareBar(TableCell &cell, const std::optional<double> &ratio)
{
    static_cast<TextFieldCellRDA &>(cell).setPercent(ratio ? static_cast<float>(*ratio) : 0.0F);
}

QVariant percentOf(const std::optional<double> &ratio)
{
    return ratio ? HistoryText::percent(*ratio) : QStringLiteral("\u2013"); // an empty cell would say nothing at all
}

QString nameOf(const std::optional<QString> &food)
{
    return food.value_or(tr("(without a name)"));
}

// A long name is cut off in its column; the day is the one that Enter opens.
TableViewDelegate::Tip foodTip(const std::optional<QString> &food, QDate lastday, QDate beside)
{
    return [name = TableCell::shortened(nameOf(food)), lastday, beside] {
        return tr("%1, last on %2").arg(name, HistoryText::shortDay(lastday, beside));
    };
}

} // namespace

const std::array<QString, 6> FiguresTable::columns{Name, Mean, Lowest, Highest, Known, Percent};

FittedColumns FiguresTable::makeColumns(TableView &table)
{
    const QStringList &names = NutrientCatalogue::names();
    const QString widest = *std::max_element(
        names.begin(), names.end(), [metrics = table.fontMetrics()](const QString &one, const QString &other) {
            return metrics.horizontalAdvance(one) < metrics.horizontalAdvance(other);
        });
    Columns columns(table);
    columns.add(Name, tr("Nutrient"), widest, std::make_unique<TableCell>(), false);
    columns.add(Mean, tr("Mean"), QStringLiteral("\u2265 10000.00 kcal"));
    columns.add(Lowest, tr("Lowest"), QStringLiteral("10000.00"));
    columns.add(Highest, tr("Highest"), QStringLiteral("10000.00"));
    columns.add(Known, tr("Known"), QStringLiteral("100 %"));
    columns.addBars(tr("% of RDA"), QStringLiteral("10000 %"));
    columns.stretchBars();
    // The summary says these three too. The known share goes last: it is the reason of the sign before a mean.
    return std::move(columns).withSpare({2, 3}, {4});
}

void FiguresTable::setFigures(const std::optional<History::Table> &shown, const History::Allowances &rdas, QDate last)
{
    figures = shown;
    allowances = rdas;
    beside = last;
    sort();
}

void FiguresTable::setOrder(const Order &wanted)
{
    order = wanted;
    sort();
}

// Nothing for what is to stand last either way.
std::optional<double> FiguresTable::sortKey(int nutrient) const
{
    const History::NutrientFigures &of = (*figures)[static_cast<std::size_t>(nutrient)];
    std::optional<double> key = nutrient;
    if (order.column == Mean)
        key = of.mean;
    else if (order.column == Lowest)
        key = double(of.lowest);
    else if (order.column == Highest)
        key = double(of.highest);
    else if (order.column == Known)
        key = of.knownshare;
    else if (order.column == Percent)
        key = of.ratio;
    return key && std::isnan(*key) ? std::nullopt : key;
}

void FiguresTable::sort()
{
    nutrients.resize(NutrientCatalogue::nutrientCount);
    std::iota(nutrients.begin(), nutrients.end(), 0);
    if (!figures)
        return;
    std::stable_sort(nutrients.begin(), nutrients.end(), [this](int a, int b) {
        const std::optional<double> first = sortKey(a);
        const std::optional<double> second = sortKey(b);
        if (!first || !second)
            return first.has_value() && !second;
        return order.descending ? *first > *second : *first < *second;
    });
}

int FiguresTable::rowOfNutrient(int nutrient) const
{
    return static_cast<int>(std::find(nutrients.begin(), nutrients.end(), nutrient) - nutrients.begin());
}

const History::NutrientFigures &FiguresTable::figuresOfRow(int row) const
{
    return (*figures)[static_cast<std::size_t>(nutrientOfRow(row))];
}

int FiguresTable::numberOfRowsInTableView(const TableView * /*table*/) const
{
    return figures ? NutrientCatalogue::nutrientCount : 0;
}

QVariant FiguresTable::objectValueForTableColumn(const TableView * /*table*/, const QString &column, int row)
{
    const int nutrient = nutrientOfRow(row);
    const History::NutrientFigures &of = figuresOfRow(row);
    if (column == Name)
        return NutrientCatalogue::names()[nutrient];
    if (column == Mean)
        return HistoryText::mean(of, NutrientCatalogue::units()[nutrient]);
    if (column == Lowest)
        return NumberText::fixed(double(of.lowest), 2);
    if (column == Highest)
        return NumberText::fixed(double(of.highest), 2);
    if (column == Known)
        return HistoryText::percent(of.knownshare);
    return percentOf(of.ratio);
}

void FiguresTable::willDisplayCell(const TableView * /*table*/, TableCell &cell, const QString &column, int row)
{
    if (column == Percent)
        prepareBar(cell, figuresOfRow(row).ratio);
}

TableViewDelegate::Tip FiguresTable::toolTipForCell(const TableView * /*table*/, const QString & /*column*/, int row)
{
    const int nutrient = nutrientOfRow(row);
    return [nutrient, of = figuresOfRow(row), rda = allowances[static_cast<std::size_t>(nutrient)], last = beside] {
        return HistoryText::summary(nutrient, of, rda, last);
    };
}

FittedColumns SourcesTable::makeColumns(TableView &table)
{
    Columns columns(table);
    columns.addFood(tr("Food"));
    columns.add(Amount, tr("Amount"), QStringLiteral("10000.00 mcg"));
    columns.add(Days, tr("Days"), QStringLiteral("100"));
    columns.add(Running, tr("Summed"), QStringLiteral("100 %"));
    columns.addBars(tr("Share"), QStringLiteral("100 %"));
    return std::move(columns).withSpare({2, 3}, {1});
}

void SourcesTable::setSources(std::vector<History::Source> shown, const QString &nutrientunit, QDate last)
{
    sources = std::move(shown);
    unit = nutrientunit;
    beside = last;
}

int SourcesTable::numberOfRowsInTableView(const TableView * /*table*/) const
{
    return static_cast<int>(sources.size());
}

QVariant SourcesTable::objectValueForTableColumn(const TableView * /*table*/, const QString &column, int row)
{
    const History::Source &source = sources[static_cast<std::size_t>(row)];
    if (column == Name)
        return nameOf(source.food);
    if (column == Amount)
        return HistoryText::amount(source.amount, unit);
    if (column == Days)
        return source.days;
    return percentOf(column == Running ? source.runningshare : source.share);
}

void SourcesTable::willDisplayCell(const TableView * /*table*/, TableCell &cell, const QString &column, int row)
{
    if (column == Percent)
        prepareBar(cell, sources[static_cast<std::size_t>(row)].share);
}

TableViewDelegate::Tip SourcesTable::toolTipForCell(const TableView * /*table*/, const QString & /*column*/, int row)
{
    return foodTip(sources[static_cast<std::size_t>(row)].food, lastDayOfRow(row), beside);
}

FittedColumns UnknownSourcesTable::makeColumns(TableView &table)
{
    Columns columns(table);
    columns.addFood(tr("Food without a figure"));
    columns.add(Energy, tr("Energy"), QStringLiteral("100000 kcal"));
    columns.add(Days, tr("Days"), QStringLiteral("100"));
    return std::move(columns).withSpare({2});
}

void UnknownSourcesTable::setSources(std::vector<History::UnknownSource> shown, QDate last)
{
    sources = std::move(shown);
    beside = last;
}

int UnknownSourcesTable::numberOfRowsInTableView(const TableView * /*table*/) const
{
    return static_cast<int>(sources.size());
}

QVariant UnknownSourcesTable::objectValueForTableColumn(const TableView * /*table*/, const QString &column, int row)
{
    const History::UnknownSource &source = sources[static_cast<std::size_t>(row)];
    if (column == Name)
        return nameOf(source.food);
    if (column == Days)
        return source.days;
    return NumberText::fixed(source.energy, 0) + QStringLiteral(" kcal");
}

TableViewDelegate::Tip UnknownSourcesTable::toolTipForCell(
    const TableView * /*table*/, const QString & /*column*/, int row)
{
    return foodTip(sources[static_cast<std::size_t>(row)].food, lastDayOfRow(row), beside);
}

FittedColumns DaysTable::makeColumns(TableView &table)
{
    Columns columns(table);
    columns.add(Date, tr("Day"), QStringLiteral("Wed 30 Nov 2026"), std::make_unique<TableCell>(), false);
    columns.add(Entries, tr("Entries"), QStringLiteral("100"));
    columns.add(Energy, tr("Energy"), QStringLiteral("10000 kcal"));
    columns.add(Amount, tr("Amount"), QStringLiteral("10000.00 mcg"));
    columns.addBars(tr("% of RDA"), QStringLiteral("10000 %"));
    columns.stretchBars();
    return std::move(columns).withSpare({1, 2}, {4});
}

void DaysTable::setDays(const History::Days &shown)
{
    days = shown;
}

void DaysTable::setNutrient(int shown, float rda)
{
    nutrient = shown;
    allowance = rda;
}

const History::Day &DaysTable::dayAt(int row) const
{
    const std::span<const History::Day> logged = days.ofPeriod();
    return logged[logged.size() - 1 - static_cast<std::size_t>(row)];
}

int DaysTable::rowOfDay(QDate day) const
{
    const std::span<const History::Day> logged = days.ofPeriod();
    const auto found = std::lower_bound(
        logged.begin(), logged.end(), day, [](const History::Day &one, QDate date) { return one.date < date; });
    return found != logged.end() && found->date == day ? static_cast<int>(logged.end() - found) - 1 : -1;
}

int DaysTable::numberOfRowsInTableView(const TableView * /*table*/) const
{
    return days.period.first.isValid() ? static_cast<int>(days.ofPeriod().size()) : 0;
}

QVariant DaysTable::objectValueForTableColumn(const TableView * /*table*/, const QString &column, int row)
{
    const History::Day &day = dayAt(row);
    if (column == Date)
        return HistoryText::day(day.date);
    if (column == Entries)
        return int(day.entrycount);
    if (column == Energy)
        return NumberText::fixed(double(day.energy()), 0) + QStringLiteral(" kcal");
    const double amount = double(day.sums[static_cast<std::size_t>(nutrient)]);
    if (column == Amount)
        return HistoryText::amount(amount, NutrientCatalogue::units()[nutrient]);
    return percentOf(History::ratioOf(amount, allowance));
}

void DaysTable::willDisplayCell(const TableView * /*table*/, TableCell &cell, const QString &column, int row)
{
    if (column == Percent)
        prepareBar(cell, History::ratioOf(double(dayAt(row).sums[static_cast<std::size_t>(nutrient)]), allowance));
}
