// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/foodsheet/Quantity.h"

#include "platform/NumberText.h"

#include <array>
#include <charconv>
#include <cmath>

namespace {

const QString gram = QStringLiteral("g");

std::vector<FoodUnit> unitsOf(const Composition &composition)
{
    std::vector<FoodUnit> units;
    const QStringList titles = composition.unitTitles();
    for (const QString &title : titles)
        units.push_back({title, composition.gramsOfUnit(title).value_or(0.0F)});
    return units;
}

// The shortest text that reads as the number.
QString shortestText(float number)
{
    std::array<char, 64> text{}; // a float has 39 digits before the point at most
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed).ptr;
    return QString::fromLatin1(text.data(), end - text.data());
}

// With two decimals at most, and none that say nothing.
QString shownNumber(float number)
{
    QString text = NumberText::fixed(double(number), 2);
    while (text.contains(u'.') && (text.endsWith(u'0') || text.endsWith(u'.')))
        text.chop(1);
    return text;
}

} // namespace

std::optional<Quantity> Quantity::asked(const FoodQuantity &quantity, const Composition &composition)
{
    const std::vector<FoodUnit> units = unitsOf(composition);
    const FoodPortion portion = FoodPortion::of(quantity, units);
    if (!portion.fits)
        return std::nullopt;
    return Quantity{units[std::size_t(portion.unit)].title, portion.unit, portion.amount};
}

std::optional<Quantity> Quantity::logged(
    float amount, const std::optional<QString> &unit, const Composition &composition)
{
    const QString title = unit.value_or(gram);
    // Of two with one title the log's menu shows the last.
    const auto place = composition.unitTitles().lastIndexOf(title);
    if (place < 0 || !std::isfinite(amount) || amount <= 0)
        return std::nullopt;
    return Quantity{title, int(place), shortestText(amount)};
}

float Quantity::value() const
{
    return NumberText::floatValue(amount);
}

QString Quantity::text() const
{
    return quantityText(value(), unitidx == 0, unit);
}

QString quantityText(float number, bool isgrams, const QString &unit)
{
    if (isgrams)
        return shownNumber(number) + u' ' + unit;
    return number == 1.0F ? unit : shownNumber(number) + QStringLiteral(" \u00d7 ") + unit;
}

QString gramsText(float grams)
{
    const bool whole = std::floor(grams) == grams;
    return NumberText::fixed(static_cast<double>(grams), whole ? 0 : 1) + u' ' + gram;
}
