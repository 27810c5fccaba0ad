// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "tests/support/Program.h"

#include <QtTest>

#include <array>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <functional>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

const QString program = QStringLiteral(PROVENDER);
constexpr int patience = 2000; // of a start that finds another, for its answer

// Another user's process, which does something and then stays until the object goes.
class Stranger final {
public:
    explicit Stranger(const std::function<bool()> &act)
    {
        constexpr uid_t nobody = 65534;
        std::array<int, 2> done = {-1, -1};
        if (::pipe(done.data()) != 0)
            qFatal("no pipe");
        process = ::fork();
        if (process == 0) {
            const char result = ::setuid(nobody) == 0 && act() ? 'y' : 'n';
            static_cast<void>(::write(done[1], &result, 1) == 1 && ::pause());
            ::_exit(0);
        }
        char result = 'n';
        succeeded = ::read(done[0], &result, 1) == 1 && result == 'y';
        ::close(done[0]);
        ::close(done[1]);
    }
    ~Stranger()
    {
        ::kill(process, SIGKILL);
        ::waitpid(process, nullptr, 0);
    }
    Q_DISABLE_COPY_MOVE(Stranger)

    bool succeeded = false;

private:
    pid_t process = -1;
};

} // namespace

// What a second start of the program does, on a display without a window manager.
class SecondStartTest final : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<XServer> server;
    std::unique_ptr<ProgramHome> home;

    [[nodiscard]] QString folder() const { return QFileInfo(home->storePath()).path(); }

    static int openFolder(const QByteArray &folder)
    {
        return ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    }
    // A socket of the name in the folder that the program listens on, bound or connected.
    static int atSocket(const QByteArray &folder, int (*operation)(int, const sockaddr *, socklen_t))
    {
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        std::snprintf(address.sun_path, sizeof address.sun_path, "%s/instance.socket", folder.constData());
        const int handle = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        return operation(handle, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0 ? handle : -1;
    }
    static int bindSocket(const QByteArray &folder) { return atSocket(folder, &::bind); }
    static int connectTo(const QByteArray &folder) { return atSocket(folder, &::connect); }

    // Whether it comes up and, asked to end, ends well.
    static bool works(Program &run)
    {
        if (!QTest::qWaitFor([&run] { return run.hearsSignals(); }, 20000))
            return false;
        run.signal(SIGTERM);
        return run.waitForEnd() == 0;
    }

private slots:
    void initTestCase()
    {
        server = std::make_unique<XServer>();
        QVERIFY(!server->name().isEmpty());
    }
    void init() { home = std::make_unique<ProgramHome>(); }
    void cleanup() { home.reset(); }

    void itRaisesTheFirstAndEnds_data()
    {
        QTest::addColumn<bool>("wantsroot");
        QTest::addColumn<QString>("start");
        const std::pair<const char *, const char *> ways[] = {
            {"by the same path", "exec \"$0\""},
            {"by a link to the home", "ln -sfn . ~/it; HOME=~/it; XDG_DATA_HOME=$HOME/data exec \"$0\""},
            {"by a link in the data path", "ln -sfn data ~/linked; XDG_DATA_HOME=~/linked exec \"$0\""},
            {"by the usual place, which is a link",
                "mkdir -p ~/.local; ln -sfn ../data ~/.local/share; unset XDG_DATA_HOME; exec \"$0\""},
            {"with another folder for sockets", "mkdir -p -m 700 ~/other; XDG_RUNTIME_DIR=~/other exec \"$0\""},
            {"after the store was taken away", "rm -f \"$XDG_DATA_HOME/provender/preferences.sqlite\"; exec \"$0\""},
        };
        const std::pair<const char *, const char *> rootsways[] = {
            {"by a mount elsewhere",
                "exec unshare -m sh -c 'mkdir -p ~/bound; mount --bind \"$XDG_DATA_HOME\" ~/bound;"
                " XDG_DATA_HOME=~/bound exec \"$0\"' \"$0\""},
            {"in another network", "exec unshare -n \"$0\""},
            {"among other processes", "exec unshare -p --fork \"$0\""},
        };
        for (const auto &[name, start] : ways)
            QTest::newRow(name) << false << QString::fromLatin1(start);
        for (const auto &[name, start] : rootsways)
            QTest::newRow(name) << true << QString::fromLatin1(start);
    }

    void itRaisesTheFirstAndEnds()
    {
        QFETCH(bool, wantsroot);
        QFETCH(QString, start);
        if (wantsroot
            && QProcess::execute(QStringLiteral("unshare"), {QStringLiteral("-mnp"), QStringLiteral("true")}) != 0)
            QSKIP("only root can have namespaces here");
        ProgramHome elsewhere;
        Program first(program, *home, server.get());
        QVERIFY(first.startShown());
        Program other(program, elsewhere, server.get()); // a user's data elsewhere is an instance of its own
        QVERIFY(other.startShown());
        const unsigned long below = first.windows().first();
        for (const bool issaved : {false, true}) {
            if (issaved) { // the first one's day is left, so there is a store now, and the other one raised again
                server->focus(below);
                server->press({QStringLiteral("alt+Right")});
                QTRY_VERIFY(!home->storeBytes().isEmpty());
                Program others(program, elsewhere, server.get());
                others.start();
                QCOMPARE(others.waitForEnd(), 0);
                QVERIFY(other.settle());
            }
            QVERIFY(server->stack().indexOf(below) < server->stack().indexOf(other.windows().first()));
            Program second(QStringLiteral("sh"), *home, server.get());
            second.process.setArguments({QStringLiteral("-c"), start, program});
            second.start();
            QCOMPARE(second.waitForEnd(), 0);
            QCOMPARE(second.output(), QByteArray());
            QVERIFY(first.settle());
            QVERIFY(server->stack().indexOf(below) > server->stack().indexOf(other.windows().first()));
            QCOMPARE(first.windows(), QList<unsigned long>{below});
        }
        QVERIFY(works(first));
        QVERIFY(works(other));
        QCOMPARE(first.output() + other.output(), QByteArray());
    }

    void itLeavesASheetOfTheFirstOpen()
    {
        Program first(program, *home, server.get());
        QVERIFY(first.startShown());
        server->press({QStringLiteral("ctrl+n")});
        QVERIFY(first.hasWindows(2));
        const QByteArray before = home->storeBytes();
        Program second(program, *home, server.get());
        second.start();
        QCOMPARE(second.waitForEnd(), 0);
        QVERIFY(first.settle());
        QCOMPARE(first.windows().size(), 2);
        QCOMPARE(home->storeBytes(), before);
    }

    void ofSeveralAtOnceOneStays()
    {
        for (int round = 0; round < 20; ++round) {
            home = std::make_unique<ProgramHome>(); // in which they make the folder, too
            std::vector<std::unique_ptr<Program>> runs;
            for (int i = 0; i < 3; ++i) {
                runs.push_back(std::make_unique<Program>(program, *home));
                runs.back()->process.start();
            }
            const auto isOver = [](const auto &run) { return run->process.state() == QProcess::NotRunning; };
            QTRY_COMPARE(std::count_if(runs.begin(), runs.end(), isOver), 2);
            for (const auto &run : runs) {
                if (isOver(run))
                    QCOMPARE(run->waitForEnd(), 0);
                else
                    QVERIFY(works(*run));
            }
        }
    }

    void afterAKillTheNextWorks()
    {
        Program first(program, *home, server.get());
        QVERIFY(first.startShown());
        first.signal(SIGKILL);
        QCOMPARE(first.waitForEnd(), -2);
        Program next(program, *home, server.get());
        QVERIFY(next.startShown());
        QElapsedTimer waited;
        waited.start();
        Program second(program, *home);
        second.start();
        QCOMPARE(second.waitForEnd(), 0);
        QVERIFY2(waited.elapsed() < patience, "it was not answered");
        QVERIFY(works(next));
        QVERIFY(home->storeBytes().size() > 0);
    }

    void oneThatComesAsTheFirstEndsTakesItsPlace()
    {
        for (int round = 0; round < 5; ++round) {
            Program first(program, *home);
            first.start();
            QTRY_VERIFY(first.hearsSignals());
            first.signal(SIGTERM);
            Program next(program, *home);
            next.start();
            QCOMPARE(first.waitForEnd(), 0);
            // It either still met the first, and is over, or it is the first now.
            QTRY_VERIFY(next.process.state() == QProcess::NotRunning || next.hearsSignals());
            next.signal(SIGTERM);
            QCOMPARE(next.waitForEnd(), 0);
        }
    }

    void oneThatIsStoppedKeepsNobodyWaitingForLong()
    {
        Program first(program, *home);
        first.start();
        QTRY_VERIFY(first.hearsSignals());
        first.signal(SIGSTOP);
        const QByteArray before = home->storeBytes();
        // More than it can have waiting.
        std::vector<std::unique_ptr<Program>> others;
        QElapsedTimer waited;
        waited.start();
        for (int i = 0; i < 12; ++i) {
            others.push_back(std::make_unique<Program>(program, *home));
            others.back()->start();
        }
        for (const auto &other : others) {
            QCOMPARE(other->waitForEnd(), 0);
            QCOMPARE(other->output(), QByteArray());
        }
        QVERIFY2(waited.elapsed() < patience + 8000, qPrintable(QString::number(waited.elapsed())));
        QCOMPARE(home->storeBytes(), before);
        first.signal(SIGCONT);
        first.signal(SIGTERM);
        QCOMPARE(first.waitForEnd(), 0);
        QVERIFY(home->storeBytes().size() > 0);
    }

    // Who could look into the folder, or write in it, before it was made private.
    void nobodyElseCanPreventAStart_data()
    {
        QTest::addColumn<bool>("locks");
        QTest::addColumn<bool>("leaves"); // the lock's taker ends, and another process keeps the lock
        QTest::addColumn<int>("backlog"); // of the socket; -1 when nobody listens on it
        QTest::newRow("by the lock") << true << false << -1;
        QTest::newRow("by a lock whose taker has ended") << true << true << -1;
        QTest::newRow("by the lock and a silent socket") << true << false << 8;
        QTest::newRow("by the lock and a socket that takes no more") << true << false << 0;
        QTest::newRow("by a silent socket") << false << false << 8;
    }

    void nobodyElseCanPreventAStart()
    {
        if (::getuid() != 0)
            QSKIP("only root can act as another user");
        QFETCH(bool, locks);
        QFETCH(bool, leaves);
        QFETCH(int, backlog);
        QDir().mkpath(folder());
        ::chmod(qPrintable(home->path()), 0755);
        ::chmod(qPrintable(folder()), 0777);
        const QByteArray name = folder().toLocal8Bit();
        std::optional<Stranger> stranger(std::in_place, [&] {
            const int handle = openFolder(name);
            const pid_t taker = leaves ? ::fork() : 0;
            const bool islocked = taker != 0 || !locks || ::flock(handle, LOCK_EX | LOCK_NB) == 0;
            if (leaves && taker == 0)
                ::_exit(islocked ? 0 : 1);
            int status = 0;
            if (leaves && (::waitpid(taker, &status, 0) != taker || status != 0))
                return false;
            const int listener = bindSocket(name);
            return islocked && listener >= 0 && (backlog < 0 || ::listen(listener, backlog) == 0)
                && (backlog != 0 || connectTo(name) >= 0);
        });
        QVERIFY(stranger->succeeded);
        Program first(program, *home);
        first.start();
        QVERIFY(QTest::qWaitFor([&first] { return first.hearsSignals(); }, 20000));
        struct stat status = {};
        QCOMPARE(::stat(name.constData(), &status), 0);
        QCOMPARE(status.st_mode & 07777, 0700U);
        for (const bool isgone : {false, true}) {
            if (isgone)
                stranger.reset(); // and the lock with it
            Program second(program, *home);
            second.start();
            QCOMPARE(second.waitForEnd(), 0);
        }
        QVERIFY(works(first));
        QVERIFY(home->storeBytes().size() > 0);
    }

    void withoutAnAnswerItEndsAllTheSame()
    {
        QDir().mkpath(folder());
        const int held = openFolder(folder().toLocal8Bit());
        QCOMPARE(::flock(held, LOCK_EX | LOCK_NB), 0);
        Program second(program, *home);
        second.start();
        QCOMPARE(second.waitForEnd(), 0);
        QVERIFY(home->storeBytes().isEmpty());
        ::close(held);
    }

    void oneThatEndsInsteadOfAnsweringIsSucceeded()
    {
        QDir().mkpath(folder());
        const int held = openFolder(folder().toLocal8Bit());
        QCOMPARE(::flock(held, LOCK_EX | LOCK_NB), 0);
        const int listener = bindSocket(folder().toLocal8Bit());
        QCOMPARE(::listen(listener, 8), 0);
        Program next(program, *home);
        next.start();
        const int connection = ::accept(listener, nullptr, nullptr);
        QVERIFY(connection >= 0);
        for (const int handle : {listener, connection, held})
            ::close(handle);
        QVERIFY(works(next));
        QVERIFY(!home->storeBytes().isEmpty());
    }

    void withoutLocksTheSocketDecides()
    {
        const auto withoutLocks = [](Program &run) {
            QProcessEnvironment environment = run.process.processEnvironment();
            environment.insert(QStringLiteral("LD_PRELOAD"), QStringLiteral(NO_LOCKS));
            environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("verify_asan_link_order=0"));
            run.process.setProcessEnvironment(environment);
            run.start();
        };
        Program killed(program, *home);
        withoutLocks(killed);
        QVERIFY(QTest::qWaitFor([&] { return killed.hearsSignals(); }, 20000));
        killed.signal(SIGKILL);
        QCOMPARE(killed.waitForEnd(), -2);
        Program first(program, *home);
        withoutLocks(first);
        QVERIFY(QTest::qWaitFor([&] { return first.hearsSignals(); }, 20000));
        Program second(program, *home);
        withoutLocks(second);
        QCOMPARE(second.waitForEnd(), 0);
        QVERIFY(works(first));
    }

    void withoutAFolderItStartsAndSaysAtTheEndThatNothingWasSaved()
    {
        Program run(program, *home);
        QProcessEnvironment environment = run.process.processEnvironment();
        environment.insert(QStringLiteral("XDG_DATA_HOME"), QStringLiteral("/proc/nowhere"));
        run.process.setProcessEnvironment(environment);
        run.start();
        QVERIFY(QTest::qWaitFor([&] { return run.hearsSignals(); }, 20000));
        run.signal(SIGTERM);
        QCOMPARE(run.waitForEnd(), 1);
    }
};

QTEST_GUILESS_MAIN(SecondStartTest)
#include "tst_secondstart.moc"
