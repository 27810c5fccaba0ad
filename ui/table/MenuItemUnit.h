// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QtGlobal>

#include <functional>
#include <utility>

// One item of a unit pop-up: the row it belongs to (tag), the unit's title, the unit's position in the food's list
// (idx), and what choosing it does. Added: a detail, which is painted beside the title and written only when a menu
// opens. A value, so that a menu can keep its items while the shared cell is already being rebuilt for another row.
class MenuItemUnit final {
public:
    std::function<void(const MenuItemUnit &)> action;
    std::function<QString()> detail;

    [[nodiscard]] qint32 idx() const { return index; }
    void setIdx(qint32 idx) { index = idx; }

    [[nodiscard]] int tag() const { return row; }
    void setTag(int tag) { row = tag; }

    [[nodiscard]] const QString &title() const { return text; }
    void setTitle(QString title) { text = std::move(title); }

private:
    QString text;
    qint32 index = 0;
    int row = 0;
};
