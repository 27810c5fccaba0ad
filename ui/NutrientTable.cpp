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

// "Vitamin C, 54.00 mg, 90 % of the RDA (60.00 mg)", then a line for each of those that gave most of it and one about
// foods without a figure. The foods are asked when somebody reads it: the log has no others before the next reload.
TableViewDelegate::Tip AppDelegate::nutrientTip(int index) const
{
    return [this, index, unit = nutdataunits[index], sum = displayedSum(index),
               rda = rdas[static_cast<std::size_t>(index)], ratio = rdaRatio(index), sources = mainSources(index)] {
        QString text = NutrientCatalogue::fullNames().at(index) + QStringLiteral(", ");
        if (rda > 0.0F)
            text += QStringLiteral("%1, %2 of the RDA (%3)")
                        .arg(withUnit(sum, unit), percent(ratio), withUnit(rda, unit));
        else
            text += QStringLiteral("no allowance set: %1. Set one in the preferences").arg(withUnit(sum, unit));
        for (const auto &[source, amount] : sources) {
            if (amount > 0.0F)
                text += u'\n' + TableCell::shortened(source) + u' ' + percent(amount / sum);
        }
        return text + unknownText(index);
    };
}

// "no figure for 4 of 19 foods", on a line of its own, about the shown entries; nothing where each has one.
QString AppDelegate::unknownText(int index) const
{
    const QList<int> selected = logtable->selectedRowIndexes();
    int shown = 0;
    int unknown = 0;
    for (std::size_t row = 0; row < foods.size(); ++row) {
        if (!selected.isEmpty() && !std::binary_search(selected.begin(), selected.end(), static_cast<int>(row)))
            continue;
        ++shown;
        unknown += foods[row]->knowsNutrient(index) ? 0 : 1;
    }
    if (unknown == 0)
        return {};
    return QStringLiteral("\nno figure for %1 of %2 %3")
        .arg(unknown)
        .arg(shown)
        .arg(shown == 1 ? QStringLiteral("food") : QStringLiteral("foods"));
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
