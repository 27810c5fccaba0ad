// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "fuzz/Fuzzing.h"
#include "model/FoodRecord.h"
#include "platform/PropertyList.h"
#include "tests/support/FoodFiles.h"

#include <QMap>
#include <QVariant>

#include <algorithm>
#include <array>
#include <bit>

// Days of a log, made of the fuzz input. Bytes alone would seldom come to an entry, so most of the input chooses among
// names, units and days that are odd in some way; the rest is taken as it is.
namespace StoredDays {

class Input final {
public:
    Input(const std::uint8_t *data, std::size_t size)
        : left(Fuzzing::bytes(data, size))
    { }

    [[nodiscard]] bool isEmpty() const { return left.isEmpty(); }
    QByteArray bytes(qsizetype count)
    {
        const QByteArray some = left.left(count);
        left.remove(0, some.size());
        return some;
    }
    unsigned number(int bytecount)
    {
        unsigned value = 0;
        for (const char byte : bytes(bytecount))
            value = value << 8U | static_cast<std::uint8_t>(byte);
        return value;
    }

private:
    QByteArray left;
};

// The calendar's ends, days around a leap day and a new year, days far apart, and what only looks like a day.
constexpr std::array<const char *, 16> keys{"0001_01_01", "0001_01_06", "1899_12_31", "2024_02_28", "2024_02_29",
    "2024_03_01", "2026_11_16", "2026_11_18", "2026_11_19", "2026_11_20", "2026_11_21", "2027_01_01", "9999_12_31",
    "2026_02_30", "2026_11_18.unread", "2026_11_1"};

inline void writeFoods(const FoodFiles &files)
{
    files.writeElements(QStringLiteral("Real"),
        "<measure name='cup' amount='1' grams='240'/><nutrient name='Energy' amount='50'/>"
        "<nutrient name='Protein' amount='3.3'/>");
    files.writeElements(QStringLiteral("Odd"),
        "<measure name='nothing' amount='1' grams='0'/><nutrient name='Energy' amount='-1e38'/>"
        "<nutrient name='Protein' amount='1e39'/><nutrient name='Water' amount='1e-45'/>");
}

// The food files, which stay as long as the run.
inline void prepareFoods()
{
    [[maybe_unused]] static const bool isinmemory = qputenv("TMPDIR", Fuzzing::scratchFolder);
    static const FoodFiles files;
    [[maybe_unused]] static const bool iswritten = (writeFoods(files), true);
}

inline std::optional<QString> name(unsigned number)
{
    switch (number % 8) {
    case 0:
        return QStringLiteral("Real");
    case 1:
        return QStringLiteral("Odd");
    case 2:
        return std::nullopt;
    case 3:
        return QString();
    case 4:
        return QStringLiteral("a \"b\",\r\nc\u001b\u2028") + QChar(u'\0');
    case 5:
        return QString(QChar(0xdc00)) + QChar(0xd800);
    case 6:
        return QString(300, u'x');
    default:
        return QStringLiteral("No such food %1").arg(number);
    }
}

inline QVariant item(Input &input)
{
    constexpr std::array units{"g", "1 cup", "1 nothing", "1,\"unknown\""};
    const unsigned choice = input.number(1);
    if (choice == 0xff)
        return input.bytes(input.number(1));
    if (choice == 0xfe)
        return QString::fromLatin1(input.bytes(4));
    Food food(name(choice));
    food.setCuramount(std::bit_cast<float>(input.number(4)));
    if (const unsigned unit = choice / 8 % 5; unit < units.size())
        food.setCurunit(QString::fromLatin1(units[unit]));
    return FoodRecord::archivedDataWithRootObject(food);
}

// So many values by their keys, or as many as the input has.
inline QMap<QString, QByteArray> read(Input &input, unsigned most = 100)
{
    QMap<QString, QByteArray> values;
    for (unsigned i = 0; i < most && !input.isEmpty(); ++i) {
        const QString key = QString::fromLatin1(keys[input.number(1) % keys.size()]);
        const unsigned form = input.number(1);
        if (form == 0xff) {
            values.insert(key, input.bytes(input.number(2)));
            continue;
        }
        QVariantList items;
        for (unsigned count = 0; count < form && !input.isEmpty(); ++count)
            items.append(item(input));
        values.insert(key, PropertyList::write(items).value_or(QByteArray()));
    }
    return values;
}

} // namespace StoredDays
