// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "model/Food.h"
#include "support/FoodFiles.h"

#include <QtTest>

#include <bit>
#include <clocale>
#include <fcntl.h>
#include <limits>
#include <sys/stat.h>

namespace {

const QString name = QStringLiteral("Broth");
const QString energy = QStringLiteral("Energy");

} // namespace

// What a food file may hold, and what becomes of one that is broken, hostile or no file at all.
class FoodFileTest final : public QObject {
    Q_OBJECT

private slots:
    void init() { files = std::make_unique<FoodFiles>(); }
    void cleanup() { files.reset(); }

    void measuresBecomeUnitsInFileOrder()
    {
        files->writeElements(name,
            "<measure name=\"cup, halves\" amount=\"1\" grams=\"155\"/>"
            "<measure name=\"apricot\" amount=\"1\" grams=\"35\"/>");
        QCOMPARE(unitsOf(name), QStringLiteral("g=1; 1 cup, halves=155; 1 apricot=35"));
    }

    void aMeasureTitleIsWhatItSays_data()
    {
        QTest::addColumn<QByteArray>("attributes");
        QTest::addColumn<QString>("unit");
        const auto row = [](const char *what, const char *attributes, const char *unit) {
            QTest::newRow(what) << QByteArray(attributes) << QString::fromUtf8(unit);
        };
        row("half rounds to the even 0", "name='oz' amount='0.5' grams='14'", "0 oz=14");
        row("one and a half rounds to the even 2", "name='oz' amount='1.5' grams='42'", "2 oz=42");
        row("two and a half rounds to the even 2", "name='oz' amount='2.5' grams='71'", "2 oz=71");
        row("a weight is that of the whole measure", "name='eggs' amount='3' grams='150'", "3 eggs=150");
        row("no grams weigh nothing", "name='cup' amount='1'", "1 cup=0");
        row("no amount is 0", "name='cup' grams='9'", "0 cup=9");
        row("words are 0", "name='cup' amount='one' grams='nine'", "0 cup=0");
        row("no name is called a measure", "amount='1' grams='9'", "1 measure=9");
        row("an empty name stays empty", "name='' amount='1' grams='9'", "1 =9");
        row("an infinite amount is written so", "name='x' amount='1e400' grams='9'", "inf x=9");
        row("entities are text", "name='&lt;1&quot; &amp; &#xB5;' amount='1' grams='9'", "1 <1\" & \u00b5=9");
        row("blanks in a name stay", "name='  small cup ' amount='1' grams='9'", "1   small cup =9");
        row("a unit called g is not the gram", "name='g' amount='1' grams='9'", "1 g=9");
        row("blanks before numbers are skipped", "name='cup' amount=' 2' grams='  7'", "2 cup=7");
        row("a value is not taken for a name", "name='amount' amount='2' grams='9'", "2 amount=9");
        row("the order of attributes is free", "grams='9' name='cup' amount='1' more='x'", "1 cup=9");
    }

    void aMeasureTitleIsWhatItSays()
    {
        QFETCH(QByteArray, attributes);
        QFETCH(QString, unit);
        files->writeElements(name, "<measure " + attributes + "/>");
        QCOMPARE(unitsOf(name), QStringLiteral("g=1; ") + unit);
    }

    void aRepeatedTitleKeepsTheFirstOnesPlaceAndTheLastOnesWeight()
    {
        files->writeElements(name,
            "<measure name='cup' amount='1' grams='100'/><measure name='oz' amount='1' grams='28'/>"
            "<measure name='cup' amount='1.4' grams='140'/>");
        QCOMPARE(unitsOf(name), QStringLiteral("g=1; 1 cup=140; 1 oz=28"));
    }

    void aNutrientIsReadAsNumberText_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<float>("value");
        const auto row = [](const char *text, float value) { QTest::newRow(text) << QByteArray(text) << value; };
        row("1.40", 1.4F);
        row("48", 48.0F);
        row("0x10", 0.0F);
        row("inf", 0.0F);
        row("nan", 0.0F);
        row("1e400", std::numeric_limits<float>::infinity());
        row("1e-400", 0.0F);
        row("+5", 5.0F);
        row("-5", -5.0F);
        row(".5", 0.5F);
        row("5.", 5.0F);
        row("1e", 1.0F);
        row("12,5", 12.0F);
        row("1.00000012", 1.00000012F);
        row("  7", 7.0F);
        row(" ", 0.0F);
        row("", 0.0F);
        row("7 g", 7.0F);
    }

    void aNutrientIsReadAsNumberText()
    {
        QFETCH(QByteArray, text);
        QFETCH(float, value);
        files->writeElements(name, "<nutrient name='Energy' amount='" + text + "'/>");
        const float expected = value / 100.0F * 100.0F;
        QCOMPARE(std::bit_cast<quint32>(energyOf(name)), std::bit_cast<quint32>(expected));
        QVERIFY(std::setlocale(LC_ALL, "de_DE.UTF-8")); // with a decimal comma; made for the tests
        const float underComma = energyOf(name);
        std::setlocale(LC_ALL, "C");
        QCOMPARE(std::bit_cast<quint32>(underComma), std::bit_cast<quint32>(expected));
    }

    void theLastOfTwoNutrientsWins()
    {
        files->writeElements(name, "<nutrient name='Energy' amount='5'/><nutrient name='Energy' amount='6'/>");
        QCOMPARE(energyOf(name), 6.0F);
    }

    void aNutrientWithoutAmountRemovesTheEarlierOne()
    {
        files->writeElements(name, "<nutrient name='Energy' amount='5'/><nutrient name='Energy'/>");
        QCOMPARE(energyOf(name), 0.0F);
        Food endless(name);
        endless.setCuramount(std::numeric_limits<float>::infinity());
        QCOMPARE(endless.getAmountOfNutrient(energy), 0.0F); // unknown, which 0 times infinity would not be
        files->writeElements(name, "<nutrient name='Energy'/><nutrient name='Energy' amount='5'/>");
        QCOMPARE(energyOf(name), 5.0F);
    }

    void aNutrientWithoutNameIsSkipped()
    {
        files->writeElements(name, "<nutrient amount='5'/><nutrient name='Energy' amount='6'/>");
        QCOMPARE(energyOf(name), 6.0F);
    }

    void nutrientNamesAreExact()
    {
        files->writeElements(name,
            "<nutrient name='Omega 3' amount='5'/><nutrient name='energy' amount='5'/>"
            "<nutrient name='Energy ' amount='5'/>");
        Food food(name);
        QCOMPARE(food.getAmountOfNutrient(QStringLiteral("Omega-3")), 0.0F);
        QCOMPARE(food.getAmountOfNutrient(energy), 0.0F);
    }

    void aNutrientThatTheCatalogueLacksIsKeptLikeTheOthers()
    {
        const QString omega = QStringLiteral("Omega 3");
        const auto amountIn = [&](const QByteArray &elements) {
            files->writeElements(name, elements);
            return Food(name).getAmountOfNutrient(omega);
        };
        QCOMPARE(amountIn("<nutrient name='Omega 3' amount='5.50'/>"), 5.5F);
        QCOMPARE(amountIn("<nutrient name='Omega 3' amount='5'/><nutrient name='Omega 3' amount='6'/>"), 6.0F);
        QCOMPARE(amountIn("<nutrient name='Omega 3' amount='5'/><nutrient name='Omega 3'/>"), 0.0F);
        QCOMPARE(amountIn("<nutrient name='omega 3' amount='5'/>"), 0.0F);
        files->writeElements(
            name, "<measure name='cup' amount='1' grams='240'/><nutrient name='Omega 3' amount='7.3'/>");
        Food food(name);
        food.setCurunit(QStringLiteral("1 cup"));
        food.setCuramount(0.5F);
        QCOMPARE(food.getAmountOfNutrient(omega), 7.3F / 100.0F * 120.0F);
    }

    void otherElementsAreIgnoredAndNestingIsNot()
    {
        files->write(name,
            "<?xml version='1.0'?><!-- a comment --><!DOCTYPE a [<!ENTITY five '5'>]>"
            "<a><Nutrient name='Energy' amount='1'/><NUTRIENT name='Energy' amount='2'/>"
            "<nutrients name='Energy' amount='3'/><x:nutrient name='Energy' amount='4'/>"
            "text<?nutrient name='Energy' amount='9'?><![CDATA[<nutrient name='Energy' amount='8'/>]]>"
            "<measure name='cup' amount='1' grams='2'><nutrient name='Protein' amount='&five;'/></measure></a>");
        Food food(name);
        QCOMPARE(food.getAmountOfNutrient(energy), 0.0F);
        QCOMPARE(food.getAmountOfNutrient(QStringLiteral("Protein")), 5.0F);
        QCOMPARE(unitsOf(name), QStringLiteral("g=1; 1 cup=2"));
    }

    void theFoodElementIsNotNeeded()
    {
        files->write(name, "<nutrient name='Energy' amount='5'/>");
        QCOMPARE(energyOf(name), 5.0F);
    }

    void anUndeclaredPrefixIsPartOfTheName()
    {
        files->write(name,
            "<u:food u:x='1'><u:nutrient name='Energy' amount='4'/><nutrient name='Energy' amount='5'/></u:food>");
        Food food(name);
        QCOMPARE(food.getAmountOfNutrient(energy), 5.0F);
        files->remove(name); // read to its end, so it is not asked for again
        QCOMPARE(food.getAmountOfNutrient(energy), 5.0F);
    }

    void aFileCutOffAnywhereGivesWhatCameBeforeAndIsReadAgain()
    {
        const QByteArray whole = realFile();
        QVERIFY(whole.size() > 2000);
        files->write(name, whole);
        Food reference(name);
        for (qsizetype length = 0; length < whole.size(); ++length) {
            files->write(name, whole.left(length));
            Food food(name);
            // A start tag counts from its closing bracket on.
            const qsizetype complete = whole.left(length).count("<measure ")
                - (whole.left(length).lastIndexOf("<measure ") > whole.left(length).lastIndexOf('>') ? 1 : 0);
            QCOMPARE(food.getUnitNames().size(), 1 + complete);
            const qsizetype tag = whole.indexOf("<nutrient name=\"Energy\"");
            const bool known = length > whole.indexOf('>', tag);
            QCOMPARE(food.getAmountOfNutrient(energy) > 0.0F, known);
            // Unless nothing but white space was missing, the next question reads the file again.
            files->write(name, whole);
            QCOMPARE(unitsOf(food), unitsOf(reference));
            QCOMPARE(
                food.getAmountOfNutrient(QStringLiteral("VAL")), reference.getAmountOfNutrient(QStringLiteral("VAL")));
        }
    }

    void readingABrokenFileAgainGivesTheSame()
    {
        files->write(
            name, "<food><measure name='cup' amount='1' grams='2'/><nutrient name='Energy' amount='5'/></fodo>");
        Food food(name);
        const QString units = unitsOf(food);
        QCOMPARE(units, QStringLiteral("g=1; 1 cup=2"));
        for (int i = 0; i < 5; ++i) {
            QCOMPARE(unitsOf(food), units);
            QCOMPARE(food.getAmountOfNutrient(energy), 5.0F);
        }
    }

    void aRetryAddsToWhatWasReadBefore()
    {
        files->write(name,
            "<food><measure name='cup' amount='1' grams='2'/><nutrient name='Energy' amount='5'/>"
            "<nutrient name='Protein' amount='3'/></fodo>");
        Food food(name);
        QCOMPARE(unitsOf(food), QStringLiteral("g=1; 1 cup=2"));
        files->write(name,
            "<food><measure name='oz' amount='1' grams='28'/><measure name='cup' amount='1' grams='4'/>"
            "<nutrient name='Energy' amount='6'/></fodo>");
        QCOMPARE(unitsOf(food), QStringLiteral("g=1; 1 cup=4; 1 oz=28"));
        QCOMPARE(food.getAmountOfNutrient(energy), 6.0F);
        QCOMPARE(food.getAmountOfNutrient(QStringLiteral("Protein")), 3.0F);
        files->remove(name);
        QCOMPARE(unitsOf(food), QStringLiteral("g=1; 1 cup=4; 1 oz=28"));
        QCOMPARE(food.getAmountOfNutrient(energy), 6.0F);
    }

    void anEntityBombIsStopped()
    {
        QByteArray bomb
            = "<!DOCTYPE food [<!ENTITY a0 'aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa'>";
        for (int i = 1; i < 30; ++i)
            bomb += "<!ENTITY a" + QByteArray::number(i) + " '" + ("&a" + QByteArray::number(i - 1) + ';').repeated(10)
                + "'>";
        bomb += "]><food><nutrient name='Energy' amount='5'/><measure name='&a29;' amount='1' grams='1'/>"
                "<nutrient name='Energy' amount='6'/></food>";
        files->write(name, bomb);
        QCOMPARE(energyOf(name), 5.0F); // what came before the bomb; the rest would take longer than anyone waits
    }

    void aTextThatItsEntitiesBlowUpBreaksTheFileOff()
    {
        // A megabyte out of twenty thousand characters, which would be read anew for each of 61 nutrients.
        const QByteArray text = "<!DOCTYPE food [<!ENTITY a '" + QByteArray(10000, 'x') + "'>]><food>"
            + "<nutrient name='Energy' amount='5'/><measure name='" + QByteArray("&a;").repeated(100)
            + "' amount='1' grams='1'/><nutrient name='Energy' amount='6'/></food>";
        files->write(name, text);
        QCOMPARE(energyOf(name), 5.0F);
    }

    void aFileBeyondFourMebibytesIsNoFood()
    {
        constexpr qsizetype largest = 4 * 1024 * 1024;
        QByteArray text = "<food><nutrient name='Energy' amount='5'/></food>";
        text.append(QByteArray(largest - text.size(), ' '));
        files->write(name, text);
        QCOMPARE(energyOf(name), 5.0F);
        files->write(name, text + ' ');
        QCOMPARE(energyOf(name), 0.0F);
    }

    void anExternalEntityIsNeverFetched()
    {
        QTemporaryDir folder;
        const QString pipe = folder.filePath(QStringLiteral("pipe"));
        QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0); // opening it would block for good
        const QByteArray system = "SYSTEM 'file://" + QFile::encodeName(pipe) + "'";
        files->write(name,
            "<!DOCTYPE food " + system + " [<!ENTITY outside " + system + "><!ENTITY % more " + system
                + "> %more;]>"
                  "<food>&outside;<nutrient name='Energy' amount='5'/></food>");
        QCOMPARE(energyOf(name), 5.0F);
    }

    void tenMegabytesOfJunkAreNoFood()
    {
        QByteArray junk(10 * 1024 * 1024, 'x');
        files->write(name, junk);
        QCOMPARE(unitsOf(name), QStringLiteral("g=1"));
        for (qsizetype i = 0; i < junk.size(); ++i)
            junk[i] = static_cast<char>((i * 7919) >> 5);
        files->write(name, junk);
        QCOMPARE(unitsOf(name), QStringLiteral("g=1"));
        files->write(name, "<food a='" + QByteArray(10 * 1024 * 1024, 'x'));
        QCOMPARE(unitsOf(name), QStringLiteral("g=1"));
    }

    void whatIsNoRegularFileIsNoFood()
    {
        QVERIFY(QDir().mkpath(files->pathOf(QStringLiteral("Folder"))));
        QCOMPARE(unitsOf(QStringLiteral("Folder")), QStringLiteral("g=1"));
        const QByteArray pipe = QFile::encodeName(files->pathOf(QStringLiteral("Pipe")));
        QCOMPARE(::mkfifo(pipe.constData(), 0600), 0);
        QCOMPARE(unitsOf(QStringLiteral("Pipe")), QStringLiteral("g=1"));
        QFile filled;
        QVERIFY(filled.open(::open(pipe.constData(), O_RDWR | O_NONBLOCK), QIODevice::ReadWrite | QIODevice::Unbuffered,
            QFileDevice::AutoCloseHandle));
        QVERIFY(filled.write("<food><measure name='cup' amount='1' grams='240'/></food>") > 0);
        QCOMPARE(unitsOf(QStringLiteral("Pipe")), QStringLiteral("g=1"));
        const QString link = files->pathOf(QStringLiteral("Link"));
        QVERIFY(QFile::link(QStringLiteral("/dev/zero"), link));
        QCOMPARE(unitsOf(QStringLiteral("Link")), QStringLiteral("g=1"));
        QVERIFY(QFile::link(files->pathOf(QStringLiteral("Nothing there")), files->pathOf(QStringLiteral("Dangling"))));
        QCOMPARE(unitsOf(QStringLiteral("Dangling")), QStringLiteral("g=1"));
        QVERIFY(QFile::remove(QFile::decodeName(pipe)));
    }

    void anUnreadableFileIsNoFoodUntilItCanBeRead()
    {
        if (::geteuid() == 0) {
            // Modes stop nobody as root: a file that fails to be read stands in, memory that is not ours.
            QVERIFY(QFile::link(QStringLiteral("/proc/self/mem"), files->pathOf(name)));
        } else {
            files->writeElements(name, "<nutrient name='Energy' amount='5'/>");
            QVERIFY(QFile::setPermissions(files->pathOf(name), {}));
        }
        Food food(name);
        QCOMPARE(food.getUnitNames(), QStringList{QStringLiteral("g")});
        QCOMPARE(food.getAmountOfNutrient(energy), 0.0F);
        files->remove(name);
        files->writeElements(name, "<nutrient name='Energy' amount='5'/>");
        QCOMPARE(food.getAmountOfNutrient(energy), 5.0F);
    }

    void anEmptyFileIsNoFood()
    {
        files->write(name, {});
        QCOMPARE(unitsOf(name), QStringLiteral("g=1"));
    }

private:
    static float energyOf(const QString &food) { return Food(food).getAmountOfNutrient(energy); }

    static QString unitsOf(const QString &food)
    {
        Food made(food);
        return unitsOf(made);
    }

    static QString unitsOf(Food &food)
    {
        QStringList units;
        const QStringList titles = food.getUnitNames();
        for (const QString &title : titles)
            units.append(title + u'=' + QString::number(double(food.gramsOfUnit(title).value_or(-1.0F))));
        return units.join(QStringLiteral("; "));
    }

    static QByteArray realFile()
    {
        QFile file(QStringLiteral(SOURCE_DIR "/resources/Database.xml/Egg, whole, raw, fresh.xml"));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    std::unique_ptr<FoodFiles> files;
};

QTEST_GUILESS_MAIN(FoodFileTest)
#include "tst_foodfile.moc"
