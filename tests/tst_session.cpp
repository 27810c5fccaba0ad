// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "tests/support/Program.h"

#include <QtTest>

namespace {

const QString day = QStringLiteral("2015_05_11");

} // namespace

// The program in a desktop session, whose manager asks it to save before the session ends.
class SessionTest final : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<XServer> server;
    std::unique_ptr<ProgramHome> home;
    std::unique_ptr<QProcess> manager;
    std::unique_ptr<Program> run;

    // A line of the manager's answer; empty when there is none.
    [[nodiscard]] QString answer() const
    {
        QElapsedTimer waiting;
        waiting.start();
        while (!manager->canReadLine() && waiting.elapsed() < 20000)
            manager->waitForReadyRead(1000);
        return QString::fromLocal8Bit(manager->readLine()).trimmed();
    }
    void tell(const char *command) const
    {
        manager->write(command);
        manager->write("\n");
        manager->waitForBytesWritten();
    }

    // By the sheet, and then an amount is typed but not taken.
    void enter(const char *food, const char *amount) const
    {
        server->press({QStringLiteral("ctrl+n")});
        QVERIFY(run->hasWindows(2));
        server->type(QString::fromLatin1(food));
        server->press({QStringLiteral("Return")});
        QVERIFY(run->hasWindows(1));
        server->press({QStringLiteral("ctrl+End")});
        server->type(QString::fromLatin1(amount));
        QVERIFY(run->settle());
    }

private slots:
    void initTestCase()
    {
        server = std::make_unique<XServer>();
        QVERIFY(!server->name().isEmpty());
    }
    void init()
    {
        home = std::make_unique<ProgramHome>();
        UserDefaults(home->storePath())
            .setObject(QDateTime({2015, 5, 11}, {12, 0}, Qt::UTC), QStringLiteral("LastDate"));
        manager = std::make_unique<QProcess>();
        QProcessEnvironment environment = home->environment(server->name());
        manager->setProcessEnvironment(environment);
        manager->start(QStringLiteral(SESSION_MANAGER), QStringList());
        environment.insert(QStringLiteral("SESSION_MANAGER"), answer());
        run = std::make_unique<Program>(QStringLiteral(PROVENDER), *home, server.get());
        run->process.setProcessEnvironment(environment);
        QVERIFY(run->startShown());
        enter("butter, salted", "25.5");
        tell("save");
        QCOMPARE(answer(), QStringLiteral("saved"));
    }
    void cleanup()
    {
        run.reset();
        manager->closeWriteChannel();
        manager->waitForFinished();
        manager.reset();
        home.reset();
    }

    void whatWasEnteredIsSavedBeforeTheSessionEnds()
    {
        run->process.kill();
        QCOMPARE(run->waitForEnd(), -2);
        QCOMPARE(home->entries(day), QStringList{QStringLiteral("Butter, salted 25.5")});
        QVERIFY(!UserDefaults(home->storePath()).objectForKey(QStringLiteral("WindowGeometry")).isNull());
    }

    void theProgramGoesOnWhenTheSessionStays()
    {
        tell("cancel");
        enter("apricots, raw", "70");
        server->press({QStringLiteral("ctrl+q")});
        QCOMPARE(run->waitForEnd(), 0);
        QCOMPARE(home->entries(day),
            (QStringList{QStringLiteral("Butter, salted 25.5"), QStringLiteral("Apricots, raw 70")}));
    }

    void theProgramEndsWithTheSession()
    {
        tell("end");
        QCOMPARE(run->waitForEnd(), 0);
        QCOMPARE(run->output(), QByteArray());
        QCOMPARE(home->entries(day), QStringList{QStringLiteral("Butter, salted 25.5")});
    }
};

QTEST_GUILESS_MAIN(SessionTest)
#include "tst_session.moc"
