// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QProxyStyle>

// The desktop's style, except that in a dark theme a box without a tick and the control that has the keyboard get an
// outline that can be seen: Qt's own style darkens the window's colour for them, which is dark already. The
// application owns it.
class OutlineStyle final : public QProxyStyle {
public:
    // In the place of Qt's own style; a desktop that has one of its own keeps it. Before a window is made.
    static void use();

    void drawPrimitive(
        PrimitiveElement element, const QStyleOption *option, QPainter *painter, const QWidget *widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
        const QWidget *widget) const override;
};
