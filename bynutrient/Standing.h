// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "search/FoodIndex.h"

#include <QStringList>

#include <string>
#include <vector>

// What a food's name says of how near at hand it is to a person who asks what to eat. Told from the names alone, once
// for all of them.
class Standing final {
public:
    enum class Rank : quint8 {
        Everyday, // a plain food as it is eaten
        Further, // brands, dishes, stand-ins, what has vitamins added, what few shops have
        NotAsSuch // baby foods, powders, mixes, dried herbs, what is cooked first
    };

    // Foods with one number are the same in that respect.
    struct Food {
        Rank rank = Rank::Everyday;
        int food = 0; // "tuna" for every tuna
        int shelf = 0; // "fish" for every fish; 0 where the food stands on none
        int dish = 0; // the same cut or food, however it was salted and cooked
    };

    explicit Standing(const QStringList &foodnames);

    [[nodiscard]] const Food &of(int food) const { return foods[static_cast<std::size_t>(food)]; }

private:
    std::vector<Food> foods;
};
