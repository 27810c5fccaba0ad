// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

// import-foods <folder of the release's tables> <food list> <output folder>
//
// Writes the food files, one for each food of the list, from the release's tables as published (unpacked). Nothing is
// written before everything has been read and found good, and the same tables and list give the same bytes. An output
// folder that holds anything but the list's files is refused: no stale file stays among the fresh ones, and nothing is
// removed that somebody may want.

#include "tools/FoodList.h"
#include "tools/Measures.h"
#include "tools/NutrientSources.h"
#include "tools/Refusal.h"
#include "tools/ReleaseTable.h"

#include <QDir>
#include <QFile>
#include <QSet>

#include <iostream>
#include <unordered_map>

namespace {

constexpr std::size_t foodNumberDigits = 5;
constexpr std::size_t nutrientNumberDigits = 3;

struct Food {
    Figures figures;
    MeasureRows measures;
};

// The foods of the list by their number; rows of others are checked and left.
using Foods = std::unordered_map<std::string, Food>;
using Sources = std::array<NutrientSource, NutrientCatalogue::nutrientCount>;

void checkNutrientDefinitions(const std::string &folder, const Sources &sources)
{
    ReleaseTable table(folder, "NUTR_DEF.txt", 6);
    std::map<std::string, std::string> wanted;
    for (const NutrientSource &source : sources) {
        for (const std::vector<std::string> &alternatives : source.members) {
            for (const std::string &number : alternatives)
                wanted[number] = source.unit;
        }
    }
    while (table.next()) {
        const std::string number = table.key(1, nutrientNumberDigits);
        const std::string unit = table.text(2);
        const auto found = wanted.find(number);
        if (found == wanted.end())
            continue;
        if (found->second != unit) {
            table.refuse(
                "nutrient " + number + " (" + table.text(4) + ") is in \"" + unit + "\", not \"" + found->second + '"');
        }
        wanted.erase(found);
    }
    if (!wanted.empty())
        table.refuse("the table ends without nutrient " + wanted.begin()->first);
}

Foods readFoods(const std::string &folder, const std::string &listpath, const std::vector<ListedFood> &list)
{
    ReleaseTable table(folder, "FOOD_DES.txt", 14);
    QSet<QByteArray> numbers;
    while (table.next()) {
        const std::string number = table.key(1, foodNumberDigits);
        if (table.text(3).empty())
            table.refuse("food " + number + " has no description");
        if (numbers.contains(QByteArray::fromStdString(number)))
            table.refuse("food " + number + " again");
        numbers.insert(QByteArray::fromStdString(number));
    }
    Foods foods;
    for (const ListedFood &listed : list) {
        if (!numbers.contains(QByteArray::fromStdString(listed.number)))
            throw Refusal(listpath, listed.line, "food " + listed.number + " is not in FOOD_DES.txt");
        foods.emplace(listed.number, Food());
    }
    return foods;
}

void readFigures(const std::string &folder, Foods &foods)
{
    ReleaseTable table(folder, "NUT_DATA.txt", 18);
    while (table.next()) {
        const std::string food = table.key(1, foodNumberDigits);
        const std::string nutrient = table.key(2, nutrientNumberDigits);
        const Figure figure{.text = table.number(3), .value = table.value(3)};
        const auto place = foods.find(food);
        if (place != foods.end() && !place->second.figures.emplace(nutrient, figure).second)
            table.refuse("nutrient " + nutrient + " of food " + food + " again");
    }
}

void readMeasures(const std::string &folder, Foods &foods)
{
    ReleaseTable table(folder, "WEIGHT.txt", 7);
    while (table.next()) {
        const std::string food = table.key(1, foodNumberDigits);
        const Decimal sequence = table.value(2);
        const Measure row{.name = table.text(4), .amount = table.number(3), .grams = table.number(5)};
        if (!table.value(3).isPositive())
            table.refuse("the amount of a measure of food " + food + " is not positive");
        const auto place = foods.find(food);
        if (place != foods.end() && !place->second.measures.emplace(sequence.millionths, row).second)
            table.refuse("measure " + sequence.text() + " of food " + food + " again");
    }
}

std::string escaped(const std::string &text)
{
    std::string result;
    for (const char c : text) {
        switch (c) {
        case '&':
            result += "&amp;";
            break;
        case '<':
            result += "&lt;";
            break;
        case '"':
            result += "&quot;";
            break;
        default:
            result += c;
        }
    }
    return result;
}

std::string foodFile(const ListedFood &listed, const Food &food, const Sources &sources)
{
    std::string content = "<food name=\"" + escaped(listed.name) + "\" source=\"USDA SR24 " + listed.number + "\">\n";
    for (const Measure &measure : foodFileMeasures(food.measures)) {
        content += "  <measure name=\"" + escaped(measure.name) + "\" amount=\"" + measure.amount + "\" grams=\""
            + measure.grams + "\"/>\n";
    }
    for (int i = 0; i < NutrientCatalogue::nutrientCount; ++i) {
        const std::string amount = sources.at(static_cast<std::size_t>(i)).amount(food.figures);
        if (!amount.empty()) {
            content += "  <nutrient name=\"" + escaped(NutrientCatalogue::names().at(i).toStdString()) + "\" amount=\""
                + amount + "\"/>\n";
        }
    }
    return content + "</food>\n";
}

void writeFile(const QString &path, const std::string &content)
{
    QFile file(path);
    const auto size = static_cast<qint64>(content.size());
    if (!file.open(QIODevice::WriteOnly) || file.write(content.data(), size) != size || !file.flush())
        throw Refusal(path.toStdString(), "cannot be written: " + file.errorString().toStdString());
}

// Makes the folder, or makes sure that it holds nothing but files that will be written.
void prepareFolder(const QDir &folder, const std::vector<ListedFood> &list)
{
    if (!folder.mkpath(QStringLiteral(".")))
        throw Refusal(folder.path().toStdString(), "cannot be made");
    QSet<QString> expected;
    for (const ListedFood &listed : list)
        expected.insert(QString::fromStdString(listed.name) + QStringLiteral(".xml"));
    for (const QString &name :
        folder.entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot)) {
        if (!expected.contains(name))
            throw Refusal(folder.filePath(name).toStdString(), "is no file of the list; remove it first");
    }
}

void importFoods(const std::string &tables, const std::string &listpath, const std::string &output)
{
    const Sources sources = nutrientSources();
    const std::vector<ListedFood> list = readFoodList(listpath);
    checkNutrientDefinitions(tables, sources);
    Foods foods = readFoods(tables, listpath, list);
    readFigures(tables, foods);
    readMeasures(tables, foods);
    for (const ListedFood &listed : list) {
        if (foods.at(listed.number).figures.empty())
            throw Refusal(listpath, listed.line, "food " + listed.number + " has no figures in NUT_DATA.txt");
    }

    const QDir folder(QFile::decodeName(output.c_str()));
    prepareFolder(folder, list);
    for (const ListedFood &listed : list) {
        const QString path = folder.filePath(QString::fromStdString(listed.name) + QStringLiteral(".xml"));
        writeFile(path, foodFile(listed, foods.at(listed.number), sources));
    }
    std::cout << list.size() << " food files written to " << output << '\n';
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 4) {
        std::cerr << "usage: import-foods <folder of tables> <food list> <output folder>\n";
        return 2;
    }
    try {
        importFoods(argv[1], argv[2], argv[3]);
    } catch (const Refusal &refusal) {
        std::cerr << refusal.what() << '\n';
        return 1;
    }
    return 0;
}
