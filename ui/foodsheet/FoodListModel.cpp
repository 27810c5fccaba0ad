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

void FoodListModel::setQuery(const QString &query)
{
    beginResetModel();
    hits = search.search(query);
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
    return foodnames[hits[static_cast<std::size_t>(row)]];
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
        return QVariant::fromValue(search.matchedLetters(hits[static_cast<std::size_t>(index.row())]));
    case MarkRole:
    case Qt::AccessibleDescriptionRole:
        return markOf(nameAt(index.row()));
    default:
        return {};
    }
}

QString FoodListModel::markOf(const QString &name) const
{
    if (inlog.contains(name))
        return tr("in the log");
    return tobeadded.contains(name) ? tr("to be added") : QString();
}
