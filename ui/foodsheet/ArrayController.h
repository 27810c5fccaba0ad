// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

// What the add-food sheet offers and what has been chosen of it: the catalogue's names, the foods put on the list "To
// be added" one after the other, and those selected in the catalogue list now. It knows no widget, so that whoever adds
// the foods need not know one either; the sheet keeps it in step with what it shows.
class ArrayController final {
public:
    void setContent(const QStringList &names) { catalogue = names; }
    [[nodiscard]] const QStringList &content() const { return catalogue; }

    // The foods to be added in the order in which they were put there, then the selected ones in the order of the list;
    // each once.
    [[nodiscard]] QStringList selectedObjects() const;

    [[nodiscard]] const QStringList &foodsToBeAdded() const { return tobeadded; }
    // Does nothing when the food is there already.
    void addFoodToBeAdded(const QString &name);
    // Does nothing when there is no such index.
    void removeFoodToBeAdded(int index);

    void setSelection(const QStringList &names) { selection = names; }
    // Forgets what is to be added, too: nothing is chosen any more.
    void clearSelection();

private:
    QStringList catalogue;
    QStringList tobeadded;
    QStringList selection;
};
