// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

// The food files that the program ships with, every one of them, read with a bare parser.

#include "catalog/FoodCatalogue.h"
#include "catalog/NutrientCatalogue.h"
#include "platform/NumberText.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QStringDecoder>
#include <QtTest>

#include <expat.h>

#include <cmath>
#include <vector>

namespace {

struct Element {
    QString name;
    int depth = 0;
    QStringList keys;
    QStringList values;

    [[nodiscard]] QString operator[](const QString &key) const { return values.value(keys.indexOf(key)); }
};

struct Reader {
    std::vector<Element> elements;
    int depth = 0;
};

void XMLCALL startElement(void *data, const XML_Char *name, const XML_Char **attributes)
{
    auto *reader = static_cast<Reader *>(data);
    Element element{.name = QString::fromUtf8(name), .depth = reader->depth++, .keys = {}, .values = {}};
    for (; *attributes != nullptr; attributes += 2) {
        element.keys.append(QString::fromUtf8(attributes[0]));
        element.values.append(QString::fromUtf8(attributes[1]));
    }
    reader->elements.push_back(element);
}

void XMLCALL endElement(void *data, const XML_Char *)
{
    --static_cast<Reader *>(data)->depth;
}

const QString folder = QStringLiteral(SOURCE_DIR "/resources/Database.xml");

QByteArray contentOf(const QString &food)
{
    QFile file(folder + u'/' + food + QStringLiteral(".xml"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The start tags of a food's file; none when it is missing or not well formed.
std::vector<Element> elementsOf(const QString &food)
{
    const QByteArray content = contentOf(food);
    Reader reader;
    XML_Parser parser = XML_ParserCreate(nullptr);
    XML_SetUserData(parser, &reader);
    XML_SetElementHandler(parser, startElement, endElement);
    const bool read = XML_Parse(parser, content.constData(), int(content.size()), 1) == XML_STATUS_OK;
    XML_ParserFree(parser);
    return read ? reader.elements : std::vector<Element>();
}

bool isPlainNumber(const QString &text)
{
    static const QRegularExpression plain(QStringLiteral("^[0-9]+(\\.[0-9]+)?$"));
    return plain.match(text).hasMatch();
}

QString titleOf(const Element &measure)
{
    const float amount = NumberText::floatValue(measure[QStringLiteral("amount")]);
    return NumberText::fixed(double(amount), 0) + u' ' + measure[QStringLiteral("name")];
}

} // namespace

class DatabaseTest final : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        for (const QString &food : foods)
            files.push_back(elementsOf(food));
    }

    void filesAndNamesAreEqualOneToOne()
    {
        const QStringList entries
            = QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
        QCOMPARE(entries.size(), 7801);
        QSet<QString> expected;
        for (const QString &food : foods)
            expected.insert(food + QStringLiteral(".xml"));
        QCOMPARE(QSet<QString>(entries.begin(), entries.end()), expected);
    }

    void everyFileIsARegularFileInUtf8()
    {
        for (const QString &food : foods) {
            const QFileInfo info(folder + u'/' + food + QStringLiteral(".xml"));
            QVERIFY2(info.isFile() && !info.isSymLink(), qPrintable(food));
            QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
            const QString text = decoder(contentOf(food));
            QVERIFY2(!decoder.hasError() && text.startsWith(u'<') && text.endsWith(QStringLiteral("</food>\n")),
                qPrintable(food));
        }
    }

    void everyFileParses()
    {
        for (std::size_t i = 0; i < files.size(); ++i)
            QVERIFY2(!files[i].empty(), qPrintable(foods.at(qsizetype(i))));
    }

    void theOutermostElementNamesTheFoodAndItsSource()
    {
        static const QRegularExpression source(QStringLiteral("^USDA SR24 [0-9]{5}$"));
        QSet<QString> sources;
        for (std::size_t i = 0; i < files.size(); ++i) {
            const Element &element = files[i].front();
            const QString food = foods.at(qsizetype(i));
            QCOMPARE(element.name, QStringLiteral("food"));
            QCOMPARE(element.keys, QStringList({QStringLiteral("name"), QStringLiteral("source")}));
            QCOMPARE(element[QStringLiteral("name")], food);
            QVERIFY2(source.match(element[QStringLiteral("source")]).hasMatch(), qPrintable(food));
            sources.insert(element[QStringLiteral("source")]);
        }
        QCOMPARE(sources.size(), 7801);
    }

    void measuresComeFirstAndNutrientsInCatalogueOrder()
    {
        for (const std::vector<Element> &elements : files) {
            int previous = -1;
            for (std::size_t i = 1; i < elements.size(); ++i) {
                const Element &element = elements[i];
                QCOMPARE(element.depth, 1);
                if (element.name == QStringLiteral("measure")) {
                    QCOMPARE(previous, -1);
                    continue;
                }
                QCOMPARE(element.name, QStringLiteral("nutrient"));
                const std::string name = element[QStringLiteral("name")].toStdString();
                const int index = NutrientCatalogue::indexOfNutrient(name);
                QVERIFY2(index > previous, name.c_str());
                previous = index;
            }
            QVERIFY2(previous >= 0, qPrintable(elements.front().values.constFirst()));
        }
    }

    void everyNutrientIsOneOfThe61WithAPlainAmount()
    {
        QList<int> counts(NutrientCatalogue::nutrientCount, 0);
        for (const std::vector<Element> &elements : files) {
            for (const Element &element : elements) {
                if (element.name != QStringLiteral("nutrient"))
                    continue;
                QCOMPARE(element.keys, QStringList({QStringLiteral("name"), QStringLiteral("amount")}));
                const int index = NutrientCatalogue::indexOfNutrient(element[QStringLiteral("name")].toStdString());
                QVERIFY2(index >= 0, qPrintable(element[QStringLiteral("name")]));
                QVERIFY2(isPlainNumber(element[QStringLiteral("amount")]), qPrintable(element.values.join(u' ')));
                ++counts[index];
            }
        }
        for (int i = 0; i < NutrientCatalogue::nutrientCount; ++i)
            QVERIFY2(counts.at(i) > 0, qPrintable(NutrientCatalogue::names().at(i)));
        QCOMPARE(counts.at(0), 7801);
    }

    void everyMeasureHasAWholeAmountAndAPositiveWeight()
    {
        for (const std::vector<Element> &elements : files) {
            for (const Element &element : elements) {
                if (element.name != QStringLiteral("measure"))
                    continue;
                QCOMPARE(element.keys,
                    QStringList({QStringLiteral("name"), QStringLiteral("amount"), QStringLiteral("grams")}));
                const QString what = element.values.join(u'|');
                QVERIFY2(!element[QStringLiteral("name")].isEmpty(), qPrintable(what));
                QVERIFY2(isPlainNumber(element[QStringLiteral("amount")]), qPrintable(what));
                QVERIFY2(isPlainNumber(element[QStringLiteral("grams")]), qPrintable(what));
                const float amount = NumberText::floatValue(element[QStringLiteral("amount")]);
                QVERIFY2(amount >= 1.0F && std::floor(amount) == amount, qPrintable(what));
                QVERIFY2(NumberText::floatValue(element[QStringLiteral("grams")]) > 0.0F, qPrintable(what));
            }
        }
    }

    void everyFoodHasAMeasureAndNoTitleTwice()
    {
        for (const std::vector<Element> &elements : files) {
            const QString food = elements.front().values.constFirst();
            QSet<QString> titles = {QStringLiteral("g")};
            for (const Element &element : elements) {
                if (element.name != QStringLiteral("measure"))
                    continue;
                const QString title = titleOf(element);
                QVERIFY2(!titles.contains(title), qPrintable(food + QStringLiteral(": ") + title));
                titles.insert(title);
            }
            QVERIFY2(titles.size() > 1, qPrintable(food));
        }
    }

    void knownFiguresAreThere_data()
    {
        QTest::addColumn<QString>("food");
        QTest::addColumn<QString>("nutrient");
        QTest::addColumn<QString>("amount");

        const auto row = [](const char *food, const char *nutrient, const char *amount) {
            QTest::addRow("%s of %s", nutrient, food)
                << QString::fromUtf8(food) << QString::fromUtf8(nutrient) << QString::fromUtf8(amount);
        };
        row("Apricots, raw", "Energy", "48");
        row("Apricots, raw", "Protein", "1.40");
        row("Apricots, raw", "Vitamin C", "10.0");
        row("Apricots, raw", "Vitamin A", "1926");
        row("Apricots, raw", "Retinol", "0");
        row("Apricots, raw", "Alpha-carotene", "15.8");
        row("Apricots, raw", "Beta-carotene", "1823.3");
        row("Cheese, cheddar", "Omega-3", "0.365");
        row("Cheese, cheddar", "Omega-6", "0.577");
        row("Milk, whole, 3.25% milkfat, with added vitamin D", "Energy", "61");
        row("Egg, whole, raw, fresh", "Energy", "143");
        row("Zwieback", "Caffeine", "0");
    }

    void knownFiguresAreThere()
    {
        QFETCH(QString, food);
        QFETCH(QString, nutrient);
        QString amount;
        for (const Element &element : elementsOf(food)) {
            if (element.name == QStringLiteral("nutrient") && element[QStringLiteral("name")] == nutrient)
                amount = element[QStringLiteral("amount")];
        }
        QTEST(amount, "amount");
    }

private:
    const QStringList foods = FoodCatalogue::foodNames();
    std::vector<std::vector<Element>> files;
};

QTEST_APPLESS_MAIN(DatabaseTest)
#include "tst_database.moc"
