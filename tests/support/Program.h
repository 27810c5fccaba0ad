// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "model/Food.h"
#include "model/FoodRecord.h"
#include "platform/UserDefaults.h"
#include "tests/support/StoreView.h"
#include "tests/support/XServer.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <algorithm>
#include <csignal>
#include <memory>
#include <sys/stat.h>

// Where the user of a program lives: nothing of the real user's is read or written.
class ProgramHome final {
public:
    ProgramHome()
    {
        // Qt wants a private folder for sockets.
        QDir(folder.path()).mkdir(QStringLiteral("run"));
        ::chmod(qPrintable(folder.filePath(QStringLiteral("run"))), 0700);
    }
    Q_DISABLE_COPY_MOVE(ProgramHome)

    [[nodiscard]] QString path() const { return folder.path(); }
    [[nodiscard]] QString dataPath() const { return folder.filePath(QStringLiteral("data")); }
    [[nodiscard]] QString storePath() const { return dataPath() + QStringLiteral("/provender/preferences.sqlite"); }

    [[nodiscard]] QProcessEnvironment environment(const QByteArray &display) const
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char *name : {"XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME", "WAYLAND_DISPLAY",
                 "SESSION_MANAGER", "DBUS_SESSION_BUS_ADDRESS"})
            environment.remove(QString::fromLatin1(name));
        environment.insert(QStringLiteral("HOME"), path());
        environment.insert(QStringLiteral("XDG_DATA_HOME"), dataPath());
        environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), folder.filePath(QStringLiteral("run")));
        environment.insert(QStringLiteral("TZ"), QStringLiteral("UTC"));
        environment.insert(QStringLiteral("DISPLAY"), QString::fromLatin1(display));
        environment.insert(
            QStringLiteral("QT_QPA_PLATFORM"), display.isEmpty() ? QStringLiteral("offscreen") : QStringLiteral("xcb"));
        return environment;
    }

    // Every file and folder in the home, by its path from there.
    [[nodiscard]] QStringList contents() const
    {
        QStringList names;
        QDirIterator walk(path(), QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
            QDirIterator::Subdirectories);
        while (walk.hasNext())
            names.append(QDir(path()).relativeFilePath(walk.next()));
        names.sort();
        return names;
    }

    [[nodiscard]] QByteArray storeBytes() const
    {
        QFile file(storePath());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    // "Butter, salted 25", for each entry that is stored for a day.
    [[nodiscard]] static QStringList entries(const UserDefaults &store, const QString &day)
    {
        QStringList entries;
        for (const QVariant &record : store.objectForKey(day).toList()) {
            const auto food = FoodRecord::unarchiveObjectWithData(record.toByteArray());
            entries.append(food ? food->name().value_or(QString()) + u' ' + QString::number(double(food->curamount()))
                                : QStringLiteral("no record"));
        }
        return entries;
    }
    [[nodiscard]] QStringList entries(const QString &day) const { return entries(UserDefaults(storePath()), day); }

private:
    QTemporaryDir folder;
};

// A program run as a process of its own; killed with the object if it still runs.
class Program final {
public:
    explicit Program(const QString &executable, const ProgramHome &home, const XServer *display = nullptr)
        : server(display)
    {
        process.setProgram(executable);
        process.setProcessEnvironment(home.environment(display == nullptr ? QByteArray() : display->name()));
    }
    ~Program()
    {
        if (process.state() == QProcess::NotRunning)
            return;
        ::kill(id(), SIGCONT);
        process.kill();
        process.waitForFinished();
    }
    Q_DISABLE_COPY_MOVE(Program)

    void start()
    {
        process.start();
        process.waitForStarted();
    }
    // Starts it and waits for its window.
    bool startShown()
    {
        start();
        return hasWindows(1);
    }
    // Waits until it has that many windows and gives the keyboard to the uppermost.
    bool hasWindows(int count)
    {
        for (int waited = 0; waited < patience; waited += 5) {
            const QList<unsigned long> windows = server->windowsOf(id());
            if (windows.size() == count) {
                server->focus(windows.last());
                return settle();
            }
            if (process.waitForFinished(5))
                return false;
        }
        return false;
    }

    // Waits until the program, and the display before it, has dealt with all that was sent: both sleep, and go on
    // sleeping. There is no other way to tell from outside that the last key was taken.
    bool settle() const
    {
        QElapsedTimer waiting;
        waiting.start();
        int quiet = 0;
        QByteArray before;
        while (quiet < 12 && waiting.elapsed() < patience) {
            const QByteArray now = activity(server->processId()) + activity(id());
            quiet = now == before && !now.contains('R') ? quiet + 1 : 0;
            before = now;
            QThread::msleep(5);
        }
        return quiet >= 12;
    }

    // Whether it has its own answer to SIGTERM by now, and does not just die of it.
    [[nodiscard]] bool hearsSignals() const { return isAmong(SIGTERM, "SigCgt:"); }
    [[nodiscard]] bool ignores(int number) const { return isAmong(number, "SigIgn:"); }

    void signal(int number) const
    {
        if (id() > 0) // 0 would be everybody
            ::kill(id(), number);
    }
    // Exit code, -1 when it still runs, -2 when a signal ended it.
    int waitForEnd()
    {
        if (process.state() != QProcess::NotRunning && !process.waitForFinished(patience))
            return -1;
        return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -2;
    }
    [[nodiscard]] QByteArray output() { return process.readAllStandardOutput() + process.readAllStandardError(); }
    [[nodiscard]] pid_t id() const { return pid_t(process.processId()); }
    [[nodiscard]] QList<unsigned long> windows() const { return server->windowsOf(id()); }

    QProcess process;

private:
    static constexpr int patience = 20000;

    [[nodiscard]] bool isAmong(int number, const char *signals_) const
    {
        QFile status(QStringLiteral("/proc/%1/status").arg(id()));
        if (!status.open(QIODevice::ReadOnly))
            return false;
        for (const QByteArray &line : status.readAll().split('\n')) {
            if (line.startsWith(signals_))
                return ((line.mid(7).trimmed().toULongLong(nullptr, 16) >> (number - 1)) & 1U) != 0;
        }
        return false;
    }

    // The state of each thread of a process, and how often it has slept and been made to wait.
    static QByteArray activity(qint64 process)
    {
        const QDir threads(QStringLiteral("/proc/%1/task").arg(process));
        QByteArray found;
        for (const QString &thread : threads.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
            QFile status(threads.filePath(thread + QStringLiteral("/status")));
            if (!status.open(QIODevice::ReadOnly))
                continue;
            for (const QByteArray &line : status.readAll().split('\n')) {
                if (line.startsWith("State:"))
                    found += line.mid(6).trimmed().left(1);
                else if (line.contains("ctxt_switches:"))
                    found += line.mid(line.indexOf(':'));
            }
        }
        return found;
    }

    const XServer *server;
};
