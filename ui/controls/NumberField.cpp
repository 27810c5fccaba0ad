// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/controls/NumberField.h"

#include "platform/NumberText.h"
#include "platform/TypedNumber.h"

#include <QPalette>

NumberField::NumberField(QWidget *parent)
    : TextField(parent)
{
    connect(this, &QLineEdit::textEdited, this, &NumberField::judge);
}

QString NumberField::number() const
{
    return TypedNumber::withPeriod(text());
}

void NumberField::setNumber(const QString &number)
{
    setText(number);
    judge();
}

void NumberField::judge()
{
    const float value = NumberText::floatValue(number());
    QString doubt;
    QPalette colors;
    if (!(value > 0.0F)) {
        doubt = value < 0.0F ? tr("What is typed is below 0") : tr("What is typed counts as 0");
        colors = parentWidget() != nullptr ? parentWidget()->palette() : palette();
        colors.setColor(QPalette::Base, colors.color(QPalette::ToolTipBase));
        colors.setColor(QPalette::Text, colors.color(QPalette::ToolTipText));
    }
    setPalette(colors);
    setToolTip(doubt);
    setAccessibleDescription(doubt);
}
