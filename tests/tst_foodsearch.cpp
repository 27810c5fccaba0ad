// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "catalog/FoodCatalogue.h"
#include "search/FoodSearch.h"
#include "search/FoodSynonyms.h"
#include "search/FoodWords.h"
#include "search/SynonymTable.h"

#include <QFile>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QtTest>

#include <algorithm>
#include <numeric>
#include <set>
#include <utility>

class FoodSearchTest final : public QObject {
    Q_OBJECT

private:
    const QStringList names = FoodCatalogue::foodNames();
    FoodSearch search{names};
    QSet<QString> foodpatterns; // of queries.tsv, known to fit a food

    QStringList found(const QString &query, std::size_t most = 5)
    {
        QStringList list;
        for (const int name : search.search(query)) {
            if (static_cast<std::size_t>(list.size()) == most)
                break;
            list << names[name];
        }
        return list;
    }

    // The matched letters of the first hit, the rest as dots.
    QString lettersOfFirstHit(const QString &query)
    {
        const std::vector<int> hits = search.search(query);
        if (hits.empty())
            return {};
        const QString &name = names[hits.front()];
        QString text(name.size(), u'.');
        for (const FoodSearch::Letters &letters : search.matchedLetters(hits.front()))
            text.replace(letters.start, letters.count, name.mid(letters.start, letters.count));
        return text;
    }

    // Whether the name has, for each of the words, one of its alternatives.
    bool holds(int name, const std::vector<QByteArray> &meant) const
    {
        std::set<QByteArray> own;
        for (const FoodWords::Token &word : FoodWords::tokenize(names[name])) {
            own.insert(word.text);
            for (const QByteArray &other : FoodWords::inflections(word.text))
                own.insert(other);
        }
        return std::all_of(meant.begin(), meant.end(), [&](const QByteArray &word) {
            const QByteArrayList all = word.split('|');
            return std::any_of(all.begin(), all.end(), [&](const QByteArray &each) { return own.count(each) > 0; });
        });
    }

    // The ways to say that something is lacking are made for every word, sensible or not.
    static bool isLack(const FoodSynonym &synonym)
    {
        const auto isWord = [](const QByteArray &word) { return word == "no" || word == "free" || word == "less"; };
        return std::any_of(synonym.said.begin(), synonym.said.end(), isWord);
    }

    static QRegularExpression pattern(const QString &text)
    {
        const QString escaped = QRegularExpression::escape(text).replace(QLatin1String("\\*"), QLatin1String(".*"));
        return QRegularExpression(QRegularExpression::anchoredPattern(escaped));
    }

private slots:
    void theFoodMeantIsAmongTheFirstFive_data()
    {
        QTest::addColumn<QString>("query");
        QTest::addColumn<QStringList>("meant");

        QFile file(QStringLiteral(DATA_DIR "/queries.tsv"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
        for (const QString &line : lines) {
            if (line.startsWith(u'#'))
                continue;
            const QStringList fields = line.split(u'\t');
            QCOMPARE(fields.size(), 2);
            QTest::newRow(qPrintable(fields[0])) << fields[0] << fields[1].split(QStringLiteral(" | "));
        }
    }

    void theFoodMeantIsAmongTheFirstFive()
    {
        QFETCH(QString, query);
        QFETCH(QStringList, meant);

        const QStringList first = found(query);
        bool among = false;
        for (const QString &text : meant) {
            const QRegularExpression name = pattern(text);
            if (!foodpatterns.contains(text)) { // many queries have the same
                QVERIFY2(names.indexOf(name) >= 0, qPrintable(QStringLiteral("no food is called ") + text));
                foodpatterns.insert(text);
            }
            among = among || first.indexOf(name) >= 0;
        }
        QVERIFY2(among, qPrintable(first.join(u'\n')));
    }

    void aQueryWithoutAWordFindsAllInCatalogueOrder_data()
    {
        QTest::addColumn<QString>("query");
        for (const char *query : {"", " ", "%", ", - ;", "'", "\u8c46"})
            QTest::newRow(query) << QString::fromUtf8(query);
    }

    void aQueryWithoutAWordFindsAllInCatalogueOrder()
    {
        QFETCH(QString, query);
        std::vector<int> all(static_cast<std::size_t>(names.size()));
        std::iota(all.begin(), all.end(), 0);
        QVERIFY(search.search(query) == all);
        QVERIFY(search.matchedLetters(0).empty());
    }

    // The rule, told naively, against the search: for queries without synonyms the two find the same foods.
    void findsEveryNameThatHasAllTokensAsPrefixes()
    {
        QRandomGenerator random(20261121);
        std::vector<std::vector<FoodWords::Token>> words;
        for (const QString &name : names)
            words.push_back(FoodWords::tokenize(name));
        const auto namesWith = [&](const QByteArray &beginning) {
            const auto others = FoodWords::inflections(beginning);
            std::set<int> list;
            for (std::size_t name = 0; name < words.size(); ++name) {
                if (std::any_of(words[name].begin(), words[name].end(), [&](const FoodWords::Token &word) {
                        return word.text.startsWith(beginning)
                            || std::find(others.begin(), others.end(), word.text) != others.end();
                    }))
                    list.insert(static_cast<int>(name));
            }
            return list;
        };
        int compared = 0;
        for (int round = 0; round < 300; ++round) {
            const auto &source = words[random.bounded(static_cast<quint32>(words.size()))];
            QList<QByteArray> query;
            for (quint32 left = 1 + random.bounded(3U); left > 0; --left) {
                const QByteArray &word = source[random.bounded(static_cast<quint32>(source.size()))].text;
                query << word.left(1 + static_cast<qsizetype>(random.bounded(static_cast<quint32>(word.size()))));
            }
            const QString text = QString::fromLatin1(query.join(' ')).toUpper();
            const std::vector<int> hits = search.search(text);
            std::set<int> expected = namesWith(query[0]);
            for (const QByteArray &word : query) {
                const std::set<int> with = namesWith(word);
                std::set<int> both;
                std::set_intersection(
                    expected.begin(), expected.end(), with.begin(), with.end(), std::inserter(both, both.end()));
                expected = both;
            }
            const std::set<int> answered(hits.begin(), hits.end());
            QCOMPARE(answered.size(), hits.size());
            QVERIFY2(
                std::includes(answered.begin(), answered.end(), expected.begin(), expected.end()), qPrintable(text));
            compared += answered == expected ? 1 : 0;
        }
        QVERIFY2(compared > 200, "most queries have no other reading");
    }

    void theOrderOfTheWordsAndTheirCaseDoNotMatter()
    {
        const std::vector<int> hits = search.search(QStringLiteral("cheddar cheese"));
        QVERIFY(!hits.empty());
        QVERIFY(search.search(QStringLiteral("CHEESE  Cheddar")) == hits);
        QVERIFY(search.search(QStringLiteral("cheese, cheddar!")) == hits);
    }

    void aRepeatedTokenChangesNothing()
    {
        const std::vector<int> hits = search.search(QStringLiteral("egg"));
        QVERIFY(search.search(QStringLiteral("egg egg EGG")) == hits);
        // Nor does it use up the number of tokens that count.
        QVERIFY(search.search(QStringLiteral("egg ").repeated(24) + QStringLiteral("xyzzyplugh")) == hits);
        QCOMPARE(search.missingWords(hits.front()), QStringList(QStringLiteral("xyzzyplugh")));
    }

    void accentsAreTakenAsPlainLetters()
    {
        const std::vector<int> hits = search.search(QStringLiteral("creme"));
        QVERIFY(!hits.empty());
        QVERIFY(search.search(QStringLiteral("crème")) == hits);
    }

    void aFullNameFindsItsFoodFirst_data()
    {
        QTest::addColumn<QString>("name");
        for (const int number : {0, 13, 19, 1234, 4711, 7800})
            QTest::newRow(qPrintable(names[number])) << names[number];
        QTest::newRow("the shortest") << QStringLiteral("Poi");
        QTest::newRow("an ampersand") << QStringLiteral("McDONALD'S, Fruit & Walnut Salad");
        QTest::newRow("an apostrophe") << QStringLiteral("Cereals ready-to-eat, QUAKER, CAP'N CRUNCH");
    }

    void aFullNameFindsItsFoodFirst()
    {
        QFETCH(QString, name);
        QVERIFY(names.contains(name));
        QCOMPARE(found(name).value(0), name);
    }

    void brandsAndBabyFoodsComeLastUnlessAskedFor()
    {
        QVERIFY(found(QStringLiteral("carrots"), 20).filter(QStringLiteral("Babyfood")).isEmpty());
        QVERIFY(found(QStringLiteral("babyfood carrots")).value(0).startsWith(QLatin1String("Babyfood")));
        QVERIFY(!found(QStringLiteral("cheeseburger")).value(0).contains(QLatin1String("McDONALD'S")));
        QCOMPARE(found(QStringLiteral("mcdonalds cheeseburger")).value(0), QStringLiteral("McDONALD'S, Cheeseburger"));
    }

    void meatlessBaconComesAfterBacon()
    {
        QVERIFY(!found(QStringLiteral("bacon")).contains(QStringLiteral("Bacon, meatless")));
        QCOMPARE(found(QStringLiteral("meatless bacon")).value(0), QStringLiteral("Bacon, meatless"));
    }

    void whatPeopleEatAndDrinkComesFirst_data()
    {
        QTest::addColumn<QString>("query");
        QTest::addColumn<QString>("first");

        const auto row = [](const char *query, const char *first) {
            QTest::newRow(query) << QString::fromLatin1(query) << QString::fromLatin1(first);
        };
        for (const char *cooked : {"cod", "salmon", "shrimp", "ground beef", "chicken breast", "pork chop", "bacon"})
            row(cooked, "cooked");
        for (const char *raw : {"raw salmon", "egg", "spinach", "peach", "tomato"})
            row(raw, "raw");
        row("cola", "contains caffeine");
        row("diet coke", "contains caffeine");
        row("lemon lime", "contains caffeine");
        row("coffee", "brewed from grounds, prepared with tap water");
        row("beer", "regular, all");
        row("peas", "Peas, green");
        row("buttermilk", "Milk, buttermilk, fluid");
    }

    void whatPeopleEatAndDrinkComesFirst()
    {
        QFETCH(QString, query);
        QFETCH(QString, first);
        const QString name = found(query).value(0);
        QVERIFY2(name.contains(first), qPrintable(name));
    }

    void aTokenInNoNameIsTakenAsMisspelt_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("meant");

        const auto row = [](const char *name, const char *typed, const char *meant) {
            QTest::newRow(name) << QString::fromLatin1(typed) << QString::fromLatin1(meant);
        };
        row("a letter too many", "bannana", "banana");
        row("a letter too few", "spinch", "spinach");
        row("a wrong letter", "cheddor", "cheddar");
        row("two letters swapped", "slamon", "salmon");
        row("four letters", "mlik", "milk");
        row("two edits in eight letters", "brocolli", "broccoli");
        row("a prefix of a long word", "mozare", "mozzarella");
        row("one word of two", "chiken breast", "chicken breast");
    }

    void aTokenInNoNameIsTakenAsMisspelt()
    {
        QFETCH(QString, typed);
        QFETCH(QString, meant);
        const QStringList first = found(typed);
        QVERIFY(!first.isEmpty());
        QCOMPARE(first.value(0), found(meant).value(0));
    }

    void aTokenOfThreeLettersIsNotCorrected() { QVERIFY(found(QStringLiteral("xgg")).isEmpty()); }

    void anEditDistanceOfTwoIsTooMuchForSevenLetters() { QVERIFY(found(QStringLiteral("slamnon")).isEmpty()); }

    void aTokenThatIsInSomeNameIsNotCorrected()
    {
        // "Poi" is a food, so nobody is offered poisson or pork for it.
        QCOMPARE(found(QStringLiteral("poi")).value(0), QStringLiteral("Poi"));
        const QStringList hits = found(QStringLiteral("poi"), 10000);
        QCOMPARE(
            hits.filter(QRegularExpression(QStringLiteral("\\bpoi"), QRegularExpression::CaseInsensitiveOption)), hits);
    }

    // Nothing of the table is there for nothing: said alone, each synonym finds a food that holds all it means.
    void everySynonymFindsWhatItMeans()
    {
        QStringList useless;
        for (const FoodSynonym &synonym : foodSynonyms()) {
            const QByteArray said = QByteArrayList(synonym.said.begin(), synonym.said.end()).join(' ');
            const QByteArray meant = QByteArrayList(synonym.meant.begin(), synonym.meant.end()).join(' ');
            const std::vector<int> hits = search.search(QString::fromLatin1(said));
            const bool any = std::any_of(hits.begin(), hits.end(), [&](int hit) { return holds(hit, synonym.meant); });
            if (!any && !isLack(synonym))
                useless << QString::fromLatin1(said + " for " + meant);
        }
        QVERIFY2(useless.isEmpty(), qPrintable(useless.join(u'\n')));
    }

    void aPrefixOfASynonymIsEnough()
    {
        QCOMPARE(found(QStringLiteral("aubergi")), found(QStringLiteral("aubergine")));
        QCOMPARE(found(QStringLiteral("aubergines")), found(QStringLiteral("aubergine")));
    }

    void aCompoundIsFoundWrittenAsOneWordOrAsTwo()
    {
        QCOMPARE(found(QStringLiteral("cornflakes")), found(QStringLiteral("corn flakes")));
        QVERIFY(found(QStringLiteral("soy milk")).value(0).startsWith(QLatin1String("Soymilk")));
    }

    void wordsForAServingAreDroppedWhenNoNameHasThem()
    {
        QCOMPARE(found(QStringLiteral("a cup of tea")), found(QStringLiteral("tea")));
        QVERIFY(search.search(QStringLiteral("a cup of xyzzy")).empty());
    }

    void aQueryThatNoNameMatchesFindsNothing()
    {
        QVERIFY(search.search(QStringLiteral("xyzzyplugh")).empty());
        QVERIFY(search.search(QStringLiteral("xyzzyplugh frobnicate")).empty());
        QVERIFY(search.matchedLetters(0).empty());
        QVERIFY(search.missingWords(0).isEmpty());
    }

    void whereNoNameHasAllWordsThoseWithTheMostAreFound()
    {
        const auto missing = [&](const char *query) {
            const std::vector<int> hits = search.search(QString::fromLatin1(query));
            return hits.empty() ? QStringList(QStringLiteral("nothing found")) : search.missingWords(hits.front());
        };
        QCOMPARE(found(QStringLiteral("milk xyzzyplugh")), found(QStringLiteral("milk")));
        QCOMPARE(found(QStringLiteral("xyzzyplugh butter salted")), found(QStringLiteral("butter salted")));
        QCOMPARE(missing("milk xyzzyplugh"), QStringList(QStringLiteral("xyzzyplugh")));
        QCOMPARE(missing("butter salted"), QStringList());
        // Each of the words is in some name, both in none.
        QCOMPARE(missing("butter tequila").size(), 1);
        // What goes with a food comes after it.
        QCOMPARE(missing("weetabix with xyzzyplugh"), QStringList(QStringLiteral("xyzzyplugh")));
    }

    void twoLettersBeginNoPartialMatch()
    {
        QVERIFY(search.search(QStringLiteral("xyzzyplugh ra")).empty());
        QVERIFY(!search.search(QStringLiteral("xyzzyplugh rad")).empty());
    }

    void fewFoodsAreFollowedByThoseThatHaveMostOfTheWords()
    {
        const std::vector<int> hits = search.search(QStringLiteral("crispy bacon"));
        QCOMPARE(hits.size(), std::size_t(5));
        QVERIFY(search.missingWords(hits.front()).isEmpty());
        QCOMPARE(search.missingWords(hits.back()), QStringList(QStringLiteral("crispy")));
        // Unless one of them is called so.
        QCOMPARE(found(QStringLiteral("apricots raw")), QStringList(QStringLiteral("Apricots, raw")));
    }

    void aFoodOfOnesOwnComesFirstWithinItsTier()
    {
        const auto numberOf = [&](const char *name) { return static_cast<int>(names.indexOf(QLatin1String(name))); };
        const int skim = numberOf("Milk, nonfat, fluid, with added vitamin A and vitamin D (fat free or skim)");
        const int chips = numberOf("Snacks, potato chips, made from dried potatoes, reduced fat");
        QVERIFY(skim >= 0 && chips >= 0);
        const QString whole = found(QStringLiteral("milk")).value(0);
        FoodSearch mine(names);
        mine.setOwnFoods({{skim, 0.5F}, {chips, 4.0F}});
        QCOMPARE(mine.search(QStringLiteral("milk")).front(), skim);
        QCOMPARE(names[mine.search(QStringLiteral("milk"))[1]], whole);
        // Chips are no potato, however many of them one eats.
        QVERIFY(mine.search(QStringLiteral("potato")).front() != chips);
        mine.setOwnFoods({});
        QCOMPARE(names[mine.search(QStringLiteral("milk")).front()], whole);
        mine.setOwnFoods({{-1, 1.0F}, {static_cast<int>(names.size()), 1.0F}});
        QCOMPARE(names[mine.search(QStringLiteral("milk")).front()], whole);
    }

    void ofTwoFoodsBothStandAmongTheFirst()
    {
        const auto isFound = [&](const char *query, const char *one, const char *other) {
            const QStringList first = found(QString::fromLatin1(query), 5);
            return first.value(0).startsWith(QLatin1String(one)) && first.value(3).startsWith(QLatin1String(other));
        };
        QVERIFY(isFound("bagel cream cheese", "Bagels, plain", "Cheese, cream"));
        QVERIFY(isFound("latte skimmed milk", "Coffee, brewed", "Milk, nonfat"));
        // What stands in the middle, or is misspelt, tells more of the one food.
        QVERIFY(found(QStringLiteral("cheese and onion crisps"), 10).filter(QStringLiteral("Onions")).isEmpty());
        QVERIFY(found(QStringLiteral("salt and vinegar crisps"), 10).filter(QStringLiteral("Vinegar")).isEmpty());
    }

    void aStateThatNoNameHasDoesNotHideTheFood()
    {
        QCOMPARE(found(QStringLiteral("almonds raw")).value(0), QStringLiteral("Nuts, almonds"));
        QCOMPARE(found(QStringLiteral("almonds raw")), found(QStringLiteral("almonds")));
    }

    void whatHasToBeMadeUpFirstComesAfterWhatIsReady()
    {
        for (const char *query : {"gravy", "lemonade", "instant coffee", "hot chocolate", "iced tea"}) {
            const QString name = found(QString::fromLatin1(query)).value(0);
            const bool dry = name.contains(QRegularExpression(QStringLiteral("\\b(dry|powder|mix)\\b")));
            QVERIFY2(!dry || name.contains(QStringLiteral("prepared")), qPrintable(name));
        }
        QVERIFY(found(QStringLiteral("dry gravy")).value(0).contains(QStringLiteral("dry")));
        QVERIFY(!found(QStringLiteral("rotisserie chicken")).value(0).contains(QStringLiteral("skin only")));
    }

    void aShortFormIsReadAsTheWholeWord()
    {
        QCOMPARE(found(QStringLiteral("yorkshire pud")), found(QStringLiteral("yorkshire pudding")));
        QCOMPARE(found(QStringLiteral("mac & chz")), found(QStringLiteral("mac & cheese")));
        QCOMPARE(found(QStringLiteral("jacket spuds")), found(QStringLiteral("jacket potato")));
        // Who types on from one is still on the way to the word, in whatever number.
        // The one exception, a brand whose name is a play upon that word, is found from its fifth letter on.
        constexpr qsizetype ending = 3; // "berries" against "berry"
        const auto continues = [](const QByteArray &word, const QByteArray &meant) {
            return word == "chocula" || word.startsWith(meant.left(std::max<qsizetype>(4, meant.size() - ending)));
        };
        QStringList others;
        for (const SynonymTable::Row &row : SynonymTable::abbreviations())
            for (const QByteArray &shortform : QByteArray(row.said).split(' '))
                for (const QString &name : names)
                    for (const FoodWords::Token &word : FoodWords::tokenize(name))
                        if (word.text.startsWith(shortform) && !continues(word.text, row.meant))
                            others << QString::fromLatin1(shortform + " begins " + word.text);
        QVERIFY2(others.isEmpty(), qPrintable(others.join(u'\n')));
    }

    void nothingMeansTheSameTwice()
    {
        std::set<std::pair<QByteArray, QByteArray>> pairs;
        for (const auto &rows : {SynonymTable::rows(), SynonymTable::dishes(), SynonymTable::brands()})
            for (const SynonymTable::Row &row : rows)
                for (const QByteArray &said : QByteArray(row.said).split('|'))
                    QVERIFY2(pairs.insert({said, row.meant}).second, said + " for " + row.meant);
    }

    void whatIsSaidInThePluralHasNoSingular()
    {
        QVERIFY(found(QStringLiteral("greens")).value(0).startsWith(QLatin1String("Collards")));
        QVERIFY(found(QStringLiteral("green")).filter(QStringLiteral("Collards")).isEmpty());
    }

    void aSynonymMayBeUnfinishedOrTurnedRound()
    {
        QCOMPARE(found(QStringLiteral("digestive bisc")), found(QStringLiteral("digestive biscuit")));
        QCOMPARE(found(QStringLiteral("yorkshire pudd")), found(QStringLiteral("yorkshire pudding")));
        QCOMPARE(found(QStringLiteral("wings buffalo")), found(QStringLiteral("buffalo wings")));
        // The first words may not.
        QVERIFY(found(QStringLiteral("dig biscuit")) != found(QStringLiteral("digestive biscuit")));
    }

    void whatAFoodIsWithoutIsNoFood()
    {
        QVERIFY(found(QStringLiteral("toast no butter")).value(0).startsWith(QLatin1String("Bread")));
        QVERIFY(found(QStringLiteral("salad no dressing"))
                    .contains(QStringLiteral("Fast foods, salad, vegetable, tossed, without dressing")));
        // Nor is a number.
        QVERIFY(found(QStringLiteral("greek yog 0%")).filter(QStringLiteral("Beef")).isEmpty());
    }

    void foodsOfOnesOwnPushNoOtherOutOfAFilledList()
    {
        const auto keepsAll = [&](const char *query, const char *logged) {
            const std::vector<int> plain = search.search(QString::fromLatin1(query));
            QHash<int, float> own;
            for (const int food : search.search(QString::fromLatin1(logged)))
                own.insert(food, 1.0F);
            FoodSearch mine(names);
            mine.setOwnFoods(own);
            const std::vector<int> hits = mine.search(QString::fromLatin1(query));
            return hits.size() >= plain.size() && std::all_of(plain.begin(), plain.end(), [&](int food) {
                return std::find(hits.begin(), hits.end(), food) != hits.end();
            });
        };
        QVERIFY(keepsAll("crispy bacon", "bacon"));
        // Of somebody's brand none is a stranger's, but it is no more what was typed.
        QVERIFY(keepsAll("smoked turkey sandwich", "louis rich turkey breast white smoked sliced"));
        QVERIFY(keepsAll("bagel cream cheese", "bagel"));
    }

    void theMoreUsefulOfTwoFoodsOfOnesOwnComesFirst()
    {
        FoodSearch few({QStringLiteral("Rye"), QStringLiteral("Rye, old"), QStringLiteral("Rye, new")});
        few.setOwnFoods({{1, 1.0F}, {2, 2.0F}});
        QVERIFY((few.search(QStringLiteral("rye")) == std::vector<int>{2, 1, 0}));
        few.setOwnFoods({{1, 2.0F}, {2, 1.0F}});
        QVERIFY((few.search(QStringLiteral("rye")) == std::vector<int>{1, 2, 0}));
    }

    void aFoodForFewIsLikeAnyOtherToThoseWhoEatIt()
    {
        FoodSearch few({QStringLiteral("Apples, raw"), QStringLiteral("Babyfood, apples")});
        QVERIFY((few.search(QStringLiteral("apples")) == std::vector<int>{0, 1}));
        few.setOwnFoods({{1, 1.0F}});
        QVERIFY((few.search(QStringLiteral("apples")) == std::vector<int>{1, 0}));
    }

    void whatHasLessThatWasNotAskedForComesFirst()
    {
        FoodSearch begun({QStringLiteral("Breadfruit"), QStringLiteral("Breads")});
        QVERIFY((begun.search(QStringLiteral("brea")) == std::vector<int>{1, 0}));
        FoodSearch company({QStringLiteral("Rice, white, with peas"), QStringLiteral("Rice, white, peas"),
            QStringLiteral("Milk"), QStringLiteral("Eggs"), QStringLiteral("Butter")});
        QVERIFY((company.search(QStringLiteral("rice")) == std::vector<int>{1, 0}));
    }

    void aQueryWithoutALetterOrADigitIsEmpty()
    {
        for (const char *query : {"", " ", ",", "%", "- / &", "\u00b0"})
            QVERIFY2(FoodSearch::isEmpty(QString::fromUtf8(query)), query);
        for (const char *query : {"a", "7", " ,x"})
            QVERIFY2(!FoodSearch::isEmpty(QString::fromUtf8(query)), query);
    }

    void hostileQueriesGiveValidHitsAndLetters_data()
    {
        QTest::addColumn<QString>("query");
        QString alphabet;
        for (int i = 0; i < 5000; ++i)
            alphabet += QString(QChar(u'a' + i % 26)) + QString::number(i) + u' ';
        QTest::newRow("10,000 letters") << QString(10000, u'a');
        QTest::newRow("10,000 blanks and a letter") << QString(10000, u' ') + u'a';
        QTest::newRow("5,000 words") << alphabet;
        QTest::newRow("one-letter words") << QStringLiteral("a b c d e f g h i j k l m n o p q r s t u v w x y z");
        QTest::newRow("every prefix of a long word") << QStringLiteral(
            "s st str stra straw strawb strawbe strawber strawberr strawberri strawberrie strawberries");
        QTest::newRow("misspelt words") << QStringLiteral("xhicken ").repeated(60);
        QTest::newRow("surrogates and NUL") << QString::fromUtf16(u"\xd800\xdc00 \xd800 \xdfff") + QChar(u'\0');
    }

    void hostileQueriesGiveValidHitsAndLetters()
    {
        QFETCH(QString, query);
        const std::vector<int> hits = search.search(query);
        for (const int name : hits) {
            QVERIFY(name >= 0 && name < names.size());
            int free = 0; // the first letter that no range before has taken
            for (const FoodSearch::Letters &letters : search.matchedLetters(name)) {
                QVERIFY(letters.start >= free && letters.count > 0);
                free = letters.start + letters.count;
            }
            QVERIFY(free <= names.at(name).size());
        }
    }

    void onlyTheFirst512CharactersAnd24TokensCount()
    {
        QCOMPARE(search.search(QString(512, u' ') + QStringLiteral("zwieback")).size(), std::size_t(names.size()));
        QCOMPARE(found(QString(504, u' ') + QStringLiteral("zwieback xyzzy")), found(QStringLiteral("zwieback")));
        QStringList words;
        for (char16_t c = u'a'; c < u'a' + 24; ++c)
            words << QString(3, QChar(c));
        FoodSearch one(QStringList{words.join(u' ')});
        QCOMPARE(one.search(words.join(u' ') + QStringLiteral(" xyzzy")).size(), std::size_t(1));
    }

    void tellsTheLettersThatMatched_data()
    {
        QTest::addColumn<QString>("query");
        QTest::addColumn<QString>("letters");

        const auto row = [](const char *name, const char *query, const char *letters) {
            QTest::newRow(name) << QString::fromLatin1(query) << QString::fromLatin1(letters);
        };
        row("a whole word", "zwieback", "Zwieback");
        row("a prefix", "zwie", "Zwie....");
        row("the plural of what was typed", "rutabaga", "Rutabagas.....");
        row("two words, as they stand in the name", "raw rutaba", "Rutaba.....raw");
        row("a misspelt word", "zwiebak", "Zwieback");
        row("a synonym", "aubergine", "Eggplant.....");
        row("words with and without an apostrophe", "kelloggs crispix",
            "......................KELLOGG..KELLOGG'S.CRISPIX");
        row("a prefix that ends after an apostrophe", "obri home", "..........o'bri....home.........");
    }

    void tellsTheLettersThatMatched()
    {
        QFETCH(QString, query);
        QTEST(lettersOfFirstHit(query), "letters");
    }

    void aRepeatedQueryGivesTheSameHits()
    {
        const std::vector<int> hits = search.search(QStringLiteral("chicken soup"));
        const std::vector<FoodSearch::Letters> letters = search.matchedLetters(hits.front());
        QVERIFY(letters.front() != FoodSearch::Letters());
        (void)search.search(QStringLiteral("banana"));
        QVERIFY(search.search(QStringLiteral("chicken soup")) == hits);
        QVERIFY(search.matchedLetters(hits.front()) == letters);
    }

    void anyListOfNamesCanBeSearched()
    {
        FoodSearch few(
            {QStringLiteral("Bread, rye"), QString(), QStringLiteral("Rye"), QStringLiteral("(odd), ,, ()")});
        QVERIFY((few.search(QStringLiteral("rye")) == std::vector<int>{2, 0}));
        QVERIFY((few.search(QStringLiteral("odd")) == std::vector<int>{3}));
        QVERIFY((few.search(QString()) == std::vector<int>{0, 1, 2, 3}));
        FoodSearch none({});
        QVERIFY(none.search(QStringLiteral("rye")).empty());
    }
};

QTEST_APPLESS_MAIN(FoodSearchTest)
#include "tst_foodsearch.moc"
