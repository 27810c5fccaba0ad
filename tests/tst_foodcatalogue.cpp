// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "catalog/FoodCatalogue.h"
#include "catalog/NaturalOrder.h"

#include <QFile>
#include <QSet>
#include <QtTest>

namespace {

const QStringList first20 = {
    QStringLiteral("Abiyuch, raw"),
    QStringLiteral("Acerola juice, raw"),
    QStringLiteral("Acerola, (west indian cherry), raw"),
    QStringLiteral("Acorn stew (Apache)"),
    QStringLiteral("Adobo fresco"),
    QStringLiteral("Agave, cooked (Southwest)"),
    QStringLiteral("Agave, dried (Southwest)"),
    QStringLiteral("Agave, raw (Southwest)"),
    QStringLiteral("Agutuk, fish with shortening (Alaskan ice cream) (Alaska Native)"),
    QStringLiteral("Agutuk, meat-caribou (Alaskan ice cream) (Alaska Native)"),
    QStringLiteral("Alcoholic beverage, beer, light, BUD LIGHT"),
    QStringLiteral("Alcoholic beverage, beer, light, BUDWEISER SELECT"),
    QStringLiteral("Alcoholic beverage, beer, light, MICHELOB ULTRA"),
    QStringLiteral("Alcoholic beverage, beer, light"),
    QStringLiteral("Alcoholic beverage, beer, regular, all"),
    QStringLiteral("Alcoholic beverage, beer, regular, BUDWEISER"),
    QStringLiteral("Alcoholic beverage, creme de menthe, 72 proof"),
    QStringLiteral("Alcoholic beverage, daiquiri, canned"),
    QStringLiteral("Alcoholic beverage, daiquiri, prepared-from-recipe"),
    QStringLiteral("Alcoholic beverage, distilled, all (gin, rum, vodka, whiskey) 80 proof"),
};

const QStringList last10 = {
    QStringLiteral("Yogurt, fruit, lowfat, with low calorie sweetener, fortified with vitamin D"),
    QStringLiteral("Yogurt, fruit, lowfat, with low calorie sweetener"),
    QStringLiteral("Yogurt, plain, low fat, 12 grams protein per 8 ounce"),
    QStringLiteral("Yogurt, plain, skim milk, 13 grams protein per 8 ounce"),
    QStringLiteral("Yogurt, plain, whole milk, 8 grams protein per 8 ounce"),
    QStringLiteral("Yogurt, vanilla or lemon flavor, nonfat milk, sweetened with low-calorie sweetener, fortified with "
                   "vitamin D"),
    QStringLiteral("Yogurt, vanilla or lemon flavor, nonfat milk, sweetened with low-calorie sweetener"),
    QStringLiteral("Yogurt, vanilla, low fat, 11 grams protein per 8 ounce, fortified with vitamin D"),
    QStringLiteral("Yogurt, vanilla, low fat, 11 grams protein per 8 ounce"),
    QStringLiteral("Zwieback"),
};

} // namespace

class FoodCatalogueTest final : public QObject {
    Q_OBJECT

private slots:
    void thereAre7801Names()
    {
        QCOMPARE(FoodCatalogue::foodCount, 7801);
        QCOMPARE(foods.size(), 7801);
        QCOMPARE(foods.constFirst(), QStringLiteral("Abiyuch, raw"));
        QCOMPARE(foods.constLast(), QStringLiteral("Zwieback"));
    }

    void theNamesAreThoseOfTheTable()
    {
        QFile file(QStringLiteral(SOURCE_DIR "/catalog/foods.tsv"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        qsizetype line = 0;
        for (; !file.atEnd(); ++line) {
            const QByteArray text = file.readLine();
            QVERIFY2(line < foods.size(), text.constData());
            QCOMPARE(text.indexOf('\t'), 5);
            QCOMPARE(foods.at(line).toUtf8() + '\n', text.mid(6));
        }
        QCOMPARE(line, foods.size());
    }

    void theFirst20NamesAreThese() { QCOMPARE(foods.first(20), first20); }

    void theLast10NamesAreThese() { QCOMPARE(foods.last(10), last10); }

    void theNamesAscendStrictlyInTheNaturalOrder()
    {
        for (qsizetype i = 1; i < foods.size(); ++i) {
            QVERIFY2(NaturalOrder::compareFoodNames(foods.at(i - 1), foods.at(i)) < 0,
                qPrintable(foods.at(i - 1) + QStringLiteral(" | ") + foods.at(i)));
        }
    }

    void everyNameIsUniqueWithoutRegardToCase()
    {
        QSet<QString> seen;
        for (const QString &food : foods)
            seen.insert(food.toCaseFolded());
        QCOMPARE(seen.size(), foods.size());
    }

    void everyNameHoldsAllowedCharactersOnly()
    {
        const QString punctuation = QStringLiteral(" !#%&'()+,-.;");
        for (const QString &food : foods) {
            for (const QChar c : food) {
                const bool plain = (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z');
                QVERIFY2(plain || punctuation.contains(c), qPrintable(food));
            }
        }
    }

    void everyNameHas3To177Characters()
    {
        QStringList shortest;
        for (const QString &food : foods) {
            QVERIFY2(food.size() >= 3 && food.size() <= 177, qPrintable(food));
            if (food.size() == 3)
                shortest.append(food);
        }
        QCOMPARE(shortest, QStringList({QStringLiteral("Poi"), QStringLiteral("Rye")}));
    }

    void theNaturalOrderMakesTheseTwoNeighbours_data()
    {
        QTest::addColumn<QString>("first");
        QTest::addColumn<QString>("second");

        QTest::newRow("94 proof, then 100 proof")
            << QStringLiteral("Alcoholic beverage, distilled, all (gin, rum, vodka, whiskey) 94 proof")
            << QStringLiteral("Alcoholic beverage, distilled, all (gin, rum, vodka, whiskey) 100 proof");
        QTest::newRow("the longer name, then the one it begins with") << QStringLiteral(
            "Alcoholic beverage, beer, light, MICHELOB ULTRA") << QStringLiteral("Alcoholic beverage, beer, light");
        QTest::newRow("hyphen, then comma") << QStringLiteral("Chocolate-flavored hazelnut spread")
                                            << QStringLiteral("Chocolate, dark, 45- 59% cacao solids");
        QTest::newRow("comma, then apostrophe")
            << QStringLiteral("Candies, HERSHEY, REESESTICKS crispy wafers, peanut butter, milk chocolate")
            << QStringLiteral("Candies, HERSHEY'S GOLDEN ALMOND SOLITAIRES");
        QTest::newRow("apostrophe, then ampersand") << QStringLiteral("McDONALD'S, Fruit 'n Yogurt Parfait")
                                                    << QStringLiteral("McDONALD'S, Fruit & Walnut Salad");
        QTest::newRow("comma, then parenthesis") << QStringLiteral("OSCAR MAYER, Wieners (beef franks, light)")
                                                 << QStringLiteral("OSCAR MAYER, Wieners (beef franks)");
    }

    void theNaturalOrderMakesTheseTwoNeighbours()
    {
        QFETCH(QString, first);
        QFETCH(QString, second);
        const qsizetype place = foods.indexOf(first);
        QVERIFY(place >= 0);
        QVERIFY(place + 1 < foods.size());
        QCOMPARE(foods.at(place + 1), second);
    }

    void namesKeepTheirCapitalsAndPunctuation()
    {
        QVERIFY(foods.contains(QStringLiteral("Cereals ready-to-eat, QUAKER, CAP'N CRUNCH")));
        QVERIFY(foods.contains(QStringLiteral("Milk, whole, 3.25% milkfat, with added vitamin D")));
    }

    void theNamesOutliveTheListAndChangingACopyLeavesTheCatalogue()
    {
        QString name;
        {
            QStringList list = FoodCatalogue::foodNames();
            name = list.at(7800);
            list[0].append(QStringLiteral(" and more"));
            list[1][0] = u'x';
        }
        QCOMPARE(name, QStringLiteral("Zwieback"));
        name[0] = u'x';
        QCOMPARE(FoodCatalogue::foodNames(), foods);
        QCOMPARE(foods.constLast(), QStringLiteral("Zwieback"));
    }

private:
    const QStringList foods = FoodCatalogue::foodNames();
};

QTEST_APPLESS_MAIN(FoodCatalogueTest)
#include "tst_foodcatalogue.moc"
