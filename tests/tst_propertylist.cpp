// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "platform/PropertyList.h"

#include <QtTest>

#include <bit>
#include <cmath>
#include <limits>

using PropertyList::Document;
using PropertyList::Reference;
using PropertyList::Writer;

namespace {

QByteArray bigEndian(quint64 number, int size)
{
    QByteArray bytes;
    for (int shift = (size - 1) * 8; shift >= 0; shift -= 8)
        bytes.append(static_cast<char>(number >> shift & 0xffU));
    return bytes;
}

QByteArray trailer(quint64 offsetsize, quint64 referencesize, quint64 count, quint64 top, quint64 table)
{
    return QByteArray(6, '\0') + bigEndian(offsetsize, 1) + bigEndian(referencesize, 1) + bigEndian(count, 8)
        + bigEndian(top, 8) + bigEndian(table, 8);
}

// A document of these objects, given as their bytes; the first is the root. References take three bytes.
QByteArray documentOf(const QByteArrayList &objects)
{
    QByteArray bytes("bplist00");
    QByteArray table;
    for (const QByteArray &object : objects) {
        table += bigEndian(static_cast<quint64>(bytes.size()), 4);
        bytes += object;
    }
    const auto offset = static_cast<quint64>(bytes.size());
    return bytes + table + trailer(4, 3, static_cast<quint64>(objects.size()), 0, offset);
}

QByteArray documentOf(const QByteArray &object)
{
    return documentOf(QByteArrayList{object});
}

QByteArray arrayOf(const QList<quint64> &references)
{
    QByteArray bytes = "\xaf\x12" + bigEndian(static_cast<quint64>(references.size()), 4);
    for (const quint64 reference : references)
        bytes += bigEndian(reference, 3);
    return bytes;
}

QByteArray hex(const char *digits)
{
    return QByteArray::fromHex(digits);
}

QVariant nested(int depth)
{
    QVariant value(QStringLiteral("core"));
    for (int i = 0; i < depth; ++i)
        value = QVariantList{value};
    return value;
}

QVariant readBack(const QVariant &value)
{
    const std::optional<QByteArray> bytes = PropertyList::write(value);
    return bytes ? PropertyList::read(*bytes).value_or(QVariant()) : QVariant();
}

} // namespace

class PropertyListTest final : public QObject {
    Q_OBJECT

private slots:
    void dataIsReadInPlaceFromAnArrayOfNothingElse()
    {
        const QVariantList list{QByteArray("ab"), QByteArray(), QByteArray(300, 'c')};
        const QByteArray bytes = PropertyList::write(list).value();
        const auto elements = PropertyList::readDataInPlace(bytes);
        QVERIFY(elements);
        QCOMPARE(QVariantList(elements->begin(), elements->end()), list);
        for (const QByteArray &element : *elements)
            QVERIFY(element.isEmpty()
                || (element.constData() > bytes.constData() && element.constEnd() < bytes.constEnd()));

        for (const QVariant &other : {QVariant(QByteArray("ab")), QVariant(QVariantMap()),
                 QVariant(QVariantList{QByteArray("ab"), QStringLiteral("ab")})})
            QVERIFY(!PropertyList::readDataInPlace(PropertyList::write(other).value()));
        QVERIFY(!PropertyList::readDataInPlace(bytes.chopped(1)));

        Writer sharing;
        const Reference data = sharing.addData(QByteArray(100, 'd'));
        QVERIFY(!PropertyList::readDataInPlace(sharing.document(sharing.addArray({data, data, data}))));
    }

    void whatIsWrittenIsReadBack_data()
    {
        QTest::addColumn<QVariant>("value");

        const auto row = [](const char *name, const QVariant &value) { QTest::newRow(name) << value; };
        row("true", true);
        row("false", false);
        row("zero", qint64(0));
        for (const qint64 edge : {0x7fLL, 0x80LL, 0xffLL, 0x100LL, 0xffffLL, 0x10000LL, 0xffffffffLL, 0x100000000LL})
            QTest::addRow("the integer %lld", static_cast<long long>(edge)) << QVariant(edge);
        row("minus one", qint64(-1));
        row("the largest integer", std::numeric_limits<qint64>::max());
        row("the smallest integer", std::numeric_limits<qint64>::min());
        row("a float", 0.1F);
        row("the smallest float", std::numeric_limits<float>::denorm_min());
        row("an infinite float", std::numeric_limits<float>::infinity());
        row("a double", 0.1);
        row("a negative infinite double", -std::numeric_limits<double>::infinity());
        row("an empty text", QString(QLatin1String("")));
        row("a text of 14 characters", QStringLiteral("12345678901234"));
        row("a text of 15 characters", QStringLiteral("123456789012345"));
        row("a text with NUL", QString(QChar(u'\0')) + u'x');
        row("a text beyond ASCII", QStringLiteral(u"cr\u00e8me \u20ac"));
        row("a text beyond 16 bits", QString::fromUcs4(U"\U0001F95B"));
        row("half a surrogate pair", QString(QChar(0xd83e)));
        row("no data", QByteArray(""));
        row("data", QByteArray("\0\xff", 2));
        row("data of 70,000 bytes", QByteArray(70000, 'x'));
        row("an empty list", QVariantList());
        row("a list of several kinds", QVariantList{true, qint64(1), 1.5F, 2.5, QByteArray("d"), QStringLiteral("t")});
        row("a list in a list", QVariantList{QVariantList{QVariantList()}, QVariantList()});
        row("a dictionary", QVariantMap{{QStringLiteral("a"), qint64(1)}, {QStringLiteral("b"), QVariantList{2.0}}});
        row("a list as deep as may be", nested(PropertyList::depthLimit));
        QVariantList many;
        for (qint64 i = 0; i < 70000; ++i)
            many.append(i);
        row("a list of 70,000 numbers", many);
    }

    void whatIsWrittenIsReadBack()
    {
        QFETCH(QVariant, value);
        const QVariant read = readBack(value);
        QCOMPARE(read.typeId(), value.typeId());
        QCOMPARE(read, value);
    }

    void notANumberIsReadBackAsSuch()
    {
        QVERIFY(std::isnan(readBack(std::numeric_limits<float>::quiet_NaN()).toFloat()));
        QVERIFY(std::isnan(readBack(std::numeric_limits<double>::quiet_NaN()).toDouble()));
    }

    void negativeZeroKeepsItsSign() { QCOMPARE(std::bit_cast<quint32>(readBack(-0.0F).toFloat()), 0x80000000U); }

    void smallerIntegersAreReadAsTheLargestKind()
    {
        QCOMPARE(readBack(-5), QVariant(qint64(-5)));
        QCOMPARE(readBack(5U), QVariant(qint64(5)));
        QCOMPARE(readBack(-5).typeId(), int(QMetaType::LongLong));
    }

    void datesKeepTheMillisecondAndAreUtc_data()
    {
        QTest::addColumn<QDateTime>("date");
        QTest::newRow("the reference moment") << QDateTime(QDate(2001, 1, 1), QTime(0, 0), Qt::UTC);
        QTest::newRow("a millisecond") << QDateTime(QDate(2024, 2, 29), QTime(23, 59, 59, 999), Qt::UTC);
        QTest::newRow("before the reference") << QDateTime(QDate(1970, 1, 1), QTime(0, 0, 0, 1), Qt::UTC);
        QTest::newRow("year 1") << QDateTime(QDate(1, 1, 1), QTime(0, 0, 0, 1), Qt::UTC);
        QTest::newRow("year 9999") << QDateTime(QDate(9999, 12, 31), QTime(23, 59, 59, 999), Qt::UTC);
        QTest::newRow("after 2069") << QDateTime(QDate(2075, 5, 11), QTime(12, 0), Qt::UTC);
        QTest::newRow("given in another zone")
            << QDateTime(QDate(2024, 7, 1), QTime(8, 30), QTimeZone("Pacific/Auckland"));
    }

    void datesKeepTheMillisecondAndAreUtc()
    {
        QFETCH(QDateTime, date);
        const QDateTime read = readBack(date).toDateTime();
        QCOMPARE(read.toMSecsSinceEpoch(), date.toMSecsSinceEpoch());
        QCOMPARE(read.timeSpec(), Qt::UTC);
    }

    void aDateIsSecondsSince2001AsA64BitReal()
    {
        const QDateTime date(QDate(2001, 1, 1), QTime(0, 0, 1, 500), Qt::UTC);
        QCOMPARE(PropertyList::write(date).value(),
            QByteArray("bplist00") + hex("333ff8000000000000") + hex("08") + trailer(1, 1, 1, 0, 17));
    }

    void anIntegerTakesTheFewestBytes_data()
    {
        QTest::addColumn<qint64>("value");
        QTest::addColumn<QByteArray>("object");
        const auto row = [](qint64 value, const char *object) {
            QTest::addRow("%lld", static_cast<long long>(value)) << value << hex(object);
        };
        row(255, "10ff");
        row(256, "110100");
        row(65535, "11ffff");
        row(65536, "1200010000");
        row(4294967295, "12ffffffff");
        row(4294967296, "130000000100000000");
        row(-1, "13ffffffffffffffff");
    }

    void anIntegerTakesTheFewestBytes()
    {
        QFETCH(qint64, value);
        QFETCH(QByteArray, object);
        QVERIFY(PropertyList::write(value).value().startsWith("bplist00" + object + '\x08'));
    }

    void aDateIsReadToTheNearestMillisecond()
    {
        Writer writer;
        const Reference root = writer.addArray({writer.addDate(0.0006), writer.addDate(-0.0006)});
        const QVariantList dates = PropertyList::read(writer.document(root)).value().toList();
        const QDateTime start({2001, 1, 1}, {0, 0}, Qt::UTC);
        QCOMPARE(dates, (QVariantList{start.addMSecs(1), start.addMSecs(-1)}));
    }

    void theBytesOfAListAreThese()
    {
        const QVariantList list{QStringLiteral("g"), 100.0F, qint64(-1), QStringLiteral("g")};
        const QByteArray expected = QByteArray("bplist00") + hex("5167") + hex("2242c80000") + hex("13ffffffffffffffff")
            + hex("a400010200") + hex("080a0f18") + trailer(1, 1, 4, 3, 29);
        QCOMPARE(PropertyList::write(list).value(), expected);
    }

    void aDateBeyondAllYearsIsNoValue_data()
    {
        QTest::addColumn<double>("seconds");
        QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN();
        QTest::newRow("infinite") << std::numeric_limits<double>::infinity();
        QTest::newRow("too late") << 1e13;
        QTest::newRow("too early") << -1e300;
    }

    void aDateBeyondAllYearsIsNoValue()
    {
        QFETCH(double, seconds);
        Writer writer;
        const Reference root = writer.addDate(seconds);
        QVERIFY(!PropertyList::read(writer.document(root)));
    }

    void valuesWithoutAPlaceAreNotWritten()
    {
        QVERIFY(!PropertyList::write(QVariant()));
        QVERIFY(!PropertyList::write(QVariant(QPoint(1, 2))));
        QVERIFY(!PropertyList::write(QDateTime()));
        QVERIFY(!PropertyList::write(QVariantList{QVariant()}));
        QVERIFY(!PropertyList::write(QVariantMap{{QStringLiteral("a"), QVariant()}}));
        QVERIFY(!PropertyList::write(nested(PropertyList::depthLimit + 1)));
    }

    void otherWritersWidthsAreRead()
    {
        QCOMPARE(PropertyList::read(documentOf(hex("110001"))).value(), QVariant(qint64(1)));
        QCOMPARE(PropertyList::read(documentOf(hex("12ffffffff"))).value(), QVariant(qint64(0xffffffff)));
        QCOMPARE(
            PropertyList::read(documentOf(hex("1400000000000000000000000000000007"))).value(), QVariant(qint64(7)));
        QCOMPARE(
            PropertyList::read(documentOf(hex("14ffffffffffffffffffffffffffffffff"))).value(), QVariant(qint64(-1)));
        QCOMPARE(PropertyList::read(documentOf(hex("14000000000000000080000000000000ff"))).value(),
            QVariant(std::numeric_limits<qint64>::max()));
        QCOMPARE(PropertyList::read(documentOf(hex("1480000000000000000000000000000000"))).value(),
            QVariant(std::numeric_limits<qint64>::min()));
        QCOMPARE(PropertyList::read(documentOf(hex("5f10036162630000"))).value(), QVariant(QStringLiteral("abc")));
        QCOMPARE(Document::parse(documentOf(hex("820186a0")))->uid(0).value(), 100000U);
        QCOMPARE(Document::parse(documentOf(hex("870000000000000001")))->uid(0).value(), 1U);
    }

    void anObjectAnswersForItsOwnKindAlone()
    {
        const auto document = Document::parse(documentOf(hex("1007")));
        QVERIFY(!document->boolean(0) && !document->floatReal(0) && !document->doubleReal(0) && !document->date(0));
        QVERIFY(!document->data(0) && !document->string(0) && !document->uid(0));
        QCOMPARE(document->count(0), quint64(0));
        QCOMPARE(document->integer(0).value(), 7);
    }

    void aKeyOfTwoByteCharactersIsFound()
    {
        const QByteArray bytes
            = documentOf({hex("d1") + bigEndian(1, 3) + bigEndian(2, 3), hex("6200610062"), hex("1007")});
        const auto document = Document::parse(bytes);
        QCOMPARE(document->valueForKey(0, QLatin1String("ab")).value(), Reference(2));
        QVERIFY(!document->valueForKey(0, QLatin1String("abc")));
        QVERIFY(!document->valueForKey(0, QLatin1String("b")));
    }

    void whatIsBrokenIsNoValue_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        const QByteArray one = documentOf(hex("1007"));
        QVERIFY(PropertyList::read(one));

        const auto row = [](const char *name, const QByteArray &bytes) { QTest::newRow(name) << bytes; };
        row("nothing", {});
        row("a header alone", "bplist00");
        row("another header", QByteArray(one).replace(0, 8, "bplist15"));
        row("an XML list", "<?xml version=\"1.0\"?><plist version=\"1.0\"><string>not this form</string></plist>");
        const QByteArray body("bplist00\x10\x07\x08");
        row("no objects", body + trailer(1, 1, 0, 0, 10));
        row("a root beyond the table", body + trailer(1, 1, 1, 1, 10));
        row("offsets of no bytes", body + trailer(0, 1, 1, 0, 10));
        row("offsets of nine bytes", body + trailer(9, 1, 1, 0, 10));
        row("references of no bytes", body + trailer(1, 0, 1, 0, 10));
        row("references of 255 bytes", body + trailer(1, 255, 1, 0, 10));
        row("more objects than the file has room for", body + trailer(1, 1, 2, 0, 10));
        row("objects beyond counting", body + trailer(8, 1, ~quint64(0), 0, 10));
        row("objects that wrap around", body + trailer(8, 1, quint64(1) << 61, 0, 10));
        row("a table inside the header", body + trailer(1, 1, 1, 0, 7));
        row("a table beyond the file", body + trailer(1, 1, 1, 0, 4000));
        row("a table beyond counting", body + trailer(1, 1, 1, 0, ~quint64(0)));
        row("an offset inside the header", QByteArray("bplist00\x10\x07\x07") + trailer(1, 1, 1, 0, 10));
        row("an offset inside the table", QByteArray("bplist00\x10\x07\x0a") + trailer(1, 1, 1, 0, 10));
        row("an offset beyond the file", QByteArray("bplist00\x10\x07\xff") + trailer(1, 1, 1, 0, 10));
        row("an offset at the file's first byte", QByteArray("bplist00\x10\x07\x00", 11) + trailer(1, 1, 1, 0, 10));
        row("an integer cut off", documentOf(hex("13000000")));
        row("an integer that lacks one byte", documentOf(hex("1107")));
        row("an integer of 32 bytes", documentOf(hex("15") + QByteArray(32, '\1')));
        row("a real cut off", documentOf(hex("2300")));
        row("a real of two bytes", documentOf(hex("210000")));
        row("a date cut off", documentOf(hex("33000000")));
        row("data cut off", documentOf(hex("4461")));
        row("a text cut off", documentOf(hex("5361")));
        row("a text of two-byte characters cut off", documentOf(hex("620061")));
        row("a text that claims to be ASCII", documentOf(hex("51e9")));
        row("a text of the first byte beyond ASCII", documentOf(hex("5180")));
        row("a count that is cut off", documentOf(hex("5f")));
        row("a count whose integer is cut off", documentOf(hex("5f1300")));
        row("a count of sixteen bytes", documentOf(hex("5f14") + QByteArray(15, '\0') + hex("0161")));
        row("a count that is no integer", documentOf(hex("5f5161")));
        row("a count beyond the file", documentOf(hex("5f137fffffffffffffff61")));
        row("a count beyond counting", documentOf(hex("af13ffffffffffffffff")));
        row("a count that wraps around", documentOf(hex("df132aaaaaaaaaaaaaab")));
        row("a null", documentOf(hex("00")));
        row("a fill byte", documentOf(hex("0f")));
        row("a set", documentOf({hex("c1000001"), hex("1007")}));
        row("an object reference", documentOf(hex("8001")));
        row("an object reference of sixteen bytes", documentOf(hex("8f") + QByteArray(16, '\0')));
        row("a list with an element that is nowhere", documentOf({hex("a1000007")}));
        row("a list with a broken element", documentOf({hex("a1000001"), hex("13ff")}));
        row("a list that holds itself", documentOf({hex("a1000000")}));
        row("a dictionary with a key that is no text", documentOf({hex("d1000001000001"), hex("1007")}));
        row("a dictionary that holds itself", documentOf({hex("d1000001000000"), hex("5161")}));
        for (qsizetype size = 0; size < one.size(); ++size)
            QTest::addRow("cut off after %d bytes", int(size)) << one.left(size);
    }

    void whatIsBrokenIsNoValue()
    {
        QFETCH(QByteArray, bytes);
        QVERIFY(!PropertyList::read(bytes));
    }

    void twoHundredThousandNestedListsAreNoValue()
    {
        QByteArrayList objects;
        for (quint64 i = 1; i < 200000; ++i)
            objects.append("\xa1" + bigEndian(i, 3));
        objects.append(hex("1007"));
        const QByteArray bytes = documentOf(objects);
        QVERIFY(Document::parse(bytes));
        QVERIFY(!PropertyList::read(bytes));
    }

    void listsThatShareTheirElementsDoNotGrow()
    {
        // Seven levels of 200 elements: 10^16 when expanded.
        QByteArrayList objects;
        for (quint64 level = 1; level <= 7; ++level)
            objects.append(arrayOf(QList<quint64>(200, level)));
        objects.append(hex("1007"));
        QElapsedTimer timer;
        timer.start();
        QVERIFY(!PropertyList::read(documentOf(objects)));
        QVERIFY(timer.elapsed() < 2000);
    }

    void aSharedTextIsReadOnceForEachUse()
    {
        const QByteArray text = "\x5f\x11" + bigEndian(1000, 2) + QByteArray(1000, 'x');
        const QVariant value = PropertyList::read(documentOf({arrayOf(QList<quint64>(500, 1)), text})).value();
        QCOMPARE(value.toList().size(), 500);
        QCOMPARE(value.toList().last().toString(), QString(1000, u'x'));
    }

    void aLargeTextSharedByManyDoesNotGrow()
    {
        const QByteArray text = "\x5f\x12" + bigEndian(1000000, 4) + QByteArray(1000000, 'x');
        QElapsedTimer timer;
        timer.start();
        QVERIFY(!PropertyList::read(documentOf({arrayOf(QList<quint64>(100000, 1)), text})));
        QVERIFY(timer.elapsed() < 2000);
    }

    void aDictionaryOfManyEntriesUnderOneLongKeyIsSearchedQuickly()
    {
        QByteArray entries = "\xdf\x12" + bigEndian(300000, 4);
        for (int i = 0; i < 600000; ++i)
            entries += bigEndian(1, 3);
        const QByteArray key = "\x5f\x12" + bigEndian(300000, 4) + QByteArray(300000, 'k');
        const auto document = Document::parse(documentOf({entries, key}));
        QElapsedTimer timer;
        timer.start();
        QVERIFY(!document->valueForKey(0, QLatin1String("name")));
        QVERIFY(timer.elapsed() < 2000);
    }

    void theFirstOfTwoEqualKeysCounts()
    {
        const QByteArray bytes = documentOf({hex("d2000001000001000002000003"), hex("5161"), hex("1007"), hex("1008")});
        const auto document = Document::parse(bytes);
        QCOMPARE(document->integer(*document->valueForKey(0, QLatin1String("a"))).value(), 7);
    }

    void everyByteMayBeDamagedWithoutHarm()
    {
        const QByteArray good = PropertyList::write(
            QVariantList{QStringLiteral("text"), QByteArray("data"), 1.5F, qint64(70000), QVariantList{true},
                QVariantMap{{QStringLiteral("k"), QStringLiteral(u"\u00e9")}}})
                                    .value();
        int understood = 0;
        for (qsizetype at = 0; at < good.size(); ++at) {
            for (int byte = 0; byte < 256; ++byte) {
                QByteArray damaged = good;
                damaged[at] = static_cast<char>(byte);
                understood += PropertyList::read(damaged) ? 1 : 0;
            }
        }
        QVERIFY(understood >= good.size()); // each byte as it was
        QVERIFY(understood < good.size() * 256);
    }
};

QTEST_APPLESS_MAIN(PropertyListTest)
#include "tst_propertylist.moc"
