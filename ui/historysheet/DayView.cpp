// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/historysheet/DayView.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <cmath>
#include <limits>

namespace {

// A chart whose value is the figure at its cursor. The description, which has it in words, is the widget's own.
class AccessibleDayView final : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit AccessibleDayView(DayView *view)
        : QAccessibleWidget(view, QAccessible::Chart)
        , days(view)
    { }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface *>(this);
        return QAccessibleWidget::interface_cast(type);
    }
    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Value ? days->accessibleDescription() : QAccessibleWidget::text(kind);
    }

    [[nodiscard]] QVariant currentValue() const override { return days->currentFigure(); }
    void setCurrentValue(const QVariant & /*value*/) override { }
    [[nodiscard]] QVariant maximumValue() const override { return std::numeric_limits<double>::max(); }
    [[nodiscard]] QVariant minimumValue() const override { return std::numeric_limits<double>::lowest(); }
    [[nodiscard]] QVariant minimumStepSize() const override { return 0.0; }

private:
    DayView *days;
};

QAccessibleInterface *accessibleOf(const QString & /*name*/, QObject *object)
{
    auto *view = qobject_cast<DayView *>(object);
    return view != nullptr ? new AccessibleDayView(view) : nullptr;
}

} // namespace

DayView::DayView(QWidget *parent)
    : QWidget(parent)
{
    QAccessible::installFactory(accessibleOf); // a second time changes nothing
    setFocusPolicy(Qt::StrongFocus);
}

void DayView::setCurrentDay(QDate day, const QString &sentence, std::optional<double> value)
{
    current = day;
    const bool hasfigure = value && std::isfinite(*value);
    figure = hasfigure ? *value : 0.0;
    setAccessibleDescription(sentence); // sends the change
    if (hasfigure && QAccessible::isActive()) {
        QAccessibleValueChangeEvent event(this, figure);
        QAccessible::updateAccessibility(&event);
    }
    update();
}

void DayView::paintFocus(QPainter &painter) const
{
    painter.setBrush(Qt::NoBrush);
    painter.setPen(palette().color(hasFocus() ? QPalette::Highlight : QPalette::Mid));
    painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
}

void DayView::keyPressEvent(QKeyEvent *event)
{
    const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    const QDate day = plain ? dayAfterKey(event->key()) : QDate();
    if (day.isValid())
        emit dayPointedAt(day);
    else if (plain && (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down))
        emit nutrientStepped(event->key() == Qt::Key_Up ? -1 : 1);
    else
        QWidget::keyPressEvent(event);
}

void DayView::mousePressEvent(QMouseEvent *event)
{
    const QDate day = dayAt(event->position());
    if (event->button() == Qt::LeftButton && day.isValid())
        emit dayPointedAt(day);
}

void DayView::focusInEvent(QFocusEvent *event)
{
    QWidget::focusInEvent(event);
    update();
}

void DayView::focusOutEvent(QFocusEvent *event)
{
    QWidget::focusOutEvent(event);
    update();
}
