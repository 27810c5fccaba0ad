// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "NaiveFood.h"

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

// The day log once more, as plainly as its rules can be written down, for tests to hold the program against. It reads
// the food files by itself, computes every amount by itself and shares no code with the program: whatever both get
// wrong, two people have got wrong in the same way. Nothing in it is quick.
namespace Naive {

constexpr std::size_t nutrientcount = 61;
using Sums = std::array<float, nutrientcount>;
using Seconds = std::int64_t; // an instant, since 1970 began in UTC, which is the zone of all days

struct Nutrient {
    std::string name;
    std::string unit;
    int defaultrda = 0;
};

// What a row of the log table showed when it was last reloaded.
struct ShownEntry {
    std::string name;
    std::string amount;
    std::string unit;
    std::string energy;
};

class Log {
public:
    // Where the food files are, and the nutrients in their order.
    Log(std::string foodfolder, std::vector<Nutrient> catalogue);

    void start(Seconds now);
    void quit();

    // the day shown
    void setDate(Seconds date);
    void today(Seconds now) { setDate(now); }
    void previousDay() { setDate(*curdate - secondsaday); }
    void nextDay() { setDate(*curdate + secondsaday); }
    void updateDate() { setDate(picker); }
    void chooseDate(int daysahead); // a person does, in the picker

    // the log
    void add(const std::vector<FoodPointer> &added);
    void remove();
    void cut();
    void copy();
    void paste();
    void editAmount(std::size_t row, const std::string &text);
    void changeUnit(std::size_t row, const std::string &title, std::int32_t index);
    void select(const std::vector<std::size_t> &rows); // ascending

    // the nutrients and their RDAs
    void updateNutrients() { nutrientsreloaded = true; }
    void RDAtick();
    void setRDA();
    void RDAreset();
    void hidePrefs();

    // What the menu of a row and the bar of a nutrient would be if they were asked for now.
    [[nodiscard]] std::vector<std::string> unitTitles(std::size_t row);
    [[nodiscard]] std::size_t shownUnit(std::size_t row);
    [[nodiscard]] float rdaRatio(std::size_t nutrient) const;
    // Somebody looks at both tables, and what was reloaded since the last time is asked for.
    void look();

    [[nodiscard]] static std::string dayKey(Seconds date);

    std::vector<FoodPointer> foods;
    std::vector<Record> records;
    std::vector<Sums> amounts; // per entry
    std::vector<FoodPointer> clipboard;
    Sums total{};
    Sums selected{};
    std::vector<std::size_t> selection;
    std::string label;
    std::optional<Seconds> curdate;
    Seconds picker = 0;

    Sums rdas{};
    int rdamenu = 0; // -1 when nothing is chosen
    std::string rdainput;
    std::string rdalabel;

    std::vector<ShownEntry> shownlog;
    std::array<std::string, nutrientcount> shownnutrients;
    Sums shownratios{}; // which the bars tell

    // the settings, and what else is stored
    bool usep = true;
    bool rememberdate = true;
    bool recalculateamount = false;
    std::map<std::string, std::vector<Record>> store;
    std::optional<Seconds> lastdate;
    std::optional<Sums> storedrdas;

    int moment = 0; // of the food files: to be moved on whenever one may have changed

private:
    static constexpr Seconds secondsaday = 86400;

    float amount(Food &food, std::size_t nutrient);
    [[nodiscard]] float displayed(std::size_t nutrient) const;
    [[nodiscard]] std::string nutrientText(std::size_t nutrient) const;
    void append(const FoodPointer &food);
    void deselect();
    void selectionChanged();
    void logReloaded();
    void entryCount();
    void subtractAfresh(std::size_t row);
    void addAgain(std::size_t row);
    void setDefaultRDAs();

    std::string folder;
    std::vector<Nutrient> nutrients;
    bool logwasreloaded = false;
    bool nutrientsreloaded = false;
};

} // namespace Naive
