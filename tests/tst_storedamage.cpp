// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "platform/PropertyList.h"
#include "support/StoreHome.h"

// What becomes of a store that is damaged or is none, and of values in it that nobody understands.
class StoreDamageTest final : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<StoreHome> place;
    QString folder;
    QString path;

    [[nodiscard]] QVariant stored(const QString &key) const { return place->stored(key); }
    [[nodiscard]] QString aside(const char *tail = "") const { return place->aside(tail); }
    [[nodiscard]] QStringList files() const { return place->files(); }

    // A store of a year of days, and its bytes.
    QByteArray yearOfDays() const
    {
        {
            UserDefaults defaults(path);
            UserDefaults::Transaction year(defaults);
            for (int i = 0; i < 365; ++i)
                defaults.setObject(
                    QVariantList(3, QByteArray(150, char('a' + i % 26))), QStringLiteral("day %1").arg(i));
            if (!year.commit())
                return {};
        }
        return contentOf(path);
    }

private slots:
    void init()
    {
        place = std::make_unique<StoreHome>();
        folder = place->folder;
        path = place->path;
    }

    void cleanup() { place.reset(); }

    void anEmptyFileIsAnEmptyStore()
    {
        writeFile(path, {});
        QVERIFY(!stored(day).isValid());
        UserDefaults(path).setObject(1, day);
        QCOMPARE(stored(day), number(1));
        QCOMPARE(files(), QStringList{QStringLiteral("preferences.sqlite")});
    }

    void aStoreWithoutItsTableIsAnEmptyStore()
    {
        QVERIFY(StoreView(path).run("PRAGMA user_version = 1"));
        QVERIFY(!stored(day).isValid());
        UserDefaults(path).setObject(1, day);
        QCOMPARE(stored(day), number(1));
        QCOMPARE(files(), QStringList{QStringLiteral("preferences.sqlite")});
    }

    void theFileSaysItsVersionAndItsTable()
    {
        UserDefaults(path).setObject(1, day);
        StoreView other(path);
        SqliteStatement version(other.handle, "PRAGMA user_version");
        QCOMPARE(version.step(), SQLITE_ROW);
        QCOMPARE(version.integer(0), 1);
        SqliteStatement table(other.handle, "SELECT sql FROM sqlite_master WHERE name = 'defaults'");
        QCOMPARE(table.step(), SQLITE_ROW);
        QCOMPARE(table.text(0), QStringLiteral("CREATE TABLE defaults(key TEXT PRIMARY KEY, value BLOB NOT NULL)"));
        QCOMPARE(other.bytes(day), PropertyList::write(1).value());
    }

    void whatIsNoDatabaseIsSetAside_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("one byte") << QByteArray("x");
        QTest::newRow("a text") << QByteArray("[General]\nUseP=YES\n").repeated(300);
        QTest::newRow("zeros") << QByteArray(8192, '\0');
        QTest::newRow("half a header") << QByteArray("SQLite for");
        QTest::newRow("a header alone") << QByteArray("SQLite format 3\0", 16);
        QTest::newRow("a header over noise") << QByteArray("SQLite format 3\0", 16) + QByteArray(5000, '\x5a');
        QTest::newRow("a property list") << PropertyList::write(QVariantList(500, 1.5F)).value();
    }

    void whatIsNoDatabaseIsSetAside()
    {
        QFETCH(QByteArray, bytes);
        writeFile(path, bytes);
        {
            UserDefaults defaults(path);
            QVERIFY(!defaults.objectForKey(day).isValid());
            QCOMPARE(contentOf(aside()), bytes);
            defaults.setObject(1, day);
        }
        QCOMPARE(stored(day), number(1));
        QCOMPARE(contentOf(aside()), bytes);
    }

    void aWriteThatFindsNoDatabaseSetsItAsideToo()
    {
        writeFile(path, "no database at all");
        UserDefaults(path).setObject(1, day);
        QCOMPARE(stored(day), number(1));
        QCOMPARE(contentOf(aside()), QByteArray("no database at all"));
    }

    void whatWasSetAsideIsNeverOverwritten()
    {
        for (const char *bytes : {"first", "second", "third"}) {
            writeFile(path, bytes);
            UserDefaults(path).setObject(1, day);
        }
        QCOMPARE(contentOf(aside()), QByteArray("first"));
        QCOMPARE(contentOf(aside("-2")), QByteArray("second"));
        QCOMPARE(contentOf(aside("-3")), QByteArray("third"));
    }

    void aJournalIsSetAsideWithItsStore()
    {
        const QByteArray journal = QByteArray(28, '\0') + "pages of an earlier save"; // finished, so not played back
        writeFile(path, "no database");
        writeFile(path + QStringLiteral("-journal"), journal);
        UserDefaults(path).setObject(1, day);
        QCOMPARE(contentOf(aside()), QByteArray("no database"));
        QCOMPARE(contentOf(aside("-journal")), journal);
        QCOMPARE(files().size(), 3);
        QCOMPARE(stored(day), number(1));
    }

    void aJournalThatWasSetAsideEarlierIsNotInTheWay()
    {
        writeFile(path, "no database");
        writeFile(path + QStringLiteral("-journal"), QByteArray(28, '\0'));
        writeFile(aside("-journal"), "an earlier journal");
        UserDefaults(path).setObject(1, day);
        QCOMPARE(contentOf(aside("-journal")), QByteArray("an earlier journal"));
        QCOMPARE(contentOf(aside("-2")), QByteArray("no database"));
        QCOMPARE(contentOf(aside("-2-journal")), QByteArray(28, '\0'));
        QCOMPARE(stored(day), number(1));
    }

    void aJournalOfASaveThatWasCutOffIsPlayedBack()
    {
        UserDefaults(path).setObject(1, day);
        const QByteArray before = contentOf(path);
        const QString copy = place->home.filePath(QStringLiteral("copy.sqlite"));
        {
            // What a kill leaves in the middle of a save: a journal that is complete, and pages written in part.
            StoreView other(path);
            QVERIFY(other.run(
                "PRAGMA cache_size = 1; BEGIN; WITH RECURSIVE n(i) AS (VALUES(1) UNION ALL SELECT i + 1 FROM n "
                "WHERE i < 500) INSERT INTO defaults SELECT 'filler ' || i, zeroblob(500) FROM n"));
            QVERIFY(contentOf(path) != before);
            QVERIFY(QFile::copy(path, copy));
            QVERIFY(QFile::copy(path + QStringLiteral("-journal"), copy + QStringLiteral("-journal")));
        }
        QCOMPARE(UserDefaults(copy).objectForKey(day), number(1));
        QCOMPARE(contentOf(copy), before);
        QVERIFY(!QFile::exists(copy + QStringLiteral("-journal")));
    }

    void aStoreOfANewerVersionIsSetAsideWhole_data()
    {
        QTest::addColumn<QString>("version");
        QTest::newRow("the next version") << QStringLiteral("PRAGMA user_version = 2");
        QTest::newRow("the last version") << QStringLiteral("PRAGMA user_version = 2147483647");
        QTest::newRow("a negative version") << QStringLiteral("PRAGMA user_version = -1");
    }

    void aStoreOfANewerVersionIsSetAsideWhole()
    {
        QFETCH(QString, version);
        UserDefaults(path).setObject(1, day);
        QVERIFY(StoreView(path).run(version.toLatin1().constData()));
        const QByteArray newer = contentOf(path);
        {
            UserDefaults defaults(path);
            QVERIFY(!defaults.objectForKey(day).isValid());
            defaults.setObject(2, day);
        }
        QCOMPARE(contentOf(aside()), newer);
        QCOMPARE(stored(day), number(2));
    }

    void anotherProgramsTableOfThatNameIsSetAside()
    {
        QVERIFY(StoreView(path).run("CREATE TABLE defaults(name, number); INSERT INTO defaults VALUES('a', 1)"));
        const QByteArray foreign = contentOf(path);
        UserDefaults(path).setObject(1, day);
        QCOMPARE(contentOf(aside()), foreign);
        QCOMPARE(stored(day), number(1));
    }

    void aStoreThatIsCutOffIsSetAside()
    {
        const QByteArray whole = yearOfDays();
        QVERIFY(whole.size() > 100000);
        for (const qsizetype size : {qsizetype(1), qsizetype(99), qsizetype(100), qsizetype(511), qsizetype(512),
                 qsizetype(4095), qsizetype(4096), qsizetype(8192), whole.size() / 2, whole.size() - 4096}) {
            writeFile(path, whole.left(size));
            {
                UserDefaults defaults(path);
                for (int i = 0; i < 365; ++i)
                    static_cast<void>(defaults.objectForKey(QStringLiteral("day %1").arg(i)));
                defaults.setObject(1, day);
            }
            QCOMPARE(stored(day), number(1));
            QVERIFY2(contentOf(aside()) == whole.left(size), qPrintable(QString::number(size)));
            QVERIFY(QFile::remove(aside()));
        }
    }

    void aStoreThatLacksItsLastByteIsStillRead()
    {
        const QByteArray whole = yearOfDays();
        writeFile(path, whole.left(whole.size() - 1));
        UserDefaults defaults(path);
        int days = 0;
        for (int i = 0; i < 365; ++i)
            days += defaults.objectForKey(QStringLiteral("day %1").arg(i)).isValid() ? 1 : 0;
        QVERIFY(days >= 364);
        QVERIFY(!QFile::exists(aside()));
    }

    void aDamagedPageSetsTheStoreAsideAndLosesNothingNew()
    {
        const QByteArray whole = yearOfDays();
        for (qsizetype page = 0; page < whole.size() / 4096; page += 3) {
            QByteArray damaged = whole;
            damaged.replace(page * 4096, 4096, QByteArray(4096, '\xa5'));
            writeFile(path, damaged);
            {
                UserDefaults defaults(path);
                for (int i = 0; i < 365; ++i)
                    static_cast<void>(defaults.objectForKey(QStringLiteral("day %1").arg(i)));
                defaults.setObject(1, day);
                defaults.setObject(2, rdas);
            }
            QCOMPARE(stored(day), number(1));
            QCOMPARE(stored(rdas), number(2));
            QVERIFY2(contentOf(aside()) == damaged, qPrintable(QString::number(page)));
            QVERIFY(QFile::remove(aside()));
        }
    }

    void aStoreThatIsWrittenOverWhileItIsOpenIsNoDamagedOne_data()
    {
        QTest::addColumn<bool>("isread");
        QTest::newRow("by a write") << false;
        QTest::newRow("by a read") << true;
    }

    void aStoreThatIsWrittenOverWhileItIsOpenIsNoDamagedOne()
    {
        // A copy is put back over the file itself, so that pages of the former contents are still in memory.
        QFETCH(bool, isread);
        QVERIFY(!yearOfDays().isEmpty());
        {
            UserDefaults defaults(path);
            QVERIFY(defaults.objectForKey(QStringLiteral("day 0")).isValid());
            QByteArray copy;
            {
                const QString other = folder + QStringLiteral("/copy");
                UserDefaults(other).setObject(7, day);
                UserDefaults(other).setObject(8, QStringLiteral("day 200"));
                copy = contentOf(other);
                QVERIFY(QFile::remove(other));
            }
            QFile file(path);
            QVERIFY(file.open(QIODevice::ReadWrite) && file.resize(0) && file.write(copy) == copy.size());
            file.close();
            if (isread)
                QCOMPARE(defaults.objectForKey(QStringLiteral("day 200")), number(8));
            else
                defaults.setObject(9, QStringLiteral("day 200"));
            QCOMPARE(defaults.objectForKey(day), number(7));
        }
        QCOMPARE(files(), QStringList{QStringLiteral("preferences.sqlite")});
        QCOMPARE(stored(day), number(7));
        QCOMPARE(stored(QStringLiteral("day 200")), number(isread ? 8 : 9));
    }

    void aValueThatIsNoPropertyListIsKeptOnce()
    {
        UserDefaults(path).setObject(1, day);
        const QByteArray foreign("not a property list");
        QVERIFY(StoreView(path).put(day, foreign));
        const QByteArray before = contentOf(path);
        {
            UserDefaults defaults(path);
            defaults.registerDefaults({{day, QStringLiteral("registered")}});
            QCOMPARE(defaults.objectForKey(day), QVariant(QStringLiteral("registered")));
            QCOMPARE(contentOf(path), before);
            defaults.setObject(2, rdas);
            defaults.setObject(3, day);
            defaults.setObject(4, day);
        }
        QCOMPARE(stored(day), number(4));
        StoreView other(path);
        QCOMPARE(other.bytes(day + QStringLiteral(".unread")), foreign);
        QCOMPARE(other.rows(), 3);
    }

    void onlyAValueThatThisRunHasReadIsReplacedWithoutACopy()
    {
        UserDefaults(path).setObject(1, day);
        UserDefaults(path).setObject(1, day); // replaces nothing
        QCOMPARE(StoreView(path).rows(), 1);
        {
            UserDefaults defaults(path);
            QCOMPARE(defaults.objectForKey(day), number(1));
            defaults.setObject(2, day);
            defaults.setObject(3, day);
        }
        QCOMPARE(StoreView(path).rows(), 1);
        UserDefaults(path).setObject(4, day);
        QCOMPARE(stored(day), number(4));
        QCOMPARE(stored(day + QStringLiteral(".unread")), number(3));
    }

    void aSecondValueThatIsNotUnderstoodDoesNotReplaceTheFirst()
    {
        UserDefaults(path).setObject(1, day);
        for (const char *foreign : {"first", "second", "first", "third"}) {
            QVERIFY(StoreView(path).put(day, foreign));
            UserDefaults defaults(path);
            QVERIFY(!defaults.objectForKey(day).isValid());
            defaults.setObject(2, day);
        }
        StoreView other(path);
        QCOMPARE(other.bytes(day + QStringLiteral(".unread")), QByteArray("first"));
        QCOMPARE(other.bytes(day + QStringLiteral(".unread.2")), QByteArray("second"));
        QCOMPARE(other.bytes(day + QStringLiteral(".unread.3")), QByteArray("third"));
        QCOMPARE(other.rows(), 4);
    }

    void aValueOfTheWrongKindIsKeptWhenTheCallerSaysSo()
    {
        UserDefaults(path).setObject(QStringLiteral("no list"), rdas);
        {
            UserDefaults defaults(path);
            QCOMPARE(defaults.objectForKey(rdas), QVariant(QStringLiteral("no list")));
            defaults.keepUnread(rdas);
            QVERIFY(!defaults.objectForKey(rdas + QStringLiteral(".unread")).isValid());
            defaults.setObject(QVariantList{1}, rdas);
            defaults.setObject(QVariantList{2}, rdas);
        }
        QCOMPARE(stored(rdas), QVariant(QVariantList{qint64(2)}));
        QCOMPARE(stored(rdas + QStringLiteral(".unread")), QVariant(QStringLiteral("no list")));
        QCOMPARE(StoreView(path).rows(), 2);
    }

    void aKeyWithoutAValueHasNothingToKeep()
    {
        {
            UserDefaults defaults(path);
            defaults.keepUnread(day);
            defaults.setObject(1, day);
        }
        QCOMPARE(StoreView(path).rows(), 1);
    }

    void aTransactionThatIsForgottenKeepsTheUnreadValueForTheNextWrite()
    {
        UserDefaults(path).setObject(1, day);
        QVERIFY(StoreView(path).put(day, "foreign"));
        {
            UserDefaults defaults(path);
            QVERIFY(!defaults.objectForKey(day).isValid());
            {
                UserDefaults::Transaction save(defaults);
                defaults.setObject(2, day);
            }
            UserDefaults::Transaction save(defaults);
            defaults.setObject(3, day);
            QVERIFY(save.commit());
        }
        QCOMPARE(stored(day), number(3));
        QCOMPARE(StoreView(path).bytes(day + QStringLiteral(".unread")), QByteArray("foreign"));
    }

    void valuesStoredAsTextOrNumberAreNotUnderstoodButKept()
    {
        UserDefaults(path).setObject(1, day);
        QVERIFY(StoreView(path).run("UPDATE defaults SET value = 'plain text'"));
        {
            UserDefaults defaults(path);
            QVERIFY(!defaults.objectForKey(day).isValid());
            defaults.setObject(2, day);
        }
        QCOMPARE(StoreView(path).bytes(day + QStringLiteral(".unread")), QByteArray("plain text"));
    }
};

QTEST_GUILESS_MAIN(StoreDamageTest)
#include "tst_storedamage.moc"
