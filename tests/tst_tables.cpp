// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "support/Run.h"

#include "ui/table/MenuItemUnit.h"
#include "ui/table/PopUpButtonCell.h"
#include "ui/table/TextFieldCellRDA.h"

#include <QLabel>
#include <QtTest>

#include <limits>

namespace {

const QString A = QStringLiteral("A");
const QString name = QStringLiteral("Name");
const QString amount = QStringLiteral("Amount");
const QString unit = QStringLiteral("Unit");
const QString energycolumn = QStringLiteral("Energy");
const QString usep = QStringLiteral("UseP");

} // namespace

// What the log table and the nutrient table show of the day.
class TablesTest final : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        home = std::make_unique<Home>();
        home->files.writeElements(A,
            "<measure name='cup' amount='1' grams='240'/><measure name='slice' amount='2' grams='30'/>"
            "<nutrient name='Energy' amount='50'/><nutrient name='Vitamin C' amount='30'/>"
            "<nutrient name='Protein' amount='2'/>");
        home->files.writeElements(QStringLiteral("B"), "<nutrient name='Vitamin C' amount='90'/>");
        home->files.writeElements(QStringLiteral("C"), "<nutrient name='Vitamin C' amount='15'/>");
        home->files.writeElements(QStringLiteral("D"), "<nutrient name='Vitamin C' amount='15'/>");
        home->files.writeElements(QStringLiteral("E"), "<nutrient name='Vitamin C' amount='-50'/>");
        run = std::make_unique<Run>(*home);
        run->launch();
    }
    void cleanup()
    {
        run.reset();
        home.reset();
    }

    void anEmptyLogHasNoRows()
    {
        QCOMPARE(rows(run->controller.logtable), 0);
        run->interface->show();
        QVERIFY(QTest::qWaitForWindowExposed(run->interface->mainWindow()));
        QCOMPARE(run->controller.logtable->model()->rowCount(), 0);
    }

    void theNutrientTableAlwaysHas61RowsAndOtherTablesNone()
    {
        QCOMPARE(rows(run->controller.nutrienttable), 61);
        QCOMPARE(rows(nullptr), 0);
        QCOMPARE(run->controller.objectValueForTableColumn(nullptr, name, 0), QVariant(QString()));
        QCOMPARE(run->nutrient(QStringLiteral("name"), 0).toString(), QString());
    }

    void anEntryIsShownColumnByColumn()
    {
        run->add({A});
        QCOMPARE(run->logCell(name, 0).toString(), A);
        QCOMPARE(run->logCell(amount, 0).toString(), QStringLiteral("100.00"));
        QCOMPARE(run->logCell(unit, 0).toInt(), 0);
        QCOMPARE(run->logCell(energycolumn, 0).typeId(), int(QMetaType::Float));
        QCOMPARE(run->logCell(energycolumn, 0).toFloat(), 50.0F);
        // Every column that is none of the three shows energy.
        QCOMPARE(run->logCell(QStringLiteral("name"), 0).toFloat(), 50.0F);
        QCOMPARE(run->logCell(QString(), 0).toFloat(), 50.0F);
    }

    void amountsHaveTwoDecimalsAndNoGrouping_data()
    {
        QTest::addColumn<float>("value");
        QTest::addColumn<QString>("text");
        QTest::newRow("zero") << 0.0F << QStringLiteral("0.00");
        QTest::newRow("a half") << 0.5F << QStringLiteral("0.50");
        QTest::newRow("a thousand") << 1234.5F << QStringLiteral("1234.50");
        QTest::newRow("negative") << -3.0F << QStringLiteral("-3.00");
        QTest::newRow("infinite") << std::numeric_limits<float>::infinity() << QStringLiteral("inf");
        QTest::newRow("no number") << std::numeric_limits<float>::quiet_NaN() << QStringLiteral("nan");
    }

    void amountsHaveTwoDecimalsAndNoGrouping()
    {
        QFETCH(float, value);
        run->add({A});
        run->controller.foods[0]->setCuramount(value);
        QTEST(run->logCell(amount, 0).toString(), "text");
    }

    void theEnergyColumnShowsWholeKilocalories()
    {
        run->add({A});
        run->edit(0, QStringLiteral("33.3"));
        TableCell *cell = run->controller.logtable->cellForColumn(energycolumn);
        cell->setObjectValue(run->logCell(energycolumn, 0));
        QCOMPARE(cell->stringValue(), QStringLiteral("17"));
        run->add({QStringLiteral("no such food")});
        cell->setObjectValue(run->logCell(energycolumn, 1));
        QCOMPARE(cell->stringValue(), QStringLiteral("0"));
    }

    void theUnitMenuIsRebuiltForTheRow()
    {
        run->add({QStringLiteral("B"), A});
        PopUpButtonCell &cell = unitCell(1);
        QCOMPARE(cell.items().size(), 3);
        const QStringList titles = {QStringLiteral("g"), QStringLiteral("1 cup"), QStringLiteral("2 slice")};
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(cell.items()[i].title(), titles[i]);
            QCOMPARE(cell.items()[i].idx(), i);
            QCOMPARE(cell.items()[i].tag(), 1);
        }
        QCOMPARE(cell.indexOfSelectedItem(), 0);
        QCOMPARE(unitCell(0).items().size(), 1); // the other row's items are gone
    }

    void theUnitShownFollowsTheTitleAndNotTheIndex()
    {
        run->add({A});
        run->controller.foods[0]->setCurunit(QStringLiteral("2 slice"));
        run->controller.foods[0]->setCurunitidx(1);
        QCOMPARE(run->logCell(unit, 0).toInt(), 1);
        QCOMPARE(unitCell(0).stringValue(), QStringLiteral("2 slice"));
        QCOMPARE(unitCell(0).indexOfSelectedItem(), 2);
    }

    void theUnitShownIsComparedExactly()
    {
        home->files.writeElements(
            A, "<measure name='cup' amount='1' grams='240'/><measure name='Cup' amount='1' grams='300'/>");
        run->add({A});
        run->controller.foods[0]->setCurunit(QStringLiteral("1 cup"));
        QCOMPARE(unitCell(0).indexOfSelectedItem(), 1);
    }

    void anUnknownOrAbsentUnitSelectsTheFirst()
    {
        run->add({A});
        run->controller.foods[0]->setCurunit(QStringLiteral("1 barrel"));
        run->controller.foods[0]->setCurunitidx(2);
        QCOMPARE(unitCell(0).indexOfSelectedItem(), 0);
        run->controller.foods[0]->setCurunit(std::nullopt);
        QCOMPARE(unitCell(0).indexOfSelectedItem(), 0);
    }

    void aFoodWithoutUnitsHasGramsAlone()
    {
        run->add({QStringLiteral("no such food")});
        run->controller.foods[0]->setCurunitidx(5);
        PopUpButtonCell &cell = unitCell(0);
        QCOMPARE(cell.items().size(), 1);
        QCOMPARE(cell.items()[0].title(), QStringLiteral("g"));
        QCOMPARE(cell.items()[0].idx(), 0);
        QCOMPARE(cell.indexOfSelectedItem(), 0);
    }

    void choosingAnItemChangesTheUnit()
    {
        run->add({A});
        const MenuItemUnit item = unitCell(0).items()[1];
        item.action(item);
        QCOMPARE(run->entries(), QStringList{QStringLiteral("A 100 1 cup 1")});
    }

    void otherColumnsAreLeftAsTheyAre()
    {
        run->add({A});
        PopUpButtonCell cell;
        run->controller.willDisplayCell(run->controller.logtable, cell, name, 0);
        run->controller.willDisplayCell(nullptr, cell, unit, 0);
        QVERIFY(cell.items().isEmpty());
        TextFieldCellRDA bar;
        bar.setPercent(7.0F);
        run->controller.willDisplayCell(run->controller.nutrienttable, bar, name, 0);
        QCOMPARE(bar.percent(), 7.0F);
    }

    void onlyTheLogsRowsCanBeSelected()
    {
        const QList<int> proposed = {0, 2};
        AppDelegate &controller = run->controller;
        QCOMPARE(controller.selectionIndexesForProposedSelection(run->controller.logtable, proposed), proposed);
        QCOMPARE(
            controller.selectionIndexesForProposedSelection(run->controller.nutrienttable, proposed), std::nullopt);
        QCOMPARE(controller.selectionIndexesForProposedSelection(nullptr, proposed), std::nullopt);
    }

    void clickingARowOfTheNutrientsSelectsNothing()
    {
        run->interface->show();
        QVERIFY(QTest::qWaitForWindowExposed(run->interface->mainWindow()));
        TableView *table = run->controller.nutrienttable;
        QTest::mouseClick(
            table->viewport(), Qt::LeftButton, {}, table->visualRect(table->model()->index(2, 0)).center());
        QCOMPARE(table->selectedRowIndexes(), QList<int>());
    }

    void nutrientNamesHaveThreeBlanksInFront()
    {
        for (int i = 0; i < 61; ++i)
            QCOMPARE(run->nutrient(name, i).toString(), QStringLiteral("   ") + NutrientCatalogue::names()[i]);
        QCOMPARE(run->nutrient(name, 0).toString(), QStringLiteral("   Energy"));
        QCOMPARE(run->nutrient(name, 60).toString(), QStringLiteral("   VAL"));
    }

    void amountsAreShownWithTheirUnit()
    {
        run->store.setObject(false, usep);
        run->controller.nutrientstotal[0] = 1850.5F;
        QCOMPARE(run->nutrient(amount, 0).toString(), QStringLiteral("1850.50 kcal"));
        QCOMPARE(run->nutrient(amount, 1).toString(), QStringLiteral("0.00 g"));
        QCOMPARE(run->nutrient(amount, 17).toString(), QStringLiteral("0.00 \u00b5g"));
        QCOMPARE(run->nutrient(amount, 20).toString(), QStringLiteral("0.00 IU"));
    }

    void percentagesAreOfTheRDA()
    {
        run->controller.nutrientstotal[31] = 30.0F;
        QCOMPARE(run->nutrient(amount, 31).toString(), QStringLiteral("50 %"));
        run->controller.nutrientstotal[31] = 90.0F;
        QCOMPARE(run->nutrient(amount, 31).toString(), QStringLiteral("150 %"));
        QCOMPARE(bar(31).percent(), 1.5F);
        run->controller.nutrientstotal[31] = 60'000'000.0F; // however much it is
        QCOMPARE(run->nutrient(amount, 31).toString(), QStringLiteral("100000000 %"));
        QCOMPARE(bar(31).percent(), 1'000'000.0F);
    }

    void aPercentageIsMultipliedInFloat()
    {
        run->controller.rdas[0] = 1.0F;
        run->controller.nutrientstotal[0] = 0.015F;
        // In float 1.5 exactly, which rounds to the even 2; in double it would be below.
        QCOMPARE(run->nutrient(amount, 0).toString(), QStringLiteral("2 %"));
    }

    void withoutAnRDAThereIsNoPercentageAndNoBar_data()
    {
        QTest::addColumn<float>("rda");
        QTest::newRow("zero") << 0.0F;
        QTest::newRow("negative") << -5.0F;
        QTest::newRow("no number") << std::numeric_limits<float>::quiet_NaN();
    }

    void withoutAnRDAThereIsNoPercentageAndNoBar()
    {
        QFETCH(float, rda);
        run->controller.rdas[4] = rda;
        run->controller.nutrientstotal[4] = 77.0F;
        QCOMPARE(run->nutrient(amount, 4).toString(), QStringLiteral("0 %"));
        QCOMPARE(bitsOf(bar(4).percent()), bitsOf(0.0F));
        QVERIFY(!bar(4).drawsBackground());
    }

    void the31NutrientsWithoutADefaultShowZeroWhateverWasEaten()
    {
        int without = 0;
        run->controller.nutrientstotal.fill(1000.0F);
        for (int i = 0; i < 61; ++i) {
            if (NutrientCatalogue::defaultRDAs()[static_cast<std::size_t>(i)] != 0)
                continue;
            ++without;
            QCOMPARE(run->nutrient(amount, i).toString(), QStringLiteral("0 %"));
            QVERIFY(!bar(i).drawsBackground());
        }
        QCOMPARE(without, 31);
    }

    void theBarIsPreparedWhetherAmountsOrPercentagesAreShown()
    {
        run->controller.nutrientstotal[0] = 500.0F;
        for (const bool percentages : {true, false}) {
            run->store.setObject(percentages, usep);
            QCOMPARE(bar(0).percent(), 0.25F);
            QVERIFY(bar(0).drawsBackground());
            QCOMPARE(bar(0).backgroundColor().alpha(), 0);
        }
        run->controller.nutrientstotal[0] = -500.0F;
        QCOMPARE(bar(0).percent(), -0.25F);
        QVERIFY(bar(0).drawsBackground());
    }

    void theCellIsSharedAndPreparedAnewForEachRow()
    {
        run->controller.nutrientstotal[0] = 500.0F;
        auto *cell = static_cast<TextFieldCellRDA *>(run->controller.nutrienttable->cellForColumn(amount));
        run->controller.willDisplayCell(run->controller.nutrienttable, *cell, amount, 0);
        QVERIFY(cell->drawsBackground());
        run->controller.willDisplayCell(run->controller.nutrienttable, *cell, amount, 6);
        QCOMPARE(cell->percent(), 0.0F);
        QVERIFY(!cell->drawsBackground());
    }

    void selectingSwitchesToTheSelectionsSumsAndBack()
    {
        run->store.setObject(false, usep);
        run->add({A, QStringLiteral("B")});
        QCOMPARE(run->nutrient(amount, 31).toString(), QStringLiteral("120.00 mg"));
        run->select({1});
        QCOMPARE(run->nutrient(amount, 31).toString(), QStringLiteral("90.00 mg"));
        QCOMPARE(run->nutrient(amount, 0).toString(), QStringLiteral("0.00 kcal"));
        QCOMPARE(bar(31).percent(), 1.5F);
        run->controller.logtable->deselectAll();
        QCOMPARE(run->nutrient(amount, 31).toString(), QStringLiteral("120.00 mg"));
    }

    void aNutrientTellsItsSumAndWhatGivesMostOfIt()
    {
        run->add({A, QStringLiteral("B"), QStringLiteral("C"), QStringLiteral("D"), QStringLiteral("E")});
        QCOMPARE(
            sentence(31), QStringLiteral("Vitamin C, 100.00 mg, 167 % of the RDA (60.00 mg)\nB 90 %\nA 30 %\nC 15 %"));
        run->select({0, 3, 4});
        QCOMPARE(sentence(31), QStringLiteral("Vitamin C, -5.00 mg, -8 % of the RDA (60.00 mg)"));
        run->select({2, 3});
        QCOMPARE(sentence(31), QStringLiteral("Vitamin C, 30.00 mg, 50 % of the RDA (60.00 mg)\nC 50 %\nD 50 %"));
    }

    void aNutrientWithoutAnAllowanceTellsWhyAndHowToSetOne()
    {
        run->add({A});
        QCOMPARE(run->nutrient(amount, 31).toString(), QStringLiteral("50 %"));
        run->controller.rdas[31] = 0.0F;
        QCOMPARE(run->nutrient(amount, 31).toString(), QStringLiteral("0 %"));
        QCOMPARE(
            sentence(31), QStringLiteral("Vitamin C, no allowance set: 30.00 mg. Set one in the preferences\nA 100 %"));
    }

    void aNutrientTellsHowManyFoodsHaveNoFigure()
    {
        run->add({A, QStringLiteral("none such"), QStringLiteral("none other")});
        const auto unknown = [this] { return sentence(31).section(u'\n', -1); };
        QCOMPARE(unknown(), QStringLiteral("no figure for 2 of 3 foods"));
        run->select({0, 2});
        QCOMPARE(unknown(), QStringLiteral("no figure for 1 of 2 foods"));
        run->select({1});
        QCOMPARE(unknown(), QStringLiteral("no figure for 1 of 1 food"));
        run->select({0});
        QCOMPARE(unknown(), QStringLiteral("A 100 %"));
    }

    void anAminoAcidTellsItsNameInFull()
    {
        QCOMPARE(run->nutrient(name, 43).toString(), QStringLiteral("   ALA"));
        QCOMPARE(sentence(43), QStringLiteral("Alanine, no allowance set: 0.00 g. Set one in the preferences"));
    }

    void aFoodTellsItsWholeName()
    {
        run->add({A});
        QCOMPARE(run->controller.toolTipForCell(run->controller.logtable, name, 0)(), A);
        QVERIFY(!run->controller.toolTipForCell(run->controller.logtable, amount, 0));
    }

    void whatACellShowsAndSaysIsOfOneMoment()
    {
        run->controller.rdas[0] = 10.0F;
        run->add({A});
        run->interface->show();
        QVERIFY(QTest::qWaitForWindowExposed(run->interface->mainWindow()));
        TableView *nutrients = run->controller.nutrienttable;
        TableView *log = run->controller.logtable;
        nutrients->reloadData();
        const QImage bars = nutrients->viewport()->grab().toImage();
        const QImage entries = log->viewport()->grab().toImage();
        run->controller.RDAreset(); // without a reload
        run->controller.foods[0]->setCurunit(QStringLiteral("1 cup"));
        QCOMPARE(nutrients->viewport()->grab().toImage(), bars);
        QCOMPARE(log->viewport()->grab().toImage(), entries);
        const QModelIndex energy = nutrients->model()->index(0, 1);
        QCOMPARE(energy.data().toString(), QStringLiteral("500 %"));
        for (const int role : {int(Qt::ToolTipRole), int(Qt::AccessibleDescriptionRole)})
            QVERIFY(energy.data(role).toString().startsWith(
                QStringLiteral("Energy, 50.00 kcal, 500 % of the RDA (10.00 ")));
        QCOMPARE(log->model()->index(0, 2).data().toString(), QStringLiteral("g"));
        nutrients->reloadData();
        log->reloadData();
        QVERIFY(nutrients->viewport()->grab().toImage() != bars);
        QCOMPARE(energy.data().toString(), QStringLiteral("2 %"));
        QVERIFY(energy.data(Qt::ToolTipRole).toString().contains(QStringLiteral("2 % of the RDA (2000.00 ")));
        QCOMPARE(log->model()->index(0, 2).data().toString(), QStringLiteral("1 cup"));
    }

    void aNameOfAMillionCharactersIsToldInPart()
    {
        run->add({A});
        const QString longname(1000000, u'W');
        run->controller.foods[0]->setName(longname);
        const QString part = QString(1000, u'W') + QChar(u'\u2026');
        QCOMPARE(run->controller.toolTipForCell(run->controller.logtable, name, 0)(), part);
        QVERIFY(sentence(31).endsWith(part + QStringLiteral(" 100 %")));
        QCOMPARE(run->logCell(name, 0).toString(), longname);
    }

    void updateNutrientsReloadsTheNutrients()
    {
        run->interface->show();
        QVERIFY(QTest::qWaitForWindowExposed(run->interface->mainWindow()));
        const QModelIndex cell = run->controller.nutrienttable->model()->index(0, 1);
        QCOMPARE(cell.data().toString(), QStringLiteral("0 %"));
        run->controller.nutrientstotal[0] = 1000.0F;
        QCOMPARE(cell.data().toString(), QStringLiteral("0 %"));
        run->controller.updateNutrients();
        QCOMPARE(cell.data().toString(), QStringLiteral("50 %"));
    }

private:
    int rows(const TableView *table) { return run->controller.numberOfRowsInTableView(table); }
    QString sentence(int index)
    {
        return run->controller.toolTipForCell(run->controller.nutrienttable, amount, index)();
    }

    PopUpButtonCell &unitCell(int row)
    {
        auto *cell = static_cast<PopUpButtonCell *>(run->controller.logtable->cellForColumn(unit));
        cell->setObjectValue(run->logCell(unit, row));
        run->controller.willDisplayCell(run->controller.logtable, *cell, unit, row);
        return *cell;
    }
    TextFieldCellRDA &bar(int row)
    {
        auto *cell = static_cast<TextFieldCellRDA *>(run->controller.nutrienttable->cellForColumn(amount));
        run->controller.willDisplayCell(run->controller.nutrienttable, *cell, amount, row);
        return *cell;
    }

    std::unique_ptr<Home> home;
    std::unique_ptr<Run> run;
};

QTEST_MAIN(TablesTest)
#include "tst_tables.moc"
