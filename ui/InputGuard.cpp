// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/InputGuard.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>

namespace {

// With Shift let go in between, a key has another name and the same code.
quint32 identityOf(const QKeyEvent &event)
{
    return event.nativeScanCode() != 0 ? event.nativeScanCode() : quint32(event.key());
}

bool endsThings(const QKeyEvent &event)
{
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter || event.key() == Qt::Key_Escape;
}

bool editsText(const QWidget &receiver, const QKeyEvent &event)
{
    const auto commands = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    return commands == Qt::NoModifier && qobject_cast<const QLineEdit *>(&receiver) != nullptr;
}

} // namespace

InputGuard::InputGuard()
{
    qApp->installEventFilter(this);
}

bool InputGuard::eventFilter(QObject *watched, QEvent *event)
{
    const QEvent::Type type = event->type();
    if (type == QEvent::Wheel) {
        const auto *box = qobject_cast<QComboBox *>(watched);
        if (box == nullptr || box->hasFocus())
            return false;
        event->ignore();
        return true;
    }
    auto *receiver = qobject_cast<QWidget *>(watched);
    if (receiver == nullptr)
        return false;
    // A shortcut is looked for before the key is sent, unless somebody claims it at the override.
    if (type == QEvent::ShortcutOverride || type == QEvent::KeyPress)
        return keyPressed(*receiver, *static_cast<QKeyEvent *>(event));
    if (type == QEvent::KeyRelease)
        keyReleased(*static_cast<QKeyEvent *>(event));
    return false;
}

bool InputGuard::keyPressed(QWidget &receiver, QKeyEvent &event)
{
    const quint32 key = identityOf(event);
    const QWidget *window = receiver.window();
    if (event.isAutoRepeat()) {
        const bool passes = pressed.contains(key) ? pressed.value(key) == window : editsText(receiver, event);
        const bool stops = !passes || endsThings(event);
        if (stops)
            event.accept();
        return stops;
    }
    if (event.timestamp() == 0 || event.timestamp() != lasttime || key != lastreleased) {
        pressed.insert(key, window);
        return false;
    }
    pressed.insert(key, lastwindow);
    QKeyEvent repeated(event.type(), event.key(), event.modifiers(), event.nativeScanCode(), event.nativeVirtualKey(),
        event.nativeModifiers(), event.text(), true, quint16(event.count()));
    repeated.setTimestamp(event.timestamp());
    QCoreApplication::sendEvent(&receiver, &repeated);
    // All who may have the key had it by now; the override's answer is whether one claims it.
    event.setAccepted(event.type() == QEvent::KeyPress || repeated.isAccepted());
    return true;
}

void InputGuard::keyReleased(const QKeyEvent &event)
{
    const auto found = pressed.constFind(identityOf(event));
    if (event.isAutoRepeat() || found == pressed.constEnd())
        return;
    lastreleased = found.key();
    lastwindow = found.value();
    lasttime = event.timestamp();
    pressed.erase(found);
}
