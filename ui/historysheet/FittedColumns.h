// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <vector>

class TableView;

// The columns of a table that shows all it can without a scroll bar: what stands right of one is as good as not there.
// Where there is no room for all, those that say least are hidden, and then the first is narrowed, whose text a tip
// tells whole. Owned by the sheet.
struct FittedColumns {
    std::vector<int> widths; // of all columns; of the first what it is to have before another is hidden
    std::vector<int> spare; // the columns to be hidden, what is missed least first
    std::vector<int> last; // to be hidden before the first column has less than two thirds of its width

    void fit(TableView &table) const;
    // With all columns.
    [[nodiscard]] int width() const;
};
