// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/table/CellMenu.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScreen>
#include <QStyleOptionMenuItem>

#include <algorithm>

namespace {

// What a unit is called: "cup" of "1 cup".
QStringView afterNumber(QStringView title)
{
    while (!title.isEmpty() && (title.front().isNumber() || title.front().isSpace()))
        title = title.sliced(1);
    return title;
}

} // namespace

QAction *CellMenu::addItem(const QString &title, const QString &detail)
{
    QAction *action = addAction(QString(title).replace(u'&', QStringLiteral("&&")));
    action->setData(detail);
    if (!detail.isEmpty())
        detailwidth = std::max(detailwidth, fontMetrics().horizontalAdvance(QStringLiteral("    ") + detail));
    return action;
}

void CellMenu::initStyleOption(QStyleOptionMenuItem *option, const QAction *action) const
{
    QMenu::initStyleOption(option, action);
    const QString detail = action->data().toString();
    if (detail.isEmpty())
        return;
    // Where a style paints a shortcut; a tab in the action's own text would be read aloud with it. With its own width
    // kept free, each ends where the others do.
    option->text += u'\t' + detail;
    option->reservedShortcutWidth = fontMetrics().horizontalAdvance(detail + u' ');
}

void CellMenu::keyPressEvent(QKeyEvent *event)
{
    const bool istyped = (event->modifiers() & ~Qt::ShiftModifier) == Qt::NoModifier && event->text().size() == 1;
    QAction *next = nullptr;
    if (event->key() == Qt::Key_Home)
        next = actions().value(0);
    else if (event->key() == Qt::Key_End)
        next = actions().value(actions().size() - 1);
    else if (istyped && event->text().front().isLetter())
        next = nextBeginningWith(event->text().front());
    if (next != nullptr)
        setActiveAction(next);
    else
        QMenu::keyPressEvent(event);
}

QAction *CellMenu::nextBeginningWith(QChar letter) const
{
    const QList<QAction *> items = actions();
    const qsizetype active = items.indexOf(activeAction());
    for (qsizetype i = 1; i <= items.size(); ++i) {
        QAction *item = items.at((active + i) % items.size());
        const QString title = item->text();
        if (afterNumber(title).startsWith(letter, Qt::CaseInsensitive))
            return item;
    }
    return nullptr;
}

void CellMenu::popupOver(const QRect &cell, QAction *chosen, const QMouseEvent *press)
{
    if (press != nullptr) {
        openingpress = press->timestamp();
        pressplace = press->globalPosition();
        dropsrelease = true;
    }
    ensurePolished();
    const QRect first = actionGeometry(actions().value(0));
    setMinimumWidth(std::max(cell.width(), first.width() + 2 * first.left() + detailwidth));
    const QSize size = sizeHint().expandedTo(minimumSize());
    const int middle = actionGeometry(chosen).center().y();
    const QScreen *around = QGuiApplication::screenAt(cell.center());
    const QRect area = (around != nullptr ? around : screen())->availableGeometry();
    popup({std::max(std::min(cell.left(), area.right() + 1 - size.width()), area.left()),
        std::max(std::min(cell.center().y() - middle, area.bottom() + 1 - size.height()), area.top())});
    setActiveAction(chosen);
}

void CellMenu::mousePressEvent(QMouseEvent *event)
{
    pressplace = event->globalPosition();
    dropsrelease = belongsToOpening(*event) && rect().contains(event->position().toPoint());
    if (!dropsrelease)
        QMenu::mousePressEvent(event);
}

void CellMenu::mouseReleaseEvent(QMouseEvent *event)
{
    const bool isdragged = (event->globalPosition() - pressplace).manhattanLength() > QApplication::startDragDistance();
    if (!belongsToOpening(*event) && (isdragged || !dropsrelease))
        QMenu::mouseReleaseEvent(event);
}

bool CellMenu::belongsToOpening(const QMouseEvent &event) const
{
    return openingpress && event.timestamp() - *openingpress < quint64(QApplication::doubleClickInterval());
}
