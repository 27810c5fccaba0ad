// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "tests/support/AddFoodSheetFixture.h"
#include "ui/foodsheet/FoodListModel.h"
#include "ui/foodsheet/FoodListView.h"

#include <QComboBox>
#include <QPushButton>

#include <cmath>

namespace {

const QString liver = QStringLiteral("Beef, variety meats and by-products, liver, cooked, braised");

} // namespace

// The sheet ordered by a nutrient.
class FoodSheetByNutrientTest final : public AddFoodSheetFixture {
    Q_OBJECT

private slots:
    // The first question of each sheet reads 7,801 files, so most is asked of one.
    void theListSaysHowMuchOfTheNutrientIsInAPortion()
    {
        logLiver();
        open();
        QVERIFY(!find<QComboBox>("basisbox")->isVisible());
        chooseNutrient("Iron");
        QCOMPARE(sheet->windowTitle(), QStringLiteral("Foods by iron"));
        QVERIFY(text("hitslabel").endsWith(QLatin1String("foods have no figure for iron")));
        QVERIFY2(!text("hitslabel").startsWith(QLatin1String("7801 ")), "unknown is not zero");
        QCOMPARE(find<FoodListView>("foodlist")->heading().section(u';', 0, 0), QStringLiteral("Foods you have eaten"));
        QVERIFY(!list()->currentIndex().isValid());

        const QModelIndex first = list()->model()->index(0, 0);
        QCOMPARE(first.data().toString(), liver);
        QCOMPARE(first.data(Qt::AccessibleDescriptionRole).toString(),
            QStringLiteral("2 \u00d7 1 slice, 136 g, 8.89 mg, 49 %"));
        for (int row = 1; row < 30; ++row) {
            const QString said = list()->model()->index(row, 0).data(Qt::AccessibleDescriptionRole).toString();
            QVERIFY2(said.contains(QLatin1String(" mg, ")) && said.endsWith(QLatin1String(" %")), qPrintable(said));
        }

        auto *view = find<FoodListView>("foodlist");
        const QRect boundary = view->visualRect(list()->model()->index(1, 0));
        const QImage picture = view->viewport()->grab(boundary).toImage();
        QCOMPARE(picture.pixel(picture.width() - 3, 0), view->palette().color(QPalette::Mid).rgb());
        QFont large = view->font();
        large.setPointSize(2 * large.pointSize());
        const int top = view->viewport()->y();
        view->setFont(large); // whose heading needs more room
        QVERIFY(view->viewport()->y() > top);

        press(Qt::Key_Down);
        QCOMPARE(text("amountlabel").section(u',', 0, 1), QStringLiteral("2 \u00d7 1 slice, 136 g"));
        QVERIFY(field()->accessibleDescription().endsWith(QLatin1String("8.89 mg, 49 %")));
        press(Qt::Key_Return);
        QCOMPARE(added, QList<QStringList>{{liver}});
        QCOMPARE(handedOver(liver), QStringLiteral("2|1 slice"));

        open();
        QCOMPARE(find<QComboBox>("nutrientbox")->currentIndex(), 0);
        QCOMPARE(sheet->windowTitle(), QStringLiteral("Add food"));
        QCOMPARE(text("hitslabel"), QStringLiteral("7801 foods"));
    }

    void theSearchFindsWithinTheOrder()
    {
        open();
        chooseNutrient("Calcium");
        type("cheese");
        const int found = list()->model()->rowCount();
        QVERIFY(found > 20 && found < 1000);
        QVERIFY(current().contains(QLatin1String("heese")));
        double last = 1e9;
        int falls = 0;
        for (int row = 0; row < 15; ++row) {
            const double amount = amountOf(row);
            falls += amount <= last ? 1 : 0;
            last = amount;
        }
        QCOMPARE(falls, 15);
        field()->clear();
        type("2 oz cheddar");
        const QString food = current();
        QVERIFY2(rowSaid(0).startsWith(QLatin1String("56.7 g, ")), qPrintable(rowSaid(0)));
        Composition composition;
        QVERIFY(composition.read(food));
        const float per100grams = composition.amount(NutrientCatalogue::indexOfNutrient("Calcium")).value_or(0.0F);
        QVERIFY(per100grams > 0.0F && std::abs(amountOf(0) - double(per100grams) * 0.567) < 1.0);
        press(Qt::Key_Return);
        QVERIFY2(handedOver(food).endsWith(QLatin1String("|g")) || handedOver(food).endsWith(QLatin1String("oz")),
            qPrintable(handedOver(food)));
    }

    void inAHundredGramsRowsSayNoPortionAndAddPlainFood()
    {
        logLiver();
        open();
        chooseNutrient("Iron");
        const QString portioned = rowSaid(0);
        chooseBasis(1);
        QVERIFY(rowSaid(0) != portioned);
        QCOMPARE(rowSaid(0).count(u','), 1); // amount and share alone
        press(Qt::Key_Down);
        const QString food = current();
        press(Qt::Key_Return);
        QCOMPARE(handedOver(food), QString());

        open();
        chooseNutrient("Iron");
        chooseBasis(2);
        QVERIFY(text("hitslabel").endsWith(QLatin1String("foods have no figure for iron in 100 kcal")));
    }

    void aFoodWhoseUnitIsGoneIsStillOneThatWasEaten()
    {
        logLiver(QStringLiteral("1 barrel"));
        open();
        chooseNutrient("Iron");
        const QModelIndex first = list()->model()->index(0, 0);
        QCOMPARE(first.data().toString(), liver);
        QVERIFY2(rowSaid(0).contains(QLatin1String(" mg, ")), qPrintable(rowSaid(0)));
    }

    void aNutrientWithoutAllowanceShowsItsAmountAlone()
    {
        open();
        chooseNutrient("Caffeine");
        QVERIFY2(rowSaid(0).endsWith(QLatin1String(" mg")), qPrintable(rowSaid(0)));
    }

    void theBoxIsWorkedByKeysAndEnterGoesOnToTheSearch()
    {
        open();
        press(Qt::Key_N, Qt::AltModifier);
        QVERIFY(find<QComboBox>("nutrientbox")->hasFocus());
        type("iro");
        QTRY_VERIFY(list()->model()->rowCount() > 7000);
        QCOMPARE(sheet->windowTitle(), QStringLiteral("Foods by iron"));
        press(Qt::Key_Return);
        QVERIFY(sheet->isVisible());
        QVERIFY(field()->hasFocus());
    }

    void theWindowSaysThatItReadsBeforeItDoes()
    {
        open();
        chooseNutrient("Iron", false);
        QCOMPARE(text("hitslabel"), QStringLiteral("Reading the food files ..."));
        QVERIFY(find<QLabel>("nohitslabel")->isVisible());
        QCOMPARE(list()->model()->rowCount(), 0);
        press(Qt::Key_Return);
        QVERIFY(sheet->isVisible());
        QTRY_VERIFY(list()->model()->rowCount() > 7000);
        QVERIFY(!find<QLabel>("nohitslabel")->isVisible());
        chooseNutrient("Calcium", false); // kept since then
        QVERIFY(list()->model()->rowCount() > 7000);
    }

private:
    void logLiver(const QString &unit = QStringLiteral("1 slice"))
    {
        FoodListModel::Allowances rdas{};
        for (std::size_t i = 0; i < rdas.size(); ++i)
            rdas[i] = float(NutrientCatalogue::defaultRDAs()[i]);
        sheet->setAllowances(rdas);
        sheet->setOwnFoods({{liver, QStringLiteral("yesterday"), 2.0F, unit, 3.0F}}, 40);
    }
    void chooseNutrient(const char *name, bool wait = true)
    {
        auto *box = find<QComboBox>("nutrientbox");
        box->setCurrentIndex(box->findText(QLatin1String(name)));
        emit box->activated(box->currentIndex());
        if (wait)
            QTRY_VERIFY(list()->model()->rowCount() > 0);
    }
    void chooseBasis(int basis)
    {
        auto *box = find<QComboBox>("basisbox");
        QVERIFY(box->isVisible());
        box->setCurrentIndex(basis);
        emit box->activated(basis);
    }
    double amountOf(int row) const
    {
        const QStringList figures = list()->model()->index(row, 0).data(FoodListModel::FiguresRole).toStringList();
        return figures[0].section(u' ', 0, 0).toDouble();
    }
    QString rowSaid(int row) const
    {
        return list()->model()->index(row, 0).data(Qt::AccessibleDescriptionRole).toString();
    }
    QString handedOver(const QString &food) const
    {
        const std::optional<Quantity> quantity = sheet->foodlistcontroller()->quantityOf(food);
        return quantity ? quantity->amount + u'|' + quantity->unit : QString();
    }
};

QTEST_MAIN(FoodSheetByNutrientTest)
#include "tst_foodsheetbynutrient.moc"
