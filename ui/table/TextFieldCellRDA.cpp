// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/table/TextFieldCellRDA.h"

#include <QAbstractScrollArea>
#include <QPainter>
#include <QStyleOptionViewItem>

#include <algorithm>
#include <cmath>

namespace {

// The rectangle with its edges on the device's pixels, so that the fill and the two clips beside it meet exactly at
// any scale.
QRectF onPixels(const QPainter &painter, const QRectF &rectangle)
{
    const QTransform transform = painter.deviceTransform();
    if (transform.type() > QTransform::TxScale || !transform.isInvertible())
        return rectangle;
    const QRectF device = transform.mapRect(rectangle);
    const QRectF rounded(QPointF(std::round(device.left()), std::round(device.top())),
        QPointF(std::round(device.right()), std::round(device.bottom())));
    return transform.inverted().mapRect(rounded);
}

// What a bar may cover at most: the table's viewport, or without a table what the painter draws on.
QRectF boundsOf(const QPainter &painter, const QStyleOptionViewItem &option)
{
    const auto *area = qobject_cast<const QAbstractScrollArea *>(option.widget);
    return area != nullptr ? QRectF(area->viewport()->rect()) : QRectF(painter.window());
}

} // namespace

QColor TextFieldCellRDA::highlightColorWithFrame(
    const QRectF & /*frame*/, const QStyleOptionViewItem & /*option*/) const
{
    return {};
}

void TextFieldCellRDA::drawWithFrame(QPainter &painter, const QRectF &frame, const QStyleOptionViewItem &option) const
{
    drawPanel(painter, frame, option);
    const QRectF filled = onPixels(painter, barRectangle(bar.ratio, frame, boundsOf(painter, option)));
    if (!filled.isEmpty())
        painter.fillRect(filled, barColor(bar.ratio));
    if (bar.background && bar.color.isValid() && bar.color.alpha() != 0)
        painter.fillRect(frame, bar.color);

    const QColor ink = textColor(frame, option);
    if (filled.isEmpty()) {
        drawInteriorWithFrame(painter, frame, option, ink);
        return;
    }
    painter.save();
    painter.setClipRect(filled, Qt::IntersectClip);
    drawInteriorWithFrame(painter, frame, option, Qt::black);
    painter.restore();
    if (filled.right() >= frame.right())
        return;
    painter.save();
    painter.setClipRect(QRectF(QPointF(filled.right(), frame.top()), frame.bottomRight()), Qt::IntersectClip);
    drawInteriorWithFrame(painter, frame, option, ink);
    painter.restore();
}

void TextFieldCellRDA::clear()
{
    TableCell::clear();
    bar = {};
}

QColor TextFieldCellRDA::barColor(float percent)
{
    // Above 1 / 0.6 the components fall below what a colour holds, and the bar is pure red.
    const double fade = std::clamp(1.0 - 0.6 * double(percent), 0.0, 1.0);
    return QColor::fromRgbF(1.0F, float(fade), float(fade));
}

QRectF TextFieldCellRDA::barRectangle(float percent, const QRectF &frame, const QRectF &bounds)
{
    // Pixels are 32-bit: a bar that is much longer than the window, or infinite, would be painted on the wrong side.
    if (!(percent > 0.0F) || !(frame.width() > 0.0))
        return {};
    const double right = std::min(frame.left() + frame.width() * double(percent), bounds.right());
    const double left = std::max(frame.left(), bounds.left());
    const double top = std::max(frame.top(), bounds.top());
    const double bottom = std::min(frame.bottom(), bounds.bottom());
    return left < right && top < bottom ? QRectF(left, top, right - left, bottom - top) : QRectF();
}
