// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/historysheet/FittedColumns.h"

#include "ui/table/TableView.h"

#include <QHeaderView>

#include <algorithm>
#include <numeric>

int FittedColumns::width() const
{
    return std::accumulate(widths.begin(), widths.end(), 0);
}

void FittedColumns::fit(TableView &table) const
{
    const int room = table.viewport()->width();
    const int least = widths[0] * 2 / 3;
    int others = width() - widths[0];
    const auto hide = [&](const std::vector<int> &columns, int first) {
        for (const int column : columns) {
            const bool hidden = first + others > room;
            table.setColumnHidden(column, hidden);
            others -= hidden ? widths[std::size_t(column)] : 0;
        }
    };
    hide(spare, widths[0]);
    hide(last, least);
    if (table.horizontalHeader()->sectionResizeMode(0) != QHeaderView::Stretch)
        table.setColumnWidth(0, std::clamp(room - others, least, widths[0]));
    // From a column that is not there no key leads anywhere.
    const QModelIndex current = table.currentIndex();
    if (current.isValid() && table.isColumnHidden(current.column()))
        table.selectionModel()->setCurrentIndex(current.siblingAtColumn(0), QItemSelectionModel::NoUpdate);
}
