// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "ui/table/MenuItemUnit.h"
#include "ui/table/TableCell.h"

#include <QList>

// A cell that shows the chosen item of a menu. The table opens the menu; the cell holds its items for the row it was
// last prepared for.
class PopUpButtonCell final : public TableCell {
public:
    void removeAllItems();
    // Appends an item; none becomes selected by it.
    void addItem(MenuItemUnit item);
    [[nodiscard]] const QList<MenuItemUnit> &items() const { return menu; }

    // A position outside the items selects none.
    void selectItemAtIndex(int index);
    // -1 when none is selected.
    [[nodiscard]] int indexOfSelectedItem() const { return selected; }

    // A number is the position of the item to select.
    void setObjectValue(const QVariant &value) override;
    // The selected item's title, empty when none is selected.
    [[nodiscard]] QString stringValue() const override { return title; }
    // The title alone: the menu's items are always those of the last preparing.
    [[nodiscard]] QVariant looks() const override { return title; }
    void setLooks(const QVariant &looks) override { title = looks.toString(); }
    void clear() override;
    [[nodiscard]] QSizeF cellSize(const QStyleOptionViewItem &option) const override;

protected:
    void drawInteriorWithFrame(
        QPainter &painter, const QRectF &frame, const QStyleOptionViewItem &option, const QColor &ink) const override;

private:
    QList<MenuItemUnit> menu;
    int selected = -1;
    QString title; // what shows
};
