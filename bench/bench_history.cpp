// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

// What a history of many days costs: reading 30 days, a year and 20 years of days of 20 foods from the store, beside
// the least that SQLite and expat can do with the same rows and files; what a change of the nutrient costs; memory.

#include "bench/Turns.h"
#include "catalog/FoodCatalogue.h"
#include "history/Course.h"
#include "history/DayReader.h"
#include "history/Figures.h"
#include "history/Sources.h"
#include "history/Year.h"
#include "model/FoodRecord.h"
#include "platform/Bundle.h"
#include "platform/LocalDay.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <expat.h>
#include <malloc.h>
#include <sqlite3.h>
#include <unistd.h>

namespace {

constexpr int twentyYears = 7305;
constexpr int foodsOfADay = 20;
constexpr int foodCount = 400;
const QDate firstDay(2005, 1, 1);

QString nameOf(int food)
{
    static const QStringList names = FoodCatalogue::foodNames();
    return names[food * (FoodCatalogue::foodCount / foodCount)];
}

// Grams and measures, and hardly an amount twice.
QVariantList dayLog(int number)
{
    QVariantList records;
    for (int i = 0; i < foodsOfADay; ++i) {
        Food food(nameOf((number * 7 + i * 20) % foodCount));
        const QStringList units = food.getUnitNames();
        const int unit = (number + i) % 2 == 0 ? 0 : int(units.size()) - 1;
        food.setCurunit(units[unit]);
        food.setCurunitidx(unit);
        food.setCuramount((unit == 0 ? 100.0F : 1.0F) * (0.5F + 0.001F * float((number * 31 + i * 17) % 2000)));
        records.append(FoodRecord::archivedDataWithRootObject(food));
    }
    return records;
}

void makeStore(const QString &path)
{
    UserDefaults defaults(path);
    UserDefaults::Transaction all(defaults);
    for (int day = 0; day < twentyYears; ++day)
        defaults.setObject(dayLog(day), LocalDay::key(firstDay.addDays(day)));
    if (!all.commit())
        qFatal("the store cannot be made");
}

History::Period lastDays(int count)
{
    return {firstDay.addDays(twentyYears - count), firstDay.addDays(twentyYears - 1)};
}

// The least: every row of the period handed out by SQLite, every file parsed by expat, and nothing done with either.
class Bare final {
public:
    explicit Bare(const QString &path)
    {
        sqlite3_open(path.toUtf8().constData(), &database);
        sqlite3_prepare_v2(database, "SELECT key, value FROM defaults WHERE key BETWEEN ?1 AND ?2 ORDER BY key", -1,
            &statement, nullptr);
    }
    ~Bare()
    {
        sqlite3_finalize(statement);
        sqlite3_close(database);
    }
    Q_DISABLE_COPY_MOVE(Bare)

    double read(const History::Period &period)
    {
        const QByteArray first = LocalDay::key(period.first).toUtf8();
        const QByteArray last = LocalDay::key(period.last).toUtf8();
        return Turns::milliseconds([&] {
            sqlite3_bind_text(statement, 1, first.constData(), -1, SQLITE_STATIC);
            sqlite3_bind_text(statement, 2, last.constData(), -1, SQLITE_STATIC);
            int rows = 0;
            while (sqlite3_step(statement) == SQLITE_ROW) {
                Turns::keep(sqlite3_column_text(statement, 0));
                Turns::keep(sqlite3_column_blob(statement, 1));
                ++rows;
            }
            sqlite3_reset(statement);
            if (rows != period.days())
                qFatal("the rows are not there");
            for (int food = 0; food < foodCount; ++food)
                parse(nameOf(food));
        });
    }

private:
    static void parse(const QString &name)
    {
        QFile file(Bundle::mainBundle().pathForResource(name, QStringLiteral("xml"), QStringLiteral("Database.xml")));
        if (!file.open(QIODevice::ReadOnly))
            qFatal("a food file is missing");
        const QByteArray bytes = file.readAll();
        XML_Parser parser = XML_ParserCreate(nullptr);
        XML_SetStartElementHandler(parser, [](void *, const char *element, const char **) { Turns::keep(element); });
        if (XML_Parse(parser, bytes.constData(), int(bytes.size()), 1) != XML_STATUS_OK)
            qFatal("a food file is broken");
        XML_ParserFree(parser);
    }

    sqlite3 *database = nullptr;
    sqlite3_stmt *statement = nullptr;
};

double residentMebibytes()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("the memory cannot be told");
    return file.readAll().split(' ')[1].toDouble() * double(sysconf(_SC_PAGESIZE)) / (1024.0 * 1024.0);
}

History::Allowances builtIn()
{
    History::Allowances allowances{};
    for (std::size_t i = 0; i < allowances.size(); ++i)
        allowances[i] = float(NutrientCatalogue::defaultRDAs()[i]);
    return allowances;
}

void compareReading(Turns::Figures &figures, UserDefaults &prefs, Bare &bare, const QString &what, int days,
    std::size_t turns, std::optional<double> limit)
{
    const auto read = [&](std::size_t) {
        return Turns::milliseconds([&] {
            History::DayReader reader(prefs);
            const History::Days history = reader.readOnly(lastDays(days));
            if (history.all.size() != days || history.entries.size() != days * foodsOfADay)
                qFatal("the days are not there");
        });
    };
    figures.ratio(what + QStringLiteral(" to a bare scan and 400 files parsed"),
        Turns::inTurns(turns, read, [&](std::size_t) { return bare.read(lastDays(days)); }), limit);
}

// What a key that goes to another nutrient asks for, and what opening asks for once.
void tellComputing(Turns::Figures &figures, const History::Days &days)
{
    Turns::Times nutrient;
    Turns::Times table;
    for (int i = 0; i < 3 * NutrientCatalogue::nutrientCount; ++i) {
        const int index = i % NutrientCatalogue::nutrientCount;
        nutrient.push_back(Turns::milliseconds([&] {
            Turns::keep(History::course(days, index).bars.size());
            Turns::keep(History::sources(days, index).known.size());
            Turns::keep(History::year(days, index, 0.0F).cells.size());
        }));
        table.push_back(Turns::milliseconds([&] { Turns::keep(History::figures(days, builtIn())->front().mean); }));
    }
    figures.figure(
        QStringLiteral("course, sources and year of another nutrient, 20 years"), Turns::medianOf(nutrient), "ms", 4.0);
    figures.figure(QStringLiteral("the table of 61 nutrients, 20 years"), Turns::medianOf(table));
}

} // namespace

int main()
{
    Bundle::mainBundle().setResourcePath(QStringLiteral(SOURCE_DIR "/resources"));
    const QTemporaryDir folder(QDir::currentPath() + QStringLiteral("/bench_history-XXXXXX"));
    const QString path = folder.filePath(QStringLiteral("preferences.sqlite"));
    makeStore(path);
    const QString copy = folder.filePath(QStringLiteral("copy.sqlite"));
    QFile::copy(path, copy); // an open store lets nobody else in
    UserDefaults prefs(path);
    Turns::keep(prefs.peekObjectForKey(LocalDay::key(firstDay)));
    Turns::Figures figures;
    malloc_trim(0); // of what making the store took
    const double before = residentMebibytes();
    {
        History::DayReader reader(prefs);
        const History::Days days = reader.readAll(lastDays(1).last);
        figures.figure(QStringLiteral("memory of 20 years"), residentMebibytes() - before, "MiB", 25.0);
        tellComputing(figures, days);
    }
    // What the first opening leaves is SQLite's pages and the libraries'; a second one leaves nothing more. The sheet
    // trims as it closes.
    malloc_trim(0);
    const double after = residentMebibytes();
    figures.figure(QStringLiteral("memory afterwards"), after - before, "MiB", 10.0);
    Turns::keep(History::DayReader(prefs).readAll(lastDays(1).last).all.size());
    malloc_trim(0);
    figures.figure(QStringLiteral("memory after a second time, more"), residentMebibytes() - after, "MiB", 1.0);
    Bare bare(copy);
    compareReading(figures, prefs, bare, QStringLiteral("reading 30 days"), 30, 31, {});
    compareReading(figures, prefs, bare, QStringLiteral("reading a year"), 365, 31, {});
    compareReading(figures, prefs, bare, QStringLiteral("reading 20 years"), twentyYears, 15, 6.0);
    return figures.exitCode();
}
