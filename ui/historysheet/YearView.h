// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "history/Year.h"
#include "ui/historysheet/DayView.h"

// A year at a glance: a column a week, a row a weekday, a cell a day in one of five shades of the palette's highlight,
// hollow where the day is not logged.
class YearView final : public DayView {
    Q_OBJECT

public:
    explicit YearView(QWidget *parent = nullptr);

    // With an allowance the shades are shares of it, else ranks within the year.
    void setYear(const History::Year &shown, bool withallowance);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

    // The cell of a day of the year, and what it is filled with; hollow cells have the background's colour.
    [[nodiscard]] QRectF cellArea(QDate day) const;
    [[nodiscard]] QColor shade(int step) const;

protected:
    [[nodiscard]] QDate dayAfterKey(int key) const override;
    [[nodiscard]] QDate dayAt(QPointF place) const override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    [[nodiscard]] double cellSize() const;
    [[nodiscard]] QSize sizeOfCells(double cell) const;
    void paintMonths(QPainter &painter) const;
    void paintLegend(QPainter &painter) const;
    void paintCell(QPainter &painter, const QRectF &area, const std::optional<int> &step) const;

    History::Year year;
    bool hasallowance = false;
};
