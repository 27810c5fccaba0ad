// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/foodsheet/AddFoodSheet.h"

#include "ui_AddFoodSheet.h"

#include <QMetaObject>

// The order of the list: by what is likeliest meant, or by a nutrient.

namespace {

// As it is written within a sentence: "iron", "vitamin C", but "B6" and "ALA".
QString withinSentence(const QString &name)
{
    const bool word = name.size() > 1 && name[1].isLower();
    return word ? name[0].toLower() + name.mid(1) : name;
}

} // namespace

void AddFoodSheet::fillOrderBoxes()
{
    ui->nutrientbox->addItem(tr("no nutrient"));
    ui->nutrientbox->addItems(NutrientCatalogue::names());
    ui->basisbox->addItems({tr("a portion"), tr("100 g"), tr("100 kcal")}); // in the order of the bases
    for (QComboBox *box : {ui->nutrientbox, ui->basisbox})
        connect(box, &QComboBox::activated, this, &AddFoodSheet::orderChanged);
    connect(this, &AddFoodSheet::readingSaid, this, &AddFoodSheet::readFoods, Qt::QueuedConnection);
}

void AddFoodSheet::orderByNutrient(int nutrient)
{
    ui->nutrientbox->setCurrentIndex(nutrient + 1);
    orderChanged();
}

void AddFoodSheet::orderChanged()
{
    const int nutrient = ui->nutrientbox->currentIndex() - 1;
    const bool ordered = nutrient >= 0;
    ui->basislabel->setVisible(ordered);
    ui->basisbox->setVisible(ordered);
    std::optional<FoodListModel::Order> order;
    if (ordered)
        order = {nutrient, FoodsByNutrient::Basis(ui->basisbox->currentIndex())};
    foods->setOrder(order, allowances);
    setWindowTitle(
        ordered ? tr("Foods by %1").arg(withinSentence(NutrientCatalogue::names()[nutrient])) : tr("Add food"));
    readswhenpainted = ordered && !foods->hasReadFoods();
    search(ui->searchfield->text());
    if (readswhenpainted)
        ui->foodlist->viewport()->update();
}

// After the paint event that says so, for the window shows nothing new while the files are read.
void AddFoodSheet::readFoods()
{
    foods->readFoods();
    search(ui->searchfield->text());
}

void AddFoodSheet::showAnswer()
{
    const int hits = foods->foodCount();
    const bool reads = foods->order() && !foods->hasReadFoods();
    QString said = hits == 0 ? tr("No food found") : hits == 1 ? tr("1 food") : tr("%1 foods").arg(hits);
    if (reads)
        said = tr("Reading the food files ...");
    nohitslabel->setText(reads ? said : tr("No food matches what you typed.\nTry fewer words or letters."));
    nohitslabel->setVisible(hits == 0);
    if (const int unknown = foods->unknownCount(); foods->order() && unknown > 0) {
        QString nutrient = withinSentence(NutrientCatalogue::names()[foods->order()->nutrient]);
        if (foods->order()->basis == FoodsByNutrient::Basis::HundredKilocalories)
            nutrient = tr("%1 in 100 kcal", "a nutrient").arg(nutrient); // where what has no energy has none either
        said += QStringLiteral("; ")
            + (unknown == 1 ? tr("1 food has no figure for %1").arg(nutrient)
                            : tr("%1 foods have no figure for %2").arg(unknown).arg(nutrient));
    }
    ui->hitslabel->setText(said);
    if (foods->order())
        ui->foodlist->setParts(tr("Foods you have eaten; below the line, all others"), foods->ownRowCount(), {});
    else
        ui->foodlist->setParts(tr("Foods you have logged"), foods->ownRowCount(), tr("All foods"));
}
