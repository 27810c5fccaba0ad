// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "tests/support/Program.h"

#include <QCryptographicHash>
#include <QtTest>

#include <csignal>
#include <cstddef>
#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <vector>

namespace {

const QString program = QStringLiteral(PROVENDER);
constexpr int patience = 2000; // of a start that finds another, for its answer

} // namespace

// What a second start of the program does, on a display without a window manager.
class SecondStartTest final : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<XServer> server;
    std::unique_ptr<ProgramHome> home;

    // Takes the name that the program would listen on, as the user of this number.
    [[nodiscard]] int takeName(uid_t user) const
    {
        QDir(home->path()).mkpath(home->dataPath() + QStringLiteral("/provender"));
        const QString folder = QFileInfo(home->dataPath() + QStringLiteral("/provender")).canonicalFilePath();
        const QByteArray path = (folder + QStringLiteral("/preferences.sqlite")).toUtf8();
        const QByteArray name = "org.provender.Provender/" + QByteArray::number(::getuid()) + '/'
            + QCryptographicHash::hash(path, QCryptographicHash::Sha1).toHex();
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        std::memcpy(address.sun_path + 1, name.constData(), std::size_t(name.size()));
        const int listener = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        const bool istaken = ::bind(listener, reinterpret_cast<const sockaddr *>(&address),
                                 socklen_t(offsetof(sockaddr_un, sun_path) + 1 + std::size_t(name.size())))
            == 0;
        if (!istaken || ::seteuid(user) != 0 || ::listen(listener, 8) != 0)
            qFatal("the name cannot be taken");
        static_cast<void>(::seteuid(::getuid()));
        return listener;
    }

private slots:
    void initTestCase()
    {
        server = std::make_unique<XServer>();
        QVERIFY(!server->name().isEmpty());
    }
    void init() { home = std::make_unique<ProgramHome>(); }
    void cleanup() { home.reset(); }

    void itRaisesTheFirstAndEnds()
    {
        ProgramHome elsewhere;
        Program first(program, *home, server.get());
        QVERIFY(first.startShown());
        Program other(program, elsewhere, server.get()); // a user's data elsewhere is an instance of its own
        QVERIFY(other.startShown());
        const unsigned long below = first.windows().first();
        QVERIFY(server->stack().indexOf(below) < server->stack().indexOf(other.windows().first()));

        Program second(program, *home, server.get());
        second.start();
        QCOMPARE(second.waitForEnd(), 0);
        QCOMPARE(second.output(), QByteArray());
        QVERIFY(first.settle());
        QVERIFY(server->stack().indexOf(below) > server->stack().indexOf(other.windows().first()));
        QCOMPARE(first.windows(), QList<unsigned long>{below});

        first.signal(SIGTERM);
        other.signal(SIGTERM);
        QCOMPARE(first.waitForEnd(), 0);
        QCOMPARE(other.waitForEnd(), 0);
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

    void twoAtOnceAreOne()
    {
        for (int round = 0; round < 5; ++round) {
            Program one(program, *home);
            Program another(program, *home);
            one.start();
            another.start();
            QTRY_VERIFY(one.process.state() == QProcess::NotRunning || another.process.state() == QProcess::NotRunning);
            Program &stays = one.process.state() == QProcess::NotRunning ? another : one;
            Program &ends = one.process.state() == QProcess::NotRunning ? one : another;
            QCOMPARE(ends.waitForEnd(), 0);
            QTRY_VERIFY(stays.hearsSignals());
            stays.signal(SIGTERM);
            QCOMPARE(stays.waitForEnd(), 0);
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
        next.signal(SIGTERM);
        QCOMPARE(next.waitForEnd(), 0);
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

    void aStrangersSocketIsNotBelieved()
    {
        if (::getuid() != 0)
            QSKIP("only root can act as another user");
        constexpr uid_t nobody = 65534;
        const int listener = takeName(nobody);
        Program first(program, *home);
        first.start();
        QTRY_VERIFY(first.hearsSignals());
        first.signal(SIGTERM);
        QCOMPARE(first.waitForEnd(), 0);
        QVERIFY(home->storeBytes().size() > 0);
        ::close(listener);
    }

    void theUsersOwnSilentSocketIs()
    {
        const int listener = takeName(::getuid());
        Program second(program, *home);
        second.start();
        QCOMPARE(second.waitForEnd(), 0);
        QVERIFY(home->storeBytes().isEmpty());
        ::close(listener);
    }

    void oneThatEndsInsteadOfAnsweringIsSucceeded()
    {
        const int listener = takeName(::getuid());
        Program next(program, *home);
        next.start();
        const int connection = ::accept(listener, nullptr, nullptr);
        QVERIFY(connection >= 0);
        ::close(listener);
        ::close(connection);
        QTRY_VERIFY(next.hearsSignals());
        next.signal(SIGTERM);
        QCOMPARE(next.waitForEnd(), 0);
        QVERIFY(!home->storeBytes().isEmpty());
    }
};

QTEST_GUILESS_MAIN(SecondStartTest)
#include "tst_secondstart.moc"
