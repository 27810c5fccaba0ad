// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "ui/foodsheet/Quantity.h"

#include <QHash>
#include <QStringList>

#include <optional>

// What the add-food sheet offers and what has been chosen of it: the catalogue's names, the foods put on the list "To
// be added" one after the other, and those selected in the catalogue list now. It knows no widget, so that whoever adds
// the foods need not know one either; the sheet keeps it in step with what it shows.
//
// A food may be chosen with a quantity. Whoever adds the foods enters those of the foods that the log did not have.
class ArrayController final {
public:
    void setContent(const QStringList &names) { catalogue = names; }
    [[nodiscard]] const QStringList &content() const { return catalogue; }

    // The foods to be added in the order in which they were put there, then the selected ones in the order of the list;
    // each once.
    [[nodiscard]] QStringList selectedObjects() const;
    // How much of a chosen food: as selected, else as put on the list; nothing where neither says anything.
    [[nodiscard]] std::optional<Quantity> quantityOf(const QString &name) const;

    [[nodiscard]] const QStringList &foodsToBeAdded() const { return tobeadded; }
    [[nodiscard]] std::optional<Quantity> quantityToBeAdded(int index) const;
    // A food that is there already stays where it is, and only takes the quantity, if there is one.
    void addFoodToBeAdded(const QString &name, const std::optional<Quantity> &quantity = {});
    // Both do nothing when there is no such index.
    void setQuantityToBeAdded(int index, const Quantity &quantity);
    void removeFoodToBeAdded(int index);

    void setSelection(const QStringList &names, const QHash<QString, Quantity> &quantities = {});
    // Forgets what is to be added, too: nothing is chosen any more.
    void clearSelection();

private:
    QStringList catalogue;
    QStringList tobeadded;
    QStringList selection;
    QHash<QString, Quantity> tobeaddedquantities;
    QHash<QString, Quantity> selectionquantities;
};
