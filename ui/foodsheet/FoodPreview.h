// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "ui/foodsheet/Quantity.h"

#include <QWidget>

#include <array>
#include <memory>
#include <optional>

class QLabel;
class QLineEdit;
class TextField;
namespace Ui {
class FoodPreview;
}

// What would be added of a food, beside the list of the add-food sheet: the amount and the unit, to be changed there,
// and the main figures of it. The food's file is read in place, in some 20 microseconds: no thread, no cache.
class FoodPreview final : public QWidget {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FoodPreview)

public:
    explicit FoodPreview(QWidget *parent = nullptr);
    ~FoodPreview() override;

    // Without a quantity it shows 100 g. The note says what else there is to know. An empty name shows that no food is
    // chosen.
    void showFood(const QString &name, const std::optional<Quantity> &quantity = {}, const QString &note = {});

    [[nodiscard]] TextField *amountField() const;
    // The list of units.
    [[nodiscard]] QWidget *measures() const;

    // What is shown, as a sentence for who does not see it.
    [[nodiscard]] QString description() const;

    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    // The person has typed an amount or chosen a unit.
    void quantityChosen(const Quantity &quantity);

private:
    struct Figure {
        int nutrient;
        QLabel *label;
        QLabel *figure;
        int decimals;
    };

    [[nodiscard]] std::array<Figure, 5> figures() const;
    void listUnits();
    void unitChosen(int unit);
    void setAmount(const QString &amount); // as if nobody had typed it
    void choose(); // what the field and the list say
    void showFigures();

    std::unique_ptr<Ui::FoodPreview> ui;
    QString shown;
    Composition composition;
    std::optional<Quantity> quantity;
    bool isclickedinto = false; // by the press whose release is to come
};
