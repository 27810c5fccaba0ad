// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "app/AppDelegate.h"

#include "platform/NumberText.h"
#include "ui/table/TableView.h"

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>

void AppDelegate::showPrefs()
{
    preferences->open();
}

void AppDelegate::hidePrefs()
{
    preferences->hide();
    preferences->done(0);
}

void AppDelegate::RDAtick()
{
    int i = rdamenu->currentIndex();
    // The bound is one past the last nutrient. A menu of 61 items cannot answer 61.
    if (i < 0 || i > NutrientCatalogue::nutrientCount)
        i = 0;
    rdainput->setText(NumberText::fixed(double(rdas[static_cast<std::size_t>(i)]), 2));
    rdalabel->setText(nutdataunits[i]);
}

void AppDelegate::setRDA()
{
    const float value = NumberText::floatValue(rdainput->text());
    rdainput->setText(NumberText::fixed(double(value), 2)); // the field shows what was stored
    const auto i = static_cast<std::size_t>(rdamenu->currentIndex());
    rdas[i] = value;
    rdaschanged.set(i);
    nutrienttable->reloadData();
}

void AppDelegate::RDAreset()
{
    std::size_t i = 0;
    for (const int rda : NutrientCatalogue::defaultRDAs())
        rdas[i++] = static_cast<float>(rda);
    rdaschanged.set();
    RDAtick();
    // The nutrient table is left as it is; the sheet asks for fresh figures when it has been hidden.
}
