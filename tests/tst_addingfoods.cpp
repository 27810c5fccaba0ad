// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "tests/support/Chance.h"
#include "tests/support/NaiveComparison.h"
#include "tests/support/NaiveLog.h"
#include "tests/support/Run.h"

#include "catalog/FoodCatalogue.h"
#include "model/FoodRecord.h"
#include "platform/LocalDay.h"
#include "platform/TypedNumber.h"
#include "ui/foodsheet/AddFoodSheet.h"
#include "ui/foodsheet/ArrayController.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QRandomGenerator>
#include <QTreeWidget>
#include <QtTest>

// Foods and how much of them, from the keyboard through the sheet into the log.
class AddingFoodsTest final : public QObject {
    Q_OBJECT

private slots:
    void init() { home = std::make_unique<Home>(); }
    void cleanup()
    {
        run.reset();
        home.reset();
    }

    void threeFoodsWithAmountsTake45KeyPresses()
    {
        start();
        key(Qt::Key_N, Qt::ControlModifier);
        type("3 eggs");
        key(Qt::Key_Return, Qt::ControlModifier);
        type("1 cup buttermilk");
        choose(QStringLiteral("Milk, buttermilk, fluid, whole"));
        key(Qt::Key_Return, Qt::ControlModifier);
        type("30 g gouda");
        key(Qt::Key_Return);
        QVERIFY2(keys <= 45, qPrintable(QString::number(keys)));
        QCOMPARE(run->entries(),
            QStringList({QStringLiteral("Egg, whole, raw, fresh 3 1 large 4"),
                QStringLiteral("Milk, buttermilk, fluid, whole 1 1 cup 1"), QStringLiteral("Cheese, gouda 30 g 0")}));
        const QStringList energies{QStringLiteral("214"), QStringLiteral("152"), QStringLiteral("107")};
        for (int row = 0; row < 3; ++row)
            QCOMPARE(shown(row, 3), energies[row]);
        QCOMPARE(shown(0, 1), QStringLiteral("3.00"));
        QCOMPARE(shown(0, 2), QStringLiteral("1 large"));
        QCOMPARE(run->controller.logtable->currentIndex().row(), 2);
    }

    void whatIsInTheLogAlreadyKeepsItsAmount()
    {
        start();
        add("30 g gouda");
        add("2 slices gouda");
        add("1 oz gouda");
        QCOMPARE(run->entries(), QStringList{QStringLiteral("Cheese, gouda 30 g 0")});
    }

    void theSelectionGivesWayToAnAddedFoodAlone()
    {
        start();
        add("30 g gouda");
        run->select({0});
        add("1 oz gouda");
        QCOMPARE(run->controller.logtable->selectedRowIndexes(), QList<int>{0});
        add("egg");
        QCOMPARE(run->controller.logtable->currentIndex().row(), 1);
        QCOMPARE(run->controller.logtable->selectedRowIndexes(), QList<int>());
    }

    void aFoodOfWhichNothingWasSaidIsLeftAsTheControllerAddsIt()
    {
        start();
        add("gouda");
        QCOMPARE(run->entries(), QStringList{QStringLiteral("Cheese, gouda 100 g 0")});
    }

    void aQuantityIsTheOneAskedForWhenUnitsKeepTheWeight()
    {
        start();
        run->store.setObject(true, QStringLiteral("RecalculateAmount"));
        add("3 eggs");
        QCOMPARE(run->entries(), QStringList{QStringLiteral("Egg, whole, raw, fresh 3 1 large 4")});
    }

    void theNutrientsShowTheDayWithItsQuantities()
    {
        start();
        add("3 eggs");
        const TableView *table = run->controller.nutrienttable;
        QCOMPARE(table->model()->index(0, 1).data().toString(), QStringLiteral("11 %"));
    }

    void foodsLoggedBeforeAreOfferedAsTheyWere()
    {
        store(QDate(2026, 11, 20), QStringLiteral("Cheese, gouda"), 2, QStringLiteral("1 oz"));
        store(QDate(2025, 12, 3), QStringLiteral("Bananas, raw"), 90.5F, std::nullopt);
        start();
        key(Qt::Key_N, Qt::ControlModifier);
        QCOMPARE(rowText(0), QStringLiteral("Cheese, gouda | yesterday, 2 \u00d7 1 oz"));
        QCOMPARE(rowText(1), QStringLiteral("Bananas, raw | 3 Dec 2025, 90.5 g"));
        key(Qt::Key_Down);
        key(Qt::Key_Return);
        QCOMPARE(run->entries(), QStringList{QStringLiteral("Cheese, gouda 2 1 oz 1")});
        key(Qt::Key_N, Qt::ControlModifier);
        QCOMPARE(rowText(0), QStringLiteral("Cheese, gouda | in the log"));
    }

    void onesOwnFoodsComeFirstOnlyWhenWanted()
    {
        store(QDate(2026, 11, 20),
            QStringLiteral("Milk, nonfat, fluid, with added vitamin A and vitamin D (fat free or skim)"), 1,
            QStringLiteral("1 cup"));
        for (const bool wanted : {true, false}) {
            start();
            run->store.setObject(wanted, QStringLiteral("OwnFoodsFirst"));
            key(Qt::Key_N, Qt::ControlModifier);
            QCOMPARE(foodlist()->model()->rowCount(), FoodCatalogue::foodCount + (wanted ? 1 : 0));
            type("milk");
            QCOMPARE(foodlist()->currentIndex().data().toString().startsWith(QLatin1String("Milk, nonfat")), wanted);
            run.reset();
        }
    }

    void theFoodsByANutrientAreAskedForOnItsRow()
    {
        start();
        TableView *nutrients = run->controller.nutrienttable;
        nutrients->setFocus();
        nutrients->setCurrentRow(NutrientCatalogue::indexOfNutrient("Iron"));
        run->store.setObject(false, QStringLiteral("UseP"));
        key(Qt::Key_R, Qt::ControlModifier);
        QCOMPARE(run->controller.addview->windowTitle(), QStringLiteral("Foods by iron"));
        QTRY_VERIFY(foodlist()->model()->rowCount() > 7000);
        type("fish");
        const QString food = foodlist()->currentIndex().data().toString();
        const QString said = rowText(0);
        QVERIFY2(said.endsWith(QLatin1String(" %")), qPrintable(said)); // of the built-in allowance
        key(Qt::Key_Return);
        QCOMPARE(run->names(), QStringList{food});
        QVERIFY2(said.contains(run->controller.foods[0]->curunit().value_or(QString())), qPrintable(said));
    }

    // What the preview says of a food is what both logs get, whatever the food's file is like.
    void theLogDoesWhatTheNaiveOneDoesWhenFoodsComeWithQuantities()
    {
        const quint32 seed = QRandomGenerator::system()->generate();
        qInfo("seed %u", seed);
        Chance chance;
        chance.seed(seed);
        for (int i = 0; i < Chance::foods; ++i)
            chance.writeFile(home->files, i);
        std::vector<Naive::Nutrient> nutrients;
        for (int i = 0; i < NutrientCatalogue::nutrientCount; ++i)
            nutrients.push_back({NutrientCatalogue::names()[i].toStdString(),
                NutrientCatalogue::units()[i].toStdString(), NutrientCatalogue::defaultRDAs()[std::size_t(i)]});
        Naive::Log naive(QFileInfo(home->files.pathOf(Chance::foodName(0))).path().toStdString(), std::move(nutrients));
        run = std::make_unique<Run>(*home);
        naive.rdalabel = run->controller.rdalabel->text().toStdString();
        run->show();
        naive.start(home->now.toSecsSinceEpoch());
        QStringList names;
        for (int i = 0; i < Chance::foods; ++i)
            names << Chance::foodName(i);
        run->controller.foodlistcontroller->setContent(names);
        for (int i = 0; i < 400; ++i) {
            ++naive.moment;
            const QString what = chance.percent(60) ? addBoth(chance, naive) : disturbBoth(chance, naive);
            const QString difference = differenceBetween(*run, naive);
            QVERIFY2(difference.isEmpty(),
                qPrintable(QStringLiteral("seed %1, step %2 (%3): %4").arg(seed).arg(i).arg(what, difference)));
        }
        QVERIFY2(entered > 50, qPrintable(QString::number(entered)));
    }

private:
    void start()
    {
        // The food files that the program ships, in the place of the test's own.
        Bundle::mainBundle().setResourcePath(QStringLiteral(SOURCE_DIR "/resources"));
        run = std::make_unique<Run>(*home);
        run->show();
        QVERIFY(QTest::qWaitForWindowActive(run->controller.window));
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        ++keys;
        QWidget *focus = QApplication::focusWidget();
        QTest::keyClick(focus != nullptr ? focus : run->controller.window, key, modifiers);
        waitForFocus();
    }
    // A sheet that opens or closes hands the keyboard over a little later.
    void waitForFocus()
    {
        QWidget *sheet = run->controller.addview;
        if (!sheet->isVisible())
            run->controller.window->activateWindow(); // which nobody else does without a window manager
        QTRY_COMPARE(QApplication::activeWindow(), sheet->isVisible() ? sheet : run->controller.window);
        QTRY_VERIFY(QApplication::focusWidget() != nullptr);
    }
    void type(const char *text)
    {
        keys += int(qstrlen(text));
        QTest::keyClicks(QApplication::focusWidget(), QString::fromUtf8(text));
    }
    // With as many keys as it takes.
    void choose(const QString &food)
    {
        for (int row = 0; row < 20 && foodlist()->currentIndex().data().toString() != food; ++row)
            key(Qt::Key_Down);
    }
    void add(const char *query)
    {
        key(Qt::Key_N, Qt::ControlModifier);
        type(query);
        key(Qt::Key_Return);
    }
    QString shown(int row, int column) const
    {
        return run->controller.logtable->model()->index(row, column).data().toString();
    }
    QListView *foodlist() const { return run->controller.window->findChild<QListView *>(QStringLiteral("foodlist")); }
    QString rowText(int row) const
    {
        const QModelIndex index = foodlist()->model()->index(row, 0);
        return index.data().toString() + QStringLiteral(" | ") + index.data(Qt::AccessibleDescriptionRole).toString();
    }
    void store(QDate day, const QString &name, float amount, const std::optional<QString> &unit)
    {
        Food food(name);
        food.setCuramount(amount);
        food.setCurunit(unit);
        UserDefaults(home->storePath())
            .setObject(QVariantList{FoodRecord::archivedDataWithRootObject(food)}, LocalDay::key(day));
    }

    // Through the sheet by its keys into the one log; what the sheet says before the last key, by plain steps, into the
    // other.
    QString addBoth(Chance &chance, Naive::Log &naive)
    {
        static constexpr const char *wishes[] = {"", "30 g ", "2 cups ", "1.5 cups ", "3 bottles ", "2 "};
        const QString name = chance.foodName();
        const QString query = QString::fromLatin1(wishes[chance.draw(int(std::size(wishes)))]) + name;
        QWidget *sheet = run->controller.addview;
        run->controller.addFood();
        waitForFocus();
        QTest::keyClicks(QApplication::focusWidget(), query);
        const auto *units = sheet->findChild<QTreeWidget *>(QStringLiteral("measurelist"));
        if (chance.percent(20)) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
            QTest::keyClicks(QApplication::focusWidget(), QString::fromLatin1(chance.number()));
        }
        const QString added = foodlist()->currentIndex().data().toString();
        const bool plain
            = sheet->findChild<QLabel *>(QStringLiteral("amountlabel"))->text() == QLatin1String("In 100 g");
        const std::string amount
            = TypedNumber::withPeriod(sheet->findChild<QLineEdit *>(QStringLiteral("amountfield"))->text())
                  .toStdString();
        const int unit = units->indexOfTopLevelItem(units->currentItem());
        const std::string title = units->currentItem()->text(0).toStdString();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        waitForFocus();

        const std::size_t former = naive.foods.size();
        auto food = std::make_shared<Naive::Food>();
        food->name = added.toStdString();
        naive.add({food});
        if (naive.foods.size() > former && !plain) {
            naive.changeUnit(former, title, unit);
            naive.editAmount(former, amount);
            naive.updateNutrients();
            ++entered;
        }
        if (naive.foods.size() > former)
            naive.select({});
        return query;
    }
    QString disturbBoth(Chance &chance, Naive::Log &naive)
    {
        const int rows = int(naive.foods.size());
        if (rows > 0 && chance.percent(80)) {
            const int row = chance.draw(rows);
            naive.select({std::size_t(row)});
            run->select({row});
            if (chance.percent(90)) {
                naive.remove();
                run->controller.removeSelected();
            }
            return QStringLiteral("remove or select %1").arg(row);
        }
        chance.writeFile(home->files, chance.draw(Chance::foods));
        return QStringLiteral("write a file");
    }

    std::unique_ptr<Home> home;
    std::unique_ptr<Run> run;
    int keys = 0;
    int entered = 0;
};

QTEST_MAIN(AddingFoodsTest)
#include "tst_addingfoods.moc"
