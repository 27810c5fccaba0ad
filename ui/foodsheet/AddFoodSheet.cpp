// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/foodsheet/AddFoodSheet.h"

#include "ui/foodsheet/FoodDelegate.h"
#include "ui/foodsheet/FoodListModel.h"

#include "ui_AddFoodSheet.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QToolButton>

#include <algorithm>
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

AddFoodSheet::AddFoodSheet(QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Add food"));
}

AddFoodSheet::~AddFoodSheet() = default;

void AddFoodSheet::makeControls()
{
    ui = std::make_unique<Ui::AddFoodSheet>();
    ui->setupUi(this);
    const int sidewidth = fontMetrics().averageCharWidth() * 42;
    ui->preview->setFixedWidth(sidewidth);
    ui->foodlist->setMinimumWidth(sidewidth);
    ui->tobeaddedpages->setFixedWidth(sidewidth);

    foods = new FoodListModel(controller.content(), this);
    ui->foodlist->setModel(foods);
    ui->foodlist->setItemDelegate(new FoodDelegate(this));
    ui->tobeaddedlist->setItemDelegate(new FoodDelegate(this));
    nohitslabel
        = new QLabel(tr("No food matches what you typed.\nTry fewer words or letters."), ui->foodlist->viewport());
    nohitslabel->setObjectName(QStringLiteral("nohitslabel"));
    nohitslabel->setAlignment(Qt::AlignCenter);
    auto *inlist = new QVBoxLayout(ui->foodlist->viewport());
    inlist->addWidget(nohitslabel);
    for (QObject *watched : std::initializer_list<QObject *>{
             ui->searchfield, ui->foodlist, ui->foodlist->viewport(), ui->tobeaddedlist, ui->preview->measures()})
        watched->installEventFilter(this);

    // The field's own button, which shows a cross and says nothing.
    for (auto *button : ui->searchfield->findChildren<QToolButton *>())
        button->setAccessibleName(tr("Clear the search"));

    setTabOrder(ui->foodlist, ui->preview->measures());
    setTabOrder(ui->preview->measures(), ui->tobeaddedlist);

    connect(ui->searchfield, &QLineEdit::textChanged, this, &AddFoodSheet::search);
    QItemSelectionModel *selection = ui->foodlist->selectionModel();
    connect(selection, &QItemSelectionModel::selectionChanged, this, &AddFoodSheet::selectionChanged);
    connect(selection, &QItemSelectionModel::currentChanged, this, &AddFoodSheet::showCurrentFood);
    connect(ui->tobeaddedlist, &QListWidget::currentRowChanged, this, &AddFoodSheet::showChoice);
    // What is still being composed is searched for before anything is done with what was found.
    for (QPushButton *button : {ui->keepbutton, ui->addbutton})
        connect(button, &QPushButton::clicked, ui->searchfield, &TextField::commitComposition);
    connect(ui->keepbutton, &QPushButton::clicked, this, &AddFoodSheet::keepFoods);
    connect(ui->removebutton, &QPushButton::clicked, this, &AddFoodSheet::removeFood);
    connect(ui->addbutton, &QPushButton::clicked, this, &AddFoodSheet::accept);
    connect(ui->cancelbutton, &QPushButton::clicked, this, &AddFoodSheet::reject);
}

void AddFoodSheet::open()
{
    if (isVisible())
        return;
    if (!ui)
        makeControls();
    controller.clearSelection();
    for (const QString &name : std::exchange(foodsleft, {}))
        controller.addFoodToBeAdded(name);
    showFoodsToBeAdded();
    if (ui->searchfield->text().isEmpty())
        search({});
    ui->searchfield->clear();
    ui->searchfield->setFocus();
    QDialog::open();
}

void AddFoodSheet::search(const QString &query)
{
    foods->setQuery(query);
    const int hits = foods->rowCount();
    ui->hitslabel->setText(hits == 0 ? tr("No food found") : hits == 1 ? tr("1 food") : tr("%1 foods").arg(hits));
    nohitslabel->setVisible(hits == 0);
    // What comes first is what Enter adds. With nothing typed nobody has chosen anything yet.
    if (hits > 0 && !query.isEmpty()) {
        ui->foodlist->setCurrentIndex(foods->index(0));
    } else {
        showCurrentFood();
        selectionChanged();
    }
    ui->foodlist->scrollToTop();
}

void AddFoodSheet::selectionChanged()
{
    QStringList names;
    const QList<int> rows = selectedRows();
    for (const int row : rows)
        names << foods->nameAt(row);
    controller.setSelection(names);
    showChoice();
}

QList<int> AddFoodSheet::selectedRows() const
{
    QList<int> rows;
    const QModelIndexList indexes = ui->foodlist->selectionModel()->selectedIndexes();
    for (const QModelIndex &index : indexes)
        rows << index.row();
    std::sort(rows.begin(), rows.end());
    return rows;
}

void AddFoodSheet::showCurrentFood()
{
    const QModelIndex current = ui->foodlist->currentIndex();
    ui->preview->showFood(current.isValid() ? foods->nameAt(current.row()) : QString());
    // The field keeps the focus, so it is from the field that a screen reader hears what is chosen.
    QStringList said{ui->hitslabel->text()};
    if (current.isValid())
        said << ui->preview->description();
    ui->searchfield->setAccessibleDescription(said.join(QStringLiteral(". ")));
}

// Tells on the buttons what they would do.
void AddFoodSheet::showChoice()
{
    const auto chosen = controller.selectedObjects().size();
    ui->addbutton->setText(chosen > 1 ? tr("&Add %1 foods").arg(chosen) : tr("&Add"));
    ui->addbutton->setEnabled(chosen > 0 || foods->rowCount() > 0);
    ui->keepbutton->setEnabled(ui->foodlist->selectionModel()->hasSelection());
    ui->removebutton->setEnabled(ui->tobeaddedlist->currentRow() >= 0);
}

void AddFoodSheet::showFoodsToBeAdded()
{
    const QStringList &names = controller.foodsToBeAdded();
    ui->tobeaddedlist->clear();
    for (const QString &name : names) {
        auto *item = new QListWidgetItem(name, ui->tobeaddedlist);
        item->setToolTip(name);
    }
    ui->tobeaddedpages->setCurrentWidget(names.isEmpty() ? static_cast<QWidget *>(ui->emptypage) : ui->tobeaddedlist);
    foods->setMarkedFoods(foodsinlog, names);
}

void AddFoodSheet::keepFoods()
{
    const QList<int> rows = selectedRows();
    if (rows.isEmpty())
        return;
    for (const int row : rows)
        controller.addFoodToBeAdded(foods->nameAt(row));
    showFoodsToBeAdded();
    ui->tobeaddedlist->scrollToBottom();
    if (ui->searchfield->text().isEmpty())
        search({});
    ui->searchfield->clear();
    ui->searchfield->setFocus();
}

void AddFoodSheet::removeFood()
{
    const int row = ui->tobeaddedlist->currentRow();
    controller.removeFoodToBeAdded(row);
    showFoodsToBeAdded();
    const int left = ui->tobeaddedlist->count();
    ui->tobeaddedlist->setCurrentRow(std::min(row, left - 1));
    showChoice();
    if (left == 0)
        ui->searchfield->setFocus();
}

void AddFoodSheet::accept()
{
    emit addSelectedFoods();
}

void AddFoodSheet::reject()
{
    if (isVisible())
        foodsleft = controller.foodsToBeAdded();
    controller.clearSelection();
    emit addSelectedFoods();
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
    if (event->modifiers().testFlag(Qt::ControlModifier))
        keepFoods();
    else if (auto *button = qobject_cast<QAbstractButton *>(focusWidget()))
        button->click();
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
        return watched == ui->searchfield ? fieldKeyPressed(key) : listKeyPressed(watched, key);
    }
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

bool AddFoodSheet::listKeyPressed(QObject *list, QKeyEvent *event)
{
    if (event->matches(QKeySequence::Copy))
        return true; // a list would copy its current row to the clipboard, which is not the program's
    const bool removes = event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace;
    if (list == ui->tobeaddedlist && removes) {
        removeFood();
        return true;
    }
    if (!isTyped(*event))
        return false;
    ui->searchfield->setFocus();
    QCoreApplication::sendEvent(ui->searchfield, event);
    return true;
}
