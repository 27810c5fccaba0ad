// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "app/AppDelegate.h"
#include "app/SingleInstance.h"
#include "app/TerminationSignals.h"
#include "platform/UserDefaults.h"
#include "ui/MainInterface.h"

#include <QApplication>
#include <QIcon>
#include <QSessionManager>

#include <csignal>
#include <cstdlib>

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

} // namespace

int main(int argc, char **argv)
{
    // Before anything is printed: what a library has to say must not end the program when nobody reads it any more.
    static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
    QApplication application(argc, argv);
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

    MainInterface *shown = nullptr;
    const QString storepath = UserDefaults::standardStorePath();
    const auto raise = [&shown] {
        if (shown != nullptr)
            shown->raise();
    };
    const SingleInstance instance(storepath, raise);
    if (!instance.isFirst())
        return 0;

    UserDefaults store(storepath);
    UserDefaults::setStandardUserDefaults(&store);
    AppDelegate controller;
    MainInterface interface(controller);
    QApplication::setQuitOnLastWindowClosed(controller.applicationShouldTerminateAfterLastWindowClosed());
    bool issaved = true;
    QObject::connect(&application, &QCoreApplication::aboutToQuit, &controller,
        [&] { issaved = save(controller, interface, store); });
    // The session is about to end, but may yet be kept: save now and stay.
    QObject::connect(&application, &QGuiApplication::commitDataRequest, &controller, [&](QSessionManager &) {
        interface.endEditing();
        save(controller, interface, store);
    });
    const TerminationSignals signals_([] { QCoreApplication::quit(); });

    controller.applicationDidFinishLaunching();
    interface.show();
    shown = &interface;
    const int status = QApplication::exec();
    return issaved ? status : EXIT_FAILURE;
}
