// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "history/Course.h"
#include "history/Figures.h"
#include "history/Sources.h"
#include "history/Year.h"
#include "platform/KeyedArchiver.h"
#include "tests/support/Chance.h"
#include "tests/support/StoredHistory.h"

#include <QtTest>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <map>

namespace {

constexpr std::size_t nutrients = 61;

bool sameBits(float left, float right)
{
    return (std::isnan(left) && std::isnan(right)) || std::bit_cast<quint32>(left) == std::bit_cast<quint32>(right);
}

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

// What was stored, remembered as it was stored and never read from there, and its figures computed day by day in the
// plainest way, with food files read by other code than the program's.
class NaiveHistory final {
public:
    struct Entry {
        Naive::Text name;
        std::array<float, nutrients> amounts{};
        std::array<bool, nutrients> known{};
    };
    std::map<QDate, std::vector<Entry>> log; // no date without an entry
    std::map<QDate, std::array<float, nutrients>> sums;
    std::string folder;

    // As opening the day takes them in: a name that is there already is left out.
    void add(QDate date, const Naive::Record &record)
    {
        for (const Entry &entry : log[date]) {
            if (record.name && entry.name == record.name)
                return;
        }
        const Naive::FoodPointer food = Naive::foodOf(record);
        Naive::load(*food, folder, 1);
        Entry entry{record.name};
        for (std::size_t i = 0; i < nutrients; ++i) {
            const std::string nutrient = NutrientCatalogue::names()[int(i)].toStdString();
            entry.amounts[i] = Naive::amountOf(*food, nutrient);
            entry.known[i] = food->texts.count(nutrient) != 0;
            sums[date][i] = sums[date][i] + entry.amounts[i];
        }
        log[date].push_back(entry);
    }

    [[nodiscard]] bool isLogged(QDate date) const { return log.count(date) != 0; }
    [[nodiscard]] float sum(QDate date, std::size_t nutrient) const { return sums.at(date)[nutrient]; }
    [[nodiscard]] std::vector<QDate> loggedDays(QDate first, QDate last) const
    {
        std::vector<QDate> days;
        for (QDate date = first; date <= last; date = date.addDays(1)) {
            if (isLogged(date))
                days.push_back(date);
        }
        return days;
    }
    // Not a number without days.
    [[nodiscard]] double mean(QDate first, QDate last, std::size_t nutrient) const
    {
        double sumofdays = 0.0;
        const std::vector<QDate> days = loggedDays(first, last);
        for (const QDate date : days)
            sumofdays += double(sum(date, nutrient));
        return sumofdays / double(days.size());
    }
    [[nodiscard]] double knownShare(const std::vector<QDate> &days, std::size_t nutrient) const
    {
        const auto shareBy = [&](const auto &weight) {
            double known = 0.0;
            double all = 0.0;
            for (const QDate date : days) {
                for (const Entry &entry : log.at(date)) {
                    all += weight(entry);
                    known += entry.known[nutrient] ? weight(entry) : 0.0;
                }
            }
            return known / all;
        };
        const double share = shareBy([](const Entry &entry) {
            const float energy = entry.amounts[0];
            return energy > 0.0F && energy <= std::numeric_limits<float>::max() ? double(energy) : 0.0;
        });
        return std::isnan(share) ? shareBy([](const Entry &) { return 1.0; }) : share;
    }
};

} // namespace

// A random log of 400 days with everything in it that a store may hold, against a computation of the test's own.
class HistoryFiguresTest final : public QObject {
    Q_OBJECT

private:
    static constexpr int dayCount = 400;
    const QDate begin{2023, 11, 10}; // over two year ends and a leap day
    std::unique_ptr<StoredHistory> history;
    NaiveHistory naive;
    Chance chance;
    History::Allowances allowances{};
    std::optional<History::ShownDay> shown;

    // On some days amounts are infinite or no number at all.
    Naive::Record someRecord(bool iswild)
    {
        Naive::Record record = chance.record();
        if (!iswild)
            record.amount = float(chance.draw(4000)) / 7.0F;
        else if (chance.percent(10))
            record.amount
                = chance.percent(50) ? std::numeric_limits<float>::quiet_NaN() : std::numeric_limits<float>::infinity();
        return record;
    }

    static QByteArray encoded(const Naive::Record &record, const char *classname = "Food")
    {
        const auto text = [](const Naive::Text &part) {
            return part ? std::optional<QString>(QString::fromStdString(*part)) : std::nullopt;
        };
        KeyedArchiver archiver(QString::fromLatin1(classname));
        archiver.encodeString(text(record.name), QLatin1String("name"));
        archiver.encodeFloat(record.amount, QLatin1String("amount"));
        archiver.encodeString(text(record.unit), QLatin1String("unit"));
        archiver.encodeInt(record.unitindex, QLatin1String("unitidx"));
        return archiver.archivedData();
    }

    // The items of a day; those that are entries go to the naive log too.
    QVariantList someDay(QDate date, bool iswild)
    {
        QVariantList items;
        for (int count = chance.percent(10) ? 0 : chance.draw(15); count > 0; --count) {
            const Naive::Record record = someRecord(iswild);
            switch (chance.draw(25)) {
            case 0:
                items.append(QByteArray("no record"));
                break;
            case 1:
                items.append(encoded(record).chopped(20));
                break;
            case 2:
                items.append(encoded(record, "Meal"));
                break;
            case 3:
                items.append(qint64(7));
                break;
            default:
                items.append(encoded(record));
                naive.add(date, record);
            }
        }
        return items;
    }

    void storeDays()
    {
        UserDefaults::Transaction save(history->prefs);
        for (int i = 0; i < dayCount; ++i) {
            const QDate date = begin.addDays(i);
            if (chance.percent(20))
                continue;
            if (chance.percent(3))
                history->prefs.setObject(QStringLiteral("no list"), LocalDay::key(date));
            else
                history->store(date, someDay(date, i > 100 && i < 130));
        }
        history->prefs.setObject(
            QVariantList{encoded({"F01", 9.0F, "g", 0})}, LocalDay::key(begin.addDays(10)) + QStringLiteral(".unread"));
        QVERIFY(save.commit());
    }

    void comparePeriod(const History::Days &days)
    {
        const History::Period period = days.period;
        const std::vector<QDate> logged = naive.loggedDays(period.first, period.last);
        QCOMPARE(days.ofPeriod().size(), logged.size());
        for (std::size_t i = 0; i < logged.size(); ++i) {
            const History::Day &day = days.ofPeriod()[i];
            QCOMPARE(day.date, logged[i]);
            QCOMPARE(std::size_t(day.entrycount), naive.log[day.date].size());
            for (std::size_t nutrient = 0; nutrient < nutrients; ++nutrient)
                QVERIFY(sameBits(day.sums[nutrient], naive.sum(day.date, nutrient)));
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
        const double mean = naive.mean(logged.front(), logged.back(), nutrient);
        QVERIFY(same(figures.mean, mean));
        QVERIFY(same(figures.ratio,
            allowances[nutrient] > 0.0F ? std::optional(mean / double(allowances[nutrient])) : std::nullopt));
        QVERIFY(same(figures.knownshare, naive.knownShare(logged, nutrient)));
        QCOMPARE(figures.isLowerBound(), figures.knownshare < 0.9);
        QDate lowest;
        QDate highest;
        for (const QDate date : logged) {
            const float sum = naive.sum(date, nutrient);
            if (!std::isnan(sum) && (!lowest.isValid() || sum < naive.sum(lowest, nutrient)))
                lowest = date;
            if (!std::isnan(sum) && (!highest.isValid() || sum > naive.sum(highest, nutrient)))
                highest = date;
        }
        QCOMPARE(figures.lowestday, lowest.isValid() ? lowest : logged.front());
        QCOMPARE(figures.highestday, highest.isValid() ? highest : logged.front());
        QVERIFY(sameBits(figures.lowest, naive.sum(figures.lowestday, nutrient)));
        QVERIFY(sameBits(figures.highest, naive.sum(figures.highestday, nutrient)));
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
            QCOMPARE(bar.loggeddays, int(naive.loggedDays(next, last).size()));
            QVERIFY(bar.loggeddays == 0 || same(bar.mean, naive.mean(next, last, nutrient)));
            next = last.addDays(1);
        }
        QCOMPARE(next, period.last.addDays(1));
        std::size_t point = 0;
        for (QDate date = period.first; date <= period.last; date = date.addDays(1)) {
            if (naive.loggedDays(date.addDays(-6), date).size() < 4)
                continue;
            QVERIFY(point < course.running.size());
            QCOMPARE(course.running[point].day, date);
            QVERIFY(same(course.running[point].mean, naive.mean(date.addDays(-6), date, nutrient)));
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
            for (const NaiveHistory::Entry &entry : naive.log.at(date)) {
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
        const std::vector<QDate> logged = naive.loggedDays({number, 1, 1}, {number, 12, 31});
        QCOMPARE(year.year, number);
        QCOMPARE(int(year.cells.size()), QDate(number, 1, 1).daysInYear());
        QDate date(number, 1, 1);
        for (const History::Cell &cell : year.cells) {
            QCOMPARE(cell.date, date);
            QCOMPARE(cell.weekday, date.dayOfWeek() - 1);
            QCOMPARE(cell.step.has_value(), naive.isLogged(date));
            if (cell.step)
                QCOMPARE(*cell.step, naiveStep(date, logged, nutrient));
            date = date.addDays(1);
        }
    }

    int naiveStep(QDate date, const std::vector<QDate> &logged, std::size_t nutrient) const
    {
        const float sum = naive.sum(date, nutrient);
        if (std::isnan(sum))
            return 0;
        int step = 0;
        if (allowances[nutrient] > 0.0F) {
            for (const double least : {0.25, 0.5, 0.75, 1.0})
                step += double(sum) / double(allowances[nutrient]) >= least ? 1 : 0;
            return step;
        }
        const auto isLess = [&](QDate other) { return naive.sum(other, nutrient) < sum; };
        const auto isNumber = [&](QDate other) { return !std::isnan(naive.sum(other, nutrient)); };
        return int(5 * std::count_if(logged.begin(), logged.end(), isLess)
            / std::count_if(logged.begin(), logged.end(), isNumber));
    }

private slots:
    void initTestCase()
    {
        chance.seed(20261121);
        history = std::make_unique<StoredHistory>();
        naive.folder = QFileInfo(history->files.pathOf(QStringLiteral("F00"))).path().toStdString();
        for (int i = 0; i < Chance::foods; ++i)
            chance.writeFile(history->files, i);
        for (std::size_t i = 0; i < nutrients; ++i)
            allowances[i] = i % 3 == 0 ? 0.0F : 50.0F * float(i % 7);
        storeDays();
        const QDate today = begin.addDays(390);
        naive.log.erase(today);
        naive.sums.erase(today);
        shown = History::ShownDay{today, {}};
        for (const QVariant &item : someDay(today, false))
            shown->records.append(item.toByteArray());
        QVERIFY(naive.log.size() > 200 && naive.log.size() < 330);
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
        comparePeriod(history->reader.read({begin.addDays(from), begin.addDays(from + length - 1)}, shown));
    }

    void aDaysKnownSharesAreThoseOfItsOwnEntries()
    {
        const History::Days days = history->reader.readOnly({begin, begin.addDays(dayCount - 1)}, shown);
        QCOMPARE(std::size_t(days.all.size()), naive.log.size());
        for (std::size_t i = 0; i < std::size_t(days.all.size()); ++i) {
            const History::KnownShares shares = History::knownShares(days, days.ofPeriod().subspan(i, 1));
            for (std::size_t nutrient = 0; nutrient < nutrients; ++nutrient) {
                QVERIFY(same(shares[nutrient], naive.knownShare({days.ofPeriod()[i].date}, nutrient)));
            }
        }
    }
};

QTEST_GUILESS_MAIN(HistoryFiguresTest)
#include "tst_historyfigures.moc"
