// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "app/AppDelegate.h"
#include "app/SingleInstance.h"
#include "app/SuddenEnd.h"
#include "app/TerminationSignals.h"
#include "platform/UserDefaults.h"
#include "ui/MainInterface.h"
#include "ui/controls/OutlineStyle.h"

#include <QApplication>
#include <QIcon>
#include <QSessionManager>

#include <csignal>
#include <cstdlib>
#include <optional>
#include <utility>

namespace {

// Saves what the program ends with and where its window stood. One transaction, so that no part of it stands alone.
// False when it is neither in the store nor beside it.
bool save(AppDelegate &controller, const MainInterface &interface, UserDefaults &store)
{
    UserDefaults::Transaction transaction(store);
    controller.applicationWillTerminate();
    interface.saveWindowState(store);
    return transaction.commit() || store.leavePending();
}

// Says to the desktop what this is.
void introduce()
{
    QApplication::setApplicationName(QStringLiteral("provender"));
    QApplication::setApplicationDisplayName(QStringLiteral("Provender"));
    QApplication::setApplicationVersion(QStringLiteral(PROVENDER_VERSION));
    // Loaded from PNG: SVG at run time would want a plugin. Not the larger ones, which a desktop takes from its icon
    // theme: each file is decoded here, before the first paint, and those two cost more than all the others.
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64})
        icon.addFile(QStringLiteral(":/icons/%1.png").arg(size), {size, size});
    QApplication::setWindowIcon(icon);
    QApplication::setDesktopFileName(QStringLiteral("org.provender.Provender"));
}

} // namespace

int main(int argc, char **argv)
{
    // Before anything is printed: what a library has to say must not end the program when nobody reads it any more.
    static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
    QApplication application(argc, argv);
    introduce();
    OutlineStyle::use();

    bool isended = false; // the save at the end has run
    bool issaved = true;
    bool isediting = true;
    SuddenEnd suddenend; // before the store, for it outlasts the last write
    MainInterface *shown = nullptr;
    const QString storepath = UserDefaults::standardStorePath();
    const auto raise = [&shown] {
        if (shown != nullptr)
            shown->raise();
    };
    std::optional<SingleInstance> instance(std::in_place, storepath, raise);
    if (!instance->isFirst())
        return 0;

    std::optional<UserDefaults> store(std::in_place, storepath);
    UserDefaults::setStandardUserDefaults(&*store);
    AppDelegate controller;
    MainInterface interface(controller);
    QApplication::setQuitOnLastWindowClosed(controller.applicationShouldTerminateAfterLastWindowClosed());
    const auto saveAtEnd = [&] {
        if (!std::exchange(isended, true))
            issaved = save(controller, interface, *store);
    };
    QObject::connect(&application, &QCoreApplication::aboutToQuit, &controller, saveAtEnd);
    // The session is about to end, but may yet be kept: save now and stay.
    QObject::connect(&application, &QGuiApplication::commitDataRequest, &controller, [&](QSessionManager &) {
        interface.endEditing();
        save(controller, interface, *store);
    });
    const TerminationSignals signals_([] { QCoreApplication::quit(); });

    controller.applicationDidFinishLaunching();
    // The display may go first. What ends the editor may end the process once more, and then there is still the save.
    suddenend.setLastWord([&] {
        // GCOVR_EXCL_START: it is called by a process that leaves no counts
        if (isended)
            return;
        if (std::exchange(isediting, false))
            interface.endEditing();
        saveAtEnd();
        store.reset(); // so that its journal goes, and the instance's socket
        instance.reset();
        // GCOVR_EXCL_STOP
    });
    interface.show();
    shown = &interface;
    const int status = QApplication::exec();
    return issaved ? status : EXIT_FAILURE;
}
