// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "model/FoodRecord.h"
#include "platform/LocalDay.h"
#include "tests/support/Run.h"
#include "ui/controls/DatePicker.h"

#include <QCalendarWidget>
#include <QTextCharFormat>
#include <QtTest>

namespace {

const QString A = QStringLiteral("A");

} // namespace

// How the window finds the days that hold something: by keys, and in the calendar. Logged are 31 October, 3 and 10
// November; 4 and 9 November are stored empty.
class LoggedDaysTest final : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        home = std::make_unique<Home>();
        home->files.writeElements(A, "<nutrient name='Energy' amount='50'/>");
        {
            UserDefaults store(home->storePath());
            const QVariantList one{FoodRecord::archivedDataWithRootObject(Food(A))};
            for (const QDate date : {QDate(2026, 10, 31), QDate(2026, 11, 3), QDate(2026, 11, 10)})
                store.setObject(one, LocalDay::key(date));
            for (const QDate date : {QDate(2026, 11, 4), QDate(2026, 11, 9)})
                store.setObject(QVariantList(), LocalDay::key(date));
        }
        home->now = QDateTime({2026, 11, 5}, {12, 0}, Qt::UTC);
        run = std::make_unique<Run>(*home);
        run->show();
        QVERIFY(QTest::qWaitForWindowActive(run->controller.window));
    }
    void cleanup()
    {
        run.reset();
        home.reset();
    }

    void keysGoFromLoggedDayToLoggedDay()
    {
        run->add({A}); // today, which is stored only when it is left
        go(Qt::Key_Left, {2026, 11, 3});
        go(Qt::Key_Left, {2026, 10, 31});
        go(Qt::Key_Left, {2026, 10, 31}); // there is none before
        go(Qt::Key_Right, {2026, 11, 3});
        go(Qt::Key_Right, {2026, 11, 5});
        go(Qt::Key_Right, {2026, 11, 10});
        go(Qt::Key_Right, {2026, 11, 10});
        QCOMPARE(run->names(), QStringList({A}));
    }

    void loggedDaysAreBoldInTheCalendarWithATip()
    {
        run->add({A, QStringLiteral("B")});
        QCalendarWidget *calendar = openCalendar();
        const auto formats = calendar->dateTextFormat();
        QCOMPARE(formats.keys(), QList<QDate>({{2026, 10, 31}, {2026, 11, 3}, {2026, 11, 5}, {2026, 11, 10}}));
        for (const QTextCharFormat &format : formats)
            QCOMPARE(format.fontWeight(), int(QFont::Bold));
        QCOMPARE(formats[QDate(2026, 11, 3)].toolTip(), QStringLiteral("1 entry, 50 kcal"));
        QCOMPARE(formats[QDate(2026, 11, 5)].toolTip(), QStringLiteral("2 entries, 50 kcal"));
    }

    void anotherMonthIsMarkedWhenItIsLookedAt()
    {
        QCalendarWidget *calendar = openCalendar();
        calendar->setCurrentPage(2026, 9);
        QCOMPARE(calendar->dateTextFormat().size(), 0);
        calendar->setCurrentPage(2026, 10);
        QVERIFY(calendar->dateTextFormat().contains({2026, 10, 31}));
    }

    void theCalendarIsMarkedAnewWhenItIsOpenedAgain()
    {
        QCalendarWidget *calendar = openCalendar();
        QVERIFY(!calendar->dateTextFormat().contains({2026, 11, 5}));
        calendar->window()->close();
        run->add({A});
        openCalendar();
        QVERIFY(calendar->dateTextFormat().contains({2026, 11, 5}));
    }

    void theEndsOfTheCalendarAreNoDanger_data()
    {
        QTest::addColumn<QDate>("date");
        QTest::newRow("year 1") << QDate(1, 1, 1);
        QTest::newRow("year 9999") << QDate(9999, 12, 31);
    }

    void theEndsOfTheCalendarAreNoDanger()
    {
        QFETCH(QDate, date);
        run->controller.datepicker->setDate(date);
        run->add({A});
        QCOMPARE(openCalendar()->dateTextFormat().keys(), QList<QDate>({date}));
    }

private:
    void go(Qt::Key key, QDate expected)
    {
        QTest::keyClick(run->controller.logtable, key, Qt::AltModifier | Qt::ShiftModifier);
        QCOMPARE(LocalDay::dateOf(run->controller.curdate), expected);
        QCOMPARE(run->controller.datepicker->date(), expected);
    }
    QCalendarWidget *openCalendar()
    {
        run->controller.datepicker->setFocus();
        QTest::keyClick(run->controller.datepicker, Qt::Key_Down, Qt::AltModifier);
        return run->controller.datepicker->calendarWidget();
    }

    std::unique_ptr<Home> home;
    std::unique_ptr<Run> run;
};

QTEST_MAIN(LoggedDaysTest)
#include "tst_loggeddays.moc"
