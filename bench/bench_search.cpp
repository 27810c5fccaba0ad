// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "catalog/FoodCatalogue.h"
#include "search/FoodSearch.h"
#include "platform/Bundle.h"
#include "ui/foodsheet/AddFoodSheet.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QMainWindow>
#include <QScrollBar>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <vector>

namespace {

// Everyday words, single and several, some misspelt and some by another name.
constexpr const char *typedwords[] = {"milk", "egg", "apple", "chicken breast", "plain yogurt", "whole wheat bread",
    "cheddar", "carrots", "brocolli", "tomato", "bannana", "spaghetti", "coffee", "orange juice", "salmon",
    "ground beef", "lettuce", "olive oil", "aubergine", "mayonaise", "peanut butter", "potato chips", "ketchup",
    "grilled prawns", "ice cream", "strawberries", "oatmeal", "black beans", "cornflakes", "zucchini"};
static_assert(std::size(typedwords) == 30);

class PaintCounter final : public QObject {
public:
    int paints = 0;

protected:
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        paints += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

// The sheet, open over a window, painted.
struct Sheet {
    QMainWindow window;
    AddFoodSheet *sheet = new AddFoodSheet(&window);

    Sheet()
    {
        window.resize(900, 650);
        window.show();
        sheet->foodlistcontroller()->setContent(FoodCatalogue::foodNames());
        QCoreApplication::processEvents();
    }
    void open()
    {
        sheet->open();
        QCoreApplication::processEvents();
    }
    QLineEdit *field() const { return sheet->findChild<QLineEdit *>(QStringLiteral("searchfield")); }
    QListView *list() const { return sheet->findChild<QListView *>(QStringLiteral("foodlist")); }
};

double milliseconds(const QElapsedTimer &timer)
{
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

double medianOf(std::vector<double> times)
{
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

// The median and the worst beside what they may be. The worst of all times is of the machine as much as of the program,
// so with it goes the worst step: each round takes the same steps, and of a step the median over the rounds counts.
void report(benchmark::State &state, const std::vector<double> &times, double median, double worst)
{
    const auto rounds = static_cast<std::size_t>(state.iterations());
    const std::size_t steps = times.size() / rounds;
    double worststep = 0.0;
    for (std::size_t step = 0; step < steps; ++step) {
        std::vector<double> same;
        for (std::size_t round = 0; round < rounds; ++round)
            same.push_back(times[round * steps + step]);
        worststep = std::max(worststep, medianOf(same));
    }
    state.counters["median_ms"] = medianOf(times);
    state.counters["median_limit_ms"] = median;
    state.counters["worst_step_ms"] = worststep;
    state.counters["worst_ms"] = *std::max_element(times.begin(), times.end());
    state.counters["worst_limit_ms"] = worst;
    state.counters["count"] = static_cast<double>(times.size());
}

void press(QWidget *widget, int key, QChar letter)
{
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, QString(letter));
    QCoreApplication::sendEvent(widget, &event);
}

// From a key press to the list painted anew, letter by letter.
void typeThirtyWords(benchmark::State &state)
{
    Sheet sheet;
    sheet.open();
    PaintCounter counter;
    sheet.list()->viewport()->installEventFilter(&counter);
    std::vector<double> times;
    for ([[maybe_unused]] auto _ : state) {
        for (const char *word : typedwords) {
            for (const char *letter = word; *letter != '\0'; ++letter) {
                const int before = counter.paints;
                QElapsedTimer timer;
                timer.start();
                press(
                    sheet.field(), *letter == ' ' ? Qt::Key_Space : Qt::Key_A + (*letter - 'a'), QLatin1Char(*letter));
                QCoreApplication::processEvents();
                times.push_back(milliseconds(timer));
                if (counter.paints == before)
                    state.SkipWithError("a key did not repaint the list");
            }
            if (sheet.field()->text() != QLatin1String(word))
                state.SkipWithError("the keys did not reach the field");
            sheet.field()->clear();
            QCoreApplication::processEvents();
        }
    }
    report(state, times, 2.0, 8.0);
}
BENCHMARK(typeThirtyWords)->Unit(benchmark::kMillisecond)->Iterations(10);

// What a key press is held against: the list painted anew and nothing else.
void repaintTheList(benchmark::State &state)
{
    Sheet sheet;
    sheet.open();
    sheet.field()->setText(QStringLiteral("beef"));
    QCoreApplication::processEvents();
    for ([[maybe_unused]] auto _ : state)
        sheet.list()->viewport()->repaint();
}
BENCHMARK(repaintTheList)->Unit(benchmark::kMillisecond);

// The search alone, over every beginning of the thirty words.
void searchEveryBeginning(benchmark::State &state)
{
    FoodSearch search(FoodCatalogue::foodNames());
    search.prepare();
    std::vector<double> times;
    for ([[maybe_unused]] auto _ : state) {
        for (const char *word : typedwords) {
            const QString query = QLatin1String(word);
            for (qsizetype letters = 1; letters <= query.size(); ++letters) {
                QElapsedTimer timer;
                timer.start();
                benchmark::DoNotOptimize(search.search(query.left(letters)));
                times.push_back(milliseconds(timer));
            }
        }
    }
    report(state, times, 2.0, 8.0);
}
BENCHMARK(searchEveryBeginning)->Unit(benchmark::kMillisecond)->Iterations(10);

// The most that a query can ask for: as many words as count, each of them misspelt, among 10,000 letters.
void searchTheWorstQuery(benchmark::State &state)
{
    FoodSearch search(FoodCatalogue::foodNames());
    search.prepare();
    const QString words = QStringLiteral(
        "strawbrries bluebrries rasbberries cauliflowr broccolli brusssels spinnach zuchinni cucumbr mushroms potatoos "
        "tomatoees carrrots lettuse pinneapple watermelan grapefriut nectarinne apricotts cheddarr mozarella parmesann "
        "yogurtt spagheti ");
    const QString query = words + QString(10000, u'x');
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(search.search(query));
}
BENCHMARK(searchTheWorstQuery)->Unit(benchmark::kMillisecond);

void takeTheNamesApart(benchmark::State &state)
{
    for ([[maybe_unused]] auto _ : state) {
        FoodSearch search(FoodCatalogue::foodNames());
        search.prepare();
        benchmark::DoNotOptimize(search);
    }
}
BENCHMARK(takeTheNamesApart)->Unit(benchmark::kMillisecond);

// A new sheet each time, as after the program's start, until it is painted.
void openTheSheetForTheFirstTime(benchmark::State &state)
{
    std::vector<double> times;
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        auto sheet = std::make_unique<Sheet>();
        state.ResumeTiming();
        QElapsedTimer timer;
        timer.start();
        sheet->open();
        times.push_back(milliseconds(timer));
        state.PauseTiming();
        sheet.reset();
        state.ResumeTiming();
    }
    state.counters["median_ms"] = medianOf(times);
    state.counters["median_limit_ms"] = 30.0;
}
BENCHMARK(openTheSheetForTheFirstTime)->Unit(benchmark::kMillisecond)->Iterations(30);

// What the opening is held against: a dialog of that size with nothing in it.
void openAnEmptyDialog(benchmark::State &state)
{
    QMainWindow window;
    window.resize(900, 650);
    window.show();
    QCoreApplication::processEvents();
    for ([[maybe_unused]] auto _ : state) {
        QDialog dialog(&window);
        dialog.resize(920, 580);
        dialog.open();
        QCoreApplication::processEvents();
    }
}
BENCHMARK(openAnEmptyDialog)->Unit(benchmark::kMillisecond)->Iterations(30);

// Every page of the 7,801 foods from the first to the last, each painted; a page of a screen that shows 60 in a second
// has 16 ms.
void scrollTheCatalogueFromEndToEnd(benchmark::State &state)
{
    Sheet sheet;
    sheet.open();
    QScrollBar *bar = sheet.list()->verticalScrollBar();
    std::vector<double> times;
    for ([[maybe_unused]] auto _ : state) {
        for (int value = 0; value < bar->maximum(); value += bar->pageStep()) {
            QElapsedTimer timer;
            timer.start();
            bar->setValue(value);
            QCoreApplication::processEvents();
            times.push_back(milliseconds(timer));
        }
    }
    report(state, times, 2.0, 16.0);
}
BENCHMARK(scrollTheCatalogueFromEndToEnd)->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    Bundle::mainBundle().setResourcePath(QStringLiteral(SOURCE_DIR "/resources"));
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return EXIT_SUCCESS;
}
