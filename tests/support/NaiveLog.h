// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

// The day log once more, as plainly as its rules can be written down, for tests to hold the program against. It reads
// the food files by itself, computes every amount by itself and shares no code with the program: whatever both get
// wrong, two people have got wrong in the same way. Nothing in it is quick.
namespace Naive {

constexpr std::size_t nutrientcount = 61;
using Text = std::optional<std::string>;
using Sums = std::array<float, nutrientcount>;

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
};
using FoodPointer = std::shared_ptr<Food>;

class Log {
public:
    // Where the food files are, and the names of the nutrients in their order.
    Log(std::string foodfolder, std::vector<std::string> nutrientnames);

    void add(const std::vector<std::string> &names);
    void remove();
    void cut();
    void copy();
    void paste();
    void editAmount(std::size_t row, const std::string &text);
    void changeUnit(std::size_t row, const std::string &title, std::int32_t index, bool keepweight);
    void select(const std::vector<std::size_t> &rows); // ascending
    void openDay(const std::string &key);
    void quitAndStart();

    std::vector<FoodPointer> foods;
    std::vector<Record> records;
    std::vector<Sums> amounts; // per entry
    std::vector<FoodPointer> clipboard;
    Sums total{};
    Sums selected{};
    std::vector<std::size_t> selection;
    std::string label;
    std::string day;
    std::map<std::string, std::vector<Record>> store;

private:
    void load(Food &food) const;
    float grams(Food &food) const;
    float amountOf(Food &food, std::size_t nutrient) const;
    void append(const FoodPointer &food);
    void deselect();
    void selectionChanged();
    void logReloaded();
    void countLabel();
    void subtractAfresh(std::size_t row);
    void addAgain(std::size_t row);

    std::string folder;
    std::vector<std::string> nutrients;
};

// The number that a text begins with; 0 when it begins with none.
float leadingNumber(const std::string &text);

} // namespace Naive
