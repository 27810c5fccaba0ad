// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QPalette>

// Colours between two of the palette's, so that they can be told apart in a light and in a dark theme alike.
namespace Shades {

// `share` of the way from one colour to the other.
[[nodiscard]] inline QColor between(const QColor &from, const QColor &to, double share)
{
    const auto mix = [share](int a, int b) { return static_cast<int>(a + (b - a) * share); };
    return {mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue())};
}

// For lines that are only to guide the eye.
[[nodiscard]] inline QColor faint(const QPalette &palette)
{
    return between(palette.color(QPalette::Base), palette.color(QPalette::Text), 0.15);
}

} // namespace Shades
