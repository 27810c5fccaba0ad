// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

#include <array>
#include <memory>

class QLabel;
namespace Ui {
class FoodPreview;
}

// What is in a food, beside the list of the add-food sheet: the main figures of 100 g, and what its measures weigh. The
// food's file is read in place, in some 20 microseconds: no thread, no cache.
class FoodPreview final : public QWidget {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FoodPreview)

public:
    explicit FoodPreview(QWidget *parent = nullptr);
    ~FoodPreview() override;

    // An empty name shows that no food is chosen.
    void showFood(const QString &name);

    // The list of measures.
    [[nodiscard]] QWidget *measures() const;

    // What is shown, as a sentence for who does not see it.
    [[nodiscard]] QString description() const;

private:
    struct Figure {
        const char *nutrient;
        QLabel *label;
        QLabel *figure;
        int decimals;
    };

    [[nodiscard]] std::array<Figure, 5> figures() const;

    std::unique_ptr<Ui::FoodPreview> ui;
    QString shown;
};
