// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

// From the start of the process to the first paint, with a store of 20 years and a day of 20 foods, held against a
// program that shows a bare window and one that shows a line of text; and the most memory they had by then. Offscreen
// the time has no limit: nobody waits for that window, and the bare one, which has no display to reach and no text to
// show, is little to hold a log against.
//
// bench_startup [runs]

#include "bench/Turns.h"
#include "catalog/FoodCatalogue.h"
#include "model/Food.h"
#include "model/FoodRecord.h"
#include "platform/UserDefaults.h"
#include "tests/support/XServer.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdlib>
#include <optional>

namespace {

constexpr int days = 7305;
constexpr int foodsOfADay = 20;

constexpr double mostTime = 2.0; // times that of the bare window
constexpr double mostTimeToALine = 1.1; // times that of the window with a line of text
constexpr double mostMemory = 25.0; // MiB above that of the bare window
constexpr double mostMemoryWithSheet = 35.0;

void makeStore(const QString &path)
{
    const QStringList names = FoodCatalogue::foodNames();
    const QDateTime first({2005, 1, 1}, {12, 0}, Qt::UTC);
    UserDefaults store(path);
    UserDefaults::Transaction history(store);
    for (int day = 0; day < days; ++day) {
        QVariantList records;
        for (int i = 0; i < foodsOfADay; ++i)
            records.append(FoodRecord::archivedDataWithRootObject(Food(names[(day * 7 + i * 389) % names.size()])));
        store.setObject(records, first.addDays(day).toString(QStringLiteral("yyyy_MM_dd")));
    }
    store.setObject(first.addDays(days - 1), QStringLiteral("LastDate"));
    if (!history.commit())
        qFatal("the store cannot be made");
}

class Bench final {
public:
    explicit Bench(std::size_t runcount)
        : runs(runcount)
    {
        environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("HOME"), home.path());
        environment.insert(QStringLiteral("XDG_DATA_HOME"), home.path());
        environment.insert(QStringLiteral("TZ"), QStringLiteral("UTC"));
        environment.remove(QStringLiteral("SESSION_MANAGER"));
        if (!environment.contains(QStringLiteral("XDG_RUNTIME_DIR"))) {
            environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), home.path());
            QFile::setPermissions(home.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        }
        makeStore(home.filePath(QStringLiteral("provender/preferences.sqlite")));
    }

    void compareOn(const QString &platform, const QByteArray &display, std::optional<double> limit,
        std::optional<double> limitToALine)
    {
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), platform);
        environment.insert(QStringLiteral("DISPLAY"), QString::fromLatin1(display));
        Turns::Times bare;
        Turns::Times whole;
        Turns::Times sheet;
        const QString program = QStringLiteral("provender_first_paint");
        const Turns::Pair pair = Turns::inTurns(
            runs, [&](std::size_t) { return run(whole, program, {}); },
            [&](std::size_t) { return run(bare, QStringLiteral("bare_window"), {}); });
        Turns::Times line;
        const Turns::Pair toline = Turns::inTurns(
            runs, [&](std::size_t) { return run(whole, program, {}); },
            [&](std::size_t) { return run(line, QStringLiteral("line_window"), {}); });
        for (std::size_t i = 0; i < runs; i += 4)
            run(sheet, program, {QStringLiteral("sheet")});
        figures.ratio(platform + QStringLiteral(", first paint, milliseconds"), pair, limit);
        figures.ratio(
            platform + QStringLiteral(", first paint, to a line of text, milliseconds"), toline, limitToALine);
        tellMemory(platform + QStringLiteral(", memory, MiB"), whole, bare, mostMemory);
        tellMemory(platform + QStringLiteral(", memory with the sheet open, MiB"), sheet, bare, mostMemoryWithSheet);
    }

    Turns::Figures figures;

private:
    double run(Turns::Times &mebibytes, const QString &program, const QStringList &arguments) const
    {
        QProcess process;
        process.setProcessEnvironment(environment);
        bool isfinished = false;
        const double time = Turns::milliseconds([&] {
            process.start(QCoreApplication::applicationDirPath() + u'/' + program, arguments);
            isfinished = process.waitForFinished();
        });
        if (!isfinished || process.exitCode() != 0)
            qFatal("%s failed: %s", qPrintable(program), process.readAllStandardError().constData());
        mebibytes.push_back(process.readAllStandardOutput().trimmed().toDouble() / 1024.0);
        return time;
    }

    void tellMemory(const QString &what, const Turns::Times &measured, const Turns::Times &bare, double limit)
    {
        const double most = Turns::medianOf(measured);
        const double least = Turns::medianOf(bare);
        figures.figure(what, most - least, "MiB", limit, QString::asprintf("%.1f MiB, bare %.1f MiB", most, least));
    }

    QTemporaryDir home;
    QProcessEnvironment environment;
    std::size_t runs;
};

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    Bench bench(argc > 1 ? static_cast<std::size_t>(std::max(1, std::atoi(argv[1]))) : 101);
    bench.compareOn(QStringLiteral("offscreen"), {}, {}, {});
    const XServer server;
    if (server.name().isEmpty())
        qFatal("no display");
    bench.compareOn(QStringLiteral("xcb"), server.name(), mostTime, mostTimeToALine);
    return bench.figures.exitCode();
}
