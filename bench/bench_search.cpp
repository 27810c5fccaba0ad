// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

// Finding foods: from a key press, a first opening or a turned page to the painted list, each beside a fixed piece of
// work of its kind, and what the search takes of it.

#include "bench/Turns.h"
#include "catalog/FoodCatalogue.h"
#include "platform/Bundle.h"
#include "search/FoodSearch.h"
#include "ui/foodsheet/AddFoodSheet.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QMainWindow>
#include <QScrollBar>

#include <algorithm>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace {

constexpr std::size_t rounds = 11;

// Everyday words, single and several, some misspelt and some by another name.
constexpr const char *typedwords[] = {"milk", "egg", "apple", "chicken breast", "plain yogurt", "whole wheat bread",
    "cheddar", "carrots", "brocolli", "tomato", "bannana", "spaghetti", "coffee", "orange juice", "salmon",
    "ground beef", "lettuce", "olive oil", "aubergine", "mayonaise", "peanut butter", "potato chips", "ketchup",
    "grilled prawns", "ice cream", "strawberries", "oatmeal", "black beans", "cornflakes", "zucchini"};
static_assert(std::size(typedwords) == 30);

// What stands in the field after each key, letter by letter.
QStringList beginnings()
{
    QStringList list;
    for (const char *word : typedwords) {
        const QString whole = QLatin1String(word);
        for (qsizetype letters = 1; letters <= whole.size(); ++letters)
            list.append(whole.left(letters));
    }
    return list;
}

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

// Calls back once, when a widget was painted.
class EndOfPaint final : public QObject {
public:
    EndOfPaint(QWidget *painted, std::function<void()> callback)
        : widget(painted)
        , call(std::move(callback))
    {
        widget->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() != QEvent::Paint || isover)
            return false;
        isover = true;
        // The widget paints first: the filters that were there before, and the widget itself, are asked here.
        widget->removeEventFilter(this);
        QCoreApplication::sendEvent(widget, event);
        call();
        return true;
    }

private:
    QWidget *widget;
    std::function<void()> call;
    bool isover = false;
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
    // For the first time; in milliseconds.
    double openUntilPainted()
    {
        std::optional<double> time;
        const auto begin = std::chrono::steady_clock::now();
        sheet->open();
        EndOfPaint watch(list()->viewport(), [&] {
            time = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
        });
        while (!time)
            QCoreApplication::processEvents();
        return *time;
    }
    QLineEdit *field() const { return sheet->findChild<QLineEdit *>(QStringLiteral("searchfield")); }
    QListView *list() const { return sheet->findChild<QListView *>(QStringLiteral("foodlist")); }
    void search(const QString &query) const
    {
        field()->setText(query);
        QCoreApplication::processEvents();
    }
};

// What every change of the list is held beside: a list painted anew and nothing else.
class PaintedList final {
public:
    PaintedList()
    {
        sheet.open();
        sheet.search(QStringLiteral("beef"));
    }
    double operator()(std::size_t /*turn*/) const
    {
        return Turns::milliseconds([&] { sheet.list()->viewport()->repaint(); });
    }

private:
    Sheet sheet;
};

// The median, the worst step, as each round takes the same, and the slowest of all, which is of the machine as much as
// of the program and has no limit.
void report(Turns::Figures &figures, const QString &what, const Turns::Pair &pair, std::size_t steps, double worst)
{
    figures.time(what + QStringLiteral(", median"), pair, 2.0);
    figures.time(what + QStringLiteral(", worst step"), pair, worst, steps);
    figures.figure(what + QStringLiteral(", slowest"), *std::max_element(pair.measured.begin(), pair.measured.end()));
}

void press(QWidget *widget, QChar letter)
{
    const int key = letter == u' ' ? int(Qt::Key_Space) : Qt::Key_A + (letter.unicode() - u'a');
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, QString(letter));
    QCoreApplication::sendEvent(widget, &event);
}

// From a key press to the list painted anew, letter by letter.
void typeThirtyWords(Turns::Figures &figures)
{
    const PaintedList repaint;
    Sheet sheet;
    sheet.open();
    PaintCounter counter;
    sheet.list()->viewport()->installEventFilter(&counter);
    const QStringList keys = beginnings();
    const auto steps = static_cast<std::size_t>(keys.size());
    const auto pressKey = [&](std::size_t turn) {
        const QString &text = keys[static_cast<qsizetype>(turn % steps)];
        if (text.size() == 1)
            sheet.search({});
        const int before = counter.paints;
        const double time = Turns::milliseconds([&] {
            press(sheet.field(), text.back());
            QCoreApplication::processEvents();
        });
        if (counter.paints == before || sheet.field()->text() != text)
            qFatal("a key did not reach the field or did not repaint the list");
        return time;
    };
    const Turns::Pair pair = Turns::inTurns(rounds * steps, pressKey, repaint);
    report(figures, QStringLiteral("type thirty words"), pair, steps, 8.0);
    figures.figure(QStringLiteral("repaint the list"), Turns::medianOf(pair.reference));
}

// The search alone, after each of those keys, beside a plain look for a fixed text in all names.
void searchEveryBeginning(Turns::Figures &figures)
{
    const QStringList names = FoodCatalogue::foodNames();
    FoodSearch search(names);
    search.prepare();
    const QStringList queries = beginnings();
    const auto steps = static_cast<std::size_t>(queries.size());
    const auto searchOne = [&](std::size_t turn) {
        const QString &query = queries[static_cast<qsizetype>(turn % steps)];
        return Turns::milliseconds([&] { Turns::keep(search.search(query)); });
    };
    const auto lookPlainly = [&](std::size_t) {
        return Turns::milliseconds([&] { Turns::keep(names.filter(QStringLiteral("beef"), Qt::CaseInsensitive)); });
    };
    report(figures, QStringLiteral("search every beginning"), Turns::inTurns(rounds * steps, searchOne, lookPlainly),
        steps, 8.0);
}

// The most that a query can ask for: as many words as count, each of them misspelt, among 10,000 letters.
void searchTheWorstQuery(Turns::Figures &figures)
{
    FoodSearch search(FoodCatalogue::foodNames());
    search.prepare();
    const QString words = QStringLiteral(
        "strawbrries bluebrries rasbberries cauliflowr broccolli brusssels spinnach zuchinni cucumbr mushroms potatoos "
        "tomatoees carrrots lettuse pinneapple watermelan grapefriut nectarinne apricotts cheddarr mozarella parmesann "
        "yogurtt spagheti ");
    const QString query = words + QString(10000, u'x');
    Turns::Times times;
    for (std::size_t round = 0; round < rounds; ++round)
        times.push_back(Turns::milliseconds([&] { Turns::keep(search.search(query)); }));
    figures.figure(QStringLiteral("search the worst query"), Turns::medianOf(times));
}

void takeTheNamesApart(Turns::Figures &figures)
{
    Turns::Times times;
    for (std::size_t round = 0; round < rounds; ++round) {
        times.push_back(Turns::milliseconds([] {
            FoodSearch search(FoodCatalogue::foodNames());
            search.prepare();
            Turns::keep(search);
        }));
    }
    figures.figure(QStringLiteral("take the names apart"), Turns::medianOf(times));
}

// A new sheet each time, as after the program's start, until it is painted, beside a dialog of that size with nothing
// in it.
void openTheSheetForTheFirstTime(Turns::Figures &figures)
{
    constexpr std::size_t turns = 31;
    QMainWindow window;
    window.resize(900, 650);
    window.show();
    QCoreApplication::processEvents();
    Turns::Times firstkeys;
    const auto openSheet = [&](std::size_t) {
        Sheet sheet;
        const double time = sheet.openUntilPainted();
        QCoreApplication::processEvents(); // now the search is prepared
        firstkeys.push_back(Turns::milliseconds([&] { sheet.search(QStringLiteral("m")); }));
        return time;
    };
    const auto openEmpty = [&](std::size_t) {
        return Turns::milliseconds([&] {
            QDialog dialog(&window);
            dialog.resize(920, 580);
            dialog.open();
            QCoreApplication::processEvents();
        });
    };
    const Turns::Pair pair = Turns::inTurns(turns, openSheet, openEmpty);
    figures.time(QStringLiteral("open the sheet for the first time, median"), pair, 30.0);
    figures.figure(QStringLiteral("the first key after that, median"), Turns::medianOf(firstkeys), "ms", 8.0);
    figures.figure(QStringLiteral("open an empty dialog"), Turns::medianOf(pair.reference));
}

// Every page of the 7,801 foods from the first to the last, each painted; a page of a screen that shows 60 in a second
// has 16 ms.
void scrollTheCatalogueFromEndToEnd(Turns::Figures &figures)
{
    const PaintedList repaint;
    Sheet sheet;
    sheet.open();
    QScrollBar *bar = sheet.list()->verticalScrollBar();
    const int page = bar->pageStep();
    const auto steps = static_cast<std::size_t>((bar->maximum() + page - 1) / page);
    const auto turnPage = [&](std::size_t turn) {
        return Turns::milliseconds([&] {
            bar->setValue(static_cast<int>(turn % steps) * page);
            QCoreApplication::processEvents();
        });
    };
    report(figures, QStringLiteral("scroll the catalogue from end to end"),
        Turns::inTurns(rounds * steps, turnPage, repaint), steps, 16.0);
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    Bundle::mainBundle().setResourcePath(QStringLiteral(SOURCE_DIR "/resources"));
    Turns::Figures figures;
    typeThirtyWords(figures);
    searchEveryBeginning(figures);
    searchTheWorstQuery(figures);
    takeTheNamesApart(figures);
    openTheSheetForTheFirstTime(figures);
    scrollTheCatalogueFromEndToEnd(figures);
    return figures.exitCode();
}
