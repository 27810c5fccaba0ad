// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "tools/NutrientSources.h"

#include <QtGlobal>

#include <string_view>
#include <utility>

namespace {

// A nutrient that is one figure of the release, in the catalogue's own unit.
constexpr std::pair<std::string_view, std::string_view> plainSources[] = {
    {"Energy", "208"},
    {"Carbs", "205"},
    {"Sugars", "269"},
    {"Fiber", "291"},
    {"Protein", "203"},
    {"Fat", "204"},
    {"Alcohol", "221"},
    {"Caffeine", "262"},
    {"Water", "255"},
    {"Ash", "207"},
    {"Calcium", "301"},
    {"Copper", "312"},
    {"Iron", "303"},
    {"Magnesium", "304"},
    {"Manganese", "315"},
    {"Phosphorus", "305"},
    {"Potassium", "306"},
    {"Selenium", "317"},
    {"Sodium", "307"},
    {"Zinc", "309"},
    {"Vitamin A", "318"},
    {"Folate", "417"},
    {"B1 (Thiamine)", "404"},
    {"B2 (Riboflavin)", "405"},
    {"B3 (Niacin)", "406"},
    {"B5 (Pantothenic Acid)", "410"},
    {"B6 (Pyridoxine)", "415"},
    {"B12 (Cyanocobalamin)", "418"},
    {"Vitamin C", "401"},
    {"Vitamin D", "324"},
    {"Vitamin E", "323"},
    {"Vitamin K", "430"},
    {"Choline", "421"},
    {"Saturated", "606"},
    {"Monounsaturated", "645"},
    {"Polyunsaturated", "646"},
    {"Cholesterol", "601"},
    {"Phytosterol", "636"},
    {"ALA", "513"},
    {"ARG", "511"},
    {"ASP", "514"},
    {"CYS", "507"},
    {"GLU", "515"},
    {"GLY", "516"},
    {"HIS", "512"},
    {"ILE", "503"},
    {"LEU", "504"},
    {"LYS", "505"},
    {"MET", "506"},
    {"PHE", "508"},
    {"PRO", "517"},
    {"SER", "518"},
    {"THR", "502"},
    {"TRP", "501"},
    {"TYR", "509"},
    {"VAL", "510"},
};

const std::string microgram = "\u00b5g";

NutrientSource vitaminA(const char *number, std::string_view microgramsPerIU)
{
    return {.members = {{number}}, .unit = microgram, .perIU = Decimal::fromText(microgramsPerIU)};
}

} // namespace

std::string NutrientSource::amount(const Figures &figures) const
{
    Decimal sum;
    const Figure *last = nullptr;
    for (const std::vector<std::string> &alternatives : members) {
        for (const std::string &number : alternatives) {
            if (const auto found = figures.find(number); found != figures.end()) {
                last = &found->second;
                sum += last->value;
                break;
            }
        }
    }
    if (last == nullptr)
        return {};
    if (perIU)
        return sum.dividedBy(*perIU, 1);
    return members.size() == 1 ? last->text : sum.rounded(3);
}

std::array<NutrientSource, NutrientCatalogue::nutrientCount> nutrientSources()
{
    std::array<NutrientSource, NutrientCatalogue::nutrientCount> sources;
    const auto source = [&sources](std::string_view name) -> NutrientSource & {
        const int index = NutrientCatalogue::indexOfNutrient(name);
        Q_ASSERT(index >= 0 && sources.at(static_cast<std::size_t>(index)).members.empty());
        return sources.at(static_cast<std::size_t>(index));
    };
    for (const auto &[name, number] : plainSources) {
        const QString &unit = NutrientCatalogue::units().at(NutrientCatalogue::indexOfNutrient(name));
        source(name) = {.members = {{std::string(number)}}, .unit = unit.toStdString()};
    }
    source("Retinol") = vitaminA("319", "0.3");
    source("Alpha-carotene") = vitaminA("322", "1.2");
    source("Beta-carotene") = vitaminA("321", "0.6");
    source("Omega-3") = {.members = {{"851", "619"}, {"627"}, {"852"}, {"629"}, {"631"}, {"621"}}, .unit = "g"};
    source("Omega-6") = {.members = {{"675", "618"}, {"685"}, {"672"}, {"853"}, {"855", "620"}, {"858"}}, .unit = "g"};
    for ([[maybe_unused]] const NutrientSource &one : sources)
        Q_ASSERT(!one.members.empty());
    return sources;
}
