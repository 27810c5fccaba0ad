// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/table/CellMenu.h"

#include <QApplication>
#include <QMouseEvent>
#include <QScreen>

#include <algorithm>

void CellMenu::popupOver(const QRect &cell, QAction *chosen, const QMouseEvent *press)
{
    if (press != nullptr) {
        openingpress = press->timestamp();
        pressplace = press->globalPosition();
        dropsrelease = true;
    }
    setMinimumWidth(cell.width());
    ensurePolished();
    const QSize size = sizeHint().expandedTo(minimumSize());
    const int middle = actionGeometry(chosen).center().y();
    const QScreen *around = QGuiApplication::screenAt(cell.center());
    const QRect area = (around != nullptr ? around : screen())->availableGeometry();
    popup({std::max(std::min(cell.left(), area.right() + 1 - size.width()), area.left()),
        std::max(std::min(cell.center().y() - middle, area.bottom() + 1 - size.height()), area.top())});
    setActiveAction(chosen);
}

void CellMenu::mousePressEvent(QMouseEvent *event)
{
    pressplace = event->globalPosition();
    dropsrelease = belongsToOpening(*event) && rect().contains(event->position().toPoint());
    if (!dropsrelease)
        QMenu::mousePressEvent(event);
}

void CellMenu::mouseReleaseEvent(QMouseEvent *event)
{
    const bool isdragged = (event->globalPosition() - pressplace).manhattanLength() > QApplication::startDragDistance();
    if (!belongsToOpening(*event) && (isdragged || !dropsrelease))
        QMenu::mouseReleaseEvent(event);
}

bool CellMenu::belongsToOpening(const QMouseEvent &event) const
{
    return openingpress && event.timestamp() - *openingpress < quint64(QApplication::doubleClickInterval());
}
