// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "history/Course.h"
#include "history/Figures.h"
#include "history/Sources.h"
#include "history/Year.h"
#include "tests/support/StoredHistory.h"

#include <QElapsedTimer>
#include <QtTest>

#include <limits>
#include <memory>

namespace {

constexpr float infinite = std::numeric_limits<float>::infinity();
constexpr float noNumber = std::numeric_limits<float>::quiet_NaN();

QString textOf(const std::optional<QDate> &date)
{
    return date ? LocalDay::key(*date) : QStringLiteral("none");
}

QString textOf(const QList<QDate> &dates)
{
    QStringList texts;
    for (const QDate date : dates)
        texts.append(QString::number(date.day()));
    return texts.join(u' ');
}

QString textOf(const History::Period &period)
{
    return LocalDay::key(period.first) + u' ' + LocalDay::key(period.last);
}

int nutrient(const char *name)
{
    return NutrientCatalogue::indexOfNutrient(name);
}

} // namespace

// The rules of a history, one by one. A random log of 400 days is in tst_historyfigures.
class HistoryTest final : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<StoredHistory> history;

    [[nodiscard]] History::Days read(QDate first, QDate last, const std::optional<History::ShownDay> &shown = {}) const
    {
        return history->reader.read({first, last}, shown);
    }
    [[nodiscard]] QByteArray storeBytes() const
    {
        QFile file(history->path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
    }

private slots:
    void init() { history = std::make_unique<StoredHistory>(); }
    void cleanup() { history.reset(); }

    void aPeriodEndsWithItsLastDayAndItsNeighboursTouchIt_data()
    {
        QTest::addColumn<QDate>("last");
        QTest::addColumn<int>("length");
        QTest::addColumn<QString>("period");
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("after");
        const auto row = [](const char *name, QDate last, History::Length length, const char *period,
                             const char *before, const char *after) {
            QTest::newRow(name) << last << int(length) << QString::fromLatin1(period) << QString::fromLatin1(before)
                                << QString::fromLatin1(after);
        };
        row("7 days over a year's end", {2026, 1, 3}, History::Length::Days7, "2025_12_28 2026_01_03",
            "2025_12_21 2025_12_27", "2026_01_04 2026_01_10");
        row("30 days", {2026, 11, 20}, History::Length::Days30, "2026_10_22 2026_11_20", "2026_09_22 2026_10_21",
            "2026_11_21 2026_12_20");
        row("90 days over a leap day", {2024, 3, 30}, History::Length::Days90, "2024_01_01 2024_03_30",
            "2023_10_03 2023_12_31", "2024_03_31 2024_06_28");
        row("a year", {2026, 11, 20}, History::Length::Year, "2025_11_21 2026_11_20", "2024_11_21 2025_11_20",
            "2026_11_21 2027_11_20");
        row("a year up to a leap day", {2024, 2, 29}, History::Length::Year, "2023_03_01 2024_02_29",
            "2022_03_01 2023_02_28", "2024_03_01 2025_02_28");
        row("the calendar's first days", {1, 1, 5}, History::Length::Days7, "0001_01_01 0001_01_05",
            "0001_01_01 0001_01_05", "0001_01_06 0001_01_12");
        row("the calendar's first year", {1, 12, 31}, History::Length::Year, "0001_01_01 0001_12_31",
            "0001_01_01 0001_12_31", "0002_01_01 0002_12_31");
        row("the calendar's last days", {9999, 12, 30}, History::Length::Days7, "9999_12_24 9999_12_30",
            "9999_12_17 9999_12_23", "9999_12_31 9999_12_31");
        row("the calendar's last year", {9999, 12, 31}, History::Length::Year, "9999_01_01 9999_12_31",
            "9998_01_01 9998_12_31", "9999_01_01 9999_12_31");
    }

    void aPeriodEndsWithItsLastDayAndItsNeighboursTouchIt()
    {
        QFETCH(QDate, last);
        QFETCH(int, length);
        const auto chosen = History::Length(length);
        const History::Period period = History::periodUpTo(last, chosen);
        QTEST(textOf(period), "period");
        QTEST(textOf(History::before(period, chosen)), "before");
        QTEST(textOf(History::after(period, chosen)), "after");
    }

    void daysBelowHalfOfTheMedianEnergyAreIncomplete_data()
    {
        QTest::addColumn<QList<float>>("energies");
        QTest::addColumn<QString>("incomplete"); // days of the month
        const auto row = [](const char *name, const QList<float> &energies, const char *incomplete) {
            QTest::newRow(name) << energies << QString::fromLatin1(incomplete);
        };
        row("an odd number of days", {2000, 999, 1000, 2000, 2500}, "2");
        row("an even number: the mean of the middle two", {1000, 2000, 749, 3000, 750, 9000}, "3");
        row("days not logged do not count", {2000, -1, 999, -1, 2000}, "3");
        row("logged days without energy do", {2000, 0, 2000}, "2");
        row("no energy at all", {0, 0, 0}, "");
        row("one day", {5}, "");
        row("no day", {}, "");
        row("no number", {2000, noNumber, 900, 2000}, "3");
        row("infinite", {2000, infinite, 900, 2000, 2000}, "3");
    }

    void daysBelowHalfOfTheMedianEnergyAreIncomplete()
    {
        QFETCH(QList<float>, energies);
        history->eat({2026, 3, 1}, energies);
        history->eat({2026, 4, 1}, 1.0F); // outside the period
        const History::Days days = read({2026, 3, 1}, {2026, 3, 31});
        QTEST(textOf(History::incompleteDays(days)), "incomplete");
    }

    void daysLeftOutAreLeftOutOfEverything()
    {
        history->eat({2026, 3, 1}, {2000, 100, 2000, 2000, 2000});
        const History::Days all = read({2026, 3, 1}, {2026, 3, 10});
        const History::Days days = all.without(History::incompleteDays(all));
        QCOMPARE(History::figures(all, {})->front().mean, 1620.0);
        QCOMPARE(History::figures(days, {})->front().mean, 2000.0);
        QCOMPARE(History::figures(days, {})->front().lowest, 2000.0F);
        const History::Course course = History::course(days, 0);
        QCOMPARE(course.bars[1].loggeddays, 0);
        QCOMPARE(course.running.front().day, QDate(2026, 3, 5));
        QCOMPARE(History::sources(days, 0).known.front().amount, 8000.0);
        QVERIFY(!History::year(days, 0, 0.0F).cells[60].step);
        QVERIFY(History::year(all, 0, 0.0F).cells[60].step);
    }

    // In memory alone: a store of so many days would take longer than all other tests of the history.
    void aHundredThousandDaysOfAsManyFoodsAreGoneThroughQuickly()
    {
        constexpr int count = 100000;
        const QDate first = QDate(2026, 11, 20).addDays(1 - count);
        const auto foods = std::make_shared<History::Foods>(count);
        History::Days days{{first, QDate(2026, 11, 20)}, {}, {}, foods};
        QList<QDate> other;
        for (int i = 0; i < count; ++i) {
            days.all.append({first.addDays(i), i, 1, {}});
            days.entries.append({i, 100.0F});
            if (i % 2 != 0)
                other.prepend(days.all.constLast().date);
        }
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(days.without(other).all.size(), count / 2);
        QVERIFY(timer.elapsed() < 1500);
        timer.restart();
        History::KnownShareCounter counter(days);
        for (std::size_t i = 0; i < count; ++i)
            QCOMPARE(counter.of(days.ofPeriod().subspan(i, 1)).front(), 0.0);
        QVERIFY(timer.elapsed() < 1500);
    }

    void anEmptyPeriodHasNoFigures()
    {
        history->eat({2026, 3, 1}, 2000);
        history->store({2026, 4, 2}, {});
        history->store({2026, 4, 3}, {QByteArray("no record")});
        const History::Days days = read({2026, 4, 1}, {2026, 4, 30});
        QVERIFY(days.ofPeriod().empty());
        QVERIFY(!History::figures(days, {}));
        QVERIFY(History::sources(days, 0).known.empty() && History::sources(days, 0).unknown.empty());
        QCOMPARE(History::course(days, 0).bars.size(), std::size_t(30));
        QVERIFY(History::course(days, 0).running.empty());
    }

    void aLoggedDayWithoutTheNutrientCountsAsZero()
    {
        history->eat({2026, 3, 1}, 100);
        history->store({2026, 3, 2}, {StoredHistory::record("Water", 500)});
        const History::NutrientFigures protein
            = (*History::figures(read({2026, 3, 1}, {2026, 3, 30}), {}))[std::size_t(nutrient("Protein"))];
        QCOMPARE(protein.mean, 2.5);
        QCOMPARE(protein.lowest, 0.0F);
        QCOMPARE(protein.lowestday, QDate(2026, 3, 2));
        QVERIFY(!protein.ratio);
    }

    void whereNothingHasEnergyEachEntryCountsAlike()
    {
        const QVariantList drunk{StoredHistory::record("Water", 500), StoredHistory::record("Nothing known", 100)};
        history->store({2026, 3, 1}, drunk);
        const History::Days days = read({2026, 3, 1}, {2026, 3, 1});
        const History::KnownShares shares = History::knownShares(days, days.ofPeriod());
        QCOMPARE(shares[std::size_t(nutrient("Water"))], 0.5);
        QCOMPARE(shares[std::size_t(nutrient("Protein"))], 0.0);
    }

    void whatIsKnownForLessThanNineTenthsIsALowerBound()
    {
        History::NutrientFigures figures;
        figures.knownshare = 0.9;
        QVERIFY(!figures.isLowerBound());
        figures.knownshare = 0.899;
        QVERIFY(figures.isLowerBound());
    }

    void anAllowanceNotAboveZeroIsNone()
    {
        for (const float allowance : {0.0F, -5.0F, noNumber})
            QVERIFY(!History::ratioOf(1.0, allowance));
    }

    void sourcesOfOneAmountGoByNameAndThoseOfNothingAreLeftOut()
    {
        history->files.writeElements(QStringLiteral("Bagel"), "<nutrient name='Energy' amount='100'/>");
        history->store({2026, 3, 1},
            {StoredHistory::record("Water", -100), StoredHistory::record("Bread", 250),
                StoredHistory::record("Bagel", 250)});
        const History::Days days = read({2026, 3, 1}, {2026, 3, 1});
        const std::vector<History::Source> energy = History::sources(days, 0).known;
        QCOMPARE(energy.size(), std::size_t(2));
        QCOMPARE(*energy[0].food, QStringLiteral("Bagel"));
        QCOMPARE(energy[1].runningshare, std::optional(1.0));
        // 100 g of water in the bread, and as much taken away: no share of nothing.
        const std::vector<History::Source> water = History::sources(days, nutrient("Water")).known;
        QCOMPARE(water.size(), std::size_t(2));
        QVERIFY(!water[0].share && !water[1].runningshare);
    }

    void barsAreOfDaysThenWeeksThenMonths_data()
    {
        QTest::addColumn<QDate>("first");
        QTest::addColumn<QDate>("last");
        QTest::addColumn<int>("bars");
        QTest::addColumn<QString>("second");
        const auto row = [](const char *name, QDate first, QDate last, int bars, const char *second) {
            QTest::newRow(name) << first << last << bars << QString::fromLatin1(second);
        };
        row("92 days", {2026, 3, 1}, {2026, 5, 31}, 92, "2026_03_02 2026_03_02");
        row("93 days, from a Sunday", {2026, 3, 1}, {2026, 6, 1}, 15, "2026_03_02 2026_03_08");
        row("ten years", {2016, 11, 21}, {2026, 11, 20}, 522, "2016_11_28 2016_12_04");
        row("ten years and a day", {2016, 11, 20}, {2026, 11, 20}, 121, "2016_12_01 2016_12_31");
        row("all years", {1, 1, 1}, {9999, 12, 31}, 9999 * 12, "0001_02_01 0001_02_28");
    }

    void barsAreOfDaysThenWeeksThenMonths()
    {
        QFETCH(QDate, first);
        QFETCH(QDate, last);
        history->eat(last, 700);
        const History::Course course = History::course(read(first, last), 0);
        QTEST(int(course.bars.size()), "bars");
        QTEST(textOf(course.bars[1].days), "second");
        QCOMPARE(course.bars.front().days.first, first);
        QCOMPARE(course.bars.front().loggeddays, 0);
        QCOMPARE(course.bars.back().days.last, last);
        QCOMPARE(course.bars.back().mean, 700.0);
        QCOMPARE(History::barOf(course, first), std::size_t(0));
        QCOMPARE(History::barOf(course, course.bars[1].days.first), std::size_t(1));
        QCOMPARE(History::barOf(course, last), course.bars.size() - 1);
    }

    void theMeanOverSevenDaysBreaksWhereFewerThanFourAreLogged()
    {
        history->eat({2026, 2, 27}, {10, 20}); // before the period
        history->eat({2026, 3, 1}, {30, 40, -1, -1, -1, -1, -1, 50, 60, 70, 80});
        const History::Course course = History::course(read({2026, 3, 1}, {2026, 3, 31}), 0);
        QStringList points;
        for (const History::RunningMean &point : course.running)
            points.append(QStringLiteral("%1:%2").arg(point.day.day()).arg(point.mean));
        QCOMPARE(points.join(u' '), QStringLiteral("2:25 3:25 4:25 5:25 11:65 12:65 13:65 14:65"));
    }

    void daysAreCalendarDaysByKeyInEveryZoneAndYear_data()
    {
        QTest::addColumn<QByteArray>("zone");
        for (const char *zone : {"UTC", "Europe/Berlin", "Pacific/Apia", "America/St_Johns"})
            QTest::newRow(zone) << QByteArray(zone);
    }

    // Apia left out 30 December 2011, Berlin has days of 23 and 25 hours.
    void daysAreCalendarDaysByKeyInEveryZoneAndYear()
    {
        QFETCH(QByteArray, zone);
        qputenv("TZ", zone);
        for (const QDate first : {QDate(1, 1, 1), QDate(2011, 12, 20), QDate(2024, 2, 20), QDate(2026, 3, 20),
                 QDate(2026, 10, 20), QDate(9999, 12, 12)}) {
            history->eat(first, QList<float>(20, 300.0F));
            const History::Days days = read(first, first.addDays(19));
            QCOMPARE(days.ofPeriod().size(), std::size_t(20));
            for (const History::Bar &bar : History::course(days, 0).bars)
                QCOMPARE(bar.loggeddays, 1);
        }
        const History::Days all = history->reader.readAll({9999, 12, 31});
        QCOMPARE(textOf(all.period), QStringLiteral("0001_01_01 9999_12_31"));
        QCOMPARE(all.ofPeriod().size(), std::size_t(120));
        QCOMPARE(History::course(all, 0).running.size(), std::size_t(6 * 20 - 3 * 6 + 5 * 3));
        qputenv("TZ", "UTC");
    }

    void allOfItBeginsWithTheFirstLoggedDay()
    {
        history->store({1, 1, 1}, {}); // looked at, nothing entered
        QCOMPARE(textOf(history->reader.readAll({2026, 3, 9}).period), QStringLiteral("2026_03_09 2026_03_09"));
        history->eat({2024, 2, 29}, 100);
        history->eat({2026, 3, 20}, 100);
        const History::Days days = history->reader.readAll({2026, 3, 9});
        QCOMPARE(textOf(days.period), QStringLiteral("2024_02_29 2026_03_09"));
        QCOMPARE(days.ofPeriod().size(), std::size_t(1));
        QVERIFY(days.on({2026, 3, 20})); // of the year at a glance
    }

    void theYearIsSevenRowsOfWeeksFromMonday_data()
    {
        QTest::addColumn<int>("year");
        QTest::addColumn<int>("weeks");
        QTest::addColumn<int>("firstweekday");
        for (const int year : {1, 2024, 2026, 9999})
            QTest::addRow("%d", year) << year << 53 << QDate(year, 1, 1).dayOfWeek() - 1;
        QTest::newRow("a leap year from a Sunday") << 2012 << 54 << 6;
    }

    void theYearIsSevenRowsOfWeeksFromMonday()
    {
        QFETCH(int, year);
        const History::Year cells = History::year(read({year, 12, 1}, {year, 12, 31}), 0, 0.0F);
        QTEST(cells.weeks, "weeks");
        QTEST(cells.cells.front().weekday, "firstweekday");
        QCOMPARE(int(cells.cells.size()), QDate(year, 1, 1).daysInYear());
        for (std::size_t i = 1; i < cells.cells.size(); ++i) {
            const auto placeOf = [](const History::Cell &cell) { return 7 * cell.week + cell.weekday; };
            QCOMPARE(placeOf(cells.cells[i]), placeOf(cells.cells[i - 1]) + 1);
        }
    }

    void theStepsAreQuartersOfTheAllowanceOrFifthsOfTheDays()
    {
        history->eat({2026, 1, 1}, {0, 249, 250, 500, 750, 999, 1000, infinite, noNumber, -1});
        const History::Days days = read({2026, 1, 1}, {2026, 1, 30});
        const auto stepsOf = [](const History::Year &year) {
            QString steps;
            for (std::size_t i = 0; i < 10; ++i)
                steps += year.cells[i].step ? QString::number(*year.cells[i].step) : QStringLiteral("-");
            return steps;
        };
        QCOMPARE(stepsOf(History::year(days, 0, 1000.0F)), QStringLiteral("001233440-"));
        QCOMPARE(stepsOf(History::year(days, 0, 0.0F)), QStringLiteral("001123340-"));
    }

    void theShownDayIsWhatTheWindowHoldsNotWhatIsStored()
    {
        history->eat({2026, 3, 1}, {100, 200, 300});
        const auto energies = [&](const History::ShownDay &shown) {
            QStringList texts;
            const History::Days days = read({2026, 3, 1}, {2026, 3, 9}, shown);
            for (const History::Day &day : days.ofPeriod())
                texts.append(QStringLiteral("%1:%2").arg(day.date.day()).arg(double(day.energy())));
            return texts.join(u' ');
        };
        const QList<QByteArray> records{StoredHistory::record("Bread", 7)};
        QCOMPARE(energies({{2026, 3, 2}, records}), QStringLiteral("1:100 2:7 3:300"));
        QCOMPARE(energies({{2026, 3, 5}, records}), QStringLiteral("1:100 2:200 3:300 5:7"));
        QCOMPARE(energies({{2026, 3, 3}, {}}), QStringLiteral("1:100 2:200"));
        QCOMPARE(energies({{2025, 3, 2}, records}), QStringLiteral("1:100 2:200 3:300"));
    }

    void valuesThatCouldNotBeWrittenCount()
    {
        history->eat({2026, 3, 1}, 100);
        UserDefaults::Transaction waiting(history->prefs);
        history->eat({2026, 3, 1}, 150);
        history->eat({2026, 3, 2}, 250);
        QCOMPARE(History::figures(read({2026, 3, 1}, {2026, 3, 2}), {})->front().mean, 200.0);
    }

    void aNameCountsOnceADayHoweverManyEntriesItHas()
    {
        QVariantList items;
        for (int i = 0; i < 200; ++i) {
            items.append(StoredHistory::record(i % 2 == 0 ? "Bread" : "Water", float(i + 1)));
            items.append(StoredHistory::record(QByteArray("food ").append(QByteArray::number(i)).constData(), 1));
        }
        history->store({2026, 3, 1}, items);
        const History::Days days = read({2026, 3, 1}, {2026, 3, 1});
        QCOMPARE(days.all.first().entrycount, 202);
        QCOMPARE(days.all.first().energy(), 1.0F);
    }

    void theNextLoggedDayIsFoundHoweverFarItIs()
    {
        history->eat({1, 1, 1}, 1);
        history->eat({2026, 3, 1}, 1);
        history->store({2026, 3, 2}, {});
        history->eat({2026, 3, 7}, 1);
        history->eat({9999, 12, 31}, 1);
        const auto neighbours = [&](QDate date, const std::optional<History::ShownDay> &shown = {}) {
            return textOf(history->reader.loggedBefore(date, shown)) + u' '
                + textOf(history->reader.loggedAfter(date, shown));
        };
        QCOMPARE(neighbours({2026, 3, 4}), QStringLiteral("2026_03_01 2026_03_07"));
        QCOMPARE(neighbours({2026, 3, 1}), QStringLiteral("0001_01_01 2026_03_07"));
        QCOMPARE(neighbours({2026, 3, 8}), QStringLiteral("2026_03_07 9999_12_31"));
        QCOMPARE(neighbours({1, 1, 2}), QStringLiteral("0001_01_01 2026_03_01"));
        QCOMPARE(neighbours({1, 1, 1}), QStringLiteral("none 2026_03_01"));
        QCOMPARE(neighbours({9999, 12, 30}), QStringLiteral("2026_03_07 9999_12_31"));
        QCOMPARE(neighbours({9999, 12, 31}), QStringLiteral("2026_03_07 none"));
        const History::ShownDay emptied{{2026, 3, 7}, {}};
        QCOMPARE(neighbours({2026, 3, 4}, emptied), QStringLiteral("2026_03_01 9999_12_31"));
        const History::ShownDay filled{{2026, 3, 5}, {StoredHistory::record("Bread", 1)}};
        QCOMPARE(neighbours({2026, 3, 7}, filled), QStringLiteral("2026_03_05 9999_12_31"));
    }

    void aFoodsFileIsReadOnceInAReadersLife()
    {
        history->eat({2026, 3, 1}, 100);
        history->eat({2026, 3, 2}, 100);
        QCOMPARE(read({2026, 3, 1}, {2026, 3, 1}).all.first().energy(), 100.0F);
        history->files.remove(QStringLiteral("Bread"));
        QCOMPARE(read({2026, 3, 2}, {2026, 3, 2}).all.last().energy(), 100.0F);
        QCOMPARE(History::DayReader(history->prefs).read({{2026, 3, 2}, {2026, 3, 2}}).all.last().energy(), 0.0F);
    }

    void readingChangesNoByteAndNoKeyCountsAsRead()
    {
        history->eat({2026, 3, 1}, 100);
        const QByteArray before = storeBytes();
        const QString copy = history->path + QStringLiteral("-2");
        QVERIFY(QFile::copy(history->path, copy));
        UserDefaults other(copy); // a run that has read and written nothing yet
        {
            History::DayReader reader(other);
            QCOMPARE(reader.readAll({2026, 3, 9}).all.size(), 1);
            QVERIFY(reader.loggedBefore({2026, 3, 9}));
        }
        static_cast<void>(read({2026, 3, 1}, {2026, 3, 9}));
        QCOMPARE(storeBytes(), before);
        other.setObject(QVariantList(), QStringLiteral("2026_03_01"));
        QVERIFY(other.storedKeys().contains(QStringLiteral("2026_03_01.unread"))); // kept, since nobody read it
    }
};

QTEST_GUILESS_MAIN(HistoryTest)
#include "tst_history.moc"
