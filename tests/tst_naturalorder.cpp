// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "catalog/NaturalOrder.h"

#include <QtTest>

#include <algorithm>
#include <vector>

namespace {

int sign(int order)
{
    return order < 0 ? -1 : (order > 0 ? 1 : 0);
}

} // namespace

class NaturalOrderTest final : public QObject {
    Q_OBJECT

private slots:
    void oneFoodNameComesBeforeAnother_data()
    {
        QTest::addColumn<QString>("first");
        QTest::addColumn<QString>("second");

        const auto row = [](const char *name, const char *first, const char *second) {
            QTest::newRow(name) << QString::fromUtf8(first) << QString::fromUtf8(second);
        };
        row("from the left", "Apple, sour", "Banana, raw");
        row("digits by their value", "gin, 94 proof", "gin, 100 proof");
        row("digits by their value before a sign", "flour, 9% protein", "flour, 10% protein");
        row("digits at the very end", "Beer 9", "Beer 10");
        row("digits that begin a name", "9 grain bread", "10 grain bread");
        row("the digits after a period are a number of their own", "milk, 3.7% fat", "milk, 3.25% fat");
        row("leading zeros do not count", "part 007", "part 08");
        row("more zeros make no larger number", "part 0000", "part 1");
        row("a number beyond any integer", "n 99999999999999999999999999999998", "n 99999999999999999999999999999999");
        row("a longer number beyond any integer", "n 99999999999999999999", "n 100000000000000000000");
        row("the first digit that differs decides", "n 199", "n 200");
        row("what follows equal numbers decides", "n 5 a", "n 5 b");
        row("what follows numbers of unlike zeros decides", "n 05 a", "n 5 b");
        row("letters without regard to case", "apple", "Banana");
        row("capitals do not go first", "beer, light", "beer, MICHELOB");
        row("a blank before a digit", "a b", "a1");
        row("the last punctuation before a digit", "a%", "a0");
        row("a digit before a letter", "a9", "aa");
        row("a digit before a capital", "a9", "aA");
        row("a number is no letter however large", "a99999", "aa");
        row("the blank first of all", "hazel nut", "hazel-nut");
        row("what a comma adds comes before the name alone", "beer, light, ULTRA", "beer, light");
        row("what a blank adds comes before the name alone", "beer light", "beer");
        row("what a hyphen adds comes before the name alone", "beer-battered", "beer");
        row("what an exclamation mark adds comes before the name alone", "beer!", "beer");
        row("the name alone before what an apostrophe adds", "beer", "beer's");
        row("the name alone before what a parenthesis adds", "beer", "beer(light)");
        row("the name alone before what a digit adds", "beer", "beer2");
        row("the name alone before what a letter adds", "beer", "beers");
        row("a period added goes by what follows it", "beer", "beer.z");
        row("a period added goes by what follows it, below", "beer.a", "beer");
        row("a period at the end goes before the file's ending", "beer.", "beer");
        row("a hyphen before a comma", "Chocolate-flavored hazelnut spread", "Chocolate, dark, 45- 59% cacao solids");
        row("a comma before an apostrophe",
            "Candies, HERSHEY, REESESTICKS crispy wafers, peanut butter, milk chocolate",
            "Candies, HERSHEY'S GOLDEN ALMOND SOLITAIRES");
        row("an apostrophe before an ampersand", "McDONALD'S, Fruit 'n Yogurt Parfait",
            "McDONALD'S, Fruit & Walnut Salad");
        row("a comma before a closing parenthesis", "OSCAR MAYER, Wieners (beef franks, light)",
            "OSCAR MAYER, Wieners (beef franks)");
        row("the proof of a whiskey", "Alcoholic beverage, distilled, all (gin, rum, vodka, whiskey) 94 proof",
            "Alcoholic beverage, distilled, all (gin, rum, vodka, whiskey) 100 proof");
        row("the light beers", "Alcoholic beverage, beer, light, MICHELOB ULTRA", "Alcoholic beverage, beer, light");
        row("letters beyond ASCII after the others", "z", "\u00e4");
    }

    void oneFoodNameComesBeforeAnother()
    {
        QFETCH(QString, first);
        QFETCH(QString, second);
        QCOMPARE(sign(NaturalOrder::compareFoodNames(first, second)), -1);
        QCOMPARE(sign(NaturalOrder::compareFoodNames(second, first)), 1);
    }

    void theCharactersThatNamesMayHoldFollowTheFixedOrder()
    {
        const QString order = QStringLiteral(" -,;!.'()&#%+0129aBcYz");
        for (qsizetype i = 0; i < order.size(); ++i) {
            for (qsizetype j = 0; j < order.size(); ++j) {
                const QString left = QStringLiteral("x%1x").arg(order.at(i));
                const QString right = QStringLiteral("x%1x").arg(order.at(j));
                QVERIFY2(sign(NaturalOrder::compareFoodNames(left, right)) == (i < j ? -1 : (i > j ? 1 : 0)),
                    qPrintable(left + QStringLiteral(" against ") + right));
            }
        }
    }

    void everyPrintableCharacterHasAPlaceOfItsOwn()
    {
        std::vector<QString> names;
        for (char16_t c = u' '; c <= u'~'; ++c) {
            if (c < u'a' || c > u'z')
                names.push_back(QStringLiteral("x%1x").arg(QChar(c)));
        }
        std::ranges::sort(names,
            [](const QString &left, const QString &right) { return NaturalOrder::compareFoodNames(left, right) < 0; });
        QString order;
        for (const QString &name : names)
            order.append(name.at(1));
        QCOMPARE(order, QStringLiteral(" _-,;:!?.'\"()[]{}@*/\\&#%`^+<=>|~$0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ"));
    }

    void caseAloneMakesNoDifference()
    {
        QVERIFY(NaturalOrder::compareFoodNames(u"Beer, LIGHT", u"bEER, light") == 0);
        for (char16_t c = u'a'; c <= u'z'; ++c) {
            const QString lower(1, QChar(c));
            QVERIFY(NaturalOrder::compareFoodNames(lower, lower.toUpper()) == 0);
        }
    }

    void leadingZerosAloneMakeNoDifference()
    {
        QVERIFY(NaturalOrder::compareFoodNames(u"agent 7", u"agent 007") == 0);
        QVERIFY(NaturalOrder::compareFoodNames(u"0", u"000") == 0);
    }

    void emptyNamesHaveAnOrder()
    {
        QVERIFY(NaturalOrder::compareFoodNames(u"", u"") == 0);
        QVERIFY(NaturalOrder::compareFoodNames(u"", u"a") < 0);
        QVERIFY(NaturalOrder::compareFoodNames(u"", u" ") > 0);
    }

    void theOrderOfThreeNeverContradictsItself()
    {
        const QString letters = QStringLiteral("0019aA .,'");
        QStringList names;
        for (const QChar a : letters) {
            for (const QChar b : letters)
                names.append(QString(a) + b);
        }
        for (const QString &a : names) {
            for (const QString &b : names) {
                const int ab = sign(NaturalOrder::compareFoodNames(a, b));
                QCOMPARE(sign(NaturalOrder::compareFoodNames(b, a)), -ab);
                for (const QString &c : names) {
                    const int bc = sign(NaturalOrder::compareFoodNames(b, c));
                    if (ab <= 0 && bc <= 0) {
                        const int ac = sign(NaturalOrder::compareFoodNames(a, c));
                        QVERIFY(ac <= 0 && (ac < 0 || (ab == 0 && bc == 0)));
                    }
                }
            }
        }
    }
};

QTEST_APPLESS_MAIN(NaturalOrderTest)
#include "tst_naturalorder.moc"
