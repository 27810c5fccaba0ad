// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "ui/table/TableView.h"
#include "ui/table/TableViewDelegate.h"

#include <QAbstractTableModel>

#include <optional>
#include <unordered_map>
#include <vector>

// What Qt's views and screen readers see of a table's data source. A cell's value, looks and tip are asked for
// together, when the first of them is needed, and kept until the next reload or until the row is edited, so that a cell
// says and shows what was true at one moment. Only rows that came into sight are kept, so that a reload of thousands of
// rows costs no more than one of twenty.
//
// It never resets and never reports changed data: the one would clear the selection, the other wipe an open editor.
// The view repaints instead.
class TableModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    explicit TableModel(TableView *view);

    void addColumn(TableView::Column column);
    // -1 when there is no such column.
    [[nodiscard]] int columnOf(const QString &identifier) const;
    [[nodiscard]] int editableColumn() const;
    [[nodiscard]] int popUpColumn() const;
    [[nodiscard]] TableCell *cell(int column) const;

    void setDataSource(TableViewDataSource *datasource) { source = datasource; }
    void setDelegate(TableViewDelegate *tabledelegate) { delegate = tabledelegate; }

    // The count that the source gives now; the model keeps its own until it is reloaded.
    [[nodiscard]] int sourceRowCount() const;
    // Drops every value and makes as many rows as the source has, at the end.
    void reload(int count);

    // The column's cell with the row's value, prepared by the delegate each time, in the looks that are kept. A row
    // that the source no longer has gives a cell without a value; nobody is asked about it.
    TableCell &prepareCell(int row, int column) const;

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;

signals:
    void rowEdited(int row);

private:
    [[nodiscard]] bool hasRow(int row) const { return row >= 0 && row < sourceRowCount(); }
    struct Kept {
        QVariant value;
        QVariant looks;
        TableViewDelegate::Tip tip;
    };
    using Place = std::optional<Kept>; // empty until the cell is first needed
    [[nodiscard]] Place &placeOf(int row, int column) const;
    [[nodiscard]] const Kept &keptCell(int row, int column) const;

    TableView *table;
    TableViewDataSource *source = nullptr;
    TableViewDelegate *delegate = nullptr;
    std::vector<TableView::Column> columns;
    int rows = 0;
    mutable std::unordered_map<int, std::vector<Place>> kept; // by row, then by column
};
