// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

#include <functional>

// Turns SIGTERM, SIGINT and SIGHUP into a call on the main thread. A handler may do next to nothing, so it writes a
// byte into a socket pair whose other end the event loop watches. One that was ignored when the program was started
// stays so. One object at a time: signals belong to the process. Once it has gone they are ignored, for the program is
// on its way out.
class TerminationSignals final : public QObject {
public:
    explicit TerminationSignals(std::function<void()> terminate);
    ~TerminationSignals() override;
    Q_DISABLE_COPY_MOVE(TerminationSignals)

private:
    int receiver = -1;
};
