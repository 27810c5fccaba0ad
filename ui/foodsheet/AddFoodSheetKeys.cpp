// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/foodsheet/AddFoodSheet.h"

#include "ui_AddFoodSheet.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QKeyEvent>
#include <QMouseEvent>

#include <utility>

namespace {

bool isEnter(const QKeyEvent &event)
{
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

// Whether a key typed anywhere in the sheet is meant for the search field.
bool isTyped(const QKeyEvent &event)
{
    const auto commands = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    return event.key() == Qt::Key_Backspace
        || (commands == Qt::NoModifier && !event.text().isEmpty() && event.text()[0].isPrint());
}

// Whether a key typed on the list "To be added" or on the units is meant for the amount, as in the log.
bool entersAmount(const QKeyEvent &event)
{
    return event.key() == Qt::Key_F2 || (isTyped(event) && !event.text().isEmpty() && event.text()[0].isDigit());
}

// Whether a key typed in the search field is meant for the list.
bool movesInList(const QKeyEvent &event, bool fieldempty)
{
    switch (event.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        return !event.modifiers().testFlag(Qt::AltModifier);
    case Qt::Key_Home:
    case Qt::Key_End:
        // In a text these move the cursor; without one they are free, and with Ctrl a field of one line has no use for
        // them.
        return fieldempty || event.modifiers().testFlag(Qt::ControlModifier);
    case Qt::Key_Space:
        return event.modifiers() == Qt::ControlModifier;
    default:
        return false;
    }
}

} // namespace

QList<std::pair<QString, QString>> AddFoodSheet::keys()
{
    return {{tr("Up, Down, Page Up, Page Down"), tr("Choose in the list while typing")},
        {tr("Enter"), tr("Add what is chosen, and the list To be added")},
        {tr("Alt+Enter"), tr("The same, as much as you had last")},
        {tr("Ctrl+Enter"), tr("Keep on the list To be added")}, {tr("Tab"), tr("Go to the amount")},
        {tr("Delete"), tr("Take a food off the list To be added")}, {tr("Esc"), tr("Clear the search; then close")}};
}

void AddFoodSheet::keyPressEvent(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Cancel) && !ui->searchfield->text().isEmpty()) {
        ui->searchfield->clear();
        ui->searchfield->setFocus();
        return;
    }
    if (!isEnter(*event)) {
        QDialog::keyPressEvent(event); // Esc
        return;
    }
    if (event->isAutoRepeat())
        return; // the key that opened the sheet, held a little long, is not to close it
    ui->searchfield->commitComposition();
    ui->preview->amountField()->commitComposition();
    if (event->modifiers().testFlag(Qt::AltModifier))
        takeLastQuantities();
    if (event->modifiers().testFlag(Qt::ControlModifier))
        keepFoods();
    else if (auto *button = qobject_cast<QAbstractButton *>(focusWidget()))
        button->click();
    else if (qobject_cast<QComboBox *>(focusWidget()) != nullptr)
        ui->searchfield->setFocus(); // who has chosen an order has chosen no food yet
    else if (foods->rowCount() > 0)
        accept(); // while nothing is found, a slip is to be corrected and not obeyed
}

bool AddFoodSheet::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        auto *key = static_cast<QKeyEvent *>(event);
        if (isEnter(*key)) { // before the field or a list makes something else of it
            keyPressEvent(key);
            return true;
        }
        if (watched == ui->preview->amountField())
            return amountKeyPressed(key);
        return watched == ui->searchfield ? fieldKeyPressed(key) : listKeyPressed(watched, key);
    }
    if (event->type() == QEvent::Paint && watched == ui->foodlist->viewport()) {
        // The sheet is seen sooner without, and nobody types as soon as that.
        if (std::exchange(preparesearch, false))
            emit firstPainted();
        if (std::exchange(readswhenpainted, false))
            emit readingSaid();
    }
    // The preview shows the food of the list that the keyboard is in.
    if (event->type() == QEvent::FocusIn && watched == ui->tobeaddedlist)
        showFoodToBeAdded();
    else if (event->type() == QEvent::FocusIn && watched == ui->foodlist && tobeaddedshown)
        showCurrentFood();
    // What is pointed at is in the list as it is shown: what was being composed is not to change it now or later.
    if (event->type() == QEvent::MouseButtonPress && watched == ui->foodlist->viewport())
        ui->searchfield->dropComposition();
    if (event->type() == QEvent::MouseButtonDblClick && watched == ui->foodlist->viewport()) {
        const auto *click = static_cast<QMouseEvent *>(event);
        const bool plain = click->button() == Qt::LeftButton && click->modifiers() == Qt::NoModifier;
        if (plain && ui->foodlist->indexAt(click->position().toPoint()).isValid()) {
            accept();
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

bool AddFoodSheet::fieldKeyPressed(QKeyEvent *event)
{
    if (!movesInList(*event, ui->searchfield->text().isEmpty()))
        return false;
    // The list shows what was typed before anything is chosen in it.
    ui->searchfield->commitComposition();
    // The list takes the key as its own, with everything it knows about moving and extending a selection.
    QCoreApplication::sendEvent(ui->foodlist, event);
    return true;
}

bool AddFoodSheet::amountKeyPressed(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Up && event->key() != Qt::Key_Down)
        return false;
    ui->preview->amountField()->commitComposition();
    QCoreApplication::sendEvent(ui->preview->measures(), event);
    return true;
}

bool AddFoodSheet::listKeyPressed(QObject *list, QKeyEvent *event)
{
    if (event->matches(QKeySequence::Copy))
        return true; // a list would copy its current row to the clipboard, which is not the program's
    const bool removes = event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace;
    if (list == ui->tobeaddedlist && removes) {
        removeFood();
        return true;
    }
    if ((list == ui->tobeaddedlist || list == ui->preview->measures()) && entersAmount(*event)) {
        ui->preview->amountField()->setFocus();
        ui->preview->amountField()->selectAll();
        if (event->key() != Qt::Key_F2)
            QCoreApplication::sendEvent(ui->preview->amountField(), event);
        return true;
    }
    if (!isTyped(*event))
        return false;
    ui->searchfield->setFocus();
    QCoreApplication::sendEvent(ui->searchfield, event);
    return true;
}
