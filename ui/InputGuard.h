// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QHash>
#include <QObject>

class QKeyEvent;
class QWidget;

// Keeps two slips of the hand from changing anything, wherever they are made: the wheel turned over a box that does not
// have the focus, and a key held on after it has done its work. A held key repeats in the window where it was pressed
// and in no other, and Return and Esc, which end things, do not repeat at all. Where nobody saw a key pressed, as when
// an input method took the press, it repeats in a text field alone and is no command.
//
// One filter of the whole program, since what a key did may have closed the window that it was pressed in. Qt does not
// always see that X11 repeats a key, and gives it as let go and pressed at the same moment: such a press is given on as
// the repetition that it is.
class InputGuard final : public QObject {
public:
    InputGuard();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool keyPressed(QWidget &receiver, QKeyEvent &event);
    void keyReleased(const QKeyEvent &event);

    QHash<quint32, const QWidget *> pressed; // the window in which each key that is down was pressed; only compared
    quint32 lastreleased = 0; // a key,
    const QWidget *lastwindow = nullptr; // where it had been pressed
    quint64 lasttime = 0; // and when it was let go
};
