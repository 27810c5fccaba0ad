// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "ui/controls/TextField.h"

// A field for a number as people write it. It takes any text; while what is typed reads as 0 or is negative it stands
// in the colours of a tip, which every theme has, and says so in its tip and its description.
class NumberField final : public TextField {
    Q_OBJECT

public:
    explicit NumberField(QWidget *parent = nullptr);

    // The text, a fraction or a decimal comma written with a period.
    [[nodiscard]] QString number() const;
    // Shows another number than the one that was typed, and judges it.
    void setNumber(const QString &number);

private:
    void judge();
};
