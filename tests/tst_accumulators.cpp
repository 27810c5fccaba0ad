// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "support/Run.h"

#include <QLabel>
#include <QtTest>

namespace {

constexpr std::size_t energy = 0;
constexpr std::size_t protein = 4;

QString foodText(const char *name)
{
    return QString::fromLatin1(name);
}

} // namespace

// The running sums: what each step does to them, to the bit.
class AccumulatorsTest final : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        home = std::make_unique<Home>();
        // 100 g of each give amounts whose float sums depend on the order of adding.
        home->files.writeElements(
            foodText("A"), "<nutrient name='Energy' amount='0.1'/><nutrient name='Protein' amount='7'/>");
        home->files.writeElements(foodText("B"), "<nutrient name='Energy' amount='16777216'/>");
        home->files.writeElements(
            foodText("C"), "<nutrient name='Energy' amount='0.7'/><measure name='cup' amount='1' grams='50'/>");
        home->files.writeElements(foodText("D"), "<nutrient name='Energy' amount='1'/>");
        run = std::make_unique<Run>(*home);
        run->launch();
    }
    void cleanup()
    {
        run.reset();
        home.reset();
    }

    void theyStartEmpty()
    {
        for (std::size_t i = 0; i < 61; ++i) {
            QCOMPARE(bitsOf(total(i)), bitsOf(0.0F));
            QCOMPARE(bitsOf(selected(i)), bitsOf(0.0F));
            QVERIFY(column(i).empty());
        }
    }

    void anEntryIsAddedToEveryTotalAndColumn()
    {
        run->add({foodText("A"), foodText("D")});
        QCOMPARE(total(energy), amountOf(0.1F) + amountOf(1.0F));
        QCOMPARE(total(protein), amountOf(7.0F));
        QCOMPARE(column(energy), (std::vector<float>{amountOf(0.1F), amountOf(1.0F)}));
        QCOMPARE(column(protein), (std::vector<float>{amountOf(7.0F), 0.0F}));
        for (std::size_t i = 0; i < 61; ++i)
            QCOMPARE(column(i).size(), std::size_t(2));
    }

    void sumsAreFloatsInTheOrderOfAdding()
    {
        run->add({foodText("B"), foodText("D"), foodText("A")});
        const float big = amountOf(16777216.0F);
        QCOMPARE(bitsOf(total(energy)), bitsOf(big + 1.0F + amountOf(0.1F)));
        QVERIFY(bitsOf(big + 1.0F) == bitsOf(big)); // a wider sum would hold the 1
    }

    void addingWhileRowsAreSelectedLeavesTheSelectionsSums()
    {
        run->add({foodText("A"), foodText("C")});
        run->select({0});
        const float before = selected(energy);
        run->controller.addFoodPriv(std::make_shared<Food>(foodText("D")));
        QCOMPARE(bitsOf(selected(energy)), bitsOf(before));
        QCOMPARE(total(energy), amountOf(0.1F) + amountOf(0.7F) + amountOf(1.0F));
    }

    void selectingSumsTheStoredAmountsInAscendingOrder()
    {
        run->add({foodText("A"), foodText("B"), foodText("C"), foodText("D")});
        run->select({3, 0, 2});
        QCOMPARE(bitsOf(selected(energy)), bitsOf(0.0F + amountOf(0.1F) + amountOf(0.7F) + amountOf(1.0F)));
        QCOMPARE(bitsOf(selected(protein)), bitsOf(amountOf(7.0F)));
    }

    void selectingReadsTheColumnsAndAsksNoFood()
    {
        run->add({foodText("A"), foodText("C")});
        run->controller.foods[0]->setCuramount(5000.0F); // behind the log's back
        run->select({0});
        QCOMPARE(selected(energy), amountOf(0.1F));
    }

    void anEmptySelectionLeavesTheLastSums()
    {
        run->add({foodText("A"), foodText("C")});
        run->select({1});
        const float before = selected(energy);
        QVERIFY(before > 0.0F);
        run->controller.logtable->deselectAll();
        QCOMPARE(bitsOf(selected(energy)), bitsOf(before));
        QCOMPARE(run->nutrient(QStringLiteral("Amount"), 0).toString(), QStringLiteral("0 %")); // 0.8 of 2000
        run->select({0}); // summed anew from zero
        QCOMPARE(bitsOf(selected(energy)), bitsOf(amountOf(0.1F)));
    }

    void removingSubtractsTheStoredAmount()
    {
        run->add({foodText("A"), foodText("C")});
        const float before = total(energy);
        run->controller.foods[1]->setCuramount(5000.0F); // behind the log's back: not what is subtracted
        run->select({1});
        run->controller.removeSelected();
        QCOMPARE(bitsOf(total(energy)), bitsOf(before - amountOf(0.7F)));
        QCOMPARE(column(energy), std::vector<float>{amountOf(0.1F)});
        for (std::size_t i = 0; i < 61; ++i)
            QCOMPARE(bitsOf(selected(i)), bitsOf(0.0F));
    }

    void rowsAreSubtractedInAscendingOrder()
    {
        run->add({foodText("B"), foodText("A"), foodText("C"), foodText("D")});
        float expected = total(energy);
        expected = expected - amountOf(16777216.0F);
        expected = expected - amountOf(0.7F);
        expected = expected - amountOf(1.0F);
        run->select({3, 2, 0});
        run->controller.removeSelected();
        QCOMPARE(bitsOf(total(energy)), bitsOf(expected));
    }

    void removingEverythingCanLeaveAResidueUntilTheDayIsOpenedAgain()
    {
        run->add({foodText("D"), foodText("B")});
        run->select({0, 1});
        run->controller.removeSelected();
        QCOMPARE(run->controller.foods.size(), std::size_t(0));
        // The 1 was lost in 16777216, and is subtracted all the same.
        const float big = amountOf(16777216.0F);
        QCOMPARE(bitsOf(total(energy)), bitsOf(1.0F + big - 1.0F - big));
        QVERIFY(total(energy) < 0.0F);
        run->controller.nextDay();
        run->controller.previousDay();
        QCOMPARE(bitsOf(total(energy)), bitsOf(0.0F));
    }

    void aNegativeResidueReadsAsNegativeZero()
    {
        home->files.writeElements(foodText("E"), "<nutrient name='Energy' amount='0.2'/>");
        run->store.setObject(false, QStringLiteral("UseP"));
        run->add({foodText("A"), foodText("E"), foodText("D")});
        run->select({0, 1, 2});
        run->controller.removeSelected();
        const float residue
            = amountOf(0.1F) + amountOf(0.2F) + amountOf(1.0F) - amountOf(0.1F) - amountOf(0.2F) - amountOf(1.0F);
        QVERIFY(residue < 0.0F);
        QCOMPARE(bitsOf(total(energy)), bitsOf(residue));
        QCOMPARE(run->nutrient(QStringLiteral("Amount"), 0).toString(), QStringLiteral("-0.00 kcal"));
    }

    void openingADayAgainSumsItInLogOrder()
    {
        run->add({foodText("A"), foodText("B"), foodText("C"), foodText("D")});
        run->select({1});
        run->controller.removeSelected();
        const float after = total(energy);
        run->controller.nextDay();
        run->controller.previousDay();
        const float anew = 0.0F + amountOf(0.1F) + amountOf(0.7F) + amountOf(1.0F);
        QCOMPARE(bitsOf(total(energy)), bitsOf(anew));
        QVERIFY(bitsOf(after) != bitsOf(anew)); // the last bits did change
    }

    void anEditSubtractsWhatItComputesAfresh()
    {
        run->add({foodText("A"), foodText("C")});
        const float before = total(energy);
        run->controller.foods[1]->setCuramount(40.0F); // behind the log's back: what an edit subtracts
        run->edit(1, QStringLiteral("60"));
        QCOMPARE(bitsOf(total(energy)), bitsOf(before - 0.7F / 100.0F * 40.0F + 0.7F / 100.0F * 60.0F));
        QCOMPARE(bitsOf(column(energy)[1]), bitsOf(0.7F / 100.0F * 60.0F));
        QCOMPARE(bitsOf(column(energy)[0]), bitsOf(amountOf(0.1F)));
    }

    void everyColumnOfAnEditedRowHoldsTheNewAmount()
    {
        run->add({foodText("D"), foodText("A")});
        run->edit(1, QStringLiteral("200"));
        QCOMPARE(column(energy)[1], 0.1F / 100.0F * 200.0F);
        QCOMPARE(column(protein)[1], 14.0F);
        QCOMPARE(total(protein), amountOf(7.0F) - amountOf(7.0F) + 14.0F);
        for (std::size_t i = 0; i < 61; ++i) {
            QCOMPARE(column(i).size(), std::size_t(2));
            QCOMPARE(bitsOf(selected(i)), bitsOf(0.0F));
        }
    }

    void aFoodWithoutAFileContributesNothingAnywhere()
    {
        run->add({foodText("A"), foodText("no such food")});
        QCOMPARE(total(energy), amountOf(0.1F));
        QCOMPARE(column(energy)[1], 0.0F);
        // When its file turns up, an edit subtracts what the food answers by then.
        home->files.writeElements(foodText("no such food"), "<nutrient name='Energy' amount='10'/>");
        run->edit(1, QStringLiteral("50"));
        QCOMPARE(bitsOf(total(energy)), bitsOf(amountOf(0.1F) - 10.0F / 100.0F * 100.0F + 10.0F / 100.0F * 50.0F));
    }

    void aChangeOfDayClearsEverything()
    {
        run->add({foodText("A"), foodText("C")});
        run->select({0});
        run->controller.nextDay();
        for (std::size_t i = 0; i < 61; ++i) {
            QCOMPARE(bitsOf(total(i)), bitsOf(0.0F));
            QCOMPARE(bitsOf(selected(i)), bitsOf(0.0F));
            QVERIFY(column(i).empty());
        }
    }

    void theHandlerReadsTheLogWhicheverTableSentIt()
    {
        run->add({foodText("A"), foodText("C")});
        run->select({1});
        run->controller.nutrientsselected.fill(9.0F);
        run->controller.tableViewSelectionDidChange();
        QCOMPARE(selected(energy), amountOf(0.7F));
        QCOMPARE(run->controller.label->text(), QStringLiteral("1 selected food"));
    }

private:
    // What 100 g give of a nutrient with that amount in 100 g.
    static float amountOf(float per100) { return per100 / 100.0F * 100.0F; }
    float total(std::size_t i) { return run->controller.nutrientstotal[i]; }
    float selected(std::size_t i) { return run->controller.nutrientsselected[i]; }
    const std::vector<float> &column(std::size_t i) { return run->controller.nutrients[i]; }

    std::unique_ptr<Home> home;
    std::unique_ptr<Run> run;
};

QTEST_MAIN(AccumulatorsTest)
#include "tst_accumulators.moc"
