// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "model/Composition.h"

#include <QString>
#include <QStringList>

#include <optional>

class KeyedArchiver;
class KeyedUnarchiver;

// One food, fresh from the catalogue or an entry of a day's log: what was eaten, how much of it, in which unit. The
// composition is read from the food's file by the first question that needs it and kept for the food's life; until a
// read succeeds every such question reads the file anew, without limit, so a file that turns up later is found.
//
// Amounts and weights are 32-bit floats, one operation at a time, and every answer is computed afresh: the day's sums
// depend on the exact bits.
class Food final {
public:
    // 100 g of the food of that name. The name may be absent (a record may lack it); such a food has no file.
    explicit Food(std::optional<QString> name);

    // The amount of a nutrient in this entry, in the unit of the nutrient; 0 when the file does not list it. The name
    // is the file's, to the letter; it need not be one of the catalogue. Loads.
    [[nodiscard]] float getAmountOfNutrient(const QString &nutrient);
    // The same by nutrient index, 0 to 60.
    [[nodiscard]] float getAmountOfNutrient(int index);
    // Whether the file lists the nutrient of that index; what it does not list counts as 0. Loads.
    [[nodiscard]] bool knowsNutrient(int index);

    // The weight of this entry in grams. Without a unit the amount is grams; with a title that is unknown the entry
    // weighs nothing. Not a slip: do not make them one. Loads.
    [[nodiscard]] float getGrams();

    // "g", then the measure titles in the order of the food's file: the list that unit indexes count in. Loads.
    [[nodiscard]] QStringList getUnitNames();

    // The weight in grams of one of a unit; nothing when the food does not know the title. Does not load.
    [[nodiscard]] std::optional<float> gramsOfUnit(const std::optional<QString> &title) const;

    // Changes the unit, and with adaptAmount the amount too, so that the weight stays. Nothing changes when the food
    // does not know the title. Never loads, on purpose: before a load only "g" is known.
    void setUnit(const QString &title, qint32 isIndex, bool adaptAmount);

    [[nodiscard]] const std::optional<QString> &name() const { return foodname; }
    void setName(const std::optional<QString> &name) { foodname = name; }
    [[nodiscard]] float curamount() const { return amount; }
    void setCuramount(float curamount) { amount = curamount; }
    [[nodiscard]] const std::optional<QString> &curunit() const { return unit; }
    void setCurunit(const std::optional<QString> &curunit) { unit = curunit; }
    // Stored and archived, never computed with: the unit is what its title says.
    [[nodiscard]] qint32 curunitidx() const { return unitidx; }
    void setCurunitidx(qint32 curunitidx) { unitidx = curunitidx; }

    void encodeWithCoder(KeyedArchiver &coder) const;
    [[nodiscard]] static Food initWithCoder(const KeyedUnarchiver &decoder);

private:
    void loadIfNeeded();
    void readXML();

    std::optional<QString> foodname;
    Composition composition; // whatever unit the entry uses
    bool hasReadXML = false;
    float amount = 100.0F;
    std::optional<QString> unit;
    qint32 unitidx = 0;
};
