// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "model/FoodRecord.h"

#include "platform/KeyedArchiver.h"

namespace {

const QString classname = QStringLiteral("Food");
constexpr QLatin1String namekey("name");
constexpr QLatin1String amountkey("amount");
constexpr QLatin1String unitkey("unit");
constexpr QLatin1String unitidxkey("unitidx");

} // namespace

void Food::encodeWithCoder(KeyedArchiver &coder) const
{
    coder.encodeString(foodname, namekey);
    coder.encodeFloat(amount, amountkey);
    coder.encodeString(unit, unitkey);
    coder.encodeInt(unitidx, unitidxkey);
}

Food Food::initWithCoder(const KeyedUnarchiver &decoder)
{
    Food food(decoder.decodeString(namekey));
    food.setCuramount(decoder.decodeFloat(amountkey));
    food.setCurunit(decoder.decodeString(unitkey));
    food.setCurunitidx(decoder.decodeInt(unitidxkey));
    return food;
}

QByteArray FoodRecord::archivedDataWithRootObject(const Food &food)
{
    KeyedArchiver archiver(classname);
    food.encodeWithCoder(archiver);
    return archiver.archivedData();
}

std::optional<Food> FoodRecord::unarchiveObjectWithData(const QByteArray &data)
{
    const std::optional<KeyedUnarchiver> decoder = KeyedUnarchiver::unarchive(data, classname);
    if (!decoder)
        return std::nullopt;
    return Food::initWithCoder(*decoder);
}
