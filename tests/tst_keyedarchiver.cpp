// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "platform/KeyedArchiver.h"

#include <QtTest>

#include <bit>
#include <functional>
#include <limits>

using PropertyList::Document;
using PropertyList::Reference;
using PropertyList::Writer;

namespace {

constexpr QLatin1String name("name");
constexpr QLatin1String amount("amount");
constexpr QLatin1String unit("unit");
constexpr QLatin1String unitidx("unitidx");

const QString food = QStringLiteral("Food");

QByteArray record(const QString &file)
{
    QFile data(QStringLiteral(DATA_DIR "/records/") + file);
    return data.open(QIODevice::ReadOnly) ? data.readAll() : QByteArray();
}

// An archive of one object with one entry "value", laid out as the caller likes. What is left alone is as it should be.
struct Layout {
    QString archiver = QStringLiteral("NSKeyedArchiver");
    qint64 version = 100000;
    QString topkey = QStringLiteral("root");
    QString classname = food;
    QString superclass = QStringLiteral("NSObject");
    quint32 rootplace = 1;
    quint32 classplace = 3;
    quint32 valueplace = 2;
    // Adds the object at place 2.
    std::function<Reference(Writer &)> value = [](Writer &out) { return out.addInteger(7); };

    [[nodiscard]] QByteArray archive() const
    {
        Writer out;
        const auto text = [&out](const char *ascii) { return out.addString(QLatin1String(ascii)); };
        const Reference root
            = out.addDictionary({{text("$class"), out.addUid(classplace)}, {text("value"), out.addUid(valueplace)}});
        const Reference classes = out.addArray({out.addString(classname), out.addString(superclass)});
        const Reference classentry
            = out.addDictionary({{text("$classes"), classes}, {text("$classname"), out.addString(classname)}});
        const Reference objects = out.addArray({text("$null"), root, value(out), classentry});
        const Reference top = out.addDictionary({{out.addString(topkey), out.addUid(rootplace)}});
        return out.document(out.addDictionary({{text("$objects"), objects}, {text("$top"), top},
            {text("$version"), out.addInteger(version)}, {text("$archiver"), out.addString(archiver)}}));
    }
};

constexpr QLatin1String value("value");

} // namespace

class KeyedArchiverTest final : public QObject {
    Q_OBJECT

private slots:
    void whatIsEncodedIsDecoded()
    {
        KeyedArchiver coder(food);
        coder.encodeString(QStringLiteral(u"Cr\u00e8me fra\u00eeche"), name);
        coder.encodeFloat(0.1F, amount);
        coder.encodeString(QStringLiteral("1 cup"), unit);
        coder.encodeInt(-3, unitidx);

        const auto decoder = KeyedUnarchiver::unarchive(coder.archivedData(), food);
        QVERIFY(decoder);
        QCOMPARE(decoder->decodeString(name), std::optional(QStringLiteral(u"Cr\u00e8me fra\u00eeche")));
        QCOMPARE(std::bit_cast<quint32>(decoder->decodeFloat(amount)), std::bit_cast<quint32>(0.1F));
        QCOMPARE(decoder->decodeString(unit), std::optional(QStringLiteral("1 cup")));
        QCOMPARE(decoder->decodeInt(unitidx), -3);
    }

    void anAbsentStringAndAnEmptyOneStayApart()
    {
        KeyedArchiver coder(food);
        coder.encodeString(QString(QLatin1String("")), name);
        coder.encodeString(std::nullopt, unit);
        const auto decoder = KeyedUnarchiver::unarchive(coder.archivedData(), food);
        QVERIFY(decoder);
        QCOMPARE(decoder->decodeString(name), std::optional(QString()));
        QVERIFY(!decoder->decodeString(unit));
    }

    void anyFloatAndAnyIntegerIsDecodedToItsLastBit()
    {
        for (const float number : {0.0F, -0.0F, 100.0F, std::numeric_limits<float>::max(),
                 std::numeric_limits<float>::denorm_min(), std::numeric_limits<float>::infinity()}) {
            for (const qint32 index : {0, -1, std::numeric_limits<qint32>::max(), std::numeric_limits<qint32>::min()}) {
                KeyedArchiver coder(food);
                coder.encodeFloat(number, amount);
                coder.encodeInt(index, unitidx);
                const auto decoder = KeyedUnarchiver::unarchive(coder.archivedData(), food);
                QVERIFY(decoder);
                QCOMPARE(std::bit_cast<quint32>(decoder->decodeFloat(amount)), std::bit_cast<quint32>(number));
                QCOMPARE(decoder->decodeInt(unitidx), index);
            }
        }
    }

    void anArchiveIsLaidOutAsEveryKeyedArchiverDoes()
    {
        KeyedArchiver coder(food);
        coder.encodeString(QStringLiteral("Milk"), name);
        coder.encodeFloat(100.0F, amount);
        coder.encodeString(std::nullopt, unit);
        coder.encodeInt(0, unitidx);
        const QByteArray bytes = coder.archivedData();
        const auto archive = Document::parse(bytes);
        QVERIFY(archive);

        const auto entry = [&](Reference dictionary, const char *key) {
            return archive->valueForKey(dictionary, QLatin1String(key)).value();
        };
        const Reference top = archive->root();
        QCOMPARE(archive->integer(entry(top, "$version")).value(), 100000);
        QCOMPARE(archive->string(entry(top, "$archiver")).value(), QStringLiteral("NSKeyedArchiver"));
        QCOMPARE(archive->uid(entry(entry(top, "$top"), "root")).value(), 1U);

        const Reference objects = entry(top, "$objects");
        const auto object = [&](Reference uid) { return archive->element(objects, archive->uid(uid).value()); };
        QCOMPARE(archive->string(archive->element(objects, 0)).value(), QStringLiteral("$null"));
        const Reference root = archive->element(objects, 1);
        QCOMPARE(archive->count(root), 5U);
        for (quint64 i = 0; i < 4; ++i) // in the order in which they were encoded
            QCOMPARE(archive->string(archive->key(root, i)).value(),
                QStringList({name, amount, unit, unitidx}).at(qsizetype(i)));
        QCOMPARE(archive->string(object(entry(root, "name"))).value(), QStringLiteral("Milk"));
        QCOMPARE(archive->floatReal(object(entry(root, "amount"))).value(), 100.0F);
        QCOMPARE(archive->uid(entry(root, "unit")).value(), 0U);
        QCOMPARE(archive->integer(object(entry(root, "unitidx"))).value(), 0);

        const Reference classentry = object(entry(root, "$class"));
        QCOMPARE(archive->string(entry(classentry, "$classname")).value(), food);
        const Reference classes = entry(classentry, "$classes");
        QCOMPARE(archive->count(classes), 2U);
        QCOMPARE(archive->string(archive->element(classes, 0)).value(), food);
        QCOMPARE(archive->string(archive->element(classes, 1)).value(), QStringLiteral("NSObject"));
    }

    void theRecordInTheFormatsDocumentIsWhatIsWritten()
    {
        QFile document(QStringLiteral(SOURCE_DIR "/docs/formats.md"));
        QVERIFY(document.open(QIODevice::ReadOnly));
        const QByteArray text = document.readAll();
        const QByteArray fence("291 bytes:\n\n```\n");
        const qsizetype begin = text.indexOf(fence) + fence.size();
        const QByteArray shown = QByteArray::fromHex(text.mid(begin, text.indexOf("```", begin) - begin));

        KeyedArchiver coder(food);
        coder.encodeString(QStringLiteral("Apples, raw, with skin"), name);
        coder.encodeFloat(100.0F, amount);
        coder.encodeString(QStringLiteral("g"), unit);
        coder.encodeInt(0, unitidx);
        QCOMPARE(shown.toHex(), coder.archivedData().toHex());
    }

    void recordsOfAnotherArchiverAreRead()
    {
        const auto apple = KeyedUnarchiver::unarchive(record(QStringLiteral("apple.record")), food);
        QVERIFY(apple);
        QCOMPARE(apple->decodeString(name), std::optional(QStringLiteral("Apples, raw, with skin")));
        QCOMPARE(apple->decodeFloat(amount), 100.0F);
        QCOMPARE(apple->decodeString(unit), std::optional(QStringLiteral("g")));
        QCOMPARE(apple->decodeInt(unitidx), 0);
    }

    void mutableStringsOfAnotherArchiverAreRead()
    {
        const auto cream = KeyedUnarchiver::unarchive(record(QStringLiteral("mutable.record")), food);
        QVERIFY(cream);
        const QString milk = QString::fromUcs4(U"\U0001F95B");
        QCOMPARE(cream->decodeString(name), std::optional(QStringLiteral(u"Cr\u00e8me fra\u00eeche ") + milk));
        QCOMPARE(cream->decodeFloat(amount), 0.1F);
        QCOMPARE(cream->decodeString(unit), std::optional(QStringLiteral("1 cup, 8 fl oz")));
        QCOMPARE(cream->decodeInt(unitidx), -3);
    }

    void sharedObjectsAndWiderNumbersOfAnotherArchiverAreRead()
    {
        const auto shared = KeyedUnarchiver::unarchive(record(QStringLiteral("shared.record")), food);
        QVERIFY(shared);
        QCOMPARE(shared->decodeString(name), std::optional(QStringLiteral("g")));
        QCOMPARE(shared->decodeString(unit), std::optional(QStringLiteral("g")));
        QCOMPARE(shared->decodeFloat(amount), 1234.56789F);
        QCOMPARE(shared->decodeInt(unitidx), std::numeric_limits<qint32>::max());
    }

    void numbersAsTextOfAnotherArchiverAreRead()
    {
        const auto milk = KeyedUnarchiver::unarchive(record(QStringLiteral("text.record")), food);
        QVERIFY(milk);
        QCOMPARE(milk->decodeString(name), std::optional(QStringLiteral("Milk")));
        QCOMPARE(milk->decodeFloat(amount), 12.5F);
        QVERIFY(!milk->decodeString(unit));
        QCOMPARE(milk->decodeInt(unitidx), 7);
    }

    void valuesAreReadInEveryForm_data()
    {
        QTest::addColumn<QByteArray>("archive");
        QTest::addColumn<float>("number");
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("text"); // "-" stands for no string

        const auto row = [](const char *title, float number, int index, const QString &text,
                             const std::function<Reference(Writer &)> &object) {
            Layout layout;
            layout.value = object;
            QTest::newRow(title) << layout.archive() << number << index << text;
        };
        const QString none = QStringLiteral("-");
        const auto textRow = [&](const char *title, float number, int index, const QString &text) {
            row(title, number, index, text, [text](Writer &out) { return out.addString(text); });
        };
        constexpr int most = std::numeric_limits<int>::max();
        constexpr int least = std::numeric_limits<int>::min();
        row("an integer", 7.0F, 7, none, [](Writer &out) { return out.addInteger(7); });
        row("a negative integer", -7.0F, -7, none, [](Writer &out) { return out.addInteger(-7); });
        row("an integer beyond 32 bits", 5e9F, most, none, [](Writer &out) { return out.addInteger(5000000000); });
        row("a negative one beyond 32 bits", -5e9F, least, none,
            [](Writer &out) { return out.addInteger(-5000000000); });
        row("a 32-bit real", 2.75F, 2, none, [](Writer &out) { return out.addFloat(2.75F); });
        row("a negative 32-bit real", -2.75F, -2, none, [](Writer &out) { return out.addFloat(-2.75F); });
        row("a 64-bit real", 0.1F, 0, none, [](Writer &out) { return out.addDouble(0.1); });
        row("a large real", 1e30F, most, none, [](Writer &out) { return out.addDouble(1e30); });
        row("a real beyond floats", -std::numeric_limits<float>::infinity(), least, none,
            [](Writer &out) { return out.addDouble(-1e300); });
        row("a true flag", 1.0F, 1, none, [](Writer &out) { return out.addBoolean(true); });
        row("a false flag", 0.0F, 0, none, [](Writer &out) { return out.addBoolean(false); });
        row("data", 0.0F, 0, none, [](Writer &out) { return out.addData("12"); });
        row("a date", 0.0F, 0, none, [](Writer &out) { return out.addDate(12.0); });
        row("a list", 0.0F, 0, none, [](Writer &out) { return out.addArray({out.addInteger(12)}); });
        row("an object of another kind", 0.0F, 0, none, [](Writer &out) {
            return out.addDictionary({{out.addString(name), out.addInteger(12)}});
        });
        row("a mutable string", 12.5F, 12, QStringLiteral("12.5"), [](Writer &out) {
            return out.addDictionary(
                {{out.addString(QStringLiteral("NS.string")), out.addString(QStringLiteral("12.5"))}});
        });
        row("a mutable string that holds itself", 0.0F, 0, none, [](Writer &out) {
            return out.addDictionary({{out.addString(QStringLiteral("NS.string")), out.addUid(2)}});
        });
        row("a reference instead of an object", 0.0F, 0, none, [](Writer &out) { return out.addUid(2); });
        textRow("text with a number", 12.75F, 12, QStringLiteral(" \t12.75 cups"));
        textRow("text with an exponent", 1000.0F, 1, QStringLiteral("1e3"));
        textRow("text with a sign", -3.0F, -3, QStringLiteral("-3"));
        textRow("text with a plus sign", 3.0F, 3, QStringLiteral("+3"));
        textRow("text without a number", 0.0F, 0, QStringLiteral("cups"));
        textRow("empty text", 0.0F, 0, QString());
        textRow("a sign alone", 0.0F, 0, QStringLiteral("-"));
        textRow("text of the largest integer", 2147483647.0F, most, QStringLiteral("2147483647"));
        textRow("text just beyond 32 bits", 2147483648.0F, most, QStringLiteral("2147483648"));
        textRow("text beyond 64 bits", 18446744073709551616.0F, most, QStringLiteral("18446744073709551617"));
        textRow("text of the smallest integer", -2147483648.0F, least, QStringLiteral("-2147483648"));
        textRow("text beyond 64 bits", -1e20F, least, QStringLiteral("-100000000000000000000"));
        textRow("hexadecimal text", 0.0F, 0, QStringLiteral("0x10"));
        textRow("digits of another script", 0.0F, 0, QStringLiteral(u"\u0661"));
    }

    void valuesAreReadInEveryForm()
    {
        QFETCH(QByteArray, archive);
        const auto decoder = KeyedUnarchiver::unarchive(archive, food);
        QVERIFY(decoder);
        QTEST(decoder->decodeFloat(value), "number");
        QTEST(decoder->decodeInt(value), "index");
        QTEST(decoder->decodeString(value).value_or(QStringLiteral("-")), "text");
    }

    void notANumberIsAFloatButNoIndex()
    {
        for (const bool wide : {false, true}) {
            Layout layout;
            layout.value = [wide](Writer &out) {
                return wide ? out.addDouble(std::numeric_limits<double>::quiet_NaN())
                            : out.addFloat(std::numeric_limits<float>::quiet_NaN());
            };
            const auto decoder = KeyedUnarchiver::unarchive(layout.archive(), food);
            QVERIFY(decoder);
            QVERIFY(std::isnan(decoder->decodeFloat(value)));
            QCOMPARE(decoder->decodeInt(value), 0);
        }
    }

    void missingKeysReadAsNothing()
    {
        const auto decoder = KeyedUnarchiver::unarchive(Layout{}.archive(), food);
        QVERIFY(decoder);
        QVERIFY(!decoder->decodeString(name));
        QCOMPARE(decoder->decodeFloat(amount), 0.0F);
        QCOMPARE(decoder->decodeInt(unitidx), 0);
    }

    void aReferenceThatLeadsNowhereReadsAsNothing()
    {
        Layout layout;
        layout.valueplace = 4;
        const auto decoder = KeyedUnarchiver::unarchive(layout.archive(), food);
        QVERIFY(decoder);
        QVERIFY(!decoder->decodeString(value));
        QCOMPARE(decoder->decodeInt(value), 0);
    }

    void whatIsNoArchiveOfThatClassIsNoRecord_data()
    {
        QTest::addColumn<QByteArray>("data");

        const auto row = [](const char *title, const std::function<void(Layout &)> &change) {
            Layout layout;
            change(layout);
            QTest::newRow(title) << layout.archive();
        };
        row("another class", [](Layout &layout) { layout.classname = QStringLiteral("Drink"); });
        row("a class that differs in case", [](Layout &layout) { layout.classname = QStringLiteral("food"); });
        row("a subclass", [](Layout &layout) {
            layout.classname = QStringLiteral("Snack");
            layout.superclass = food;
        });
        row("another archiver", [](Layout &layout) { layout.archiver = QStringLiteral("Archiver"); });
        row("another version", [](Layout &layout) { layout.version = 100001; });
        row("another top key", [](Layout &layout) { layout.topkey = QStringLiteral("top"); });
        row("the null object as the root", [](Layout &layout) { layout.rootplace = 0; });
        row("a value as the root", [](Layout &layout) { layout.rootplace = 2; });
        row("the class as the root", [](Layout &layout) { layout.rootplace = 3; });
        row("a root that is nowhere", [](Layout &layout) { layout.rootplace = 4; });
        row("a class that is nowhere", [](Layout &layout) { layout.classplace = 4; });
        row("a class that is no class", [](Layout &layout) { layout.classplace = 2; });
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("a plain value") << PropertyList::write(QStringLiteral("Food")).value();
        QTest::newRow("a plain dictionary") << PropertyList::write(QVariantMap{{name, food}}).value();
        const QByteArray apple = record(QStringLiteral("apple.record"));
        QTest::newRow("a record cut off") << apple.left(apple.size() - 1);
        QTest::newRow("a record with a byte too many") << apple + ' ';
    }

    void whatIsNoArchiveOfThatClassIsNoRecord()
    {
        QFETCH(QByteArray, data);
        QVERIFY(KeyedUnarchiver::unarchive(Layout{}.archive(), food));
        QVERIFY(!KeyedUnarchiver::unarchive(data, food));
    }

    void everyByteOfARecordMayBeDamagedWithoutHarm()
    {
        const QByteArray good = record(QStringLiteral("mutable.record"));
        QVERIFY(!good.isEmpty());
        int records = 0;
        for (qsizetype at = 0; at < good.size(); ++at) {
            for (int byte = 0; byte < 256; ++byte) {
                QByteArray damaged = good;
                damaged[at] = static_cast<char>(byte);
                const auto decoder = KeyedUnarchiver::unarchive(damaged, food);
                if (!decoder)
                    continue;
                ++records;
                for (const QLatin1String key : {name, amount, unit, unitidx}) {
                    const std::optional<QString> text = decoder->decodeString(key);
                    QVERIFY(!text || text->size() < good.size());
                    static_cast<void>(decoder->decodeFloat(key));
                    static_cast<void>(decoder->decodeInt(key));
                }
            }
        }
        QVERIFY(records >= good.size()); // each byte as it was
    }
};

QTEST_APPLESS_MAIN(KeyedArchiverTest)
#include "tst_keyedarchiver.moc"
