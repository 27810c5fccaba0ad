// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/foodsheet/FoodListModel.h"

FoodListModel::FoodListModel(const QStringList &names, QObject *parent)
    : QAbstractListModel(parent)
    , foodnames(names)
    , search(names)
    , hits(search.search({}))
{
    search.prepare();
}

void FoodListModel::setOwnFoods(const std::vector<LoggedFood> &foods, int listed)
{
    own.clear();
    ownlisted.clear();
    lastquantities.clear();
    if (!foods.empty() && places.isEmpty()) {
        places.reserve(foodnames.size());
        for (int i = 0; i < foodnames.size(); ++i)
            places.insert(foodnames[i], i);
    }
    QHash<int, float> usefulness;
    for (const LoggedFood &food : foods) {
        const auto place = places.constFind(food.name);
        if (place == places.constEnd())
            continue; // of another catalogue: it cannot be chosen
        own.insert(*place, food);
        usefulness.insert(*place, food.usefulness);
        if (int(ownlisted.size()) < listed)
            ownlisted.push_back(*place);
    }
    search.setOwnFoods(usefulness);
}

void FoodListModel::setQuery(const QString &query)
{
    beginResetModel();
    const std::vector<int> &found = search.search(query);
    hits.clear();
    if (FoodSearch::isEmpty(query))
        hits = ownlisted;
    ownrows = int(hits.size());
    hits.insert(hits.end(), found.begin(), found.end());
    endResetModel();
}

void FoodListModel::setMarkedFoods(const QStringList &foodsinlog, const QStringList &foodstobeadded)
{
    inlog = {foodsinlog.begin(), foodsinlog.end()};
    tobeadded = {foodstobeadded.begin(), foodstobeadded.end()};
    if (!hits.empty())
        emit dataChanged(index(0), index(rowCount() - 1), {MarkRole, Qt::AccessibleDescriptionRole});
}

QString FoodListModel::nameAt(int row) const
{
    return foodnames[foodAt(row)];
}

std::optional<Quantity> FoodListModel::lastQuantity(int row) const
{
    const auto food = own.constFind(foodAt(row));
    if (food == own.constEnd())
        return std::nullopt;
    const auto known = lastquantities.constFind(food.key());
    if (known != lastquantities.constEnd())
        return *known;
    Composition composition;
    static_cast<void>(composition.read(food->name)); // what cannot be read has grams alone
    return *lastquantities.insert(food.key(), Quantity::logged(food->amount, food->unit, composition));
}

QString FoodListModel::lastTime(int row) const
{
    return own.value(foodAt(row)).when;
}

int FoodListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(hits.size());
}

QVariant FoodListModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return nameAt(index.row());
    case MatchedLettersRole:
        return QVariant::fromValue(search.matchedLetters(foodAt(index.row())));
    case MarkRole:
    case Qt::AccessibleDescriptionRole:
        return markAt(index.row());
    default:
        return {};
    }
}

QString FoodListModel::markAt(int row) const
{
    const QString name = nameAt(row);
    if (inlog.contains(name))
        return tr("in the log");
    if (tobeadded.contains(name))
        return tr("to be added");
    // Below its own rows the list says of each food what it says to everybody, and adds it like that.
    if (row >= ownrows && ownrows > 0)
        return {};
    const std::optional<Quantity> last = lastQuantity(row);
    return last ? tr("%1, %2", "a day and a quantity").arg(lastTime(row), last->text()) : lastTime(row);
}
