// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "model/FoodRecord.h"
#include "platform/KeyedArchiver.h"
#include "support/FoodFiles.h"

#include <QtTest>

#include <bit>
#include <functional>
#include <memory>
#include <optional>

namespace {

const QString A = QStringLiteral("A");
const QString cup = QStringLiteral("1 cup");

// A record whose numbers are what `fill` writes; the keys are Food's.
QByteArray recordOf(const std::function<void(KeyedArchiver &)> &fill)
{
    KeyedArchiver coder(QStringLiteral("Food"));
    fill(coder);
    return coder.archivedData();
}

} // namespace

// What a food writes into its record and is made of again.
class FoodRecordTest final : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        files = std::make_unique<FoodFiles>();
        files->writeElements(A, "<measure name='cup' amount='1' grams='240'/><nutrient name='Energy' amount='50'/>");
    }
    void cleanup() { files.reset(); }

    void aNewFoodComesBackAsItWas()
    {
        const auto food = again(Food(A));
        QVERIFY(food);
        QCOMPARE(food->name(), A);
        QCOMPARE(food->curamount(), 100.0F);
        QCOMPARE(food->curunit(), QStringLiteral("g"));
        QCOMPARE(food->curunitidx(), 0);
    }

    void afterAUnitChangeTheWeightIsTheSameOnceTheFileIsRead()
    {
        Food food(A);
        QCOMPARE(food.getUnitNames().size(), 2);
        food.setUnit(cup, 1, true);
        auto decoded = again(food);
        QVERIFY(decoded);
        QCOMPARE(decoded->curunit(), cup);
        QCOMPARE(decoded->curunitidx(), 1);
        QCOMPARE(std::bit_cast<quint32>(decoded->curamount()), std::bit_cast<quint32>(100.0F / 240.0F));
        QVERIFY(!decoded->gramsOfUnit(cup)); // nothing of the file is in the record, nor read by decoding
        QCOMPARE(std::bit_cast<quint32>(decoded->getGrams()), std::bit_cast<quint32>(food.getGrams()));
        QVERIFY(decoded->gramsOfUnit(cup));
    }

    void withoutAFileAStoredMeasureWeighsNothing()
    {
        Food food(A);
        QCOMPARE(food.getUnitNames().size(), 2);
        food.setUnit(cup, 1, false);
        const QByteArray measure = FoodRecord::archivedDataWithRootObject(food);
        food.setUnit(QStringLiteral("g"), 0, false);
        const QByteArray grams = FoodRecord::archivedDataWithRootObject(food);
        files->remove(A);
        auto decoded = FoodRecord::unarchiveObjectWithData(measure);
        QVERIFY(decoded);
        QCOMPARE(decoded->getUnitNames(), QStringList{QStringLiteral("g")});
        QCOMPARE(decoded->getGrams(), 0.0F);
        decoded = FoodRecord::unarchiveObjectWithData(grams);
        QVERIFY(decoded);
        QCOMPARE(decoded->getGrams(), 100.0F);
    }

    void numbersStoredAsTextAreReadAsNumbers()
    {
        const auto food = FoodRecord::unarchiveObjectWithData(recordOf([](KeyedArchiver &coder) {
            coder.encodeString(A, QLatin1String("name"));
            coder.encodeString(QStringLiteral(" 12.5 g"), QLatin1String("amount"));
            coder.encodeString(QStringLiteral("g"), QLatin1String("unit"));
            coder.encodeString(QStringLiteral("3"), QLatin1String("unitidx"));
        }));
        QVERIFY(food);
        QCOMPARE(food->curamount(), 12.5F);
        QCOMPARE(food->curunitidx(), 3);
    }

    void missingKeysReadAsNothing()
    {
        auto food = FoodRecord::unarchiveObjectWithData(recordOf([](KeyedArchiver &) {}));
        QVERIFY(food);
        QCOMPARE(food->name(), std::optional<QString>());
        QCOMPARE(food->curamount(), 0.0F);
        QCOMPARE(food->curunit(), std::optional<QString>());
        QCOMPARE(food->curunitidx(), 0);
        food->setCuramount(7.0F);
        QCOMPARE(food->getGrams(), 7.0F); // an absent unit is grams
    }

    void anAbsentNameAndUnitComeBackAbsent()
    {
        Food food(std::nullopt);
        food.setCurunit(std::nullopt);
        const auto decoded = again(food);
        QVERIFY(decoded);
        QVERIFY(!decoded->name());
        QVERIFY(!decoded->curunit());
    }

    // What a store holds stays readable by others only if it stays what it is. The bytes were read by another reader of
    // property lists: 2.5 of "1 tbsp", index 2.
    void aRecordIsTheseBytes()
    {
        Food food(QStringLiteral("Butter, salted"));
        food.setCuramount(2.5F);
        food.setCurunit(QStringLiteral("1 tbsp"));
        food.setCurunitidx(2);
        QCOMPARE(FoodRecord::archivedDataWithRootObject(food).toHex(),
            QByteArray("62706c697374303055246e756c6c5e4275747465722c2073616c7465648002546e616d652240200000800356616d6f7"
                       "56e745631"
                       "2074627370800454756e69741002800557756e697469647854466f6f64584e534f626a656374a20d0e5a24636c61737"
                       "36e616d65"
                       "5824636c6173736573d210110d0f80065624636c617373d50306090c140205080b1354726f6f748001d116175824766"
                       "57273696f"
                       "6e12000186a0592461726368697665725f100f4e534b6579656441726368697665725424746f7058246f626a6563747"
                       "3a7001501"
                       "04070a12d4191b1d1e1a1c181f080e1d1f24292b32393b4042444c515a5d687176787f8a8f91949da2acbec3ccd4000"
                       "000000000"
                       "01010000000000000021000000000000002000000000000000dd"));
    }

    void archivingReadsNoFile()
    {
        const Food food(A);
        QVERIFY(again(food));
        QVERIFY(!food.gramsOfUnit(cup));
    }

private:
    static std::optional<Food> again(const Food &food)
    {
        return FoodRecord::unarchiveObjectWithData(FoodRecord::archivedDataWithRootObject(food));
    }

    std::unique_ptr<FoodFiles> files;
};

QTEST_GUILESS_MAIN(FoodRecordTest)
#include "tst_foodrecord.moc"
