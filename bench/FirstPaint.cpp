// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

// Linked into a program whose start is to be measured: ends it on the spot when its main window has been painted for
// the first time, and prints the most memory it had by then, in KiB. With the argument "sheet" it first opens the
// sheet of foods and waits until that is painted. Nothing of this is in the program that people get.

#include <QAction>
#include <QCoreApplication>
#include <QDialog>
#include <QEvent>
#include <QFile>
#include <QMainWindow>

#include <cstdio>
#include <cstdlib>

namespace {

void end()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (status.open(QIODevice::ReadOnly)) {
        for (const QByteArray &line : status.readAll().split('\n')) {
            if (line.startsWith("VmHWM:"))
                std::puts(line.simplified().split(' ').value(1).constData());
        }
    }
    std::fflush(stdout);
    std::_Exit(EXIT_SUCCESS);
}

class FirstPaint final : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != QEvent::Paint)
            return false;
        const bool withsheet = QCoreApplication::arguments().contains(QStringLiteral("sheet"));
        auto *window = qobject_cast<QMainWindow *>(watched);
        if (window != nullptr && !withsheet && !isover) {
            isover = true;
            // Once the whole window is painted, and not its frame alone.
            QMetaObject::invokeMethod(this, end, Qt::QueuedConnection);
        } else if (window != nullptr && !isover) {
            isover = true;
            QMetaObject::invokeMethod(
                window, [window] { window->findChild<QAction *>(QStringLiteral("actionaddfood"))->trigger(); },
                Qt::QueuedConnection);
        } else if (qobject_cast<QDialog *>(watched) != nullptr && !issheetover) {
            issheetover = true;
            QMetaObject::invokeMethod(this, end, Qt::QueuedConnection);
        }
        return false;
    }

private:
    bool isover = false;
    bool issheetover = false;
};

void watch()
{
    qApp->installEventFilter(new FirstPaint(qApp));
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(watch)
