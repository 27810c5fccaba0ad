// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "model/FoodRecord.h"

#include "platform/KeyedArchiver.h"

#include <QtEndian>

#include <algorithm>
#include <bit>
#include <cstring>

namespace {

const QString classname = QStringLiteral("Food");
constexpr QLatin1String namekey("name");
constexpr QLatin1String amountkey("amount");
constexpr QLatin1String unitkey("unit");
constexpr QLatin1String unitidxkey("unitidx");

constexpr int enoughstrange = 1000;
// What is looked through for one record, at the most, and what is kept of it.
constexpr std::size_t mostformsofasize = 64;
constexpr qsizetype longestrecord = 1024;

quint32 amountAt(const QByteArray &data, qsizetype amountplace)
{
    return qFromBigEndian<quint32>(data.constData() + amountplace);
}

bool isSameButForAmount(const QByteArray &one, const QByteArray &other, qsizetype amountplace)
{
    const qsizetype after = amountplace + qsizetype(sizeof(float));
    return std::memcmp(one.constData(), other.constData(), static_cast<std::size_t>(amountplace)) == 0
        && std::memcmp(one.constData() + after, other.constData() + after, static_cast<std::size_t>(one.size() - after))
        == 0;
}

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

std::optional<Food> FoodRecord::Reader::unarchiveObjectWithData(const QByteArray &data)
{
    const auto alike = forms.constFind(data.size());
    if (alike != forms.constEnd()) {
        for (const Form &form : *alike) {
            if (!isSameButForAmount(form.data, data, form.amountplace))
                continue;
            Food food = form.food;
            food.setCuramount(std::bit_cast<float>(amountAt(data, form.amountplace)));
            return food;
        }
    }
    std::optional<Food> food = FoodRecord::unarchiveObjectWithData(data);
    if (food && ++takenapart > usual && strange < enoughstrange && !learn(*food, data))
        ++strange;
    return food;
}

// Written again with all bits of the amount turned, a record of this program differs in these four bytes and in no
// other, and they are the amount. One of another program's making may have an integer or a text there.
bool FoodRecord::Reader::learn(const Food &food, const QByteArray &data)
{
    std::vector<Form> &alike = forms[data.size()];
    if (data.size() > longestrecord || alike.size() == mostformsofasize)
        return true;
    Food turned = food;
    turned.setCuramount(std::bit_cast<float>(~std::bit_cast<quint32>(food.curamount())));
    const QByteArray other = archivedDataWithRootObject(turned);
    if (other.size() != data.size())
        return false;
    const auto difference = std::mismatch(data.begin(), data.end(), other.begin()).first - data.begin();
    if (difference + qsizetype(sizeof(float)) > data.size() || !isSameButForAmount(data, other, difference)
        || amountAt(data, difference) != std::bit_cast<quint32>(food.curamount()))
        return false;
    alike.push_back({QByteArray(data.constData(), data.size()), difference, food});
    return true;
}
