// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/table/TableView.h"

#include "ui/table/CellDelegate.h"
#include "ui/table/CellMenu.h"
#include "ui/table/RowSelectionModel.h"
#include "ui/table/TableModel.h"
#include "ui/table/TableViewDelegate.h"

#include <QAccessible>
#include <QApplication>
#include <QHeaderView>
#include <QPainter>
#include <QStyleOptionHeader>

#include <algorithm>
#include <utility>

namespace {

constexpr int rowpadding = 7; // pixels of a row's height that are not its text's

// The titles stand as far from the edges as the cells' texts do. Styles leave them next to no room, so that a title
// set to the right touches the next one.
class TitleHeader final : public QHeaderView {
public:
    using QHeaderView::QHeaderView;

protected:
    void initStyleOptionForIndex(QStyleOptionHeader *option, int logicalindex) const override
    {
        QHeaderView::initStyleOptionForIndex(option, logicalindex);
        option->text = QChar::Nbsp + option->text + QChar::Nbsp;
    }
};

// Between the background and the text, whatever the theme: a palette's own greys vanish in a dark one.
QColor ruleColor(const QPalette &palette)
{
    const QColor base = palette.color(QPalette::Base);
    const QColor text = palette.color(QPalette::Text);
    const auto between = [](int from, int to) { return from + (to - from) * 3 / 10; };
    return {between(base.red(), text.red()), between(base.green(), text.green()), between(base.blue(), text.blue())};
}

} // namespace

TableView::TableView(QWidget *parent)
    : QTableView(parent)
    , tablemodel(new TableModel(this))
    , rowselection(new RowSelectionModel(tablemodel, this))
    , celldelegate(new CellDelegate(tablemodel, this))
{
    setModel(tablemodel);
    const std::unique_ptr<QItemSelectionModel> unfiltered(selectionModel());
    setSelectionModel(rowselection);
    setItemDelegate(celldelegate);
    connect(rowselection, &QItemSelectionModel::selectionChanged, this, &TableView::selectionDidChange);
    connect(tablemodel, &TableModel::rowEdited, this, &TableView::refreshRow);

    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setShowGrid(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollMode(ScrollPerPixel);
    setHorizontalHeader(new TitleHeader(Qt::Horizontal, this));
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(false);
    horizontalHeader()->setResizeContentsPrecision(0);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setMinimumSectionSize(1);
    updateRowHeight();
}

TableView::~TableView() = default;

void TableView::addTableColumn(Column column)
{
    tablemodel->addColumn(std::move(column));
}

TableCell *TableView::cellForColumn(const QString &identifier) const
{
    return tablemodel->cell(tablemodel->columnOf(identifier));
}

void TableView::setDataSource(TableViewDataSource *source)
{
    tablemodel->setDataSource(source);
}

void TableView::setDelegate(TableViewDelegate *delegate)
{
    tabledelegate = delegate;
    tablemodel->setDelegate(delegate);
    rowselection->setFilter(
        delegate == nullptr ? RowSelectionModel::Filter() : [this, delegate](const QList<int> &proposed) {
            return delegate->selectionIndexesForProposedSelection(this, proposed);
        });
}

void TableView::reloadData()
{
    closeMenu();
    const int count = tablemodel->sourceRowCount();
    if (editing.isValid() && editing.row() >= count)
        closeEditor(openEditor(), QAbstractItemDelegate::RevertModelCache);
    const QList<int> selected = selectedRowIndexes();
    reloading = true;
    tablemodel->reload(count);
    reloading = false;
    ensureCurrent();
    updateDescription();
    refreshRows(0, count - 1);
    if (!selected.isEmpty() && selected.last() >= count)
        selectionDidChange();
    emit reloaded();
}

void TableView::deselectAll()
{
    rowselection->setRows({});
}

QList<int> TableView::selectedRowIndexes() const
{
    return rowselection->rows();
}

void TableView::selectRowIndexes(const QList<int> &rows)
{
    rowselection->setRows(rows);
}

void TableView::setCurrentRow(int row)
{
    const QModelIndex index = tablemodel->index(row, 0);
    rowselection->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    scrollTo(index);
}

void TableView::setStartsBlock(std::function<bool(int)> starts)
{
    startsblock = std::move(starts);
    viewport()->update();
}

void TableView::setPlaceholderText(const QString &text)
{
    placeholder = text;
    updateDescription();
    viewport()->update();
}

void TableView::focusInEvent(QFocusEvent *event)
{
    QTableView::focusInEvent(event);
    ensureCurrent();
    viewport()->update();
}

void TableView::focusOutEvent(QFocusEvent *event)
{
    QTableView::focusOutEvent(event);
    // The editor in which a composition goes on from here has no focus to lose.
    if (event->reason() != Qt::PopupFocusReason && openEditor() != nullptr
        && QApplication::focusWidget() != openEditor())
        endEditing();
    viewport()->update();
}

void TableView::paintEvent(QPaintEvent *event)
{
    QTableView::paintEvent(event);
    QPainter painter(viewport());
    if (tablemodel->rowCount() == 0) {
        paintPlaceholder(painter);
        return;
    }
    paintPastLastColumn(painter, event->rect());
    paintBlockRules(painter, event->rect());
}

void TableView::changeEvent(QEvent *event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        updateRowHeight();
}

void TableView::paintPlaceholder(QPainter &painter) const
{
    constexpr int margin = 16;
    const QRect area = viewport()->rect();
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(area.adjusted(margin, margin, -margin, -margin), Qt::AlignCenter | Qt::TextWordWrap, placeholder);
    if (hasFocus()) {
        painter.setPen(palette().color(QPalette::Text));
        painter.drawRect(area.adjusted(0, 0, -1, -1));
    }
}

void TableView::paintBlockRules(QPainter &painter, const QRect &exposed) const
{
    if (!startsblock)
        return;
    painter.setPen(ruleColor(palette()));
    for (int row = rowAt(exposed.top()); row >= 0 && row <= lastRowAbove(exposed.bottom()); ++row) {
        if (startsblock(row))
            painter.drawLine(0, rowViewportPosition(row), viewport()->width(), rowViewportPosition(row));
    }
}

// Qt paints no cell when only what lies beside the last column is exposed, as when the window is made wider; the end of
// a long bar would be missing there.
void TableView::paintPastLastColumn(QPainter &painter, const QRect &exposed) const
{
    const int column = tablemodel->columnCount() - 1;
    const int end = columnViewportPosition(column) + columnWidth(column);
    if (end > exposed.right() || column < 0 || !tablemodel->cell(column)->paintsPastFrame())
        return;
    painter.save();
    painter.setClipRect(QRect(QPoint(end, exposed.top()), exposed.bottomRight()));
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    for (int row = rowAt(exposed.top()); row >= 0 && row <= lastRowAbove(exposed.bottom()); ++row) {
        const QModelIndex index = tablemodel->index(row, column);
        option.rect = visualRect(index);
        celldelegate->paint(&painter, option, index);
    }
    painter.restore();
}

// The last row that begins at or above a height in the viewport.
int TableView::lastRowAbove(int y) const
{
    const int row = rowAt(y);
    return row >= 0 ? row : tablemodel->rowCount() - 1;
}

void TableView::selectionDidChange()
{
    if (!reloading && tabledelegate != nullptr)
        tabledelegate->tableViewSelectionDidChange();
}

// A table with the focus shows where it is. It stays where it was scrolled to: the press that gives it the focus is
// about the row that is under the mouse.
void TableView::ensureCurrent()
{
    if (!hasFocus() || currentIndex().isValid() || tablemodel->rowCount() == 0)
        return;
    setAutoScroll(false);
    const QModelIndex first = tablemodel->index(std::max(rowAt(0), 0), 0);
    rowselection->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
    setAutoScroll(true);
}

void TableView::updateRowHeight()
{
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + rowpadding);
}

void TableView::updateDescription()
{
    const QString text = tablemodel->rowCount() == 0 ? placeholder : QString();
    if (!placeholder.isEmpty() && text != accessibleDescription())
        setAccessibleDescription(text);
}

void TableView::refreshRow(int row)
{
    delivered = editing.isValid();
    refreshRows(row, row);
}

// What dataChanged would do but for the open editors: the rows' whole width is painted again, since a bar may run
// past its cell, and screen readers are told.
void TableView::refreshRows(int first, int last)
{
    QRect area = viewport()->rect();
    if (first == last) {
        area.setTop(rowViewportPosition(first));
        area.setHeight(rowHeight(first));
    }
    viewport()->update(area);
    if (QAccessible::isActive() && first <= last) {
        QAccessibleTableModelChangeEvent event(this, QAccessibleTableModelChangeEvent::DataChanged);
        event.setFirstRow(first);
        event.setLastRow(last);
        event.setFirstColumn(0);
        event.setLastColumn(tablemodel->columnCount() - 1);
        QAccessible::updateAccessibility(&event);
    }
}
