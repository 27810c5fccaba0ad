// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "search/MeasureText.h"

#include <QByteArray>
#include <QString>
#include <QStringView>

#include <vector>

// How much of a food a query asks for: "3", "1 1/2 cups", "250 g", "half a".
struct FoodQuantity {
    double count = 1;
    MeasureText::Unit unit; // a measure without a name: so many pieces of the food
    QByteArray counted; // the word after a bare number: "squares" of "3 squares dark chocolate", or the food itself
    std::vector<QByteArray> foodwords; // of the query's rest: "frankfurters" are counted by the frankfurter

    [[nodiscard]] bool isPieces() const { return unit.kind == MeasureText::Unit::Kind::Measure && unit.name.isEmpty(); }

    bool operator==(const FoodQuantity &) const = default;

    // A query with its quantity taken out.
    struct Reading;

    // The ways to read a query with a quantity, the likeliest first, at most four: of "a can of tuna" the canned one
    // first. Empty when it holds none, or nothing else. Which one is meant, or whether the number belongs to the food
    // after all ("100 grand"), only the names can tell.
    [[nodiscard]] static std::vector<Reading> readings(QStringView query);
};

struct FoodQuantity::Reading {
    FoodQuantity quantity;
    QString rest; // what to search for
    // The number as a token of names has it ("3", "quarter"), and the token beside it, where the quantity is a bare
    // number: a name that has them side by side means itself by it.
    QByteArray number;
    QByteArray neighbour;
    bool neighbourAfter = true;
};
