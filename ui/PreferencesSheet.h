// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>

// The preferences sheet. Esc and the title bar's button do not hide it by themselves: like the Close button they ask
// the controller to.
class PreferencesSheet final : public QDialog {
    Q_OBJECT

public:
    using QDialog::QDialog;

    void reject() override { emit hidePrefs(); }

signals:
    void hidePrefs();
};
