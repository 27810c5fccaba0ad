// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/SheetSize.h"

#include "platform/UserDefaults.h"

#include <QEvent>
#include <QScreen>
#include <QWidget>

SheetSize::SheetSize(QWidget *resized, const QString &settingskey)
    : QObject(resized)
    , sheet(resized)
    , key(settingskey)
{
    sheet->installEventFilter(this);
}

void SheetSize::save(UserDefaults &store) const
{
    if (former.isValid() && sheet->size() != former)
        store.setObject(QVariantList{sheet->width(), sheet->height()}, key);
}

bool SheetSize::eventFilter(QObject *watched, QEvent *event)
{
    // Sent before the window system hears of the window.
    if (event->type() == QEvent::Show && !former.isValid()) {
        const QVariant stored = UserDefaults::standardUserDefaults().objectForKey(key);
        const QVariantList numbers = stored.typeId() == QMetaType::QVariantList ? stored.toList() : QVariantList();
        const QSize size(numbers.value(0).toInt(), numbers.value(1).toInt());
        const bool issize = numbers.size() == 2 && !size.isEmpty();
        sheet->resize((issize ? size : sheet->size()).boundedTo(sheet->screen()->availableSize()));
        former = sheet->size();
    }
    return QObject::eventFilter(watched, event);
}
