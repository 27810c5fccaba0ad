// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

// The history's sheet, with 20 years of days of 20 foods in the store: its first opening on 30 days, a change to a
// year, each key of its cursor and a change of the nutrient, until they are painted.

#include "bench/Turns.h"
#include "catalog/FoodCatalogue.h"
#include "model/FoodRecord.h"
#include "platform/Bundle.h"
#include "platform/LocalDay.h"
#include "platform/UserDefaults.h"
#include "ui/historysheet/CourseChart.h"
#include "ui/historysheet/HistorySheet.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QMainWindow>
#include <QTableWidget>
#include <QTemporaryDir>

#include <functional>

namespace {

constexpr int twentyYears = 7305;
constexpr int foodsOfADay = 20;
constexpr int foodCount = 400;
const QDate lastDay(2026, 11, 20);

void makeStore(UserDefaults &store)
{
    const QStringList names = FoodCatalogue::foodNames();
    UserDefaults::Transaction all(store);
    for (int number = 0; number < twentyYears; ++number) {
        QVariantList records;
        for (int i = 0; i < foodsOfADay; ++i) {
            Food food(names[(number * 7 + i * 20) % foodCount * (names.size() / foodCount)]);
            food.setCuramount(float(50 + (number * 31 + i * 17) % 200));
            records.append(FoodRecord::archivedDataWithRootObject(food));
        }
        store.setObject(records, LocalDay::key(lastDay.addDays(-number)));
    }
    if (!all.commit())
        qFatal("the store cannot be made");
}

// A sheet that was never open, over a window of the size that it first has.
class Sheet final {
public:
    explicit Sheet(const UserDefaults &defaults)
        : store(defaults)
        , sheet(new HistorySheet(&window))
    {
        window.resize(1080, 680);
        window.show();
        sheet->resize(window.size());
        QCoreApplication::processEvents();
    }

    void open()
    {
        History::Allowances allowances;
        allowances.fill(60.0F);
        sheet->openWith({std::make_unique<History::DayReader>(store), {}, allowances, lastDay.addDays(1)});
        paint();
    }
    static void paint() { QCoreApplication::processEvents(); }
    // By its place in the box.
    void chooseLength(int index)
    {
        auto *lengths = sheet->findChild<QComboBox *>(QStringLiteral("lengthbox"));
        lengths->setCurrentIndex(index);
        emit lengths->activated(index);
        paint();
    }
    void press(int key)
    {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(sheet->findChild<CourseChart *>(), &event);
        paint();
    }

private:
    const UserDefaults &store;
    QMainWindow window;
    HistorySheet *sheet;
};

// A plain table that is painted: work of the same kind.
class Plain final {
public:
    Plain()
        : table(20, 4)
    {
        for (int row = 0; row < table.rowCount(); ++row) {
            for (int column = 0; column < table.columnCount(); ++column)
                table.setItem(row, column, new QTableWidgetItem(QStringLiteral("row %1, %2").arg(row).arg(column)));
        }
        table.resize(800, 600);
        table.show();
        QCoreApplication::processEvents();
    }
    double operator()(std::size_t /*turn*/)
    {
        return Turns::milliseconds([this] { table.viewport()->repaint(); });
    }

private:
    QTableWidget table;
};

void openings(Turns::Figures &figures, const UserDefaults &store, Plain &plain)
{
    const auto open = [&](std::size_t) {
        Sheet sheet(store);
        return Turns::milliseconds([&] { sheet.open(); });
    };
    figures.time(QStringLiteral("first opening on 30 days, 20 years in the store"),
        Turns::inTurns(31, open, std::ref(plain)), 40.0);
    const auto toYear = [&](std::size_t) {
        Sheet sheet(store);
        sheet.open();
        return Turns::milliseconds([&] { sheet.chooseLength(3); });
    };
    figures.time(QStringLiteral("from 30 days to 1 year"), Turns::inTurns(31, toYear, std::ref(plain)), 60.0);
}

void keys(Turns::Figures &figures, const UserDefaults &store, Plain &plain, const QString &what, int length)
{
    Sheet sheet(store);
    sheet.open();
    sheet.chooseLength(length);
    const auto key = [&](int pressed) {
        return [&, pressed](std::size_t) { return Turns::milliseconds([&] { sheet.press(pressed); }); };
    };
    const QString title = QStringLiteral("a key of the cursor, ") + what;
    figures.time(title, Turns::inTurns(101, key(Qt::Key_Left), std::ref(plain)), 4.0);
    const Turns::Pair nutrient = Turns::inTurns(31, key(Qt::Key_Down), std::ref(plain));
    figures.figure(QStringLiteral("the next nutrient, ") + what, Turns::medianOf(nutrient.measured));
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    Bundle::mainBundle().setResourcePath(QStringLiteral(SOURCE_DIR "/resources"));
    const QTemporaryDir home;
    UserDefaults store(home.filePath(QStringLiteral("provender/preferences.sqlite")));
    makeStore(store);
    Turns::Figures figures;
    Plain plain;
    openings(figures, store, plain);
    keys(figures, store, plain, QStringLiteral("30 days"), 1);
    keys(figures, store, plain, QStringLiteral("1 year"), 3);
    keys(figures, store, plain, QStringLiteral("20 years"), 4);
    return figures.exitCode();
}
