// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

// What the keys and the mouse do in a table: the editor of the amounts and the menu of the units.

#include "ui/table/CellMenu.h"
#include "ui/table/PopUpButtonCell.h"
#include "ui/table/RowSelectionModel.h"
#include "ui/table/TableModel.h"
#include "ui/table/TableView.h"

#include <QActionGroup>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>

#include <utility>

namespace {

Qt::KeyboardModifiers modifiersOf(const QKeyEvent *event)
{
    return event->modifiers() & ~Qt::KeypadModifier;
}

bool isClipboardKey(const QKeyEvent *event)
{
    return event->matches(QKeySequence::Copy) || event->matches(QKeySequence::Cut)
        || event->matches(QKeySequence::Paste);
}

bool isDeselectKey(const QKeyEvent *event)
{
    return (event->key() == Qt::Key_Escape && modifiersOf(event) == Qt::NoModifier)
        || (event->key() == Qt::Key_A && modifiersOf(event) == (Qt::ControlModifier | Qt::ShiftModifier));
}

bool isMenuKey(const QKeyEvent *event)
{
    return (event->key() == Qt::Key_Space && modifiersOf(event) == Qt::NoModifier)
        || (event->key() == Qt::Key_Down && modifiersOf(event) == Qt::AltModifier);
}

bool isRowMenuKey(const QKeyEvent *event)
{
    return event->key() == Qt::Key_F10 && modifiersOf(event) == Qt::ShiftModifier;
}

bool isEditKey(const QKeyEvent *event)
{
    const int key = event->key();
    return (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_F2) && modifiersOf(event) == Qt::NoModifier;
}

bool beginsNumber(const QString &text)
{
    return !text.isEmpty()
        && (QStringView(u"0123456789.-").contains(text.front()) || text.front().decompositionTag() == QChar::Fraction);
}

// Up or Down as they select, and not as they only move.
bool isSelectingMove(const QKeyEvent *event)
{
    return (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down)
        && (modifiersOf(event) & ~Qt::ShiftModifier) == Qt::NoModifier;
}

// On some keyboards digits are typed with Shift.
bool beginsNumber(const QKeyEvent *event)
{
    return event->text().size() == 1 && beginsNumber(event->text())
        && (modifiersOf(event) & ~Qt::ShiftModifier) == Qt::NoModifier;
}

} // namespace

void TableView::keyPressEvent(QKeyEvent *event)
{
    // Qt would put the current cell on the system clipboard. What these keys do is the menu's.
    if (isClipboardKey(event))
        return;
    // A key still held from what it did before does nothing else.
    if (event->isAutoRepeat()
        && (isDeselectKey(event) || isMenuKey(event) || isRowMenuKey(event) || isEditKey(event) || beginsNumber(event)))
        return;
    const QModelIndex current = currentIndex();
    if (isRowMenuKey(event)) { // Qt makes this of the menu key alone
        QContextMenuEvent wanted(QContextMenuEvent::Keyboard, {}, {});
        contextMenuEvent(&wanted);
        return;
    }
    if (isDeselectKey(event)) {
        event->setAccepted(rowselection->hasSelection());
        rowselection->clearSelection();
        return;
    }
    if (isMenuKey(event) && openMenu(current.siblingAtColumn(tablemodel->popUpColumn())))
        return;
    if (isEditKey(event) && editRow(current.row()))
        return;
    if (beginsNumber(event) && editRow(current.row())) {
        QCoreApplication::sendEvent(openEditor(), event);
        return;
    }
    const bool begins = isSelectingMove(event) && current.isValid() && !rowselection->hasSelection();
    if (begins && event->modifiers().testFlag(Qt::ShiftModifier))
        selectCurrentRow(); // Qt would extend from the row that a key came to last
    QTableView::keyPressEvent(event);
    if (begins && currentIndex() == current)
        selectCurrentRow(); // Qt selects only where it moves
}

// As a plain key does, proposing it; a selection is extended from there on.
void TableView::selectCurrentRow()
{
    setSelectionMode(SingleSelection); // or a key held down with this one would say what becomes of it
    setCurrentIndex(currentIndex());
    setSelectionMode(ExtendedSelection);
}

void TableView::inputMethodEvent(QInputMethodEvent *event)
{
    const QModelIndex current = currentIndex();
    const bool opens = openEditor() == nullptr;
    const bool begins = current.column() == tablemodel->editableColumn() && current.row() < tablemodel->sourceRowCount()
        && beginsNumber(event->commitString() + event->preeditString());
    if (opens && !begins) {
        event->ignore();
        return;
    }
    if (opens && event->preeditString().isEmpty()) {
        if (editRow(current.row()))
            QCoreApplication::sendEvent(openEditor(), event);
        return;
    }
    // Qt's own handling opens the editor and leaves the focus here until the composition ends, which a move of the
    // focus would interrupt.
    setEditTriggers(AnyKeyPressed);
    QTableView::inputMethodEvent(event);
    setEditTriggers(NoEditTriggers);
    if (indexWidget(current) != nullptr)
        editing = current;
}

void TableView::keyboardSearch(const QString & /*search*/) { }

void TableView::mousePressEvent(QMouseEvent *event)
{
    const QModelIndex index = indexAt(event->position().toPoint());
    const bool plain = event->button() == Qt::LeftButton && event->modifiers() == Qt::NoModifier;
    if (plain && index.isValid() && openMenu(index, event))
        return;
    QTableView::mousePressEvent(event);
}

void TableView::mouseDoubleClickEvent(QMouseEvent *event)
{
    const QModelIndex index = indexAt(event->position().toPoint());
    const bool plain = event->button() == Qt::LeftButton && event->modifiers() == Qt::NoModifier;
    if (plain && index.isValid() && openMenu(index, event))
        return;
    QTableView::mouseDoubleClickEvent(event);
    if (plain && index.isValid())
        editRow(index.row());
}

void TableView::contextMenuEvent(QContextMenuEvent *event)
{
    const bool bykey = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex index = bykey ? currentIndex() : indexAt(event->pos());
    if (!index.isValid())
        return;
    endEditing();
    scrollTo(index);
    emit rowMenuWanted(bykey ? viewport()->mapToGlobal(visualRect(index).bottomLeft()) : event->globalPos());
}

void TableView::editCurrentRow()
{
    if (openEditor() != nullptr)
        return;
    setFocus();
    editRow(currentIndex().row());
}

void TableView::openMenuOfCurrentRow()
{
    setFocus();
    openMenu(currentIndex().siblingAtColumn(tablemodel->popUpColumn()));
}

bool TableView::endEditing()
{
    closeMenu();
    QWidget *editor = openEditor();
    if (editor == nullptr)
        return false;
    commitData(editor);
    closeEditor(editor, QAbstractItemDelegate::NoHint);
    return true;
}

void TableView::closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint)
{
    using Delegate = QAbstractItemDelegate;
    const bool moves = hint == Delegate::EditNextItem || hint == Delegate::EditPreviousItem;
    const int row = editing.row();
    QTableView::closeEditor(editor, moves ? Delegate::NoHint : hint);
    editing = QPersistentModelIndex();
    if (std::exchange(delivered, false))
        emit editingEnded();
    if (!moves)
        return;
    const bool forward = hint == Delegate::EditNextItem;
    if (!editRow(forward ? row + 1 : row - 1))
        focusNextPrevChild(forward);
}

QWidget *TableView::openEditor() const
{
    return editing.isValid() ? indexWidget(editing) : nullptr;
}

// Opens the editor of a row's editable cell, its text selected. False when there is no such cell.
bool TableView::editRow(int row)
{
    const QModelIndex index = tablemodel->index(row, tablemodel->editableColumn());
    if (!index.isValid() || row >= tablemodel->sourceRowCount())
        return false;
    if (index != editing || openEditor() == nullptr) {
        endEditing();
        rowselection->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
        scrollTo(index);
        edit(index);
        editing = index;
        if (openEditor() != nullptr)
            openEditor()->setFocus(); // Qt leaves it out after a composition that was ended by the program
    }
    return openEditor() != nullptr;
}

// Opens the menu of a pop-up cell, without waiting for it. False for any other cell.
bool TableView::openMenu(const QModelIndex &index, const QMouseEvent *press)
{
    if (!index.isValid() || index.row() >= tablemodel->sourceRowCount())
        return false;
    if (dynamic_cast<PopUpButtonCell *>(tablemodel->cell(index.column())) == nullptr)
        return false;
    endEditing();
    rowselection->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    scrollTo(index);

    // The items are taken out of the cell: painting another row rebuilds it while the menu is open.
    const auto &cell = static_cast<PopUpButtonCell &>(tablemodel->prepareCell(index.row(), index.column()));
    menu = new CellMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setAccessibleName(tablemodel->headerData(index.column(), Qt::Horizontal, Qt::DisplayRole).toString());
    auto *group = new QActionGroup(menu);
    for (const MenuItemUnit &item : cell.items()) {
        QAction *action = menu->addItem(item.title(), item.detail ? item.detail() : QString());
        action->setCheckable(true);
        group->addAction(action);
        connect(action, &QAction::triggered, this, [item] {
            if (item.action)
                item.action(item);
        });
    }
    const QList<QAction *> actions = menu->actions();
    QAction *chosen = actions.value(cell.indexOfSelectedItem());
    if (chosen != nullptr)
        chosen->setChecked(true);
    const QRect area = visualRect(index);
    menu->popupOver({viewport()->mapToGlobal(area.topLeft()), area.size()}, chosen, press);
    return true;
}

void TableView::closeMenu()
{
    if (menu != nullptr)
        menu->close();
}
