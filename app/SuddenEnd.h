// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

#include <functional>
#include <utility>

// A last word when a library ends the process over the program's head, as Qt does when the connection to the display
// breaks: by exit() on the main thread, from the event dispatcher, when it was an X server; by _exit() on the thread
// that reads the connection when it was a Wayland compositor, whatever the main thread does just then. The program
// defines both functions in place of the C library's, so no way to print, log or notice the break matters. A call from
// another thread waits for the main thread to come to rest between two events, and the process ends there.
//
// One at a time. When there is none the functions are the C library's, and in a forked child they always are. It is to
// outlast whatever writes: another thread goes on to end the process when the object goes.
class SuddenEnd final : public QObject {
public:
    SuddenEnd();
    ~SuddenEnd() override;
    Q_DISABLE_COPY_MOVE(SuddenEnd)

    // `last` runs on the main thread right before the process ends. When what it does ends the process again it is
    // called a second time from within, and then never again.
    void setLastWord(std::function<void()> last) { lastword = std::move(last); }

    [[noreturn]] void end(int status);

private:
    std::function<void()> lastword;
    int calls = 0;
};
