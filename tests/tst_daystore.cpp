// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "support/Run.h"

#include "platform/LocalDay.h"

#include "model/FoodRecord.h"
#include "ui/controls/DatePicker.h"
#include "ui/table/MenuItemUnit.h"

#include <QLabel>
#include <QtTest>

namespace {

const QString A = QStringLiteral("A");
const QString B = QStringLiteral("B");

QVariant recordOf(const QString &name, float amount = 100.0F)
{
    Food food(name);
    food.setCuramount(amount);
    return FoodRecord::archivedDataWithRootObject(food);
}

QString key(const char *text)
{
    return QString::fromLatin1(text);
}

} // namespace

// Which day is shown, when a day is written, and what is read back.
class DayStoreTest final : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        home = std::make_unique<Home>();
        for (const QString &name : {A, B})
            home->files.writeElements(
                name, "<measure name='cup' amount='1' grams='240'/><nutrient name='Energy' amount='50'/>");
        run = std::make_unique<Run>(*home);
        run->launch();
    }
    void cleanup()
    {
        run.reset();
        home.reset();
    }

    void aDayKeyIsTheLocalDate_data()
    {
        QTest::addColumn<QByteArray>("zone");
        QTest::addColumn<QDateTime>("instant");
        QTest::addColumn<QString>("daykey");
        const auto row = [](const char *name, const char *zone, const char *utc, const char *expected) {
            QTest::newRow(name) << QByteArray(zone) << QDateTime::fromString(QString::fromLatin1(utc), Qt::ISODate)
                                << QString::fromLatin1(expected);
        };
        row("UTC before midnight", "UTC", "2015-05-10T23:55:00Z", "2015_05_10");
        row("UTC after midnight", "UTC", "2015-05-11T00:05:00Z", "2015_05_11");
        row("Auckland before midnight", "Pacific/Auckland", "2026-11-20T10:55:00Z", "2026_11_20");
        row("Auckland after midnight", "Pacific/Auckland", "2026-11-20T11:05:00Z", "2026_11_21");
        row("Auckland in winter before midnight", "Pacific/Auckland", "2026-06-20T11:55:00Z", "2026_06_20");
        row("Auckland in winter after midnight", "Pacific/Auckland", "2026-06-20T12:05:00Z", "2026_06_21");
        row("New York before the spring change's midnight", "America/New_York", "2026-03-08T04:55:00Z", "2026_03_07");
        row("New York after it", "America/New_York", "2026-03-08T05:05:00Z", "2026_03_08");
        row("New York before the midnight after the spring change", "America/New_York", "2026-03-09T03:55:00Z",
            "2026_03_08");
        row("New York after that", "America/New_York", "2026-03-09T04:05:00Z", "2026_03_09");
        row("New York before the autumn change's midnight", "America/New_York", "2026-11-01T03:55:00Z", "2026_10_31");
        row("New York after it in autumn", "America/New_York", "2026-11-01T04:05:00Z", "2026_11_01");
        row("New York before the midnight after the autumn change", "America/New_York", "2026-11-02T04:55:00Z",
            "2026_11_01");
        row("New York after that in autumn", "America/New_York", "2026-11-02T05:05:00Z", "2026_11_02");
        row("Santiago before a midnight that is skipped", "America/Santiago", "2026-09-06T03:55:00Z", "2026_09_05");
        row("Santiago after a midnight that is skipped", "America/Santiago", "2026-09-06T04:05:00Z", "2026_09_06");
        row("Kiritimati before midnight", "Pacific/Kiritimati", "2026-11-21T09:55:00Z", "2026_11_21");
        row("Kiritimati after midnight", "Pacific/Kiritimati", "2026-11-21T10:05:00Z", "2026_11_22");
        row("the year has four digits", "UTC", "0033-04-03T15:00:00Z", "0033_04_03");
        row("far ahead", "UTC", "9999-12-31T23:55:00Z", "9999_12_31");
    }

    void aDayKeyIsTheLocalDate()
    {
        QFETCH(QByteArray, zone);
        QFETCH(QDateTime, instant);
        const TimeZone here(zone);
        QTEST(LocalDay::key(instant), "daykey");
    }

    void fiveMinutesEitherSideOfMidnightAreTwoDays_data()
    {
        QTest::addColumn<QByteArray>("zone");
        QTest::addColumn<QDateTime>("midnight");
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("after");
        const auto row = [](const char *zone, const char *utc, const char *before, const char *after) {
            QTest::newRow(zone) << QByteArray(zone) << QDateTime::fromString(QString::fromLatin1(utc), Qt::ISODate)
                                << key(before) << key(after);
        };
        row("Pacific/Auckland", "2026-11-20T11:00:00Z", "2026_11_20", "2026_11_21");
        row("America/New_York", "2026-03-08T05:00:00Z", "2026_03_07", "2026_03_08");
        row("America/Santiago", "2026-09-06T04:00:00Z", "2026_09_05", "2026_09_06");
        row("Pacific/Kiritimati", "2026-11-21T10:00:00Z", "2026_11_21", "2026_11_22");
        row("UTC", "2026-11-21T00:00:00Z", "2026_11_20", "2026_11_21");
    }

    void fiveMinutesEitherSideOfMidnightAreTwoDays()
    {
        QFETCH(QByteArray, zone);
        QFETCH(QDateTime, midnight);
        QFETCH(QString, before);
        QFETCH(QString, after);
        const TimeZone here(zone);
        run->controller.setDate(midnight.addSecs(-300));
        run->add({A});
        run->controller.setDate(midnight.addSecs(300));
        QCOMPARE(run->names(), QStringList());
        run->add({B});
        run->controller.setDate(midnight.addSecs(-299));
        QCOMPARE(run->names(), QStringList{A});
        QCOMPARE(run->store.objectForKey(before).toList().size(), 1);
        QCOMPARE(run->store.objectForKey(after).toList(), QVariantList{recordOf(B)});
    }

    void anotherTimeOfTheDayShownOnlyReloadsTheNutrients()
    {
        run->add({A});
        const QDateTime earlier = run->controller.curdate;
        QCOMPARE(shown(run->controller.nutrienttable), key("2 %"));
        QCOMPARE(shown(run->controller.logtable), key("100.00"));
        run->controller.nutrientstotal[0] = 1000.0F;
        run->controller.foods[0]->setCuramount(7.0F);
        run->controller.label->setText(QStringLiteral("as it was"));
        run->controller.setDate(earlier.addSecs(3600));
        QCOMPARE(shown(run->controller.nutrienttable), key("50 %"));
        QCOMPARE(shown(run->controller.logtable), key("100.00"));
        QCOMPARE(run->controller.curdate, earlier);
        QCOMPARE(run->controller.datepicker->dateValue(), earlier);
        QCOMPARE(run->names(), QStringList{A});
        QCOMPARE(run->controller.label->text(), QStringLiteral("as it was"));
        QVERIFY(!run->store.objectForKey(LocalDay::key(earlier)).isValid());
        run->terminate();
        QCOMPARE(run->store.objectForKey(key("LastDate")).toDateTime(), earlier);
    }

    void goingThereAndBackShowsTheSameEntries()
    {
        run->add({B, A});
        MenuItemUnit cup;
        cup.setTag(1);
        cup.setTitle(key("1 cup"));
        cup.setIdx(1);
        run->controller.updateUnit(cup);
        run->edit(0, key("12.5"));
        const QStringList entries = run->entries();
        run->controller.nextDay();
        QCOMPARE(run->entries(), QStringList());
        run->controller.previousDay();
        QCOMPARE(run->entries(), entries);
        QCOMPARE(entries, QStringList({key("B 12.5 g 0"), key("A 100 1 cup 1")}));
    }

    void leavingAnEmptyDayStoresAnEmptyList()
    {
        const QString daykey = LocalDay::key(run->controller.curdate);
        run->controller.nextDay();
        const QVariant stored = run->store.objectForKey(daykey);
        QCOMPARE(stored.typeId(), int(QMetaType::QVariantList));
        QCOMPARE(stored.toList(), QVariantList());
        QVERIFY(!run->store.objectForKey(LocalDay::key(run->controller.curdate)).isValid());
    }

    void aNameStoredTwiceIsOpenedOnceAndThenMissing()
    {
        run->store.setObject(QVariantList({recordOf(A, 1.0F), recordOf(B), recordOf(A, 2.0F)}), key("2026_11_22"));
        run->controller.nextDay();
        QCOMPARE(run->entries(), QStringList({key("A 1 g 0"), key("B 100 g 0")}));
        QCOMPARE(run->controller.label->text(), key("2 foods"));
        run->controller.nextDay();
        QCOMPARE(run->store.objectForKey(key("2026_11_22")).toList(), QVariantList({recordOf(A, 1.0F), recordOf(B)}));
    }

    void theLabelCountsAllEntriesWhateverIsSelected()
    {
        run->add({A, B});
        run->store.setObject(QVariantList({recordOf(A), recordOf(B)}), key("2026_11_22"));
        run->select({0, 1});
        run->controller.events.clear();
        run->controller.nextDay();
        QCOMPARE(run->controller.events, QStringList());
        QCOMPARE(run->controller.logtable->selectedRowIndexes(), QList<int>({0, 1}));
        QCOMPARE(run->controller.label->text(), key("2 foods"));
        // The selection's sums are zero, and that is what is shown.
        QCOMPARE(run->controller.nutrientsselected[0], 0.0F);
        QCOMPARE(run->nutrient(key("Amount"), 0).toString(), key("0 %"));
        QCOMPARE(run->controller.nutrientstotal[0], 100.0F);
    }

    void rowsThatAreGoneLeaveTheSelectionBeforeTheLabelIsSet()
    {
        run->add({A, B});
        run->store.setObject(QVariantList{recordOf(B)}, key("2026_11_22"));
        run->select({0, 1});
        run->controller.events.clear();
        run->controller.nextDay();
        QCOMPARE(run->controller.events, QStringList{key("handler")}); // the reload dropped row 1
        QCOMPARE(run->controller.logtable->selectedRowIndexes(), QList<int>{0});
        QCOMPARE(run->controller.nutrientsselected[0], 50.0F); // summed by that handler
        QCOMPARE(run->controller.label->text(), key("1 food"));
    }

    void theZoneMayChangeBetweenSavingAndOpening()
    {
        const TimeZone newyork("America/New_York");
        const QDateTime evening = localInstant({2026, 6, 1}, {22, 0});
        run->controller.setDate(evening);
        run->add({A});
        TimeZone::enter("Pacific/Auckland");
        // The same instant is the next day's afternoon there; the day is left under the key it has now.
        QCOMPARE(LocalDay::key(evening), key("2026_06_02"));
        run->controller.setDate(evening.addDays(3));
        QCOMPARE(run->store.objectForKey(key("2026_06_02")).toList(), QVariantList{recordOf(A)});
        QVERIFY(!run->store.objectForKey(key("2026_06_01")).isValid());
        run->controller.setDate(evening);
        QCOMPARE(run->names(), QStringList{A});
        TimeZone::enter("America/New_York");
        run->controller.setDate(evening.addDays(-4));
        QCOMPARE(run->store.objectForKey(key("2026_06_01")).toList(), QVariantList{recordOf(A)});
    }

    void todayIsTheClocks()
    {
        home->now = localInstant({2026, 11, 24}, {0, 0});
        run->controller.today();
        QCOMPARE(LocalDay::key(run->controller.curdate), key("2026_11_24"));
        QCOMPARE(run->controller.datepicker->dateValue(), home->now);
        const QDateTime first = run->controller.curdate;
        home->now = home->now.addSecs(60);
        run->controller.today(); // already shown
        QCOMPARE(run->controller.curdate, first);
    }

    void thePickerOpensItsDate()
    {
        run->controller.datepicker->setDateValue(localInstant({2026, 12, 24}, {18, 0}));
        QCOMPARE(LocalDay::key(run->controller.curdate), key("2026_11_21")); // setting it by code sends nothing
        run->controller.updateDate();
        QCOMPARE(run->controller.curdate, localInstant({2026, 12, 24}, {18, 0}));
    }

    void theFirstDateSavesNothing()
    {
        Home fresh;
        Run first(fresh);
        first.launch();
        QVERIFY(!QFile::exists(fresh.storePath()));
    }

    void previousAndNextDayKeepTheTimeOfDay()
    {
        const TimeZone here("America/New_York");
        run->controller.setDate(localInstant({2026, 3, 7}, {2, 30}));
        run->controller.nextDay(); // half past two does not exist on the 8th
        QCOMPARE(run->controller.curdate, localInstant({2026, 3, 8}, {3, 0}));
        QCOMPARE(LocalDay::key(run->controller.curdate), key("2026_03_08"));
        run->controller.previousDay();
        QCOMPARE(LocalDay::key(run->controller.curdate), key("2026_03_07"));
        run->controller.setDate(localInstant({2026, 10, 31}, {1, 30}));
        run->controller.nextDay();
        QCOMPARE(LocalDay::key(run->controller.curdate), key("2026_11_01"));
        run->controller.nextDay();
        QCOMPARE(LocalDay::key(run->controller.curdate), key("2026_11_02"));
        QCOMPARE(run->controller.curdate.toLocalTime().time(), QTime(1, 30));
        run->controller.previousDay(); // which has 25 hours
        run->controller.previousDay();
        QCOMPARE(run->controller.curdate, localInstant({2026, 10, 31}, {1, 30}));
    }

    void aDateGivenInLocalTimeStaysItsInstantInAnotherZone()
    {
        const TimeZone newyork("America/New_York");
        run->controller.setDate(QDateTime({2026, 6, 1}, {22, 0}, Qt::LocalTime));
        TimeZone::enter("Pacific/Auckland");
        QCOMPARE(LocalDay::key(run->controller.curdate), key("2026_06_02"));
    }

    void itemsThatAreNoRecordAreKeptAfterTheEntries()
    {
        const QVariantList stored
            = {QByteArray("no record"), recordOf(A), QStringLiteral("words"), recordOf(B), 7LL, QVariantList{true}};
        run->store.setObject(stored, key("2026_11_22"));
        run->controller.nextDay();
        QCOMPARE(run->names(), QStringList({A, B}));
        QCOMPARE(run->controller.curdatefoods.size(), 2);
        run->edit(0, key("5"));
        run->controller.nextDay();
        const QVariantList expected = {
            recordOf(A, 5.0F), recordOf(B), QByteArray("no record"), QStringLiteral("words"), 7LL, QVariantList{true}};
        QCOMPARE(run->store.objectForKey(key("2026_11_22")).toList(), expected);
        // They do not follow to another day, and do not grow when the day is opened again.
        QCOMPARE(run->controller.unreadfoods, QVariantList());
        run->controller.previousDay();
        run->controller.nextDay();
        QCOMPARE(run->store.objectForKey(key("2026_11_22")).toList(), expected);
    }

    void anEntryIsArchivedAfreshWhenItsDayIsOpened()
    {
        QFile file(QStringLiteral(DATA_DIR "/records/text.record")); // another program's, its amount a text
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray foreign = file.readAll();
        const auto food = FoodRecord::unarchiveObjectWithData(foreign);
        QVERIFY(food);
        const QVariant afresh = FoodRecord::archivedDataWithRootObject(*food);
        QVERIFY(afresh != foreign);
        run->store.setObject(QVariantList{foreign}, key("2026_11_22"));
        run->controller.nextDay();
        run->controller.nextDay();
        QCOMPARE(run->store.objectForKey(key("2026_11_22")).toList(), QVariantList{afresh});
    }

    void aValueThatIsNoListIsAnEmptyDayAndKept()
    {
        run->store.setObject(QStringLiteral("not a list"), key("2026_11_22"));
        run->controller.nextDay();
        QCOMPARE(run->names(), QStringList());
        run->add({A});
        run->controller.nextDay();
        QCOMPARE(run->store.objectForKey(key("2026_11_22")).toList(), QVariantList{recordOf(A)});
        QCOMPARE(run->store.objectForKey(key("2026_11_22.unread")).toString(), QStringLiteral("not a list"));
    }

    void aFoodWithoutAFileKeepsItsEntry()
    {
        run->add({QStringLiteral("no such food"), A});
        run->edit(0, key("7"));
        run->controller.nextDay();
        run->controller.previousDay();
        QCOMPARE(run->entries(), QStringList({key("no such food 7 g 0"), key("A 100 g 0")}));
    }

private:
    // The amount in the first row, as it was at the last reload.
    static QString shown(const TableView *table) { return table->model()->index(0, 1).data().toString(); }

    std::unique_ptr<Home> home;
    std::unique_ptr<Run> run;
};

QTEST_MAIN(DayStoreTest)
#include "tst_daystore.moc"
