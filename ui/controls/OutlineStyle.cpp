// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/controls/OutlineStyle.h"

#include <QApplication>
#include <QCheckBox>
#include <QPainter>
#include <QStyleOption>

namespace {

bool isDark(const QPalette &palette)
{
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

QColor halfWay(const QColor &one, const QColor &other)
{
    const auto half = [](int a, int b) { return (a + b) / 2; };
    return {half(one.red(), other.red()), half(one.green(), other.green()), half(one.blue(), other.blue())};
}

void outline(QPainter &painter, const QRect &rect, const QColor &color, qreal radius)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(color);
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    painter.restore();
}

void outlineFocus(const QStyleOption &option, QPainter &painter)
{
    constexpr qreal radius = 2.0;
    const QColor color = halfWay(option.palette.color(QPalette::Highlight), option.palette.color(QPalette::WindowText));
    if (option.state.testFlag(QStyle::State_HasFocus) && isDark(option.palette))
        outline(painter, option.rect, color, radius);
}

} // namespace

void OutlineStyle::use()
{
    if (QApplication::style()->name() != QStringLiteral("fusion"))
        return;
    auto *style = new OutlineStyle;
    style->setParent(qApp); // as setStyle() does, which the analyser does not know
    QApplication::setStyle(style);
}

void OutlineStyle::drawPrimitive(
    PrimitiveElement element, const QStyleOption *option, QPainter *painter, const QWidget *widget) const
{
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const auto *frame = qstyleoption_cast<const QStyleOptionFrame *>(option);
    if (element == PE_IndicatorCheckBox && isDark(option->palette))
        outline(*painter, option->rect,
            halfWay(option->palette.color(QPalette::Base), option->palette.color(QPalette::WindowText)), 1.0);
    else if (element == PE_PanelButtonCommand || element == PE_PanelButtonTool
        || (element == PE_PanelLineEdit && frame != nullptr && frame->lineWidth > 0)) // the date's text has its field's
        outlineFocus(*option, *painter);
    else if (element == PE_FrameFocusRect && qobject_cast<const QCheckBox *>(widget) != nullptr
        && option->state.testFlag(State_KeyboardFocusChange))
        outlineFocus(*option, *painter);
}

void OutlineStyle::drawComplexControl(
    ComplexControl control, const QStyleOptionComplex *option, QPainter *painter, const QWidget *widget) const
{
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (control == CC_ComboBox || control == CC_SpinBox)
        outlineFocus(*option, *painter);
}
