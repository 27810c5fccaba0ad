// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "fuzz/Fuzzing.h"
#include "platform/NumberText.h"
#include "search/FoodPortion.h"
#include "search/FoodWords.h"

#include <QList>

#include <cmath>
#include <cstdlib>
#include <span>
#include <vector>

// A query and the measures of a food, which a food's file may call anything: the first line is what was typed, each
// line after it a weight in grams, a tab and a title.

namespace {

void checkTokens(const QString &text)
{
    qsizetype end = 0;
    for (const MeasureText::Token &token : MeasureText::tokenize(text)) {
        Fuzzing::require(token.start >= end && token.end > token.start, "tokens ascend and lie apart");
        end = token.end;
        Fuzzing::require(end <= text.size(), "tokens lie within the text");
        Fuzzing::require(!token.isNumber() || token.number > 0, "a number is some");
    }
}

void checkReading(const FoodQuantity::Reading &reading)
{
    const FoodQuantity &quantity = reading.quantity;
    Fuzzing::require(quantity.count > 0 && std::isfinite(quantity.count), "a quantity is some");
    Fuzzing::require(!quantity.foodwords.empty(), "a quantity is of something");
    std::vector<FoodWords::Token> rest = FoodWords::tokenize(reading.rest);
    Fuzzing::require(rest.size() >= quantity.foodwords.size(), "the food's words are left to search for");
    for (std::size_t i = 0; i < quantity.foodwords.size(); ++i)
        Fuzzing::require(rest[i].text == quantity.foodwords[i], "the food's words stay as they are");
}

void checkPortion(const FoodQuantity &quantity, std::span<const FoodUnit> units)
{
    const FoodPortion portion = FoodPortion::of(quantity, units);
    Fuzzing::require(portion.unit >= 0 && static_cast<std::size_t>(portion.unit) < units.size(), "a unit of the food");
    const float amount = NumberText::floatValue(portion.amount);
    Fuzzing::require(amount > 0.0F && std::isfinite(amount), "the amount is a positive number");
    Fuzzing::require(std::isfinite(portion.grams), "the weight is a number");
    Fuzzing::require(portion.grams == amount * units[static_cast<std::size_t>(portion.unit)].grams,
        "the amount as text weighs what the portion says");
    Fuzzing::require(portion.fits || (portion.unit == 0 && portion.grams == 100.0F), "what does not fit is 100 g");
    if (quantity.unit.kind == MeasureText::Unit::Kind::Mass)
        Fuzzing::require(portion.unit == 0, "a mass is in grams");
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QList<QByteArray> lines = Fuzzing::bytes(data, size).split('\n');
    const QString query = QString::fromUtf8(lines.first());
    std::vector<FoodUnit> units{{QStringLiteral("g"), 1.0F}};
    for (const QByteArray &line : lines.mid(1)) {
        const qsizetype tab = line.indexOf('\t');
        units.push_back({QString::fromUtf8(line.mid(tab + 1)), std::strtof(line.left(tab).constData(), nullptr)});
        checkTokens(units.back().title);
    }
    checkTokens(query);
    const std::vector<FoodQuantity::Reading> readings = FoodQuantity::readings(query);
    Fuzzing::require(readings.size() <= 4, "there are four ways to read a query at most");
    for (const FoodQuantity::Reading &reading : readings) {
        checkReading(reading);
        checkPortion(reading.quantity, std::span(units).first(1));
        checkPortion(reading.quantity, units);
    }
    return 0;
}
