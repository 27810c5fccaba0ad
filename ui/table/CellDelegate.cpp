// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/table/CellDelegate.h"

#include "ui/controls/TextField.h"
#include "ui/table/TableCell.h"
#include "ui/table/TableModel.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>

#include <cmath>

namespace {

class CellEditor final : public TextField {
public:
    using TextField::TextField;

    QString shown; // when it was opened
};

QString plainToolTip(const QString &text)
{
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

} // namespace

CellDelegate::CellDelegate(TableModel *tablemodel, QObject *parent)
    : QStyledItemDelegate(parent)
    , cells(tablemodel)
{ }

void CellDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    // The line left free below sets the bars of two rows apart.
    const QRectF frame = QRectF(option.rect).adjusted(0, 0, 0, -1);
    cells->prepareCell(index.row(), index.column()).drawWithFrame(*painter, frame, option);
}

QSize CellDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const QSizeF size = cells->prepareCell(index.row(), index.column()).cellSize(option);
    return {int(std::ceil(size.width())), int(std::ceil(size.height()))};
}

bool CellDelegate::helpEvent(
    QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option, const QModelIndex &index)
{
    if (event->type() != QEvent::ToolTip || !index.isValid())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    QString text = index.data(Qt::ToolTipRole).toString();
    if (text.isEmpty() && sizeHint(option, index).width() > view->visualRect(index).width())
        text = index.data(Qt::DisplayRole).toString();
    QToolTip::showText(event->globalPos(), plainToolTip(text), view->viewport(), view->visualRect(index));
    return true;
}

QWidget *CellDelegate::createEditor(
    QWidget *parent, const QStyleOptionViewItem & /*option*/, const QModelIndex &index) const
{
    auto *editor = new CellEditor(parent);
    editor->setFrame(true);
    editor->setAlignment(cells->cell(index.column())->alignment());
    const QString title = cells->headerData(index.column(), Qt::Horizontal, Qt::DisplayRole).toString();
    const QString subject = index.siblingAtColumn(0).data(Qt::DisplayRole).toString();
    editor->setAccessibleName(title + QStringLiteral(", ") + subject);
    return editor;
}

void CellDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    auto *line = static_cast<CellEditor *>(editor);
    line->shown = index.data(Qt::EditRole).toString();
    line->setText(line->shown);
}

void CellDelegate::setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const
{
    auto *line = static_cast<CellEditor *>(editor);
    line->commitComposition();
    const QString text = line->text();
    if (text == line->shown)
        return;
    model->setData(index, text, Qt::EditRole);
}

bool CellDelegate::eventFilter(QObject *object, QEvent *event)
{
    // The inherited filter commits on Return only after a trip through the event loop and hands the key on, so that a
    // command could come first and the table would open the editor again.
    auto *editor = qobject_cast<QWidget *>(object);
    if (editor != nullptr && event->type() == QEvent::KeyPress) {
        const auto *pressed = static_cast<QKeyEvent *>(event);
        const int key = pressed->key();
        const bool commits = key == Qt::Key_Return || key == Qt::Key_Enter;
        // A key held since it opened the editor, or moved it here, goes no further.
        if (pressed->isAutoRepeat() && (commits || key == Qt::Key_Tab || key == Qt::Key_Backtab))
            return true;
        if (commits) {
            emit commitData(editor);
            emit closeEditor(editor, NoHint);
            return true;
        }
    }
    return QStyledItemDelegate::eventFilter(object, event);
}
