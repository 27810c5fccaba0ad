// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

// Both tables of a day of 20 foods are reloaded and painted, as after an added food or a change of unit, beside a plain
// table of Qt's that is painted.

#include "app/AppDelegate.h"
#include "bench/Turns.h"
#include "platform/Bundle.h"
#include "platform/UserDefaults.h"
#include "ui/MainInterface.h"
#include "ui/table/TableView.h"

#include <QApplication>
#include <QMainWindow>
#include <QTableWidget>
#include <QTemporaryDir>

#include <algorithm>

namespace {

constexpr int foodsofaday = 20;

class Controller final : public AppDelegate {
public:
    void addEveryNth(int count)
    {
        const auto step = foodlist.size() / count;
        for (int i = 0; i < count; ++i)
            addFoodPriv(std::make_shared<Food>(foodlist[i * step]));
        logtable->reloadData();
        nutrienttable->reloadData();
    }
    void reloadBoth()
    {
        logtable->reloadData();
        nutrienttable->reloadData();
    }
    void repaintBoth()
    {
        logtable->viewport()->repaint();
        nutrienttable->viewport()->repaint();
    }
};

void fill(QTableWidget &table)
{
    for (int row = 0; row < table.rowCount(); ++row) {
        for (int column = 0; column < table.columnCount(); ++column)
            table.setItem(row, column, new QTableWidgetItem(QStringLiteral("row %1, %2").arg(row).arg(column)));
    }
    table.resize(800, 600);
    table.show();
}

void reloadAndRepaint(Turns::Figures &figures, int width, int height)
{
    constexpr std::size_t turns = 301;
    const QTemporaryDir home;
    UserDefaults store(home.filePath(QStringLiteral("provender/preferences.sqlite")));
    UserDefaults::setStandardUserDefaults(&store);
    Controller controller;
    MainInterface interface(controller);
    controller.applicationDidFinishLaunching();
    controller.addEveryNth(foodsofaday);
    interface.mainWindow()->resize(width, height);
    interface.show();
    QTableWidget plain(foodsofaday, 4);
    fill(plain);
    QCoreApplication::processEvents();

    const auto both = [&](std::size_t) {
        const double time = Turns::milliseconds([&] {
            controller.reloadBoth();
            controller.repaintBoth();
        });
        QCoreApplication::processEvents();
        return time;
    };
    const auto repaintPlain = [&](std::size_t) { return Turns::milliseconds([&] { plain.viewport()->repaint(); }); };
    const Turns::Pair pair = Turns::inTurns(turns, both, repaintPlain);
    const QString what = QStringLiteral("reload and repaint both tables, %1, %2").arg(width).arg(height);
    figures.time(what + QStringLiteral(", median"), pair, 2.0);
    figures.figure(what + QStringLiteral(", slowest"), *std::max_element(pair.measured.begin(), pair.measured.end()));
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    Bundle::mainBundle().setResourcePath(QStringLiteral(SOURCE_DIR "/resources"));
    Turns::Figures figures;
    reloadAndRepaint(figures, 1080, 680); // the size it first opens with
    reloadAndRepaint(figures, 1280, 1600); // all 61 nutrients in sight
    return figures.exitCode();
}
