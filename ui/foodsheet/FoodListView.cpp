// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/foodsheet/FoodListView.h"

#include <QEvent>
#include <QLabel>
#include <QPainter>
#include <QScrollBar>

namespace {

constexpr int gap = 6;

} // namespace

FoodListView::FoodListView(QWidget *parent)
    : QListView(parent)
    , label(new QLabel(this))
{
    label->setObjectName(QStringLiteral("headinglabel"));
    label->setTextFormat(Qt::PlainText);
    label->setIndent(gap);
    label->setAutoFillBackground(true);
    label->setBackgroundRole(QPalette::AlternateBase);
    label->setForegroundRole(QPalette::Text);
    label->hide();
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &FoodListView::showHeading);
}

void FoodListView::setParts(const QString &first, int firstrows, const QString &second)
{
    firstheading = first;
    secondheading = second;
    boundary = first.isEmpty() ? 0 : firstrows;
    const bool parted = boundary > 0;
    label->setVisible(parted);
    setViewportMargins(0, parted ? fontMetrics().height() + gap : 0, 0, 0);
    placeHeading();
    showHeading();
    viewport()->update();
}

QString FoodListView::heading() const
{
    return boundary > 0 ? label->text() : QString();
}

void FoodListView::setModel(QAbstractItemModel *model)
{
    QListView::setModel(model);
    connect(model, &QAbstractItemModel::modelReset, this, &FoodListView::showHeading);
}

void FoodListView::showHeading()
{
    const QModelIndex top = indexAt({1, 1});
    label->setText(top.isValid() && top.row() >= boundary && !secondheading.isEmpty() ? secondheading : firstheading);
}

void FoodListView::placeHeading()
{
    const QRect rows = viewport()->geometry();
    label->setGeometry(rows.left(), frameWidth(), rows.width(), rows.top() - frameWidth());
}

void FoodListView::resizeEvent(QResizeEvent *event)
{
    QListView::resizeEvent(event);
    placeHeading();
}

void FoodListView::changeEvent(QEvent *event)
{
    QListView::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        setParts(firstheading, boundary, secondheading);
}

void FoodListView::paintEvent(QPaintEvent *event)
{
    QListView::paintEvent(event);
    if (boundary <= 0 || model() == nullptr || boundary >= model()->rowCount())
        return;
    const QRect row = visualRect(model()->index(boundary, 0));
    if (row.top() <= 0 || row.top() >= viewport()->height())
        return;
    // A tab that hangs from the line into the first row below it, at the right, where few names reach.
    QPainter painter(viewport());
    QFont small = font();
    small.setPointSizeF(small.pointSizeF() * 0.85);
    painter.setFont(small);
    if (secondheading.isEmpty()) {
        painter.fillRect(row.left(), row.top() - 1, row.width(), 2, palette().color(QPalette::Mid));
        return;
    }
    const QPalette &colors = palette();
    const QFontMetrics metrics(small);
    QRect tab(0, row.top(), metrics.horizontalAdvance(secondheading) + 2 * gap, metrics.height());
    tab.moveRight(row.right());
    painter.fillRect(tab, colors.color(QPalette::AlternateBase));
    painter.setPen(colors.color(QPalette::Mid));
    painter.drawLine(row.topLeft(), row.topRight());
    painter.setPen(colors.color(QPalette::Text));
    painter.drawText(tab, Qt::AlignCenter, secondheading);
}
