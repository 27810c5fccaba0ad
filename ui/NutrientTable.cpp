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
    return NumberText::fixed(double(displayedSum(index)), 2) + u' ' + nutdataunits[index];
}

QString AppDelegate::percentText(int index) const
{
    return NumberText::fixed(double(rdaRatio(index) * 100.0F), 0) + QStringLiteral(" %");
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
QString AppDelegate::nutrientSentence(int index) const
{
    const float rda = rdas[static_cast<std::size_t>(index)];
    QString text = nutdata[index] + QStringLiteral(", ") + amountText(index);
    if (rda > 0.0F)
        text += QStringLiteral(", ") + percentText(index) + QStringLiteral(" of the RDA (")
            + NumberText::fixed(double(rda), 2) + u' ' + nutdataunits[index] + u')';
    const QString sources = mainSources(index);
    return sources.isEmpty() ? text : text + u'\n' + sources;
}

// The three shown entries that give most of a displayed sum, with their shares; empty when the sum is not above 0.
// Asked for with every bar: one pass, nothing sorted.
QString AppDelegate::mainSources(int index) const
{
    const float sum = displayedSum(index);
    if (!(sum > 0.0F))
        return {};
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
    QStringList sources;
    for (std::size_t i = 0; i < count; ++i)
        sources.append(TableCell::shortened(foods[most[i]]->name().value_or(QString())) + u' '
            + NumberText::fixed(double(amounts[most[i]] / sum * 100.0F), 0) + QStringLiteral(" %"));
    return sources.join(QStringLiteral("; "));
}

QString AppDelegate::toolTipForCell(const TableView *table, const QString &column, int row)
{
    if (table == nutrienttable)
        return nutrientSentence(row);
    // A long name is cut off in its column.
    if (table == logtable && column == QStringLiteral("Name"))
        return TableCell::shortened(foods[static_cast<std::size_t>(row)]->name().value_or(QString()));
    return {};
}

void AppDelegate::updateNutrients()
{
    nutrienttable->reloadData();
}
