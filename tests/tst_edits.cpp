// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "support/Run.h"

#include "model/FoodRecord.h"
#include "ui/table/MenuItemUnit.h"

#include <QLabel>
#include <QtTest>

#include <limits>

namespace {

const QString A = QStringLiteral("A");
const QString B = QStringLiteral("B");
const QString g = QStringLiteral("g");
const QString cup = QStringLiteral("1 cup");
const QString amountcolumn = QStringLiteral("Amount");
const QString recalculate = QStringLiteral("RecalculateAmount");

MenuItemUnit unitItem(int row, const QString &title, qint32 idx)
{
    MenuItemUnit item;
    item.setTag(row);
    item.setTitle(title);
    item.setIdx(idx);
    return item;
}

} // namespace

// Edits of an entry's amount and unit in place.
class EditsTest final : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        home = std::make_unique<Home>();
        for (const QString &name : {A, B})
            home->files.writeElements(name,
                "<measure name='cup' amount='1' grams='240'/><measure name='crumb' amount='1' grams='0'/>"
                "<nutrient name='Energy' amount='50'/>");
        run = std::make_unique<Run>(*home);
        run->launch();
        run->add({A, B});
    }
    void cleanup()
    {
        run.reset();
        home.reset();
    }

    void onlyTheAmountOfTheLogIsEdited()
    {
        const QStringList before = run->entries();
        const auto sums = run->controller.nutrientstotal;
        run->select({1});
        AppDelegate &controller = run->controller;
        for (const QString &column : {QStringLiteral("Name"), QStringLiteral("Unit"), QStringLiteral("Energy"),
                 QStringLiteral("amount"), QString()})
            controller.setObjectValue(run->controller.logtable, QStringLiteral("7"), column, 0);
        for (const QString &column : {QStringLiteral("Name"), amountcolumn})
            controller.setObjectValue(run->controller.nutrienttable, QStringLiteral("7"), column, 0);
        controller.setObjectValue(nullptr, QStringLiteral("7"), amountcolumn, 0);
        QCOMPARE(run->entries(), before);
        QCOMPARE(run->controller.nutrientstotal, sums);
        QCOMPARE(run->controller.logtable->selectedRowIndexes(), QList<int>{1}); // nothing was deselected either
    }

    void anAmountIsReadAsNumberText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<float>("amount");
        QTest::newRow("a whole number") << QStringLiteral("250") << 250.0F;
        QTest::newRow("a fraction") << QStringLiteral("0.4166667") << 0.4166667F;
        QTest::newRow("a negative number") << QStringLiteral("-5") << -5.0F;
        QTest::newRow("words") << QStringLiteral("abc") << 0.0F;
        QTest::newRow("nothing") << QString() << 0.0F;
        QTest::newRow("a comma") << QStringLiteral("12,5") << 12.0F;
        QTest::newRow("a unit after it") << QStringLiteral("12 g") << 12.0F;
        QTest::newRow("too large") << QStringLiteral("1e40") << std::numeric_limits<float>::infinity();
        QTest::newRow("hexadecimal") << QStringLiteral("0x10") << 0.0F;
    }

    void anAmountIsReadAsNumberText()
    {
        QFETCH(QString, text);
        QFETCH(float, amount);
        run->edit(0, text);
        QCOMPARE(bitsOf(run->controller.foods[0]->curamount()), bitsOf(amount));
        QCOMPARE(run->controller.foods[0]->curunit(), g);
    }

    void typingWordsRemovesTheEntrysContribution()
    {
        run->edit(0, QStringLiteral("abc"));
        QCOMPARE(run->controller.nutrientstotal[0], 50.0F);
        QCOMPARE(run->controller.nutrients[0], (std::vector<float>{0.0F, 50.0F}));
    }

    void anEditClearsTheSelectionAndItsSums()
    {
        run->select({0, 1});
        run->edit(0, QStringLiteral("200"));
        QCOMPARE(run->controller.logtable->selectedRowIndexes(), QList<int>());
        QCOMPARE(run->controller.label->text(), QStringLiteral("2 foods"));
        for (const float sum : run->controller.nutrientsselected)
            QCOMPARE(bitsOf(sum), bitsOf(0.0F));
    }

    void theRecordMatchesTheEntryAfterAnEdit()
    {
        run->edit(1, QStringLiteral("33.25"));
        QCOMPARE(run->controller.curdatefoods[1], FoodRecord::archivedDataWithRootObject(*run->controller.foods[1]));
        run->controller.updateUnit(unitItem(1, cup, 1));
        QCOMPARE(run->controller.curdatefoods[1], FoodRecord::archivedDataWithRootObject(*run->controller.foods[1]));
        QCOMPARE(run->controller.curdatefoods[0], FoodRecord::archivedDataWithRootObject(*run->controller.foods[0]));
        run->controller.nextDay();
        run->controller.previousDay();
        QCOMPARE(run->entries(), QStringList({QStringLiteral("A 100 g 0"), QStringLiteral("B 33.25 1 cup 1")}));
    }

    void aUnitChangeKeepsTheNumberByDefault()
    {
        run->controller.updateUnit(unitItem(0, cup, 1));
        QCOMPARE(run->entries()[0], QStringLiteral("A 100 1 cup 1"));
        QCOMPARE(run->controller.nutrientstotal[0], 50.0F + 50.0F - 50.0F + 50.0F / 100.0F * 24000.0F);
        QCOMPARE(run->controller.nutrients[0][0], 50.0F / 100.0F * 24000.0F);
    }

    void aUnitChangeKeepsTheWeightWhenAskedTo()
    {
        run->store.setObject(true, recalculate);
        const float before = run->controller.nutrientstotal[0];
        run->controller.updateUnit(unitItem(0, cup, 1));
        QCOMPARE(bitsOf(run->controller.foods[0]->curamount()), bitsOf(100.0F / 240.0F));
        QVERIFY(qAbs(run->controller.nutrientstotal[0] - before) < 0.001F);
        run->store.setObject(QStringLiteral("NO"), recalculate); // read at each change
        run->controller.updateUnit(unitItem(0, g, 0));
        QCOMPARE(bitsOf(run->controller.foods[0]->curamount()), bitsOf(100.0F / 240.0F));
    }

    void aUnitChangeClearsTheSelection()
    {
        run->select({1});
        run->controller.updateUnit(unitItem(0, cup, 1));
        QCOMPARE(run->controller.logtable->selectedRowIndexes(), QList<int>());
        QCOMPARE(run->controller.label->text(), QStringLiteral("2 foods"));
    }

    void choosingTheUnitThatIsSetGoesThroughAllSteps()
    {
        run->controller.foods[0]->setCuramount(40.0F); // the sums still hold 100 g
        run->select({1});
        run->controller.updateUnit(unitItem(0, g, 0));
        QCOMPARE(run->controller.logtable->selectedRowIndexes(), QList<int>());
        QCOMPARE(run->controller.nutrients[0][0], 20.0F);
        QCOMPARE(run->controller.nutrientstotal[0], 100.0F - 20.0F + 20.0F);
    }

    void aUnitThatTheFoodDoesNotKnowChangesNoEntry()
    {
        run->controller.updateUnit(unitItem(0, QStringLiteral("1 barrel"), 9));
        QCOMPARE(run->entries()[0], QStringLiteral("A 100 g 0"));
        QCOMPARE(run->controller.nutrientstotal[0], 100.0F);
    }

    void aUnitWithoutWeightMakesTheAmountInfiniteWhenTheWeightIsKept()
    {
        run->store.setObject(true, recalculate);
        run->controller.updateUnit(unitItem(0, QStringLiteral("1 crumb"), 2));
        QCOMPARE(run->controller.foods[0]->curamount(), std::numeric_limits<float>::infinity());
        QVERIFY(std::isnan(run->controller.nutrientstotal[0]));
        run->controller.nextDay();
        run->controller.previousDay();
        QCOMPARE(run->entries()[0], QStringLiteral("A inf 1 crumb 2"));
    }

private:
    std::unique_ptr<Home> home;
    std::unique_ptr<Run> run;
};

QTEST_MAIN(EditsTest)
#include "tst_edits.moc"
