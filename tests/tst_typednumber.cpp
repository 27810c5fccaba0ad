// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "platform/NumberText.h"
#include "platform/TypedNumber.h"

#include <QtTest>

class TypedNumberTest final : public QObject {
    Q_OBJECT

private slots:
    void aNumberAsPeopleWriteItGetsAPeriod_data()
    {
        QTest::addColumn<QString>("written");
        const auto row
            = [](const char *typed, const char *written) { QTest::newRow(typed) << QString::fromUtf8(written); };
        row("1/2", "0.5");
        row(" 3 / 4 ", "0.75");
        row("1 1/2", "1.5");
        row("12  1/4", "12.25");
        row("3/2", "1.5");
        row("4/2", "2");
        row("0/5", "0");
        row("1\u20442", "0.5");
        row("\u00bd", "0.5");
        row("1\u00bd", "1.5");
        row("1 \u00bd", "1.5");
        row("2\u215c", "2.375");
        row("\u215f5", "0.2");
        row("1,5", "1.5");
        row("0,25", "0.25");
        row(",5", ".5");
        row(" 12,5 ", "12.5");
    }

    void aNumberAsPeopleWriteItGetsAPeriod()
    {
        QTEST(TypedNumber::withPeriod(QString::fromUtf8(QTest::currentDataTag())), "written");
    }

    void anyOtherTextStaysAsItIs_data()
    {
        QTest::addColumn<QString>("text");
        for (const char *text : {"abc", "1", "1.5", "-1/2", "1/0", "1/", "/2", "1/2/3", "1.5/2", "1 2", "1,", "1,500",
                 "1,234,5", "1,5.2", "1,5 g", "1/2 cup", "\u00bd\u00bd", "\u00bd7", "1234567/2", "\u0661,\u0665"})
            QTest::newRow(text) << QString::fromUtf8(text);
        QTest::newRow("nothing") << QString();
    }

    void anyOtherTextStaysAsItIs()
    {
        QFETCH(QString, text);
        QCOMPARE(TypedNumber::withPeriod(text), text);
    }

    void aThirdIsAsNearAsAFloatCanBe()
    {
        QCOMPARE(NumberText::floatValue(TypedNumber::withPeriod(QStringLiteral("1/3"))), 1.0F / 3.0F);
        QCOMPARE(NumberText::floatValue(TypedNumber::withPeriod(QStringLiteral("12 2/3"))), 38.0F / 3.0F);
    }
};

QTEST_APPLESS_MAIN(TypedNumberTest)
#include "tst_typednumber.moc"
