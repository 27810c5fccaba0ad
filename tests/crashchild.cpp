// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

// crashchild <store> <progress> <plan> <operation> <when> <microseconds>: the program with a plan in place of a person:
// it shows days, gives each a new log, and ends. It kills itself at the operation of that number inside a save, or
// after that time; 0 is never.

#include "tests/support/CrashPlan.h"
#include "tests/support/KillingVfs.h"
#include "tests/support/Run.h"

#include <QApplication>
#include <QLineEdit>

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
    for (int step = 0; step < CrashPlan::days; ++step) {
        controller.setDate(plan.instant(step));
        giveNewLog(controller, plan.steps[std::size_t(step)]);
    }
    controller.rdainput->setText(plan.rda());
    controller.setRDA();
    {
        UserDefaults::Transaction transaction(store);
        controller.applicationWillTerminate();
        interface.saveWindowState(store);
        transaction.commit();
    }
    progress.phase = Progress::Ended;
    return 0;
}
