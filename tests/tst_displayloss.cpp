// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "tests/support/Program.h"

#include <QtTest>

#include <csignal>
#include <vector>

namespace {

const QString day = QStringLiteral("2015_05_11");
const QString nextday = QStringLiteral("2015_05_12");

QStringList described(const QStringList &foods)
{
    QStringList texts;
    for (const QString &food : foods)
        texts.append(food + QStringLiteral(" 100"));
    return texts;
}

const QStringList foodsBefore = {QStringLiteral("Apple juice"), QStringLiteral("Bread"), QStringLiteral("Cheese")};
const QStringList foodsOfNextDay = {QStringLiteral("Dill"), QStringLiteral("Egg")};

} // namespace

// The display goes while the program runs, and what was entered is saved all the same. Many programs at once lose one
// display, each in a store of its own, at as many moments of their work.
class DisplayLossTest final : public QObject {
    Q_OBJECT

private:
    struct Case {
        QString state;
        bool isterminated = false; // also asked to end at that moment
        ProgramHome home;
        std::unique_ptr<Program> run;
    };

    // A day with three foods, which the program opens, and the next with two; and a list of every write to the store.
    static void layOut(const ProgramHome &home)
    {
        const auto records = [](const QStringList &foods) {
            QVariantList list;
            for (const QString &food : foods)
                list.append(FoodRecord::archivedDataWithRootObject(Food(food)));
            return list;
        };
        {
            UserDefaults store(home.storePath());
            store.setObject(records(foodsBefore), day);
            store.setObject(records(foodsOfNextDay), nextday);
            store.setObject(QDateTime({2015, 5, 11}, {12, 0}, Qt::UTC), QStringLiteral("LastDate"));
        }
        StoreView view(home.storePath());
        QVERIFY(
            view.run("CREATE TABLE writes(key TEXT);"
                     "CREATE TRIGGER replaced AFTER UPDATE ON defaults BEGIN INSERT INTO writes VALUES(new.key); END;"
                     "CREATE TRIGGER added AFTER INSERT ON defaults BEGIN INSERT INTO writes VALUES(new.key); END"));
    }

    // Asked to come up on a display, which is an X server's or a compositor's.
    static void start(Case &one, const XServer *server, const QString &compositor, int number)
    {
        one.run = std::make_unique<Program>(QStringLiteral(DRIVEN_PROGRAM), one.home, server);
        QProcessEnvironment environment = one.run->process.processEnvironment();
        if (server == nullptr) {
            environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("wayland"));
            environment.insert(QStringLiteral("WAYLAND_DISPLAY"), compositor);
            // Qt's own input method for Wayland ends in a crash at the first key where there is no keyboard.
            environment.insert(QStringLiteral("QT_IM_MODULE"), QStringLiteral("compose"));
        }
        if (number % 2 == 0) // nothing depends on what Qt says about it
            environment.insert(QStringLiteral("QT_LOGGING_RULES"), QStringLiteral("*=false"));
        one.run->process.setProcessEnvironment(environment);
        one.run->process.setArguments({one.state});
        one.run->start();
    }

    static void check(Case &one)
    {
        const int status = one.run->waitForEnd();
        QVERIFY2(status == 1 || (one.isterminated && status == 0), qPrintable(QString::number(status)));
        QStringList foods = described(foodsBefore + QStringList(QStringLiteral("Butter, salted")));
        if (one.state == QStringLiteral("editor") || one.state == QStringLiteral("painting"))
            foods.last() = QStringLiteral("Butter, salted 25.5");
        QCOMPARE(one.home.entries(day), foods);
        QCOMPARE(one.home.entries(nextday), described(foodsOfNextDay));
        StoreView view(one.home.storePath());
        QCOMPARE(view.integrity(), QStringLiteral("ok"));
        if (one.state != QStringLiteral("days"))
            QCOMPARE(view.column("SELECT key FROM writes ORDER BY key"),
                QStringList({day, QStringLiteral("LastDate"), QStringLiteral("RDAs"), QStringLiteral("WindowGeometry"),
                    QStringLiteral("WindowSplitters")}));
        QCOMPARE(QDir(QFileInfo(one.home.storePath()).path())
                     .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot),
            QStringList(QStringLiteral("preferences.sqlite")));
    }

private slots:
    void whatWasEnteredIsSavedOnce_data()
    {
        QTest::addColumn<bool>("iswayland");
        QTest::addColumn<int>("number");
        QTest::newRow("X server killed") << false << SIGKILL;
        QTest::newRow("X server ended") << false << SIGTERM;
        QTest::newRow("compositor killed") << true << SIGKILL;
        QTest::newRow("compositor ended") << true << SIGTERM;
    }

    void whatWasEnteredIsSavedOnce()
    {
        QFETCH(bool, iswayland);
        QFETCH(int, number);
        std::unique_ptr<XServer> server;
        ProgramHome home; // of the compositor
        QProcess weston;
        const QString socket = home.path() + QStringLiteral("/run/display");
        if (iswayland) {
            weston.setProcessEnvironment(home.environment({}));
            weston.start(QStringLiteral("weston"),
                {QStringLiteral("--backend=headless-backend.so"), QStringLiteral("--no-config"),
                    QStringLiteral("--idle-time=0"), QStringLiteral("--socket=display")});
            QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(socket), 20000);
        } else {
            server = std::make_unique<XServer>();
            QVERIFY(!server->name().isEmpty());
        }

        std::vector<std::unique_ptr<Case>> cases;
        for (const char *state : {"idle", "editor", "sheet", "painting", "days"}) {
            for (int i = 0; i < 4; ++i) {
                cases.push_back(std::make_unique<Case>());
                cases.back()->state = QString::fromLatin1(state);
                cases.back()->isterminated = i == 3;
                layOut(cases.back()->home);
                start(*cases.back(), server.get(), socket, i);
            }
        }
        for (const auto &one : cases)
            QTRY_VERIFY_WITH_TIMEOUT(one->run->process.canReadLine(), 30000);

        ::kill(pid_t(iswayland ? weston.processId() : server->processId()), number);
        for (const auto &one : cases) {
            if (one->isterminated)
                one->run->signal(SIGTERM);
        }
        for (const auto &one : cases) {
            check(*one);
            if (QTest::currentTestFailed())
                QFAIL(qPrintable(one->state));
        }
        weston.waitForFinished();
    }
};

QTEST_GUILESS_MAIN(DisplayLossTest)
#include "tst_displayloss.moc"
