// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "NaiveFood.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>

namespace {

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

// The weight of what was eaten.
float grams(const Naive::Food &food)
{
    if (!food.unit)
        return food.amount;
    const std::optional<float> weight = Naive::weightOf(food, food.unit);
    if (!weight)
        return 0.0F;
    return *weight * food.amount;
}

} // namespace

Naive::Record Naive::recordOf(const Food &food)
{
    return {food.name, food.amount, food.unit, food.unitindex};
}

Naive::FoodPointer Naive::foodOf(const Record &record)
{
    auto food = std::make_shared<Food>();
    food->name = record.name;
    food->amount = record.amount;
    food->unit = record.unit;
    food->unitindex = record.unitindex;
    return food;
}

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
        const std::size_t fraction = run(text, at + 1, digits);
        if (count + fraction > 0)
            at += 1 + fraction;
        count += fraction;
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

std::string Naive::numberText(float number, int decimals)
{
    if (std::isnan(number))
        return "nan";
    char text[512];
    std::snprintf(text, sizeof text, "%.*f", decimals, double(number));
    return text;
}

// Reads tag by tag; a file that does not end with the end of its food is broken, and what came before counts.
void Naive::load(Food &food, const std::string &folder, int moment)
{
    if (food.loaded || food.looked == moment || !food.name || food.name->empty())
        return;
    food.looked = moment;
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
            const std::string title = numberText(leadingNumber(attribute(tag, "amount").value_or("")), 0) + " "
                + attribute(tag, "name").value_or("measure");
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

// The first of all entries of that title, or nothing.
std::optional<float> Naive::weightOf(const Food &food, const Text &title)
{
    for (const auto &[known, weight] : food.weights)
        if (title && known == *title)
            return weight;
    return std::nullopt;
}

float Naive::amountOf(const Food &food, const std::string &nutrient)
{
    const auto text = food.texts.find(nutrient);
    if (text == food.texts.end())
        return 0.0F;
    const float hundredth = leadingNumber(text->second) / 100.0F;
    return hundredth * grams(food);
}
