// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/table/PopUpButtonCell.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QStyleOptionViewItem>

#include <array>
#include <utility>

namespace {

constexpr qreal arrowroom = 14.0;

// A small arrow head pointing down in the middle of the area.
void drawArrow(QPainter &painter, const QRectF &area, const QColor &ink)
{
    const QPointF middle = area.center();
    const std::array<QPointF, 3> points{
        middle + QPointF(-3.5, -1.5), middle + QPointF(0, 2.0), middle + QPointF(3.5, -1.5)};
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(ink, 1.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(points.data(), int(points.size()));
    painter.restore();
}

} // namespace

void PopUpButtonCell::removeAllItems()
{
    menu.clear();
    selectItemAtIndex(-1);
}

void PopUpButtonCell::addItem(MenuItemUnit item)
{
    menu.append(std::move(item));
}

void PopUpButtonCell::selectItemAtIndex(int index)
{
    selected = index >= 0 && index < menu.size() ? index : -1;
    title = selected >= 0 ? menu.at(selected).title() : QString();
}

void PopUpButtonCell::setObjectValue(const QVariant &value)
{
    TableCell::setObjectValue(value);
    bool isnumber = false;
    const int index = value.toInt(&isnumber);
    selectItemAtIndex(isnumber ? index : -1);
}

void PopUpButtonCell::clear()
{
    TableCell::clear();
    removeAllItems();
}

QSizeF PopUpButtonCell::cellSize(const QStyleOptionViewItem &option) const
{
    return TableCell::cellSize(option) + QSizeF(arrowroom, 0);
}

void PopUpButtonCell::drawInteriorWithFrame(
    QPainter &painter, const QRectF &frame, const QStyleOptionViewItem &option, const QColor &ink) const
{
    drawText(painter, frame.adjusted(0, 0, -arrowroom, 0), option, ink);
    const QRectF arrow(frame.right() - arrowroom - 2, frame.top(), arrowroom, frame.height());
    drawArrow(painter, arrow, ink);
    drawFocus(painter, frame, option, ink);
}
