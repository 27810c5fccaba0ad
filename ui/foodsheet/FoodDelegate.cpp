// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/foodsheet/FoodDelegate.h"

#include "ui/foodsheet/FoodListModel.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>

namespace {

constexpr int gap = 6; // beside the text, and half of it above and below

QColor textColor(const QStyleOptionViewItem &option)
{
    const bool enabled = option.state.testFlag(QStyle::State_Enabled);
    const bool active = option.state.testFlag(QStyle::State_Active);
    const QPalette::ColorGroup group = !enabled ? QPalette::Disabled : active ? QPalette::Active : QPalette::Inactive;
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    return option.palette.color(group, selected ? QPalette::HighlightedText : QPalette::Text);
}

struct Text {
    QString letters;
    QList<QTextLayout::FormatRange> formats;
};

QTextLine layOut(QTextLayout &layout, const Text &text)
{
    constexpr qreal unlimited = 1e6;
    layout.setFormats(text.formats);
    layout.setCacheEnabled(true); // or it is shaped anew to be painted
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(unlimited);
    layout.endLayout();
    return line;
}

// Leaves the middle out. Foods of one kind begin alike, and what tells them apart ("raw", "cooked, grilled") often
// comes last.
Text shortened(const Text &text, const QTextLine &line, qreal width)
{
    constexpr qreal headshare = 0.62;
    const auto length = static_cast<int>(text.letters.size());
    const int head = line.xToCursor(width * headshare, QTextLine::CursorOnCharacter);
    int tail = line.xToCursor(line.naturalTextWidth() - width * (1 - headshare), QTextLine::CursorOnCharacter);
    tail = std::clamp(tail + 1, head, length);
    Text shorter{text.letters.left(head) + QChar(u'\u2026') + text.letters.mid(tail), {}};
    for (const QTextLayout::FormatRange &range : text.formats) {
        const int end = range.start + range.length;
        QTextLayout::FormatRange moved = range;
        if (range.start < head) {
            moved.length = std::min(end, head) - range.start;
            shorter.formats << moved;
        }
        if (end > tail) {
            moved.start = std::max(range.start, tail) + head + 1 - tail;
            moved.length = end - std::max(range.start, tail);
            shorter.formats << moved;
        }
    }
    return shorter;
}

void drawName(QPainter &painter, const QRect &rect, const QFont &font, const QString &name,
    const std::vector<FoodSearch::Letters> &matched)
{
    Text text{name, {}};
    for (const FoodSearch::Letters &letters : matched) {
        QTextLayout::FormatRange range;
        range.start = letters.start;
        range.length = letters.count;
        range.format.setFontWeight(QFont::Bold);
        text.formats << range;
    }
    QTextLayout layout(name, font, painter.device());
    const QTextLine line = layOut(layout, text);
    if (line.naturalTextWidth() <= rect.width()) {
        line.draw(&painter, rect.topLeft());
        return;
    }
    const qreal dots = QFontMetricsF(font).horizontalAdvance(QChar(u'\u2026'));
    const Text shorter = shortened(text, line, rect.width() - dots);
    QTextLayout shorterlayout(shorter.letters, font, painter.device());
    layOut(shorterlayout, shorter).draw(&painter, rect.topLeft());
}

} // namespace

void FoodDelegate::paint(QPainter *painter, const QStyleOptionViewItem &given, const QModelIndex &index) const
{
    QStyleOptionViewItem option = given;
    initStyleOption(&option, index);
    const QString name = option.text;
    option.text.clear();
    // The search field keeps the focus while the arrows move here: the current row shows it all the same.
    const auto *view = qobject_cast<const QAbstractItemView *>(option.widget);
    if (view != nullptr && view->currentIndex() == index)
        option.state |= QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange;
    const QStyle *style = option.widget != nullptr ? option.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &option, painter, option.widget);

    QRect rect = option.rect.adjusted(gap, gap / 2, -gap, -gap / 2);
    const QString mark = index.data(FoodListModel::MarkRole).toString();
    const QColor color = textColor(option);
    painter->save();
    painter->setClipRect(option.rect);
    const auto drawAtRight = [&](const QString &text, int width) {
        painter->setFont(option.font);
        painter->drawText(rect, static_cast<int>(Qt::AlignRight | Qt::AlignVCenter), text);
        rect.setRight(rect.right() - width - 2 * gap);
    };
    painter->setPen(color);
    const QStringList figures = index.data(FoodListModel::FiguresRole).toStringList();
    if (!figures.isEmpty()) { // in columns, so that they are compared at a glance
        if (!figures[1].isEmpty()) // either all rows have an allowance or none
            drawAtRight(figures[1], option.fontMetrics.horizontalAdvance(QStringLiteral("0000 %")));
        drawAtRight(figures[0], option.fontMetrics.horizontalAdvance(QStringLiteral("0000 mcg")));
    }
    if (!mark.isEmpty()) {
        QColor weaker = color;
        if (!option.state.testFlag(QStyle::State_Selected)) // on the highlight's colour it would be too pale to read
            weaker.setAlphaF(0.7F);
        painter->setPen(weaker);
        // A portion may have a long title; the food's name comes first.
        const int most = figures.isEmpty() ? rect.width() : rect.width() * 2 / 5;
        const QString shown = option.fontMetrics.elidedText(mark, Qt::ElideMiddle, most);
        drawAtRight(shown, option.fontMetrics.horizontalAdvance(shown));
    }
    painter->setPen(color);
    drawName(*painter, rect, option.font, name,
        index.data(FoodListModel::MatchedLettersRole).value<std::vector<FoodSearch::Letters>>());
    painter->restore();
}

QSize FoodDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex & /*index*/) const
{
    return {0, option.fontMetrics.height() + gap};
}
