// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "search/FoodSearch.h"
#include "ui/foodsheet/Quantity.h"

#include <QAbstractListModel>
#include <QHash>
#include <QSet>
#include <QStringList>

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
class FoodListModel final : public QAbstractListModel {
    Q_OBJECT

public:
    enum Role {
        MatchedLettersRole = Qt::UserRole, // std::vector<FoodSearch::Letters>
        MarkRole // at the right: why adding this food would change nothing, or how it was logged last, or nothing
    };

    explicit FoodListModel(const QStringList &names, QObject *parent = nullptr);

    // The most useful first. So many of them, at most, are listed before all foods when there is no query. Counts from
    // the next query on.
    void setOwnFoods(const std::vector<LoggedFood> &foods, int listed);
    void setQuery(const QString &query);
    // The foods in the day's log and those that are to be added to it are marked.
    void setMarkedFoods(const QStringList &inlog, const QStringList &tobeadded);

    [[nodiscard]] QString nameAt(int row) const;
    // How many foods the query finds, and how many rows before them list the person's own foods.
    [[nodiscard]] int foodCount() const { return rowCount() - ownrows; }
    [[nodiscard]] int ownRowCount() const { return ownrows; }
    // What the query asks for, if it says how much.
    [[nodiscard]] const std::optional<FoodQuantity> &askedQuantity() const { return search.quantity(); }
    // How much of the row's food was logged last, and when; nothing when it was not, or not in a unit that it has.
    [[nodiscard]] std::optional<Quantity> lastQuantity(int row) const;
    [[nodiscard]] QString lastTime(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

private:
    [[nodiscard]] int foodAt(int row) const { return hits[static_cast<std::size_t>(row)]; }
    [[nodiscard]] QString markAt(int row) const;

    QStringList foodnames;
    FoodSearch search;
    std::vector<int> hits;
    int ownrows = 0;
    QSet<QString> inlog;
    QSet<QString> tobeadded;

    QHash<QString, int> places; // of the names; made when somebody has own foods
    QHash<int, LoggedFood> own; // by index
    std::vector<int> ownlisted;
    mutable QHash<int, std::optional<Quantity>> lastquantities; // a food's file is read when its row is first seen
};
