// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "catalog/NutrientCatalogue.h"

#include <QtTest>

#include <string>

namespace {

struct Expected {
    const char *name;
    const char *unit;
    int defaultrda;
};

// Written out a second time on purpose: a slip in the program's table must show.
constexpr Expected expected[] = {
    {"Energy", "kcal", 2000},
    {"Carbs", "g", 300},
    {"Sugars", "g", 50},
    {"Fiber", "g", 25},
    {"Protein", "g", 50},
    {"Fat", "g", 65},
    {"Alcohol", "g", 0},
    {"Caffeine", "mg", 0},
    {"Water", "g", 0},
    {"Ash", "g", 0},
    {"Calcium", "mg", 1000},
    {"Copper", "mg", 2},
    {"Iron", "mg", 18},
    {"Magnesium", "mg", 400},
    {"Manganese", "mg", 2},
    {"Phosphorus", "mg", 1000},
    {"Potassium", "mg", 3500},
    {"Selenium", "\u00b5g", 70},
    {"Sodium", "mg", 2400},
    {"Zinc", "mg", 15},
    {"Vitamin A", "IU", 3000},
    {"Retinol", "IU", 0},
    {"Alpha-carotene", "IU", 0},
    {"Beta-carotene", "IU", 0},
    {"Folate", "\u00b5g", 400},
    {"B1 (Thiamine)", "mg", 1},
    {"B2 (Riboflavin)", "mg", 1},
    {"B3 (Niacin)", "mg", 20},
    {"B5 (Pantothenic Acid)", "mg", 10},
    {"B6 (Pyridoxine)", "mg", 2},
    {"B12 (Cyanocobalamin)", "\u00b5g", 6},
    {"Vitamin C", "mg", 60},
    {"Vitamin D", "IU", 400},
    {"Vitamin E", "mg", 15},
    {"Vitamin K", "\u00b5g", 80},
    {"Choline", "mg", 0},
    {"Saturated", "g", 20},
    {"Monounsaturated", "g", 0},
    {"Polyunsaturated", "g", 0},
    {"Omega-3", "g", 0},
    {"Omega-6", "g", 0},
    {"Cholesterol", "mg", 300},
    {"Phytosterol", "mg", 0},
    {"ALA", "g", 0},
    {"ARG", "g", 0},
    {"ASP", "g", 0},
    {"CYS", "g", 0},
    {"GLU", "g", 0},
    {"GLY", "g", 0},
    {"HIS", "g", 0},
    {"ILE", "g", 0},
    {"LEU", "g", 0},
    {"LYS", "g", 0},
    {"MET", "g", 0},
    {"PHE", "g", 0},
    {"PRO", "g", 0},
    {"SER", "g", 0},
    {"THR", "g", 0},
    {"TRP", "g", 0},
    {"TYR", "g", 0},
    {"VAL", "g", 0},
};

} // namespace

class NutrientCatalogueTest final : public QObject {
    Q_OBJECT

private slots:
    void theTableHasThe61NutrientsInOrder()
    {
        QCOMPARE(NutrientCatalogue::nutrientCount, 61);
        QCOMPARE(std::size(expected), std::size_t(61));
        QCOMPARE(NutrientCatalogue::names().size(), 61);
        QCOMPARE(NutrientCatalogue::units().size(), 61);
        QCOMPARE(NutrientCatalogue::names().constFirst(), QStringLiteral("Energy"));
        QCOMPARE(NutrientCatalogue::names().constLast(), QStringLiteral("VAL"));
        for (int i = 0; i < NutrientCatalogue::nutrientCount; ++i) {
            QCOMPARE(NutrientCatalogue::names().at(i), QString::fromUtf8(expected[i].name));
            QCOMPARE(NutrientCatalogue::units().at(i), QString::fromUtf8(expected[i].unit));
            QCOMPARE(NutrientCatalogue::defaultRDAs()[static_cast<std::size_t>(i)], expected[i].defaultrda);
        }
    }

    void theUnitsAreTheFiveOnly()
    {
        const QStringList closed = {QStringLiteral("kcal"), QStringLiteral("g"), QStringLiteral("mg"),
            QStringLiteral("\u00b5g"), QStringLiteral("IU")};
        for (const QString &unit : NutrientCatalogue::units())
            QVERIFY2(closed.contains(unit), qPrintable(unit));
        QCOMPARE(NutrientCatalogue::units().count(QStringLiteral("kcal")), 1);
    }

    void microgramsAreWrittenWithTheMicroSign()
    {
        for (const char *name : {"Selenium", "Folate", "B12 (Cyanocobalamin)", "Vitamin K"}) {
            const QString unit = NutrientCatalogue::units().at(NutrientCatalogue::indexOfNutrient(name));
            QCOMPARE(unit.size(), 2);
            QCOMPARE(unit.at(0), QChar(0x00b5));
            QCOMPARE(unit.at(1), QChar(u'g'));
        }
        QCOMPARE(NutrientCatalogue::units().filter(QChar(0x00b5)).size(), 4);
    }

    void thirtyOneDefaultsAreZero()
    {
        QList<int> zeros;
        for (int i = 0; i < NutrientCatalogue::nutrientCount; ++i) {
            if (NutrientCatalogue::defaultRDAs()[static_cast<std::size_t>(i)] == 0)
                zeros.append(i);
        }
        QList<int> listed = {6, 7, 8, 9, 21, 22, 23, 35, 37, 38, 39, 40, 42};
        for (int i = 43; i <= 60; ++i)
            listed.append(i);
        QCOMPARE(zeros, listed);
        QCOMPARE(zeros.size(), 31);
    }

    void everyNameIsFoundAtItsIndex()
    {
        for (int i = 0; i < NutrientCatalogue::nutrientCount; ++i)
            QCOMPARE(NutrientCatalogue::indexOfNutrient(expected[i].name), i);
    }

    void aNameIsFoundInTheMiddleOfAText()
    {
        const std::string text = "name=\"Fat\" amount";
        QCOMPARE(NutrientCatalogue::indexOfNutrient(std::string_view(text).substr(6, 3)), 5);
    }

    void anythingElseIsNoNutrient_data()
    {
        QTest::addColumn<QByteArray>("name");

        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("one letter") << QByteArray("F");
        QTest::newRow("two letters") << QByteArray("Fa");
        QTest::newRow("lower case") << QByteArray("energy");
        QTest::newRow("upper case") << QByteArray("ENERGY");
        QTest::newRow("an amino acid in lower case") << QByteArray("val");
        QTest::newRow("without its hyphen") << QByteArray("Omega3");
        QTest::newRow("a blank for the hyphen") << QByteArray("Omega 3");
        QTest::newRow("a blank missing") << QByteArray("B1(Thiamine)");
        QTest::newRow("a blank before") << QByteArray(" Energy");
        QTest::newRow("a blank at the end") << QByteArray("Energy ");
        QTest::newRow("a NUL at the end") << QByteArray("Energy\0", 7);
        QTest::newRow("a beginning") << QByteArray("Vitamin");
        QTest::newRow("another vitamin") << QByteArray("Vitamin B");
        QTest::newRow("the same key, another middle") << QByteArray("Enxxgy");
        QTest::newRow("256 bytes longer") << QByteArray("En" + QByteArray(258, 'r') + "gy");
        QTest::newRow("a very long text") << QByteArray(100000, 'E');
        QTest::newRow("bytes beyond ASCII") << QByteArray("\xff\xfe\xfd");
    }

    void anythingElseIsNoNutrient()
    {
        QFETCH(QByteArray, name);
        const std::string_view text(name.constData(), static_cast<std::size_t>(name.size()));
        QCOMPARE(NutrientCatalogue::indexOfNutrient(text), -1);
    }

    void theListsAreMadeOnce()
    {
        QCOMPARE(&NutrientCatalogue::names(), &NutrientCatalogue::names());
        QCOMPARE(&NutrientCatalogue::units(), &NutrientCatalogue::units());
    }

    void blocksStartAtMineralsVitaminsFatsAndAminoAcids()
    {
        QStringList starts;
        for (int i = 0; i < NutrientCatalogue::nutrientCount; ++i) {
            if (NutrientCatalogue::startsBlock(i))
                starts.append(NutrientCatalogue::names().at(i));
        }
        QCOMPARE(starts,
            QStringList({QStringLiteral("Calcium"), QStringLiteral("Vitamin A"), QStringLiteral("Saturated"),
                QStringLiteral("ALA")}));
    }

    void eachAminoAcidHasItsNameInFullAndNothingElseHasAnother()
    {
        const QStringList acids
            = {QStringLiteral("Alanine"), QStringLiteral("Arginine"), QStringLiteral("Aspartic acid"),
                QStringLiteral("Cystine"), QStringLiteral("Glutamic acid"), QStringLiteral("Glycine"),
                QStringLiteral("Histidine"), QStringLiteral("Isoleucine"), QStringLiteral("Leucine"),
                QStringLiteral("Lysine"), QStringLiteral("Methionine"), QStringLiteral("Phenylalanine"),
                QStringLiteral("Proline"), QStringLiteral("Serine"), QStringLiteral("Threonine"),
                QStringLiteral("Tryptophan"), QStringLiteral("Tyrosine"), QStringLiteral("Valine")};
        QCOMPARE(NutrientCatalogue::fullNames(), NutrientCatalogue::names().mid(0, 43) + acids);
    }

    void theAminoAcidsAreInAlphabeticalOrder()
    {
        QStringList codes = NutrientCatalogue::names().mid(43);
        QCOMPARE(codes.size(), 18);
        QStringList sorted = codes;
        sorted.sort();
        QCOMPARE(codes, sorted);
    }
};

QTEST_APPLESS_MAIN(NutrientCatalogueTest)
#include "tst_nutrientcatalogue.moc"
