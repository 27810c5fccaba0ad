// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

// What the history costs: the preferences store with a week, a year and 20 years of days of 20 foods. Every figure that
// has a limit is a ratio of two that were measured in this run, in random turns; the run fails when one is over.

#include "platform/KeyedArchiver.h"
#include "platform/PropertyList.h"
#include "platform/UserDefaults.h"

#include <QDate>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cstdio>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr int week = 7;
constexpr int year = 365;
constexpr int twentyYears = 7305;
constexpr int foodsOfADay = 20;

QString dayKey(int number)
{
    return QDate(2005, 1, 1).addDays(number).toString(QStringLiteral("yyyy_MM_dd"));
}

// The records of a day. The variant changes every amount, as a day that was edited.
QVariantList dayLog(int number, int variant)
{
    QVariantList records;
    for (int i = 0; i < foodsOfADay; ++i) {
        KeyedArchiver coder(QStringLiteral("Food"));
        coder.encodeString(QStringLiteral("Food of the day %1, prepared, without salt, %2").arg(number % 97).arg(i),
            QLatin1String("name"));
        coder.encodeFloat(100.0F + float(variant) + 0.25F * float(i), QLatin1String("amount"));
        coder.encodeString(QStringLiteral("1 cup, chopped"), QLatin1String("unit"));
        coder.encodeInt(2, QLatin1String("unitidx"));
        records.append(coder.archivedData());
    }
    return records;
}

QVariantList rdaList(int variant)
{
    QVariantList list;
    for (int i = 0; i < 61; ++i)
        list.append(1.5F * float(i + variant));
    return list;
}

// Another number at each call: bytes that are stored already are not written again.
int nextTurn()
{
    static int turn = 0;
    return ++turn;
}

// One store of so many days, made once.
const QString &storeOf(int days)
{
    static const QTemporaryDir folder(QDir::currentPath() + QStringLiteral("/bench_store-XXXXXX"));
    static std::map<int, QString> stores;
    QString &path = stores[days];
    if (!path.isEmpty())
        return path;
    path = folder.filePath(QStringLiteral("%1/preferences.sqlite").arg(days));
    UserDefaults defaults(path);
    UserDefaults::Transaction history(defaults);
    for (int day = 0; day < days; ++day)
        defaults.setObject(dayLog(day, 0), dayKey(day));
    defaults.setObject(rdaList(0), QStringLiteral("RDAs"));
    defaults.setObject(QDateTime(QDate(2005, 1, 1), QTime(12, 0), Qt::UTC), QStringLiteral("LastDate"));
    if (!history.commit())
        qFatal("the store cannot be made");
    return path;
}

// Reads a record as a food does.
bool isFood(const QByteArray &record)
{
    const auto decoder = KeyedUnarchiver::unarchive(record, QStringLiteral("Food"));
    return decoder && decoder->decodeString(QLatin1String("name")) && decoder->decodeFloat(QLatin1String("amount")) > 0
        && decoder->decodeString(QLatin1String("unit")) && decoder->decodeInt(QLatin1String("unitidx")) == 2;
}

// Everything that start-up asks of the store, and the day's foods.
void openStoreAndDay(benchmark::State &state)
{
    const int days = int(state.range(0));
    const QString &path = storeOf(days);
    int day = 0;
    for (auto _ : state) {
        UserDefaults defaults(path);
        defaults.registerDefaults({{QStringLiteral("RememberDate"), QStringLiteral("YES")}});
        const QVariant rdas = defaults.objectForKey(QStringLiteral("RDAs"));
        const bool remembers = defaults.boolForKey(QStringLiteral("RememberDate"));
        const QVariant date = defaults.objectForKey(QStringLiteral("LastDate"));
        const QVariantList log = defaults.objectForKey(dayKey(day)).toList();
        int foods = 0;
        for (const QVariant &record : log)
            foods += isFood(record.toByteArray()) ? 1 : 0;
        if (!remembers || !date.isValid() || rdas.toList().size() != 61 || foods != foodsOfADay)
            state.SkipWithError("the day is not there");
        day = (day + 31) % days;
    }
}

void leaveDay(benchmark::State &state)
{
    const int days = int(state.range(0));
    UserDefaults defaults(storeOf(days));
    defaults.setObject(nextTurn(), QStringLiteral("Opened")); // opens the store and its journal
    for (auto _ : state) {
        state.PauseTiming();
        const int turn = nextTurn();
        const int day = 31 * turn % days;
        const QVariantList log = dayLog(day, turn);
        state.ResumeTiming();
        defaults.setObject(log, dayKey(day));
    }
    if (!defaults.synchronize())
        state.SkipWithError("the day was not written");
}

// The least that SQLite can do to put the same bytes on the disk.
void bareCommit(benchmark::State &state)
{
    const int days = int(state.range(0));
    sqlite3 *database = nullptr;
    sqlite3_open(storeOf(days).toUtf8().constData(), &database);
    const auto run = [&](const char *sql) { return sqlite3_exec(database, sql, nullptr, nullptr, nullptr); };
    run("PRAGMA locking_mode = EXCLUSIVE; PRAGMA synchronous = EXTRA; PRAGMA temp_store = MEMORY");
    run(("REPLACE INTO defaults VALUES('Opened', " + std::to_string(nextTurn()) + ")").c_str());
    sqlite3_stmt *statement = nullptr;
    sqlite3_prepare_v2(database,
        "INSERT INTO defaults(key, value) VALUES(?1, ?2) ON CONFLICT(key) DO UPDATE SET value = excluded.value", -1,
        &statement, nullptr);
    for (auto _ : state) {
        state.PauseTiming();
        const int turn = nextTurn();
        const int day = 31 * turn % days;
        const QByteArray key = dayKey(day).toUtf8();
        const QByteArray bytes = PropertyList::write(dayLog(day, turn)).value();
        sqlite3_bind_text(statement, 1, key.constData(), int(key.size()), SQLITE_STATIC);
        sqlite3_bind_blob(statement, 2, bytes.constData(), int(bytes.size()), SQLITE_STATIC);
        state.ResumeTiming();
        run("BEGIN IMMEDIATE");
        const int result = sqlite3_step(statement);
        sqlite3_reset(statement);
        if (run("COMMIT") != SQLITE_OK || result != SQLITE_DONE)
            state.SkipWithError("the bytes were not written");
    }
    sqlite3_finalize(statement);
    sqlite3_close(database);
}

// RDAs, date, day and window in one transaction, on a store that was only read so far.
void shutdownSave(benchmark::State &state)
{
    const int days = int(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        const int turn = nextTurn();
        const int day = 31 * turn % days;
        auto defaults = std::make_unique<UserDefaults>(storeOf(days));
        benchmark::DoNotOptimize(defaults->objectForKey(dayKey(day)));
        const QVariantList log = dayLog(day, turn);
        state.ResumeTiming();
        {
            UserDefaults::Transaction save(*defaults);
            defaults->setObject(rdaList(turn), QStringLiteral("RDAs"));
            defaults->setObject(QDateTime::currentDateTimeUtc(), QStringLiteral("LastDate"));
            defaults->setObject(log, dayKey(day));
            defaults->setObject(QByteArray(70, char(turn)), QStringLiteral("WindowGeometry"));
            if (!save.commit())
                state.SkipWithError("nothing was saved");
        }
        defaults.reset();
    }
}

// The console's report, with the medians kept for the comparison.
class MedianReporter final : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &run : runs) {
            failed = failed || run.error_occurred;
            if (run.aggregate_name == "median")
                medians[run.run_name.function_name + "/" + run.run_name.args] = run.GetAdjustedRealTime();
        }
        ConsoleReporter::ReportRuns(runs);
    }

    std::map<std::string, double> medians;
    bool failed = false;
};

// One line, and whether the ratio is within its limit. A figure that was filtered out has no verdict.
bool compare(const MedianReporter &reporter, const char *title, const std::string &measured, const std::string &against,
    double limit)
{
    const auto numerator = reporter.medians.find(measured);
    const auto denominator = reporter.medians.find(against);
    if (numerator == reporter.medians.end() || denominator == reporter.medians.end())
        return true;
    const double ratio = numerator->second / denominator->second;
    std::printf("%-52s %8.1f us / %8.1f us = %.2f (at most %.2f)%s\n", title, numerator->second, denominator->second,
        ratio, limit, ratio <= limit ? "" : "  OVER");
    return ratio <= limit;
}

} // namespace

int main(int argc, char **argv)
{
    std::vector<std::string> arguments{argv[0], "--benchmark_enable_random_interleaving=true",
        "--benchmark_repetitions=21", "--benchmark_report_aggregates_only=true"};
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    std::vector<char *> pointers;
    for (std::string &argument : arguments)
        pointers.push_back(argument.data());
    int count = int(pointers.size());
    benchmark::Initialize(&count, pointers.data());

    const auto add = [](const char *name, void (*function)(benchmark::State &), int iterations) {
        benchmark::RegisterBenchmark(name, function)
            ->Arg(week)
            ->Arg(year)
            ->Arg(twentyYears)
            ->Unit(benchmark::kMicrosecond)
            ->Iterations(iterations)
            ->UseRealTime();
    };
    add("openStoreAndDay", openStoreAndDay, 300);
    add("leaveDay", leaveDay, 50);
    add("bareCommit", bareCommit, 50);
    add("shutdownSave", shutdownSave, 10);

    MedianReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    std::printf("\n");
    bool iswithin = !reporter.failed;
    iswithin = compare(reporter, "opening the store and a day, 20 years to a week", "openStoreAndDay/7305",
                   "openStoreAndDay/7", 1.1)
        && iswithin;
    for (const char *days : {"7", "365", "7305"}) {
        const std::string title = std::string("leaving a day to a bare commit, ") + days + " days";
        iswithin
            = compare(reporter, title.c_str(), std::string("leaveDay/") + days, std::string("bareCommit/") + days, 1.5)
            && iswithin;
    }
    return iswithin ? EXIT_SUCCESS : EXIT_FAILURE;
}
