// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "model/Food.h"

#include "model/FoodFile.h"
#include "platform/Bundle.h"
#include "platform/NumberText.h"

#include <algorithm>
#include <cfloat>
#include <utility>

// The sums are exact to the bit only where a float is never kept in more than 32 bits.
static_assert(FLT_EVAL_METHOD == 0);

namespace {

QString textFromUtf8(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace

Food::Food(std::optional<QString> name)
    : foodname(std::move(name))
    , units{{QStringLiteral("g"), 1.0F}}
    , unit(QStringLiteral("g"))
{ }

void Food::loadIfNeeded()
{
    if (!hasReadXML)
        readXML();
}

void Food::readXML()
{
    const QString path = Bundle::mainBundle().pathForResource(
        foodname.value_or(QString()), QStringLiteral("xml"), QStringLiteral("Database.xml"));
    hasReadXML = !path.isEmpty()
        && FoodFile::parse(path, [this](std::string_view element, const FoodFile::Attributes &attributes) {
               didStartElement(element, attributes);
           });
}

void Food::didStartElement(std::string_view element, const FoodFile::Attributes &attributes)
{
    if (element == "measure")
        addMeasure(attributes);
    else if (element == "nutrient")
        addNutrient(attributes);
}

void Food::addMeasure(const FoodFile::Attributes &attributes)
{
    const float grams = NumberText::floatValue(attributes.value("grams").value_or(""));
    const float count = NumberText::floatValue(attributes.value("amount").value_or(""));
    const auto name = attributes.value("name");
    // The count is printed without decimals, so two measures may share a title: the later one's weight stands.
    const QString title
        = NumberText::fixed(double(count), 0) + u' ' + (name ? textFromUtf8(*name) : QStringLiteral("measure"));
    const auto known = std::find_if(units.begin(), units.end(), [&](const Unit &each) { return each.title == title; });
    if (known != units.end())
        known->grams = grams;
    else
        units.append({title, grams});
}

void Food::addNutrient(const FoodFile::Attributes &attributes)
{
    const auto name = attributes.value("name");
    if (!name)
        return;
    const int index = NutrientCatalogue::indexOfNutrient(*name);
    // Without an amount the nutrient becomes unknown again, also when an earlier element gave it.
    const auto text = attributes.value("amount");
    const float per100grams = NumberText::floatValue(text.value_or(""));
    if (index >= 0) {
        listed.set(static_cast<std::size_t>(index), text.has_value());
        nutrients[static_cast<std::size_t>(index)] = per100grams;
    } else if (text) {
        othernutrients.insert(textFromUtf8(*name), per100grams);
    } else {
        othernutrients.remove(textFromUtf8(*name));
    }
}

float Food::getAmountOfNutrient(const QString &nutrient)
{
    const QByteArray name = nutrient.toUtf8();
    const int index
        = NutrientCatalogue::indexOfNutrient(std::string_view(name.constData(), static_cast<std::size_t>(name.size())));
    if (index >= 0)
        return getAmountOfNutrient(index);
    loadIfNeeded();
    const auto found = othernutrients.constFind(nutrient);
    return found == othernutrients.constEnd() ? 0.0F : amountInEntry(*found);
}

float Food::getAmountOfNutrient(int index)
{
    loadIfNeeded();
    if (index < 0 || !listed.test(static_cast<std::size_t>(index)))
        return 0.0F;
    return amountInEntry(nutrients[static_cast<std::size_t>(index)]);
}

float Food::amountInEntry(float per100grams)
{
    // Divided first, multiplied second: another order gives other bits.
    return per100grams / 100.0F * getGrams();
}

float Food::getGrams()
{
    loadIfNeeded();
    if (!unit)
        return amount;
    const std::optional<float> grams = gramsOfUnit(unit);
    return grams ? *grams * amount : 0.0F;
}

QStringList Food::getUnitNames()
{
    loadIfNeeded();
    QStringList names;
    names.reserve(units.size());
    for (const Unit &each : units)
        names.append(each.title);
    return names;
}

std::optional<float> Food::gramsOfUnit(const std::optional<QString> &title) const
{
    if (title)
        for (const Unit &each : units)
            if (each.title == *title)
                return each.grams;
    return std::nullopt;
}

void Food::setUnit(const QString &title, qint32 isIndex, bool adaptAmount)
{
    const std::optional<float> grams = gramsOfUnit(title);
    if (!grams)
        return;
    const float formergrams = gramsOfUnit(unit).value_or(1.0F);
    setCurunit(title);
    // A unit of 0 g makes the amount an infinity or no number, and so it is kept: that is meant.
    if (adaptAmount)
        setCuramount(curamount() * formergrams / *grams);
    setCurunitidx(isIndex);
}
