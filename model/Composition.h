// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "catalog/NutrientCatalogue.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include <array>
#include <bitset>
#include <optional>
#include <string_view>

namespace FoodFile {
class Attributes;
}

// What a food's file says: how much of each nutrient is in 100 g of the food, which of them are known, and what its
// measures weigh. Apart from the entry that eats of it, so that whoever goes through thousands of entries keeps one a
// food.
//
// Nutrients are kept as one 32-bit float each by catalogue index, 244 bytes a food, rather than as a table of texts: a
// file loads in little more than the XML takes to parse.
class Composition final {
public:
    // Of a food whose file was not read: nothing is known, and the only unit is "g".
    Composition();

    // Adds what the file of the food of that name says; what is there already stays unless the file says it again, and
    // so does what came before a fault in the file. True when the file is there and was read to its end. A food without
    // a name has no file.
    bool read(const std::optional<QString> &foodname);

    // The amount in 100 g, in the nutrient's catalogue unit; nothing when the file does not list it. By nutrient index,
    // 0 to 60, or by the file's name to the letter, which need not be one of the catalogue.
    [[nodiscard]] std::optional<float> amount(int index) const;
    [[nodiscard]] std::optional<float> amount(const QString &nutrient) const;
    // Those of the catalogue by nutrient index; 0 for one that the file does not list.
    using Amounts = std::array<float, NutrientCatalogue::nutrientCount>;
    [[nodiscard]] const Amounts &amounts() const { return nutrients; }

    // "g", then the measure titles in the order of the file: the list that unit indexes count in.
    [[nodiscard]] QStringList unitTitles() const;
    // The weight in grams of one of a unit; nothing for a title that is not known.
    [[nodiscard]] std::optional<float> gramsOfUnit(const std::optional<QString> &title) const;

    // The weight in grams of so much of a unit. Without a unit the amount is grams; with a title that is not known the
    // weight is 0. Not a slip: do not make them one.
    [[nodiscard]] float grams(float amount, const std::optional<QString> &unit) const;
    // What is in so many grams. Divided first, multiplied second: another order gives other bits.
    [[nodiscard]] static float amountIn(float grams, float per100grams) { return per100grams / 100.0F * grams; }

private:
    struct Unit {
        QString title;
        float grams;
    };

    void didStartElement(std::string_view element, const FoodFile::Attributes &attributes);
    void addMeasure(const FoodFile::Attributes &attributes);
    void addNutrient(const FoodFile::Attributes &attributes);

    Amounts nutrients{};
    std::bitset<NutrientCatalogue::nutrientCount> listed; // unknown is not the same as 0
    QHash<QString, float> othernutrients; // of names that the catalogue lacks: empty for the files we ship
    QList<Unit> units; // "g" first and always
};
