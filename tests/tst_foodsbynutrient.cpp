// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "bynutrient/FoodsByNutrient.h"
#include "bynutrient/NamePattern.h"
#include "catalog/FoodCatalogue.h"
#include "catalog/NutrientCatalogue.h"
#include "model/Composition.h"
#include "support/FoodFiles.h"

#include <QFile>
#include <QRegularExpression>
#include <QtTest>

#include <limits>

using Basis = FoodsByNutrient::Basis;

class FoodsByNutrientTest final : public QObject {
    Q_OBJECT

private:
    const QStringList names = FoodCatalogue::foodNames();
    const Standing standing{names};
    FoodsByNutrient foods{names};

    static int nutrient(const char *name) { return NutrientCatalogue::indexOfNutrient(name); }

    static QList<int> indexes(const std::vector<FoodsByNutrient::Row> &rows)
    {
        QList<int> list;
        for (const FoodsByNutrient::Row &row : rows)
            list << row.food;
        return list;
    }

    QStringList firstOf(int index)
    {
        QStringList first;
        for (const FoodsByNutrient::Row &row : foods.list(index, Basis::Portion).catalogue)
            if (first.size() < FoodsByNutrient::firstRows)
                first << names[row.food];
        return first;
    }

private slots:
    void goodSourcesAreAmongTheFirstSixtyAndImplausibleOnesAreNot_data()
    {
        QTest::addColumn<QStringList>("good");
        QTest::addColumn<QStringList>("implausible");

        QFile file(QStringLiteral(DATA_DIR "/foodsources.tsv"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QMap<QString, QMap<QString, QStringList>> patterns;
        for (const QString &line : QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts)) {
            const QStringList fields = line.split(u'\t');
            if (!line.startsWith(u'#'))
                patterns[fields.value(0)][fields.value(2)] << fields.value(1);
        }
        QVERIFY(patterns.size() >= 10);
        for (auto each = patterns.constBegin(); each != patterns.constEnd(); ++each)
            QTest::newRow(qPrintable(each.key()))
                << each.value()[QStringLiteral("yes")] << each.value()[QStringLiteral("no")];
    }

    void goodSourcesAreAmongTheFirstSixtyAndImplausibleOnesAreNot()
    {
        QFETCH(QStringList, good);
        QFETCH(QStringList, implausible);

        const int index = nutrient(QTest::currentDataTag());
        QVERIFY(index >= 0);
        const QStringList first = firstOf(index);
        QCOMPARE(first.size(), FoodsByNutrient::firstRows);
        QStringList missing;
        for (const QString &pattern : good)
            if (first.filter(QRegularExpression(pattern)).isEmpty())
                missing << pattern;
        QCOMPARE(good.size(), 8);
        QVERIFY2(missing.size() <= 2, qPrintable(missing.join(u'\n')));
        for (const QString &pattern : implausible) {
            const auto wrong = first.filter(QRegularExpression(pattern));
            QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(u'\n')));
        }
    }

    void aPatternFitsABeginningAndLaterWordsFromTheirBeginning_data()
    {
        QTest::addColumn<QString>("pattern");
        QTest::addColumn<bool>("fits");

        QTest::newRow("the beginning") << "fish, tu" << true;
        QTest::newRow("not the middle") << "tuna" << false;
        QTest::newRow("a later word") << "fish, *canned" << true;
        QTest::newRow("two later words") << "*tuna, *oil" << true;
        QTest::newRow("not in the other order") << "*oil, *tuna" << false;
        QTest::newRow("not the inside of a word") << "*una" << false;
    }

    void aPatternFitsABeginningAndLaterWordsFromTheirBeginning()
    {
        QFETCH(QString, pattern);
        QFETCH(bool, fits);
        const std::string text = pattern.toStdString();
        const std::string_view name = "fish, tuna, light, canned in oil, drained solids";
        QCOMPARE(NamePattern::matches(text, name), fits);
        QCOMPARE(NamePattern::Table({"fish, salmon", text}).find(name).has_value(), fits);
    }

    void aPortionIsWhatIsEatenAtASitting_data()
    {
        QTest::addColumn<float>("amount");
        QTest::addColumn<QString>("unit");

        QTest::newRow("Oil, olive, salad or cooking") << 1.0F << "1 tablespoon";
        QTest::newRow("Cheese, cheddar") << 1.0F << "1 slice (1 oz)";
        QTest::newRow("Nuts, almonds") << 1.0F << "1 oz (23 whole kernels)";
        QTest::newRow("Egg, whole, cooked, hard-boiled") << 2.0F << "1 large";
        QTest::newRow("Peanut butter, smooth style, with salt") << 1.0F << "2 tbsp";
        QTest::newRow("Fish, salmon, sockeye, cooked, dry heat") << 1.0F << "3 oz";
        QTest::newRow("Spices, thyme, dried") << 1.0F << "1 tsp, ground";
        QTest::newRow("Cocoa, dry powder, unsweetened") << 1.0F << "1 tbsp";
        QTest::newRow("Coffee, brewed from grounds, prepared with tap water") << 1.0F << "1 cup (8 fl oz)";
        QTest::newRow("Alcoholic beverage, beer, regular, all") << 1.0F << "1 can";
        QTest::newRow("Coffee, instant, decaffeinated, powder, prepared with water") << 240.0F << "g";
        QTest::newRow("Alcoholic beverage, distilled, vodka, 80 proof") << 1.0F << "1 jigger 1.5 fl oz";
        QTest::newRow("Cereals ready-to-eat, wheat germ, toasted, plain") << 1.0F << "1 oz";
        QTest::newRow("Bananas, raw") << 1.0F << "1 medium (7\" to 7-7/8\" long)";
        QTest::newRow("Cheese, cottage, lowfat, 2% milkfat") << 1.0F << "4 oz";
        QTest::newRow("Spinach, cooked, boiled, drained, without salt") << 1.0F << "1 cup";
        QTest::newRow("Lentils, mature seeds, cooked, boiled, without salt") << 1.0F << "1 cup";
        QTest::newRow("Okra, frozen, cooked, boiled, drained, with salt") << 1.0F << "1 cup slices";
        QTest::newRow("Apricots, dried, sulfured, uncooked") << 40.0F << "g";
        QTest::newRow("Wheat germ, crude") << 28.0F << "g";
        QTest::newRow("Pork, fresh, loin, top loin (chops), boneless, separable lean only, cooked, broiled")
            << 1.0F << "1 chop";
        QTest::newRow("Pork, fresh, loin, blade (chops), bone-in, separable lean and fat, cooked, broiled")
            << 85.0F << "g"; // a chop is a dish for two
        QTest::newRow("Lamb, New Zealand, imported, frozen, loin, separable lean and fat, cooked, broiled")
            << 1.0F << "3 oz"; // a chop is a morsel
        // The measures are what a raw bird yields.
        QTest::newRow("Turkey, fryer-roasters, light meat, meat only, cooked, roasted") << 85.0F << "g";
    }

    void aPortionIsWhatIsEatenAtASitting()
    {
        QFETCH(float, amount);
        QFETCH(QString, unit);

        const auto name = QString::fromUtf8(QTest::currentDataTag());
        Composition composition;
        QVERIFY(composition.read(name));
        const Portion portion = Portion::of(name, composition, composition.amount(0).value_or(0.0F));
        QCOMPARE(portion.unit, unit);
        QCOMPARE(portion.amount, amount);
        QCOMPARE(portion.grams, amount * composition.gramsOfUnit(unit).value_or(0.0F));
    }

    void noEverydayPortionIsMoreThanAPlateful()
    {
        const FoodFigures figures(names);
        for (int food = 0; food < figures.count(); ++food) {
            const Portion &portion = figures.portion(food);
            const float energy = figures.amount(food, 0).value_or(0.0F) / 100.0F * portion.grams;
            QVERIFY2(portion.grams > 0.0F, qPrintable(names[food]));
            if (standing.of(food).rank == Standing::Rank::Everyday)
                QVERIFY2(portion.grams < 400.0F && energy < 600.0F, qPrintable(names[food]));
        }
    }

    void aFoodOfNoKnownKindIsEatenInItsFirstMeasureOrLess_data()
    {
        QTest::addColumn<QByteArray>("measures");
        QTest::addColumn<float>("energy");
        QTest::addColumn<Portion>("portion");

        const auto measure = [](const char *name, int grams) {
            return QByteArray("<measure name=\"") + name + "\" amount=\"1\" grams=\"" + QByteArray::number(grams)
                + "\"/>";
        };
        const QString cup = QStringLiteral("1 cup");
        const QString grams = QStringLiteral("g");
        QTest::newRow("the first measure")
            << measure("cup", 180) + measure("oz", 28) << 50.0F << Portion{1.0F, cup, 180.0F};
        QTest::newRow("half of what weighs too much") << measure("cup", 400) << 50.0F << Portion{0.5F, cup, 200.0F};
        QTest::newRow("half of what is too rich") << measure("cup", 200) << 200.0F << Portion{0.5F, cup, 100.0F};
        QTest::newRow("a quarter, and no less")
            << measure("pie", 900) << 50.0F << Portion{0.25F, QStringLiteral("1 pie"), 225.0F};
        QTest::newRow("what only begins like a package") << measure("cannoli", 100) + measure("cup", 150) << 50.0F
                                                         << Portion{1.0F, QStringLiteral("1 cannoli"), 100.0F};
        QTest::newRow("no package") << measure("package (10 oz)", 240) + measure("cup", 150) << 50.0F
                                    << Portion{1.0F, cup, 150.0F};
        QTest::newRow("200 kcal where no measure helps")
            << measure("whole bird", 4000) << 100.0F << Portion{200.0F, grams, 200.0F};
        QTest::newRow("250 g without energy") << QByteArray() << 0.0F << Portion{250.0F, grams, 250.0F};
    }

    void aFoodOfNoKnownKindIsEatenInItsFirstMeasureOrLess()
    {
        QFETCH(QByteArray, measures);
        QFETCH(float, energy);
        QFETCH(Portion, portion);

        const FoodFiles files;
        const QString name = QStringLiteral("Zzz");
        files.writeElements(name, measures);
        Composition composition;
        QVERIFY(composition.read(name));
        QCOMPARE(Portion::of(name, composition, energy), portion);
    }

    void aNameTellsHowNearAtHandTheFoodIs_data()
    {
        QTest::addColumn<Standing::Rank>("rank");

        QTest::newRow("Apples, raw, with skin") << Standing::Rank::Everyday;
        QTest::newRow("Lentils, mature seeds, cooked, boiled, with salt") << Standing::Rank::Everyday;
        QTest::newRow("Apricots, dried, sulfured, uncooked") << Standing::Rank::Everyday;
        QTest::newRow("Mollusks, oyster, eastern, wild, raw") << Standing::Rank::Everyday;
        QTest::newRow("GREEN GIANT, HARVEST BURGER, Original Flavor, All Vegetable Protein Patties, frozen")
            << Standing::Rank::Further;
        QTest::newRow("Energy drink, ROCKSTAR") << Standing::Rank::Further;
        QTest::newRow("Beef, chuck, mock tender steak, separable lean and fat, trimmed to 0 inch fat, USDA choice, "
                      "cooked, broiled")
            << Standing::Rank::Everyday; // these capitals are no brand
        QTest::newRow("Game meat, beaver, cooked, roasted") << Standing::Rank::Further;
        QTest::newRow("Lentils, raw") << Standing::Rank::NotAsSuch;
        QTest::newRow("Beef, variety meats and by-products, liver, raw") << Standing::Rank::NotAsSuch;
        QTest::newRow("Spinach, frozen, chopped or leaf, unprepared") << Standing::Rank::NotAsSuch;
        QTest::newRow("Spices, thyme, dried") << Standing::Rank::NotAsSuch;
        QTest::newRow("Potato flour") << Standing::Rank::NotAsSuch;
        QTest::newRow("Spaghetti, spinach, dry") << Standing::Rank::NotAsSuch;
        QTest::newRow("Coffee, instant, regular, powder") << Standing::Rank::NotAsSuch;
        QTest::newRow("Babyfood, carrots, toddler") << Standing::Rank::NotAsSuch;
    }

    void aNameTellsHowNearAtHandTheFoodIs()
    {
        QFETCH(Standing::Rank, rank);
        const qsizetype food = names.indexOf(QString::fromUtf8(QTest::currentDataTag()));
        QVERIFY(food >= 0);
        QCOMPARE(standing.of(static_cast<int>(food)).rank, rank);
    }

    void theFirstSixtyAreEverydayFoodsInOrderWithAtMostThreeOfOne()
    {
        for (int index = 0; index < NutrientCatalogue::nutrientCount; ++index) {
            if (index == nutrient("Alcohol") || index == nutrient("Caffeine"))
                continue; // hardly sixty foods have any
            const std::vector<FoodsByNutrient::Row> rows = foods.list(index, Basis::Portion).catalogue;
            QMap<int, int> of;
            QMap<int, int> ofshelf;
            float above = std::numeric_limits<float>::max();
            for (std::size_t i = 0; i < FoodsByNutrient::firstRows; ++i) {
                const Standing::Food &food = standing.of(rows[i].food);
                const QString where = NutrientCatalogue::names()[index] + u' ' + names[rows[i].food];
                QVERIFY2(food.rank == Standing::Rank::Everyday, qPrintable(where));
                QVERIFY2(rows[i].amount > 0.0F && rows[i].amount <= above, qPrintable(where));
                QVERIFY2(++of[food.food] <= (food.shelf == 0 ? 3 : 2), qPrintable(where));
                QVERIFY2(food.shelf == 0 || ++ofshelf[food.shelf] <= 10, qPrintable(where));
                above = rows[i].amount;
            }
        }
    }

    void whatIsUnknownIsCountedAndWhatIsNothingComesLast()
    {
        const FoodFiles files;
        const QStringList own{QStringLiteral("Aaa"), QStringLiteral("Bbb"), QStringLiteral("Ccc"),
            QStringLiteral("Ddd"), QStringLiteral("Eee"), QStringLiteral("Ccc, dry")};
        files.writeElements(own[0], "<nutrient name=\"Energy\" amount=\"100\"/>");
        files.writeElements(own[1], "<nutrient name=\"Iron\" amount=\"0\"/>");
        files.writeElements(own[2], "<nutrient name=\"Iron\" amount=\"2\"/>");
        files.writeElements(own[4], "<nutrient name=\"Iron\" amount=\"3\"/>");
        files.writeElements(own[5], "<nutrient name=\"Iron\" amount=\"9\"/>");
        FoodsByNutrient few(own);
        QVERIFY(!few.isPrepared());
        const FoodsByNutrient::List list = few.list(nutrient("Iron"), Basis::HundredGrams);
        QVERIFY(few.isPrepared());
        QCOMPARE(indexes(list.catalogue), QList<int>({4, 2, 1, 5})); // what nobody eats dry after what holds nothing
        QCOMPARE(list.unknown, 2); // one file lists no iron, one is not there
        files.writeElements(own[0], "<nutrient name=\"Iron\" amount=\"1\"/>");
        QCOMPARE(few.list(nutrient("Iron"), Basis::Portion).unknown, 2);
        QCOMPARE(FoodsByNutrient(own).list(nutrient("Iron"), Basis::Portion).unknown, 1); // seen by the next start
    }

    void whatOneHasEatenComesFirstByOnesOwnPortion()
    {
        const auto lentils = int(names.indexOf(QStringLiteral("Lentils, mature seeds, cooked, boiled, without salt")));
        const auto thyme = int(names.indexOf(QStringLiteral("Spices, thyme, dried")));
        const auto spinach = int(names.indexOf(QStringLiteral("Spinach, raw")));
        const Portion much{2.0F, QStringLiteral("1 cup"), 396.0F};
        const Portion little{1.0F, QStringLiteral("g"), 1.0F};
        const FoodsByNutrient::List list
            = foods.list(nutrient("Iron"), Basis::Portion, {{spinach, little}, {thyme, little}, {lentils, much}});
        QCOMPARE(indexes(list.eaten), QList<int>({lentils, thyme, spinach}));
        QCOMPARE(list.eaten[0].portion, much);
        QCOMPARE(list.eaten[0].amount, 3.33F / 100.0F * 396.0F);
        QVERIFY(!indexes(list.catalogue).contains(lentils));
        QCOMPARE(list.eaten.size() + list.catalogue.size() + std::size_t(list.unknown), std::size_t(names.size()));
        const FoodsByNutrient::List per100 = foods.list(nutrient("Iron"), Basis::HundredGrams, {{lentils, much}});
        QCOMPARE(per100.eaten[0].amount, 3.33F);
        QCOMPARE(per100.eaten[0].portion, Portion());
    }

    void by100KilocaloriesNothingWateryLeads()
    {
        const FoodsByNutrient::List list = foods.list(nutrient("Magnesium"), Basis::HundredKilocalories);
        const QString first = names[list.catalogue.front().food];
        QVERIFY2(!first.startsWith(QLatin1String("Coffee")), qPrintable(first));
        const auto water = int(names.indexOf(QStringLiteral("Water, tap, drinking")));
        QVERIFY(!indexes(list.catalogue).contains(water)); // 100 kcal of it there are not
        QVERIFY(list.unknown > foods.list(nutrient("Magnesium"), Basis::HundredGrams).unknown);
    }

    void aFilteredListKeepsTheOrderAndHasAllThatWasFound()
    {
        std::vector<int> tuna;
        for (int food = 0; food < names.size(); ++food)
            if (names[food].startsWith(QLatin1String("Fish, tuna")))
                tuna.push_back(food);
        const FoodsByNutrient::List list
            = foods.listOf(tuna, nutrient("Selenium"), Basis::HundredGrams, {{tuna[3], Portion()}, {0, Portion()}});
        QCOMPARE(indexes(list.eaten), QList<int>({tuna[3]}));
        QCOMPARE(list.catalogue.size() + 1 + std::size_t(list.unknown), tuna.size());
        QVERIFY(list.catalogue.size() > 3);
        for (std::size_t i = 1; i < list.catalogue.size(); ++i) {
            const auto rank = [&](std::size_t row) { return standing.of(list.catalogue[row].food).rank; };
            QVERIFY(rank(i - 1) < rank(i)
                || (rank(i - 1) == rank(i) && list.catalogue[i - 1].amount >= list.catalogue[i].amount));
        }
    }
};

QTEST_GUILESS_MAIN(FoodsByNutrientTest)
#include "tst_foodsbynutrient.moc"
