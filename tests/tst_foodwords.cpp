// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "search/FoodWords.h"

#include <QtTest>

namespace {

QByteArray joined(const QString &text)
{
    QByteArray words;
    for (const FoodWords::Token &word : FoodWords::tokenize(text))
        words += (words.isEmpty() ? "" : "|") + word.text;
    return words;
}

} // namespace

class FoodWordsTest final : public QObject {
    Q_OBJECT

private slots:
    void tokensAreLowerCaseAsciiLettersAndDigits_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QByteArray>("words");

        const auto row = [](const char *name, const char *text, const char *words) {
            QTest::newRow(name) << QString::fromUtf8(text) << QByteArray(words);
        };
        row("nothing", "", "");
        row("no word", " ,;-%&!#+()", "");
        row("blanks and commas", "Milk, whole", "milk|whole");
        row("hyphens and brackets part", "ready-to-eat (mixed)", "ready|to|eat|mixed");
        row("an apostrophe is swallowed", "KELLOGG'S CAP'N", "kelloggs|capn");
        row("a typographic apostrophe too", "Reese\u2019s", "reeses");
        row("an apostrophe alone is a gap no more than nothing", "' 'n' '", "n");
        row("an ampersand joins initials", "m&m A&W pb&j", "mm|aw|pbj");
        row("an ampersand joins no words", "ham&cheese fruit & nut m& &m", "ham|cheese|fruit|nut|m|m");
        row("figures are words", "3.25% milkfat 2%", "3|25|milkfat|2");
        row("accents go", "Crème Brûlée ÀÉÎÕÜ", "creme|brulee|aeiou");
        row("an accent of its own goes", "cre\u0300me", "creme");
        row("letters without a plain one inside", "Weißwurst Smørrebrød œuf æble \u0141osos",
            "weisswurst|smorrebrod|oeuf|aeble|losos");
        row("another script is a gap", "\u8c46\u8150 tofu", "tofu");
        row("bytes that are no character are a gap", "milk \xed\xa0\x80 egg", "milk|egg");
    }

    void tokensAreLowerCaseAsciiLettersAndDigits()
    {
        QFETCH(QString, text);
        QTEST(joined(text), "words");
    }

    void aTokenKnowsItsPlaceInTheText()
    {
        const auto words = FoodWords::tokenize(u"Candies, M&M's  Bar");
        const std::vector<FoodWords::Token> expected{{"candies", 0, 7}, {"mms", 9, 5}, {"bar", 16, 3}};
        QVERIFY(words == expected);
    }

    void inflectionsArePluralsAndSingulars_data()
    {
        QTest::addColumn<QByteArray>("one");
        QTest::addColumn<QByteArray>("other");
        const std::pair<const char *, const char *> pairs[] = {{"apple", "apples"}, {"peach", "peaches"},
            {"berry", "berries"}, {"leaf", "leaves"}, {"knife", "knives"}, {"potato", "potatoes"}, {"mango", "mangos"}};
        for (const auto &[one, other] : pairs)
            QTest::newRow(one) << QByteArray(one) << QByteArray(other);
    }

    void inflectionsArePluralsAndSingulars()
    {
        QFETCH(QByteArray, one);
        QFETCH(QByteArray, other);
        const auto contains = [](const std::vector<QByteArray> &words, const QByteArray &word) {
            return std::find(words.begin(), words.end(), word) != words.end();
        };
        QVERIFY(contains(FoodWords::inflections(one), other));
        QVERIFY(contains(FoodWords::inflections(other), one));
        QVERIFY(!contains(FoodWords::inflections(one), one));
    }

    void aWordThatIsAnEndingIsNotCutToNothing()
    {
        for (const QByteArray &word : FoodWords::inflections("s"))
            QVERIFY(word.startsWith('s'));
    }

    void editDistanceCountsWrongMissingExtraAndSwappedLetters_data()
    {
        QTest::addColumn<QByteArray>("typed");
        QTest::addColumn<QByteArray>("word");
        QTest::addColumn<int>("limit");
        QTest::addColumn<bool>("prefix");
        QTest::addColumn<int>("distance");

        const auto row
            = [](const char *name, const char *typed, const char *word, int limit, bool prefix, int distance) {
                  QTest::newRow(name) << QByteArray(typed) << QByteArray(word) << limit << prefix << distance;
              };
        row("none", "milk", "milk", 2, false, 0);
        row("a wrong letter", "melk", "milk", 2, false, 1);
        row("a missing letter", "mik", "milk", 2, false, 1);
        row("a letter too many", "millk", "milk", 2, false, 1);
        row("two letters swapped are one edit", "mikl", "milk", 2, false, 1);
        row("the first two swapped", "imlk", "milk", 2, false, 1);
        row("a doubled and a single letter", "brocolli", "broccoli", 2, false, 2);
        row("more than the limit is one more", "brocolli", "broccoli", 1, false, 2);
        row("nothing alike", "milk", "eggs", 2, false, 3);
        row("much longer", "milk", "milkshakes", 2, false, 3);
        row("a prefix of a longer word", "milk", "milkshakes", 2, true, 0);
        row("an edit in a prefix of a longer word", "mlik", "milkshakes", 2, true, 1);
        row("a suffix is no prefix", "shake", "milkshakes", 2, true, 3);
        row("nothing typed", "", "milk", 2, true, 0);
        row("against nothing", "milk", "", 2, false, 3);
    }

    void editDistanceCountsWrongMissingExtraAndSwappedLetters()
    {
        QFETCH(QByteArray, typed);
        QFETCH(QByteArray, word);
        QFETCH(int, limit);
        QFETCH(bool, prefix);
        QTEST(FoodWords::editDistance(typed, word, limit, prefix), "distance");
    }

    void wordsOfMoreThan40LettersAreNotComparedInFull()
    {
        QCOMPARE(FoodWords::editDistance(QByteArray(10000, 'a'), "milk", 2, true), 3);
        QCOMPARE(FoodWords::editDistance("milk", QByteArray(10000, 'm'), 2, false), 3);
        QCOMPARE(FoodWords::editDistance(QByteArray(40, 'a'), QByteArray(10000, 'a'), 2, true), 0);
    }
};

QTEST_APPLESS_MAIN(FoodWordsTest)
#include "tst_foodwords.moc"
