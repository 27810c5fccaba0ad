// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "ui/table/PopUpButtonCell.h"
#include "ui/table/TableView.h"
#include "ui/table/TableViewDataSource.h"
#include "ui/table/TableViewDelegate.h"

#include <QMenu>
#include <QStringList>

#include <memory>
#include <optional>

// A log of made-up foods behind a table with the columns of a day log. It notes what it is asked.
class LogSource final : public TableViewDataSource, public TableViewDelegate {
public:
    struct Entry {
        QString name;
        QString amount;
        QStringList units;
        int unit = 0;
        QString detail = {}; // of every unit
    };

    QList<Entry> entries;
    QStringList notes; // edits, choices and selection changes, in order
    QStringList asked; // "column row" of every value
    QStringList prepared; // "column row" of every prepared cell
    QList<QList<int>> proposals; // what the filter was asked
    std::function<std::optional<QList<int>>(const QList<int> &)> filter;
    std::function<void()> onEdit;
    std::function<void()> onSelection;
    const TableView *table = nullptr;

    void forget()
    {
        notes.clear();
        asked.clear();
        prepared.clear();
        proposals.clear();
    }

    void fill(int count)
    {
        entries.clear();
        for (int i = 0; i < count; ++i) {
            entries.append({QStringLiteral("Food %1").arg(i), QStringLiteral("%1.00").arg(i),
                {QStringLiteral("g"), QStringLiteral("cup & %1").arg(i), QStringLiteral("slice")}, 1});
        }
    }

    int numberOfRowsInTableView(const TableView * /*view*/) const override { return int(entries.size()); }

    QVariant objectValueForTableColumn(const TableView * /*view*/, const QString &column, int row) override
    {
        asked.append(column + u' ' + QString::number(row));
        const Entry &entry = entries.at(row);
        if (column == QStringLiteral("Name"))
            return entry.name;
        if (column == QStringLiteral("Amount"))
            return entry.amount;
        if (column == QStringLiteral("Unit"))
            return 0; // the title that is chosen later is what shows
        return float(row) * 1.5F;
    }

    void setObjectValue(const TableView * /*view*/, const QVariant &value, const QString &column, int row) override
    {
        notes.append(QStringLiteral("%1 %2 = %3").arg(column).arg(row).arg(value.toString()));
        entries[row].amount = value.toString() + QStringLiteral(".00");
        if (onEdit)
            onEdit();
    }

    void willDisplayCell(const TableView * /*view*/, TableCell &cell, const QString &column, int row) override
    {
        prepared.append(column + u' ' + QString::number(row));
        auto *popup = dynamic_cast<PopUpButtonCell *>(&cell);
        if (popup == nullptr)
            return;
        popup->removeAllItems();
        const Entry &entry = entries.at(row);
        for (int i = 0; i < entry.units.size(); ++i) {
            MenuItemUnit item;
            item.setTag(row);
            item.setIdx(i);
            item.setTitle(entry.units.at(i));
            item.action = [this](const MenuItemUnit &chosen) {
                notes.append(QStringLiteral("unit %1 = %2 %3").arg(chosen.tag()).arg(chosen.idx()).arg(chosen.title()));
            };
            item.detail = [detail = entry.detail] { return detail; };
            popup->addItem(std::move(item));
        }
        popup->selectItemAtIndex(entry.unit);
    }

    std::optional<QList<int>> selectionIndexesForProposedSelection(
        const TableView * /*view*/, const QList<int> &proposed) override
    {
        proposals.append(proposed);
        return filter ? filter(proposed) : proposed;
    }

    void tableViewSelectionDidChange() override
    {
        QStringList rows;
        for (const int row : table->selectedRowIndexes())
            rows.append(QString::number(row));
        notes.append(QStringLiteral("selected [%1]").arg(rows.join(u' ')));
        if (onSelection)
            onSelection();
    }

    Tip toolTipForCell(const TableView * /*view*/, const QString &column, int row) override
    {
        return [column, row] { return QStringLiteral("%1 of row %2").arg(column).arg(row); };
    }
};

// Name, Amount (edited), Unit (a menu) and Energy.
inline void addLogColumns(TableView &table)
{
    const auto column = [&table](const char *name, std::unique_ptr<TableCell> cell, bool editable = false) {
        const QString identifier = QString::fromLatin1(name);
        table.addTableColumn({identifier, identifier, std::move(cell), editable});
    };
    const auto number = [] {
        auto cell = std::make_unique<TableCell>();
        cell->setAlignment(Qt::AlignRight);
        return cell;
    };
    column("Name", nullptr);
    column("Amount", number(), true);
    column("Unit", std::make_unique<PopUpButtonCell>());
    auto energy = number();
    energy->setFormatter([](const QVariant &value) { return QString::number(value.toDouble(), 'f', 0); });
    column("Energy", std::move(energy));
}

// The cell of a row in a column, by the column's place.
inline QModelIndex cellAt(const TableView &table, int row, int column)
{
    return table.model()->index(row, column);
}

inline QPoint middleOf(const TableView &table, int row, int column)
{
    return table.visualRect(cellAt(table, row, column)).center();
}

// The menu that is open, or null.
inline QMenu *openMenuOf(const TableView &table)
{
    for (QMenu *menu : table.findChildren<QMenu *>()) {
        if (menu->isVisible())
            return menu;
    }
    return nullptr;
}
