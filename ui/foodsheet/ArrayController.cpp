// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/foodsheet/ArrayController.h"

QStringList ArrayController::selectedObjects() const
{
    QStringList names = tobeadded + selection;
    names.removeDuplicates();
    return names;
}

void ArrayController::addFoodToBeAdded(const QString &name)
{
    if (!tobeadded.contains(name))
        tobeadded.append(name);
}

void ArrayController::removeFoodToBeAdded(int index)
{
    if (index >= 0 && index < tobeadded.size())
        tobeadded.removeAt(index);
}

void ArrayController::clearSelection()
{
    tobeadded.clear();
    selection.clear();
}
