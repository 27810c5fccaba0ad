// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "tools/Decimal.h"

#include <QtTest>

class DecimalTest final : public QObject {
    Q_OBJECT

private slots:
    void readsAPlainFigure_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<qint64>("millionths");

        QTest::newRow("whole") << QByteArray("12") << qint64(12'000'000);
        QTest::newRow("with decimals") << QByteArray("1.40") << qint64(1'400'000);
        QTest::newRow("no digit before the period") << QByteArray(".5") << qint64(500'000);
        QTest::newRow("no digit after the period") << QByteArray("5.") << qint64(5'000'000);
        QTest::newRow("zero") << QByteArray("0.000") << qint64(0);
        QTest::newRow("leading zeros") << QByteArray("000000007") << qint64(7'000'000);
        QTest::newRow("the largest") << QByteArray("999999.999999") << qint64(999'999'999'999);
        QTest::newRow("the smallest") << QByteArray("0.000001") << qint64(1);
    }

    void readsAPlainFigure()
    {
        QFETCH(QByteArray, text);
        const std::optional<Decimal> value = Decimal::fromText(text.toStdString());
        QVERIFY(value.has_value());
        QTEST(qint64(value->millionths), "millionths");
    }

    void anythingElseIsNoFigure_data()
    {
        QTest::addColumn<QByteArray>("text");

        for (const char *text :
            {"", ".", "-1", "+1", "1e3", " 1", "1 ", "1,5", "1.2.3", "abc", "~1~", "1000000", "0.0000001"})
            QTest::newRow(text) << QByteArray(text);
    }

    void anythingElseIsNoFigure()
    {
        QFETCH(QByteArray, text);
        QVERIFY(!Decimal::fromText(text.toStdString()).has_value());
    }

    void writesWithoutTrailingZeros_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QByteArray>("plain");

        QTest::newRow("a zero goes") << QByteArray("1.40") << QByteArray("1.4");
        QTest::newRow("the period goes") << QByteArray("2.000") << QByteArray("2");
        QTest::newRow("a zero comes") << QByteArray(".75") << QByteArray("0.75");
        QTest::newRow("zeros of a whole number stay") << QByteArray("100") << QByteArray("100");
        QTest::newRow("zeros after the period stay") << QByteArray("0.001") << QByteArray("0.001");
        QTest::newRow("zero") << QByteArray("0.0") << QByteArray("0");
    }

    void writesWithoutTrailingZeros()
    {
        QFETCH(QByteArray, text);
        QTEST(QByteArray::fromStdString(Decimal::fromText(text.toStdString())->text()), "plain");
    }

    void sumsAreExact()
    {
        Decimal sum;
        for (int i = 0; i < 1000; ++i)
            sum += *Decimal::fromText("0.001");
        QCOMPARE(sum.text(), std::string("1"));
        sum += *Decimal::fromText("0.1");
        sum += *Decimal::fromText("0.2");
        QCOMPARE(sum.text(), std::string("1.3"));
    }

    void roundsHalvesUp_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<int>("decimals");
        QTest::addColumn<QByteArray>("rounded");

        QTest::newRow("below a half") << QByteArray("0.1234") << 3 << QByteArray("0.123");
        QTest::newRow("a half") << QByteArray("0.1235") << 3 << QByteArray("0.124");
        QTest::newRow("a half before an even digit too") << QByteArray("0.1245") << 3 << QByteArray("0.125");
        QTest::newRow("a half that no binary fraction is") << QByteArray("2.675") << 2 << QByteArray("2.68");
        QTest::newRow("into a new digit") << QByteArray("99.96") << 1 << QByteArray("100");
        QTest::newRow("to a whole number") << QByteArray("0.5") << 0 << QByteArray("1");
        QTest::newRow("away to nothing") << QByteArray("0.0004") << 3 << QByteArray("0");
    }

    void roundsHalvesUp()
    {
        QFETCH(QByteArray, text);
        QFETCH(int, decimals);
        QTEST(QByteArray::fromStdString(Decimal::fromText(text.toStdString())->rounded(decimals)), "rounded");
    }

    void dividesToFourSignificantDigits_data()
    {
        QTest::addColumn<QByteArray>("dividend");
        QTest::addColumn<QByteArray>("divisor");
        QTest::addColumn<QByteArray>("quotient");

        const auto row = [](const char *name, const char *dividend, const char *divisor, const char *quotient) {
            QTest::newRow(name) << QByteArray(dividend) << QByteArray(divisor) << QByteArray(quotient);
        };
        row("even", "124", ".5", "248");
        row("with a period", "100", "3.527", "28.35");
        row("thirds", "10", ".3", "33.33");
        row("below one", "0.1", "1.5", "0.06667");
        row("into a new digit", "9.99996", "1", "10");
        row("five digits that end in zero", "12345", ".5", "24690");
        row("five digits rounded up", "12347.5", ".5", "24700");
        row("five digits rounded down", "12346", ".5", "24690");
        row("six digits into a seventh", "999960", "1", "1000000");
        row("the most", "999999.999999", ".000001", "1000000000000");
        row("six decimals at most", "0.001", "7", "0.000143");
        row("nothing", "0", "7", "0");
    }

    void dividesToFourSignificantDigits()
    {
        QFETCH(QByteArray, dividend);
        QFETCH(QByteArray, divisor);
        const Decimal left = *Decimal::fromText(dividend.toStdString());
        const Decimal right = *Decimal::fromText(divisor.toStdString());
        QTEST(QByteArray::fromStdString(left.dividedBySignificant(right, 4)), "quotient");
    }

    void tellsWholeAndPositive()
    {
        QVERIFY(Decimal::fromText("2.0")->isWhole());
        QVERIFY(!Decimal::fromText("2.5")->isWhole());
        QVERIFY(Decimal::fromText(".000001")->isPositive());
        QVERIFY(!Decimal::fromText("0.00")->isPositive());
    }
};

QTEST_APPLESS_MAIN(DecimalTest)
#include "tst_decimal.moc"
