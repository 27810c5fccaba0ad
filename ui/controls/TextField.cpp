// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/controls/TextField.h"

#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>

#include <utility>

TextField::TextField(QWidget *parent)
    : QLineEdit(parent)
{
    // A text that code sets takes the place of what was being composed as well.
    connect(this, &QLineEdit::textChanged, this, [this] { composition.clear(); });
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

void TextField::inputMethodEvent(QInputMethodEvent *event)
{
    QLineEdit::inputMethodEvent(event);
    composition = event->preeditString();
}
