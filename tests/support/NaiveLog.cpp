// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "NaiveLog.h"

#include <chrono>
#include <cstdio>
#include <utility>

Naive::Log::Log(std::string foodfolder, std::vector<Nutrient> catalogue)
    : folder(std::move(foodfolder))
    , nutrients(std::move(catalogue))
{ }

std::string Naive::Log::dayKey(Seconds date)
{
    const std::chrono::sys_seconds instant{std::chrono::seconds(date)};
    const std::chrono::year_month_day day{std::chrono::floor<std::chrono::days>(instant)};
    char text[32];
    std::snprintf(text, sizeof text, "%04d_%02u_%02u", int(day.year()), unsigned(day.month()), unsigned(day.day()));
    return text;
}

void Naive::Log::start(Seconds now)
{
    selection.clear();
    clipboard.clear();
    if (storedrdas)
        rdas = *storedrdas;
    else
        setDefaultRDAs();
    curdate.reset();
    setDate(rememberdate && lastdate ? *lastdate : now);
    rdainput = numberText(rdas[0], 2);
    rdamenu = 0;
}

void Naive::Log::quit()
{
    storedrdas = rdas;
    lastdate = curdate;
    store[dayKey(*curdate)] = records;
}

void Naive::Log::setDate(Seconds date)
{
    nutrientsreloaded = true;
    if (curdate && dayKey(*curdate) == dayKey(date))
        return;
    if (curdate)
        store[dayKey(*curdate)] = records;
    picker = date;
    foods.clear();
    records.clear();
    amounts.clear();
    total.fill(0.0F);
    selected.fill(0.0F);
    const std::vector<Record> stored = store.count(dayKey(date)) != 0 ? store[dayKey(date)] : std::vector<Record>();
    for (const Record &record : stored)
        append(foodOf(record));
    logReloaded();
    nutrientsreloaded = true;
    curdate = date;
    entryCount();
}

// It keeps the time of day; the date that it has already sends nothing.
void Naive::Log::chooseDate(int daysahead)
{
    if (daysahead == 0)
        return;
    picker += daysahead * secondsaday;
    updateDate();
}

float Naive::Log::amount(Food &food, std::size_t nutrient)
{
    load(food, folder, moment);
    return amountOf(food, nutrients[nutrient].name);
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
        column[i] = amount(*food, i);
        total[i] = total[i] + column[i];
    }
    amounts.push_back(column);
    if (selection.empty())
        entryCount();
    else
        label = std::to_string(selection.size()) + (selection.size() == 1 ? " selected food" : " selected foods");
}

void Naive::Log::entryCount()
{
    label = std::to_string(foods.size()) + (foods.size() == 1 ? " food" : " foods");
}

void Naive::Log::selectionChanged()
{
    nutrientsreloaded = true;
    if (selection.empty()) {
        entryCount();
        return;
    }
    for (std::size_t i = 0; i < nutrientcount; ++i) {
        selected[i] = 0.0F;
        for (const std::size_t row : selection)
            selected[i] = selected[i] + amounts[row][i];
    }
    label = std::to_string(selection.size()) + (selection.size() == 1 ? " selected food" : " selected foods");
}

void Naive::Log::deselect()
{
    select({});
}

void Naive::Log::select(const std::vector<std::size_t> &rows)
{
    if (rows == selection)
        return;
    selection = rows;
    selectionChanged();
}

// Rows that are no more leave the selection.
void Naive::Log::logReloaded()
{
    logwasreloaded = true;
    std::vector<std::size_t> kept;
    for (const std::size_t row : selection)
        if (row < foods.size())
            kept.push_back(row);
    select(kept);
}

void Naive::Log::add(const std::vector<FoodPointer> &added)
{
    for (const FoodPointer &food : added)
        append(food);
    logReloaded();
    nutrientsreloaded = true;
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
    nutrientsreloaded = true;
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
    add(clipboard);
}

void Naive::Log::subtractAfresh(std::size_t row)
{
    for (std::size_t i = 0; i < nutrientcount; ++i) {
        selected[i] = 0.0F;
        total[i] = total[i] - amount(*foods[row], i);
    }
}

void Naive::Log::addAgain(std::size_t row)
{
    for (std::size_t i = 0; i < nutrientcount; ++i) {
        amounts[row][i] = amount(*foods[row], i);
        total[i] = total[i] + amounts[row][i];
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

void Naive::Log::changeUnit(std::size_t row, const std::string &title, std::int32_t index)
{
    subtractAfresh(row);
    Food &food = *foods[row];
    const std::optional<float> weight = weightOf(food, title);
    if (weight) {
        const float former = weightOf(food, food.unit).value_or(1.0F);
        food.unit = title;
        if (recalculateamount) {
            const float product = food.amount * former;
            food.amount = product / *weight;
        }
        food.unitindex = index;
    }
    records[row] = recordOf(food);
    deselect();
    addAgain(row);
    logReloaded();
    nutrientsreloaded = true;
}

void Naive::Log::setDefaultRDAs()
{
    for (std::size_t i = 0; i < nutrientcount; ++i)
        rdas[i] = static_cast<float>(nutrients[i].defaultrda);
}

void Naive::Log::RDAtick()
{
    const std::size_t chosen = rdamenu < 0 ? 0 : static_cast<std::size_t>(rdamenu);
    rdainput = numberText(rdas[chosen], 2);
    rdalabel = nutrients[chosen].unit;
}

void Naive::Log::setRDA()
{
    const float value = leadingNumber(rdainput);
    rdainput = numberText(value, 2);
    rdas[static_cast<std::size_t>(rdamenu)] = value;
    nutrientsreloaded = true;
}

void Naive::Log::RDAreset()
{
    setDefaultRDAs();
    RDAtick();
}

// The sheet, once hidden, shows what is set and not what was typed, and asks for fresh figures.
void Naive::Log::hidePrefs()
{
    RDAtick();
    updateNutrients();
}

std::vector<std::string> Naive::Log::unitTitles(std::size_t row)
{
    load(*foods[row], folder, moment);
    std::vector<std::string> titles;
    for (const auto &[title, weight] : foods[row]->weights)
        titles.push_back(title);
    return titles;
}

std::size_t Naive::Log::shownUnit(std::size_t row)
{
    const std::vector<std::string> titles = unitTitles(row);
    std::size_t shown = 0;
    for (std::size_t i = 0; i < titles.size(); ++i)
        if (titles[i] == foods[row]->unit)
            shown = i;
    return shown;
}

float Naive::Log::displayed(std::size_t nutrient) const
{
    return selection.empty() ? total[nutrient] : selected[nutrient];
}

float Naive::Log::rdaRatio(std::size_t nutrient) const
{
    if (rdas[nutrient] > 0.0F)
        return displayed(nutrient) / rdas[nutrient];
    return 0.0F;
}

std::string Naive::Log::nutrientText(std::size_t nutrient) const
{
    if (!usep)
        return numberText(displayed(nutrient), 2) + " " + nutrients[nutrient].unit;
    const float percent = rdaRatio(nutrient) * 100.0F;
    return numberText(percent, 0) + " %";
}

void Naive::Log::look()
{
    if (std::exchange(logwasreloaded, false)) {
        shownlog.clear();
        for (const FoodPointer &food : foods)
            shownlog.push_back({food->name.value_or(""), numberText(food->amount, 2),
                unitTitles(shownlog.size())[shownUnit(shownlog.size())], numberText(amount(*food, 0), 0)});
    }
    if (std::exchange(nutrientsreloaded, false))
        for (std::size_t i = 0; i < nutrientcount; ++i) {
            shownnutrients[i] = nutrientText(i);
            shownratios[i] = rdaRatio(i);
        }
}
