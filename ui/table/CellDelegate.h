// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStyledItemDelegate>

class TableModel;

// Has a table's cells paint themselves, and edits a cell's number in a line edit. It holds nothing between two calls;
// an open editor itself knows with which text it was opened.
class CellDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    CellDelegate(TableModel *tablemodel, QObject *parent);

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
        const QModelIndex &index) override;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    // A text that is still the one it was opened with is not delivered: the cell may show less than it holds.
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    TableModel *cells;
};
