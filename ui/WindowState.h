// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QList>
#include <QRect>

// Whether what was saved of a window can be given back to Qt, which trusts it: one changed byte makes a window that no
// memory can hold, or a list without an end.
namespace WindowState {

// Of QWidget::saveGeometry(): every rectangle in it shows on one of the screens, and none is more than twice as wide or
// high as all of them together.
[[nodiscard]] bool isGeometry(const QByteArray &state, const QList<QRect> &screens);

// Of QSplitter::saveState(): as the splitter would save itself now, but for the sizes.
[[nodiscard]] bool isSplitter(const QByteArray &state, const QByteArray &now);

} // namespace WindowState
