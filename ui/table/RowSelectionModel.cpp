// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/table/RowSelectionModel.h"

#include <algorithm>
#include <utility>

namespace {

QList<int> rowsOf(const QItemSelection &selection)
{
    QList<int> rows;
    for (const QItemSelectionRange &range : selection) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.append(row);
    }
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

} // namespace

RowSelectionModel::RowSelectionModel(QAbstractItemModel *model, QObject *parent)
    : QItemSelectionModel(model, parent)
    , proposal(model, nullptr)
{
    // Connected first, so that whoever else hears of a change asks for the new rows.
    connect(this, &QItemSelectionModel::selectionChanged, this, [this] { known.reset(); });
}

void RowSelectionModel::setFilter(Filter function)
{
    filter = std::move(function);
}

QList<int> RowSelectionModel::rows() const
{
    if (!known)
        known = rowsOf(selection());
    return *known;
}

void RowSelectionModel::setRows(const QList<int> &rows)
{
    const QItemSelection chosen = selectionOf(rows);
    proposal.select(chosen, ClearAndSelect);
    QItemSelectionModel::select(chosen, ClearAndSelect);
}

void RowSelectionModel::select(const QItemSelection &selection, SelectionFlags command)
{
    proposal.select(selection, command);
    const QList<int> proposed = rowsOf(proposal.selection());
    const std::optional<QList<int>> allowed = filter ? filter(proposed) : proposed;
    if (allowed == proposed) {
        QItemSelectionModel::select(selection, command);
        return;
    }
    if (allowed)
        QItemSelectionModel::select(selectionOf(*allowed), ClearAndSelect);
    proposal.select(this->selection(), ClearAndSelect);
}

QItemSelection RowSelectionModel::selectionOf(QList<int> rows) const
{
    std::sort(rows.begin(), rows.end());
    const int lastcolumn = model()->columnCount() - 1;
    QItemSelection selection;
    for (qsizetype first = 0; first < rows.size();) {
        qsizetype last = first;
        while (last + 1 < rows.size() && rows.at(last + 1) <= rows.at(last) + 1)
            ++last;
        const int top = std::max(rows.at(first), 0);
        const int bottom = std::min(rows.at(last), model()->rowCount() - 1);
        if (top <= bottom)
            selection.append(QItemSelectionRange(model()->index(top, 0), model()->index(bottom, lastcolumn)));
        first = last + 1;
    }
    return selection;
}
