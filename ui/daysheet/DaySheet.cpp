// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/daysheet/DaySheet.h"

#include "ui_DaySheet.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPixmap>
#include <QStyle>

namespace {

enum Column { Food, Amount, Unit, Mark, ColumnCount };

constexpr int rowpadding = 6;

// In the place of a tick, so that the names of all rows begin below each other.
QPixmap noTick(const QWidget &widget)
{
    QPixmap empty(widget.style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, &widget), 1);
    empty.fill(Qt::transparent);
    return empty;
}

bool isTickable(const QTreeWidgetItem &item)
{
    return item.flags().testFlag(Qt::ItemIsUserCheckable);
}

} // namespace

DaySheet::DaySheet(QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Add from another day"));
}

DaySheet::~DaySheet() = default;

void DaySheet::makeControls()
{
    ui = std::make_unique<Ui::DaySheet>();
    ui->setupUi(this);
    QFont bold = ui->daylabel->font();
    bold.setBold(true);
    ui->daylabel->setFont(bold);
    QTreeWidget *list = ui->entrylist;
    list->setColumnCount(ColumnCount);
    list->header()->setStretchLastSection(false);
    list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    list->header()->setSectionResizeMode(Food, QHeaderView::Stretch);
    list->installEventFilter(this);
    connect(list, &QTreeWidget::itemChanged, this, &DaySheet::showChoice);
    connect(ui->earlierbutton, &QAbstractButton::clicked, this, &DaySheet::earlierDay);
    connect(ui->laterbutton, &QAbstractButton::clicked, this, &DaySheet::laterDay);
    connect(ui->addbutton, &QAbstractButton::clicked, this, &DaySheet::accept);
    connect(ui->cancelbutton, &QAbstractButton::clicked, this, &DaySheet::reject);
}

void DaySheet::open()
{
    if (isVisible())
        return;
    ui->entrylist->setFocus();
    QDialog::open();
}

void DaySheet::showDay(const Day &day)
{
    if (!ui)
        makeControls();
    ui->daylabel->setText(day.title);
    ui->earlierbutton->setEnabled(day.hasearlier);
    ui->laterbutton->setEnabled(day.haslater);
    QTreeWidget *list = ui->entrylist;
    list->setAccessibleDescription(day.title);
    const QSignalBlocker filling(list);
    list->clear();
    for (const Entry &entry : day.entries) {
        const QString mark = entry.inlog ? tr("in the log") : QString();
        auto *item = new QTreeWidgetItem(list, {entry.food, entry.amount, entry.unit, mark});
        item->setTextAlignment(Amount, Qt::AlignRight | Qt::AlignVCenter);
        item->setSizeHint(Food, {0, fontMetrics().height() + rowpadding});
        item->setToolTip(Food, entry.food);
        // The row is heard where its tick is.
        QStringList said{entry.food, entry.amount + u' ' + entry.unit};
        if (entry.inlog)
            said << mark;
        item->setData(Food, Qt::AccessibleTextRole, said.join(QStringLiteral(", ")));
        if (entry.inlog) {
            item->setData(Food, Qt::DecorationRole, noTick(*list));
            item->setFlags(item->flags() & ~Qt::ItemIsUserCheckable);
            for (int column = 0; column < ColumnCount; ++column)
                item->setForeground(column, palette().placeholderText());
        } else {
            item->setCheckState(Food, Qt::Checked);
        }
    }
    list->setCurrentItem(list->topLevelItem(0));
    showChoice();
}

QList<int> DaySheet::tickedPlaces() const
{
    QList<int> places;
    for (int place = 0; place < ui->entrylist->topLevelItemCount(); ++place) {
        const QTreeWidgetItem &item = *ui->entrylist->topLevelItem(place);
        if (isTickable(item) && item.checkState(Food) == Qt::Checked)
            places.append(place);
    }
    return places;
}

// Tells on the button what it would do.
void DaySheet::showChoice()
{
    const auto ticked = tickedPlaces().size();
    ui->addbutton->setText(ticked > 1 ? tr("&Add %1 foods").arg(ticked) : tr("&Add"));
    ui->addbutton->setEnabled(ticked > 0);
}

void DaySheet::turnTick()
{
    QTreeWidgetItem *item = ui->entrylist->currentItem();
    if (item != nullptr && isTickable(*item))
        item->setCheckState(Food, item->checkState(Food) == Qt::Checked ? Qt::Unchecked : Qt::Checked);
}

void DaySheet::accept()
{
    const QList<int> places = tickedPlaces();
    if (!places.isEmpty())
        emit addEntries(places);
}

QList<std::pair<QString, QString>> DaySheet::keys()
{
    return {{tr("Left, Right"), tr("Previous or next day with entries")}, {tr("Space"), tr("Tick or untick")},
        {tr("Enter"), tr("Add what is ticked")}, {tr("Esc"), tr("Close")}};
}

void DaySheet::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        QDialog::keyPressEvent(event); // Esc
        return;
    }
    if (auto *button = qobject_cast<QAbstractButton *>(focusWidget()))
        button->click();
    else
        accept();
}

bool DaySheet::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress && listKeyPressed(*static_cast<QKeyEvent *>(event)))
        return true;
    return QDialog::eventFilter(watched, event);
}

bool DaySheet::listKeyPressed(const QKeyEvent &event)
{
    if (event.matches(QKeySequence::Copy))
        return true; // a list would copy its current row to the clipboard, which is not the program's
    if (event.modifiers() != Qt::NoModifier)
        return false;
    switch (event.key()) {
    case Qt::Key_Left:
        ui->earlierbutton->click();
        return true;
    case Qt::Key_Right:
        ui->laterbutton->click();
        return true;
    case Qt::Key_Space:
        if (!event.isAutoRepeat())
            turnTick();
        return true;
    default:
        return false;
    }
}
