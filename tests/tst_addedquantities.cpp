// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "tests/support/AddFoodSheetFixture.h"
#include "ui/foodsheet/FoodListModel.h"
#include "ui/foodsheet/FoodListView.h"

#include <QPushButton>
#include <QTreeWidget>

#include <cmath>
#include <limits>

namespace {

const QString egg = QStringLiteral("Egg, whole, raw, fresh");
const QString buttermilk = QStringLiteral("Milk, buttermilk, fluid, whole");

} // namespace

// How much of each food the sheet shows, offers and hands over.
class AddedQuantitiesTest final : public AddFoodSheetFixture {
    Q_OBJECT

private slots:
    void thePreviewSaysWhatTheQueryAsksFor_data()
    {
        QTest::addColumn<QString>("query");
        QTest::addColumn<QString>("food");
        QTest::addColumn<QString>("said");
        QTest::addColumn<QString>("chosen"); // "amount|unit"
        QTest::newRow("pieces") << "3 eggs" << egg << "3 \u00d7 1 large, 150 g, 214 kcal"
                                << "3|1 large";
        QTest::newRow("a measure, once") << "1 cup buttermilk fluid" << buttermilk << "1 cup, 245 g, 152 kcal"
                                         << "1|1 cup";
        QTest::newRow("grams") << "30 g gouda"
                               << "Cheese, gouda"
                               << "30 g, 107 kcal"
                               << "30|g";
        QTest::newRow("a part") << "half a banana" << banana
                                << "0.5 \u00d7 1 large (8\" to 8-7/8\" long), 68 g, 61 kcal"
                                << "0.5|1 large (8\" to 8-7/8\" long)";
        QTest::newRow("nothing") << "gouda"
                                 << "Cheese, gouda"
                                 << "In 100 g"
                                 << "";
    }

    void thePreviewSaysWhatTheQueryAsksFor()
    {
        QFETCH(QString, query);
        QFETCH(QString, food);
        QFETCH(QString, chosen);
        open();
        type(query.toLatin1().constData());
        QCOMPARE(current(), food);
        QTEST(text("amountlabel"), "said");
        QCOMPARE(shownInFields(), chosen.isEmpty() ? QStringLiteral("100|g") : chosen);
        if (!chosen.isEmpty())
            QVERIFY(field()->accessibleDescription().contains(text("amountlabel")));
        press(Qt::Key_Return);
        QCOMPARE(added, QList<QStringList>{{food}});
        QCOMPARE(handedOver(food), chosen);
    }

    void aFoodWithoutAFittingUnitSaysSoAndIsAddedPlain()
    {
        open();
        type("3 slices buttermilk fluid");
        QCOMPARE(current(), buttermilk);
        QCOMPARE(text("amountlabel"), QStringLiteral("In 100 g"));
        QVERIFY(text("notelabel").contains(QLatin1String("100 g")));
        QVERIFY(find<QLabel>("notelabel")->isVisible());
        press(Qt::Key_Return);
        QCOMPARE(handedOver(buttermilk), QString());
    }

    void amountAndUnitAreEnteredWithTheKeyboard()
    {
        open();
        type("apricots raw");
        press(Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget()->objectName(), QStringLiteral("amountfield"));
        type("2.5");
        QCOMPARE(text("amountlabel"), QStringLiteral("2.5 g, 1 kcal"));
        press(Qt::Key_Down);
        press(Qt::Key_Down);
        press(Qt::Key_Down);
        QCOMPARE(text("amountlabel"), QStringLiteral("2.5 \u00d7 1 apricot, 87.5 g, 42 kcal"));
        QVERIFY(field()->accessibleDescription().contains(text("amountlabel")));
        press(Qt::Key_Return);
        QCOMPARE(handedOver(apricots), QStringLiteral("2.5|1 apricot"));
    }

    void amountsAreReadAsPeopleWriteThem()
    {
        open();
        type("apricots raw");
        clickUnit(3);
        type("1/2");
        QCOMPARE(text("amountlabel"), QStringLiteral("0.5 \u00d7 1 apricot, 17.5 g, 8 kcal"));
        press(Qt::Key_Return);
        QCOMPARE(handedOver(apricots), QStringLiteral("0.5|1 apricot"));
    }

    void aClickOnAMeasureChoosesOneOfIt()
    {
        open();
        type("apricots raw");
        clickUnit(3);
        QCOMPARE(shownInFields(), QStringLiteral("1|1 apricot"));
        QCOMPARE(text("amountlabel"), QStringLiteral("1 apricot, 35 g, 17 kcal"));
        clickUnit(0);
        QCOMPARE(shownInFields(), QStringLiteral("35|g"));
        clickUnit(1);
        press(Qt::Key_Return);
        QCOMPARE(handedOver(apricots), QStringLiteral("1|1 cup, halves"));
    }

    void whatIsTypedAfterAClickInThePreviewIsTheWholeAmount_data()
    {
        QTest::addColumn<bool>("onmeasure");
        QTest::newRow("on a measure") << true;
        QTest::newRow("in the amount") << false;
    }

    void whatIsTypedAfterAClickInThePreviewIsTheWholeAmount()
    {
        QFETCH(bool, onmeasure);
        open();
        type("apricots raw");
        auto *amount = find<QLineEdit>("amountfield");
        if (onmeasure)
            clickUnit(3);
        else
            QTest::mouseClick(amount, Qt::LeftButton);
        QVERIFY(amount->hasFocus());
        type("3");
        QCOMPARE(amount->text(), QStringLiteral("3"));
    }

    void aTypedAmountStaysWhenAnotherUnitIsChosen_data()
    {
        QTest::addColumn<bool>("inquery");
        QTest::newRow("typed in the query") << true;
        QTest::newRow("typed in the preview") << false;
    }

    void aTypedAmountStaysWhenAnotherUnitIsChosen()
    {
        QFETCH(bool, inquery);
        open();
        type(inquery ? "3 apricots raw" : "apricots raw");
        QCOMPARE(current(), apricots);
        if (!inquery) {
            press(Qt::Key_Tab);
            type("3");
        }
        clickUnit(2);
        QCOMPARE(shownInFields(), QStringLiteral("3|1 cup, sliced"));
    }

    void whatWasEnteredGoesWithItsRowAndEndsWithTheQuery()
    {
        open();
        type("apricots");
        const QString first = current();
        clickUnit(1);
        field()->setFocus();
        const QString entered = shownInFields();
        press(Qt::Key_Down);
        QCOMPARE(shownInFields(), QStringLiteral("100|g"));
        press(Qt::Key_Up);
        QCOMPARE(current(), first);
        QCOMPARE(shownInFields(), entered);
        type(" ");
        press(Qt::Key_Backspace);
        QCOMPARE(shownInFields(), QStringLiteral("100|g"));
    }

    void everySelectedFoodIsMeasured()
    {
        open();
        type("2 cups apricots");
        press(Qt::Key_Down, Qt::ShiftModifier);
        press(Qt::Key_Return);
        QCOMPARE(added.last().size(), 2);
        for (const QString &name : added.last())
            QVERIFY2(handedOver(name).startsWith(QLatin1String("2|1 cup")), qPrintable(name + handedOver(name)));
    }

    void aKeptFoodShowsItsQuantityWhichCanBeEdited()
    {
        open();
        type("3 eggs");
        press(Qt::Key_Return, Qt::ControlModifier);
        type("apricots raw");
        press(Qt::Key_Return, Qt::ControlModifier);
        QCOMPARE(kept(), QStringList({egg, apricots}));
        QCOMPARE(markOfKept(0), QStringLiteral("3 \u00d7 1 large"));
        QCOMPARE(markOfKept(1), QString());

        tobeadded()->setFocus();
        press(Qt::Key_Home);
        QCOMPARE(text("namelabel"), egg);
        QCOMPARE(text("amountlabel"), QStringLiteral("3 \u00d7 1 large, 150 g, 214 kcal"));
        type("4");
        QCOMPARE(QApplication::focusWidget()->objectName(), QStringLiteral("amountfield"));
        QCOMPARE(markOfKept(0), QStringLiteral("4 \u00d7 1 large"));
        press(Qt::Key_Return);
        QCOMPARE(added.last(), QStringList({egg, apricots}));
        QCOMPARE(handedOver(egg), QStringLiteral("4|1 large"));
        QCOMPARE(handedOver(apricots), QString());
    }

    void afterTheLastKeptFoodIsRemovedThePreviewIsTheListsAgain()
    {
        open();
        type("3 eggs");
        press(Qt::Key_Return, Qt::ControlModifier);
        tobeadded()->setFocus();
        press(Qt::Key_Home);
        press(Qt::Key_Delete);
        QVERIFY(field()->hasFocus());
        QVERIFY(find<QLabel>("namelabel")->text() != egg || !find<QLabel>("namelabel")->isVisible());
        press(Qt::Key_Tab);
        type("4");
        QCOMPARE(kept(), QStringList());
    }

    void aKeptFoodFoundAgainIsSaidAndAddedAsItIsOnTheList()
    {
        open();
        type("2 cups buttermilk fluid");
        press(Qt::Key_Return, Qt::ControlModifier);
        type("buttermilk fluid");
        QCOMPARE(current(), buttermilk);
        QCOMPARE(text("amountlabel").section(u',', 0, 0), QStringLiteral("2 \u00d7 1 cup"));
        press(Qt::Key_Return);
        QCOMPARE(handedOver(buttermilk), QStringLiteral("2|1 cup"));
    }

    void theDoubtAboutANumberEndsWithTheNumber()
    {
        open();
        type("apricots");
        press(Qt::Key_Tab);
        type("0");
        QVERIFY(!find<QLineEdit>("amountfield")->accessibleDescription().isEmpty());
        list()->setFocus();
        press(Qt::Key_Down);
        QCOMPARE(shownInFields(), QStringLiteral("100|g"));
        QCOMPARE(find<QLineEdit>("amountfield")->accessibleDescription(), QString());
    }

    void aDigitOnTheUnitsGoesToTheAmount()
    {
        open();
        type("apricots raw");
        clickUnit(3);
        find<QTreeWidget>("measurelist")->setFocus();
        type("4");
        QCOMPARE(shownInFields(), QStringLiteral("4|1 apricot"));
        QCOMPARE(field()->text(), QStringLiteral("apricots raw"));
    }

    void whoWantsNoOwnFoodsFirstStillHasTheirQuantities()
    {
        open();
        type("milk");
        const QString first = current();
        press(Qt::Key_Escape);
        press(Qt::Key_Escape);
        logFoods(0);
        open();
        QCOMPARE(list()->model()->rowCount(), FoodCatalogue::foodCount);
        type("milk");
        QCOMPARE(current(), first);
        QVERIFY(current() != buttermilk);
        field()->clear();
        type("buttermilk fluid");
        press(Qt::Key_Return, Qt::AltModifier);
        QCOMPARE(handedOver(buttermilk), QStringLiteral("1|1 cup"));
    }

    void quantitiesOnTheListOutliveACancelling()
    {
        open();
        type("3 eggs");
        press(Qt::Key_Return, Qt::ControlModifier);
        press(Qt::Key_Escape);
        QCOMPARE(handedOver(egg), QString());
        open();
        QCOMPARE(markOfKept(0), QStringLiteral("3 \u00d7 1 large"));
        press(Qt::Key_Return);
        QCOMPARE(handedOver(egg), QStringLiteral("3|1 large"));
    }

    void keptAgainAFoodTakesTheNewQuantity()
    {
        open();
        for (const char *query : {"3 eggs", "eggs", "2 eggs"}) {
            type(query);
            press(Qt::Key_Return, Qt::ControlModifier);
        }
        QCOMPARE(kept(), QStringList{egg});
        QCOMPARE(markOfKept(0), QStringLiteral("2 \u00d7 1 large"));
    }

    void aQueryWithoutLettersAndDigitsIsAnEmptyOne_data()
    {
        QTest::addColumn<QString>("query");
        for (const char *query : {" ", ",", " .,-"})
            QTest::newRow(query) << QString::fromLatin1(query);
    }

    void aQueryWithoutLettersAndDigitsIsAnEmptyOne()
    {
        QFETCH(QString, query);
        open();
        type(query.toLatin1().constData());
        QVERIFY(!list()->currentIndex().isValid());
        press(Qt::Key_Return);
        QCOMPARE(added, QList<QStringList>{{}});
    }

    void withNothingTypedOnesOwnFoodsComeFirstUnderAHeadingThatIsNoRow()
    {
        logFoods();
        open();
        QCOMPARE(text("hitslabel"), QStringLiteral("7801 foods"));
        QCOMPARE(foodView()->heading(), QStringLiteral("Foods you have logged"));
        QCOMPARE(list()->model()->rowCount(), FoodCatalogue::foodCount + 3);
        QCOMPARE(rowText(0), QStringLiteral("Milk, buttermilk, fluid, whole | yesterday, 1 cup"));
        QCOMPARE(rowText(1), QStringLiteral("Bananas, raw | 3 Nov, 90.5 g"));
        QCOMPARE(rowText(2), QStringLiteral("Cheese, cheddar | 1 Nov")); // without the unit that its file has not
        QCOMPARE(rowText(3), QStringLiteral("Abiyuch, raw | "));
        QVERIFY(!list()->currentIndex().isValid());
        press(Qt::Key_Down);
        press(Qt::Key_End);
        QCOMPARE(current(), QStringLiteral("Zwieback"));
        QCOMPARE(foodView()->heading(), QStringLiteral("All foods"));
        type("a");
        QCOMPARE(foodView()->heading(), QString());
        QVERIFY(!find<QLabel>("headinglabel")->isVisible());
    }

    void withNothingLoggedThereIsNoHeading()
    {
        open();
        QCOMPARE(foodView()->heading(), QString());
        QCOMPARE(list()->model()->rowCount(), FoodCatalogue::foodCount);
        QVERIFY(!find<QLabel>("headinglabel")->isVisible());
    }

    void aRowOfOnesOwnFoodsIsAddedAsItSays_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<QString>("chosen");
        QTest::newRow("in a unit") << 0 << QStringLiteral("1|1 cup");
        QTest::newRow("in grams") << 1 << QStringLiteral("90.5|g");
        QTest::newRow("in a unit that is gone") << 2 << QString();
        QTest::newRow("of the catalogue") << 3 << QString();
    }

    void aRowOfOnesOwnFoodsIsAddedAsItSays()
    {
        QFETCH(int, row);
        logFoods();
        open();
        for (int key = 0; key <= row; ++key)
            press(Qt::Key_Down);
        const QString food = current();
        press(Qt::Key_Return);
        QTEST(handedOver(food), "chosen");
    }

    void theSameFoodBelowItsOwnRowsIsPlain()
    {
        logFoods();
        open();
        const QModelIndexList both
            = list()->model()->match(list()->model()->index(0, 0), Qt::DisplayRole, banana, 2, Qt::MatchExactly);
        QCOMPARE(both.size(), 2);
        list()->setCurrentIndex(both[1]);
        QCOMPARE(text("amountlabel"), QStringLiteral("In 100 g"));
    }

    void altEnterAddsAsMuchAsTheLastTimeAndEnterWhatThePreviewSays_data()
    {
        QTest::addColumn<QString>("query");
        QTest::addColumn<bool>("alt");
        QTest::addColumn<QString>("chosen");
        QTest::newRow("Alt+Enter") << "buttermilk fluid" << true << "1|1 cup";
        QTest::newRow("Enter") << "buttermilk fluid" << false << "";
        QTest::newRow("Enter with a quantity") << "2 tbsp buttermilk fluid" << false << "0.125|1 cup";
        QTest::newRow("Alt+Enter with a quantity") << "2 tbsp buttermilk fluid" << true << "1|1 cup";
    }

    void altEnterAddsAsMuchAsTheLastTimeAndEnterWhatThePreviewSays()
    {
        QFETCH(QString, query);
        QFETCH(bool, alt);
        logFoods();
        open();
        type(query.toLatin1().constData());
        QCOMPARE(current(), buttermilk);
        QCOMPARE(list()->currentIndex().data(FoodListModel::MarkRole).toString(), QStringLiteral("yesterday, 1 cup"));
        QVERIFY(text("notelabel").contains(QLatin1String("Alt+Enter adds 1 cup")));
        press(Qt::Key_Return, alt ? Qt::AltModifier : Qt::NoModifier);
        QTEST(handedOver(buttermilk), "chosen");
    }

    void nothingIsSaidOfTheLastTimeWhereItIsWhatIsAdded()
    {
        logFoods();
        open();
        type("1 cup buttermilk fluid");
        QCOMPARE(current(), buttermilk);
        QVERIFY(!text("notelabel").contains(QLatin1String("Alt+Enter")));
    }

    void anAmountThatIsNoNumberAboveZeroIsNoQuantity()
    {
        for (const float amount : {std::numeric_limits<float>::infinity(), std::nanf(""), 0.0F, -1.0F})
            QVERIFY(!Quantity::logged(amount, std::nullopt, Composition()));
        QVERIFY(Quantity::logged(0.5F, std::nullopt, Composition()));
    }

private:
    FoodListView *foodView() const { return find<FoodListView>("foodlist"); }
    void logFoods(int listed = 40)
    {
        sheet->setOwnFoods({{buttermilk, QStringLiteral("yesterday"), 1.0F, QStringLiteral("1 cup"), 3.0F},
                               {banana, QStringLiteral("3 Nov"), 90.5F, std::nullopt, 2.0F},
                               {QStringLiteral("Ambrosia"), QStringLiteral("2 Nov"), 1.0F, std::nullopt, 2.0F},
                               {cheddar, QStringLiteral("1 Nov"), 2.0F, QStringLiteral("1 barrel"), 1.0F}},
            listed);
    }
    QString rowText(int row) const
    {
        const QModelIndex index = list()->model()->index(row, 0);
        return index.data().toString() + QStringLiteral(" | ") + index.data(Qt::AccessibleDescriptionRole).toString();
    }
    QString shownInFields() const
    {
        const auto *units = find<QTreeWidget>("measurelist");
        return find<QLineEdit>("amountfield")->text() + u'|' + units->currentItem()->text(0);
    }
    QString handedOver(const QString &food) const
    {
        const std::optional<Quantity> quantity = sheet->foodlistcontroller()->quantityOf(food);
        return quantity ? quantity->amount + u'|' + quantity->unit : QString();
    }
    QString markOfKept(int row) const
    {
        const QListWidgetItem *item = tobeadded()->item(row);
        return item->data(Qt::AccessibleDescriptionRole) == item->data(FoodListModel::MarkRole)
            ? item->data(FoodListModel::MarkRole).toString()
            : QStringLiteral("shown and said are not the same");
    }
    void clickUnit(int unit) const
    {
        auto *units = find<QTreeWidget>("measurelist");
        units->scrollToItem(units->topLevelItem(unit));
        QTest::mouseClick(units->viewport(), Qt::LeftButton, Qt::NoModifier,
            units->visualItemRect(units->topLevelItem(unit)).center());
    }
};

QTEST_MAIN(AddedQuantitiesTest)
#include "tst_addedquantities.moc"
