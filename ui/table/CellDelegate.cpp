// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/table/CellDelegate.h"

#include "ui/controls/NumberField.h"
#include "ui/table/TableCell.h"
#include "ui/table/TableModel.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>

#include <cmath>

namespace {

// The text in an editor when it was opened.
constexpr const char *shown = "shown";

// Lines of about so many characters can be read without turning the head; a tip is as long as the text in it.
constexpr qsizetype tipwidth = 60;

QString wrapped(const QString &text)
{
    QString lines;
    for (QStringView rest : QStringView(text).split(u'\n')) {
        while (rest.size() > tipwidth) {
            const qsizetype blank = rest.first(tipwidth + 1).lastIndexOf(u' ');
            const qsizetype whole = rest.at(tipwidth - 1).isHighSurrogate() ? tipwidth - 1 : tipwidth;
            lines += rest.first(blank > 0 ? blank : whole).toString() + u'\n';
            rest = rest.sliced(blank > 0 ? blank + 1 : whole);
        }
        lines += rest.toString() + u'\n';
    }
    lines.chop(1);
    return lines;
}

QString plainToolTip(const QString &text)
{
    const QString lines = wrapped(text);
    return Qt::mightBeRichText(lines) ? Qt::convertFromPlainText(lines) : lines;
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
    auto *editor = new NumberField(parent);
    editor->setFrame(true);
    editor->setAlignment(cells->cell(index.column())->alignment());
    const QString title = cells->headerData(index.column(), Qt::Horizontal, Qt::DisplayRole).toString();
    const QString subject = index.siblingAtColumn(0).data(Qt::DisplayRole).toString();
    editor->setAccessibleName(title + QStringLiteral(", ") + subject);
    return editor;
}

void CellDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    const QString text = index.data(Qt::EditRole).toString();
    editor->setProperty(shown, text);
    static_cast<NumberField *>(editor)->setText(text);
}

void CellDelegate::setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const
{
    auto *field = static_cast<NumberField *>(editor);
    field->commitComposition();
    if (field->text() != editor->property(shown).toString())
        model->setData(index, field->number(), Qt::EditRole);
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
