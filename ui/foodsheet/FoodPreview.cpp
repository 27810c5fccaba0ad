// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/foodsheet/FoodPreview.h"

#include "catalog/NutrientCatalogue.h"
#include "model/Food.h"
#include "platform/NumberText.h"

#include "ui_FoodPreview.h"

#include <QHeaderView>

#include <cmath>

namespace {

constexpr int rowpadding = 4;

// Whole grams as such, others with the one decimal that a kitchen scale shows.
QString gramsText(float grams)
{
    const bool whole = std::floor(grams) == grams;
    return NumberText::fixed(static_cast<double>(grams), whole ? 0 : 1) + QStringLiteral(" g");
}

} // namespace

FoodPreview::FoodPreview(QWidget *parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::FoodPreview>())
{
    ui->setupUi(this);
    QFont bold = ui->namelabel->font();
    bold.setBold(true);
    ui->namelabel->setFont(bold);
    QHeaderView *header = ui->measurelist->header();
    header->setStretchLastSection(false);
    header->setSectionResizeMode(0, QHeaderView::Stretch);
    header->setSectionResizeMode(1, QHeaderView::ResizeToContents);
}

FoodPreview::~FoodPreview() = default;

void FoodPreview::showFood(const QString &name)
{
    shown = name;
    ui->pages->setCurrentWidget(name.isEmpty() ? ui->nofoodpage : ui->foodpage);
    ui->measurelist->clear();
    if (name.isEmpty())
        return;

    Food food(name);
    ui->namelabel->setText(name);
    for (const Figure &figure : figures()) {
        const int nutrient = NutrientCatalogue::indexOfNutrient(figure.nutrient);
        const auto amount = static_cast<double>(food.getAmountOfNutrient(nutrient));
        figure.figure->setText(
            NumberText::fixed(amount, figure.decimals) + u' ' + NutrientCatalogue::units()[nutrient]);
    }
    for (const QString &title : food.getUnitNames().mid(1)) { // after the gram itself
        auto *item = new QTreeWidgetItem(ui->measurelist, {title, gramsText(food.gramsOfUnit(title).value_or(0.0F))});
        item->setSizeHint(0, {0, fontMetrics().height() + rowpadding});
        item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
        item->setToolTip(0, title);
    }
}

QWidget *FoodPreview::measures() const
{
    return ui->measurelist;
}

QString FoodPreview::description() const
{
    QStringList parts{shown};
    for (const Figure &figure : figures())
        parts << figure.label->text() + u' ' + figure.figure->text();
    return tr("%1 in 100 g").arg(parts.join(QStringLiteral(", ")));
}

std::array<FoodPreview::Figure, 5> FoodPreview::figures() const
{
    return {{{"Energy", ui->energylabel, ui->energyfigure, 0}, {"Carbs", ui->carbslabel, ui->carbsfigure, 1},
        {"Protein", ui->proteinlabel, ui->proteinfigure, 1}, {"Fat", ui->fatlabel, ui->fatfigure, 1},
        {"Fiber", ui->fiberlabel, ui->fiberfigure, 1}}};
}
