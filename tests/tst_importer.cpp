// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

// The importer as a person runs it, over small made-up tables in the release's format.

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

namespace {

// Every nutrient that the importer uses, by the unit it must be given in (ISO 8859-1).
const QList<std::pair<QByteArray, QByteArray>> definitions = {
    {"kcal", "208"},
    {"g", "203 204 205 207 221 255 269 291 501 502 503 504 505 506 507 508 509 510 511 512 513 514 515 516 517 518"},
    {"g", "606 618 619 620 621 627 629 631 645 646 672 675 685 851 852 853 855 858"},
    {"mg", "262 301 303 304 305 306 307 309 312 315 323 401 404 405 406 410 415 421 601 636"},
    {"\xb5g", "317 319 321 322 417 418 430"},
    {"IU", "318 324"},
};

QByteArray definitionRows()
{
    QByteArray rows = "~334~^~\xb5g~^~CRYPX~^~Cryptoxanthin, beta~^~0~^~7460~\r\n";
    for (const auto &[unit, numbers] : definitions) {
        for (const QByteArray &number : numbers.split(' '))
            rows += '~' + number + "~^~" + unit + "~^~TAG~^~Nutrient " + number + "~^~0~^~1~\r\n";
    }
    return rows;
}

QByteArray foodRow(const QByteArray &food)
{
    return '~' + food + "~^~0100~^~A food~^~A FOOD~^~~^~~^~Y~^~~^0^~~^6.38^4.27^8.79^3.87\r\n";
}

QByteArray figureRow(const QByteArray &food, const QByteArray &nutrient, const QByteArray &amount)
{
    return '~' + food + "~^~" + nutrient + "~^" + amount + "^16^0.074^~1~^~~^~~^~~^^^^^^^~~^11/1976^\r\n";
}

QByteArray weightRow(const QByteArray &food, const QByteArray &sequence, const QByteArray &amount,
    const QByteArray &description, const QByteArray &grams)
{
    return '~' + food + "~^" + sequence + '^' + amount + "^~" + description + "~^" + grams + "^^\r\n";
}

// The input of one run, and what it gave.
struct Import {
    QTemporaryDir home;
    QMap<QString, QByteArray> files = {
        {QStringLiteral("FOOD_DES.txt"), foodRow("00001") + foodRow("00002") + foodRow("00003")},
        {QStringLiteral("NUT_DATA.txt"), figureRow("00001", "208", "48") + figureRow("00002", "208", "5")},
        {QStringLiteral("NUTR_DEF.txt"), definitionRows()},
        {QStringLiteral("WEIGHT.txt"), weightRow("00001", "1", "1", "cup", "240")},
        {QStringLiteral("foods.tsv"), "00001\tApple, raw\n00002\tBread\n"},
    };
    QByteArray out;
    QByteArray err;

    [[nodiscard]] QString path(const QString &name) const { return home.filePath(name); }

    int run()
    {
        for (auto file = files.cbegin(); file != files.cend(); ++file) {
            QFile target(path(file.key()));
            if (!target.open(QIODevice::WriteOnly) || target.write(file.value()) != file.value().size())
                return -1;
        }
        return start({home.path(), path(QStringLiteral("foods.tsv")), path(QStringLiteral("out"))});
    }

    int start(const QStringList &arguments)
    {
        QProcess process;
        process.start(QStringLiteral(IMPORT_FOODS), arguments);
        if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit)
            return -1;
        out = process.readAllStandardOutput();
        err = process.readAllStandardError();
        return process.exitCode();
    }

    [[nodiscard]] QByteArray written(const QString &food) const
    {
        QFile file(path(QStringLiteral("out/") + food + QStringLiteral(".xml")));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    // The elements of the apple's file that hold a piece of text, a line each.
    [[nodiscard]] QByteArray appleLines(const QByteArray &piece) const
    {
        QByteArray found;
        for (const QByteArray &line : written(QStringLiteral("Apple, raw")).split('\n')) {
            if (line.contains(piece))
                found += line + '\n';
        }
        return found;
    }
};

} // namespace

class ImporterTest final : public QObject {
    Q_OBJECT

private slots:
    void aFoodFileHasTheFoodThenMeasuresThenNutrientsInCatalogueOrder()
    {
        Import import;
        import.files[QStringLiteral("foods.tsv")] = "00001\tFish & chips\n";
        import.files[QStringLiteral("NUT_DATA.txt")] = figureRow("00001", "510", "0.047")
            + figureRow("00001", "401", "10.0") + figureRow("00001", "203", "1.40") + figureRow("00001", "334", "104")
            + figureRow("00001", "208", "48") + figureRow("00001", "418", "0.00");
        import.files[QStringLiteral("WEIGHT.txt")] = weightRow("00001", "10", "1", "tray", "300")
            + weightRow("00001", "9", "3", "piece, <4\" & \"hot\">", "50.0")
            + weightRow("00001", "1", "1", "cr\xe8me  br\xfbl\xe9\x65", "20");
        QCOMPARE(import.run(), 0);
        QCOMPARE(import.err, QByteArray());
        QCOMPARE(QDir(import.path(QStringLiteral("out"))).entryList(QDir::Files),
            QStringList(QStringLiteral("Fish & chips.xml")));
        QCOMPARE(import.written(QStringLiteral("Fish & chips")),
            QByteArray("<food name=\"Fish &amp; chips\" source=\"USDA SR24 00001\">\n"
                       "  <measure name=\"cr\u00e8me  br\u00fbl\u00e9e\" amount=\"1\" grams=\"20\"/>\n"
                       "  <measure name=\"piece, &lt;4&quot; &amp; &quot;hot&quot;>\" amount=\"3\" grams=\"50.0\"/>\n"
                       "  <measure name=\"tray\" amount=\"1\" grams=\"300\"/>\n"
                       "  <nutrient name=\"Energy\" amount=\"48\"/>\n"
                       "  <nutrient name=\"Protein\" amount=\"1.40\"/>\n"
                       "  <nutrient name=\"B12 (Cyanocobalamin)\" amount=\"0.00\"/>\n"
                       "  <nutrient name=\"Vitamin C\" amount=\"10.0\"/>\n"
                       "  <nutrient name=\"VAL\" amount=\"0.047\"/>\n"
                       "</food>\n"));
    }

    void runningTwiceGivesTheSameBytes()
    {
        Import import;
        QCOMPARE(import.run(), 0);
        const QByteArray first = import.written(QStringLiteral("Apple, raw"));
        QVERIFY(!first.isEmpty());
        QCOMPARE(import.run(), 0);
        QCOMPARE(import.written(QStringLiteral("Apple, raw")), first);
        QCOMPARE(QDir(import.path(QStringLiteral("out"))).entryList(QDir::Files).size(), 2);
    }

    void aFormerLongerFileIsReplacedWhole()
    {
        Import import;
        QCOMPARE(import.run(), 0);
        const QByteArray first = import.written(QStringLiteral("Bread"));
        QFile file(import.path(QStringLiteral("out/Bread.xml")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(QByteArray(10000, 'x'));
        file.close();
        QCOMPARE(import.run(), 0);
        QCOMPARE(import.written(QStringLiteral("Bread")), first);
    }

    void unixLineEndsAndAMissingLastOneAreReadToo()
    {
        Import import;
        QCOMPARE(import.run(), 0);
        const QByteArray first = import.written(QStringLiteral("Apple, raw"));
        for (QByteArray &content : import.files) {
            content.replace("\r\n", "\n");
            content.chop(1);
        }
        QCOMPARE(import.run(), 0);
        QCOMPARE(import.written(QStringLiteral("Apple, raw")), first);
    }

    void aNutrientIsMadeOfTheFigures_data()
    {
        QTest::addColumn<QByteArray>("figures");
        QTest::addColumn<QByteArray>("nutrient");
        QTest::addColumn<QByteArray>("amount");

        const auto row = [](const char *name, const char *figures, const char *nutrient, const char *amount) {
            QTest::newRow(name) << QByteArray(figures) << QByteArray(nutrient) << QByteArray(amount);
        };
        row("a figure keeps its text", "203=1.40", "Protein", "1.40");
        row("vitamin D is in IU", "324=52", "Vitamin D", "52");
        row("retinol becomes IU", "319=300", "Retinol", "1000");
        row("retinol has one decimal", "319=10", "Retinol", "33.3");
        row("retinol is rounded up", "319=20", "Retinol", "66.7");
        row("beta-carotene becomes IU", "321=1094", "Beta-carotene", "1823.3");
        row("alpha-carotene becomes IU", "322=19", "Alpha-carotene", "15.8");
        row("a half of a tenth goes up", "322=0.3", "Alpha-carotene", "0.3");
        row("no retinol is 0 IU", "319=0", "Retinol", "0");
        row("omega-3 is a sum", "851=0.001 627=0.010 852=0.100 629=1.000 631=2.5 621=0.0300", "Omega-3", "3.641");
        row("omega-3 takes 619 where 851 is missing", "619=0.365 621=0.100", "Omega-3", "0.465");
        row("omega-3 leaves 619 where 851 is given", "851=0.1 619=0.365", "Omega-3", "0.1");
        row("a given 0 is not missing", "851=0.000 619=0.365", "Omega-3", "0");
        row("omega-6 is a sum", "675=0.001 685=0.010 672=0.100 853=1.000 855=2.5 858=0.0300", "Omega-6", "3.641");
        row("omega-6 takes 618 where 675 is missing", "618=0.577 620=0.020", "Omega-6", "0.597");
        row("omega-6 takes each alternative by itself", "675=0.5 618=9 620=0.020", "Omega-6", "0.52");
        row("omega-6 leaves 620 where 855 is given", "855=0.1 620=9", "Omega-6", "0.1");
        row("one member is enough", "858=0.004", "Omega-6", "0.004");
        row("a sum has three decimals", "675=0.0004 685=0.0003", "Omega-6", "0.001");
        row("a sum is exact", "675=0.1 685=0.2", "Omega-6", "0.3");
        row("another fatty acid is no member", "606=5 645=6 646=7", "Omega-6", "");
        row("without members there is no sum", "618=0.577", "Omega-3", "");
        row("without its figure there is no nutrient", "203=1.40", "Fat", "");
        row("without retinol there is none", "318=90", "Retinol", "");
    }

    void aNutrientIsMadeOfTheFigures()
    {
        QFETCH(QByteArray, figures);
        QFETCH(QByteArray, nutrient);
        QFETCH(QByteArray, amount);
        Import import;
        QByteArray rows = figureRow("00002", "208", "5") + figureRow("00003", "204", "100");
        for (const QByteArray &figure : figures.split(' '))
            rows += figureRow("00001", figure.left(3), figure.mid(4));
        import.files[QStringLiteral("NUT_DATA.txt")] = rows;
        QCOMPARE(import.run(), 0);
        const QByteArray expected = "  <nutrient name=\"" + nutrient + "\" amount=\"" + amount + "\"/>\n";
        QCOMPARE(import.appleLines('"' + nutrient + '"'), amount.isEmpty() ? QByteArray() : expected);
    }

    void aMeasureHasAWholeAmount_data()
    {
        QTest::addColumn<QByteArray>("rows");
        QTest::addColumn<QByteArray>("measures");

        const auto row = [](const char *name, const char *rows, const char *measures) {
            QTest::newRow(name) << QByteArray(rows) << QByteArray(measures);
        };
        row("a whole amount is copied", "3|oz|85.0", "oz|3|85.0");
        row("one unit is made of a half", ".5|cup|124", "cup|1|248");
        row("one unit is made of many", "3.527|oz|100", "oz|1|28.35");
        row("one unit is made of one and a half", "1.5|cup|62.5", "cup|1|41.67");
        row("one unit keeps its decimals", ".25|cup|10.1", "cup|1|40.4");
        row("a serving keeps its weight", ".75|cup (1 NLEA serving)|30", "x 0.75 cup (1 NLEA serving)|1|30");
        row("a serving of more than one", "1.250|cup (1 serving)|59.0", "x 1.25 cup (1 serving)|1|59.0");
        row("a whole serving is copied", "1|cup (1 NLEA serving)|30", "cup (1 NLEA serving)|1|30");
        row("servings of unlike amounts are two", ".75|cup (1 serving)|30;.5|cup (1 serving)|20",
            "x 0.75 cup (1 serving)|1|30;x 0.5 cup (1 serving)|1|20");
        row("the first of a title wins", "1|cup|240;.5|cup|100", "cup|1|240");
        row("the first of a title wins when made", ".5|cup|100;1|cup|240", "cup|1|200");
        row("another amount is another title", "1|oz|28;3|oz|85", "oz|1|28;oz|3|85");
        row("the title takes no note of a written decimal", "2|oz|56;2.0|oz|57", "oz|2|56");
        row("case makes another title", "1|cup|240;1|Cup|241", "cup|1|240;Cup|1|241");
        row("a measure without weight is left out", "1|cup|0;1|tbsp|15", "tbsp|1|15");
        row("a measure left out keeps no title", "1|cup|0.0;1|cup|240", "cup|1|240");
        row("only weightless ones leave the ounce", "1|cup|0;.5|cup (1 serving)|0;.5|tbsp|0", "oz|1|28.35");
        row("none leaves the ounce", "", "oz|1|28.35");
    }

    void aMeasureHasAWholeAmount()
    {
        QFETCH(QByteArray, rows);
        QFETCH(QByteArray, measures);
        Import import;
        QByteArray table = weightRow("00003", "1", "1", "of another food", "1");
        QByteArray expected;
        int sequence = 0;
        for (const QByteArray &row : rows.isEmpty() ? QByteArrayList() : rows.split(';')) {
            const QByteArrayList fields = row.split('|');
            table += weightRow("00001", QByteArray::number(++sequence), fields[0], fields[1], fields[2]);
        }
        for (const QByteArray &measure : measures.split(';')) {
            const QByteArrayList fields = measure.split('|');
            expected
                += "  <measure name=\"" + fields[0] + "\" amount=\"" + fields[1] + "\" grams=\"" + fields[2] + "\"/>\n";
        }
        import.files[QStringLiteral("WEIGHT.txt")] = table;
        QCOMPARE(import.run(), 0);
        QCOMPARE(import.appleLines("<measure"), expected);
    }

    void whatIsWrongIsNamedByFileAndLine_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QByteArray>("message");

        const auto row = [](const char *name, const char *file, const QByteArray &content, const char *message) {
            QTest::newRow(name) << QString::fromLatin1(file) << content << QByteArray(message);
        };
        const QByteArray figure = figureRow("00001", "208", "48");
        const QByteArray weight = weightRow("00001", "1", "1", "cup", "240");

        row("an empty table", "NUT_DATA.txt", "", "NUT_DATA.txt: is empty");
        row("an empty list", "foods.tsv", "", "foods.tsv: is empty");
        row("a field too few", "NUT_DATA.txt", figure + "~00001~^~203~^1.40\r\n", "NUT_DATA.txt:2: 3 fields, not 18");
        row("a field too many", "WEIGHT.txt", weight + weight.chopped(2) + "^\r\n", "WEIGHT.txt:2: 8 fields, not 7");
        row("an empty line", "WEIGHT.txt", weight + "\r\n" + weight, "WEIGHT.txt:2: 1 fields, not 7");
        row("a table cut off", "FOOD_DES.txt", foodRow("00001") + foodRow("00002").left(30),
            "FOOD_DES.txt:2: 4 fields, not 14");
        row("a definition cut off", "NUTR_DEF.txt", "~208~^~kcal~\r\n", "NUTR_DEF.txt:1: 2 fields, not 6");
        row("a word for an amount", "NUT_DATA.txt", figure + figureRow("00001", "203", "much"),
            "NUT_DATA.txt:2: field 3 is no number: \"much\"");
        row("no amount", "NUT_DATA.txt", figureRow("00001", "203", ""), "NUT_DATA.txt:1: field 3 is no number: \"\"");
        row("a negative amount", "NUT_DATA.txt", figureRow("00001", "203", "-1"),
            "NUT_DATA.txt:1: field 3 is no number: \"-1\"");
        row("a comma in an amount, of a food not in the list", "NUT_DATA.txt", figureRow("99999", "203", "1,5"),
            "NUT_DATA.txt:1: field 3 is no number: \"1,5\"");
        row("a food number of four digits", "NUT_DATA.txt", figureRow("0001", "203", "1"),
            "NUT_DATA.txt:1: field 1 is no number of 5 digits");
        row("a nutrient number with a letter", "NUT_DATA.txt", figureRow("00001", "2o3", "1"),
            "NUT_DATA.txt:1: field 2 is no number of 3 digits");
        row("a text without tildes", "WEIGHT.txt", "~00001~^1^1^cup^240^^\r\n",
            "WEIGHT.txt:1: field 4 is no text between tildes");
        row("a control character", "WEIGHT.txt", weightRow("00001", "1", "1", "c\tup", "240"),
            "WEIGHT.txt:1: field 4 holds a control character");
        row("a weight that is no number", "WEIGHT.txt", weight + weightRow("00001", "2", "1", "tbsp", "15g"),
            "WEIGHT.txt:2: field 5 is no number: \"15g\"");
        row("a measure of nothing", "WEIGHT.txt", weightRow("00001", "1", "0", "cup", "240"),
            "WEIGHT.txt:1: the amount of a measure of food 00001 is not positive");
        row("a sequence number twice", "WEIGHT.txt", weight + weight, "WEIGHT.txt:2: measure 1 of food 00001 again");
        row("a figure twice", "NUT_DATA.txt", figure + figureRow("00002", "208", "1") + figure,
            "NUT_DATA.txt:3: nutrient 208 of food 00001 again");
        row("a food twice", "FOOD_DES.txt", foodRow("00001") + foodRow("00002") + foodRow("00001"),
            "FOOD_DES.txt:3: food 00001 again");
        row("a food without description", "FOOD_DES.txt", foodRow("00001").replace("~A food~", "~~"),
            "FOOD_DES.txt:1: food 00001 has no description");
        row("another unit", "NUTR_DEF.txt", definitionRows().replace("~208~^~kcal~", "~208~^~kJ~"),
            "NUTR_DEF.txt:2: nutrient 208 (Nutrient 208) is in \"kJ\", not \"kcal\"");
        row("a mu for the micro sign", "NUTR_DEF.txt", definitionRows().replace("~319~^~\xb5g~", "~319~^~\xecg~"),
            "NUTR_DEF.txt:68: nutrient 319 (Nutrient 319) is in \"\u00ecg\", not \"\u00b5g\"");
        row("a nutrient undefined", "NUTR_DEF.txt", "~208~^~kcal~^~T~^~Energy~^~0~^~1~\r\n",
            "NUTR_DEF.txt:1: the table ends without nutrient 203");

        row("a food that the tables lack", "foods.tsv", "00001\tApple, raw\n00007\tBread\n",
            "foods.tsv:2: food 00007 is not in FOOD_DES.txt");
        row("a food without figures", "foods.tsv", "00001\tApple, raw\n00003\tBread\n",
            "foods.tsv:2: food 00003 has no figures in NUT_DATA.txt");
        row("a name out of order", "foods.tsv", "00001\tBread\n00002\tApple, raw\n",
            "foods.tsv:2: out of order: \"Apple, raw\" does not follow \"Bread\"");
        row("a name out of natural order", "foods.tsv", "00001\tGin, 100 proof\n00002\tGin, 94 proof\n",
            "foods.tsv:2: out of order: \"Gin, 94 proof\" does not follow \"Gin, 100 proof\"");
        row("a name out of the order of file names", "foods.tsv", "00001\tBeer\n00002\tBeer, light\n",
            "foods.tsv:2: out of order: \"Beer, light\" does not follow \"Beer\"");
        row("two names with the same place", "foods.tsv", "00001\tGin 094\n00002\tGin 94\n",
            "foods.tsv:2: out of order: \"Gin 94\" does not follow \"Gin 094\"");
        row("a name twice", "foods.tsv", "00001\tBread\n00002\tBread\n",
            "foods.tsv:2: the name \"Bread\" of line 1 again");
        row("a name twice but for case", "foods.tsv", "00001\tBread\n00002\tBREAD\n",
            "foods.tsv:2: the name \"BREAD\" of line 1 again");
        row("a name twice with others between", "foods.tsv", "00001\tBread\n00002\tCake\n00003\tbread\n",
            "foods.tsv:3: the name \"bread\" of line 1 again");
        row("a number twice", "foods.tsv", "00001\tApple, raw\n00001\tBread\n",
            "foods.tsv:2: the number 00001 of line 1 again");
        row("a slash", "foods.tsv", "00001\tApple/pear\n",
            "foods.tsv:1: character 6 of the name is not allowed: \"Apple/pear\"");
        row("a colon", "foods.tsv", "00001\tApple: raw\n",
            "foods.tsv:1: character 6 of the name is not allowed: \"Apple: raw\"");
        row("a quotation mark", "foods.tsv", "00001\tApple\"\n",
            "foods.tsv:1: character 6 of the name is not allowed: \"Apple\"\"");
        row("a letter beyond ASCII", "foods.tsv", "00001\tCr\xc3\xa8me\n",
            "foods.tsv:1: character 3 of the name is not allowed: \"Cr\u00e8me\"");
        row("a second tab", "foods.tsv", "00001\tApple\traw\n",
            "foods.tsv:1: character 6 of the name is not allowed: \"Apple\traw\"");
        row("two blanks", "foods.tsv", "00001\tApple,  raw\n",
            "foods.tsv:1: the blanks of the name are not single and inside: \"Apple,  raw\"");
        row("a blank after it", "foods.tsv", "00001\tApple \n",
            "foods.tsv:1: the blanks of the name are not single and inside: \"Apple \"");
        row("a name too short", "foods.tsv", "00001\tAp\n", "foods.tsv:1: a name of 2 characters: \"Ap\"");
        row("no name", "foods.tsv", "00001\t\n", "foods.tsv:1: a name of 0 characters: \"\"");
        row("no tab", "foods.tsv", "00001 Apple\n", "foods.tsv:1: no number of five digits, tab and name");
        row("no number", "foods.tsv", "00001\tApple\nBread\n", "foods.tsv:2: no number of five digits, tab and name");
        row("a number with a letter", "foods.tsv", "0000a\tApple\n",
            "foods.tsv:1: no number of five digits, tab and name");
    }

    void whatIsWrongIsNamedByFileAndLine()
    {
        QFETCH(QString, file);
        QFETCH(QByteArray, content);
        QFETCH(QByteArray, message);
        Import import;
        import.files[file] = content;
        QCOMPARE(import.run(), 1);
        QCOMPARE(import.err, QFile::encodeName(import.home.path()) + '/' + message + '\n');
        QCOMPARE(import.out, QByteArray());
        QVERIFY(!QDir(import.path(QStringLiteral("out"))).exists());
    }

    void aNameOf177CharactersIsTakenAndOneOf178IsNot()
    {
        Import import;
        import.files[QStringLiteral("foods.tsv")] = "00001\t" + QByteArray(177, 'a') + '\n';
        QCOMPARE(import.run(), 0);
        Import longer;
        longer.files[QStringLiteral("foods.tsv")] = "00001\t" + QByteArray(178, 'a') + '\n';
        QCOMPARE(longer.run(), 1);
        QVERIFY(longer.err.contains("foods.tsv:1: a name of 178 characters"));
    }

    void everyAllowedCharacterIsTaken()
    {
        Import import;
        import.files[QStringLiteral("foods.tsv")] = "00001\tAZaz 09!#%&'()+,-.;x\n";
        QCOMPARE(import.run(), 0);
        QVERIFY(QFile::exists(import.path(QStringLiteral("out/AZaz 09!#%&'()+,-.;x.xml"))));
    }

    void aMissingTableIsNamed_data()
    {
        QTest::addColumn<QString>("file");
        for (const char *file : {"FOOD_DES.txt", "NUT_DATA.txt", "NUTR_DEF.txt", "WEIGHT.txt", "foods.tsv"})
            QTest::newRow(file) << QString::fromLatin1(file);
    }

    void aMissingTableIsNamed()
    {
        QFETCH(QString, file);
        Import import;
        import.files.remove(file);
        QCOMPARE(import.run(), 1);
        QCOMPARE(import.err, QFile::encodeName(import.path(file)) + ": cannot be read: No such file or directory\n");
        QVERIFY(!QDir(import.path(QStringLiteral("out"))).exists());
    }

    void aFolderInATablesPlaceIsNamed()
    {
        Import import;
        import.files.remove(QStringLiteral("WEIGHT.txt"));
        QVERIFY(QDir(import.home.path()).mkdir(QStringLiteral("WEIGHT.txt")));
        QCOMPARE(import.run(), 1);
        QVERIFY2(import.err.startsWith(QFile::encodeName(import.path(QStringLiteral("WEIGHT.txt"))) + ": "),
            import.err.constData());
    }

    void aStrayFileInTheOutputFolderIsNamedAndKept()
    {
        Import import;
        QCOMPARE(import.run(), 0);
        const QString stray = import.path(QStringLiteral("out/Old food.xml"));
        QFile file(stray);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.close();
        QCOMPARE(import.run(), 1);
        QCOMPARE(import.err, QFile::encodeName(stray) + ": is no file of the list; remove it first\n");
        QVERIFY(QFile::exists(stray));
    }

    void anOutputFolderThatCannotBeMadeIsNamed()
    {
        Import import;
        import.files[QStringLiteral("out")] = "a file";
        QCOMPARE(import.run(), 1);
        QCOMPARE(import.err, QFile::encodeName(import.path(QStringLiteral("out"))) + ": cannot be made\n");
    }

    void aFileThatCannotBeWrittenIsNamed()
    {
        Import import;
        QVERIFY(QDir(import.home.path()).mkpath(QStringLiteral("out/Bread.xml")));
        QCOMPARE(import.run(), 1);
        QVERIFY2(import.err.startsWith(
                     QFile::encodeName(import.path(QStringLiteral("out/Bread.xml"))) + ": cannot be written: "),
            import.err.constData());
    }

    void otherArgumentsGiveTheUsage()
    {
        Import import;
        QCOMPARE(import.start({}), 2);
        QCOMPARE(import.err, QByteArray("usage: import-foods <folder of tables> <food list> <output folder>\n"));
        QCOMPARE(import.start({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c"), QStringLiteral("d")}), 2);
    }
};

QTEST_GUILESS_MAIN(ImporterTest)
#include "tst_importer.moc"
