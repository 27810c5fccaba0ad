// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "bynutrient/FoodFigures.h"
#include "bynutrient/Portion.h"
#include "bynutrient/Standing.h"

#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

// Which foods have much of a nutrient, as a knowledgeable friend would say it: first what one has eaten, then the
// catalogue, everyday foods before the others, by the amount in what a person eats of them. A plain sort by 100 g
// answers with dried thyme and baking powder, one by 100 kcal with coffee.
//
// The first question reads every food file, which takes some tenths of a second: ask isPrepared() first and say so.
// Food indexes are those of the names given.
class FoodsByNutrient final {
public:
    enum class Basis { Portion, HundredGrams, HundredKilocalories };

    // One's own last quantity of a food; none where its file no longer has the unit: then the portion is everybody's.
    struct Eaten {
        int food = 0;
        std::optional<Portion> portion;
    };

    struct Row {
        int food = 0;
        Portion portion; // what the row says and adds; 100 g in the other bases
        float amount = 0.0F; // of the nutrient in the basis, in the nutrient's unit

        bool operator==(const Row &) const = default;
    };

    struct List {
        std::vector<Row> eaten; // under a heading of its own
        std::vector<Row> catalogue; // the others
        int unknown = 0; // how many foods are left out because nothing is known of them
    };

    explicit FoodsByNutrient(const QStringList &foodnames);

    [[nodiscard]] bool isPrepared() const { return figures != nullptr; }
    void prepare();

    // All foods of which a figure is known. Of the first 60 of the catalogue at most three are the same food, and none
    // is a dish that is there already; of what stands on a shelf (see Standing.h) at most two are of a kind and ten of
    // a shelf. The further ones come after them. In 100 kcal a food without energy counts as unknown.
    [[nodiscard]] List list(int nutrient, Basis basis, const std::vector<Eaten> &eaten = {});

    // Those of the list that were found, in the order of the list but without those limits: who looks for fish
    // wants the fish.
    [[nodiscard]] List listOf(
        const std::vector<int> &found, int nutrient, Basis basis, const std::vector<Eaten> &eaten = {});

    static constexpr int firstRows = 60;

private:
    struct Ranked {
        int food;
        int group; // the lesser comes first
        float amount;
    };

    void rank(int nutrient, Basis basis);
    [[nodiscard]] std::optional<Ranked> ranked(int food, int nutrient, Basis basis) const;
    [[nodiscard]] Row rowOf(const Ranked &food, Basis basis) const;
    [[nodiscard]] std::vector<Ranked> spread(const std::vector<Ranked> &foods) const;
    [[nodiscard]] std::vector<Row> eatenRows(int nutrient, Basis basis, const std::vector<Eaten> &eaten) const;

    QStringList names;
    std::unique_ptr<const FoodFigures> figures;
    std::unique_ptr<const Standing> standing;
    std::vector<Ranked> order; // of the last question
    int orderednutrient = -1;
    Basis orderedbasis = Basis::Portion;
};
