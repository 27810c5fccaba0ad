// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "support/EnteredLog.h"
#include "support/LockedStore.h"
#include "support/StoreView.h"

#include "platform/PropertyList.h"

#include <QtTest>

#include <sys/stat.h>

// What a shutdown cannot write is left beside the store and taken in by the next start.
class PendingFileTest final : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<EnteredLog> log;

    [[nodiscard]] QString pendingPath() const { return log->storePath() + QStringLiteral(".pending"); }

    [[nodiscard]] QString secondPendingPath() const { return pendingPath() + QStringLiteral("-2"); }

    // Today holds "A 30, B 40". A run removes A and adds "C 50", sets the allowance of carbs and another setting, and
    // cannot save.
    void leave(LockedStore::Lock lock, bool afterreading)
    {
        log->storeToday(QStringLiteral("A 30, B 40"));
        std::optional<LockedStore> locked;
        if (!afterreading)
            locked.emplace(log->storePath(), lock);
        std::optional<Run> run(std::in_place, log->home);
        run->launch();
        if (afterreading)
            locked.emplace(log->storePath(), lock);
        if (run->names().contains(QStringLiteral("A"))) {
            run->select({0});
            run->controller.removeSelected();
        }
        log->enter(*run, QStringLiteral("C 50"));
        log->setRDA(*run, 1, "250");
        run->store.setObject(false, QStringLiteral("UseP"));
        QElapsedTimer timer;
        timer.start();
        QVERIFY(run->terminate());
        run.reset();
        QVERIFY2(timer.elapsed() < 2000, "one wait for the lock, and no more");
    }

private slots:
    void init() { log = std::make_unique<EnteredLog>(); }
    void cleanup() { log.reset(); }

    void whereAllIsSavedNothingIsLeft()
    {
        UserDefaults store(log->storePath());
        QVERIFY(store.leavePending());
        QVERIFY(!QFile::exists(pendingPath()));
    }

    void whatTheRunHadReadIsReplacedAndTheFileGoes()
    {
        leave(LockedStore::Shared, true);
        struct stat status { };
        QCOMPARE(::stat(QFile::encodeName(pendingPath()).constData(), &status), 0);
        QCOMPARE(status.st_mode & 07777U, 0600U);
        QCOMPARE(log->storedEntries(EnteredLog::today), QStringLiteral("A 30, B 40"));
        Run run(log->home);
        run.launch();
        QCOMPARE(run.names(), (QStringList{QStringLiteral("B"), QStringLiteral("C")}));
        QCOMPARE(run.controller.rdas[1], 250.0F);
        QVERIFY(!run.store.boolForKey(QStringLiteral("UseP")));
        QVERIFY(!QFile::exists(pendingPath()));
        QVERIFY(!QFile::exists(pendingPath() + QStringLiteral("-journal")));
        QVERIFY(run.store.unreadObjectsForKey(EnteredLog::today).isEmpty());
    }

    void whatTheRunCouldNotReadIsJoined()
    {
        leave(LockedStore::Exclusive, false);
        Run run(log->home);
        run.launch();
        QCOMPARE(run.names(), (QStringList{QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")}));
        QCOMPARE(run.controller.rdas[0], 2000.0F);
        QCOMPARE(run.controller.rdas[1], 250.0F);
        QVERIFY(!QFile::exists(pendingPath()));
    }

    void whatChangedSinceTheRunHadReadItIsJoined()
    {
        leave(LockedStore::Shared, true);
        {
            StoreView other(log->storePath());
            const QVariantList former
                = PropertyList::read(other.bytes(EnteredLog::today)).value_or(QVariant()).toList();
            QVERIFY(other.put(EnteredLog::today, PropertyList::write(former.mid(0, 1)).value()));
        }
        Run run(log->home);
        run.launch();
        QCOMPARE(run.names(), (QStringList{QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")}));
    }

    void whatIsEnteredAfterwardsIsLeftToo()
    {
        log->storeToday(QStringLiteral("A 30"));
        {
            Run run(log->home);
            run.launch();
            const LockedStore locked(log->storePath(), LockedStore::Shared);
            log->enter(run, QStringLiteral("C 50"));
            QVERIFY(run.terminate()); // the session's manager asks, and the run goes on
            log->enter(run, QStringLiteral("D 60"));
            QVERIFY(run.terminate());
        }
        Run run(log->home);
        run.launch();
        QCOMPARE(run.names(), (QStringList{QStringLiteral("A"), QStringLiteral("C"), QStringLiteral("D")}));
    }

    // The file is set aside for the record in it that is none; what else was in it must not wait for this run's end.
    void whatIsTakenInAndCannotBeSavedIsLeftAtOnce()
    {
        leave(LockedStore::Shared, true);
        QVERIFY(StoreView(pendingPath()).put(QStringLiteral("a key"), "no record"));
        const LockedStore locked(log->storePath(), LockedStore::Shared);
        Run run(log->home);
        run.launch();
        QCOMPARE(run.names(), (QStringList{QStringLiteral("B"), QStringLiteral("C")}));
        QVERIFY(QFile::exists(pendingPath()));
    }

    void aFileThatHoldsNothingGoes()
    {
        leave(LockedStore::Shared, true);
        QVERIFY(StoreView(pendingPath()).run("DELETE FROM defaults"));
        Run run(log->home);
        run.launch();
        QCOMPARE(run.names(), (QStringList{QStringLiteral("A"), QStringLiteral("B")}));
        QVERIFY(!QFile::exists(pendingPath()));
    }

    void onlyDaysAndAllowancesAreJoined()
    {
        const QString key = QStringLiteral("AddFoodSheetSize");
        const QVariantList mine{qint64(700), qint64(500)};
        UserDefaults(log->storePath()).setObject(QVariantList{qint64(900), qint64(600)}, key);
        {
            const LockedStore locked(log->storePath(), LockedStore::Exclusive);
            Run run(log->home);
            run.launch();
            static_cast<void>(run.store.objectForKey(key)); // in vain
            run.store.setObject(mine, key);
            QVERIFY(run.terminate());
        }
        Run run(log->home);
        run.launch();
        QCOMPARE(run.store.objectForKey(key), QVariant(mine));
    }

    void whatTheRunDidNotUnderstandIsKeptInACopy()
    {
        log->storeToday(QString());
        QVERIFY(StoreView(log->storePath()).put(EnteredLog::today, "no property list"));
        {
            Run run(log->home);
            run.launch();
            log->enter(run, QStringLiteral("C 50"));
            const LockedStore locked(log->storePath(), LockedStore::Shared);
            QVERIFY(run.terminate());
        }
        {
            Run run(log->home);
            run.launch();
            QCOMPARE(run.names(), QStringList{QStringLiteral("C")});
        }
        StoreView store(log->storePath());
        QStringList keys = store.column("SELECT key FROM defaults WHERE value = CAST('no property list' AS BLOB)");
        QCOMPARE(keys.size(), 1);
        QVERIFY(keys.first().startsWith(EnteredLog::today) && keys.first() != EnteredLog::today);
    }

    // The run shows its own entry alone; the store holds the former ones too.
    void whatTheRunHadJoinedIsJoinedAgain()
    {
        log->storeToday(QStringLiteral("A 30, B 40"));
        {
            std::optional<LockedStore> locked(std::in_place, log->storePath(), LockedStore::Exclusive);
            Run run(log->home);
            run.launch();
            log->enter(run, QStringLiteral("C 50"));
            locked.reset();
            QVERIFY(run.terminate()); // the session's manager asks, and the run goes on
            log->enter(run, QStringLiteral("D 60"));
            locked.emplace(log->storePath(), LockedStore::Shared);
            QVERIFY(run.terminate());
        }
        Run run(log->home);
        run.launch();
        QCOMPARE(log->storedEntries(EnteredLog::today), QStringLiteral("A 30, B 40, C 50, D 60"));
    }

    void aStartThatStillCannotWriteShowsTheValuesAndLeavesThemAgain()
    {
        leave(LockedStore::Shared, true);
        {
            const LockedStore locked(log->storePath(), LockedStore::Shared);
            Run run(log->home);
            run.launch();
            QCOMPARE(run.names(), (QStringList{QStringLiteral("B"), QStringLiteral("C")}));
            log->enter(run, QStringLiteral("D 60"));
            QVERIFY(run.terminate());
            QVERIFY(QFile::exists(pendingPath()));
        }
        Run run(log->home);
        run.launch();
        QCOMPARE(run.names(), (QStringList{QStringLiteral("B"), QStringLiteral("C"), QStringLiteral("D")}));
        QVERIFY(!QFile::exists(pendingPath()));
    }

    void aFileThatCouldNotBeRemovedAddsNothingTheSecondTime()
    {
        leave(LockedStore::Exclusive, false);
        QVERIFY(QFile::copy(pendingPath(), log->home.folder.filePath(QStringLiteral("kept"))));
        log->storeToday(QString());
        QVERIFY(QFile::copy(log->home.folder.filePath(QStringLiteral("kept")), pendingPath()));
        Run run(log->home);
        run.launch();
        QCOMPARE(run.names(), (QStringList{QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")}));
    }

    void theNextSaveThatSucceedsRemovesTheFile()
    {
        log->storeToday(QStringLiteral("A 30"));
        Run run(log->home);
        run.launch();
        {
            const LockedStore locked(log->storePath(), LockedStore::Shared);
            QVERIFY(run.terminate()); // the session's manager asks, and the run goes on
        }
        QVERIFY(QFile::exists(pendingPath()));
        run.controller.nextDay();
        QVERIFY(!QFile::exists(pendingPath()));
    }

    void aFileThatIsNotUnderstoodIsSetAside_data()
    {
        QTest::addColumn<QByteArray>("record");
        QTest::newRow("no database") << QByteArray();
        QTest::newRow("a record that is no property list") << QByteArray("what");
        QTest::newRow("a record without a value") << PropertyList::write(QVariantMap()).value();
    }

    void aFileThatIsNotUnderstoodIsSetAside()
    {
        QFETCH(QByteArray, record);
        leave(LockedStore::Shared, true);
        if (record.isEmpty()) {
            writeFile(pendingPath(), "no database");
        } else {
            StoreView other(pendingPath());
            QVERIFY(other.put(QStringLiteral("UseP"), record));
        }
        Run run(log->home);
        run.launch();
        const QStringList without{QStringLiteral("A"), QStringLiteral("B")};
        QCOMPARE(run.names(), record.isEmpty() ? without : (QStringList{QStringLiteral("B"), QStringLiteral("C")}));
        QVERIFY(run.store.boolForKey(QStringLiteral("UseP")));
        QVERIFY(!QFile::exists(pendingPath()));
        QVERIFY(QFile::exists(pendingPath() + QStringLiteral(".unusable")));
    }

    void anAllowanceSurvivesTwoRunsThatCouldSaveNothing()
    {
        leave(LockedStore::Exclusive, false);
        {
            const LockedStore locked(log->storePath(), LockedStore::Exclusive);
            Run run(log->home);
            run.launch();
            QCOMPARE(run.controller.rdas[1], 250.0F);
            log->setRDA(run, 2, "40");
            QVERIFY(run.terminate());
        }
        Run run(log->home);
        run.launch();
        QCOMPARE(run.controller.rdas[1], 250.0F);
        QCOMPARE(run.controller.rdas[2], 40.0F);
    }

    // A run that cannot read what another left, and can save nothing either.
    void aFileThatCannotBeReadNowIsLeftForAnotherStart()
    {
        leave(LockedStore::Shared, true);
        {
            const LockedStore pending(pendingPath(), LockedStore::Exclusive);
            Run run(log->home);
            run.launch();
            QCOMPARE(run.names(), (QStringList{QStringLiteral("A"), QStringLiteral("B")}));
            log->enter(run, QStringLiteral("D 60"));
            {
                const LockedStore locked(log->storePath(), LockedStore::Shared);
                QVERIFY(run.terminate()); // the session's manager asks, and the run goes on
            }
            QVERIFY(QFile::exists(secondPendingPath()));
            QVERIFY(run.terminate());
            QVERIFY(!QFile::exists(secondPendingPath()));
            QVERIFY(QFile::exists(pendingPath()));
        }
        Run run(log->home);
        run.launch();
        QCOMPARE(run.names(),
            (QStringList{QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("D"), QStringLiteral("C")}));
        QVERIFY(!QFile::exists(pendingPath()));
    }

    void twoFilesAreTakenInOneAfterTheOther()
    {
        leave(LockedStore::Shared, true);
        {
            const LockedStore pending(pendingPath(), LockedStore::Exclusive);
            const LockedStore locked(log->storePath(), LockedStore::Shared);
            Run run(log->home);
            run.launch();
            log->enter(run, QStringLiteral("D 60"));
            QVERIFY(run.terminate());
        }
        QVERIFY(QFile::exists(secondPendingPath()));
        Run run(log->home);
        run.launch();
        QCOMPARE(run.names(),
            (QStringList{QStringLiteral("B"), QStringLiteral("C"), QStringLiteral("A"), QStringLiteral("D")}));
        QVERIFY(!QFile::exists(pendingPath()));
        QVERIFY(!QFile::exists(secondPendingPath()));
    }

    void nothingIsLeftWhereNothingCanBeWritten()
    {
        log->storeToday(QStringLiteral("A 30"));
        Run run(log->home);
        run.launch();
        const LockedStore locked(log->storePath(), LockedStore::Shared);
        QVERIFY(QDir().mkdir(pendingPath()));
        for (int number = 2; number <= 9; ++number)
            QVERIFY(QDir().mkdir(pendingPath() + u'-' + QString::number(number)));
        QVERIFY(!run.terminate());
        for (int number = 2; number <= 9; ++number)
            QVERIFY(QDir().rmdir(pendingPath() + u'-' + QString::number(number)));
        QVERIFY(QDir().rmdir(pendingPath()));
    }
};

QTEST_MAIN(PendingFileTest)
#include "tst_pendingfile.moc"
