// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QList>
#include <QProcess>
#include <QStringList>

// A virtual display of a test's own, with no window manager: nothing is focused or raised but by the program under
// test and by what is asked for here. Keys are real ones, sent with xdotool to whatever has the focus.
class XServer final {
public:
    XServer();
    ~XServer();
    Q_DISABLE_COPY_MOVE(XServer)

    // ":1", empty when the server did not start.
    [[nodiscard]] QByteArray name() const { return displayname; }
    [[nodiscard]] qint64 processId() const { return server.processId(); }

    // Every window on the display, the uppermost last.
    [[nodiscard]] QList<unsigned long> stack() const;
    // A process's visible windows, the uppermost last.
    [[nodiscard]] QList<unsigned long> windowsOf(qint64 process) const;
    // Gives the keyboard to a window.
    void focus(unsigned long window) const;
    // Each is a key with its modifiers, "ctrl+n".
    void press(const QStringList &keys) const;
    void type(const QString &text) const;
    // What the button in a window's title bar asks the program for.
    void closeWindow(unsigned long window) const;

private:
    QProcess server;
    QByteArray displayname;
};
