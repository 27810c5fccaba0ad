// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/controls/ConfirmButton.h"

#include <QMouseEvent>

#include <utility>

ConfirmButton::ConfirmButton(QWidget *parent)
    : QPushButton(parent)
{
    connect(this, &QAbstractButton::clicked, this, &ConfirmButton::press);
}

void ConfirmButton::press()
{
    if (usualtext.isEmpty()) {
        usualtext = text();
        setText(questiontext);
        setFocus(); // which a press by the button's letter leaves where it was
    } else {
        withdraw();
        emit confirmed();
    }
}

void ConfirmButton::withdraw()
{
    if (!usualtext.isEmpty())
        setText(std::exchange(usualtext, {}));
}

void ConfirmButton::mouseDoubleClickEvent(QMouseEvent *event)
{
    event->accept();
}

void ConfirmButton::focusOutEvent(QFocusEvent *event)
{
    withdraw();
    QPushButton::focusOutEvent(event);
}

void ConfirmButton::hideEvent(QHideEvent *event)
{
    withdraw();
    QPushButton::hideEvent(event);
}
