// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QVariant>

class TableView;

// Where a table's rows and values come from. Columns are named by their identifiers. A table never asks for a row at
// or beyond the count that numberOfRowsInTableView gives at that moment.
class TableViewDataSource {
public:
    [[nodiscard]] virtual int numberOfRowsInTableView(const TableView *table) const = 0;
    [[nodiscard]] virtual QVariant objectValueForTableColumn(const TableView *table, const QString &column, int row)
        = 0;
    // An edited cell's text, as it was typed.
    virtual void setObjectValue(const TableView *table, const QVariant &value, const QString &column, int row) = 0;

protected:
    ~TableViewDataSource() = default;
};
