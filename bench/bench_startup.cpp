// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

// From the start of the process to the first paint, with a store of 20 years and a day of 20 foods, held against a
// program that shows a bare window; and the most memory that both had by then. The programs take turns, and the medians
// are compared. Fails when a limit is missed. Offscreen the time has no limit: nobody waits for that window, and the
// bare one, which has no display to reach and no text to show, is little to hold a log against.
//
// bench_startup [runs]

#include "catalog/FoodCatalogue.h"
#include "model/Food.h"
#include "model/FoodRecord.h"
#include "platform/UserDefaults.h"
#include "tests/support/XServer.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <optional>
#include <vector>

namespace {

constexpr int days = 7305;
constexpr int foodsOfADay = 20;

constexpr double mostTime = 2.0; // times that of the bare window
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

struct Figures {
    std::vector<double> milliseconds;
    std::vector<double> mebibytes;
};

double median(std::vector<double> values)
{
    const auto middle = values.begin() + std::ptrdiff_t(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

class Bench final {
public:
    explicit Bench(int runcount)
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

    bool compareOn(const QString &platform, const QByteArray &display, std::optional<double> limit)
    {
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), platform);
        environment.insert(QStringLiteral("DISPLAY"), QString::fromLatin1(display));
        Figures bare;
        Figures whole;
        Figures sheet;
        for (int i = 0; i < runs; ++i) {
            run(bare, QStringLiteral("bare_window"), {});
            run(whole, QStringLiteral("provender_first_paint"), {});
            if (i % 4 == 0)
                run(sheet, QStringLiteral("provender_first_paint"), {QStringLiteral("sheet")});
        }
        const double barememory = median(bare.mebibytes);
        std::printf("%s: %d runs each\n", qPrintable(platform), runs);
        bool iswithin = report("first paint, milliseconds", median(whole.milliseconds), median(bare.milliseconds),
            median(whole.milliseconds) / median(bare.milliseconds), limit);
        iswithin = report("memory, MiB", median(whole.mebibytes), barememory, median(whole.mebibytes) - barememory,
                       mostMemory)
            && iswithin;
        return report("memory with the sheet open, MiB", median(sheet.mebibytes), barememory,
                   median(sheet.mebibytes) - barememory, mostMemoryWithSheet)
            && iswithin;
    }

private:
    void run(Figures &figures, const QString &program, const QStringList &arguments)
    {
        QProcess process;
        process.setProcessEnvironment(environment);
        QElapsedTimer clock;
        clock.start();
        process.start(QCoreApplication::applicationDirPath() + u'/' + program, arguments);
        if (!process.waitForFinished() || process.exitCode() != 0)
            qFatal("%s failed: %s", qPrintable(program), process.readAllStandardError().constData());
        figures.milliseconds.push_back(double(clock.nsecsElapsed()) / 1e6);
        figures.mebibytes.push_back(process.readAllStandardOutput().trimmed().toDouble() / 1024.0);
    }

    // One line: the program's figure, the bare window's, what is compared with the limit.
    static bool report(const char *title, double measured, double bare, double compared, std::optional<double> limit)
    {
        std::printf("  %-34s %7.1f, bare %7.1f: %5.2f ", title, measured, bare, compared);
        if (!limit) {
            std::printf("(no limit)\n");
            return true;
        }
        std::printf("(at most %.2f)%s\n", *limit, compared <= *limit ? "" : "  OVER");
        return compared <= *limit;
    }

    QTemporaryDir home;
    QProcessEnvironment environment;
    int runs;
};

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    Bench bench(argc > 1 ? std::max(1, std::atoi(argv[1])) : 101);
    const XServer server;
    const bool isoffscreenwithin = bench.compareOn(QStringLiteral("offscreen"), {}, {});
    const bool isxcbwithin
        = !server.name().isEmpty() && bench.compareOn(QStringLiteral("xcb"), server.name(), mostTime);
    return isoffscreenwithin && isxcbwithin ? EXIT_SUCCESS : EXIT_FAILURE;
}
