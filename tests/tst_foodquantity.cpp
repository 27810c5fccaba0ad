// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "catalog/FoodCatalogue.h"
#include "model/Composition.h"
#include "platform/Bundle.h"
#include "platform/NumberText.h"
#include "search/FoodPortion.h"
#include "search/FoodSearch.h"

#include <QFile>
#include <QtTest>

#include <limits>

#include <algorithm>
#include <vector>

class FoodQuantityTest final : public QObject {
    Q_OBJECT

private:
    const QStringList names = FoodCatalogue::foodNames();
    FoodSearch search{names};

    static std::vector<FoodUnit> unitsOf(const QString &food)
    {
        Composition composition;
        (void)composition.read(food);
        std::vector<FoodUnit> units;
        for (const QString &title : composition.unitTitles())
            units.push_back({title, composition.gramsOfUnit(title).value_or(0.0F)});
        return units;
    }

    // "2 x 1 cup, 488.00 g"; "g" for a food that has nothing to measure the quantity by, "-" without a quantity.
    QString portionText(const QString &food) const
    {
        if (!search.quantity())
            return QStringLiteral("-");
        const std::vector<FoodUnit> units = unitsOf(food);
        const FoodPortion portion = FoodPortion::of(*search.quantity(), units);
        if (!portion.fits)
            return QStringLiteral("nothing fits");
        return QStringLiteral("%1 x %2, %3 g")
            .arg(NumberText::fixed(double(NumberText::floatValue(portion.amount)), 2),
                units[static_cast<std::size_t>(portion.unit)].title, NumberText::fixed(double(portion.grams), 2));
    }

    static QRegularExpression pattern(const QString &text)
    {
        const QString escaped = QRegularExpression::escape(text).replace(QLatin1String("\\*"), QLatin1String(".*"));
        return QRegularExpression(QRegularExpression::anchoredPattern(escaped));
    }

private slots:
    void initTestCase() { Bundle::mainBundle().setResourcePath(QStringLiteral(SOURCE_DIR "/resources")); }

    void aQuantityInTheQueryIsMeasuredInTheFood_data()
    {
        QTest::addColumn<QString>("query");
        QTest::addColumn<QString>("food");
        QTest::addColumn<QString>("portion");

        QFile file(QStringLiteral(DATA_DIR "/quantities.tsv"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        for (const QString &line : QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts)) {
            if (line.startsWith(u'#'))
                continue;
            const QStringList fields = line.split(u'\t');
            QCOMPARE(fields.size(), 3);
            QTest::newRow(qPrintable(fields[0])) << fields[0] << fields[1] << fields[2];
        }
    }

    void aQuantityInTheQueryIsMeasuredInTheFood()
    {
        QFETCH(QString, query);
        QFETCH(QString, food);

        std::vector<int> hits = search.search(query);
        hits.resize(std::min<std::size_t>(hits.size(), 5));
        QStringList first;
        for (const int hit : hits)
            first << names[hit];
        const qsizetype at = first.indexOf(pattern(food));
        QVERIFY2(at >= 0, qPrintable(first.join(u'\n')));
        QTEST(portionText(first[at]), "portion");
    }

    void aMeasureIsChosenByAllThatItsTitleSays_data()
    {
        QTest::addColumn<QString>("query");
        QTest::addColumn<std::vector<FoodUnit>>("measures");
        QTest::addColumn<QString>("portion");
        const auto row
            = [](const char *name, const char *query, const std::vector<FoodUnit> &measures, const char *portion) {
                  QTest::newRow(name) << QString::fromLatin1(query) << measures << QString::fromLatin1(portion);
              };
        const auto unit = [](const char *title, float grams) { return FoodUnit{QString::fromLatin1(title), grams}; };
        row("half of a measure of two", "1 tbsp jam", {unit("1 tsp", 5), unit("2 tbsp", 30)}, "0.5 x 2 tbsp, 15 g");
        row("three times two pieces", "6 slices ham", {unit("2 slices", 50)}, "3 x 2 slices, 150 g");
        row("a volume of slices is no slice", "2 slices cake", {unit("1 cup slices", 100), unit("1 wedge", 80)},
            "2 x 1 wedge, 160 g");
        row("what comes with it is no piece", "2 apples", {unit("1 with skin", 60), unit("1 large", 100)},
            "2 x 1 large, 200 g");
        row("a size of two words", "1 extra small egg", {unit("1 small", 38), unit("1 extra small", 30)},
            "1 x 1 extra small, 30 g");
        row("a measure of more words", "2 slices ham", {unit("1 cup", 140), unit("1 thick slice", 30)},
            "2 x 1 thick slice, 60 g");
        row("so much of a volume", "1 cup bran",
            {unit("1 bowl (1 cup)", 55), unit("1 x 0.75 cup (1 NLEA serving)", 30)},
            "1.3333334 x 1 x 0.75 cup (1 NLEA serving), 40 g");
        row("a size after what it is of", "1 large potato", {unit("1 potato, small", 90), unit("1 potato, large", 300)},
            "1 x 1 potato, large, 300 g");
        row("no piece of that size", "2 large burgers", {unit("1 cup, large cubes", 140), unit("1 item", 90)},
            "2 x 1 item, 180 g");
        row("a weight without end", "1 cup jam", {unit("1 cup", std::numeric_limits<float>::infinity())},
            "100 x g, 100 g");
    }

    void aMeasureIsChosenByAllThatItsTitleSays()
    {
        QFETCH(QString, query);
        QFETCH(std::vector<FoodUnit>, measures);
        measures.insert(measures.begin(), {QStringLiteral("g"), 1.0F});
        const FoodPortion portion = FoodPortion::of(FoodQuantity::readings(query).front().quantity, measures);
        const QString text = QStringLiteral("%1 x %2, %3 g")
                                 .arg(portion.amount, measures[static_cast<std::size_t>(portion.unit)].title)
                                 .arg(double(portion.grams));
        QTEST(text, "portion");
    }

    void aRangeAndNothingAreNoQuantity()
    {
        QVERIFY(FoodQuantity::readings(u"2-3 eggs").empty());
        QVERIFY(FoodQuantity::readings(u" ").empty());
    }

    void ofACanAndATinTheCannedFoodComesFirst()
    {
        for (const char *query : {"1 can peaches", "1 tin peaches"}) {
            const std::vector<FoodQuantity::Reading> readings = FoodQuantity::readings(QString::fromLatin1(query));
            QCOMPARE(readings.size(), std::size_t(2));
            QVERIFY(readings[0].rest.endsWith(QStringLiteral("peaches canned")));
            QVERIFY(readings[1].rest.endsWith(QStringLiteral("peaches")));
        }
    }

    // Whoever types the amount into the cell gets the same float, and so the same weight to the bit.
    void theAmountAsTextIsTheAmountThatWasWeighed()
    {
        const std::vector<FoodUnit> units{{QStringLiteral("g"), 1.0F}, {QStringLiteral("1 cup"), 245.0F}};
        for (int third = 1; third < 300; ++third) {
            FoodQuantity quantity;
            quantity.count = third / 3.0;
            quantity.unit = MeasureText::unitAt(MeasureText::tokenize(u"cup"), 0)->unit;
            const FoodPortion portion = FoodPortion::of(quantity, units);
            QCOMPARE(portion.unit, 1);
            QVERIFY(NumberText::floatValue(portion.amount) * 245.0F == portion.grams);
        }
    }

    void massesAreConvertedExactly_data()
    {
        QTest::addColumn<QString>("query");
        QTest::addColumn<float>("grams");
        QTest::newRow("an ounce") << QStringLiteral("1 oz milk") << 28.349523125F;
        QTest::newRow("a pound") << QStringLiteral("1 lb milk") << 453.59237F;
        QTest::newRow("a kilogram") << QStringLiteral("1kg milk") << 1000.0F;
        QTest::newRow("pounds and ounces") << QStringLiteral("1 lb 4 oz beef") << 566.9904625F;
        QTest::newRow("pounds and ounces at the end") << QStringLiteral("beef 1 lb 4 oz") << 566.9904625F;
        QTest::newRow("several of a weight") << QStringLiteral("2 x 200 g yogurt") << 400.0F;
        QTest::newRow("several of a weight at the end") << QStringLiteral("yogurt 2 x 200 g") << 400.0F;
        QTest::newRow("half a pound") << QStringLiteral("half a pound of milk") << 226.796185F;
    }

    void massesAreConvertedExactly()
    {
        QFETCH(QString, query);
        QVERIFY(!search.search(query).empty());
        QVERIFY(search.quantity());
        const FoodPortion portion = FoodPortion::of(*search.quantity(), unitsOf(names[search.search(query).front()]));
        QCOMPARE(portion.unit, 0);
        QFETCH(float, grams);
        QVERIFY(portion.grams == grams); // to the bit: QCOMPARE allows some more
        QVERIFY(NumberText::floatValue(portion.amount) == grams);
    }
};

QTEST_APPLESS_MAIN(FoodQuantityTest)
#include "tst_foodquantity.moc"
