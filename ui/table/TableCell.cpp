// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/table/TableCell.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionViewItem>
#include <QTextLayout>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace {

constexpr qreal sidemargin = 6.0; // left free on either side of the text

QPalette::ColorGroup colorGroup(const QStyleOptionViewItem &option)
{
    if (!option.state.testFlag(QStyle::State_Enabled))
        return QPalette::Disabled;
    return option.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
}

// Of all characters those that would begin a new line, or leap to a tab stop, are blanks: a cell is one line.
QString onOneLine(QString text)
{
    const auto breaks
        = [](QChar c) { return (c >= u'\t' && c <= u'\r') || c == u'\x85' || c == u'\u2028' || c == u'\u2029'; };
    if (std::any_of(text.cbegin(), text.cend(), breaks))
        std::replace_if(text.begin(), text.end(), breaks, QChar(u' '));
    return text;
}

// What is painted, for a cell is one line.
QString lineOf(const TableCell &cell)
{
    return onOneLine(TableCell::shortened(cell.stringValue()));
}

QTextLine singleLine(QTextLayout &layout)
{
    layout.setCacheEnabled(true); // or it is shaped anew to be painted
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    return line;
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

QString TableCell::shortened(const QString &text)
{
    constexpr qsizetype readable = 1000;
    if (text.size() <= readable)
        return text;
    const qsizetype whole = text.at(readable - 1).isHighSurrogate() ? readable - 1 : readable;
    return text.left(whole) + QChar(u'\u2026');
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
    return {metrics.horizontalAdvance(lineOf(*this)) + 2 * sidemargin, metrics.height()};
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
    const QRectF room = frame.adjusted(sidemargin, 0, -sidemargin, 0);
    // Most of the time of a paint goes into shaping text: what is shaped to be measured is painted as it is.
    QTextLayout layout(lineOf(*this), option.font);
    QTextLine line = singleLine(layout);
    if (line.naturalTextWidth() > room.width()) {
        layout.setText(QFontMetricsF(option.font).elidedText(layout.text(), Qt::ElideRight, room.width()));
        line = singleLine(layout);
    }
    const qreal left = align.testFlag(Qt::AlignRight) ? room.right() - line.naturalTextWidth() : room.left();
    painter.setPen(ink);
    line.draw(&painter, {left, room.top() + (room.height() - line.height()) / 2});
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
