// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>
#include <QKeyEvent>
#include <QPushButton>

// The preferences sheet. Esc and the title bar's button do not hide it by themselves: like the Close button they ask
// the controller to. Esc alone first discards what was typed and not set.
class PreferencesSheet final : public QDialog {
    Q_OBJECT

public:
    using QDialog::QDialog;

    void reject() override { emit hidePrefs(); }

signals:
    void discardTyped();
    void hidePrefs();

protected:
    void keyPressEvent(QKeyEvent *event) override
    {
        const bool isreturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
        auto *button = isreturn ? qobject_cast<QPushButton *>(focusWidget()) : nullptr;
        if (button != nullptr) {
            button->click();
            return;
        }
        if (event->matches(QKeySequence::Cancel))
            emit discardTyped();
        QDialog::keyPressEvent(event);
    }
};
