// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "history/Course.h"
#include "history/Figures.h"
#include "history/Sources.h"
#include "history/Year.h"
#include "tests/support/RandomHistory.h"

#include <QtTest>

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>

namespace {

// What was added in another order may differ in the last digits.
bool same(double left, double right)
{
    return (std::isnan(left) && std::isnan(right)) || left == right
        || std::abs(left - right) <= 1e-12 * std::max(std::abs(left), std::abs(right));
}
bool same(std::optional<double> left, std::optional<double> right)
{
    return left && right ? same(*left, *right) : left.has_value() == right.has_value();
}

} // namespace

// A random log of 400 days with everything in it that a store may hold, against a computation of the test's own.
class HistoryFiguresTest final : public QObject {
    Q_OBJECT

private:
    static constexpr int dayCount = RandomHistory::dayCount;
    const QDate begin{2023, 11, 10};
    std::unique_ptr<RandomHistory> random;
    History::Allowances allowances{};
    std::optional<History::ShownDay> shown;

    void comparePeriod(const History::Days &days)
    {
        const History::Period period = days.period;
        const std::vector<QDate> logged = random->naive.loggedDays(period.first, period.last);
        QCOMPARE(days.ofPeriod().size(), logged.size());
        for (std::size_t i = 0; i < logged.size(); ++i) {
            const History::Day &day = days.ofPeriod()[i];
            QCOMPARE(day.date, logged[i]);
            QCOMPARE(std::size_t(day.entrycount), random->naive.log[day.date].size());
            for (std::size_t nutrient = 0; nutrient < nutrients; ++nutrient)
                QVERIFY(sameBits(day.sums[nutrient], random->naive.sum(day.date, nutrient)));
        }
        const std::optional<History::Table> table = History::figures(days, allowances);
        QCOMPARE(table.has_value(), !logged.empty());
        for (std::size_t nutrient = 0; nutrient < nutrients; ++nutrient) {
            if (table)
                compareFigures((*table)[nutrient], logged, nutrient);
            compareCourse(History::course(days, int(nutrient)), period, nutrient);
            compareSources(History::sources(days, int(nutrient)), logged, nutrient);
            compareYear(History::year(days, int(nutrient), allowances[nutrient]), period.last.year(), nutrient);
        }
    }

    void compareFigures(const History::NutrientFigures &figures, const std::vector<QDate> &logged, std::size_t nutrient)
    {
        const double mean = random->naive.mean(logged.front(), logged.back(), nutrient);
        QVERIFY(same(figures.mean, mean));
        QVERIFY(same(figures.ratio,
            allowances[nutrient] > 0.0F ? std::optional(mean / double(allowances[nutrient])) : std::nullopt));
        QVERIFY(same(figures.knownshare, random->naive.knownShare(logged, nutrient)));
        QCOMPARE(figures.isLowerBound(), figures.knownshare < 0.9);
        QDate lowest;
        QDate highest;
        for (const QDate date : logged) {
            const float sum = random->naive.sum(date, nutrient);
            if (!std::isnan(sum) && (!lowest.isValid() || sum < random->naive.sum(lowest, nutrient)))
                lowest = date;
            if (!std::isnan(sum) && (!highest.isValid() || sum > random->naive.sum(highest, nutrient)))
                highest = date;
        }
        QCOMPARE(figures.lowestday, lowest.isValid() ? lowest : logged.front());
        QCOMPARE(figures.highestday, highest.isValid() ? highest : logged.front());
        QVERIFY(sameBits(figures.lowest, random->naive.sum(figures.lowestday, nutrient)));
        QVERIFY(sameBits(figures.highest, random->naive.sum(figures.highestday, nutrient)));
    }

    void compareCourse(const History::Course &course, const History::Period &period, std::size_t nutrient)
    {
        QDate next = period.first;
        for (const History::Bar &bar : course.bars) {
            QCOMPARE(bar.days.first, next);
            QDate last = next;
            if (period.days() > 92) { // the random log has less than ten years
                while (last < period.last && last.dayOfWeek() != Qt::Sunday)
                    last = last.addDays(1);
            }
            QCOMPARE(bar.days.last, last);
            QCOMPARE(bar.loggeddays, int(random->naive.loggedDays(next, last).size()));
            QVERIFY(bar.loggeddays == 0 || same(bar.mean, random->naive.mean(next, last, nutrient)));
            next = last.addDays(1);
        }
        QCOMPARE(next, period.last.addDays(1));
        std::size_t point = 0;
        for (QDate date = period.first; date <= period.last; date = date.addDays(1)) {
            if (random->naive.loggedDays(date.addDays(-6), date).size() < 4)
                continue;
            QVERIFY(point < course.running.size());
            QCOMPARE(course.running[point].day, date);
            QVERIFY(same(course.running[point].mean, random->naive.mean(date.addDays(-6), date, nutrient)));
            ++point;
        }
        QCOMPARE(point, course.running.size());
    }

    struct NaiveSource {
        double amount = 0.0;
        double energy = 0.0;
        bool isknown = false;
        QList<QDate> days;
    };

    std::map<Naive::Text, NaiveSource> naiveSources(const std::vector<QDate> &logged, std::size_t nutrient) const
    {
        std::map<Naive::Text, NaiveSource> foods;
        for (const QDate date : logged) {
            for (const NaiveHistory::Entry &entry : random->naive.log.at(date)) {
                NaiveSource &source = foods[entry.name];
                source.amount += double(entry.amounts[nutrient]);
                source.energy += double(entry.amounts[0]);
                source.isknown = entry.known[nutrient];
                if (!source.days.contains(date))
                    source.days.append(date);
            }
        }
        return foods;
    }

    void compareSources(const History::Sources &sources, const std::vector<QDate> &logged, std::size_t nutrient)
    {
        std::map<Naive::Text, NaiveSource> foods = naiveSources(logged, nutrient);
        double total = 0.0;
        for (const auto &[name, food] : foods)
            total += food.isknown ? food.amount : 0.0;
        double running = 0.0;
        double former = std::numeric_limits<double>::infinity();
        for (const History::Source &source : sources.known) {
            const NaiveSource food = foods[toStandard(source.food)];
            QVERIFY(food.isknown && same(source.amount, food.amount));
            QVERIFY(std::isnan(source.amount) || source.amount <= former);
            former = source.amount;
            running += source.amount;
            const bool hasshare = std::isfinite(total) && total != 0.0;
            QVERIFY(same(source.share, hasshare ? std::optional(food.amount / total) : std::nullopt));
            QVERIFY(same(source.runningshare, hasshare ? std::optional(running / total) : std::nullopt));
            QCOMPARE(source.days, int(food.days.size()));
            QCOMPARE(source.lastday, food.days.last());
            foods.erase(toStandard(source.food));
        }
        former = std::numeric_limits<double>::infinity();
        for (const History::UnknownSource &source : sources.unknown) {
            const NaiveSource food = foods[toStandard(source.food)];
            QVERIFY(!food.isknown && same(source.energy, food.energy));
            QVERIFY(std::isnan(source.energy) || source.energy <= former);
            former = source.energy;
            QCOMPARE(source.days, int(food.days.size()));
            QCOMPARE(source.lastday, food.days.last());
            foods.erase(toStandard(source.food));
        }
        for (const auto &[name, food] : foods)
            QVERIFY(food.isknown && food.amount == 0.0); // the rest gave nothing
    }

    static Naive::Text toStandard(const std::optional<QString> &name)
    {
        return name ? Naive::Text(name->toStdString()) : std::nullopt;
    }

    void compareYear(const History::Year &year, int number, std::size_t nutrient)
    {
        const std::vector<QDate> logged = random->naive.loggedDays({number, 1, 1}, {number, 12, 31});
        QCOMPARE(year.year, number);
        QCOMPARE(int(year.cells.size()), QDate(number, 1, 1).daysInYear());
        QDate date(number, 1, 1);
        for (const History::Cell &cell : year.cells) {
            QCOMPARE(cell.date, date);
            QCOMPARE(cell.weekday, date.dayOfWeek() - 1);
            QCOMPARE(cell.step.has_value(), random->naive.isLogged(date));
            if (cell.step)
                QCOMPARE(*cell.step, naiveStep(date, logged, nutrient));
            date = date.addDays(1);
        }
    }

    int naiveStep(QDate date, const std::vector<QDate> &logged, std::size_t nutrient) const
    {
        const float sum = random->naive.sum(date, nutrient);
        if (std::isnan(sum))
            return 0;
        int step = 0;
        if (allowances[nutrient] > 0.0F) {
            for (const double least : {0.25, 0.5, 0.75, 1.0})
                step += double(sum) / double(allowances[nutrient]) >= least ? 1 : 0;
            return step;
        }
        const auto isLess = [&](QDate other) { return random->naive.sum(other, nutrient) < sum; };
        const auto isNumber = [&](QDate other) { return !std::isnan(random->naive.sum(other, nutrient)); };
        return int(5 * std::count_if(logged.begin(), logged.end(), isLess)
            / std::count_if(logged.begin(), logged.end(), isNumber));
    }

private slots:
    void initTestCase()
    {
        random = std::make_unique<RandomHistory>(20261121);
        for (std::size_t i = 0; i < nutrients; ++i)
            allowances[i] = i % 3 == 0 ? 0.0F : 50.0F * float(i % 7);
        const QDate today = begin.addDays(390);
        random->naive.log.erase(today);
        random->naive.sums.erase(today);
        shown = History::ShownDay{today, {}};
        for (const QVariant &item : random->someDay(today, false))
            shown->records.append(item.toByteArray());
        QVERIFY(random->naive.log.size() > 200 && random->naive.log.size() < 330);
    }

    void everyFigureOfARandomHistoryIsThatOfAnIndependentComputation_data()
    {
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("length");
        QTest::newRow("all") << 0 << 400;
        QTest::newRow("a quarter that begins in the middle of a week") << 45 << 92;
        QTest::newRow("the shortest one with bars of weeks") << 200 << 93;
        QTest::newRow("a month of infinite amounts and NaN") << 101 << 30;
        QTest::newRow("a month up to the shown day") << 361 << 30;
        QTest::newRow("over a year's end") << 45 << 10;
        QTest::newRow("before the first day") << -40 << 30;
        for (int i = 102; i < 122; ++i) {
            QTest::addRow("day %d alone", i) << i << 1;
            QTest::addRow("from day %d on", i) << i << 3;
        }
    }

    void everyFigureOfARandomHistoryIsThatOfAnIndependentComputation()
    {
        QFETCH(int, from);
        QFETCH(int, length);
        comparePeriod(random->history.reader.read({begin.addDays(from), begin.addDays(from + length - 1)}, shown));
    }

    void aDaysKnownSharesAreThoseOfItsOwnEntries()
    {
        const History::Days days = random->history.reader.readOnly({begin, begin.addDays(dayCount - 1)}, shown);
        QCOMPARE(std::size_t(days.all.size()), random->naive.log.size());
        for (std::size_t i = 0; i < std::size_t(days.all.size()); ++i) {
            const History::KnownShares shares = History::knownShares(days, days.ofPeriod().subspan(i, 1));
            for (std::size_t nutrient = 0; nutrient < nutrients; ++nutrient) {
                QVERIFY(same(shares[nutrient], random->naive.knownShare({days.ofPeriod()[i].date}, nutrient)));
            }
        }
    }
};

QTEST_GUILESS_MAIN(HistoryFiguresTest)
#include "tst_historyfigures.moc"
