// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

// What the history costs: the preferences store with a week, a year and 20 years of days of 20 foods.

#include "bench/Turns.h"
#include "platform/KeyedArchiver.h"
#include "platform/PropertyList.h"
#include "platform/UserDefaults.h"

#include <QDate>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <map>
#include <memory>
#include <sqlite3.h>
#include <string>

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

// One store of so many days, made once for each use: an open store lets nobody else in.
const QString &storeOf(int days, const char *use = "read")
{
    static const QTemporaryDir folder(QDir::currentPath() + QStringLiteral("/bench_store-XXXXXX"));
    static std::map<QString, QString> stores;
    const QString name = QLatin1String(use) + QString::number(days);
    QString &path = stores[name];
    if (!path.isEmpty())
        return path;
    path = folder.filePath(name + QStringLiteral("/preferences.sqlite"));
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
double openStoreAndDay(int days, std::size_t turn)
{
    const QString &path = storeOf(days);
    const int day = 31 * int(turn) % days;
    return Turns::milliseconds([&] {
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
            qFatal("the day is not there");
    });
}

// The least that SQLite can do to put the same bytes on the disk.
class BareStore final {
public:
    explicit BareStore(const QString &path)
    {
        sqlite3_open(path.toUtf8().constData(), &database);
        run("PRAGMA locking_mode = EXCLUSIVE; PRAGMA synchronous = EXTRA; PRAGMA temp_store = MEMORY");
        run(("REPLACE INTO defaults VALUES('Opened', " + std::to_string(nextTurn()) + ")").c_str());
        sqlite3_prepare_v2(database,
            "INSERT INTO defaults(key, value) VALUES(?1, ?2) ON CONFLICT(key) DO UPDATE SET value = excluded.value", -1,
            &statement, nullptr);
    }
    ~BareStore()
    {
        sqlite3_finalize(statement);
        sqlite3_close(database);
    }
    Q_DISABLE_COPY_MOVE(BareStore)

    double commit(const QByteArray &key, const QByteArray &bytes)
    {
        sqlite3_bind_text(statement, 1, key.constData(), int(key.size()), SQLITE_STATIC);
        sqlite3_bind_blob(statement, 2, bytes.constData(), int(bytes.size()), SQLITE_STATIC);
        return Turns::milliseconds([&] {
            run("BEGIN IMMEDIATE");
            const int result = sqlite3_step(statement);
            sqlite3_reset(statement);
            if (run("COMMIT") != SQLITE_OK || result != SQLITE_DONE)
                qFatal("the bytes were not written");
        });
    }

private:
    int run(const char *sql) { return sqlite3_exec(database, sql, nullptr, nullptr, nullptr); }

    sqlite3 *database = nullptr;
    sqlite3_stmt *statement = nullptr;
};

Turns::Pair leaveDay(int days)
{
    constexpr std::size_t turns = 500;
    UserDefaults defaults(storeOf(days, "left"));
    defaults.setObject(nextTurn(), QStringLiteral("Opened")); // opens the store and its journal
    BareStore bare(storeOf(days, "bare"));
    const auto leave = [&](std::size_t turn) {
        const int day = 31 * int(turn) % days;
        const QVariantList log = dayLog(day, nextTurn());
        static_cast<void>(defaults.objectForKey(dayKey(day))); // a day that was not opened would be copied first
        return Turns::milliseconds([&] { defaults.setObject(log, dayKey(day)); });
    };
    const auto commit = [&](std::size_t turn) {
        const int day = 31 * int(turn) % days;
        return bare.commit(dayKey(day).toUtf8(), PropertyList::write(dayLog(day, nextTurn())).value());
    };
    const Turns::Pair pair = Turns::inTurns(turns, leave, commit);
    if (!defaults.synchronize())
        qFatal("the day was not written");
    return pair;
}

// RDAs, date, day and window in one transaction, on a store that was only read so far.
double shutdownSave(int days)
{
    const int turn = nextTurn();
    const int day = 31 * turn % days;
    auto defaults = std::make_unique<UserDefaults>(storeOf(days));
    Turns::keep(defaults->objectForKey(dayKey(day)));
    const QVariantList log = dayLog(day, turn);
    return Turns::milliseconds([&] {
        {
            UserDefaults::Transaction save(*defaults);
            defaults->setObject(rdaList(turn), QStringLiteral("RDAs"));
            defaults->setObject(QDateTime::currentDateTimeUtc(), QStringLiteral("LastDate"));
            defaults->setObject(log, dayKey(day));
            defaults->setObject(QByteArray(70, char(turn)), QStringLiteral("WindowGeometry"));
            if (!save.commit())
                qFatal("nothing was saved");
        }
        defaults.reset();
    });
}

void compareOpening(Turns::Figures &figures, const QString &title, int days, std::optional<double> limit)
{
    constexpr std::size_t turns = 2000;
    figures.ratio(title,
        Turns::inTurns(
            turns, [&](std::size_t turn) { return openStoreAndDay(days, turn); },
            [](std::size_t turn) { return openStoreAndDay(week, turn); }),
        limit);
}

} // namespace

int main()
{
    Turns::Figures figures;
    compareOpening(figures, QStringLiteral("opening the store and a day, a year to a week"), year, {});
    compareOpening(figures, QStringLiteral("opening the store and a day, 20 years to a week"), twentyYears, 1.1);
    constexpr int histories[] = {week, year, twentyYears};
    for (const int days : histories)
        figures.ratio(QStringLiteral("leaving a day to a bare commit, %1 days").arg(days), leaveDay(days), 1.5);
    std::map<int, Turns::Times> saves;
    for (int turn = 0; turn < 210; ++turn) {
        for (const int days : histories)
            saves[days].push_back(shutdownSave(days));
    }
    for (const auto &[days, times] : saves)
        figures.figure(QStringLiteral("shutdown save, %1").arg(days), Turns::medianOf(times));
    return figures.exitCode();
}
