// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "bench/Turns.h"

#include <QtTest>

#include <cmath>

class TurnsTest final : public QObject {
    Q_OBJECT

private slots:
    void theSidesAlternateAndLeadByTurns()
    {
        QByteArray calls;
        const Turns::Pair pair = Turns::inTurns(
            3,
            [&](std::size_t turn) {
                calls.append('m');
                return 2.0 * double(turn);
            },
            [&](std::size_t turn) {
                calls.append('r');
                return double(turn);
            });
        QCOMPARE(calls, QByteArray("mrrmmr"));
        QCOMPARE(pair.measured, (Turns::Times{0.0, 2.0, 4.0}));
        QCOMPARE(pair.reference, (Turns::Times{0.0, 1.0, 2.0}));
    }

    void theRatioIsTheMedianOfThePairs()
    {
        const Turns::Pair pair{{2.0, 4.0, 30.0}, {1.0, 20.0, 10.0}};
        QCOMPARE(pair.ratio(), 2.0); // the ratio of the medians is 0.4
    }

    void theWorstStepIsTheWorstOfTheStepsMedians()
    {
        const Turns::Times threerounds{1.0, 5.0, 90.0, 4.0, 2.0, 6.0};
        QCOMPARE(Turns::worstStep(threerounds, 2), 5.0);
    }

    void theSpreadIsTheSlowestTenthAgainstTheFastest()
    {
        const Turns::Pair pair{
            {}, {9.0, 2.0, 2.0, 2.0, 2.0, 2.0, 2.0, 2.0, 3.0, 3.0, 1.0, 1.0, 2.0, 2.0, 2.0, 2.0, 2.0, 2.0, 2.0, 2.0}};
        QCOMPARE(pair.spread(), 3.0 / 2.0);
    }

    void aLimitIsJudgedWhereTheReferenceWasEven_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<double>("spread");
        QTest::addColumn<QString>("verdict");
        QTest::newRow("within") << 2.0 << 1.0 << QString();
        QTest::newRow("over") << 2.01 << Turns::undisturbed << QStringLiteral("OVER");
        QTest::newRow("over on a busy machine") << 2.01 << 1.26 << QStringLiteral("not judged: machine busy");
        QTest::newRow("within on a busy machine") << 1.0 << 1.26 << QStringLiteral("not judged: machine busy");
        QTest::newRow("no number") << std::nan("") << 1.0 << QStringLiteral("OVER");
    }
    void aLimitIsJudgedWhereTheReferenceWasEven()
    {
        QFETCH(const double, value);
        QFETCH(const double, spread);
        QTEST(QString::fromLatin1(Turns::verdict(value, 2.0, spread)), "verdict");
    }

    void onlyAFigureOverItsLimitFailsTheProgram()
    {
        Turns::Figures figures;
        figures.figure(QStringLiteral("no limit"), 9.0);
        figures.figure(QStringLiteral("busy"), 9.0, "ms", 2.0, {}, 1.5);
        QCOMPARE(figures.exitCode(), EXIT_SUCCESS);
        figures.figure(QStringLiteral("over"), 9.0, "ms", 2.0);
        figures.figure(QStringLiteral("within"), 1.0, "ms", 2.0);
        QCOMPARE(figures.exitCode(), EXIT_FAILURE);
    }
};

QTEST_APPLESS_MAIN(TurnsTest)
#include "tst_turns.moc"
