// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/table/TableModel.h"

#include "ui/table/PopUpButtonCell.h"
#include "ui/table/TableViewDataSource.h"

#include <algorithm>
#include <utility>

namespace {

template <typename Predicate>
int firstColumn(const std::vector<TableView::Column> &columns, Predicate predicate)
{
    const auto found = std::find_if(columns.begin(), columns.end(), predicate);
    return found == columns.end() ? -1 : int(found - columns.begin());
}

} // namespace

TableModel::TableModel(TableView *view)
    : QAbstractTableModel(view)
    , table(view)
{ }

void TableModel::addColumn(TableView::Column column)
{
    if (!column.cell)
        column.cell = std::make_unique<TableCell>();
    const int position = int(columns.size());
    beginInsertColumns({}, position, position);
    kept.clear();
    columns.push_back(std::move(column));
    endInsertColumns();
}

int TableModel::columnOf(const QString &identifier) const
{
    return firstColumn(columns, [&](const TableView::Column &column) { return column.identifier == identifier; });
}

int TableModel::editableColumn() const
{
    return firstColumn(columns, [](const TableView::Column &column) { return column.editable; });
}

int TableModel::popUpColumn() const
{
    return firstColumn(columns, [](const TableView::Column &column) {
        return dynamic_cast<const PopUpButtonCell *>(column.cell.get()) != nullptr;
    });
}

TableCell *TableModel::cell(int column) const
{
    return column >= 0 && column < columnCount() ? columns[size_t(column)].cell.get() : nullptr;
}

int TableModel::sourceRowCount() const
{
    return source != nullptr ? std::max(source->numberOfRowsInTableView(table), 0) : 0;
}

void TableModel::reload(int count)
{
    kept.clear();
    if (count < rows) {
        beginRemoveRows({}, count, rows - 1);
        rows = count;
        endRemoveRows();
    } else if (count > rows) {
        beginInsertRows({}, rows, count - 1);
        rows = count;
        endInsertRows();
    }
}

TableCell &TableModel::prepareCell(int row, int column) const
{
    const TableView::Column &shared = columns[size_t(column)];
    TableCell &prepared = *shared.cell;
    if (!hasRow(row)) {
        prepared.clear();
        return prepared;
    }
    Place &place = placeOf(row, column);
    prepared.setObjectValue(place ? place->value : source->objectValueForTableColumn(table, shared.identifier, row));
    if (delegate != nullptr)
        delegate->willDisplayCell(table, prepared, shared.identifier, row);
    if (place)
        prepared.setLooks(place->looks);
    else
        place = Kept{prepared.objectValue(), prepared.looks(),
            delegate != nullptr ? delegate->toolTipForCell(table, shared.identifier, row) : nullptr};
    return prepared;
}

TableModel::Place &TableModel::placeOf(int row, int column) const
{
    std::vector<Place> &places = kept[row];
    places.resize(columns.size());
    return places[size_t(column)];
}

const TableModel::Kept &TableModel::keptCell(int row, int column) const
{
    Place &place = placeOf(row, column);
    if (!place)
        prepareCell(row, column);
    return *place;
}

int TableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : rows;
}

int TableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(columns.size());
}

QVariant TableModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    switch (role) {
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole:
        return TableCell::shortened(prepareCell(index.row(), index.column()).stringValue());
    case Qt::EditRole:
        return hasRow(index.row()) ? keptCell(index.row(), index.column()).value : QVariant();
    case Qt::ToolTipRole:
    case Qt::AccessibleDescriptionRole: {
        if (!hasRow(index.row()))
            return {};
        const TableViewDelegate::Tip &tip = keptCell(index.row(), index.column()).tip;
        return tip ? tip() : QString();
    }
    default:
        return {};
    }
}

QVariant TableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    // The header of a row is not shown, but screen readers come upon it; it is called what its row is.
    if (orientation == Qt::Vertical)
        return role == Qt::AccessibleTextRole ? index(section, 0).data(Qt::DisplayRole) : QVariant();
    if (section < 0 || section >= columnCount())
        return {};
    const TableView::Column &column = columns[size_t(section)];
    if (role == Qt::DisplayRole)
        return column.title;
    if (role == Qt::TextAlignmentRole)
        return int(column.cell->alignment() | Qt::AlignVCenter);
    return {};
}

Qt::ItemFlags TableModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return {};
    const Qt::ItemFlags common = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    return columns[size_t(index.column())].editable ? common | Qt::ItemIsEditable : common;
}

bool TableModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::EditRole || !checkIndex(index, CheckIndexOption::IndexIsValid) || !hasRow(index.row()))
        return false;
    const int row = index.row(); // the source may reload the table meanwhile
    source->setObjectValue(table, value, columns[size_t(index.column())].identifier, row);
    kept.erase(row);
    emit rowEdited(row);
    return true;
}
