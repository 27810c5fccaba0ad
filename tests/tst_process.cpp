// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "tests/support/Program.h"

#include <QtTest>

#include <array>
#include <csignal>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const QString day = QStringLiteral("2015_05_11");
const QString program = QStringLiteral(PROVENDER);
constexpr const char *newFood = "Butter, salted";

// What stands on the screen when the end is asked for.
enum class Open { Nothing, AddFoodSheet, Preferences, AmountEditor, FileMenu, UnitMenu, Calendar };
enum class Road { Terminate, Interrupt, HangUp, CloseWindow, Quit };

} // namespace

// The program as it is shipped, run on a display and driven by keys: by which roads it ends, and what it leaves.
class ProcessTest final : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<XServer> server;
    std::unique_ptr<ProgramHome> home;

    // A store with a day of three foods that the program opens, and a list of every write that is made to it.
    void layOut() const
    {
        {
            UserDefaults store(home->storePath());
            QVariantList records;
            for (const char *name : {"Apple juice", "Bread", "Cheese"})
                records.append(FoodRecord::archivedDataWithRootObject(Food(QString::fromLatin1(name))));
            store.setObject(records, day);
            store.setObject(QVariantList(61, 1.5F), QStringLiteral("RDAs"));
            store.setObject(QDateTime({2015, 5, 11}, {12, 0}, Qt::UTC), QStringLiteral("LastDate"));
            store.setObject(QByteArray(), QStringLiteral("WindowGeometry"));
            store.setObject(QByteArray(), QStringLiteral("WindowSplitters"));
        }
        StoreView view(home->storePath());
        QVERIFY(
            view.run("CREATE TABLE writes(key TEXT);"
                     "CREATE TRIGGER replaced AFTER UPDATE ON defaults BEGIN INSERT INTO writes VALUES(new.key); END;"
                     "CREATE TRIGGER added AFTER INSERT ON defaults BEGIN INSERT INTO writes VALUES(new.key); END"));
    }

    [[nodiscard]] QStringList writes() const
    {
        return StoreView(home->storePath()).column("SELECT key FROM writes ORDER BY key");
    }
    [[nodiscard]] static QStringList lastSave()
    {
        return {day, QStringLiteral("LastDate"), QStringLiteral("RDAs"), QStringLiteral("WindowGeometry"),
            QStringLiteral("WindowSplitters")};
    }

    // Adds a food by the sheet, so that the day shown is not the one stored.
    void addFood(Program &run) const
    {
        server->press({QStringLiteral("ctrl+n")});
        QVERIFY(run.hasWindows(2));
        server->type(QString::fromLatin1(newFood).toLower());
        server->press({QStringLiteral("Return")});
        QVERIFY(run.hasWindows(1));
    }

    void bring(Program &run, Open what) const
    {
        switch (what) {
        case Open::Nothing:
            break;
        case Open::AddFoodSheet:
            server->press({QStringLiteral("ctrl+n")});
            QVERIFY(run.hasWindows(2));
            break;
        case Open::Preferences:
            server->press({QStringLiteral("ctrl+comma")});
            QVERIFY(run.hasWindows(2));
            break;
        case Open::AmountEditor: // of the food added last
            server->press({QStringLiteral("ctrl+End")});
            server->type(QStringLiteral("25.5"));
            break;
        case Open::FileMenu:
            server->press({QStringLiteral("alt+f")});
            QVERIFY(run.hasWindows(2));
            break;
        case Open::UnitMenu:
            server->press({QStringLiteral("space")});
            QVERIFY(run.hasWindows(2));
            break;
        case Open::Calendar:
            server->press(QStringList(4, QStringLiteral("shift+Tab")) + QStringList(QStringLiteral("F4")));
            QVERIFY(run.hasWindows(2));
            break;
        }
    }

    void take(Program &run, Road road) const
    {
        switch (road) {
        case Road::Terminate:
            run.signal(SIGTERM);
            break;
        case Road::Interrupt:
            run.signal(SIGINT);
            break;
        case Road::HangUp:
            run.signal(SIGHUP);
            break;
        case Road::CloseWindow:
            server->closeWindow(run.windows().first());
            break;
        case Road::Quit:
            server->press({QStringLiteral("ctrl+q")});
            break;
        }
    }

    // Its exit code and what it says.
    [[nodiscard]] std::pair<int, QByteArray> grabScreen(const QStringList &arguments) const
    {
        QProcess grab;
        grab.setProcessEnvironment(home->environment(server->name()));
        grab.start(QStringLiteral(GRAB_SCREEN), arguments);
        grab.waitForFinished();
        return {grab.exitCode(), grab.readAllStandardError()};
    }

private slots:
    void theExitStatusSaysThatNothingCouldBeSavedOrLeft()
    {
        Program run(program, *home, server.get());
        QVERIFY(run.startShown());
        StoreView reader(home->storePath());
        QVERIFY(reader.run("BEGIN; SELECT count(*) FROM defaults"));
        const QDir folder = QFileInfo(home->storePath()).dir();
        for (const char *name : {"", "-2", "-3", "-4", "-5", "-6", "-7", "-8", "-9"})
            QVERIFY(folder.mkdir(QStringLiteral("preferences.sqlite.pending") + QLatin1String(name)));
        run.signal(SIGTERM);
        QCOMPARE(run.waitForEnd(), 1);
    }

    void whatCannotBeSavedAtTheEndIsLeftBesideTheStore()
    {
        Program run(program, *home, server.get());
        QVERIFY(run.startShown());
        addFood(run);
        {
            StoreView reader(home->storePath());
            QVERIFY(reader.run("BEGIN; SELECT count(*) FROM defaults"));
            run.signal(SIGTERM);
            QCOMPARE(run.waitForEnd(), 0);
        }
        QVERIFY(QFile::exists(home->storePath() + QStringLiteral(".pending")));
        QCOMPARE(home->entries(day).size(), 3);
        Program next(program, *home, server.get());
        QVERIFY(next.startShown());
        next.signal(SIGTERM);
        QCOMPARE(next.waitForEnd(), 0);
        QCOMPARE(home->entries(day).size(), 4);
        QVERIFY(!QFile::exists(home->storePath() + QStringLiteral(".pending")));
    }

    void initTestCase()
    {
        server = std::make_unique<XServer>();
        QVERIFY(!server->name().isEmpty());
    }
    void init()
    {
        home = std::make_unique<ProgramHome>();
        layOut();
    }
    void cleanup() { home.reset(); }

    void everyRoadSavesOnceAndEndsWell_data()
    {
        QTest::addColumn<Road>("road");
        QTest::addColumn<Open>("open");
        const std::pair<const char *, Road> roads[] = {{"SIGTERM", Road::Terminate}, {"SIGINT", Road::Interrupt},
            {"SIGHUP", Road::HangUp}, {"closing the window", Road::CloseWindow}, {"Quit", Road::Quit}};
        const std::pair<const char *, Open> states[] = {{"nothing open", Open::Nothing},
            {"the add-food sheet open", Open::AddFoodSheet}, {"the preferences open", Open::Preferences},
            {"an amount being edited", Open::AmountEditor}, {"a menu open", Open::FileMenu},
            {"the units open", Open::UnitMenu}, {"the calendar open", Open::Calendar}};
        for (const auto &[roadname, road] : roads) {
            for (const auto &[statename, open] : states) {
                // A sheet keeps the window under it from being closed, and a popup has the keyboard; one signal is
                // enough for the popups.
                const bool issheet = open == Open::AddFoodSheet || open == Open::Preferences;
                const bool ispopup = !issheet && open != Open::Nothing && open != Open::AmountEditor;
                if ((road == Road::CloseWindow && issheet) || (ispopup && road != Road::Terminate))
                    continue;
                QTest::addRow("%s with %s", roadname, statename) << road << open;
            }
        }
    }

    void everyRoadSavesOnceAndEndsWell()
    {
        QFETCH(Road, road);
        QFETCH(Open, open);
        Program run(program, *home, server.get());
        QVERIFY(run.startShown());
        addFood(run);
        bring(run, open);
        if (QTest::currentTestFailed())
            return;
        QVERIFY(run.settle());
        QVERIFY(writes().isEmpty());

        take(run, road);
        QCOMPARE(run.waitForEnd(), 0);
        QCOMPARE(run.output(), QByteArray());
        QCOMPARE(writes(), lastSave());
        QStringList foods = {QStringLiteral("Apple juice 100"), QStringLiteral("Bread 100"),
            QStringLiteral("Cheese 100"), QStringLiteral("Butter, salted 100")};
        if (open == Open::AmountEditor)
            foods.last() = QStringLiteral("Butter, salted 25.5");
        QCOMPARE(home->entries(day), foods);
        QCOMPARE(StoreView(home->storePath()).integrity(), QStringLiteral("ok"));
    }

    void aSheetIsClosedBeforeTheWindowUnderIt()
    {
        for (const char *key : {"ctrl+n", "ctrl+comma"}) {
            Program run(program, *home, server.get());
            QVERIFY(run.startShown());
            server->press({QString::fromLatin1(key)});
            QVERIFY(run.hasWindows(2));
            const QList<unsigned long> windows = run.windows();
            server->closeWindow(windows.first());
            QVERIFY(run.settle());
            QCOMPARE(run.windows(), windows);
            server->closeWindow(windows.last());
            QVERIFY(run.hasWindows(1));
            QVERIFY(writes().isEmpty());
            server->closeWindow(windows.first());
            QCOMPARE(run.waitForEnd(), 0);
            QCOMPARE(writes(), lastSave());
            QVERIFY(StoreView(home->storePath()).run("DELETE FROM writes"));
        }
    }

    void furtherSignalsDoNotDisturbTheEnd()
    {
        for (int round = 0; round < 5; ++round) {
            Program run(program, *home);
            run.start();
            QTRY_VERIFY(run.hearsSignals());
            // A session that ends asks politely, and again, and hangs up.
            while (run.process.state() != QProcess::NotRunning) {
                run.signal(SIGTERM);
                run.signal(SIGHUP);
                run.process.waitForFinished(1);
            }
            QCOMPARE(run.waitForEnd(), 0);
            QCOMPARE(writes(), lastSave());
            QVERIFY(StoreView(home->storePath()).run("DELETE FROM writes"));
        }
    }

    void aSignalBeforeTheWindowIsThereIsHeard()
    {
        Program run(program, *home);
        run.start();
        while (!run.hearsSignals() && run.process.state() == QProcess::Running) { }
        run.signal(SIGTERM);
        QCOMPARE(run.waitForEnd(), 0);
        QCOMPARE(writes(), lastSave());
        QCOMPARE(home->entries(day).size(), 3);
    }

    void aSignalThatWasIgnoredAtTheStartStaysSo()
    {
        Program run(program, *home);
        run.process.setChildProcessModifier([] { std::signal(SIGHUP, SIG_IGN); });
        run.start();
        QTRY_VERIFY(run.hearsSignals());
        QVERIFY(run.ignores(SIGHUP));
        run.signal(SIGTERM);
        QCOMPARE(run.waitForEnd(), 0);
        QCOMPARE(writes(), lastSave());
    }

    void aWarningThatNobodyReadsDoesNotEndIt()
    {
        Program run(program, *home);
        run.process.setChildProcessModifier([] {
            std::array<int, 2> pipe = {-1, -1};
            if (::pipe(pipe.data()) == 0 && ::dup2(pipe[1], STDERR_FILENO) == STDERR_FILENO)
                ::close(pipe[0]);
            std::signal(SIGPIPE, SIG_DFL); // as a desktop leaves it
        });
        QProcessEnvironment environment = run.process.processEnvironment();
        environment.insert(QStringLiteral("QT_LOGGING_RULES"), QStringLiteral("*=true")); // Qt talks a lot
        run.process.setProcessEnvironment(environment);
        run.start();
        QVERIFY(QTest::qWaitFor([&run] { return run.hearsSignals() || run.process.state() != QProcess::Running; }));
        run.signal(SIGTERM);
        QCOMPARE(run.waitForEnd(), 0);
        QCOMPARE(writes(), lastSave());
    }

    void changedRDAsAreSavedWithTheSheetOpen()
    {
        Program run(program, *home, server.get());
        QVERIFY(run.startShown());
        bring(run, Open::Preferences);
        server->press(QStringList(QStringLiteral("Tab")));
        server->press(QStringList(QStringLiteral("ctrl+a")));
        server->type(QStringLiteral("1234.5"));
        server->press({QStringLiteral("Return"), QStringLiteral("ctrl+q")});
        QCOMPARE(run.waitForEnd(), 0);
        QVariantList rdas(61, 1.5F);
        rdas[0] = 1234.5F;
        QCOMPARE(UserDefaults(home->storePath()).objectForKey(QStringLiteral("RDAs")).toList(), rdas);
    }

    void theStoreStaysAsItIsBetweenDays()
    {
        Program run(program, *home, server.get());
        QVERIFY(run.startShown());
        const QByteArray before = home->storeBytes();
        addFood(run);
        bring(run, Open::AmountEditor);
        // The amount is taken, a unit is chosen, two rows are cut and pasted, one is removed.
        server->press({QStringLiteral("Return"), QStringLiteral("space"), QStringLiteral("Down"),
            QStringLiteral("Return"), QStringLiteral("ctrl+a"), QStringLiteral("ctrl+x"), QStringLiteral("ctrl+v"),
            QStringLiteral("ctrl+Home"), QStringLiteral("Down"), QStringLiteral("Delete")});
        QVERIFY(run.settle());
        QCOMPARE(home->storeBytes(), before);
        server->press({QStringLiteral("ctrl+t")}); // another day: the only save
        QVERIFY(run.settle());
        QVERIFY(home->storeBytes() != before);
        const QByteArray left = home->storeBytes();
        server->press({QStringLiteral("ctrl+t")}); // the day shown
        QVERIFY(run.settle());
        QCOMPARE(home->storeBytes(), left);
        run.process.kill();
        run.waitForEnd();
        QCOMPARE(writes(), QStringList{day});
        const QStringList kept = home->entries(day);
        QCOMPARE(kept.size(), 3);
        QCOMPARE(kept.last().section(u' ', 0, 1), QString::fromLatin1(newFood));
    }

    void aSettingIsStoredAtOnceAndNothingElse()
    {
        Program run(program, *home, server.get());
        QVERIFY(run.startShown());
        addFood(run);
        const QByteArray before = home->storeBytes();
        server->press({QStringLiteral("alt+p")}); // the check box shows that it is pressed before it acts
        QTRY_VERIFY(home->storeBytes() != before);
        QVERIFY(run.settle());
        run.process.kill();
        run.waitForEnd();
        QCOMPARE(writes(), QStringList{QStringLiteral("UseP")});
        QCOMPARE(UserDefaults(home->storePath()).objectForKey(QStringLiteral("UseP")), QVariant(false));
        QCOMPARE(home->entries(day).size(), 3);
    }

    void nothingIsLeftButThePrivateStore()
    {
        home = std::make_unique<ProgramHome>(); // without a store
        const QStringList before = home->contents();
        const QStringList folders = {QStringLiteral("data"), QStringLiteral("data/provender")};
        Program run(program, *home, server.get());
        run.process.setChildProcessModifier([] { ::umask(0); });
        QVERIFY(run.startShown());
        // A start makes no store.
        QStringList running = before + folders + QStringList(QStringLiteral("data/provender/instance.socket"));
        running.sort();
        QCOMPARE(home->contents(), running);
        struct stat status = {};
        QCOMPARE(
            ::stat(qPrintable(QFileInfo(home->storePath()).path() + QStringLiteral("/instance.socket")), &status), 0);
        QCOMPARE(status.st_mode & 07777, 0600U);
        addFood(run);
        server->press({QStringLiteral("alt+Right"), QStringLiteral("ctrl+q")});
        QCOMPARE(run.waitForEnd(), 0);
        QCOMPARE(run.output(), QByteArray());
        QStringList after = before + folders + QStringList(QStringLiteral("data/provender/preferences.sqlite"));
        after.sort();
        QCOMPARE(home->contents(), after);
        QCOMPARE(::stat(qPrintable(home->storePath()), &status), 0);
        QCOMPARE(status.st_mode & 07777, 0600U);
        QCOMPARE(::stat(qPrintable(QFileInfo(home->storePath()).path()), &status), 0);
        QCOMPARE(status.st_mode & 07777, 0700U);
    }

    void theNextStartShowsTheDayShownLast()
    {
        for (int start = 0; start < 2; ++start) {
            Program run(program, *home, server.get());
            QVERIFY(run.startShown());
            server->press({QStringLiteral("alt+Right")});
            if (start == 0)
                addFood(run);
            else
                server->press({QStringLiteral("ctrl+a"), QStringLiteral("Delete")});
            if (start == 1)
                server->press({QStringLiteral("alt+Left")});
            QVERIFY(run.settle());
            server->closeWindow(run.windows().first());
            QCOMPARE(run.waitForEnd(), 0);
            QCOMPARE(home->entries(QStringLiteral("2015_05_12")),
                QStringList{QStringLiteral("Butter, salted 100")}); // the second start shows 13 May, which is empty
        }
        // Left by the second start, which so began with the 12th.
        QVERIFY(writes().contains(QStringLiteral("2015_05_13")));
        QCOMPARE(home->entries(day).size(), 3);
    }

    void aPictureOfTheScreenIsTakenOrItSaysWhyNot()
    {
        Program run(program, *home, server.get());
        QVERIFY(run.startShown());
        const QString picture = home->path() + QStringLiteral("/picture.png");
        QCOMPARE(grabScreen({picture}), std::make_pair(0, QByteArray()));
        QVERIFY(QFile::exists(picture));
        const QString nowhere = home->path() + QStringLiteral("/nowhere/picture.png");
        QCOMPARE(grabScreen({nowhere}), std::make_pair(1, "grab-screen: cannot write " + nowhere.toUtf8() + '\n'));
        QCOMPARE(grabScreen({}), std::make_pair(2, QByteArray("usage: grab-screen <picture.png>\n")));
    }
};

QTEST_GUILESS_MAIN(ProcessTest)
#include "tst_process.moc"
