// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QString>

#include <functional>
#include <optional>

class TableCell;
class TableView;

// What a table asks about its looks and its selection.
class TableViewDelegate {
public:
    // A cell's sentence, written when somebody reads it, out of what it has kept from the moment it was made. None is
    // no sentence.
    using Tip = std::function<QString()>;

    // Prepares a column's one cell for a row: the next thing that happens to it is painting, speaking or opening its
    // menu. It has the row's value by then. What it looks like is kept from the first time after a reload.
    virtual void willDisplayCell(const TableView *table, TableCell &cell, const QString &column, int row) = 0;
    // What a selection that the user proposes becomes: nothing leaves the selection as it is, an empty list clears it.
    // Rows ascend. Code that selects is never asked.
    [[nodiscard]] virtual std::optional<QList<int>> selectionIndexesForProposedSelection(
        const TableView *table, const QList<int> &proposed)
        = 0;
    // Runs inside whatever changed the selection of a table whose delegate this is.
    virtual void tableViewSelectionDidChange() = 0;
    // The cell's sentence, shown as its tool tip and told as its accessible description. Asked for with the value, for
    // every cell that comes into sight, of which few are ever read.
    [[nodiscard]] virtual Tip toolTipForCell(const TableView *table, const QString &column, int row) = 0;

protected:
    ~TableViewDelegate() = default;
};
