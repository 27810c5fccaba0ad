// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "history/Figures.h"
#include "history/Sources.h"
#include "ui/historysheet/FittedColumns.h"
#include "ui/table/TableViewDataSource.h"
#include "ui/table/TableViewDelegate.h"

#include <array>
#include <vector>

// What the history's tables show. Each is both source and delegate of one TableView, is given what it shows, and is
// only read from; whoever gives it something else reloads the table.
class HistoryTable : public TableViewDataSource, public TableViewDelegate {
public:
    // No cell is edited, and no row selected by a person: the frame of the current one is enough.
    void setObjectValue(const TableView *, const QVariant &, const QString &, int) final { }
    [[nodiscard]] std::optional<QList<int>> selectionIndexesForProposedSelection(
        const TableView *, const QList<int> &) override
    {
        return std::nullopt;
    }
    void tableViewSelectionDidChange() final { }
    void willDisplayCell(const TableView *, TableCell &, const QString &, int) override { }
    [[nodiscard]] Tip toolTipForCell(const TableView *, const QString &, int) override { return {}; }

protected:
    ~HistoryTable() = default;
};

// The 61 nutrients with their means.
class FiguresTable final : public HistoryTable {
public:
    // The column that the rows are in the order of; equal ones, and all of "Name", are in the catalogue's.
    struct Order {
        QString column;
        bool descending = false;
    };

    static const std::array<QString, 6> columns; // their identifiers
    static FittedColumns makeColumns(TableView &table);
    void setFigures(const std::optional<History::Table> &shown, const History::Allowances &rdas, QDate last);
    void setOrder(const Order &wanted);
    [[nodiscard]] int nutrientOfRow(int row) const { return nutrients[static_cast<std::size_t>(row)]; }
    [[nodiscard]] int rowOfNutrient(int nutrient) const;

    [[nodiscard]] int numberOfRowsInTableView(const TableView *table) const override;
    [[nodiscard]] QVariant objectValueForTableColumn(const TableView *table, const QString &column, int row) override;
    void willDisplayCell(const TableView *table, TableCell &cell, const QString &column, int row) override;
    [[nodiscard]] Tip toolTipForCell(const TableView *table, const QString &column, int row) override;

private:
    void sort();
    [[nodiscard]] std::optional<double> sortKey(int nutrient) const;
    [[nodiscard]] const History::NutrientFigures &figuresOfRow(int row) const;

    std::optional<History::Table> figures;
    History::Allowances allowances{};
    QDate beside;
    Order order;
    std::vector<int> nutrients; // by row
};

// The foods that gave most of a nutrient.
class SourcesTable final : public HistoryTable {
public:
    static FittedColumns makeColumns(TableView &table);
    void setSources(std::vector<History::Source> shown, const QString &nutrientunit, QDate last);
    [[nodiscard]] QDate lastDayOfRow(int row) const { return sources[static_cast<std::size_t>(row)].lastday; }

    [[nodiscard]] int numberOfRowsInTableView(const TableView *table) const override;
    [[nodiscard]] QVariant objectValueForTableColumn(const TableView *table, const QString &column, int row) override;
    void willDisplayCell(const TableView *table, TableCell &cell, const QString &column, int row) override;
    [[nodiscard]] Tip toolTipForCell(const TableView *table, const QString &column, int row) override;

private:
    std::vector<History::Source> sources;
    QString unit;
    QDate beside;
};

// The foods whose file says nothing of it.
class UnknownSourcesTable final : public HistoryTable {
public:
    static FittedColumns makeColumns(TableView &table);
    void setSources(std::vector<History::UnknownSource> shown, QDate last);
    [[nodiscard]] QDate lastDayOfRow(int row) const { return sources[static_cast<std::size_t>(row)].lastday; }

    [[nodiscard]] int numberOfRowsInTableView(const TableView *table) const override;
    [[nodiscard]] QVariant objectValueForTableColumn(const TableView *table, const QString &column, int row) override;
    [[nodiscard]] Tip toolTipForCell(const TableView *table, const QString &column, int row) override;

private:
    std::vector<History::UnknownSource> sources;
    QDate beside;
};

// The logged days, the latest first.
class DaysTable final : public HistoryTable {
public:
    static FittedColumns makeColumns(TableView &table);
    void setDays(const History::Days &shown);
    void setNutrient(int shown, float rda);
    [[nodiscard]] QDate dayOfRow(int row) const { return dayAt(row).date; }
    // -1 for a day that is not logged.
    [[nodiscard]] int rowOfDay(QDate day) const;

    [[nodiscard]] int numberOfRowsInTableView(const TableView *table) const override;
    [[nodiscard]] QVariant objectValueForTableColumn(const TableView *table, const QString &column, int row) override;
    void willDisplayCell(const TableView *table, TableCell &cell, const QString &column, int row) override;

private:
    [[nodiscard]] const History::Day &dayAt(int row) const;

    History::Days days;
    int nutrient = 0;
    float allowance = 0.0F;
};
