// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>

class QAction;
class QMainWindow;
class QTreeWidget;
class QTreeWidgetItem;

// Every shortcut of the main window, listed as its menus are: made from the actions each time that the sheet opens, so
// that no list can be forgotten when an action is added. Below them the other sheets' own keys, as those sheets give
// them. Owned by the window.
class ShortcutsSheet final : public QDialog {
    Q_OBJECT

public:
    explicit ShortcutsSheet(QMainWindow *window);

    void open() override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QTreeWidgetItem *addGroup(const QString &title);
    void list(QTreeWidgetItem *group, const QList<QAction *> &actions);

    QMainWindow *mainwindow;
    QTreeWidget *keys;
};
