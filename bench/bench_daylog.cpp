// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

// What the commands of the log cost with 20, 200, 2,000 and all 7,801 foods of the catalogue in a day, from the real
// food files. The duplicate rule looks at every entry for each food that is added, so adding the last hundred of all
// foods is held against adding the first hundred, to two logs in turns.

#include "app/AppDelegate.h"
#include "bench/Turns.h"
#include "platform/Bundle.h"
#include "platform/UserDefaults.h"
#include "ui/MainInterface.h"
#include "ui/table/TableView.h"

#include <QApplication>
#include <QTemporaryDir>

#include <numeric>

namespace {

constexpr int hundred = 100;

class Controller final : public AppDelegate {
public:
    // Adds the foods of the list from one place to another.
    double add(int first, int end)
    {
        return Turns::milliseconds([&] {
            for (int i = first; i < end; ++i)
                addFoodPriv(std::make_shared<Food>(foodlist[i]));
            logtable->reloadData();
            nutrienttable->reloadData();
        });
    }
    double selectFrom(int first)
    {
        QList<int> rows(static_cast<qsizetype>(foods.size()) - first);
        std::iota(rows.begin(), rows.end(), first);
        return Turns::milliseconds([&] { logtable->selectRowIndexes(rows); });
    }
    double editFirst()
    {
        logtable->deselectAll();
        return Turns::milliseconds([&] {
            setObjectValue(logtable, QStringLiteral("12.5"), QStringLiteral("Amount"), 0);
            updateNutrients();
        });
    }
    double removeFrom(int first)
    {
        selectFrom(first);
        return Turns::milliseconds([&] { removeSelected(); });
    }
    [[nodiscard]] int foodCount() const { return static_cast<int>(foodlist.size()); }
};

void measureCommands(Turns::Figures &figures, Controller &controller, int count)
{
    constexpr int rounds = 7;
    Turns::Times adding;
    Turns::Times selecting;
    Turns::Times editing;
    Turns::Times removing;
    for (int round = 0; round < rounds; ++round) {
        adding.push_back(controller.add(0, count));
        selecting.push_back(controller.selectFrom(0));
        editing.push_back(controller.editFirst());
        removing.push_back(controller.removeFrom(0));
    }
    const QString foods = QString::number(count) + QStringLiteral(" foods: ");
    figures.figure(foods + QStringLiteral("add"), Turns::medianOf(adding));
    figures.figure(foods + QStringLiteral("select all"), Turns::medianOf(selecting));
    figures.figure(foods + QStringLiteral("one edit"), Turns::medianOf(editing));
    figures.figure(foods + QStringLiteral("remove all"), Turns::medianOf(removing));
}

void measureHundreds(Turns::Figures &figures, Controller &full, Controller &empty)
{
    constexpr std::size_t turns = 41;
    const int last = full.foodCount() - hundred;
    full.add(0, last);
    const auto addLast = [&](std::size_t) {
        const double time = full.add(last, full.foodCount());
        full.removeFrom(last);
        return time;
    };
    const auto addFirst = [&](std::size_t) {
        const double time = empty.add(0, hundred);
        empty.removeFrom(0);
        return time;
    };
    figures.ratio(QStringLiteral("adding the last hundred foods against the first"),
        Turns::inTurns(turns, addLast, addFirst), 3.0);
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
    Controller empty;
    MainInterface other(empty);
    empty.applicationDidFinishLaunching();
    controller.add(0, controller.foodCount()); // so that every file has been read once
    controller.removeFrom(0);
    Turns::Figures figures;
    for (const int count : {20, 200, 2000, controller.foodCount()})
        measureCommands(figures, controller, count);
    measureHundreds(figures, controller, empty);
    return figures.exitCode();
}
