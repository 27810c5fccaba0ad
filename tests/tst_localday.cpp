// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "platform/LocalDay.h"
#include "tests/support/Instants.h"

#include <QtTest>

class LocalDayTest final : public QObject {
    Q_OBJECT

private slots:
    void init() { setZone("UTC"); }
    void cleanup() { setZone("UTC"); }

    void theDayBeforeAndAfter_data()
    {
        QTest::addColumn<QByteArray>("zone");
        QTest::addColumn<QString>("first");
        QTest::addColumn<QString>("second");
        const auto row = [](const char *name, const char *zone, const char *first, const char *second) {
            QTest::newRow(name) << QByteArray(zone) << QString::fromLatin1(first) << QString::fromLatin1(second);
        };
        row("UTC", "UTC", "2015-05-11T22:23:24.567", "2015-05-12T22:23:24.567");
        row("the end of February", "UTC", "2024-02-29T00:00:00", "2024-03-01T00:00:00");
        row("a day of 23 hours", "America/New_York", "2024-03-09T17:00:00", "2024-03-10T16:00:00");
        row("a day of 25 hours", "America/New_York", "2024-11-02T16:00:00", "2024-11-03T17:00:00");
        row("midnight before the clock goes back", "America/New_York", "2024-11-03T04:00:00", "2024-11-04T05:00:00");
        row("a short day in the south", "Pacific/Auckland", "2024-09-28T00:00:00", "2024-09-28T23:00:00");
        row("a long day in the south", "Pacific/Auckland", "2024-04-06T00:00:00", "2024-04-07T01:00:00");
        row("fourteen hours ahead", "Pacific/Kiritimati", "2024-12-30T10:00:00", "2024-12-31T10:00:00");
        row("before 1970", "UTC", "1969-12-31T23:59:59.999", "1970-01-01T23:59:59.999");
        row("a leap year of the first century", "UTC", "0004-02-28T12:00:00", "0004-02-29T12:00:00");
    }

    void theDayBeforeAndAfter()
    {
        QFETCH(QByteArray, zone);
        QFETCH(QString, first);
        QFETCH(QString, second);
        setZone(zone);
        QCOMPARE(LocalDay::dayAfter(utc(qPrintable(first))), utc(qPrintable(second)));
        QCOMPARE(LocalDay::dayBefore(utc(qPrintable(second))), utc(qPrintable(first)));
    }

    void theDayAfterASkippedMidnightIsReachedOnce()
    {
        setZone("America/Santiago");
        const QDateTime eve = utc("2023-09-02T04:00:00"); // midnight
        const QDateTime day = LocalDay::dayAfter(eve);
        QCOMPARE(day, utc("2023-09-03T04:00:00")); // one o'clock
        QCOMPARE(LocalDay::dateOf(day), QDate(2023, 9, 3));
        QCOMPARE(LocalDay::dateOf(day.addSecs(-1)), QDate(2023, 9, 2));
        QCOMPARE(LocalDay::dateOf(LocalDay::dayAfter(day)), QDate(2023, 9, 4));
        QCOMPARE(LocalDay::dateOf(LocalDay::dayBefore(day)), QDate(2023, 9, 2));
    }

    void everyDayOfManyYearsIsReachedInOrder_data()
    {
        QTest::addColumn<QByteArray>("zone");
        for (const char *zone :
            {"UTC", "America/Santiago", "America/New_York", "Pacific/Auckland", "Europe/London", "Asia/Tehran"})
            QTest::newRow(zone) << QByteArray(zone);
    }

    void everyDayOfManyYearsIsReachedInOrder()
    {
        QFETCH(QByteArray, zone);
        setZone(zone);
        QDateTime day = utc("1990-01-01T23:45:00");
        QDate date = LocalDay::dateOf(day);
        for (int i = 0; i < 365 * 45; ++i) {
            day = LocalDay::dayAfter(day);
            date = date.addDays(1);
            QCOMPARE(LocalDay::dateOf(day), date);
        }
    }

    void aKeyIsReadBackAsItsDay_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QDate>("date");
        const auto row = [](const char *key, QDate date) { QTest::newRow(key) << QString::fromLatin1(key) << date; };
        row("2015_05_11", {2015, 5, 11});
        row("2024_02_29", {2024, 2, 29});
        row("0001_01_01", {1, 1, 1});
        row("9999_12_31", {9999, 12, 31});
        for (const char *other : {"", "RDAs", "2015_05_1", "2015_05_111", "2015-05-11", "2023_02_29", "2015_13_01",
                 "2015_05_11.unread", "0000_01_01", "+015_05_11", " 015_05_11"})
            row(other, {});
    }

    void aKeyIsReadBackAsItsDay()
    {
        QFETCH(QString, key);
        QFETCH(QDate, date);
        QCOMPARE(LocalDay::dateOfKey(key).value_or(QDate()), date);
        if (date.isValid())
            QCOMPARE(LocalDay::key(date), key);
    }

    void theKeyOfAnInstantIsThatOfItsLocalDay()
    {
        setZone("Pacific/Auckland");
        QCOMPARE(LocalDay::key(utc("2015-05-11T12:30:00")), QStringLiteral("2015_05_12"));
        QVERIFY(!LocalDay::dateOfKey(QStringLiteral("２０１５_０５_１１")));
    }
};

QTEST_GUILESS_MAIN(LocalDayTest)
#include "tst_localday.moc"
