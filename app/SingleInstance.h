// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QString>

#include <functional>

// One program per store. The first start locks the store's folder: the kernel knows it by whatever path, in every
// namespace, and frees it when the process ends, however it ends. It listens on a socket in the folder, by which a
// later start asks it to come to the front before that one ends. The folder is its owner's alone, so nobody else can
// take the lock or the name of the socket. The folder and not the store, which may be set aside or restored meanwhile.
class SingleInstance final : public QObject {
public:
    // `raise` is called in the first instance whenever a later start asks for it.
    SingleInstance(const QString &storepath, std::function<void()> raise);
    ~SingleInstance() override;
    Q_DISABLE_COPY_MOVE(SingleInstance)

    // False when another instance holds the store: it has been asked to show itself, and this one is to end, whether or
    // not that one answered. True when this is the first, and when nothing can tell: the folder cannot be made, or its
    // file system has no locks and nobody answers.
    [[nodiscard]] bool isFirst() const { return first; }

private:
    [[nodiscard]] bool isFree() const;
    void listen();
    void answer();

    std::function<void()> raisewindow;
    int folder = -1; // the store's; the lock is this descriptor's
    int listener = -1;
    bool first = true;
};
