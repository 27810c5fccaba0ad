// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "platform/LocalDay.h"
#include "tests/support/Instants.h"
#include "ui/controls/DatePicker.h"

#include <QCalendarWidget>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTableView>
#include <QtTest>

class DatePickerTest final : public QObject {
    Q_OBJECT

private slots:
    void init() { setZone("UTC"); }
    void cleanup() { setZone("UTC"); }

    void aNewPickerHoldsAboutNow()
    {
        const DatePicker picker;
        QVERIFY(std::abs(picker.dateValue().secsTo(QDateTime::currentDateTimeUtc())) < 60);
        QCOMPARE(picker.date(), LocalDay::dateOf(picker.dateValue()));
    }

    void theInstantIsKeptToTheMillisecond_data()
    {
        QTest::addColumn<QByteArray>("zone");
        for (const char *zone : {"UTC", "America/Santiago", "Pacific/Kiritimati", "Asia/Kathmandu"})
            QTest::newRow(zone) << QByteArray(zone);
    }

    void theInstantIsKeptToTheMillisecond()
    {
        QFETCH(QByteArray, zone);
        setZone(zone);
        DatePicker picker;
        for (const char *text : {"2015-05-11T22:23:24.567", "1969-12-31T23:59:59.999", "1904-02-29T12:00:00.001"}) {
            picker.setDateValue(utc(text));
            QCOMPARE(picker.dateValue(), utc(text));
            QCOMPARE(picker.dateValue().timeSpec(), Qt::UTC);
            QCOMPARE(picker.date(), LocalDay::dateOf(utc(text)));
        }
    }

    void aLocalTimeIsTakenAsTheInstantItIs()
    {
        setZone("America/New_York");
        DatePicker picker;
        picker.setDateValue(utc("2024-01-01T03:00:00").toLocalTime());
        QCOMPARE(picker.dateValue(), utc("2024-01-01T03:00:00"));
        QCOMPARE(picker.date(), QDate(2023, 12, 31));
    }

    void settingNeverSends()
    {
        DatePicker picker;
        QSignalSpy sent(&picker, &DatePicker::dateChosen);
        QSignalSpy changed(&picker, &QDateEdit::dateChanged);
        picker.setDateValue(utc("2015-05-11T22:00:00"));
        picker.setDateValue(utc("2015-05-12T22:00:00"));
        picker.setDateValue(QDateTime());
        QCOMPARE(sent.size(), 0);
        QCOMPARE(changed.size(), 0);
        QCOMPARE(picker.dateValue(), utc("2015-05-12T22:00:00"));
    }

    void settingInsideTheActionSendsNothingMore()
    {
        DatePicker picker;
        picker.setDateValue(utc("2015-05-11T22:00:00"));
        QSignalSpy sent(&picker, &DatePicker::dateChosen);
        connect(&picker, &DatePicker::dateChosen, &picker, [&] { picker.setDateValue(picker.dateValue()); });
        picker.setDate(QDate(2016, 1, 2));
        QCOMPARE(sent.size(), 1);
        QCOMPARE(picker.dateValue(), utc("2016-01-02T22:00:00"));
    }

    void choosingKeepsTheLocalTimeOfDay_data()
    {
        QTest::addColumn<QByteArray>("zone");
        QTest::addColumn<QString>("from");
        QTest::addColumn<QDate>("chosen");
        QTest::addColumn<QString>("to");
        const auto row = [](const char *name, const char *zone, const char *from, QDate chosen, const char *to) {
            QTest::newRow(name) << QByteArray(zone) << QString::fromLatin1(from) << chosen << QString::fromLatin1(to);
        };
        row("UTC", "UTC", "2015-05-11T22:23:24.567", {2020, 2, 29}, "2020-02-29T22:23:24.567");
        row("winter to summer", "America/New_York", "2024-01-15T17:00:00", {2024, 7, 15}, "2024-07-15T16:00:00");
        row("summer to winter", "America/New_York", "2024-07-15T16:00:00", {2024, 1, 15}, "2024-01-15T17:00:00");
        row("an hour that is skipped becomes the first after it", "America/New_York", "2024-03-09T07:30:15.250",
            {2024, 3, 10}, "2024-03-10T07:00:00");
        row("the hour before the gap stays", "America/New_York", "2024-03-09T06:30:00", {2024, 3, 10},
            "2024-03-10T06:30:00");
        row("the end of the gap is valid", "America/New_York", "2024-03-09T08:00:00", {2024, 3, 10},
            "2024-03-10T07:00:00");
        row("an hour that comes twice is the first", "America/New_York", "2024-11-02T05:30:00", {2024, 11, 3},
            "2024-11-03T05:30:00");
        row("the hour after it", "America/New_York", "2024-11-02T06:00:00", {2024, 11, 3}, "2024-11-03T07:00:00");
        row("a skipped midnight is one o'clock", "America/Santiago", "2023-09-02T04:00:00", {2023, 9, 3},
            "2023-09-03T04:00:00");
        row("half past a skipped midnight is one o'clock too", "America/Santiago", "2023-09-02T04:30:00", {2023, 9, 3},
            "2023-09-03T04:00:00");
        row("noon of that day", "America/Santiago", "2023-09-02T16:00:00", {2023, 9, 3}, "2023-09-03T15:00:00");
        row("summer time in the south", "Pacific/Auckland", "2024-09-28T11:59:59", {2024, 9, 29},
            "2024-09-29T10:59:59");
        row("fourteen hours ahead", "Pacific/Kiritimati", "2024-05-01T10:00:00", {2024, 12, 31}, "2024-12-30T10:00:00");
        row("a half hour of summer time", "Australia/Lord_Howe", "2024-10-05T15:40:00", {2024, 10, 6},
            "2024-10-05T15:30:00");
        row("a zone given as a rule", "EST5EDT,M3.2.0,M11.1.0", "2024-03-09T07:30:00", {2024, 3, 10},
            "2024-03-10T07:00:00");
        row("the first year", "UTC", "2024-03-09T07:30:00", {1, 1, 1}, "0001-01-01T07:30:00");
        row("the last year", "UTC", "2024-03-09T07:30:00", {9999, 12, 31}, "9999-12-31T07:30:00");
    }

    void choosingKeepsTheLocalTimeOfDay()
    {
        QFETCH(QByteArray, zone);
        QFETCH(QString, from);
        QFETCH(QDate, chosen);
        QFETCH(QString, to);
        setZone(zone);
        DatePicker picker;
        picker.setDateValue(utc(qPrintable(from)));
        QSignalSpy sent(&picker, &DatePicker::dateChosen);
        const bool changes = picker.date() != chosen;
        picker.setDate(chosen);
        QCOMPARE(sent.size(), changes ? 1 : 0);
        if (changes)
            QCOMPARE(picker.dateValue().toString(Qt::ISODateWithMs), utc(qPrintable(to)).toString(Qt::ISODateWithMs));
    }

    void aDayThatTheZoneLeftOutIsPassedOver()
    {
        setZone("Pacific/Apia"); // 29 December 2011 was followed by the 31st
        const QDateTime eve = utc("2011-12-29T22:00:00"); // noon of the 29th
        const QDateTime day = utc("2011-12-30T22:00:00"); // noon of the 31st
        QCOMPARE(LocalDay::dateOf(eve), QDate(2011, 12, 29));
        QCOMPARE(LocalDay::dateOf(day), QDate(2011, 12, 31));
        QCOMPARE(LocalDay::dateOf(LocalDay::dayAfter(eve)), QDate(2011, 12, 31));
        QCOMPARE(LocalDay::dayBefore(day), eve);

        DatePicker picker;
        picker.setDateValue(eve);
        QSignalSpy sent(&picker, &DatePicker::dateChosen);
        picker.setDate(QDate(2011, 12, 30));
        QCOMPARE(sent.size(), 1);
        QCOMPARE(picker.dateValue(), utc("2011-12-30T10:00:00")); // its first moment
        QCOMPARE(picker.date(), QDate(2011, 12, 31));
        picker.setDate(QDate(2011, 12, 30));
        QCOMPARE(sent.size(), 1);
        QCOMPARE(picker.date(), QDate(2011, 12, 31));
    }

    void theEndsOfTheRangeAreNotLeft()
    {
        const QDateTime first = utc("0001-01-01T12:00:00");
        const QDateTime last = utc("9999-12-31T12:00:00");
        QCOMPARE(LocalDay::dayBefore(first), first);
        QCOMPARE(LocalDay::dayAfter(last), last);
        QCOMPARE(LocalDay::dayAfter(first), utc("0001-01-02T12:00:00"));
        QCOMPARE(LocalDay::dayBefore(last), utc("9999-12-30T12:00:00"));
        DatePicker picker;
        picker.setDateValue(first);
        QCOMPARE(picker.date(), QDate(1, 1, 1));
        picker.setDateValue(last);
        QCOMPARE(picker.date(), QDate(9999, 12, 31));
        picker.setDateValue(last.addDays(400));
        QCOMPARE(picker.dateValue(), last);
        picker.setDateValue(first.addDays(-400));
        QCOMPARE(picker.dateValue(), first);
        QCOMPARE(picker.date(), QDate(1, 1, 1));
    }

    void anotherZoneGivesTheSameInstantAnotherDate()
    {
        const QDateTime instant = utc("2024-06-30T22:30:00");
        QCOMPARE(LocalDay::dateOf(instant), QDate(2024, 6, 30));
        setZone("Pacific/Auckland");
        QCOMPARE(LocalDay::dateOf(instant), QDate(2024, 7, 1));
        DatePicker picker;
        picker.setDateValue(instant);
        QCOMPARE(picker.date(), QDate(2024, 7, 1));
        setZone("America/New_York");
        picker.setDate(QDate(2024, 7, 4));
        QCOMPARE(picker.dateValue(), utc("2024-07-04T22:30:00"));
    }

    void theWholeYearIsShownInEveryLocale_data()
    {
        QTest::addColumn<QLocale>("locale");
        for (const char *name : {"C", "en_US", "en_GB", "de_DE", "fr_FR", "ja_JP", "fi_FI"})
            QTest::newRow(name) << QLocale(QString::fromLatin1(name));
    }

    void theWholeYearIsShownInEveryLocale()
    {
        QFETCH(QLocale, locale);
        const QLocale usual;
        QLocale::setDefault(locale);
        DatePicker picker;
        QLocale::setDefault(usual);
        picker.setDateValue(utc("2015-05-11T12:00:00"));
        QVERIFY2(picker.text().contains(QStringLiteral("2015")), qPrintable(picker.text()));
        picker.setDateValue(utc("0015-05-11T12:00:00"));
        QVERIFY2(picker.text().contains(QStringLiteral("0015")), qPrintable(picker.text()));
    }

    void aTypedDateIsSentOnceWhenItIsComplete()
    {
        DatePicker picker;
        picker.setDisplayFormat(QStringLiteral("yyyy-MM-dd"));
        picker.setDateValue(utc("2015-05-11T22:00:00"));
        picker.show();
        picker.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&picker));
        picker.setFocus();
        QSignalSpy sent(&picker, &DatePicker::dateChosen);
        picker.setSelectedSection(QDateTimeEdit::YearSection);
        QTest::keyClicks(&picker, QStringLiteral("1987"));
        picker.setSelectedSection(QDateTimeEdit::MonthSection);
        QTest::keyClicks(&picker, QStringLiteral("03"));
        QCOMPARE(sent.size(), 0);
        QCOMPARE(picker.dateValue(), utc("2015-05-11T22:00:00"));
        QTest::keyClick(&picker, Qt::Key_Return);
        QCOMPARE(sent.size(), 1);
        QCOMPARE(picker.dateValue(), utc("1987-03-11T22:00:00"));
        picker.clearFocus();
        QCOMPARE(sent.size(), 1);
    }

    void aDateTypedAndLeftIsSentOnce()
    {
        DatePicker picker;
        picker.setDisplayFormat(QStringLiteral("yyyy-MM-dd"));
        picker.setDateValue(utc("2015-05-11T22:00:00"));
        picker.show();
        picker.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&picker));
        picker.setFocus();
        QSignalSpy sent(&picker, &DatePicker::dateChosen);
        picker.setSelectedSection(QDateTimeEdit::YearSection);
        QTest::keyClicks(&picker, QStringLiteral("0150"));
        picker.clearFocus();
        QCOMPARE(sent.size(), 1);
        QCOMPARE(picker.dateValue(), utc("0150-05-11T22:00:00"));
    }

    void whatIsNoDateGoesBackToTheDateAndIsNotSent()
    {
        DatePicker picker;
        picker.setDisplayFormat(QStringLiteral("yyyy-MM-dd"));
        picker.setDateValue(utc("2015-05-11T22:00:00"));
        picker.show();
        QSignalSpy sent(&picker, &DatePicker::dateChosen);
        picker.setSelectedSection(QDateTimeEdit::YearSection);
        QTest::keyClicks(&picker, QStringLiteral("0000"));
        QTest::keyClick(&picker, Qt::Key_Return);
        QCOMPARE(sent.size(), 0);
        QCOMPARE(picker.date(), QDate(2015, 5, 11));
        QCOMPARE(picker.dateValue(), utc("2015-05-11T22:00:00"));
    }

    void theArrowKeysReachTheFirstCentury()
    {
        DatePicker picker;
        picker.setDisplayFormat(QStringLiteral("yyyy-MM-dd"));
        picker.setDateValue(utc("0101-05-11T22:00:00"));
        picker.setCurrentSection(QDateTimeEdit::YearSection);
        for (int year = 100; year > 0; --year) {
            QTest::keyClick(&picker, Qt::Key_Down);
            QCOMPARE(picker.dateValue().date(), QDate(year, 5, 11));
        }
        QTest::keyClick(&picker, Qt::Key_Down);
        QCOMPARE(picker.dateValue().date().year(), 1);
    }

    void theWheelTurnsOnlyAFieldWithTheFocus()
    {
        DatePicker picker;
        picker.setDateValue(utc("2015-05-11T22:00:00"));
        QSignalSpy sent(&picker, &DatePicker::dateChosen);
        QWheelEvent wheel(
            QPointF(5, 5), QPointF(5, 5), {}, {0, 120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&picker, &wheel);
        QCOMPARE(sent.size(), 0);
        picker.show();
        picker.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&picker));
        picker.setFocus();
        QCoreApplication::sendEvent(&picker, &wheel);
        QCOMPARE(sent.size(), 1);
    }

    void aStepIsSentAtOnce()
    {
        DatePicker picker;
        picker.setDisplayFormat(QStringLiteral("yyyy-MM-dd"));
        picker.setDateValue(utc("2015-05-11T22:00:00"));
        QSignalSpy sent(&picker, &DatePicker::dateChosen);
        picker.setCurrentSection(QDateTimeEdit::DaySection);
        QTest::keyClick(&picker, Qt::Key_Up);
        QCOMPARE(sent.size(), 1);
        QCOMPARE(picker.dateValue(), utc("2015-05-12T22:00:00"));
    }

    void aDayOfTheCalendarIsSentOnce()
    {
        DatePicker picker;
        picker.setDateValue(utc("2015-05-11T22:00:00"));
        picker.show();
        QVERIFY(QTest::qWaitForWindowExposed(&picker));
        QVERIFY(picker.calendarPopup());
        QTest::keyClick(&picker, Qt::Key_Down, Qt::AltModifier);
        QCalendarWidget *calendar = picker.calendarWidget();
        QTRY_VERIFY(calendar->isVisible());
        QCOMPARE(calendar->selectedDate(), QDate(2015, 5, 11));
        QSignalSpy sent(&picker, &DatePicker::dateChosen);
        QWidget *days = calendar->findChild<QTableView *>();
        for (int press = 0; press < 3; ++press)
            QTest::keyClick(days, Qt::Key_Right);
        QCOMPARE(sent.size(), 0);
        QCOMPARE(picker.dateValue(), utc("2015-05-11T22:00:00"));
        QTest::keyClick(days, Qt::Key_Return);
        QVERIFY(!calendar->isVisible());
        QCOMPARE(picker.date(), QDate(2015, 5, 14));
        QCOMPARE(sent.size(), 1);
        QCOMPARE(picker.dateValue(), utc("2015-05-14T22:00:00"));
    }

    void aClickedDayOfTheCalendarIsSentOnce()
    {
        DatePicker picker;
        picker.setDateValue(utc("2015-05-11T22:00:00"));
        const QTableView *days = openCalendar(picker);
        QSignalSpy sent(&picker, &DatePicker::dateChosen);
        const QModelIndex monday = days->selectionModel()->currentIndex();
        const QModelIndex week = monday.siblingAtRow(monday.row() + 1);
        QTest::mouseClick(days->viewport(), Qt::LeftButton, {}, days->visualRect(week).center());
        QVERIFY(!picker.calendarWidget()->isVisible());
        QCOMPARE(sent.size(), 1);
        QCOMPARE(picker.dateValue(), utc("2015-05-18T22:00:00"));
    }

    void aCalendarThatIsLeftGoesBack_data()
    {
        QTest::addColumn<bool>("bykey");
        QTest::newRow("by Esc") << true;
        QTest::newRow("by a click beside it") << false;
    }

    void aCalendarThatIsLeftGoesBack()
    {
        QFETCH(bool, bykey);
        DatePicker picker;
        picker.setDateValue(utc("2015-05-11T22:00:00"));
        QSignalSpy sent(&picker, &DatePicker::dateChosen);
        for (int time = 0; time < 2; ++time) {
            QTableView *days = openCalendar(picker);
            QTest::keyClick(days, Qt::Key_PageDown);
            QTest::keyClick(days, Qt::Key_Right);
            QCOMPARE(picker.calendarWidget()->selectedDate(), QDate(2015, 6, 12));
            if (bykey)
                QTest::keyClick(days, Qt::Key_Escape);
            else
                QTest::mouseClick(picker.calendarWidget()->window(), Qt::LeftButton, {}, QPoint(-20, -20));
            QVERIFY(!picker.calendarWidget()->isVisible());
            QCOMPARE(picker.date(), QDate(2015, 5, 11));
            QCOMPARE(picker.dateValue(), utc("2015-05-11T22:00:00"));
        }
        QCOMPARE(sent.size(), 0);
        picker.stepUp(); // which goes on from the day shown
        QCOMPARE(sent.size(), 1);
    }

private:
    static QTableView *openCalendar(DatePicker &picker)
    {
        picker.show();
        QTest::keyClick(&picker, Qt::Key_F4);
        return picker.calendarWidget()->findChild<QTableView *>();
    }
};

int main(int argc, char **argv)
{
    QLocale::setDefault(QLocale::c());
    QApplication application(argc, argv);
    DatePickerTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_datepicker.moc"
