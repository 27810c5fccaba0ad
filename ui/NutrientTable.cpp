// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "app/AppDelegate.h"

#include "app/SettingsKeys.h"
#include "platform/NumberText.h"
#include "platform/UserDefaults.h"
#include "ui/table/TableView.h"
#include "ui/table/TextFieldCellRDA.h"

#include <QColor>

#include <algorithm>
#include <utility>

namespace {

QString withUnit(float amount, const QString &unit)
{
    return NumberText::fixed(double(amount), 2) + u' ' + unit;
}

QString percent(float ratio)
{
    return NumberText::fixed(double(ratio * 100.0F), 0) + QStringLiteral(" %");
}

} // namespace

QString AppDelegate::nutrientValue(const QString &column, int row) const
{
    if (column == QStringLiteral("Name"))
        return QStringLiteral("   ") + nutdata[row];
    if (column == QStringLiteral("Amount"))
        return prefs->boolForKey(SettingsKeys::UseP) ? percentText(row) : amountText(row);
    return {};
}

float AppDelegate::displayedSum(int index) const
{
    const auto i = static_cast<std::size_t>(index);
    return logtable->selectedRowIndexes().isEmpty() ? nutrientstotal[i] : nutrientsselected[i];
}

// The share of the RDA that has been eaten: 1 is all of it, and it may well be more. 0 without an RDA above 0.
float AppDelegate::rdaRatio(int index) const
{
    const float rda = rdas[static_cast<std::size_t>(index)];
    return rda > 0.0F ? displayedSum(index) / rda : 0.0F;
}

QString AppDelegate::amountText(int index) const
{
    return withUnit(displayedSum(index), nutdataunits[index]);
}

QString AppDelegate::percentText(int index) const
{
    return percent(rdaRatio(index));
}

// The bar is prepared whether amounts or percentages are shown.
void AppDelegate::prepareBar(TextFieldCellRDA &cell, int row) const
{
    const float ratio = rdaRatio(row);
    cell.setPercent(ratio); // the ratio, whatever the name says
    cell.setDrawsBackground(ratio != 0.0F);
    if (ratio != 0.0F)
        cell.setBackgroundColor(Qt::transparent);
}

// "Vitamin C, 54.00 mg, 90 % of the RDA (60.00 mg)", and on a second line what gave most of it.
TableViewDelegate::Tip AppDelegate::nutrientTip(int index) const
{
    return [name = nutdata[index], unit = nutdataunits[index], sum = displayedSum(index),
               rda = rdas[static_cast<std::size_t>(index)], ratio = rdaRatio(index), sources = mainSources(index)] {
        QString text = name + QStringLiteral(", ") + withUnit(sum, unit);
        if (rda > 0.0F)
            text
                += QStringLiteral(", ") + percent(ratio) + QStringLiteral(" of the RDA (") + withUnit(rda, unit) + u')';
        QString separator = QStringLiteral("\n");
        for (const auto &[source, amount] : sources) {
            if (!(amount > 0.0F))
                break;
            text += separator + TableCell::shortened(source) + u' ' + percent(amount / sum);
            separator = QStringLiteral("; ");
        }
        return text;
    };
}

// The three shown entries that give most of a displayed sum, with their amounts; amounts of 0 where there are fewer,
// and when the sum is not above 0. Asked for with every bar: one pass, nothing sorted.
std::array<std::pair<QString, float>, 3> AppDelegate::mainSources(int index) const
{
    std::array<std::pair<QString, float>, 3> sources{};
    if (!(displayedSum(index) > 0.0F))
        return sources;
    const std::vector<float> &amounts = nutrients[static_cast<std::size_t>(index)];
    std::array<std::size_t, 3> most{}; // rows
    std::size_t count = 0;
    const auto consider = [&](std::size_t row) {
        if (row >= amounts.size() || !(amounts[row] > 0.0F))
            return;
        std::size_t place = count;
        while (place > 0 && amounts[row] > amounts[most[place - 1]]) // equal amounts stay in log order
            --place;
        if (place == most.size())
            return;
        count = std::min(count + 1, most.size());
        std::copy_backward(most.begin() + place, most.begin() + count - 1, most.begin() + count);
        most[place] = row;
    };
    const QList<int> selected = logtable->selectedRowIndexes();
    for (const int row : selected)
        consider(static_cast<std::size_t>(row));
    for (std::size_t row = 0; selected.isEmpty() && row < amounts.size(); ++row)
        consider(row);
    for (std::size_t i = 0; i < count; ++i)
        sources[i] = {foods[most[i]]->name().value_or(QString()), amounts[most[i]]};
    return sources;
}

TableViewDelegate::Tip AppDelegate::toolTipForCell(const TableView *table, const QString &column, int row)
{
    if (table == nutrienttable)
        return nutrientTip(row);
    // A long name is cut off in its column.
    if (table == logtable && column == QStringLiteral("Name"))
        return [food = foods[static_cast<std::size_t>(row)]->name()] {
            return TableCell::shortened(food.value_or(QString()));
        };
    return {};
}

void AppDelegate::updateNutrients()
{
    nutrienttable->reloadData();
}
