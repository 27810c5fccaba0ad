// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "support/Run.h"

#include "platform/LocalDay.h"

#include "model/FoodRecord.h"
#include "ui/foodsheet/AddFoodSheet.h"
#include "ui/foodsheet/ArrayController.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QtTest>

namespace {

const QString A = QStringLiteral("A");
const QString B = QStringLiteral("B");
const QString C = QStringLiteral("C");
const QString D = QStringLiteral("D");
const QString E = QStringLiteral("E");
const QString del = QStringLiteral("del");
const QString cup = QStringLiteral("1 cup");

} // namespace

// Adding, removing, cutting, copying and pasting.
class LogEditingTest final : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        home = std::make_unique<Home>();
        for (const QString &name : {A, B, C, D, E})
            home->files.writeElements(name,
                "<measure name='spoon' amount='1' grams='15'/><measure name='cup' amount='1' grams='240'/>"
                "<nutrient name='Energy' amount='50'/>");
        run = std::make_unique<Run>(*home);
        run->launch();
    }
    void cleanup()
    {
        run.reset();
        home.reset();
    }

    void addingAFoodThatIsThereChangesNothing()
    {
        run->add({A, B});
        const auto sums = run->controller.nutrientstotal;
        run->controller.label->setText(QStringLiteral("as it was"));
        run->controller.addFoodPriv(std::make_shared<Food>(A));
        QCOMPARE(run->names(), QStringList({A, B}));
        QCOMPARE(run->controller.nutrientstotal, sums);
        QCOMPARE(run->controller.label->text(), QStringLiteral("as it was"));
    }

    void namesAreComparedExactly()
    {
        run->add({A, QStringLiteral("a"), QStringLiteral("A ")});
        QCOMPARE(run->controller.foods.size(), std::size_t(3));
    }

    void anAbsentNameEqualsNoNameNotEvenAnotherAbsentOne()
    {
        run->controller.addFoodPriv(std::make_shared<Food>(std::nullopt));
        run->controller.addFoodPriv(std::make_shared<Food>(std::nullopt));
        run->controller.addFoodPriv(std::make_shared<Food>(QString()));
        run->controller.addFoodPriv(std::make_shared<Food>(QString()));
        QCOMPARE(run->controller.foods.size(), std::size_t(3));
    }

    void theVeryObjectIsAppendedWithItsRecord()
    {
        const auto food = std::make_shared<Food>(A);
        food->setCuramount(7.0F);
        run->controller.addFoodPriv(food);
        QCOMPARE(run->controller.foods[0], food);
        QCOMPARE(run->controller.curdatefoods, QList<QByteArray>{FoodRecord::archivedDataWithRootObject(*food)});
    }

    void addingSetsTheLabelByTheCountRule()
    {
        run->add({A});
        QCOMPARE(labelText(), QStringLiteral("1 food"));
        run->add({B});
        QCOMPARE(labelText(), QStringLiteral("2 foods"));
        run->select({0});
        QCOMPARE(labelText(), QStringLiteral("1 selected food"));
        run->add({C});
        QCOMPARE(labelText(), QStringLiteral("1 selected food"));
        run->select({0, 2});
        QCOMPARE(labelText(), QStringLiteral("2 selected foods"));
        run->controller.logtable->deselectAll();
        QCOMPARE(labelText(), QStringLiteral("3 foods"));
    }

    void theSheetAddsWhatIsSelectedInItsOrderAndDropsWhatIsThere()
    {
        const QString apple = QStringLiteral("Apples, raw, with skin");
        const QString milk = QStringLiteral("Milk, whole, 3.25% milkfat, with added vitamin D");
        const QString zwieback = QStringLiteral("Zwieback");
        const QString poi = QStringLiteral("Poi");
        run->add({milk, poi});
        run->show();
        run->controller.addFood();
        QVERIFY(run->controller.addview->isVisible());
        auto *list = run->controller.foodlistcontroller;
        for (const QString &name : {zwieback, milk, apple, poi})
            list->addFoodToBeAdded(name);
        run->controller.addSelectedFoods();
        QVERIFY(!run->controller.addview->isVisible());
        QCOMPARE(run->names(), QStringList({milk, poi, zwieback, apple}));
        QCOMPARE(run->controller.foods[3]->curamount(), 100.0F);
        QCOMPARE(run->controller.foods[3]->curunit(), QStringLiteral("g"));
        QCOMPARE(run->controller.logtable->model()->rowCount(), 4);
    }

    void theSheetWithNothingSelectedJustCloses()
    {
        run->show();
        run->add({A});
        run->controller.addFood();
        run->controller.addSelectedFoods();
        QVERIFY(!run->controller.addview->isVisible());
        QCOMPARE(run->names(), QStringList{A});
    }

    void removingRowsOneAndThreeKeepsTheOthersInOrder()
    {
        run->add({A, B, C, D, E});
        run->edit(4, QStringLiteral("5"));
        const QList<QByteArray> records = run->controller.curdatefoods;
        run->select({1, 3});
        run->controller.removeSelected();
        QCOMPARE(run->names(), QStringList({A, C, E}));
        QCOMPARE(run->controller.curdatefoods, QList<QByteArray>({records[0], records[2], records[4]}));
        for (const auto &column : run->controller.nutrients)
            QCOMPARE(column.size(), std::size_t(3));
        QCOMPARE(run->controller.nutrients[0][2], 50.0F / 100.0F * 5.0F);
        QCOMPARE(run->controller.logtable->selectedRowIndexes(), QList<int>());
        QCOMPARE(run->controller.logtable->model()->rowCount(), 3);
        QCOMPARE(labelText(), QStringLiteral("3 foods"));
    }

    void removingAllLeavesZeroSelectionSumsAndTheUnselectedLabel()
    {
        run->add({A, B, C});
        run->select({0, 1, 2});
        QVERIFY(run->controller.nutrientsselected[0] > 0.0F);
        run->controller.removeSelected();
        QCOMPARE(run->controller.foods.size(), std::size_t(0));
        for (const float sum : run->controller.nutrientsselected)
            QCOMPARE(bitsOf(sum), bitsOf(0.0F));
        QCOMPARE(labelText(), QStringLiteral("0 foods"));
    }

    void removingWithNothingSelectedChangesNothing()
    {
        run->add({A, B});
        run->controller.foods[0]->setName(del);
        run->controller.removeSelected();
        QCOMPARE(run->names(), QStringList({del, B}));
    }

    void theSweepGoesByName()
    {
        run->add({A, B, C});
        run->controller.foods[0]->setName(del);
        const float before = run->controller.nutrientstotal[0];
        run->select({2});
        run->controller.removeSelected();
        QCOMPARE(run->names(), QStringList{B});
        // Only the selected row was subtracted: the other's amounts stay in the totals until the day is opened again.
        QCOMPARE(run->controller.nutrientstotal[0], before - 50.0F);
        run->controller.nextDay();
        run->controller.previousDay();
        QCOMPARE(run->controller.nutrientstotal[0], 50.0F);
    }

    void copyWithNothingSelectedKeepsTheClipboard()
    {
        run->add({A, B});
        run->select({1});
        run->controller.copy();
        run->controller.logtable->deselectAll();
        run->controller.copy();
        QCOMPARE(clipboard(), QStringList{B});
    }

    void cutWithNothingSelectedDoesNothing()
    {
        run->add({A, B});
        run->select({1});
        run->controller.copy();
        run->controller.logtable->deselectAll();
        run->controller.cut();
        QCOMPARE(clipboard(), QStringList{B});
        QCOMPARE(run->names(), QStringList({A, B}));
    }

    void copyTakesNameAmountAndUnitTitleButNotTheIndex()
    {
        run->add({A});
        run->controller.foods[0]->setUnit(cup, 2, false);
        run->controller.foods[0]->setCuramount(3.0F);
        run->select({0});
        run->controller.copy();
        const auto food = run->controller.copyfoods.at(0);
        QVERIFY(food != run->controller.foods[0]);
        QCOMPARE(food->name(), A);
        QCOMPARE(food->curamount(), 3.0F);
        QCOMPARE(food->curunit(), cup);
        QCOMPARE(food->curunitidx(), 0);
    }

    void copyReplacesTheClipboardInAscendingOrder()
    {
        run->add({A, B, C, D});
        run->select({0});
        run->controller.copy();
        run->select({3, 1});
        run->controller.copy();
        QCOMPARE(clipboard(), QStringList({B, D}));
    }

    void copyThenPasteInOneDayAddsNothing()
    {
        run->add({A, B});
        run->select({0, 1});
        run->controller.copy();
        run->controller.paste();
        QCOMPARE(run->names(), QStringList({A, B}));
    }

    void cutThenPasteMovesToTheEnd()
    {
        run->add({A, B, C});
        run->select({0, 1});
        run->controller.cut();
        QCOMPARE(run->names(), QStringList{C});
        QCOMPARE(clipboard(), QStringList({A, B})); // the names from before the removal
        run->controller.paste();
        QCOMPARE(run->names(), QStringList({C, A, B}));
    }

    void cutAndPastedInAnotherDayKeepsAmountAndUnitTitle()
    {
        run->add({A, B});
        run->controller.foods[1]->setUnit(cup, 2, false);
        run->controller.foods[1]->setCuramount(2.5F);
        run->select({0, 1});
        run->controller.cut();
        run->controller.nextDay();
        QCOMPARE(run->names(), QStringList());
        run->controller.paste();
        QCOMPARE(run->entries(), QStringList({QStringLiteral("A 100 g 0"), QStringLiteral("B 2.5 1 cup 0")}));
        QCOMPARE(run->controller.logtable->model()->rowCount(), 2);
    }

    void pastingTwiceAddsOnce()
    {
        run->add({A});
        run->select({0});
        run->controller.cut();
        run->controller.paste();
        run->controller.paste();
        QCOMPARE(run->names(), QStringList{A});
    }

    void aPastedEntryAndItsClipboardFoodAreOne()
    {
        run->add({A});
        run->select({0});
        run->controller.cut();
        run->controller.paste();
        QCOMPARE(run->controller.foods[0], run->controller.copyfoods[0]);
        run->edit(0, QStringLiteral("321"));
        run->controller.nextDay();
        run->controller.paste();
        QCOMPARE(run->entries(), QStringList{QStringLiteral("A 321 g 0")});
    }

    void theClipboardSurvivesAChangeOfDay()
    {
        run->add({A, B});
        run->select({1});
        run->controller.copy();
        run->controller.nextDay();
        run->controller.nextDay();
        QCOMPARE(clipboard(), QStringList{B});
    }

    void removingAPastedEntryMarksItsClipboardFoodAndThatComesBackAsDel()
    {
        run->add({A, B});
        run->select({0});
        run->controller.cut();
        run->controller.paste();
        QCOMPARE(run->names(), QStringList({B, A}));
        run->select({1});
        run->controller.removeSelected();
        QCOMPARE(clipboard(), QStringList{del});
        run->controller.paste();
        QCOMPARE(run->names(), QStringList({B, del}));
        const float before = run->controller.nutrientstotal[0];
        run->controller.paste(); // by now there is one of that name
        QCOMPARE(run->names(), QStringList({B, del}));

        // The next removal of any row takes it along, without subtracting its amounts.
        run->select({0});
        run->controller.removeSelected();
        QCOMPARE(run->names(), QStringList());
        QCOMPARE(run->controller.nutrientstotal[0], before - 50.0F);
    }

    void twoDelsInTheClipboardAreOneInTheLog()
    {
        run->add({A, B});
        run->select({0, 1});
        run->controller.cut();
        run->controller.paste();
        run->select({0, 1});
        run->controller.removeSelected();
        QCOMPARE(clipboard(), QStringList({del, del}));
        run->controller.paste();
        QCOMPARE(run->names(), QStringList{del});
    }

    void anEmptyClipboardAddsNothing()
    {
        run->add({A});
        run->controller.paste();
        QCOMPARE(run->names(), QStringList{A});
    }

    void theSystemClipboardIsNotTouched()
    {
        QGuiApplication::clipboard()->setText(QStringLiteral("mine"));
        run->add({A, B});
        run->select({0});
        run->controller.copy();
        run->controller.cut();
        run->controller.paste();
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("mine"));
    }

    void noCommandWritesTheStore()
    {
        run->add({A, B});
        run->select({0});
        run->controller.cut();
        run->controller.paste();
        run->edit(0, QStringLiteral("5"));
        QVERIFY(!run->store.objectForKey(LocalDay::key(home->now)).isValid());
    }

private:
    QString labelText() { return run->controller.label->text(); }
    QStringList clipboard()
    {
        QStringList names;
        for (const auto &food : run->controller.copyfoods)
            names.append(food->name().value_or(QString()));
        return names;
    }

    std::unique_ptr<Home> home;
    std::unique_ptr<Run> run;
};

QTEST_MAIN(LogEditingTest)
#include "tst_logediting.moc"
