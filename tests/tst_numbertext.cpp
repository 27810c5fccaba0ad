// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "platform/NumberText.h"

#include <QtTest>

#include <bit>
#include <clocale>
#include <limits>

namespace {

constexpr float infinity = std::numeric_limits<float>::infinity();

} // namespace

class NumberTextTest final : public QObject {
    Q_OBJECT

private slots:
    void readsTheLeadingNumber_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<float>("value");

        const auto row = [](const char *name, const char *text, float value) {
            QTest::newRow(name) << QString::fromUtf8(text) << value;
        };
        row("nothing is 0", "", 0.0F);
        row("blanks alone are 0", " \t\n\v\f\r", 0.0F);
        row("a word is 0", "abc", 0.0F);
        row("a sign alone is 0", "-", 0.0F);
        row("a period alone is 0", ".", 0.0F);
        row("a signed period is 0", "-.", 0.0F);
        row("a sign then a blank is 0", "- 5", 0.0F);
        row("two signs are 0", "--5", 0.0F);
        row("hexadecimal is its leading 0", "0x10", 0.0F);
        row("inf is no number", "inf", 0.0F);
        row("infinity with a sign is no number", "-infinity", 0.0F);
        row("nan is no number", "nan", 0.0F);
        row("leading blanks are skipped", " \t\n\v\f\r12", 12.0F);
        row("a no-break space is not a blank", "\u00a05", 0.0F);
        row("text after the number is left", "12 cups", 12.0F);
        row("a plus sign is taken", "+5", 5.0F);
        row("a minus sign is taken", "-5", -5.0F);
        row("digits may be missing before the period", ".5", 0.5F);
        row("digits may be missing after the period", "5.", 5.0F);
        row("a second period ends the number", "1.2.3", 1.2F);
        row("a comma ends the number", "12,5", 12.0F);
        row("an exponent counts", "1.5e2", 150.0F);
        row("a capital exponent counts", "1.5E+2", 150.0F);
        row("a negative exponent counts", "15e-1", 1.5F);
        row("an exponent without digits is left", "1e", 1.0F);
        row("an exponent with a sign alone is left", "1e+", 1.0F);
        row("a word after the number is no exponent", "1 e5", 1.0F);
        row("an exponent after a bare period counts", "5.e1", 50.0F);
        row("a letter before the digits is 0", "e5", 0.0F);
        row("too large is infinity", "1e400", infinity);
        row("too large and negative is negative infinity", "-1e400", -infinity);
        row("too large for a float alone is infinity", "1e39", infinity);
        row("the largest float is itself", "3.4028235e38", std::numeric_limits<float>::max());
        row("too small is 0", "1e-400", 0.0F);
        row("too small for a float alone is 0", "1e-46", 0.0F);
        row("the smallest float is itself", "1e-45", std::numeric_limits<float>::denorm_min());
        row("too small and ending in an exponent without digits is 0",
            "0.0000000000000000000000000000000000000000000000000000000000001e", 0.0F);
        row("too small and ending in an exponent with a sign alone is 0",
            "0.0000000000000000000000000000000000000000000000000000000000001e+", 0.0F);
        row("a zero with a large exponent is 0", "0e400", 0.0F);
        row("an exponent beyond any integer is infinity", "1e99999999999999999999999", infinity);
        row("a negative exponent beyond any integer is 0", "1e-99999999999999999999999", 0.0F);
        row("digits of another script are no digits", "\u0661\u0662", 0.0F);
        row("rounding is straight to float, not through double", "1.00000017881393432617187499",
            std::bit_cast<float>(0x3f800001U));
        row("the nearest float of more digits than it holds", "1.00000012", std::bit_cast<float>(0x3f800001U));
    }

    void readsTheLeadingNumber()
    {
        QFETCH(QString, text);
        QFETCH(float, value);

        const float read = NumberText::floatValue(QStringView(text));
        QCOMPARE(std::bit_cast<quint32>(read), std::bit_cast<quint32>(value));
        QCOMPARE(NumberText::floatValue(text.toStdString()), value);
    }

    void zerosAfterThePeriodMakeItSmallAndBeforeItLarge()
    {
        const std::string zeros(500, '0');
        QCOMPARE(NumberText::floatValue("0." + zeros + "1"), 0.0F);
        QCOMPARE(NumberText::floatValue("." + zeros + "1e10"), 0.0F);
        QCOMPARE(NumberText::floatValue("." + zeros + "1e501"), 1.0F);
        QCOMPARE(NumberText::floatValue("." + zeros + "1e600"), infinity);
        QCOMPARE(NumberText::floatValue("1" + zeros), infinity);
        QCOMPARE(NumberText::floatValue("1" + zeros + "e-500"), 1.0F);
        QCOMPARE(NumberText::floatValue("1" + zeros + "e-600"), 0.0F);
        QCOMPARE(NumberText::floatValue("000" + zeros + "1e-99"), 0.0F);
    }

    void aNegativeZeroKeepsItsSign()
    {
        QCOMPARE(std::bit_cast<quint32>(NumberText::floatValue("-0")), 0x80000000U);
        QCOMPARE(std::bit_cast<quint32>(NumberText::floatValue("-1e-400")), 0x80000000U);
    }

    void writesWhatCWrites_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<int>("decimals");
        QTest::addColumn<QString>("text");

        const auto row = [](const char *name, double value, int decimals, const char *text) {
            QTest::newRow(name) << value << decimals << QString::fromLatin1(text);
        };
        row("two decimals", 100.0, 2, "100.00");
        row("no grouping", 1234567.5, 2, "1234567.50");
        row("the binary value is rounded", 2.675, 2, "2.67");
        row("ties go to even below", 0.5, 0, "0");
        row("ties go to even above", 1.5, 0, "2");
        row("ties go to even again", 2.5, 0, "2");
        row("a tie at two decimals goes to even", 0.125, 2, "0.12");
        row("a small negative value keeps its sign", -0.0001, 2, "-0.00");
        row("a negative zero keeps its sign", -0.0, 2, "-0.00");
        row("infinity", std::numeric_limits<double>::infinity(), 2, "inf");
        row("negative infinity", -std::numeric_limits<double>::infinity(), 0, "-inf");
        row("not a number", std::numeric_limits<double>::quiet_NaN(), 2, "nan");
        row("not a number has no sign", -std::numeric_limits<double>::quiet_NaN(), 0, "nan");
        row("the largest float in full", double(std::numeric_limits<float>::max()), 0,
            "340282346638528859811704183484516925440");
    }

    void writesWhatCWrites()
    {
        QFETCH(double, value);
        QFETCH(int, decimals);
        QTEST(NumberText::fixed(value, decimals), "text");
    }

    void theLargestDoubleIsWrittenInFull()
    {
        QCOMPARE(NumberText::fixed(-std::numeric_limits<double>::max(), 2).size(), 1 + 309 + 3);
    }

    void exactNumbersAreTheShortestThatReadBackAsTheSame()
    {
        using Limits = std::numeric_limits<float>;
        QCOMPARE(NumberText::exact(0.1F), "0.1");
        QCOMPARE(NumberText::exact(0.1), "0.1");
        QCOMPARE(NumberText::exact(double(0.1F)), "0.10000000149011612");
        QCOMPARE(NumberText::exact(-0.0F), "-0");
        QCOMPARE(NumberText::exact(300000.0F), "300000");
        QCOMPARE(NumberText::exact(1e-7F), "0.0000001");
        QCOMPARE(NumberText::exact(Limits::infinity()), "inf");
        QCOMPARE(NumberText::exact(-Limits::infinity()), "-inf");
        QCOMPARE(NumberText::exact(-Limits::quiet_NaN()), "nan");
        for (const float value : {Limits::max(), Limits::min(), Limits::denorm_min(), 16777217.0F, 1.0F / 3.0F})
            QCOMPARE(NumberText::floatValue(NumberText::exact(value).toStdString()), value);
        QCOMPARE(NumberText::exact(-std::numeric_limits<double>::denorm_min()).size(), 3 + 324);
    }

    void aCommaLocaleChangesNothing()
    {
        QVERIFY(std::setlocale(LC_ALL, "de_DE.UTF-8")); // made for the tests
        QCOMPARE(std::localeconv()->decimal_point, ",");
        const QString text = NumberText::fixed(12.5, 2);
        const QByteArray exact = NumberText::exact(12.5F);
        const float value = NumberText::floatValue("12.5");
        std::setlocale(LC_ALL, "C");
        QCOMPARE(text, QStringLiteral("12.50"));
        QCOMPARE(exact, "12.5");
        QCOMPARE(value, 12.5F);
    }
};

QTEST_APPLESS_MAIN(NumberTextTest)
#include "tst_numbertext.moc"
