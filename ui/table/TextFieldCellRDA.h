// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "ui/table/TableCell.h"

// A text over the bar of its recommended daily allowance: as long as the ratio times the cell's width, white turning
// red as the ratio grows. The bar is not kept inside the cell, only inside the table's viewport, so a bar cell belongs
// in the last column. The text is black where the bar lies under it and the palette's elsewhere, which stays readable
// in every theme. CE_ProgressBar, or a widget a row, takes more than ten times as long.
class TextFieldCellRDA final : public TableCell {
public:
    // Never a colour: this cell draws no selection.
    [[nodiscard]] QColor highlightColorWithFrame(
        const QRectF &frame, const QStyleOptionViewItem &option) const override;
    void drawWithFrame(QPainter &painter, const QRectF &frame, const QStyleOptionViewItem &option) const override;

    // The ratio (1 is 100 %), despite the name, and any float: it is not checked.
    [[nodiscard]] float percent() const { return bar.ratio; }
    void setPercent(float percent) { bar.ratio = percent; }

    // A plain background over the bar and under the text; the bar does not depend on it.
    [[nodiscard]] bool drawsBackground() const { return bar.background; }
    void setDrawsBackground(bool draws) { bar.background = draws; }
    [[nodiscard]] const QColor &backgroundColor() const { return bar.color; }
    void setBackgroundColor(const QColor &backgroundcolor) { bar.color = backgroundcolor; }

    [[nodiscard]] QVariant looks() const override { return QVariant::fromValue(bar); }
    void setLooks(const QVariant &looks) override { bar = looks.value<Bar>(); }
    void clear() override;
    [[nodiscard]] bool paintsPastFrame() const override { return true; }

    // What a ratio looks like: red 1, green and blue 1 - 0.6 p, pinned to what a screen has. The ratio is above 0.
    [[nodiscard]] static QColor barColor(float percent);
    // The part of the bar inside the bounds, worked out in double, however long the bar is; empty for a ratio that is
    // not above 0.
    [[nodiscard]] static QRectF barRectangle(float percent, const QRectF &frame, const QRectF &bounds);

private:
    struct Bar {
        QColor color;
        float ratio = 0.0F;
        bool background = false;
    };

    Bar bar;
};
