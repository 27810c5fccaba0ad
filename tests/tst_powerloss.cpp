// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "platform/PendingFile.h"
#include "platform/SqliteStatement.h"
#include "platform/SqliteStore.h"
#include "platform/UserDefaults.h"
#include "support/FaultyVfs.h"

#include <QtTest>

#include <sqlite3.h>

using Fault = FaultyVfs::Fault;
using Count = FaultyVfs::Count;
using Survivors = FaultyVfs::Survivors;

namespace {

const QString today = QStringLiteral("2015_05_11");
const QString yesterday = QStringLiteral("2015_05_10");
const QString rdas = QStringLiteral("RDAs");

// A day of so many records; different numbers give different days.
QVariant dayOf(int records, int number)
{
    QVariantList list;
    for (int i = 0; i < records; ++i)
        list.append(QByteArray::number(number * 1000 + i).repeated(40));
    return list;
}

QVariant rdasOf(float first)
{
    QVariantList list(61, 1.5F);
    list[0] = first;
    return list;
}

// Everything that the tests store, in the state of that number.
struct Contents {
    QVariant yesterdaylog;
    QVariant todaylog;
    QVariant rdalist;

    bool operator==(const Contents &) const = default;

    static Contents numbered(int number)
    {
        return {dayOf(20, 1), dayOf(20 + 15 * number, number), rdasOf(2000.0F + float(number))};
    }

    static Contents of(const UserDefaults &defaults)
    {
        return {defaults.objectForKey(yesterday), defaults.objectForKey(today), defaults.objectForKey(rdas)};
    }
};

// What the program saves when it ends; it has read all of it before.
bool save(UserDefaults &defaults, const Contents &contents)
{
    static_cast<void>(Contents::of(defaults));
    UserDefaults::Transaction transaction(defaults);
    defaults.setObject(contents.rdalist, rdas);
    defaults.setObject(contents.todaylog, today);
    return transaction.commit();
}

QString integrity(const QString &path)
{
    sqlite3 *database = nullptr;
    sqlite3_open(path.toUtf8().constData(), &database);
    QString verdict;
    {
        SqliteStatement check(database, "PRAGMA integrity_check");
        verdict = check.step() == SQLITE_ROW ? check.text(0) : QString();
    }
    sqlite3_close(database);
    return verdict;
}

} // namespace

// Cuts the power, fills the disk and breaks reads and writes at each operation of a save in turn.
class PowerLossTest final : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> home;
    QString folder;
    QString path;

    // A store in the first state, safely on the disk.
    void layOut()
    {
        home = std::make_unique<QTemporaryDir>();
        folder = home->filePath(QStringLiteral("provender"));
        path = folder + QStringLiteral("/preferences.sqlite");
        UserDefaults defaults(path);
        const Contents first = Contents::numbered(1);
        defaults.setObject(first.yesterdaylog, yesterday);
        QVERIFY(save(defaults, first));
    }

    [[nodiscard]] QStringList files() const { return QDir(folder).entryList(QDir::Files | QDir::Hidden); }

    // The store holds the first state or the second, and works: what a reader leaves of a journal is gone after the
    // next save.
    void verifyOldOrNew(int operation)
    {
        const Contents found = Contents::of(UserDefaults(path));
        const bool isold = found == Contents::numbered(1);
        QVERIFY2(isold || found == Contents::numbered(2), qPrintable(QString::number(operation)));
        QCOMPARE(integrity(path), QStringLiteral("ok"));
        (isold ? oldstates : newstates) += 1;
        {
            UserDefaults defaults(path);
            QVERIFY(save(defaults, Contents::numbered(3)));
        }
        QCOMPARE(files().join(u' '), QStringLiteral("preferences.sqlite"));
    }

    int oldstates = 0;
    int newstates = 0;

private slots:
    void init()
    {
        oldstates = 0;
        newstates = 0;
    }
    void cleanup() { home.reset(); }

    void aPowerCutLeavesTheLastSaveEntirelyOrNotAtAll_data()
    {
        QTest::addColumn<int>("survivors");
        QTest::addColumn<int>("seeds");
        QTest::addColumn<bool>("afterearlier");
        QTest::newRow("every unsynced write is lost") << int(Survivors::None) << 1 << false;
        QTest::newRow("every unsynced write survives") << int(Survivors::All) << 1 << false;
        QTest::newRow("some unsynced writes survive") << int(Survivors::Some) << 5 << false;
        QTest::newRow("some survive a later save of the run") << int(Survivors::Some) << 5 << true;
    }

    void aPowerCutLeavesTheLastSaveEntirelyOrNotAtAll()
    {
        QFETCH(int, survivors);
        QFETCH(int, seeds);
        QFETCH(bool, afterearlier);
        for (int seed = 0; seed < seeds; ++seed) {
            bool isfinished = false;
            for (int operation = 1; !isfinished; ++operation) {
                layOut();
                FaultyVfs disk;
                {
                    UserDefaults defaults(path);
                    if (afterearlier)
                        QVERIFY(save(defaults, Contents::numbered(1)));
                    disk.arm(Fault::PowerCut, operation, true);
                    isfinished = save(defaults, Contents::numbered(2)) && !disk.hasStruck();
                    // Where the save came through, the power fails right after it.
                    if (isfinished)
                        disk.arm(Fault::PowerCut, 1, true, Count::Everything);
                }
                disk.restart(Survivors(survivors), quint32(seed * 1000 + operation));
                if (isfinished)
                    QVERIFY2(Contents::of(UserDefaults(path)) == Contents::numbered(2), "a finished save lasts");
                verifyOldOrNew(operation);
                if (QTest::currentTestFailed())
                    return;
            }
        }
        QVERIFY2(oldstates > 5 * seeds, "too few cuts inside the save");
        QVERIFY(newstates > 0);
    }

    void aPowerCutDuringTheFirstSaveLeavesItEntirelyOrNotAtAll()
    {
        bool isfinished = false;
        int cuts = 0;
        for (int operation = 1; !isfinished; ++operation) {
            home = std::make_unique<QTemporaryDir>();
            folder = home->filePath(QStringLiteral("provender"));
            path = folder + QStringLiteral("/preferences.sqlite");
            FaultyVfs disk;
            {
                UserDefaults defaults(path);
                disk.arm(Fault::PowerCut, operation, true);
                isfinished = save(defaults, Contents::numbered(1)) && !disk.hasStruck();
                if (isfinished)
                    disk.arm(Fault::PowerCut, 1, true, Count::Everything);
            }
            disk.restart(Survivors::Some, quint32(operation));
            UserDefaults defaults(path);
            const bool isthere = defaults.objectForKey(today).isValid();
            QCOMPARE(defaults.objectForKey(today), isthere ? Contents::numbered(1).todaylog : QVariant());
            QCOMPARE(defaults.objectForKey(rdas), isthere ? Contents::numbered(1).rdalist : QVariant());
            QVERIFY(isthere || !isfinished);
            QVERIFY(save(defaults, Contents::numbered(2)));
            QVERIFY(!files().contains(QStringLiteral("preferences.sqlite.unusable")));
            ++cuts;
        }
        QVERIFY(cuts > 5);
    }

    void aPowerCutWhileAnEarlierOneIsRepairedLosesNothing()
    {
        // The first cut leaves a journal that the next start plays back; the second cut hits that start.
        bool isfinished = false;
        for (int operation = 1; !isfinished; ++operation) {
            layOut();
            FaultyVfs disk;
            {
                UserDefaults defaults(path);
                disk.arm(Fault::PowerCut, 13, true);
                QVERIFY(!save(defaults, Contents::numbered(2)));
            }
            disk.restart(Survivors::All);
            {
                const UserDefaults defaults(path);
                disk.arm(Fault::PowerCut, operation, true);
                static_cast<void>(defaults.objectForKey(today));
                isfinished = !disk.hasStruck();
            }
            disk.restart(Survivors::Some, quint32(operation));
            QCOMPARE(Contents::of(UserDefaults(path)), Contents::numbered(1));
            QVERIFY(!isfinished || operation > 3);
        }
    }

    void whatAFaultKeptFromTheDiskIsWrittenLater_data()
    {
        QTest::addColumn<int>("fault");
        QTest::addColumn<bool>("lasting");
        QTest::addColumn<int>("count");
        QTest::newRow("one write finds the disk full") << int(Fault::DiskFull) << false << int(Count::Writing);
        QTest::newRow("the disk is full from a write on") << int(Fault::DiskFull) << true << int(Count::Writing);
        QTest::newRow("one write fails") << int(Fault::InputOutput) << false << int(Count::Writing);
        QTest::newRow("writes fail from one on") << int(Fault::InputOutput) << true << int(Count::Writing);
        QTest::newRow("one operation fails") << int(Fault::InputOutput) << false << int(Count::Everything);
        QTest::newRow("all operations fail from one on") << int(Fault::InputOutput) << true << int(Count::Everything);
    }

    void whatAFaultKeptFromTheDiskIsWrittenLater()
    {
        QFETCH(int, fault);
        QFETCH(bool, lasting);
        QFETCH(int, count);
        int hits = 0;
        bool isfinished = false;
        for (int operation = 1; !isfinished; ++operation) {
            layOut();
            FaultyVfs disk;
            const Contents last = Contents::numbered(3);
            {
                UserDefaults defaults(path);
                disk.arm(Fault(fault), operation, lasting, Count(count));
                static_cast<void>(defaults.objectForKey(today));
                defaults.setObject(Contents::numbered(2).todaylog, today);
                QCOMPARE(defaults.objectForKey(today), Contents::numbered(2).todaylog);
                defaults.setObject(last.todaylog, today); // edited again
                QCOMPARE(defaults.objectForKey(today), last.todaylog);
                isfinished = !disk.hasStruck();
                hits += isfinished ? 0 : 1;
                disk.disarm();
                QVERIFY(save(defaults, last)); // the program quits
                QVERIFY(defaults.synchronize());
            }
            QCOMPARE(Contents::of(UserDefaults(path)), last);
            QCOMPARE(integrity(path), QStringLiteral("ok"));
            QCOMPARE(files().join(u' '), QStringLiteral("preferences.sqlite")); // an error is no damage
        }
        QVERIFY2(hits > 10, "too few operations failed");
    }

    void aFaultDuringTheFirstSaveOnlyDelaysIt_data()
    {
        QTest::addColumn<bool>("isthere");
        QTest::newRow("without a file") << false;
        QTest::newRow("into a database without the table") << true;
    }

    void aFaultDuringTheFirstSaveOnlyDelaysIt()
    {
        QFETCH(bool, isthere);
        bool isfinished = false;
        int hits = 0;
        for (int operation = 1; !isfinished; ++operation) {
            home = std::make_unique<QTemporaryDir>();
            folder = home->filePath(QStringLiteral("provender"));
            path = folder + QStringLiteral("/preferences.sqlite");
            if (isthere) {
                QVERIFY(QDir().mkpath(folder));
                sqlite3 *database = nullptr;
                sqlite3_open(path.toUtf8().constData(), &database);
                QCOMPARE(sqlite3_exec(database, "CREATE TABLE other(x)", nullptr, nullptr, nullptr), SQLITE_OK);
                sqlite3_close(database);
            }
            FaultyVfs disk;
            const Contents contents = Contents::numbered(1);
            {
                UserDefaults defaults(path);
                disk.arm(Fault::InputOutput, operation, true, Count::Everything);
                defaults.setObject(contents.yesterdaylog, yesterday);
                isfinished = !disk.hasStruck();
                hits += isfinished ? 0 : 1;
                disk.disarm();
                QVERIFY(save(defaults, contents));
            }
            QCOMPARE(Contents::of(UserDefaults(path)), contents);
            QCOMPARE(files().join(u' '), QStringLiteral("preferences.sqlite"));
        }
        QVERIFY2(hits > 10, "too few operations failed");
    }

    void aFaultWhileAFormerValueIsKeptLosesNeitherValue_data()
    {
        QTest::addColumn<bool>("istaken");
        QTest::newRow("under its first name") << false;
        QTest::newRow("under its second name")
            << true; // the first one's value, which is read first, has pages of its own
    }

    void aFaultWhileAFormerValueIsKeptLosesNeitherValue()
    {
        QFETCH(bool, istaken);
        const QByteArray earlier(9000, 'e');
        bool isfinished = false;
        int hits = 0;
        for (int operation = 1; !isfinished; ++operation) {
            layOut();
            if (istaken)
                UserDefaults(path).setObject(earlier, today + QStringLiteral(".unread"));
            FaultyVfs disk;
            {
                UserDefaults defaults(path);
                defaults.keepUnread(today);
                disk.arm(Fault::InputOutput, operation, true, Count::Everything);
                defaults.setObject(Contents::numbered(2).todaylog, today);
                isfinished = !disk.hasStruck();
                hits += isfinished ? 0 : 1;
                disk.disarm();
            }
            const UserDefaults defaults(path);
            QCOMPARE(defaults.objectForKey(today), Contents::numbered(2).todaylog);
            QString kept = today + QStringLiteral(".unread");
            if (istaken) {
                QCOMPARE(defaults.objectForKey(kept), QVariant(earlier));
                kept += QStringLiteral(".2");
            }
            QCOMPARE(defaults.objectForKey(kept), Contents::numbered(1).todaylog);
        }
        QVERIFY2(hits > 10, "too few operations failed");
    }

    void whatIsLeftBesideTheStoreIsThereEntirelyOrNotAtAll_data()
    {
        QTest::addColumn<bool>("istakenin"); // the fault comes while the file is taken in, not while it is left
        QTest::addColumn<int>("fault");
        QTest::addColumn<int>("count");
        QTest::addColumn<int>("survivors");
        for (const bool istakenin : {false, true}) {
            const auto row = [istakenin](const char *what, Fault fault, Count count, Survivors survivors) {
                QTest::addRow("%s, %s", istakenin ? "taken in" : "left", what)
                    << istakenin << int(fault) << int(count) << int(survivors);
            };
            row("a kill", Fault::PowerCut, Count::Writing, Survivors::All);
            row("the power fails", Fault::PowerCut, Count::Writing, Survivors::Some);
            row("the disk is full", Fault::DiskFull, Count::Writing, Survivors::All);
            row("a write fails", Fault::InputOutput, Count::Writing, Survivors::All);
            row("a read or a write fails", Fault::InputOutput, Count::Everything, Survivors::All);
        }
    }

    void whatIsLeftBesideTheStoreIsThereEntirelyOrNotAtAll()
    {
        QFETCH(bool, istakenin);
        QFETCH(int, fault);
        QFETCH(int, count);
        QFETCH(int, survivors);
        bool isfinished = false;
        int hits = 0;
        for (int operation = 1; !isfinished; ++operation) {
            layOut();
            const QString elsewhere = home->filePath(QStringLiteral("elsewhere"));
            QVERIFY(QFile::rename(path, elsewhere));
            QVERIFY(QDir().mkdir(path)); // nothing can be read or written there
            FaultyVfs disk;
            bool isleft = false;
            {
                UserDefaults defaults(path);
                QVERIFY(!save(defaults, Contents::numbered(2)));
                if (!istakenin)
                    disk.arm(Fault(fault), operation, true, Count(count));
                isleft = defaults.leavePending();
                if (!istakenin)
                    isfinished = !disk.hasStruck();
                // One that could not be written holds nothing, and would be taken for one that was.
                QVERIFY(isleft || Fault(fault) == Fault::PowerCut || !QFile::exists(PendingFile::pathOf(path, 1)));
            }
            if (!istakenin)
                disk.restart(Survivors(survivors), quint32(operation));
            QVERIFY(QDir().rmdir(path));
            QVERIFY(QFile::rename(elsewhere, path));
            if (istakenin) {
                {
                    UserDefaults defaults(path);
                    disk.arm(Fault(fault), operation, true, Count(count));
                    defaults.takeInPending();
                    isfinished = !disk.hasStruck();
                }
                disk.restart(Survivors(survivors), quint32(operation));
            }
            hits += isfinished ? 0 : 1;
            {
                UserDefaults defaults(path);
                defaults.takeInPending();
                const Contents found = Contents::of(defaults);
                QVERIFY2(found == Contents::numbered(2) || (!isleft && found == Contents::numbered(1)),
                    qPrintable(QString::number(operation)));
                QVERIFY(save(defaults, Contents::numbered(3)));
            }
            QCOMPARE(files().join(u' '), QStringLiteral("preferences.sqlite"));
            QCOMPARE(integrity(path), QStringLiteral("ok"));
        }
        QVERIFY2(hits > 8, "too few operations failed");
    }

    void aFaultThatIsOverIsOvercomeByASecondTry()
    {
        layOut();
        FaultyVfs disk;
        SqliteStore store(path);
        QCOMPARE(store.read(today).answer, SqliteStore::Answer::Found);
        disk.arm(Fault::InputOutput, 1, false);
        QVERIFY(store.write({rdas}, [](const QString &, const std::optional<QByteArray> &) {
            return SqliteStore::Change{"later", {}};
        }));
        QVERIFY(disk.hasStruck());
        QCOMPARE(store.read(rdas).bytes, QByteArray("later"));
    }

    void aWriteThatTheDiskLostIsNoticedAndWhatWasSavedIsSavedAnew()
    {
        bool isfinished = false;
        int noticed = 0;
        for (int operation = 1; !isfinished; ++operation) {
            layOut();
            FaultyVfs disk;
            {
                UserDefaults defaults(path);
                disk.arm(Fault::LostWrite, operation, false);
                QVERIFY(save(defaults, Contents::numbered(2)));
                isfinished = !disk.hasStruck();
            }
            const UserDefaults defaults(path);
            QCOMPARE(defaults.objectForKey(today), Contents::numbered(2).todaylog);
            QCOMPARE(defaults.objectForKey(rdas), Contents::numbered(2).rdalist);
            noticed += files().size() > 1 ? 1 : 0;
        }
        QVERIFY(noticed > 2);
    }

    void aFaultDuringTheLastSaveLeavesAllOrNothing()
    {
        bool isfinished = false;
        for (int operation = 1; !isfinished; ++operation) {
            layOut();
            FaultyVfs disk;
            {
                UserDefaults defaults(path);
                disk.arm(Fault::DiskFull, operation, true);
                isfinished = save(defaults, Contents::numbered(2));
            }
            disk.disarm();
            verifyOldOrNew(operation);
            if (QTest::currentTestFailed())
                return;
        }
        QVERIFY(oldstates > 5);
        QVERIFY(newstates > 0);
    }
};

QTEST_GUILESS_MAIN(PowerLossTest)
#include "tst_powerloss.moc"
