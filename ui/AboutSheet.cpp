// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/AboutSheet.h"

#include <QCoreApplication>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

AboutSheet::AboutSheet(QWidget *window, const QString &storepath)
    : QDialog(window)
{
    setWindowTitle(tr("About Provender"));
    auto *rows = new QFormLayout(this);
    rows->setSizeConstraint(QLayout::SetFixedSize);
    rows->setLabelAlignment(Qt::AlignLeft | Qt::AlignTop);
    rows->setHorizontalSpacing(18);
    rows->setVerticalSpacing(10);
    const int width = fontMetrics().averageCharWidth() * 56;
    const auto addRow = [&](const QString &title, const QString &text) {
        auto *label = new QLabel(text, this);
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
        label->setFixedWidth(width);
        auto *name = new QLabel(title, this);
        name->setAlignment(Qt::AlignLeft | Qt::AlignTop); // beside the first line
        name->setBuddy(label); // for a screen reader
        rows->addRow(name, label);
    };
    addRow(tr("Version"), tr("Provender %1, a daily food log").arg(QCoreApplication::applicationVersion()));
    addRow(tr("Licence"), tr("MIT licence"));
    addRow(tr("Figures"),
        tr("USDA National Nutrient Database for Standard Reference, Release 24 (2011), which is in the public domain"));
    // A field, since a path has no place to break a line at and may be wanted elsewhere.
    auto *path = new QLineEdit(storepath, this);
    path->setObjectName(QStringLiteral("storepath"));
    path->setReadOnly(true);
    path->setCursorPosition(0);
    path->setFixedWidth(width);
    rows->addRow(tr("Your &log"), path);
    auto *close = new QPushButton(tr("&Close"), this);
    close->setAutoDefault(false);
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    auto *row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(close);
    rows->addRow(row);
    close->setFocus();
}
