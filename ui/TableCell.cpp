// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/TableCell.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionViewItem>
#include <QWidget>

#include <utility>

namespace {

constexpr qreal sidemargin = 6.0;

QPalette::ColorGroup colorGroup(const QStyleOptionViewItem &option)
{
    if (!option.state.testFlag(QStyle::State_Enabled))
        return QPalette::Disabled;
    return option.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
}

} // namespace

void TableCell::setObjectValue(const QVariant &value)
{
    object = value;
}

QString TableCell::stringValue() const
{
    return formatter && object.isValid() ? formatter(object) : object.toString();
}

void TableCell::setFormatter(std::function<QString(const QVariant &)> function)
{
    formatter = std::move(function);
}

void TableCell::clear()
{
    object = QVariant();
}

QSizeF TableCell::cellSize(const QStyleOptionViewItem &option) const
{
    const QFontMetricsF metrics(option.font);
    return {metrics.horizontalAdvance(stringValue()) + 2 * margin(option), metrics.height()};
}

QColor TableCell::highlightColorWithFrame(const QRectF & /*frame*/, const QStyleOptionViewItem &option) const
{
    return option.palette.color(colorGroup(option), QPalette::Highlight);
}

void TableCell::drawWithFrame(QPainter &painter, const QRectF &frame, const QStyleOptionViewItem &option) const
{
    drawPanel(painter, frame, option);
    drawInteriorWithFrame(painter, frame, option, textColor(frame, option));
}

qreal TableCell::margin(const QStyleOptionViewItem & /*option*/)
{
    return sidemargin;
}

QColor TableCell::textColor(const QRectF &frame, const QStyleOptionViewItem &option) const
{
    const bool selected
        = option.state.testFlag(QStyle::State_Selected) && highlightColorWithFrame(frame, option).isValid();
    return option.palette.color(colorGroup(option), selected ? QPalette::HighlightedText : QPalette::Text);
}

void TableCell::drawPanel(QPainter &painter, const QRectF &frame, const QStyleOptionViewItem &option) const
{
    QStyleOptionViewItem panel(option);
    panel.state.setFlag(QStyle::State_HasFocus, false);
    if (!highlightColorWithFrame(frame, option).isValid())
        panel.state.setFlag(QStyle::State_Selected, false);
    if (option.widget != nullptr)
        option.widget->style()->drawPrimitive(QStyle::PE_PanelItemViewItem, &panel, &painter, option.widget);
}

void TableCell::drawInteriorWithFrame(
    QPainter &painter, const QRectF &frame, const QStyleOptionViewItem &option, const QColor &ink) const
{
    drawText(painter, frame, option, ink);
    drawFocus(painter, frame, option, ink);
}

void TableCell::drawText(
    QPainter &painter, const QRectF &frame, const QStyleOptionViewItem &option, const QColor &ink) const
{
    const qreal side = margin(option);
    const QRectF room = frame.adjusted(side, 0, -side, 0);
    const QFontMetricsF metrics(option.font);
    QString text = stringValue();
    if (metrics.horizontalAdvance(text) > room.width())
        text = metrics.elidedText(text, Qt::ElideRight, room.width());
    painter.setFont(option.font);
    painter.setPen(ink);
    const Qt::Alignment where = (align & Qt::AlignHorizontal_Mask) | Qt::AlignVCenter;
    painter.drawText(room, int(where) | Qt::TextSingleLine | Qt::TextDontClip, text);
}

void TableCell::drawFocus(QPainter &painter, const QRectF &frame, const QStyleOptionViewItem &option, const QColor &ink)
{
    // The style's own outline is left out until a key is pressed, and some draw it in a colour that the bar hides.
    if (!option.state.testFlag(QStyle::State_HasFocus))
        return;
    painter.setPen(ink);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(frame.adjusted(0, 0, -1, -1));
}
