// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "platform/PropertyList.h"
#include "platform/SqliteStatement.h"
#include "platform/UserDefaults.h"

#include <QtTest>

#include <csignal>
#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const QString day = QStringLiteral("2015_05_11");
const QString rdas = QStringLiteral("RDAs");

// A connection of another program to the store.
class Connection final {
public:
    explicit Connection(const QString &path) { sqlite3_open(path.toUtf8().constData(), &handle); }
    ~Connection() { sqlite3_close(handle); }
    Q_DISABLE_COPY_MOVE(Connection)

    bool run(const char *sql) { return sqlite3_exec(handle, sql, nullptr, nullptr, nullptr) == SQLITE_OK; }

    // Stores these bytes as they are.
    bool put(const QString &key, const QByteArray &bytes)
    {
        SqliteStatement statement(handle, "REPLACE INTO defaults(key, value) VALUES(?1, ?2)");
        return statement.bind(1, key).bind(2, bytes).step() == SQLITE_DONE;
    }

    // The bytes under a key; a null array when there are none.
    QByteArray bytes(const QString &key)
    {
        SqliteStatement statement(handle, "SELECT value FROM defaults WHERE key = ?1");
        return statement.bind(1, key).step() == SQLITE_ROW ? statement.blob(0) : QByteArray();
    }

    int rows()
    {
        SqliteStatement statement(handle, "SELECT count(*) FROM defaults");
        return statement.step() == SQLITE_ROW ? int(statement.integer(0)) : -1;
    }

    sqlite3 *handle = nullptr;
};

// Somebody whom permissions stop, unlike root.
class Unprivileged final {
public:
    Unprivileged()
        : isroot(::geteuid() == 0)
    {
        if (isroot && ::seteuid(nobody) != 0)
            qFatal("cannot become nobody");
    }
    ~Unprivileged()
    {
        if (isroot && ::seteuid(0) != 0)
            qFatal("cannot become root again");
    }
    Q_DISABLE_COPY_MOVE(Unprivileged)

    static constexpr uid_t nobody = 65534;

private:
    bool isroot;
};

void setMode(const QString &path, mode_t mode)
{
    QCOMPARE(::chmod(QFile::encodeName(path).constData(), mode), 0);
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

void writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

QVariant number(int value)
{
    return QVariant(qint64(value));
}

} // namespace

// What becomes of the user's values when the store cannot be used as it should.
class StoreFailuresTest final : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> home;
    QString folder;
    QString path;

    [[nodiscard]] QVariant stored(const QString &key) const { return UserDefaults(path).objectForKey(key); }
    [[nodiscard]] QString aside(const char *tail = "") const
    {
        return path + QStringLiteral(".unusable") + QLatin1String(tail);
    }
    [[nodiscard]] QStringList files() const
    {
        return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot | QDir::System);
    }

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

    void handToNobody() const
    {
        if (::geteuid() != 0)
            return;
        QStringList all{home->path(), folder, path};
        for (const QString &name : all) {
            if (QFile::exists(name))
                QCOMPARE(::chown(QFile::encodeName(name).constData(), Unprivileged::nobody, Unprivileged::nobody), 0);
        }
    }

private slots:
    void init()
    {
        home = std::make_unique<QTemporaryDir>();
        folder = home->filePath(QStringLiteral("provender"));
        path = folder + QStringLiteral("/preferences.sqlite");
        QVERIFY(QDir().mkdir(folder));
    }

    void cleanup() { home.reset(); }

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
        QVERIFY(Connection(path).run("PRAGMA user_version = 1"));
        QVERIFY(!stored(day).isValid());
        UserDefaults(path).setObject(1, day);
        QCOMPARE(stored(day), number(1));
        QCOMPARE(files(), QStringList{QStringLiteral("preferences.sqlite")});
    }

    void theFileSaysItsVersionAndItsTable()
    {
        UserDefaults(path).setObject(1, day);
        Connection other(path);
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

    void aJournalOfASaveThatWasCutOffIsPlayedBack()
    {
        UserDefaults(path).setObject(1, day);
        const QByteArray before = contentOf(path);
        const QString copy = home->filePath(QStringLiteral("copy.sqlite"));
        {
            // What a kill leaves in the middle of a save: a journal that is complete, and pages written in part.
            Connection other(path);
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
        QVERIFY(Connection(path).run(version.toLatin1().constData()));
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
        QVERIFY(Connection(path).run("CREATE TABLE defaults(name, number); INSERT INTO defaults VALUES('a', 1)"));
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

    void aLockedStoreIsNoDamageAndValuesWait()
    {
        UserDefaults(path).setObject(1, day);
        UserDefaults defaults(path);
        defaults.registerDefaults({{day, QStringLiteral("registered")}});
        {
            Connection other(path);
            QVERIFY(other.run("BEGIN EXCLUSIVE"));
            QCOMPARE(defaults.objectForKey(day), QVariant(QStringLiteral("registered")));
            QElapsedTimer timer;
            timer.start();
            static_cast<void>(defaults.objectForKey(rdas));
            QVERIFY2(timer.elapsed() < 500, "only the first read waits for a lock");
            defaults.setObject(2, day);
            QCOMPARE(defaults.objectForKey(day), number(2));
            QVERIFY(other.run("COMMIT"));
            QCOMPARE(other.bytes(day), PropertyList::write(1).value());
        }
        defaults.setObject(3, rdas);
        QVERIFY(!QFile::exists(aside()));
        QCOMPARE(defaults.objectForKey(day), number(2));
        QVERIFY(defaults.synchronize());
    }

    void whatALockedStoreHeldIsKeptBesideWhatWasEnteredMeanwhile()
    {
        UserDefaults(path).setObject(1, day);
        {
            UserDefaults defaults(path);
            {
                Connection other(path);
                QVERIFY(other.run("BEGIN EXCLUSIVE"));
                QVERIFY(!defaults.objectForKey(day).isValid());
            }
            defaults.setObject(2, day);
        }
        QCOMPARE(stored(day), number(2));
        QCOMPARE(stored(day + QStringLiteral(".unread")), number(1));
    }

    void aReaderInTheWayOnlyDelaysTheWrite()
    {
        UserDefaults(path).setObject(1, day);
        {
            UserDefaults defaults(path);
            Connection other(path);
            {
                QVERIFY(other.run("BEGIN"));
                SqliteStatement reading(other.handle, "SELECT value FROM defaults");
                QCOMPARE(reading.step(), SQLITE_ROW);
                defaults.setObject(2, day);
                QVERIFY(!defaults.synchronize());
                QCOMPARE(defaults.objectForKey(day), number(2));
            }
            QVERIFY(other.run("COMMIT"));
            QVERIFY(defaults.synchronize());
        }
        QCOMPARE(stored(day), number(2));
    }

    void pendingValuesAreWrittenWhenTheDefaultsGo()
    {
        UserDefaults(path).setObject(1, day);
        {
            UserDefaults defaults(path);
            {
                Connection other(path);
                QVERIFY(other.run("BEGIN EXCLUSIVE"));
                defaults.setObject(2, day);
            }
        }
        QCOMPARE(stored(day), number(2));
    }

    void aReadOnlyFolderIsReadAndValuesWait()
    {
        UserDefaults(path).setObject(1, day);
        handToNobody();
        const QByteArray before = contentOf(path);
        {
            const Unprivileged person;
            setMode(folder, 0500);
            UserDefaults defaults(path);
            QCOMPARE(defaults.objectForKey(day), number(1));
            defaults.setObject(2, day);
            QCOMPARE(defaults.objectForKey(day), number(2));
            QVERIFY(!defaults.synchronize());
            QCOMPARE(contentOf(path), before);
            setMode(folder, 0700);
            defaults.setObject(3, rdas);
        }
        QCOMPARE(stored(day), number(2));
        QCOMPARE(stored(rdas), number(3));
        QCOMPARE(files(), QStringList{QStringLiteral("preferences.sqlite")});
    }

    void aReadOnlyStoreIsReadAndValuesWait()
    {
        UserDefaults(path).setObject(1, day);
        handToNobody();
        const QByteArray before = contentOf(path);
        {
            const Unprivileged person;
            setMode(path, 0400);
            UserDefaults defaults(path);
            QCOMPARE(defaults.objectForKey(day), number(1));
            defaults.setObject(2, day);
            QCOMPARE(defaults.objectForKey(day), number(2));
            QCOMPARE(contentOf(path), before);
            setMode(path, 0600);
            QVERIFY(defaults.synchronize());
        }
        QCOMPARE(stored(day), number(2));
        QVERIFY(!QFile::exists(aside()));
    }

    void anUnreadableStoreIsNoDamage()
    {
        UserDefaults(path).setObject(1, day);
        handToNobody();
        {
            const Unprivileged person;
            setMode(path, 0000);
            UserDefaults defaults(path);
            QVERIFY(!defaults.objectForKey(day).isValid());
            defaults.setObject(2, day);
            QCOMPARE(defaults.objectForKey(day), number(2));
            setMode(path, 0600);
        }
        QCOMPARE(stored(day), number(2));
        QCOMPARE(stored(day + QStringLiteral(".unread")), number(1));
        QCOMPARE(files(), QStringList{QStringLiteral("preferences.sqlite")});
    }

    void aDamagedStoreInAReadOnlyFolderStaysAndValuesWait()
    {
        writeFile(path, "no database");
        handToNobody();
        {
            const Unprivileged person;
            setMode(folder, 0500);
            UserDefaults defaults(path);
            defaults.setObject(2, day);
            QCOMPARE(defaults.objectForKey(day), number(2));
            QCOMPARE(contentOf(path), QByteArray("no database"));
            setMode(folder, 0700);
        }
        QCOMPARE(contentOf(aside()), QByteArray("no database"));
        QCOMPARE(stored(day), number(2));
    }

    void aReadOnlyHomeWorksInMemory()
    {
        QVERIFY(QDir().rmdir(folder));
        handToNobody();
        {
            const Unprivileged person;
            setMode(home->path(), 0500);
            {
                UserDefaults defaults(path);
                defaults.setObject(1, day);
                UserDefaults::Transaction save(defaults);
                defaults.setObject(2, rdas);
                QVERIFY(!save.commit());
                QCOMPARE(defaults.objectForKey(day), number(1));
                QCOMPARE(defaults.objectForKey(rdas), number(2));
                setMode(home->path(), 0700);
                QVERIFY(defaults.synchronize());
            }
        }
        QCOMPARE(stored(day), number(1));
        QCOMPARE(stored(rdas), number(2));
    }

    void aFolderInPlaceOfTheStoreIsLeftAlone()
    {
        QVERIFY(QDir().mkdir(path));
        UserDefaults defaults(path);
        QVERIFY(!defaults.objectForKey(day).isValid());
        defaults.setObject(1, day);
        QCOMPARE(defaults.objectForKey(day), number(1));
        QVERIFY(!defaults.synchronize());
        QCOMPARE(files(), QStringList{QStringLiteral("preferences.sqlite")});
        QVERIFY(QDir().rmdir(path));
        QVERIFY(defaults.synchronize());
        QCOMPARE(defaults.objectForKey(day), number(1));
    }

    void aPipeInPlaceOfTheStoreIsNotWaitedFor()
    {
        QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
        UserDefaults defaults(path);
        defaults.setObject(1, day);
        QCOMPARE(defaults.objectForKey(day), number(1));
        QVERIFY(QFile::remove(path));
    }

    void aFileInPlaceOfTheFolderIsLeftAlone()
    {
        QVERIFY(QDir().rmdir(folder));
        writeFile(folder, "a file");
        UserDefaults defaults(path);
        defaults.setObject(1, day);
        QCOMPARE(defaults.objectForKey(day), number(1));
        QCOMPARE(contentOf(folder), QByteArray("a file"));
        QVERIFY(QFile::remove(folder));
        QVERIFY(defaults.synchronize());
    }

    void aFileThatMayNotGrowKeepsTheLastSavedState()
    {
        UserDefaults(path).setObject(1, day);
        const QVariant large(QByteArray(300000, 'x'));
        struct rlimit former { };
        QCOMPARE(::getrlimit(RLIMIT_FSIZE, &former), 0);
        const auto handler = std::signal(SIGXFSZ, SIG_IGN);
        {
            UserDefaults defaults(path);
            struct rlimit narrow = former;
            narrow.rlim_cur = 100000;
            QCOMPARE(::setrlimit(RLIMIT_FSIZE, &narrow), 0);
            defaults.setObject(large, day);
            const bool iswritten = defaults.synchronize();
            const QVariant answer = defaults.objectForKey(day);
            QCOMPARE(::setrlimit(RLIMIT_FSIZE, &former), 0);
            QVERIFY(!iswritten);
            QCOMPARE(answer, large);
            {
                const QString copy = home->filePath(QStringLiteral("copy.sqlite"));
                QVERIFY(QFile::copy(path, copy));
                if (QFile::exists(path + QStringLiteral("-journal")))
                    QVERIFY(QFile::copy(path + QStringLiteral("-journal"), copy + QStringLiteral("-journal")));
                QCOMPARE(UserDefaults(copy).objectForKey(day), number(1));
            }
            defaults.setObject(3, rdas);
        }
        std::signal(SIGXFSZ, handler);
        QCOMPARE(stored(day), large);
        QCOMPARE(stored(rdas), number(3));
        QCOMPARE(files(), QStringList{QStringLiteral("preferences.sqlite")});
    }

    void aStoreThatIsRemovedWhileOpenIsWrittenAnew()
    {
        UserDefaults(path).setObject(1, day);
        {
            UserDefaults defaults(path);
            QCOMPARE(defaults.objectForKey(day), number(1));
            QVERIFY(QFile::remove(path));
            defaults.setObject(2, day);
            defaults.setObject(3, rdas);
            QVERIFY(QFile::remove(path));
            defaults.setObject(4, rdas);
        }
        QVERIFY(!stored(day).isValid()); // it was on the disk, and somebody took it away
        QCOMPARE(stored(rdas), number(4));
    }

    void aValueThatIsNoPropertyListIsKeptOnce()
    {
        UserDefaults(path).setObject(1, day);
        const QByteArray foreign("not a property list");
        QVERIFY(Connection(path).put(day, foreign));
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
        Connection other(path);
        QCOMPARE(other.bytes(day + QStringLiteral(".unread")), foreign);
        QCOMPARE(other.rows(), 3);
    }

    void aValueThatIsNotLookedAtIsNotKept()
    {
        UserDefaults(path).setObject(1, day);
        UserDefaults(path).setObject(2, day);
        QCOMPARE(Connection(path).rows(), 1);
    }

    void aSecondValueThatIsNotUnderstoodDoesNotReplaceTheFirst()
    {
        UserDefaults(path).setObject(1, day);
        for (const char *foreign : {"first", "second", "first", "third"}) {
            QVERIFY(Connection(path).put(day, foreign));
            UserDefaults defaults(path);
            QVERIFY(!defaults.objectForKey(day).isValid());
            defaults.setObject(2, day);
        }
        Connection other(path);
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
        QCOMPARE(Connection(path).rows(), 2);
    }

    void aKeyWithoutAValueHasNothingToKeep()
    {
        {
            UserDefaults defaults(path);
            defaults.keepUnread(day);
            defaults.setObject(1, day);
        }
        QCOMPARE(Connection(path).rows(), 1);
    }

    void aTransactionThatIsForgottenKeepsTheUnreadValueForTheNextWrite()
    {
        UserDefaults(path).setObject(1, day);
        QVERIFY(Connection(path).put(day, "foreign"));
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
        QCOMPARE(Connection(path).bytes(day + QStringLiteral(".unread")), QByteArray("foreign"));
    }

    void valuesStoredAsTextOrNumberAreNotUnderstoodButKept()
    {
        UserDefaults(path).setObject(1, day);
        QVERIFY(Connection(path).run("UPDATE defaults SET value = 'plain text'"));
        {
            UserDefaults defaults(path);
            QVERIFY(!defaults.objectForKey(day).isValid());
            defaults.setObject(2, day);
        }
        QCOMPARE(Connection(path).bytes(day + QStringLiteral(".unread")), QByteArray("plain text"));
    }
};

QTEST_GUILESS_MAIN(StoreFailuresTest)
#include "tst_storefailures.moc"
