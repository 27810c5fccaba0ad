// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "NaiveLog.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>

namespace {

Naive::Record recordOf(const Naive::Food &food)
{
    return {food.name, food.amount, food.unit, food.unitindex};
}

Naive::Text attribute(const std::string &tag, const std::string &name)
{
    const std::string opening = " " + name + "='";
    const std::size_t at = tag.find(opening);
    if (at == std::string::npos)
        return std::nullopt;
    const std::size_t from = at + opening.size();
    return tag.substr(from, tag.find('\'', from) - from);
}

// How many characters from `at` on are among these.
std::size_t run(const std::string &text, std::size_t at, const char *characters)
{
    const std::size_t end = text.find_first_not_of(characters, at);
    return (end == std::string::npos ? text.size() : end) - at;
}

// The first of all entries of that title, or nothing.
std::optional<float> weightOf(const Naive::Food &food, const Naive::Text &title)
{
    for (const auto &[known, weight] : food.weights)
        if (title && known == *title)
            return weight;
    return std::nullopt;
}

} // namespace

float Naive::leadingNumber(const std::string &text)
{
    const char *const digits = "0123456789";
    const std::size_t from = run(text, 0, " \t\n\v\f\r");
    std::size_t at = from;
    if (at < text.size() && (text[at] == '+' || text[at] == '-'))
        ++at;
    std::size_t count = run(text, at, digits);
    at += count;
    if (at < text.size() && text[at] == '.') {
        const std::size_t behind = run(text, at + 1, digits);
        if (count + behind > 0)
            at += 1 + behind;
        count += behind;
    }
    if (count == 0)
        return 0.0F;
    if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
        const bool sign = at + 1 < text.size() && (text[at + 1] == '+' || text[at + 1] == '-');
        const std::size_t exponent = at + (sign ? 2 : 1);
        if (exponent < text.size() && run(text, exponent, digits) > 0)
            at = exponent + run(text, exponent, digits);
    }
    return std::strtof(text.substr(from, at - from).c_str(), nullptr);
}

Naive::Log::Log(std::string foodfolder, std::vector<std::string> nutrientnames)
    : folder(std::move(foodfolder))
    , nutrients(std::move(nutrientnames))
{ }

// Reads tag by tag; a file that does not end with the end of its food is broken, and what came before counts.
void Naive::Log::load(Food &food) const
{
    if (food.loaded || !food.name || food.name->empty())
        return;
    std::ifstream file(folder + "/" + *food.name + ".xml", std::ios::binary);
    if (!file)
        return;
    std::stringstream content;
    content << file.rdbuf();
    const std::string text = content.str();
    std::size_t at = 0;
    for (;;) {
        const std::size_t open = text.find('<', at);
        const std::size_t close = text.find('>', open);
        if (open == std::string::npos || close == std::string::npos)
            return;
        const std::string tag = text.substr(open, close - open + 1);
        at = close + 1;
        if (tag == "</food>") {
            food.loaded = true;
            return;
        }
        if (tag.rfind("</", 0) == 0)
            return; // an end that fits no beginning
        if (tag.rfind("<measure ", 0) == 0) {
            char number[512];
            std::snprintf(number, sizeof number, "%.0f", double(leadingNumber(attribute(tag, "amount").value_or(""))));
            const std::string title = std::string(number) + " " + attribute(tag, "name").value_or("measure");
            const float weight = leadingNumber(attribute(tag, "grams").value_or(""));
            bool known = false;
            for (auto &entry : food.weights) {
                if (entry.first == title) {
                    entry.second = weight;
                    known = true;
                }
            }
            if (!known)
                food.weights.emplace_back(title, weight);
        }
        if (tag.rfind("<nutrient ", 0) == 0) {
            const Text name = attribute(tag, "name");
            const Text amount = attribute(tag, "amount");
            if (name && amount)
                food.texts[*name] = *amount;
            else if (name)
                food.texts.erase(*name);
        }
    }
}

float Naive::Log::grams(Food &food) const
{
    load(food);
    if (!food.unit)
        return food.amount;
    const std::optional<float> weight = weightOf(food, food.unit);
    if (!weight)
        return 0.0F;
    return *weight * food.amount;
}

float Naive::Log::amountOf(Food &food, std::size_t nutrient) const
{
    load(food);
    const auto text = food.texts.find(nutrients[nutrient]);
    if (text == food.texts.end())
        return 0.0F;
    const float hundredth = leadingNumber(text->second) / 100.0F;
    return hundredth * grams(food);
}

void Naive::Log::append(const FoodPointer &food)
{
    for (const FoodPointer &entry : foods)
        if (entry->name && food->name && *entry->name == *food->name)
            return;
    foods.push_back(food);
    records.push_back(recordOf(*food));
    Sums column{};
    for (std::size_t i = 0; i < nutrientcount; ++i) {
        column[i] = amountOf(*food, i);
        total[i] = total[i] + column[i];
    }
    amounts.push_back(column);
    countLabel();
}

void Naive::Log::countLabel()
{
    const std::size_t count = selection.empty() ? foods.size() : selection.size();
    label = std::to_string(count) + (selection.empty() ? "" : " selected") + (count == 1 ? " food" : " foods");
}

void Naive::Log::selectionChanged()
{
    if (!selection.empty()) {
        for (std::size_t i = 0; i < nutrientcount; ++i) {
            selected[i] = 0.0F;
            for (const std::size_t row : selection)
                selected[i] = selected[i] + amounts[row][i];
        }
    }
    countLabel();
}

void Naive::Log::deselect()
{
    if (selection.empty())
        return;
    selection.clear();
    selectionChanged();
}

// Rows that are no more leave the selection.
void Naive::Log::logReloaded()
{
    std::vector<std::size_t> kept;
    for (const std::size_t row : selection)
        if (row < foods.size())
            kept.push_back(row);
    if (kept.size() == selection.size())
        return;
    selection = kept;
    selectionChanged();
}

void Naive::Log::add(const std::vector<std::string> &names)
{
    for (const std::string &name : names) {
        auto food = std::make_shared<Food>();
        food->name = name;
        append(food);
    }
    logReloaded();
}

void Naive::Log::remove()
{
    if (selection.empty())
        return;
    for (const std::size_t row : selection) {
        for (std::size_t i = 0; i < nutrientcount; ++i) {
            selected[i] = 0.0F;
            total[i] = total[i] - amounts[row][i];
        }
        foods[row]->name = "del";
    }
    for (std::size_t k = 0; k < foods.size();) {
        if (foods[k]->name && *foods[k]->name == "del") {
            const auto offset = static_cast<std::ptrdiff_t>(k);
            foods.erase(foods.begin() + offset);
            records.erase(records.begin() + offset);
            amounts.erase(amounts.begin() + offset);
        } else {
            ++k;
        }
    }
    deselect();
    logReloaded();
}

void Naive::Log::copy()
{
    if (selection.empty())
        return;
    clipboard.clear();
    for (const std::size_t row : selection) {
        auto food = std::make_shared<Food>();
        food->name = foods[row]->name;
        food->amount = foods[row]->amount;
        food->unit = foods[row]->unit;
        clipboard.push_back(food);
    }
}

void Naive::Log::cut()
{
    copy();
    remove();
}

void Naive::Log::paste()
{
    for (const FoodPointer &food : clipboard)
        append(food);
    logReloaded();
}

void Naive::Log::subtractAfresh(std::size_t row)
{
    for (std::size_t i = 0; i < nutrientcount; ++i) {
        selected[i] = 0.0F;
        total[i] = total[i] - amountOf(*foods[row], i);
    }
}

void Naive::Log::addAgain(std::size_t row)
{
    for (std::size_t i = 0; i < nutrientcount; ++i) {
        const float amount = amountOf(*foods[row], i);
        total[i] = total[i] + amount;
        amounts[row][i] = amount;
    }
}

void Naive::Log::editAmount(std::size_t row, const std::string &text)
{
    deselect();
    subtractAfresh(row);
    foods[row]->amount = leadingNumber(text);
    records[row] = recordOf(*foods[row]);
    addAgain(row);
}

void Naive::Log::changeUnit(std::size_t row, const std::string &title, std::int32_t index, bool keepweight)
{
    subtractAfresh(row);
    Food &food = *foods[row];
    const std::optional<float> weight = weightOf(food, title);
    if (weight) {
        const float former = weightOf(food, food.unit).value_or(1.0F);
        food.unit = title;
        if (keepweight) {
            const float product = food.amount * former;
            food.amount = product / *weight;
        }
        food.unitindex = index;
    }
    records[row] = recordOf(food);
    deselect();
    addAgain(row);
    logReloaded();
}

void Naive::Log::select(const std::vector<std::size_t> &rows)
{
    if (rows == selection)
        return;
    selection = rows;
    selectionChanged();
}

void Naive::Log::openDay(const std::string &key)
{
    if (!day.empty() && key == day)
        return;
    if (!day.empty())
        store[day] = records;
    foods.clear();
    records.clear();
    amounts.clear();
    total.fill(0.0F);
    selected.fill(0.0F);
    const std::vector<Record> stored = store.count(key) != 0 ? store[key] : std::vector<Record>();
    for (const Record &record : stored) {
        auto food = std::make_shared<Food>();
        food->name = record.name;
        food->amount = record.amount;
        food->unit = record.unit;
        food->unitindex = record.unitindex;
        append(food);
    }
    logReloaded();
    day = key;
    label = std::to_string(foods.size()) + (foods.size() == 1 ? " food" : " foods");
}

void Naive::Log::quitAndStart()
{
    const std::string last = day;
    store[day] = records;
    day.clear();
    selection.clear();
    clipboard.clear();
    openDay(last);
}
