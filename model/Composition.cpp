// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "model/Composition.h"

#include "model/FoodFile.h"
#include "platform/Bundle.h"
#include "platform/NumberText.h"

#include <algorithm>
#include <cfloat>

// The sums are exact to the bit only where a float is never kept in more than 32 bits.
static_assert(FLT_EVAL_METHOD == 0);

namespace {

QString textFromUtf8(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace

Composition::Composition()
{
    // Shared by all until their file is read: a history makes a food of each of 146,100 records.
    static const QList<Unit> gram{{QStringLiteral("g"), 1.0F}};
    units = gram;
}

bool Composition::read(const std::optional<QString> &foodname)
{
    const QString path = Bundle::mainBundle().pathForResource(
        foodname.value_or(QString()), QStringLiteral("xml"), QStringLiteral("Database.xml"));
    return !path.isEmpty()
        && FoodFile::parse(path, [this](std::string_view element, const FoodFile::Attributes &attributes) {
               didStartElement(element, attributes);
           });
}

void Composition::didStartElement(std::string_view element, const FoodFile::Attributes &attributes)
{
    if (element == "measure")
        addMeasure(attributes);
    else if (element == "nutrient")
        addNutrient(attributes);
}

void Composition::addMeasure(const FoodFile::Attributes &attributes)
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

void Composition::addNutrient(const FoodFile::Attributes &attributes)
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

std::optional<float> Composition::amount(int index) const
{
    const auto i = static_cast<std::size_t>(index);
    return index >= 0 && listed.test(i) ? std::optional(nutrients[i]) : std::nullopt;
}

std::optional<float> Composition::amount(const QString &nutrient) const
{
    const QByteArray name = nutrient.toUtf8();
    const int index
        = NutrientCatalogue::indexOfNutrient(std::string_view(name.constData(), static_cast<std::size_t>(name.size())));
    if (index >= 0)
        return amount(index);
    const auto found = othernutrients.constFind(nutrient);
    return found != othernutrients.constEnd() ? std::optional(*found) : std::nullopt;
}

QStringList Composition::unitTitles() const
{
    QStringList titles;
    titles.reserve(units.size());
    for (const Unit &each : units)
        titles.append(each.title);
    return titles;
}

std::optional<float> Composition::gramsOfUnit(const std::optional<QString> &title) const
{
    if (title)
        for (const Unit &each : units)
            if (each.title == *title)
                return each.grams;
    return std::nullopt;
}

float Composition::grams(float amount, const std::optional<QString> &unit) const
{
    if (!unit)
        return amount;
    const std::optional<float> each = gramsOfUnit(unit);
    return each ? *each * amount : 0.0F;
}
