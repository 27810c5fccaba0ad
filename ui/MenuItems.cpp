// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/MenuItems.h"

#include <QMenu>

void MenuItems::setCondition(QAction *action, const std::function<bool()> &doessomething)
{
    conditions.insert(action, doessomething);
}

void MenuItems::watch(QMenu *menu)
{
    connect(menu, &QMenu::aboutToShow, this, [this, menu] { show(*menu, true); });
    connect(menu, &QMenu::aboutToHide, this, [this, menu] { show(*menu, false); });
}

void MenuItems::show(const QMenu &menu, bool isopen) const
{
    for (QAction *action : menu.actions()) {
        const auto condition = conditions.constFind(action);
        if (condition != conditions.constEnd())
            action->setEnabled(!isopen || (*condition)());
    }
}
