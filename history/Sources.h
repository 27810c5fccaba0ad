// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "history/Days.h"

#include <optional>
#include <vector>

namespace History {

// What one food gave of a nutrient in the period.
struct Source {
    std::optional<QString> food;
    double amount = 0.0;
    // Of the amount of all sources, and of this and those before it; nothing when that amount is 0 or not finite.
    std::optional<double> share;
    std::optional<double> runningshare;
    int days = 0; // on how many it was eaten
    QDate lastday;
};

// A food whose file has no figure for the nutrient, or that has no file.
struct UnknownSource {
    std::optional<QString> food;
    double energy = 0.0; // of its entries in the period, kcal
    int days = 0;
    QDate lastday;
};

struct Sources {
    std::vector<Source> known; // the most first; foods that gave exactly 0 are left out
    std::vector<UnknownSource> unknown; // the most energy first
};

// Amounts that are no number come last; equal ones go by name.
[[nodiscard]] Sources sources(const Days &days, int nutrient);

} // namespace History
