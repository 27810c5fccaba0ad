// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

// crashchild <store> <progress> <plan> <operation> <when> <microseconds>: the program with a plan in place of a person:
// it shows days, gives each a new log, and ends, each save with the plan's sheet open. It kills itself at the operation
// of that number inside a save, or after that time; 0 is never.

#include "tests/support/CrashPlan.h"
#include "tests/support/KillingVfs.h"
#include "tests/support/Run.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QLineEdit>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <sys/mman.h>

namespace {

Progress &openProgress(const char *path)
{
    const int file = ::open(path, O_RDWR | O_CLOEXEC);
    void *memory = ::mmap(nullptr, sizeof(Progress), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    if (memory == MAP_FAILED)
        std::abort();
    return *static_cast<Progress *>(memory);
}

void dieAfter(long microseconds)
{
    sigevent death = {};
    death.sigev_notify = SIGEV_SIGNAL;
    death.sigev_signo = SIGKILL;
    timer_t timer = {};
    itimerspec time = {};
    time.it_value = {microseconds / 1000000, microseconds % 1000000 * 1000};
    if (::timer_create(CLOCK_MONOTONIC, &death, &timer) != 0 || ::timer_settime(timer, 0, &time, nullptr) != 0)
        std::abort();
}

void giveNewLog(TestedAppDelegate &controller, const CrashPlan::Step &step)
{
    QList<int> rows;
    for (int row = 0; row < int(controller.foods.size()); ++row)
        rows.append(row);
    controller.logtable->selectRowIndexes(rows);
    controller.removeSelected();
    for (const QString &name : step.foods)
        controller.addFoodPriv(std::make_shared<Food>(name));
    controller.logtable->reloadData();
    for (int row = 0; row < step.foods.size(); ++row)
        controller.setObjectValue(controller.logtable, step.amounts[row], QStringLiteral("Amount"), row);
}

void press(QWidget *widget, int key, const QString &text = {})
{
    QKeyEvent pressed(QEvent::KeyPress, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(widget, &pressed);
}

enum Sheet { AddFood, AddFromDay, History, Preferences, SheetCount };

// Goes as far in it as a person does before Return.
QDialog *open(const QMainWindow &window, Sheet wanted)
{
    static constexpr std::array<const char *, SheetCount> actions{
        "actionaddfood", "actionaddfromday", "actionhistory", "actionpreferences"};
    window.findChild<QAction *>(QLatin1String(actions[wanted]))->trigger();
    const auto sheets = window.findChildren<QDialog *>();
    const auto sheet = std::find_if(sheets.begin(), sheets.end(), [](const QDialog *one) { return one->isVisible(); });
    if (sheet == sheets.end())
        std::abort();
    if (auto *field = (*sheet)->findChild<QLineEdit *>(QStringLiteral("searchfield")))
        press(field, 0, QStringLiteral("1 1/2 cups milk"));
    QCoreApplication::processEvents();
    return *sheet;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 7)
        return 2;
    if (const long time = std::atol(argv[6]); time > 0)
        dieAfter(time);
    Progress &progress = openProgress(argv[2]);
    const QApplication application(argc, argv);
    const CrashPlan plan(quint32(std::strtoul(argv[3], nullptr, 10)));
    KillingVfs::install(progress, std::atoi(argv[4]), KillingVfs::When(std::atoi(argv[5])));

    UserDefaults store(QFile::decodeName(argv[1]));
    UserDefaults::setStandardUserDefaults(&store);
    TestedAppDelegate controller([&plan] { return plan.firstInstant(); });
    MainInterface interface(controller);
    controller.applicationDidFinishLaunching();
    interface.show();
    progress.phase = Progress::Between;
    const auto wanted = static_cast<Sheet>(plan.number % SheetCount);
    for (int step = 0; step < CrashPlan::days; ++step) {
        QDialog *sheet = open(*controller.window, wanted);
        controller.setDate(plan.instant(step));
        // What it adds goes with the rest of the old log.
        if (wanted == AddFood || wanted == AddFromDay)
            press(sheet, Qt::Key_Return);
        if (wanted == AddFood && (sheet->isVisible() || controller.foods.empty()))
            std::abort();
        sheet->reject();
        giveNewLog(controller, plan.steps[std::size_t(step)]);
    }
    controller.rdainput->setText(plan.rda());
    controller.setRDA();
    open(*controller.window, wanted);
    {
        UserDefaults::Transaction transaction(store);
        controller.applicationWillTerminate();
        interface.saveWindowState(store);
        transaction.commit();
    }
    progress.phase = Progress::Ended;
    return 0;
}
