// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/MainInterface.h"

#include "app/SettingsKeys.h"
#include "catalog/NutrientCatalogue.h"
#include "platform/UserDefaults.h"
#include "ui_MainWindow.h"

#include <QEvent>
#include <QHeaderView>

#include <algorithm>

// How wide the tables' columns are. A width that the person chose stays; the others follow the room and what is shown,
// so that in a small window what is read off is seen whole and in a large one nothing is cut beside empty space.

namespace {

constexpr int amountcolumn = 1;
constexpr int unitcolumn = 2;
constexpr int energycolumn = 3;
constexpr int cellmargins = 12;
constexpr int arrow = 16; // of the unit's menu
constexpr int widest = 10000; // that a stored width may be

int textWidth(const TableView &table, const QString &text)
{
    return table.fontMetrics().horizontalAdvance(text) + cellmargins;
}

// Of the units among the first rows: a longer log is looked at in part, since each row costs a look at its food.
int unitWidth(const TableView &log)
{
    constexpr int looked = 50;
    int width = textWidth(log, QStringLiteral("1 medium"));
    for (int row = 0; row < std::min(log.model()->rowCount(), looked); ++row)
        width = std::max(width, textWidth(log, log.model()->index(row, unitcolumn).data().toString()));
    return width + arrow;
}

} // namespace

void MainInterface::connectColumns()
{
    for (TableView *table : {main->logtable, main->nutrienttable})
        table->viewport()->installEventFilter(this);
    for (const QString &name : NutrientCatalogue::names())
        nutrientwidth = std::max(nutrientwidth, textWidth(*main->nutrienttable, QStringLiteral("      ") + name));
    connect(main->logtable, &TableView::reloaded, this, [this] {
        unitwidth = unitWidth(*main->logtable);
        arrangeColumns();
    });
    connect(main->usep, &QAbstractButton::toggled, this, &MainInterface::arrangeColumns);
    connect(main->logtable->horizontalHeader(), &QHeaderView::sectionResized, this, [this](int section, int, int size) {
        if (!arranging && section >= amountcolumn)
            columnwidths[std::size_t(section - amountcolumn)] = size;
    });
    connect(main->nutrienttable->horizontalHeader(), &QHeaderView::sectionResized, this,
        [this](int section, int, int size) {
            if (!arranging && section == 0)
                columnwidths.back() = size;
        });
}

void MainInterface::restoreColumns(const UserDefaults &store)
{
    const QVariant stored = store.objectForKey(SettingsKeys::ColumnWidths);
    const QVariantList widths = stored.typeId() == QMetaType::QVariantList ? stored.toList() : QVariantList();
    if (std::size_t(widths.size()) != columnwidths.size())
        return;
    for (std::size_t i = 0; i < columnwidths.size(); ++i) {
        const int width = widths[qsizetype(i)].toInt();
        columnwidths[i] = width > 0 && width <= widest ? width : 0;
    }
}

void MainInterface::saveColumns(UserDefaults &store) const
{
    if (columnwidths != decltype(columnwidths){})
        store.setObject(QVariantList(columnwidths.begin(), columnwidths.end()), SettingsKeys::ColumnWidths);
}

void MainInterface::arrangeColumns()
{
    arranging = true;
    arrangeLogColumns();
    arrangeNutrientColumns();
    arranging = false;
}

void MainInterface::arrangeLogColumns()
{
    TableView &log = *main->logtable;
    // What is left after the amounts and 28 letters of every name, in capitals too.
    const int amount = textWidth(log, QStringLiteral("10000.00"));
    const int name = textWidth(log, QString(31, u'n'));
    const int energy = textWidth(log, QStringLiteral("100000"));
    const int narrowunit = textWidth(log, QStringLiteral("1 tbsp")) + arrow;
    const int room = log.viewport()->width() - amount - name - energy;
    const int unit = std::max(narrowunit, std::min(room, unitwidth));
    const std::pair<int, int> widths[] = {{amountcolumn, amount}, {unitcolumn, unit}, {energycolumn, energy}};
    for (const auto &[column, width] : widths) {
        const int chosen = columnwidths[std::size_t(column - amountcolumn)];
        log.setColumnWidth(column, chosen > 0 ? chosen : width);
    }
}

void MainInterface::arrangeNutrientColumns()
{
    TableView &nutrients = *main->nutrienttable;
    const int name = columnwidths.back() > 0 ? columnwidths.back() : nutrientwidth;
    // The number is seen whole, whatever becomes of the name.
    const QString number = main->usep->isChecked() ? QStringLiteral("10000 %") : QStringLiteral("10000.00 kcal");
    const int room = nutrients.viewport()->width() - textWidth(nutrients, number);
    nutrients.setColumnWidth(0, std::min(name, std::max(room, textWidth(nutrients, QStringLiteral("    ")))));
}
