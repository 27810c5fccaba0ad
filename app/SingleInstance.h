// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QString>

#include <functional>

// One program per store. The first start listens on an abstract local socket named by user and store path; a second one
// finds it taken, asks the first to come to the front, and ends. An abstract socket goes with its process, so nothing
// is left behind by a kill, as a lock file would be. Only processes of the same user are heard and believed.
class SingleInstance final : public QObject {
public:
    // `raise` is called in the first instance whenever a later start asks for it.
    SingleInstance(const QString &storepath, std::function<void()> raise);
    ~SingleInstance() override;
    Q_DISABLE_COPY_MOVE(SingleInstance)

    // False when another instance holds the store: it has been asked to show itself, and this one is to end, whether or
    // not that one answered. True when this is the first, or when no socket could be had at all: another user may have
    // taken the name.
    [[nodiscard]] bool isFirst() const { return first; }

private:
    bool listen(const QByteArray &name);
    void answer();

    std::function<void()> raisewindow;
    int listener = -1;
    bool first = true;
};
