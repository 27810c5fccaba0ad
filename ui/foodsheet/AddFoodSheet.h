// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "ui/foodsheet/ArrayController.h"
#include "ui/foodsheet/FoodListModel.h"

#include <QDialog>
#include <QHash>

#include <memory>
#include <optional>
#include <utility>
#include <vector>

class QKeyEvent;
class QLabel;
namespace Ui {
class AddFoodSheet;
}

// The sheet in which a person finds foods and adds them to the day's log, made for hands that stay on the keyboard: the
// search field keeps the focus while the arrow and page keys move in the list, and whatever else is typed in a list
// goes to the field. Enter adds what is chosen, Ctrl+Enter keeps it on the list "To be added" and clears the field for
// the next food, so that a whole meal goes in at once.
//
// What a row or the preview says of a food is what gets added: the quantity in the query, else the one that a row of
// the person's own foods tells, else what was entered in the preview, which comes before both. A food of which nothing
// is said is added as 100 g. Alt+Enter adds as much as was logged last.
//
// However it is closed, the sheet sends addSelectedFoods() and waits for its owner to close it by done(): Cancel, Esc
// and the title bar's button only empty the selection first. While something is typed, Esc clears it and nothing else.
// What was typed and chosen is forgotten when the sheet opens, not when it closes, for the owner asks what was chosen
// after closing it. The list "To be added" is there again after a cancelling: it took time to make.
//
// The controls are made when the sheet first opens: a program that is only looked at never needs them, and until then
// the sheet is a dialog with nothing in it.
class AddFoodSheet final : public QDialog {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(AddFoodSheet)

public:
    explicit AddFoodSheet(QWidget *parent = nullptr);
    ~AddFoodSheet() override;

    // What its own keys do, for the list of all shortcuts: each key with its command.
    [[nodiscard]] static QList<std::pair<QString, QString>> keys();

    // The foods offered and those chosen; owned by the sheet. Its content must be set before the sheet first opens.
    [[nodiscard]] ArrayController *foodlistcontroller() { return &controller; }

    // The foods of the day's log, which are marked: adding them again changes nothing. To be set before it opens.
    void setFoodsInLog(const QStringList &names) { foodsinlog = names; }

    // The foods that the person logs, the most useful first; so many of them, at most, come before all foods when
    // nothing is typed. To be set before it opens.
    void setOwnFoods(std::vector<LoggedFood> logged, int listed);

    // What the shares of an allowance are of, by nutrient. To be set before it opens.
    void setAllowances(const FoodListModel::Allowances &rdas) { allowances = rdas; }
    // Orders the open sheet by a nutrient, as its own box does. Opening forgets the order.
    void orderByNutrient(int nutrient);

    // How many foods wait on the list "To be added" of the closed sheet.
    [[nodiscard]] qsizetype countOfFoodsLeft() const { return qsizetype(foodsleft.size()); }

    void open() override;
    void accept() override; // sends addSelectedFoods()
    void reject() override; // chooses nothing and sends it

signals:
    // The owner adds what foodlistcontroller()->selectedObjects() says and closes the sheet by done(0).
    void addSelectedFoods();
    // It is being painted that the food files are read, which comes next.
    void readingSaid();
    // While the list is being painted for the first time: to be heard afterwards.
    void firstPainted();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void makeControls();
    void search(const QString &query);
    void showAnswer();
    void fillOrderBoxes();
    void orderChanged();
    void readFoods();
    void selectionChanged();
    void keepFoods();
    void removeFood();
    void showFoodsToBeAdded();
    void showCurrentFood();
    void showFoodToBeAdded();
    void showQuantityToBeAdded(int row);
    void sayChoice();
    void showChoice();
    [[nodiscard]] QList<int> selectedRows() const; // ascending
    // How much of a row's food would be added, as the preview shows it; nothing: 100 g.
    [[nodiscard]] std::optional<Quantity> quantityAt(int row) const;
    [[nodiscard]] QString noteAt(int row) const;
    void quantityChosen(const Quantity &quantity);
    void takeLastQuantities();
    bool fieldKeyPressed(QKeyEvent *event);
    bool amountKeyPressed(QKeyEvent *event);
    bool listKeyPressed(QObject *list, QKeyEvent *event);

    ArrayController controller;
    QStringList foodsinlog;
    // To be added, when the sheet was cancelled; back on the list when it opens.
    struct FoodLeft {
        QString name;
        std::optional<Quantity> quantity;
    };
    std::vector<FoodLeft> foodsleft;
    FoodListModel::Allowances allowances{};
    bool readswhenpainted = false; // the food files, once the window says so
    bool preparesearch = true; // when it is painted for the first time
    std::vector<LoggedFood> ownfoods;
    int ownfoodslisted = 0;
    QHash<int, Quantity> entered; // in the preview, by row, until the list is another
    bool tobeaddedshown = false; // in the preview: a food of the list "To be added"
    std::unique_ptr<Ui::AddFoodSheet> ui;
    FoodListModel *foods = nullptr;
    QLabel *nohitslabel = nullptr; // in the place of the list's rows
};
