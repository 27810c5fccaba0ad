// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStyledItemDelegate>

// Draws a food in the add-food sheet: its name with the letters in bold that the query found it by, without its middle
// where it is too long, and after it, in a weaker colour, the mark of a food that is chosen already. Rows have one
// height, so the view need not ask for 7,801 of them.
class FoodDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};
