// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QItemSelectionModel>
#include <QList>

#include <functional>
#include <optional>

// The selected rows of a table. Whatever reaches select(), by mouse, key or screen reader, is a proposal that the
// filter may change or refuse; setRows() is the way of code, which is never asked.
//
// A proposal is worked out in a second selection model beside this one, so that the filter sees the selection as it
// still is, and so that a proposal taken unchanged keeps the anchor from which Shift extends.
class RowSelectionModel final : public QItemSelectionModel {
    Q_OBJECT

public:
    using Filter = std::function<std::optional<QList<int>>(const QList<int> &proposed)>;

    RowSelectionModel(QAbstractItemModel *model, QObject *parent);

    void setFilter(Filter function);
    // Ascending. Worked out once for each selection: a large day is opened with this asked for at every entry.
    [[nodiscard]] QList<int> rows() const;
    // Rows that the model does not have are left out.
    void setRows(const QList<int> &rows);

    void select(const QItemSelection &selection, SelectionFlags command) override;
    using QItemSelectionModel::select;

private:
    [[nodiscard]] QItemSelection selectionOf(QList<int> rows) const;

    Filter filter;
    QItemSelectionModel proposal;
    mutable std::optional<QList<int>> known; // of rows(), until the selection changes
};
