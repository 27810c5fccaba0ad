// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "support/Run.h"

#include "model/FoodRecord.h"
#include "ui/table/MenuItemUnit.h"

#include <QLabel>
#include <QtTest>

#include <numeric>

namespace {

constexpr int allfoods = 7801;

} // namespace

// A day with every food of the catalogue in it, from the real food files.
class LargeDayTest final : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        home = std::make_unique<Home>();
        Bundle::mainBundle().setResourcePath(QStringLiteral(SOURCE_DIR "/resources"));
        run = std::make_unique<Run>(*home);
        run->show();
    }
    void cleanup()
    {
        run.reset();
        home.reset();
    }

    void everyFoodIsAddedSelectedCopiedPastedAndEdited()
    {
        TestedAppDelegate &controller = run->controller;
        run->add(controller.foodlist);
        QCOMPARE(controller.foods.size(), std::size_t(allfoods));
        QCOMPARE(controller.curdatefoods.size(), allfoods);
        QCOMPARE(controller.logtable->model()->rowCount(), allfoods);
        QCOMPARE(controller.label->text(), QStringLiteral("7801 foods"));
        compareTotalsWithColumns();

        QList<int> rows(allfoods);
        std::iota(rows.begin(), rows.end(), 0);
        run->select(rows);
        QCOMPARE(controller.label->text(), QStringLiteral("7801 selected foods"));
        // From zero and in log order, as the totals were: the same to the bit.
        compare(controller.nutrientsselected, controller.nutrientstotal);

        run->edit(7800, QStringLiteral("12.5"));
        QCOMPARE(controller.label->text(), QStringLiteral("7801 foods"));
        MenuItemUnit gram;
        gram.setTag(1000);
        gram.setTitle(QStringLiteral("g"));
        controller.updateUnit(gram);
        run->select(rows);
        controller.copy();
        QCOMPARE(controller.copyfoods.size(), std::size_t(allfoods));

        controller.nextDay();
        QCOMPARE(controller.foods.size(), std::size_t(0));
        controller.paste();
        QCOMPARE(run->names(), controller.foodlist);
        QCOMPARE(controller.foods.back()->curamount(), 12.5F);
        QCOMPARE(controller.foods, controller.copyfoods);
        compareTotalsWithColumns();

        controller.previousDay();
        QCOMPARE(run->names(), controller.foodlist);
        QCOMPARE(controller.foods.back()->curamount(), 12.5F);
        run->select(rows);
        controller.cut();
        QCOMPARE(controller.foods.size(), std::size_t(0));
        QCOMPARE(controller.logtable->model()->rowCount(), 0);
        QCOMPARE(controller.label->text(), QStringLiteral("0 foods"));
    }

    // Every other row goes: the rest keep their order, records and columns.
    void everyOtherFoodIsRemoved()
    {
        TestedAppDelegate &controller = run->controller;
        run->add(controller.foodlist);
        QList<int> rows;
        QStringList kept;
        for (int row = 0; row < allfoods; ++row) {
            if (row % 2 == 0)
                rows.append(row);
            else
                kept.append(controller.foodlist[row]);
        }
        run->select(rows);
        controller.removeSelected();
        QCOMPARE(run->names(), kept);
        for (std::size_t k = 0; k < controller.foods.size(); ++k) {
            const auto record = FoodRecord::unarchiveObjectWithData(controller.curdatefoods[qsizetype(k)]);
            QVERIFY(record);
            QCOMPARE(record->name(), controller.foods[k]->name());
            for (int i = 0; i < 61; ++i)
                QCOMPARE(
                    bitsOf(controller.nutrients[size_t(i)][k]), bitsOf(controller.foods[k]->getAmountOfNutrient(i)));
        }
    }

private:
    using Sums = std::array<float, 61>;

    static void compare(const Sums &actual, const Sums &expected)
    {
        for (std::size_t i = 0; i < actual.size(); ++i)
            QCOMPARE(bitsOf(actual[i]), bitsOf(expected[i]));
    }

    void compareTotalsWithColumns()
    {
        Sums sums{};
        for (std::size_t i = 0; i < sums.size(); ++i) {
            QCOMPARE(run->controller.nutrients[i].size(), std::size_t(allfoods));
            for (const float amount : run->controller.nutrients[i])
                sums[i] = sums[i] + amount;
        }
        QVERIFY(sums[0] > 1.0e6F);
        compare(run->controller.nutrientstotal, sums);
    }

    std::unique_ptr<Home> home;
    std::unique_ptr<Run> run;
};

QTEST_MAIN(LargeDayTest)
#include "tst_largeday.moc"
