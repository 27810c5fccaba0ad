// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

// What the commands of the log cost with 20, 200, 2,000 and all 7,801 foods of the catalogue in a day, from the real
// food files. The duplicate rule looks at every entry for each food that is added, so the last hundred of all foods are
// held against the first hundred of the same run: the run fails when they take over 3 times as long.

#include "app/AppDelegate.h"
#include "platform/Bundle.h"
#include "platform/UserDefaults.h"
#include "ui/MainInterface.h"
#include "ui/table/TableView.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <numeric>
#include <vector>

namespace {

constexpr int rounds = 7;
constexpr double limit = 3.0;
constexpr int hundred = 100;

double milliseconds(const QElapsedTimer &timer)
{
    return double(timer.nsecsElapsed()) / 1e6;
}

class Controller final : public AppDelegate {
public:
    // Adds the foods of the list from one place to another.
    double add(int first, int end)
    {
        QElapsedTimer timer;
        timer.start();
        for (int i = first; i < end; ++i)
            addFoodPriv(std::make_shared<Food>(foodlist[i]));
        logtable->reloadData();
        nutrienttable->reloadData();
        return milliseconds(timer);
    }
    double selectAll()
    {
        QList<int> rows(static_cast<qsizetype>(foods.size()));
        std::iota(rows.begin(), rows.end(), 0);
        QElapsedTimer timer;
        timer.start();
        logtable->selectRowIndexes(rows);
        return milliseconds(timer);
    }
    double editFirst()
    {
        logtable->deselectAll();
        QElapsedTimer timer;
        timer.start();
        setObjectValue(logtable, QStringLiteral("12.5"), QStringLiteral("Amount"), 0);
        updateNutrients();
        return milliseconds(timer);
    }
    double removeAll()
    {
        selectAll();
        QElapsedTimer timer;
        timer.start();
        removeSelected();
        return milliseconds(timer);
    }
    [[nodiscard]] int foodCount() const { return static_cast<int>(foodlist.size()); }
};

double medianOf(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

void measureCommands(Controller &controller, int count)
{
    std::vector<double> adding;
    std::vector<double> selecting;
    std::vector<double> editing;
    std::vector<double> removing;
    for (int round = 0; round < rounds; ++round) {
        adding.push_back(controller.add(0, count));
        selecting.push_back(controller.selectAll());
        editing.push_back(controller.editFirst());
        removing.push_back(controller.removeAll());
    }
    std::printf("%5d foods: add %9.2f ms, select all %7.2f ms, one edit %5.2f ms, remove all %7.2f ms\n", count,
        medianOf(adding), medianOf(selecting), medianOf(editing), medianOf(removing));
}

bool measureHundreds(Controller &controller)
{
    std::vector<double> firsts;
    std::vector<double> lasts;
    const int last = controller.foodCount() - hundred;
    for (int round = 0; round < rounds; ++round) {
        firsts.push_back(controller.add(0, hundred));
        controller.add(hundred, last);
        lasts.push_back(controller.add(last, controller.foodCount()));
        controller.removeAll();
    }
    const double ratio = medianOf(lasts) / medianOf(firsts);
    std::printf("%-52s %8.2f ms / %8.2f ms = %.2f (at most %.2f)%s\n",
        "adding the last hundred foods against the first", medianOf(lasts), medianOf(firsts), ratio, limit,
        ratio <= limit ? "" : "  OVER");
    return ratio <= limit;
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    Bundle::mainBundle().setResourcePath(QStringLiteral(SOURCE_DIR "/resources"));
    const QTemporaryDir home;
    UserDefaults store(home.filePath(QStringLiteral("provender/preferences.sqlite")));
    UserDefaults::setStandardUserDefaults(&store);
    Controller controller;
    MainInterface interface(controller);
    controller.applicationDidFinishLaunching();
    controller.add(0, controller.foodCount()); // so that every file has been read once
    controller.removeAll();
    for (const int count : {20, 200, 2000, controller.foodCount()})
        measureCommands(controller, count);
    return measureHundreds(controller) ? EXIT_SUCCESS : EXIT_FAILURE;
}
