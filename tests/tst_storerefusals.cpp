// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "platform/PropertyList.h"
#include "support/FaultyVfs.h"
#include "support/StoreHome.h"

namespace {

const QByteArray ordinary("CREATE TABLE defaults(key TEXT PRIMARY KEY, value BLOB NOT NULL)");

QString keyOf(int number)
{
    return QStringLiteral("2015_05_%1").arg(number, 2, 10, QLatin1Char('0'));
}

QVariant dayOf(int number, int variant)
{
    QVariantList records;
    for (int i = 0; i < 20 + variant; ++i)
        records.append(QByteArray::number(number * 1000 + i + variant * 7).leftJustified(90 + i, 'a'));
    return records;
}

} // namespace

// Stores that can be read and yet do not take what is saved, and those that look odd and do.
class StoreRefusalsTest final : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<StoreHome> place;
    QString path;

    // A store made with these statements, where the day is 1.
    void layOut(const QByteArray &table, const QByteArray &more = {}) const
    {
        StoreView other(path);
        QVERIFY(other.run("PRAGMA user_version = 1"));
        QVERIFY(other.run(table.constData()));
        SqliteStatement statement(other.handle, "INSERT INTO defaults(key, value) VALUES(?1, ?2)");
        static_cast<void>(statement.bind(1, day).bind(2, PropertyList::write(1).value()).step());
        QVERIFY(other.run(more.constData()));
    }

private slots:
    void init()
    {
        place = std::make_unique<StoreHome>();
        path = place->path;
    }

    void cleanup() { place.reset(); }

    void aStoreThatRefusesEveryWriteIsSetAsideByTheFirst_data()
    {
        QTest::addColumn<QByteArray>("table");
        QTest::addColumn<QByteArray>("more");
        const auto row = [](const char *what, const QByteArray &table, const char *more) {
            QTest::newRow(what) << table << QByteArray(more);
        };
        row("no unique key", "CREATE TABLE defaults(key TEXT, value BLOB NOT NULL)", "");
        row("a view", ordinary, "ALTER TABLE defaults RENAME TO t; CREATE VIEW defaults AS SELECT key, value FROM t");
        row("another column to fill", ordinary,
            "ALTER TABLE defaults RENAME TO t; CREATE TABLE defaults(key TEXT PRIMARY KEY, value BLOB, x NOT NULL);"
            "INSERT INTO defaults SELECT key, value, 1 FROM t; DROP TABLE t");
        row("a condition on the value",
            "CREATE TABLE defaults(key TEXT PRIMARY KEY, value CHECK(value = x'"
                + PropertyList::write(1).value().toHex() + "'))",
            "");
        row("a trigger that raises", ordinary,
            "CREATE TRIGGER t BEFORE UPDATE ON defaults BEGIN SELECT RAISE(ABORT, 'no'); END");
        row("a trigger that rolls back", ordinary,
            "CREATE TRIGGER t BEFORE INSERT ON defaults BEGIN SELECT RAISE(ROLLBACK, 'no'); END");
        row("a trigger that does not compile", ordinary,
            "CREATE TRIGGER t AFTER UPDATE ON defaults BEGIN INSERT INTO missing VALUES(1); END");
        row("a trigger that ignores", ordinary,
            "CREATE TRIGGER t BEFORE UPDATE ON defaults BEGIN SELECT RAISE(IGNORE); END");
        row("a trigger that changes what was written", ordinary,
            "CREATE TRIGGER t AFTER UPDATE ON defaults BEGIN UPDATE defaults SET value = x'00'; END");
    }

    void aStoreThatRefusesEveryWriteIsSetAsideByTheFirst()
    {
        QFETCH(QByteArray, table);
        QFETCH(QByteArray, more);
        layOut(table, more);
        const QByteArray before = contentOf(path);
        {
            UserDefaults defaults(path);
            QCOMPARE(defaults.objectForKey(day), number(1));
            QVERIFY(contentOf(path) == before && place->files().size() == 1);
            defaults.setObject(2, day);
            QVERIFY2(defaults.synchronize(), "nothing is left to be written");
        }
        QCOMPARE(place->stored(day), number(2));
        QVERIFY(!StoreView(place->aside()).bytes(day).isEmpty());
    }

    void aHeaderThatForbidsWritingSetsTheStoreAside_data()
    {
        QTest::addColumn<int>("at");
        QTest::addColumn<char>("byte");
        QTest::addColumn<bool>("isread");
        QTest::newRow("a write version to come") << 18 << '\x03' << true;
        QTest::newRow("the last write version") << 18 << '\xff' << true;
        QTest::newRow("a schema format to come") << 47 << '\x05' << false;
        QTest::newRow("the last schema format") << 47 << '\xff' << false;
    }

    void aHeaderThatForbidsWritingSetsTheStoreAside()
    {
        QFETCH(int, at);
        QFETCH(char, byte);
        QFETCH(bool, isread);
        UserDefaults(path).setObject(1, day);
        QByteArray damaged = contentOf(path);
        damaged[at] = byte;
        writeFile(path, damaged);
        {
            UserDefaults defaults(path);
            QCOMPARE(defaults.objectForKey(day), isread ? number(1) : QVariant());
            defaults.setObject(2, day);
            QVERIFY(defaults.synchronize());
        }
        QCOMPARE(place->stored(day), number(2));
        QCOMPARE(contentOf(place->aside()), damaged);
    }

    void anOddStoreThatCanBeWrittenIsUsed_data()
    {
        QTest::addColumn<QByteArray>("table");
        QTest::addColumn<QByteArray>("more");
        const auto row = [](const char *what, const QByteArray &table, const char *more) {
            QTest::newRow(what) << table << QByteArray(more);
        };
        row("another index", ordinary, "CREATE INDEX i ON defaults(value, key)");
        row("another table", ordinary, "CREATE TABLE other(key PRIMARY KEY, value NOT NULL, more NOT NULL)");
        row("another column that may be empty", ordinary, "ALTER TABLE defaults ADD COLUMN note");
        row("another column with a default", ordinary, "ALTER TABLE defaults ADD COLUMN note NOT NULL DEFAULT 'x'");
        row("no row numbers", ordinary + " WITHOUT ROWID", "");
        row("columns in another order", "CREATE TABLE defaults(value BLOB, key TEXT PRIMARY KEY)", "");
        row("a unique index", "CREATE TABLE defaults(key, value)", "CREATE UNIQUE INDEX i ON defaults(key)");
        row("a table of strict kinds", "CREATE TABLE defaults(key TEXT PRIMARY KEY, value BLOB NOT NULL) STRICT", "");
        row("pages shrunk and in another size", ordinary, "PRAGMA page_size = 512; VACUUM");
        row("pages that move by themselves", ordinary, "PRAGMA auto_vacuum = 1; VACUUM");
        row("a write-ahead log", ordinary, "PRAGMA journal_mode = WAL");
        row("texts of 16 bits", "PRAGMA encoding = 'UTF-16'; " + ordinary, "");
        row("a trigger that takes notes", ordinary,
            "CREATE TABLE notes(key); CREATE TRIGGER t AFTER UPDATE ON defaults BEGIN INSERT INTO notes "
            "VALUES(new.key); END");
    }

    void anOddStoreThatCanBeWrittenIsUsed()
    {
        QFETCH(QByteArray, table);
        QFETCH(QByteArray, more);
        layOut(table, more);
        {
            UserDefaults defaults(path);
            QCOMPARE(defaults.objectForKey(day), number(1));
            defaults.setObject(2, day);
            defaults.setObject(3, rdas);
        }
        QCOMPARE(place->stored(day), number(2));
        QCOMPARE(place->stored(rdas), number(3));
        QCOMPARE(place->files().join(u' '), QStringLiteral("preferences.sqlite"));
    }

    void aRangeThatMeetsAPassingErrorIsHandedOverWholeAndEachKeyOnce()
    {
        FaultyVfs disk;
        UserDefaults(path).setObject(0, keyOf(0));
        QStringList all;
        {
            UserDefaults defaults(path);
            UserDefaults::Transaction history(defaults);
            for (int i = 1; i <= 200; ++i)
                defaults.setObject(dayOf(i, 0), keyOf(i));
            QVERIFY(history.commit());
            all = defaults.storedKeys();
        }
        int interrupted = 0;
        for (int operation = 1;; ++operation) {
            UserDefaults defaults(path);
            QVERIFY(defaults.objectForKey(keyOf(0)).isValid()); // so that the scan has an old connection to lose
            disk.arm(FaultyVfs::Fault::InputOutput, operation, false, FaultyVfs::Count::Everything);
            QStringList keys;
            const auto take = [&](const QString &key, const QByteArray &) {
                interrupted += !disk.hasStruck() && keys.isEmpty() ? 1 : 0;
                keys.append(key);
            };
            const bool iswhole = defaults.peekRange(all.first(), all.last(), take);
            const bool isover = !disk.hasStruck();
            disk.disarm();
            QVERIFY(iswhole);
            QCOMPARE(keys, all);
            if (isover)
                break;
        }
        QVERIFY(interrupted > 10);
    }

    void whatIsSavedToADamagedStoreIsThereAtTheNextStart_data()
    {
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("to");
        QTest::addColumn<int>("flips");
        QTest::newRow("in the header") << 0 << 100 << 2;
        QTest::newRow("in the table's root") << 4096 << 4096 + 80 << 1;
        QTest::newRow("in the root of the keys' index") << 8192 << 8192 + 80 << 4;
        QTest::newRow("anywhere") << 0 << 0 << 200;
    }

    void whatIsSavedToADamagedStoreIsThereAtTheNextStart()
    {
        QFETCH(int, from);
        QFETCH(int, to);
        QFETCH(int, flips);
        const FaultyVfs disk; // which does not wait for the real one
        {
            UserDefaults defaults(path);
            UserDefaults::Transaction history(defaults);
            for (int i = 1; i <= 20; ++i)
                defaults.setObject(dayOf(i, 0), keyOf(i));
            defaults.setObject(QVariantList(61, 1.5F), rdas);
            QVERIFY(history.commit());
        }
        const QByteArray whole = contentOf(path);
        QVERIFY(whole.size() > 40000);
        QRandomGenerator random(1);
        const bool isanywhere = to == 0;
        for (int i = 0; i < (isanywhere ? flips : (to - from) * flips); ++i) {
            const int at = isanywhere ? random.bounded(int(whole.size())) : from + i / flips;
            QByteArray damaged = whole;
            damaged[at] = char(whole[at] ^ char(1 + random.bounded(255)));
            for (const QString &name : place->files())
                QVERIFY(QFile::remove(place->folder + u'/' + name));
            writeFile(path, damaged);
            {
                UserDefaults defaults(path);
                static_cast<void>(defaults.objectForKey(rdas));
                static_cast<void>(defaults.objectForKey(keyOf(20)));
                UserDefaults::Transaction save(defaults);
                defaults.setObject(QVariantList(61, 2.5F), rdas);
                defaults.setObject(dayOf(20, 1), keyOf(20));
                defaults.setObject(dayOf(21, 1), keyOf(21));
                static_cast<void>(save.commit());
            }
            const UserDefaults defaults(path);
            const bool isthere = defaults.objectForKey(rdas) == QVariant(QVariantList(61, 2.5F))
                && defaults.objectForKey(keyOf(20)) == dayOf(20, 1) && defaults.objectForKey(keyOf(21)) == dayOf(21, 1);
            QVERIFY2(isthere, qPrintable(QStringLiteral("byte %1, now %2").arg(at).arg(int(uchar(damaged[at])))));
        }
    }
};

QTEST_GUILESS_MAIN(StoreRefusalsTest)
#include "tst_storerefusals.moc"
