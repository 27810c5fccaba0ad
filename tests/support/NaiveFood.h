// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

// A food of the naive log: its own reader of food files, its own arithmetic.
namespace Naive {

using Text = std::optional<std::string>;

// What the store keeps of an entry.
struct Record {
    Text name;
    float amount = 0.0F;
    Text unit;
    std::int32_t unitindex = 0;
};

struct Food {
    Text name;
    float amount = 100.0F;
    Text unit = "g";
    std::int32_t unitindex = 0;

    std::vector<std::pair<std::string, float>> weights = {{"g", 1.0F}};
    std::map<std::string, std::string> texts; // a nutrient's amount in 100 g, as written
    bool loaded = false;
    int looked = -1; // the moment of the last look at the file
};
using FoodPointer = std::shared_ptr<Food>;

[[nodiscard]] Record recordOf(const Food &food);
[[nodiscard]] FoodPointer foodOf(const Record &record);

// Reads the food's file in a folder, unless it has been read to its end. A file does not change within a moment, so one
// look is as good as one at each question, and takes a hundredth of the time.
void load(Food &food, const std::string &folder, int moment);

// The weight of one of a unit, the food's own amount of a nutrient; both as far as the file has been read.
[[nodiscard]] std::optional<float> weightOf(const Food &food, const Text &title);
[[nodiscard]] float amountOf(const Food &food, const std::string &nutrient);

// The number that a text begins with; 0 when it begins with none.
[[nodiscard]] float leadingNumber(const std::string &text);

// As C writes it, but for a NaN, which has no sign.
[[nodiscard]] std::string numberText(float number, int decimals);

} // namespace Naive
