// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <QVariant>
#include <Qt>

#include <functional>

class QPainter;
class QStyleOptionViewItem;

// A plain text cell. One object serves every row of its column: the table gives it a row's value and has the delegate
// prepare it right before each use, so it must hold nothing of a row that the next value does not replace.
//
// A cell paints itself in two layers, so that a kind of cell can put something between them: the panel (the style's
// selection and hover, over option.rect) and the interior (the text and the focus outline, inside a frame).
class TableCell {
public:
    TableCell() = default;
    virtual ~TableCell() = default;
    Q_DISABLE_COPY_MOVE(TableCell)

    virtual void setObjectValue(const QVariant &value);
    [[nodiscard]] const QVariant &objectValue() const { return object; }

    // What is painted and spoken: the value through the formatter, or its own text when there is none.
    [[nodiscard]] virtual QString stringValue() const;
    // A text as far as anybody reads it in a line: a thousand characters, and dots in place of more. A stored text may
    // be a million long, and the time to shape it goes with its length.
    [[nodiscard]] static QString shortened(const QString &text);
    void setFormatter(std::function<QString(const QVariant &)> function);

    // Horizontal; text is always in the middle of its height. The header and the editor of the column follow it.
    void setAlignment(Qt::Alignment where) { align = where; }
    [[nodiscard]] Qt::Alignment alignment() const { return align; }

    // What the delegate's preparing made of its looks, if it makes anything of them: kept by the table and given back
    // at the next use, so that a cell shows no figure younger than its value.
    [[nodiscard]] virtual QVariant looks() const { return {}; }
    virtual void setLooks(const QVariant & /*looks*/) { }

    // Forgets the row it was prepared for.
    virtual void clear();

    // The size that shows the whole text.
    [[nodiscard]] virtual QSizeF cellSize(const QStyleOptionViewItem &option) const;

    // The colour behind a selected cell; an invalid colour draws no selection.
    [[nodiscard]] virtual QColor highlightColorWithFrame(const QRectF &frame, const QStyleOptionViewItem &option) const;
    virtual void drawWithFrame(QPainter &painter, const QRectF &frame, const QStyleOptionViewItem &option) const;

    // Whether it may paint beyond its frame's right edge.
    [[nodiscard]] virtual bool paintsPastFrame() const { return false; }

protected:
    [[nodiscard]] QColor textColor(const QRectF &frame, const QStyleOptionViewItem &option) const;
    void drawPanel(QPainter &painter, const QRectF &frame, const QStyleOptionViewItem &option) const;
    // Everything in one colour, ink.
    virtual void drawInteriorWithFrame(
        QPainter &painter, const QRectF &frame, const QStyleOptionViewItem &option, const QColor &ink) const;
    void drawText(QPainter &painter, const QRectF &frame, const QStyleOptionViewItem &option, const QColor &ink) const;
    static void drawFocus(
        QPainter &painter, const QRectF &frame, const QStyleOptionViewItem &option, const QColor &ink);

private:
    QVariant object;
    std::function<QString(const QVariant &)> formatter;
    Qt::Alignment align = Qt::AlignLeft;
};
