// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QMenu>
#include <QString>

#include <optional>

// The menu of a PopUpButtonCell. It opens with its chosen item over the cell, as a pop-up list does, and so the second
// press of a double click comes to the menu: within that time after the press that opened it the mouse chooses nothing,
// nor does the release of a press of that time, however late, unless the mouse was dragged. The time is told by the
// events themselves, for a busy program comes to the second press late.
//
// A letter goes to the next item that begins with it after its number, Home and End to the first and the last.
class CellMenu final : public QMenu {
public:
    using QMenu::QMenu;

    // Appends an item. Its detail stands at the right edge and is no part of its text.
    QAction *addItem(const QString &title, const QString &detail);

    // The cell is in global coordinates; `press` is what opens the menu, or null when a key does.
    void popupOver(const QRect &cell, QAction *chosen, const QMouseEvent *press);

protected:
    void initStyleOption(QStyleOptionMenuItem *option, const QAction *action) const override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    [[nodiscard]] QAction *nextBeginningWith(QChar letter) const;
    [[nodiscard]] bool belongsToOpening(const QMouseEvent &event) const;

    int detailwidth = 0; // of the widest, with what is free before it
    std::optional<quint64> openingpress; // its timestamp
    bool dropsrelease = false; // of the last press,
    QPointF pressplace; // unless it was dragged away from here
};
