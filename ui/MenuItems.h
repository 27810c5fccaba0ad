// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QHash>
#include <QObject>

#include <functional>

class QAction;
class QMenu;

// Shows in the menus which commands would do nothing: their items are disabled while a menu is open. They are enabled
// again when it closes, before one of them is sent: the shortcut of a disabled command would go on to whoever has the
// keyboard, and a table would put its row on the system clipboard.
class MenuItems final : public QObject {
public:
    // Whether choosing the command would do something.
    void setCondition(QAction *action, const std::function<bool()> &doessomething);
    // To be called for each menu, once it has its items.
    void watch(QMenu *menu);

private:
    void show(const QMenu &menu, bool isopen) const;

    QHash<const QAction *, std::function<bool()>> conditions;
};
