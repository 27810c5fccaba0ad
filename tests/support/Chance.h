// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "catalog/NutrientCatalogue.h"
#include "tests/support/FoodFiles.h"
#include "tests/support/NaiveFood.h"

#include <iterator>
#include <random>

// What random operations are done with: the same of everything for the same seed.
class Chance final {
public:
    static constexpr int foods = 18;

    void seed(quint32 start) { random.seed(start); }
    int draw(int below) { return static_cast<int>(random() % static_cast<quint32>(below)); }
    bool percent(int percents) { return draw(100) < percents; }

    static QString foodName(int index) { return QStringLiteral("F%1").arg(index, 2, 10, QLatin1Char('0')); }
    QString foodName() { return foodName(draw(foods)); }
    QString anyName() { return percent(2) ? QStringLiteral("del") : percent(1) ? QString() : foodName(); }

    // What a person, or a cat, may type as an amount.
    const char *number()
    {
        static constexpr const char *usual[]
            = {"100", "250", "0.5", "33.3", "1.1", "7", "0.4166667", "12,5", "abc", "", "0", "-0", "-5", "0x10", "1e",
                "nan", "inf", ".5", "5.", "  +4", "1.5e2x", "3.3333333", "1e-45", "16777217", "1e20"};
        static constexpr const char *wild[] = {"1e400", "-1e400", "1e38"};
        return percent(2) ? oneOf(wild) : oneOf(usual);
    }

    // The units without weight make amounts infinite for good, so they come up seldom.
    const char *unitTitle()
    {
        static constexpr const char *usual[] = {"g", "1 cup", "2 slices"};
        static constexpr const char *odd[] = {"1 crumb", "1 hole", "1 barrel", "1 Cup", ""};
        return percent(6) ? oneOf(odd) : oneOf(usual);
    }

    // What the store may hold: the name or the unit may be missing.
    Naive::Record record()
    {
        Naive::Record made;
        if (!percent(10))
            made.name = foodName().toStdString();
        made.amount = Naive::leadingNumber(number());
        if (!percent(10))
            made.unit = unitTitle();
        made.unitindex = draw(7);
        return made;
    }

    // A food's file in one of its states: whole, whole with other figures, broken off, or missing.
    void writeFile(const FoodFiles &files, int index)
    {
        if (index % 9 == 8) // these never have one
            return;
        const QString name = foodName(index);
        const int state = draw(60);
        if (state == 0)
            return files.remove(name);
        QByteArray elements = "<measure name='cup' amount='1' grams='" + figure()
            + "'/><measure name='slices' amount='2' grams='" + figure()
            + "'/><measure name='crumb' amount='1' grams='0'/><measure name='hole' grams='-3.7' amount='1'/>";
        for (const QString &nutrient : NutrientCatalogue::names())
            if (percent(60))
                elements += "<nutrient name='" + nutrient.toUtf8() + "'"
                    + (percent(3) ? QByteArray() : " amount='" + figure() + "'") + "/>";
        if (percent(20)) // a title and a name a second time
            elements += "<measure name='cup' amount='1.4' grams='" + figure() + "'/><nutrient name='Energy' amount='"
                + figure() + "'/>";
        if (state == 1)
            files.write(name, "<food>" + elements.left(draw(int(elements.size()))));
        else if (state == 2)
            files.write(name, "<food>" + elements + "</fodo>");
        else
            files.writeElements(name, elements);
    }

private:
    template <std::size_t count>
    const char *oneOf(const char *const (&texts)[count])
    {
        return texts[draw(int(count))];
    }
    QByteArray figure()
    {
        static constexpr const char *odd[] = {"0", "1e", "x", "", "-0.5", ".5", "1,5"};
        if (percent(4))
            return oneOf(odd);
        return QByteArray::number(draw(1000)) + '.' + QByteArray::number(draw(1000));
    }

    std::mt19937 random;
};
