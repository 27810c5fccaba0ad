// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>

// What the program is, where its figures come from, and which file holds what was entered. Owned by its window.
class AboutSheet final : public QDialog {
    Q_OBJECT

public:
    AboutSheet(QWidget *window, const QString &storepath);
};
