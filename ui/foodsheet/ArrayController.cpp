// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/foodsheet/ArrayController.h"

namespace {

std::optional<Quantity> found(const QHash<QString, Quantity> &quantities, const QString &name)
{
    const auto place = quantities.constFind(name);
    return place != quantities.constEnd() ? std::optional(*place) : std::nullopt;
}

} // namespace

QStringList ArrayController::selectedObjects() const
{
    QStringList names = tobeadded + selection;
    names.removeDuplicates();
    return names;
}

std::optional<Quantity> ArrayController::quantityOf(const QString &name) const
{
    const std::optional<Quantity> selected = found(selectionquantities, name);
    return selected ? selected : found(tobeaddedquantities, name);
}

std::optional<Quantity> ArrayController::quantityToBeAdded(int index) const
{
    return found(tobeaddedquantities, tobeadded.value(index));
}

void ArrayController::addFoodToBeAdded(const QString &name, const std::optional<Quantity> &quantity)
{
    if (!tobeadded.contains(name))
        tobeadded.append(name);
    if (quantity)
        tobeaddedquantities.insert(name, *quantity);
}

void ArrayController::setQuantityToBeAdded(int index, const Quantity &quantity)
{
    if (index >= 0 && index < tobeadded.size())
        tobeaddedquantities.insert(tobeadded[index], quantity);
}

void ArrayController::removeFoodToBeAdded(int index)
{
    if (index >= 0 && index < tobeadded.size())
        tobeaddedquantities.remove(tobeadded.takeAt(index));
}

void ArrayController::setSelection(const QStringList &names, const QHash<QString, Quantity> &quantities)
{
    selection = names;
    selectionquantities = quantities;
}

void ArrayController::clearSelection()
{
    tobeadded.clear();
    tobeaddedquantities.clear();
    setSelection({});
}
