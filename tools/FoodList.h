// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

// A line of the food list: the food's number in the release, and the name that the catalogue gives it.
struct ListedFood {
    std::string number;
    std::string name;
    int line = 0;
};

// Reads the food list, `number TAB name` a line. Throws a Refusal naming the line when a name could not be the name of
// a catalogue food or of its file, is given twice (also when only case differs) or does not follow the name before it
// in the catalogue's natural order, and when a number is given twice.
[[nodiscard]] std::vector<ListedFood> readFoodList(const std::string &path);
