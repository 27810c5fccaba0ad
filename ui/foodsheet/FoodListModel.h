// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "search/FoodSearch.h"

#include <QAbstractListModel>
#include <QSet>
#include <QStringList>

#include <vector>

// The foods that the query in the add-food sheet finds, in the order of the search. The model is reset at each key: the
// view keeps nothing of 7,801 rows of one height that a reset would cost, while a filter between the whole list and the
// view takes ten times as long to tell the view which rows went.
class FoodListModel final : public QAbstractListModel {
    Q_OBJECT

public:
    enum Role {
        MatchedLettersRole = Qt::UserRole, // std::vector<FoodSearch::Letters>
        MarkRole // why adding this food would change nothing: a short text, or none
    };

    explicit FoodListModel(const QStringList &names, QObject *parent = nullptr);

    void setQuery(const QString &query);
    // The foods in the day's log and those that are to be added to it are marked.
    void setMarkedFoods(const QStringList &inlog, const QStringList &tobeadded);

    [[nodiscard]] QString nameAt(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

private:
    [[nodiscard]] QString markOf(const QString &name) const;

    QStringList foodnames;
    FoodSearch search;
    std::vector<int> hits;
    QSet<QString> inlog;
    QSet<QString> tobeadded;
};
