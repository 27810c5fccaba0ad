// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "history/Course.h"
#include "ui/historysheet/ChartAxis.h"
#include "ui/historysheet/DayView.h"

#include <QPixmap>

// The course of one nutrient over a period: bars from zero, a mark under the axis where no day is logged, a dashed line
// at the allowance, and the mean of seven days as a line that is broken where too few of them are logged. The axis is
// in the nutrient's unit, and in percent at the right where there is an allowance. What bars and lines are can be told
// without colour; the colours are the palette's, and none says that much is bad.
//
// Painted by hand: a chart library is larger than the rest of the sheet and says nothing to a screen reader.
class CourseChart final : public DayView {
    Q_OBJECT

public:
    struct Content {
        History::Period period;
        History::Course course;
        QString unit;
        float allowance = 0.0F; // not above 0: there is none
    };

    explicit CourseChart(QWidget *parent = nullptr);

    void setContent(Content shown);
    // In the place of the bars when no day is logged.
    void setEmptyText(const QString &text);

    [[nodiscard]] QSize sizeHint() const override { return {480, 240}; }
    [[nodiscard]] QSize minimumSizeHint() const override { return {240, 110}; }

    // Where things are painted, for whoever looks at the picture.
    [[nodiscard]] QRectF plotArea() const;
    [[nodiscard]] QRectF barArea(const History::Bar &bar) const;
    [[nodiscard]] double heightOf(double amount) const;

protected:
    [[nodiscard]] QDate dayAfterKey(int key) const override;
    [[nodiscard]] QDate dayAt(QPointF place) const override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void layOut();
    [[nodiscard]] double leftOf(QDate day) const;
    [[nodiscard]] bool hasAllowance() const { return content.allowance > 0.0F; }
    void paintPicture();
    void paintAxis(QPainter &painter) const;
    void paintPercents(QPainter &painter) const;
    void paintDates(QPainter &painter) const;
    void paintBars(QPainter &painter) const;
    void paintRunningMean(QPainter &painter) const;
    void paintAllowance(QPainter &painter) const;
    void paintCursor(QPainter &painter) const;
    void paintLegend(QPainter &painter) const;

    Content content;
    bool isempty = true;
    QString emptytext;
    ChartAxis axis;
    ChartAxis percents;
    QRectF plot;
    QPixmap picture; // all but the cursor, which alone moves; null when it is to be painted anew
};
