// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/foodsheet/AddFoodSheet.h"

#include "ui/foodsheet/FoodDelegate.h"
#include "ui/foodsheet/FoodListModel.h"

#include "ui_AddFoodSheet.h"

#include <QToolButton>

#include <algorithm>
#include <utility>

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
    connect(this, &AddFoodSheet::firstPainted, foods, &FoodListModel::prepareSearch, Qt::QueuedConnection);
    ui->foodlist->setModel(foods);
    ui->foodlist->setItemDelegate(new FoodDelegate(this));
    ui->tobeaddedlist->setItemDelegate(new FoodDelegate(this));
    nohitslabel
        = new QLabel(tr("No food matches what you typed.\nTry fewer words or letters."), ui->foodlist->viewport());
    nohitslabel->setObjectName(QStringLiteral("nohitslabel"));
    nohitslabel->setAlignment(Qt::AlignCenter);
    auto *inlist = new QVBoxLayout(ui->foodlist->viewport());
    inlist->addWidget(nohitslabel);
    for (QObject *watched : std::initializer_list<QObject *>{ui->searchfield, ui->foodlist, ui->foodlist->viewport(),
             ui->tobeaddedlist, ui->preview->measures(), ui->preview->amountField()})
        watched->installEventFilter(this);

    // The field's own button, which shows a cross and says nothing.
    for (auto *button : ui->searchfield->findChildren<QToolButton *>())
        button->setAccessibleName(tr("Clear the search"));

    setTabOrder(ui->searchfield, ui->preview->amountField());
    setTabOrder(ui->preview->amountField(), ui->preview->measures());
    setTabOrder(ui->preview->measures(), ui->foodlist);

    connect(ui->searchfield, &QLineEdit::textChanged, this, &AddFoodSheet::search);
    QItemSelectionModel *selection = ui->foodlist->selectionModel();
    connect(selection, &QItemSelectionModel::selectionChanged, this, &AddFoodSheet::selectionChanged);
    connect(selection, &QItemSelectionModel::currentChanged, this, &AddFoodSheet::showCurrentFood);
    connect(ui->tobeaddedlist, &QListWidget::currentRowChanged, this, [this] {
        showFoodToBeAdded();
        showChoice();
    });
    fillOrderBoxes();
    connect(ui->preview, &FoodPreview::quantityChosen, this, &AddFoodSheet::quantityChosen);
    // What is still being composed is searched for before anything is done with what was found.
    for (QPushButton *button : {ui->keepbutton, ui->addbutton}) {
        connect(button, &QPushButton::clicked, ui->searchfield, &TextField::commitComposition);
        connect(button, &QPushButton::clicked, ui->preview->amountField(), &TextField::commitComposition);
    }
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
    for (const FoodLeft &food : std::exchange(foodsleft, {}))
        controller.addFoodToBeAdded(food.name, food.quantity);
    foods->setOwnFoods(ownfoods, ownfoodslisted);
    ui->nutrientbox->setCurrentIndex(0);
    orderChanged();
    showFoodsToBeAdded();
    if (ui->searchfield->text().isEmpty())
        search({});
    ui->searchfield->clear();
    ui->searchfield->setFocus();
    QDialog::open();
}

void AddFoodSheet::search(const QString &query)
{
    entered.clear();
    foods->setQuery(query);
    showAnswer();
    // What comes first is what Enter adds. With nothing typed nobody has chosen anything yet.
    if (foods->rowCount() > 0 && !FoodSearch::isEmpty(query)) {
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
    tobeaddedshown = false;
    const QModelIndex current = ui->foodlist->currentIndex();
    if (current.isValid())
        ui->preview->showFood(foods->nameAt(current.row()), quantityAt(current.row()), noteAt(current.row()));
    else
        ui->preview->showFood({});
    sayChoice();
}

void AddFoodSheet::sayChoice()
{
    // The field keeps the focus, so it is from the field that a screen reader hears what is chosen.
    QStringList said{ui->hitslabel->text()};
    const QModelIndex current = ui->foodlist->currentIndex();
    if (current.isValid())
        said << ui->preview->description();
    if (current.isValid() && !tobeaddedshown)
        said << current.data(FoodListModel::FiguresRole).toStringList().join(QStringLiteral(", "));
    said.removeAll(QString());
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
