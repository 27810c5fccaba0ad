// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "tools/FoodList.h"

#include "catalog/NaturalOrder.h"
#include "tools/Refusal.h"
#include "tools/ReleaseTable.h"

#include <QString>

#include <algorithm>
#include <map>
#include <string_view>

namespace {

constexpr std::string_view allowedPunctuation = " !#%&'()+,-.;";
constexpr std::size_t shortestName = 3;
constexpr std::size_t longestName = 177;

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool isAllowed(char c)
{
    return isDigit(c) || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z')
        || allowedPunctuation.find(c) != std::string_view::npos;
}

// What is wrong with a name by itself; an empty text when nothing is.
std::string complaint(std::string_view name)
{
    if (const auto bad = std::ranges::find_if_not(name, isAllowed); bad != name.end()) {
        return "character " + std::to_string(bad - name.begin() + 1) + " of the name is not allowed: \""
            + std::string(name) + '"';
    }
    if (name.size() < shortestName || name.size() > longestName)
        return "a name of " + std::to_string(name.size()) + " characters: \"" + std::string(name) + '"';
    if (name.starts_with(' ') || name.ends_with(' ') || name.find("  ") != std::string_view::npos)
        return "the blanks of the name are not single and inside: \"" + std::string(name) + '"';
    return {};
}

ListedFood listedFood(const std::string &path, std::string_view line, int number)
{
    const std::size_t tab = line.find('\t');
    if (tab != 5 || !std::ranges::all_of(line.substr(0, tab), isDigit))
        throw Refusal(path, number, "no number of five digits, tab and name");
    ListedFood food{
        .number = std::string(line.substr(0, tab)), .name = std::string(line.substr(tab + 1)), .line = number};
    if (const std::string reason = complaint(food.name); !reason.empty())
        throw Refusal(path, number, reason);
    return food;
}

// Remembers the line of a key; a Refusal when the key has one.
void refuseTwice(std::map<std::string, int> &lines, const std::string &key, const std::string &path,
    const ListedFood &food, const std::string &what)
{
    const auto [place, isnew] = lines.emplace(key, food.line);
    if (!isnew)
        throw Refusal(path, food.line, what + " of line " + std::to_string(place->second) + " again");
}

} // namespace

std::vector<ListedFood> readFoodList(const std::string &path)
{
    const std::string content = readFile(path);
    std::vector<ListedFood> foods;
    std::map<std::string, int> linesbyname;
    std::map<std::string, int> linesbynumber;
    Lines lines(content);
    for (std::string_view line; lines.next(line);) {
        const ListedFood food = listedFood(path, line, lines.number());
        const QString name = QString::fromStdString(food.name);
        refuseTwice(linesbyname, name.toLower().toStdString(), path, food, "the name \"" + food.name + '"');
        refuseTwice(linesbynumber, food.number, path, food, "the number " + food.number);
        if (!foods.empty() && NaturalOrder::compareFoodNames(QString::fromStdString(foods.back().name), name) >= 0) {
            throw Refusal(
                path, food.line, "out of order: \"" + food.name + "\" does not follow \"" + foods.back().name + '"');
        }
        foods.push_back(food);
    }
    return foods;
}
