// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "model/Food.h"
#include "support/FoodFiles.h"

#include <QtTest>

#include <bit>
#include <clocale>
#include <cmath>
#include <limits>

namespace {

const QString name = QStringLiteral("Broth");
const QString energy = QStringLiteral("Energy");
const QString grams = QStringLiteral("g");
const QString cup = QStringLiteral("1 cup");

quint32 bits(float value)
{
    return std::bit_cast<quint32>(value);
}

} // namespace

// Units, weights and amounts of one food. What its file may look like is tested in tst_foodfile.
class FoodTest final : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        files = std::make_unique<FoodFiles>();
        files->writeElements(name,
            "<measure name=\"cup\" amount=\"1\" grams=\"240\"/>"
            "<measure name=\"nothing\" amount=\"1\" grams=\"0\"/>"
            "<nutrient name=\"Energy\" amount=\"7.3\"/>"
            "<nutrient name=\"Vitamin C\" amount=\"1.40\"/>");
    }
    void cleanup() { files.reset(); }

    void aNewFoodIs100GramsAndDoesNotTouchItsFile()
    {
        Food food(name);
        QCOMPARE(food.name(), name);
        QCOMPARE(food.curamount(), 100.0F);
        QCOMPARE(food.curunit(), grams);
        QCOMPARE(food.curunitidx(), 0);
        QCOMPARE(food.gramsOfUnit(cup), std::nullopt);
        files->writeElements(name, "<measure name=\"bowl\" amount=\"1\" grams=\"300\"/>");
        QCOMPARE(food.getUnitNames(), QStringList({grams, QStringLiteral("1 bowl")}));
    }

    void theFirstOfEachQuestionLoads()
    {
        Food byUnits(name);
        QCOMPARE(byUnits.getUnitNames(), QStringList({grams, cup, QStringLiteral("1 nothing")}));
        QVERIFY(byUnits.gramsOfUnit(cup));
        Food byGrams(name);
        QCOMPARE(byGrams.getGrams(), 100.0F);
        QVERIFY(byGrams.gramsOfUnit(cup));
        Food byAmount(name);
        QCOMPARE(byAmount.getAmountOfNutrient(energy), 7.3F / 100.0F * 100.0F);
        QVERIFY(byAmount.gramsOfUnit(cup));
        Food byIndex(name);
        QCOMPARE(byIndex.getAmountOfNutrient(0), 7.3F / 100.0F * 100.0F);
        Food byKnowledge(name);
        QVERIFY(byKnowledge.knowsNutrient(0));
    }

    void settersOnlyStore()
    {
        Food food(name);
        food.setCurunit(QStringLiteral("1 no such unit"));
        food.setCuramount(-0.0F);
        food.setCurunitidx(-7);
        food.setName(QStringLiteral("del"));
        QCOMPARE(food.curunit(), QStringLiteral("1 no such unit"));
        QCOMPARE(bits(food.curamount()), bits(-0.0F));
        QCOMPARE(food.curunitidx(), -7);
        QCOMPARE(food.name(), QStringLiteral("del"));
        QCOMPARE(food.gramsOfUnit(cup), std::nullopt);
    }

    void aNutrientThatTheFileDoesNotListIsZero()
    {
        Food food(name);
        QCOMPARE(bits(food.getAmountOfNutrient(QStringLiteral("Protein"))), bits(0.0F));
        QCOMPARE(food.getAmountOfNutrient(QStringLiteral("energy")), 0.0F);
        QCOMPARE(food.getAmountOfNutrient(QStringLiteral("Energy ")), 0.0F);
        QCOMPARE(food.getAmountOfNutrient(QString()), 0.0F);
        QCOMPARE(food.getAmountOfNutrient(-1), 0.0F);
    }

    void aNutrientThatTheFileDoesNotListIsZeroWhateverTheWeight()
    {
        Food food(name);
        food.setCuramount(std::numeric_limits<float>::infinity());
        QCOMPARE(bits(food.getAmountOfNutrient(QStringLiteral("Protein"))), bits(0.0F)); // not 0 times infinity
    }

    void theAmountIsDividedFirstAndMultipliedSecondInFloat()
    {
        Food food(name);
        const float eaten = 1.4F;
        food.setCuramount(eaten);
        // Both in another order and in double the last bit is another one.
        const float expected = 7.3F / 100.0F * eaten;
        QVERIFY(bits(expected) != bits(7.3F * eaten / 100.0F));
        QVERIFY(bits(expected) != bits(float(double(7.3F) / 100.0 * double(eaten))));
        QCOMPARE(bits(food.getAmountOfNutrient(energy)), bits(expected));
    }

    void theWeightFollowsAmountAndUnit()
    {
        Food food(name);
        QCOMPARE(food.getGrams(), 100.0F);
        food.setCurunit(cup);
        QCOMPARE(food.getGrams(), 24000.0F);
        food.setCuramount(-0.5F);
        QCOMPARE(food.getGrams(), -120.0F);
    }

    void anAbsentUnitMeansGramsAndAnUnknownOneNothing()
    {
        Food food(name);
        food.setCuramount(250.0F);
        food.setCurunit(std::nullopt);
        QCOMPARE(food.getGrams(), 250.0F);
        food.setCurunit(QStringLiteral("1 no such unit"));
        QCOMPARE(food.getGrams(), 0.0F);
        QCOMPARE(food.getAmountOfNutrient(energy), 0.0F);
        food.setCurunit(QString()); // an empty title is a title, and unknown
        QCOMPARE(food.getGrams(), 0.0F);
    }

    void aFoodWithoutAFileHasGramsOnlyAndLooksAgainAtEachQuestion()
    {
        files->remove(name);
        Food food(name);
        for (int attempt = 0; attempt < 20; ++attempt)
            QCOMPARE(food.getUnitNames(), QStringList{grams});
        QCOMPARE(food.getGrams(), 100.0F);
        QCOMPARE(food.getAmountOfNutrient(energy), 0.0F);
        files->writeElements(name, "<nutrient name=\"Energy\" amount=\"50\"/>");
        QCOMPARE(food.getAmountOfNutrient(energy), 50.0F);
    }

    void aLoadedFoodIsNeverReadAgain()
    {
        Food food(name);
        QCOMPARE(food.getGrams(), 100.0F);
        files->writeElements(name, "<nutrient name=\"Energy\" amount=\"50\"/>");
        QCOMPARE(food.getAmountOfNutrient(energy), 7.3F / 100.0F * 100.0F);
        files->remove(name);
        QCOMPARE(food.getUnitNames().size(), 3);
    }

    void aNameThatCannotBeAFileNameHasNoFile_data()
    {
        QTest::addColumn<bool>("absent");
        QTest::addColumn<QString>("text");
        QTest::newRow("an absent name") << true << QString();
        QTest::newRow("an empty name") << false << QString();
        QTest::newRow("a name with a slash") << false << QStringLiteral("../Database.xml/Broth");
        QTest::newRow("a name with a NUL") << false << QStringLiteral("Broth.xml") + QChar(u'\0');
        QTest::newRow("a name in other letters") << false << QStringLiteral("broth");
    }

    void aNameThatCannotBeAFileNameHasNoFile()
    {
        QFETCH(bool, absent);
        QFETCH(QString, text);
        files->writeElements(QString(), "<nutrient name=\"Energy\" amount=\"50\"/>");
        Food food(absent ? std::nullopt : std::optional<QString>(text));
        QCOMPARE(food.getUnitNames(), QStringList{grams});
        QCOMPARE(food.getAmountOfNutrient(energy), 0.0F);
        QCOMPARE(food.getGrams(), 100.0F);
    }

    void titlesAreComparedExactly()
    {
        files->writeElements(name,
            "<measure name=\"Cup\" amount=\"1\" grams=\"300\"/><measure name=\"cup\" amount=\"1\" grams=\"240\"/>");
        Food food(name);
        QCOMPARE(food.getUnitNames(), QStringList({grams, QStringLiteral("1 Cup"), cup}));
        QCOMPARE(food.gramsOfUnit(cup), 240.0F);
        QCOMPARE(food.gramsOfUnit(QStringLiteral("G")), std::nullopt);
    }

    void keepingTheWeightAdaptsTheAmount()
    {
        Food food(name);
        QVERIFY(food.getUnitNames().contains(cup));
        food.setUnit(cup, 2, true);
        QCOMPARE(food.curunit(), cup);
        QCOMPARE(bits(food.curamount()), bits(100.0F * 1.0F / 240.0F));
        QCOMPARE(food.curunitidx(), 2);
        QCOMPARE(food.getGrams(), 100.0F);
        food.setUnit(grams, 0, true);
        QCOMPARE(food.curamount(), 100.0F);
        QCOMPARE(food.curunitidx(), 0);
    }

    void keepingTheAmountChangesTheWeight()
    {
        Food food(name);
        const float before = food.getAmountOfNutrient(energy);
        food.setUnit(cup, 1, false);
        QCOMPARE(food.curamount(), 100.0F);
        QCOMPARE(food.getGrams(), 24000.0F);
        QCOMPARE(food.getAmountOfNutrient(energy), 7.3F / 100.0F * 24000.0F);
        QVERIFY(food.getAmountOfNutrient(energy) > before);
    }

    void multipliesFirstAndDividesSecondWhenKeepingTheWeight()
    {
        files->writeElements(
            name, "<measure name=\"a\" amount=\"1\" grams=\"3.7\"/><measure name=\"b\" amount=\"1\" grams=\"0.3\"/>");
        Food food(name);
        QCOMPARE(food.getUnitNames().size(), 3);
        food.setCuramount(1.2F);
        food.setCurunit(QStringLiteral("1 a"));
        food.setUnit(QStringLiteral("1 b"), 2, true);
        const float expected = 1.2F * 3.7F / 0.3F;
        QVERIFY(bits(expected) != bits(1.2F * (3.7F / 0.3F)));
        QVERIFY(bits(expected) != bits(1.2F / 0.3F * 3.7F));
        QCOMPARE(bits(food.curamount()), bits(expected));
    }

    void anUnknownTitleChangesNothing()
    {
        Food food(name);
        QCOMPARE(food.getGrams(), 100.0F);
        food.setCurunitidx(5);
        food.setUnit(QStringLiteral("1 no such unit"), 3, true);
        QCOMPARE(food.curunit(), grams);
        QCOMPARE(food.curamount(), 100.0F);
        QCOMPARE(food.curunitidx(), 5);
    }

    void settingAUnitDoesNotLoad()
    {
        Food food(name);
        food.setUnit(cup, 1, true); // in the file, but not known yet
        QCOMPARE(food.curunit(), grams);
        QCOMPARE(food.gramsOfUnit(cup), std::nullopt);
    }

    void fromAUnitNotYetKnownGramsKeepTheNumber()
    {
        Food food(name);
        food.setCurunit(cup);
        food.setCuramount(3.0F);
        food.setUnit(grams, 0, true);
        QCOMPARE(food.curamount(), 3.0F);
        QCOMPARE(food.curunit(), grams);
    }

    void fromAnAbsentUnitTheFormerWeightIsOneGram()
    {
        Food food(name);
        QCOMPARE(food.getGrams(), 100.0F);
        food.setCurunit(std::nullopt);
        food.setUnit(cup, 1, true);
        QCOMPARE(bits(food.curamount()), bits(100.0F / 240.0F));
    }

    void aUnitWithoutWeightMakesTheAmountInfiniteAndItIsKept()
    {
        Food food(name);
        QVERIFY(food.getUnitNames().contains(QStringLiteral("1 nothing")));
        food.setUnit(QStringLiteral("1 nothing"), 2, true);
        QCOMPARE(food.curamount(), std::numeric_limits<float>::infinity());
        QVERIFY(std::isnan(food.getGrams())); // 0 times infinity
        food.setUnit(grams, 0, true);
        QVERIFY(std::isnan(food.curamount()));
    }

    void theListOfUnitsIsAlwaysInOneOrder()
    {
        Food food(name);
        const QStringList titles = food.getUnitNames();
        QCOMPARE(food.getUnitNames(), titles);
        QCOMPARE(Food(name).getUnitNames(), titles);
        QCOMPARE(titles.first(), grams);
    }

    void aCommaLocaleChangesNoNumber()
    {
        QVERIFY(std::setlocale(LC_ALL, "de_DE.UTF-8")); // made for the tests
        QCOMPARE(std::localeconv()->decimal_point, ",");
        Food food(name);
        const float amount = food.getAmountOfNutrient(QStringLiteral("Vitamin C"));
        std::setlocale(LC_ALL, "C");
        QCOMPARE(amount, 1.4F / 100.0F * 100.0F);
    }

private:
    std::unique_ptr<FoodFiles> files;
};

QTEST_GUILESS_MAIN(FoodTest)
#include "tst_food.moc"
