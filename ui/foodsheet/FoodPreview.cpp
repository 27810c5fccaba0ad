// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/foodsheet/FoodPreview.h"

#include "catalog/NutrientCatalogue.h"
#include "platform/NumberText.h"

#include "ui_FoodPreview.h"

#include <QFocusEvent>
#include <QHeaderView>
#include <QSignalBlocker>

#include <utility>

namespace {

constexpr int rowpadding = 4;
const QString plainamount = QStringLiteral("100");

} // namespace

FoodPreview::FoodPreview(QWidget *parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::FoodPreview>())
{
    ui->setupUi(this);
    QFont bold = ui->namelabel->font();
    bold.setBold(true);
    ui->namelabel->setFont(bold);
    ui->amountfield->setFixedWidth(fontMetrics().averageCharWidth() * 14);
    QHeaderView *header = ui->measurelist->header();
    header->setStretchLastSection(false);
    header->setSectionResizeMode(0, QHeaderView::Stretch);
    header->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    connect(ui->amountfield, &QLineEdit::textChanged, this, &FoodPreview::choose); // typed, or composed
    connect(ui->measurelist, &QTreeWidget::currentItemChanged, this,
        [this](QTreeWidgetItem *item) { unitChosen(ui->measurelist->indexOfTopLevelItem(item)); });
    // Whoever has clicked a measure types how many of it next.
    connect(ui->measurelist, &QTreeWidget::itemClicked, this, [this] {
        ui->amountfield->setFocus(Qt::OtherFocusReason);
        ui->amountfield->selectAll();
    });
    ui->amountfield->installEventFilter(this);
}

FoodPreview::~FoodPreview() = default;

void FoodPreview::showFood(const QString &name, const std::optional<Quantity> &said, const QString &note)
{
    shown = name;
    quantity = said;
    composition = Composition();
    ui->pages->setCurrentWidget(name.isEmpty() ? ui->nofoodpage : ui->foodpage);
    ui->notelabel->setText(note);
    ui->notelabel->setVisible(!note.isEmpty());
    if (!name.isEmpty()) {
        static_cast<void>(composition.read(name)); // a food without a file shows zeros
        ui->namelabel->setText(name);
    }
    setAmount(quantity ? quantity->amount : plainamount);
    listUnits();
    showFigures();
}

void FoodPreview::listUnits()
{
    const QSignalBlocker programmatic(ui->measurelist);
    ui->measurelist->clear();
    if (shown.isEmpty())
        return;
    const QStringList titles = composition.unitTitles();
    for (const QString &title : titles) {
        const bool weighs = ui->measurelist->topLevelItemCount() > 0; // the gram is its own weight
        const QString weight = weighs ? gramsText(composition.gramsOfUnit(title).value_or(0.0F)) : QString();
        auto *item = new QTreeWidgetItem(ui->measurelist, {title, weight});
        item->setSizeHint(0, {0, fontMetrics().height() + rowpadding});
        if (!weighs)
            item->setData(1, Qt::AccessibleTextRole, gramsText(1.0F)); // a screen reader comes to this cell too
        item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
        item->setToolTip(0, title);
    }
    ui->measurelist->setCurrentItem(ui->measurelist->topLevelItem(quantity ? quantity->unitidx : 0));
}

// A number that was typed stands for the new unit, as do three eggs that become three small ones. But nobody means
// 100 cups when they choose the cup, and grams come back as what the measure weighs.
void FoodPreview::unitChosen(int unit)
{
    if (unit < 0 || shown.isEmpty())
        return;
    const QStringList titles = composition.unitTitles();
    const int former = quantity ? quantity->unitidx : 0;
    if (!ui->amountfield->isModified() && former != unit) {
        if (former == 0) {
            setAmount(QStringLiteral("1"));
        } else if (unit == 0) {
            const float grams = composition.grams(quantity->value(), quantity->unit);
            setAmount(Quantity::logged(grams, std::nullopt, composition).value_or(Quantity()).amount);
        }
    }
    quantity = Quantity{titles[unit], unit, {}};
    choose();
}

void FoodPreview::setAmount(const QString &amount)
{
    const QSignalBlocker programmatic(ui->amountfield);
    ui->amountfield->setNumber(amount);
}

void FoodPreview::choose()
{
    if (!quantity)
        quantity = Quantity{composition.unitTitles().constFirst(), 0, {}};
    quantity->amount = ui->amountfield->number();
    ui->notelabel->hide(); // it was about what is no longer so
    showFigures();
    emit quantityChosen(*quantity);
}

void FoodPreview::showFigures()
{
    const float grams = quantity ? composition.grams(quantity->value(), quantity->unit) : 100.0F;
    for (const Figure &figure : figures()) {
        const float amount = Composition::amountIn(grams, composition.amount(figure.nutrient).value_or(0.0F));
        figure.figure->setText(
            NumberText::fixed(double(amount), figure.decimals) + u' ' + NutrientCatalogue::units()[figure.nutrient]);
    }
    QStringList said;
    if (quantity)
        said << quantity->text();
    if (quantity && quantity->unitidx != 0)
        said << gramsText(grams);
    said << ui->energyfigure->text();
    ui->amountlabel->setText(quantity ? said.join(QStringLiteral(", ")) : tr("In 100 g"));
}

// The click that gives the amount the keyboard takes all of it, as Tab does.
bool FoodPreview::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusIn)
        isclickedinto = static_cast<QFocusEvent *>(event)->reason() == Qt::MouseFocusReason;
    if (event->type() == QEvent::MouseButtonRelease && std::exchange(isclickedinto, false)
        && !ui->amountfield->hasSelectedText())
        ui->amountfield->selectAll();
    return QWidget::eventFilter(watched, event);
}

TextField *FoodPreview::amountField() const
{
    return ui->amountfield;
}

QWidget *FoodPreview::measures() const
{
    return ui->measurelist;
}

QString FoodPreview::description() const
{
    QStringList parts{shown};
    if (quantity)
        parts << ui->amountlabel->text();
    for (const Figure &figure : figures()) {
        if (!quantity || figure.label != ui->energylabel) // which the amount is said with
            parts << figure.label->text() + u' ' + figure.figure->text();
    }
    const QString said = parts.join(QStringLiteral(", "));
    const QString sentence = quantity ? said : tr("%1 in 100 g").arg(said);
    return ui->notelabel->isHidden() ? sentence : sentence + QStringLiteral(". ") + ui->notelabel->text();
}

std::array<FoodPreview::Figure, 5> FoodPreview::figures() const
{
    const auto nutrient = [](const char *name) { return NutrientCatalogue::indexOfNutrient(name); };
    return {{{nutrient("Energy"), ui->energylabel, ui->energyfigure, 0},
        {nutrient("Carbs"), ui->carbslabel, ui->carbsfigure, 1},
        {nutrient("Protein"), ui->proteinlabel, ui->proteinfigure, 1},
        {nutrient("Fat"), ui->fatlabel, ui->fatfigure, 1}, {nutrient("Fiber"), ui->fiberlabel, ui->fiberfigure, 1}}};
}
