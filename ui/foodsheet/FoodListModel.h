// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "bynutrient/FoodsByNutrient.h"
#include "search/FoodSearch.h"
#include "ui/foodsheet/Quantity.h"

#include <QAbstractListModel>
#include <QHash>
#include <QSet>
#include <QStringList>

#include <array>
#include <optional>
#include <vector>

// A food that the person has logged, and how it was logged last.
struct LoggedFood {
    QString name;
    QString when; // "yesterday"
    float amount = 0.0F;
    std::optional<QString> unit; // absent: grams
    float usefulness = 0.0F; // the more, the likelier it is wanted again
};

// The foods that the query in the add-food sheet finds, in the order of the search. Without a query, the foods that the
// person logs come first and then all of them. The model is reset at each key: the view keeps nothing of 7,801 rows of
// one height that a reset would cost, while a filter between the whole list and the view takes ten times as long to
// tell the view which rows went.
//
// By a nutrient, the list is ordered by how much of it is in what the rows say; see FoodsByNutrient. Foods of which
// that is not known are left out.
class FoodListModel final : public QAbstractListModel {
    Q_OBJECT

public:
    enum Role {
        MatchedLettersRole = Qt::UserRole, // std::vector<FoodSearch::Letters>
        MarkRole, // at the right: why adding this food would change nothing, or how it was logged last, or nothing
        FiguresRole // QStringList: the amount of the nutrient and the share of the allowance; empty without an order
    };

    using Allowances = std::array<float, NutrientCatalogue::nutrientCount>; // 0 where there is none
    struct Order {
        int nutrient = 0;
        FoodsByNutrient::Basis basis = FoodsByNutrient::Basis::Portion;
    };

    explicit FoodListModel(const QStringList &names, QObject *parent = nullptr);

    // The most useful first. So many of them, at most, are listed before all foods when there is no query; with 0 they
    // come no earlier in an answer either. Counts from the next query on.
    void setOwnFoods(const std::vector<LoggedFood> &foods, int listed);
    // The next query is answered by the nutrient; by the likeliest first without an order. While the food files have
    // not been read that answer is empty.
    void setOrder(const std::optional<Order> &by, const Allowances &rdas);
    [[nodiscard]] const std::optional<Order> &order() const { return ordered; }
    [[nodiscard]] bool hasReadFoods() const { return bynutrient.isPrepared(); }
    void readFoods() { bynutrient.prepare(); }
    // How many foods of the answer are left out because the nutrient is not known of them.
    [[nodiscard]] int unknownCount() const { return unknown; }

    // What the first query would do otherwise.
    void prepareSearch() { search.prepare(); }
    void setQuery(const QString &query);
    // The foods in the day's log and those that are to be added to it are marked.
    void setMarkedFoods(const QStringList &inlog, const QStringList &tobeadded);

    [[nodiscard]] QString nameAt(int row) const;
    // How many foods the query finds, and how many rows before them list the person's own foods.
    [[nodiscard]] int foodCount() const { return ordered ? rowCount() : rowCount() - ownrows; }
    [[nodiscard]] int ownRowCount() const { return ownrows; }
    // What the query asks for, if it says how much.
    [[nodiscard]] const std::optional<FoodQuantity> &askedQuantity() const { return search.quantity(); }
    // How much of the row's food was logged last, and when; nothing when it was not, or not in a unit that it has.
    [[nodiscard]] std::optional<Quantity> lastQuantity(int row) const;
    [[nodiscard]] QString lastTime(int row) const;
    // How much of its food the query asks for, or else the row itself says; nothing where nothing fits or is said.
    [[nodiscard]] std::optional<Quantity> saidQuantity(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

private:
    [[nodiscard]] int foodAt(int row) const { return hits[static_cast<std::size_t>(row)]; }
    [[nodiscard]] QString markAt(int row) const;
    [[nodiscard]] QString saidAt(int row) const;
    // What the query asks for of the row's food, and what is added then weighs.
    struct Asked {
        std::optional<Quantity> quantity; // none when no unit of the food fits
        float grams = 100.0F;
    };
    [[nodiscard]] Asked askedAt(int row) const;
    [[nodiscard]] QStringList figuresAt(int row) const;
    [[nodiscard]] std::optional<Quantity> lastQuantityOf(int food) const;
    [[nodiscard]] const std::vector<FoodsByNutrient::Eaten> &eatenFoods();
    void fillByNutrient(const std::vector<int> *found);

    QStringList foodnames;
    FoodSearch search;
    std::vector<int> hits;
    int ownrows = 0;
    QSet<QString> inlog;
    QSet<QString> tobeadded;

    QHash<QString, int> places; // of the names; made when somebody has own foods
    QHash<int, LoggedFood> own; // by index
    std::vector<int> ownlisted;

    FoodsByNutrient bynutrient;
    std::optional<std::vector<FoodsByNutrient::Eaten>> eaten;
    std::optional<Order> ordered;
    Allowances allowances{};
    std::vector<FoodsByNutrient::Row> nutrientrows; // as the hits, when they are ordered by a nutrient
    int unknown = 0;
    mutable QHash<int, Asked> askedquantities; // by food, until the next query
    mutable QHash<int, std::optional<Quantity>> lastquantities; // a food's file is read when its row is first seen
};
