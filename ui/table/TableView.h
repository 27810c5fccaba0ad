// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "ui/table/TableCell.h"

#include <QList>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QString>
#include <QTableView>

#include <functional>
#include <memory>
#include <optional>

class CellDelegate;
class CellMenu;
class QPainter;
class RowSelectionModel;
class TableModel;
class TableViewDataSource;
class TableViewDelegate;

// A table that asks a data source for its rows and values and a delegate about their looks, in columns named by
// identifiers. It shows what it was given at the last reloadData(), whatever has changed since: whoever changes what a
// table shows reloads it. Reloading is cheap, touches neither the selected row indexes nor the scroll position nor
// the text of an open editor, and asks only for the values that come into sight.
//
// Rows are selected whole, extended, and have one height from the font. Where a column is editable, double click,
// Return, F2 or typing a number open its editor in the current row; where a column's cell is a PopUpButtonCell, a
// click, Space or Alt+Down open its menu.
//
// Qt's own model classes were not made the controller's interface: their reset clears the selection, and their change
// signals wipe what is being typed.
class TableView : public QTableView {
    Q_OBJECT

public:
    struct Column {
        QString identifier;
        QString title;
        std::unique_ptr<TableCell> cell;
        bool editable = false;
    };

    explicit TableView(QWidget *parent = nullptr);
    ~TableView() override;
    Q_DISABLE_COPY_MOVE(TableView)

    // Appends a column. Without a cell it gets a plain text cell. Where bars are drawn, theirs is the last column.
    void addTableColumn(Column column);
    // The cell that all rows of a column share, or null for an identifier that no column has.
    [[nodiscard]] TableCell *cellForColumn(const QString &identifier) const;

    // Neither is owned, and neither is asked for anything before the next reloadData(). Both may be null.
    void setDataSource(TableViewDataSource *source);
    void setDelegate(TableViewDelegate *delegate);

    // Forgets all values and counts the rows anew. Selected rows that are gone are deselected, and once the table has
    // its new rows the handler hears of it. An open menu is closed.
    virtual void reloadData();
    // The handler runs inside it, and only when a row was selected. Not asked of the filter.
    virtual void deselectAll();
    // Ascending.
    [[nodiscard]] QList<int> selectedRowIndexes() const;
    // Selects these rows and no others, without asking the filter; the handler runs when that changes the selection.
    // Indexes that the table has no row for are left out.
    void selectRowIndexes(const QList<int> &rows);

    // Moves the keyboard to a row and brings it into sight; the selection stays.
    void setCurrentRow(int row);

    // Take the keyboard to the current row and open the editor of its number or the menu of its pop-up cell, as keys
    // do.
    void editCurrentRow();
    void openMenuOfCurrentRow();

    // Ends an open editor, delivering its text to its own row if it was changed, and closes an open menu. Returns
    // whether an editor was open. To be called before every command.
    bool endEditing();

    // A thin rule above every row for which this is true.
    void setStartsBlock(std::function<bool(int row)> starts);
    // Shown, and told as the table's description, in place of the rows when there are none.
    void setPlaceholderText(const QString &text);

    // Letters move nowhere: Qt's search would ask for the values of every row.
    void keyboardSearch(const QString &search) override;

signals:
    // An editor has delivered a changed text and has closed.
    void editingEnded();
    // The values were forgotten, and the rows counted anew.
    void reloaded();
    // A menu of the current row's own is asked for by the mouse, which has made that row the current one, or by a key.
    // The place is on the screen.
    void rowMenuWanted(const QPoint &place);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

protected slots:
    void closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint) override;

private:
    [[nodiscard]] QWidget *openEditor() const;
    bool editRow(int row);
    // `pressed` is the timestamp of the mouse press that opens it, if one does.
    bool openMenu(const QModelIndex &index, const QMouseEvent *press = nullptr);
    void closeMenu();
    void paintPlaceholder(QPainter &painter) const;
    void paintBlockRules(QPainter &painter, const QRect &exposed) const;
    void paintPastLastColumn(QPainter &painter, const QRect &exposed) const;
    [[nodiscard]] int lastRowAbove(int y) const;
    void selectionDidChange();
    void selectCurrentRow();
    void ensureCurrent();
    void updateRowHeight();
    void updateDescription();
    void refreshRow(int row);
    void refreshRows(int first, int last);

    TableModel *tablemodel;
    RowSelectionModel *rowselection;
    CellDelegate *celldelegate;
    TableViewDelegate *tabledelegate = nullptr;
    std::function<bool(int)> startsblock;
    QString placeholder;
    QPointer<CellMenu> menu;
    QPersistentModelIndex editing; // the cell whose editor is open
    bool delivered = false; // by the open editor
    bool reloading = false;
};
