// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "support/EnteredLog.h"
#include "support/LockedStore.h"

#include "platform/PropertyList.h"
#include "ui/controls/DatePicker.h"

#include <QLabel>
#include <QPushButton>
#include <QtTest>

namespace {

const QString today = EnteredLog::today;
const QString lastdate = QStringLiteral("LastDate");

QString unread(const QString &key)
{
    return key + QStringLiteral(".unread");
}

} // namespace

// What a run did not read, or could not, is never replaced without a copy, and what it could not write is taken in by
// the next.
class UnreadValuesTest final : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<EnteredLog> log;

    // A run whose store another program has for itself, from before its start until unlock().
    struct LockedRun {
        std::optional<LockedStore> lock;
        Run run;

        explicit LockedRun(Home &home)
            : lock(std::in_place, home.storePath(), LockedStore::Exclusive)
            , run(home)
        {
            run.launch();
        }
        void unlock() { lock.reset(); }
    };

private slots:
    void init() { log = std::make_unique<EnteredLog>(); }
    void cleanup() { log.reset(); }

    void aDayThatCouldNotBeReadKeepsItsEntriesFirst_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("entered");
        QTest::addColumn<QString>("after");
        QTest::addColumn<QString>("copy");
        const auto row
            = [](const char *name, const char *before, const char *entered, const char *after, const char *copy) {
                  QTest::newRow(name) << QString::fromLatin1(before) << QString::fromLatin1(entered)
                                      << QString::fromLatin1(after) << QString::fromLatin1(copy);
              };
        row("other foods", "A 30, B 40", "C 50, D 60", "A 30, B 40, C 50, D 60", "");
        row("nothing entered", "A 30, B 40", "", "A 30, B 40", "");
        row("the same entry", "A 30, B 40", "B 40, C 50", "A 30, B 40, C 50", "");
        row("another amount of a food, kept in a copy", "A 30, B 40", "B 70, C 50", "A 30, B 40, C 50", "B 70, C 50");
        row("an empty day", "", "A 30", "A 30", "");
    }

    void aDayThatCouldNotBeReadKeepsItsEntriesFirst()
    {
        QFETCH(QString, before);
        QFETCH(QString, entered);
        QFETCH(QString, after);
        QFETCH(QString, copy);
        log->storeToday(before);
        {
            LockedRun locked(log->home);
            QVERIFY(locked.run.controller.foods.empty());
            log->enter(locked.run, entered);
            locked.unlock();
            locked.run.controller.nextDay();
        }
        QCOMPARE(log->storedEntries(today), after);
        QCOMPARE(log->storedEntries(unread(today)), copy);
    }

    void itemsThatAreNoRecordStayInAJoinedDay()
    {
        log->storeToday(QStringLiteral("A 30"));
        QVariantList list = log->stored(today).toList();
        list.append(QStringLiteral("no record"));
        UserDefaults(log->storePath()).setObject(list, today);
        {
            LockedRun locked(log->home);
            log->enter(locked.run, QStringLiteral("B 40"));
            locked.unlock();
            locked.run.controller.nextDay();
        }
        QCOMPARE(log->storedEntries(today), QStringLiteral("A 30, B 40"));
        QCOMPARE(log->stored(today).toList().at(2), QVariant(QStringLiteral("no record")));
    }

    void aStoreThatTurnsUpAfterTheStartIsJoined()
    {
        log->storeToday(QStringLiteral("A 30"));
        const QString elsewhere = log->home.folder.filePath(QStringLiteral("elsewhere"));
        QVERIFY(QFile::rename(log->storePath(), elsewhere));
        {
            Run run(log->home);
            run.launch();
            log->enter(run, QStringLiteral("B 40"));
            QVERIFY(QFile::rename(elsewhere, log->storePath()));
            run.terminate();
        }
        QCOMPARE(log->storedEntries(today), QStringLiteral("A 30, B 40"));
    }

    void aStorePutInPlaceOfTheOneThatWasReadIsJoined()
    {
        log->storeToday(QStringLiteral("A 30"));
        const QString another = log->home.folder.filePath(QStringLiteral("another"));
        QVERIFY(QFile::copy(log->storePath(), another));
        {
            StoreView other(another);
            QVERIFY(other.put(today, PropertyList::write(QVariantList()).value()));
        }
        {
            Run run(log->home);
            run.launch();
            log->enter(run, QStringLiteral("B 40"));
            run.controller.nextDay();
            run.controller.previousDay();
            QVERIFY(QFile::rename(log->storePath(), log->home.folder.filePath(QStringLiteral("former"))));
            QVERIFY(QFile::rename(another, log->storePath()));
            log->enter(run, QStringLiteral("C 50"));
            run.terminate();
        }
        QCOMPARE(log->storedEntries(today), QStringLiteral("A 30, B 40, C 50"));
    }

    // The session's manager has everything saved, and the run goes on.
    void whatWasJoinedOnceIsJoinedAgainWithTheSameStoredEntries()
    {
        log->storeToday(QStringLiteral("A 30"));
        {
            LockedRun locked(log->home);
            log->enter(locked.run, QStringLiteral("B 40"));
            locked.unlock();
            locked.run.terminate();
            QCOMPARE(locked.run.names(), QStringList{QStringLiteral("B")});
            locked.run.edit(0, QStringLiteral("45"));
            log->enter(locked.run, QStringLiteral("C 50"));
            locked.run.terminate();
            locked.run.select({0});
            locked.run.controller.removeSelected();
            locked.run.terminate();
        }
        QCOMPARE(log->storedEntries(today), QStringLiteral("A 30, C 50"));
        QVERIFY(!log->stored(unread(today)).isValid());
    }

    void aDayReadAfterItWasJoinedIsReplacedAsAnyOther()
    {
        log->storeToday(QStringLiteral("A 30"));
        {
            LockedRun locked(log->home);
            log->enter(locked.run, QStringLiteral("B 40"));
            locked.unlock();
            locked.run.controller.nextDay();
            locked.run.controller.previousDay();
            QCOMPARE(locked.run.names(), (QStringList{QStringLiteral("A"), QStringLiteral("B")}));
            locked.run.select({0});
            locked.run.controller.removeSelected();
            locked.run.terminate();
        }
        QCOMPARE(log->storedEntries(today), QStringLiteral("B 40"));
        QVERIFY(!log->stored(unread(today)).isValid());
    }

    void allowancesThatCouldNotBeReadChangeOnlyWhereThePersonChangedThem_data()
    {
        QTest::addColumn<bool>("reset");
        QTest::addColumn<double>("energy");
        QTest::addColumn<double>("carbs");
        QTest::addColumn<double>("alcohol");
        QTest::newRow("one set") << false << 1234.0 << 250.0 << 9.0;
        QTest::newRow("all reset, one set") << true << 2000.0 << 250.0 << 0.0;
    }

    void allowancesThatCouldNotBeReadChangeOnlyWhereThePersonChangedThem()
    {
        QFETCH(bool, reset);
        {
            Run run(log->home);
            run.launch();
            log->setRDA(run, 0, "1234");
            log->setRDA(run, 6, "9");
            run.terminate();
        }
        {
            LockedRun locked(log->home);
            QCOMPARE(locked.run.controller.rdas[0], 2000.0F);
            if (reset)
                locked.run.controller.RDAreset();
            log->setRDA(locked.run, 1, "250");
            locked.unlock();
            locked.run.terminate();
        }
        const QVariantList values = log->stored(SettingsKeys::RDAs).toList();
        QCOMPARE(values.size(), 61);
        QTEST(values.at(0).toDouble(), "energy");
        QTEST(values.at(1).toDouble(), "carbs");
        QTEST(values.at(6).toDouble(), "alcohol");
        QVERIFY(!log->stored(unread(SettingsKeys::RDAs)).isValid());
    }

    void anyOtherValueThatCouldNotBeReadIsKeptInACopy()
    {
        log->storeToday(QString());
        const QVariant former = log->stored(lastdate);
        log->home.now = log->home.now.addDays(1);
        {
            LockedRun locked(log->home);
            locked.unlock();
            locked.run.terminate();
        }
        QCOMPARE(log->stored(lastdate).toDateTime(), log->home.now);
        QCOMPARE(log->stored(unread(lastdate)), former);
    }

    // From Auckland to Honolulu: the moment that was the 22nd there is the 21st here.
    void anotherZonesDayThatWasNotReadIsKeptInACopy_data()
    {
        QTest::addColumn<bool>("isread");
        QTest::newRow("only looked at in this run") << false;
        QTest::newRow("read in this run") << true;
    }

    void anotherZonesDayThatWasNotReadIsKeptInACopy()
    {
        QFETCH(bool, isread);
        const TimeZone auckland("Pacific/Auckland");
        const QString dayhere = QStringLiteral("2026_11_21");
        const QString daythere = QStringLiteral("2026_11_22");
        log->home.now = localInstant({2026, 11, 21}, {12, 0});
        log->storeToday(QStringLiteral("A 30"));
        log->home.now = localInstant({2026, 11, 22}, {12, 0});
        {
            Run run(log->home);
            UserDefaults::standardUserDefaults().setObject(false, QStringLiteral("RememberDate"));
            run.launch();
            if (isread) {
                run.controller.previousDay();
                run.controller.nextDay();
            }
            log->enter(run, QStringLiteral("B 40"));
            QCOMPARE(EnteredLog::entriesOf(run.store.peekObjectForKey(dayhere)), QStringLiteral("A 30"));
            const TimeZone honolulu("Pacific/Honolulu");
            run.controller.nextDay();
        }
        QCOMPARE(log->storedEntries(dayhere), QStringLiteral("B 40"));
        QCOMPARE(log->storedEntries(unread(dayhere)), isread ? QString() : QStringLiteral("A 30"));
        QVERIFY(isread || !log->stored(daythere).isValid());
    }

    // Two copies of the 21st: one holds A, B and an item that is no record, the other is no list at all.
    void keptEntriesAreOfferedOnTheirDayAndCanBeAdded()
    {
        const QVariant yesterdays = [this] {
            log->storeToday(QStringLiteral("A 30, B 40"));
            return log->stored(today);
        }();
        {
            UserDefaults store(log->storePath());
            static_cast<void>(store.objectForKey(today));
            store.setObject(QVariantList(), today);
            store.setObject(yesterdays.toList() + QVariantList{QStringLiteral("no record")}, unread(today));
            store.setObject(QStringLiteral("no list"), unread(today) + QStringLiteral(".2"));
        }
        Run run(log->home);
        run.show();
        QWidget *window = run.interface->mainWindow();
        QVERIFY(QTest::qWaitForWindowActive(window));
        const auto *text = window->findChild<QLabel *>(QStringLiteral("keptlabel"));
        auto *button = window->findChild<QPushButton *>(QStringLiteral("keptbutton"));
        QVERIFY(text->isVisible());
        QCOMPARE(text->text(), QStringLiteral("2 entries were kept from a save that could not be read."));
        QCOMPARE(button->text(), QStringLiteral("Add them…"));

        QTest::keyClick(window, Qt::Key_Right, Qt::AltModifier);
        QVERIFY(!text->isVisible());
        QTest::keyClick(window, Qt::Key_Left, Qt::AltModifier);
        QVERIFY(text->isVisible());
        log->enter(run, QStringLiteral("B 70"));
        QTest::keyClick(window, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(window, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(text->text(), QStringLiteral("1 entry was kept from a save that could not be read."));

        // A date typed but not entered is not where the entries go.
        run.controller.datepicker->setFocus();
        run.controller.datepicker->setSelectedSection(QDateTimeEdit::YearSection);
        QTest::keyClicks(run.controller.datepicker, QStringLiteral("2025"));
        run.controller.events.clear();
        QTest::mouseClick(button, Qt::LeftButton);
        QVERIFY(!text->isVisible());
        QCOMPARE(run.names(), (QStringList{QStringLiteral("B"), QStringLiteral("A")}));
        QCOMPARE(run.controller.foods.at(1)->curamount(), 30.0F);
        QCOMPARE(run.controller.logtable->model()->rowCount(), 2);
        QVERIFY(run.terminate());
        QCOMPARE(EnteredLog::entriesOf(run.store.objectForKey(today)), QStringLiteral("B 70, A 30"));
        QCOMPARE(EnteredLog::entriesOf(run.store.objectForKey(unread(today))), QStringLiteral("A 30, B 40"));
    }
};

QTEST_MAIN(UnreadValuesTest)
#include "tst_unreadvalues.moc"
