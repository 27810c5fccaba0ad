// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/ShortcutsSheet.h"

#include "ui/daysheet/DaySheet.h"
#include "ui/foodsheet/AddFoodSheet.h"
#include "ui/historysheet/HistorySheet.h"

#include <QAction>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace {

// "&Add Food…" as "Add Food".
QString plain(QString text)
{
    text.remove(u'&');
    text.remove(u'…');
    return text;
}

QTreeWidgetItem *group(const QString &title)
{
    auto *item = new QTreeWidgetItem({title});
    QFont font;
    font.setBold(true);
    item->setFont(0, font);
    item->setSizeHint(0, {0, QFontMetrics(font).height() * 3 / 2}); // of all rows, which are alike
    item->setFlags(Qt::ItemIsEnabled);
    item->setData(1, Qt::AccessibleTextRole, title); // a screen reader comes to this cell too
    return item;
}

} // namespace

ShortcutsSheet::ShortcutsSheet(QMainWindow *window)
    : QDialog(window)
    , mainwindow(window)
    , keys(new QTreeWidget(this))
{
    setWindowTitle(tr("Keyboard shortcuts"));
    keys->setObjectName(QStringLiteral("shortcuts"));
    keys->setAccessibleName(tr("Keyboard shortcuts"));
    keys->setHeaderLabels({tr("Command"), tr("Keys")});
    keys->header()->setStretchLastSection(true);
    keys->setRootIsDecorated(false);
    keys->setItemsExpandable(false);
    keys->setUniformRowHeights(true);
    keys->setIndentation(fontMetrics().averageCharWidth() * 2);
    keys->installEventFilter(this);
    auto *close = new QPushButton(tr("&Close"), this);
    close->setAutoDefault(false);
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(keys);
    layout->addWidget(close, 0, Qt::AlignRight);
    resize(fontMetrics().averageCharWidth() * 80, fontMetrics().height() * 30);
}

void ShortcutsSheet::open()
{
    keys->clear();
    QList<QAction *> others = mainwindow->findChildren<QAction *>(QString(), Qt::FindDirectChildrenOnly);
    for (const QAction *top : mainwindow->menuBar()->actions()) {
        if (top->menu() == nullptr)
            continue;
        list(addGroup(plain(top->text())), top->menu()->actions());
        for (QAction *listed : top->menu()->actions())
            others.removeAll(listed);
    }
    list(addGroup(tr("Elsewhere")), others);
    const std::pair<QString, QList<std::pair<QString, QString>>> sheets[] = {{tr("In Add Food"), AddFoodSheet::keys()},
        {tr("In Add from Another Day"), DaySheet::keys()}, {tr("In History"), HistorySheet::keys()}};
    for (const auto &[title, own] : sheets) {
        QTreeWidgetItem *sheet = addGroup(title);
        for (const auto &[key, command] : own)
            new QTreeWidgetItem(sheet, {command, key});
    }
    for (int i = keys->topLevelItemCount() - 1; i >= 0; --i)
        if (keys->topLevelItem(i)->childCount() == 0)
            delete keys->takeTopLevelItem(i);
    keys->expandAll();
    keys->resizeColumnToContents(0);
    keys->setColumnWidth(0, keys->columnWidth(0) + 2 * fontMetrics().averageCharWidth());
    keys->setCurrentItem(keys->topLevelItem(0)->child(0));
    keys->setFocus();
    QDialog::open();
}

QTreeWidgetItem *ShortcutsSheet::addGroup(const QString &title)
{
    QTreeWidgetItem *added = group(title);
    keys->addTopLevelItem(added);
    added->setFirstColumnSpanned(true);
    return added;
}

void ShortcutsSheet::list(QTreeWidgetItem *group, const QList<QAction *> &actions)
{
    for (const QAction *action : actions) {
        QStringList texts;
        for (const QKeySequence &key : action->shortcuts())
            texts << key.toString(QKeySequence::NativeText);
        if (!texts.isEmpty() && !action->text().isEmpty())
            new QTreeWidgetItem(group, {plain(action->text()), texts.join(tr(" or "))});
    }
}

bool ShortcutsSheet::eventFilter(QObject *watched, QEvent *event)
{
    // A list would copy its current row to the clipboard, which is not the program's.
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent *>(event)->matches(QKeySequence::Copy))
        return true;
    return QDialog::eventFilter(watched, event);
}
