// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/controls/TextField.h"

#include <QFocusEvent>
#include <QGuiApplication>
#include <QHideEvent>
#include <QInputMethod>
#include <QInputMethodEvent>

#include <utility>

TextField::TextField(QWidget *parent)
    : QLineEdit(parent)
{
    // A text that code sets takes the place of what was being composed, and a cursor that moves takes it out of sight.
    connect(this, &QLineEdit::textChanged, this, [this] { composition.clear(); });
    connect(this, &QLineEdit::cursorPositionChanged, this, [this] { composition.clear(); });
}

void TextField::commitComposition()
{
    if (composition.isEmpty())
        return;
    QInputMethod *method = QGuiApplication::inputMethod();
    method->commit();
    if (composition.isEmpty())
        return;
    QInputMethodEvent event;
    event.setCommitString(std::exchange(composition, {}));
    method->reset(); // or it commits the same later
    QCoreApplication::sendEvent(this, &event);
}

void TextField::dropComposition()
{
    if (composition.isEmpty())
        return;
    composition.clear();
    QGuiApplication::inputMethod()->reset();
    QInputMethodEvent nothing;
    QCoreApplication::sendEvent(this, &nothing);
}

void TextField::focusOutEvent(QFocusEvent *event)
{
    // A menu or another window only borrows the keyboard.
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason)
        commitComposition();
    QLineEdit::focusOutEvent(event);
}

void TextField::hideEvent(QHideEvent *event)
{
    if (!event->spontaneous())
        dropComposition();
    QLineEdit::hideEvent(event);
}

void TextField::inputMethodEvent(QInputMethodEvent *event)
{
    QLineEdit::inputMethodEvent(event);
    composition = event->preeditString();
}
