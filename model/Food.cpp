// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "model/Food.h"

#include <utility>

Food::Food(std::optional<QString> name)
    : foodname(std::move(name))
    , unit(QStringLiteral("g"))
{ }

void Food::loadIfNeeded()
{
    if (!hasReadXML)
        readXML();
}

void Food::readXML()
{
    hasReadXML = composition.read(foodname);
}

float Food::getAmountOfNutrient(const QString &nutrient)
{
    loadIfNeeded();
    const std::optional<float> per100grams = composition.amount(nutrient);
    return per100grams ? Composition::amountIn(getGrams(), *per100grams) : 0.0F;
}

float Food::getAmountOfNutrient(int index)
{
    loadIfNeeded();
    const std::optional<float> per100grams = composition.amount(index);
    return per100grams ? Composition::amountIn(getGrams(), *per100grams) : 0.0F;
}

bool Food::knowsNutrient(int index)
{
    loadIfNeeded();
    return composition.amount(index).has_value();
}

float Food::getGrams()
{
    loadIfNeeded();
    return composition.grams(amount, unit);
}

QStringList Food::getUnitNames()
{
    loadIfNeeded();
    return composition.unitTitles();
}

std::optional<float> Food::gramsOfUnit(const std::optional<QString> &title) const
{
    return composition.gramsOfUnit(title);
}

void Food::setUnit(const QString &title, qint32 isIndex, bool adaptAmount)
{
    const std::optional<float> grams = composition.gramsOfUnit(title);
    if (!grams)
        return;
    const float formergrams = composition.gramsOfUnit(unit).value_or(1.0F);
    setCurunit(title);
    // A unit of 0 g makes the amount an infinity or no number, and so it is kept: that is meant.
    if (adaptAmount)
        setCuramount(curamount() * formergrams / *grams);
    setCurunitidx(isIndex);
}
