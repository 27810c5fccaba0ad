// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QSize>
#include <QString>

class UserDefaults;
class QWidget;

// Gives a sheet, when it is first shown, the size that a person gave it in an earlier run, and writes the size that it
// got in this one. Where it stands is the window manager's to say. Owned by the sheet.
class SheetSize final : public QObject {
    Q_OBJECT

public:
    // The key's value is an array of two integers, width and height; anything else counts as absent. No sheet is made
    // larger than its screen.
    SheetSize(QWidget *resized, const QString &settingskey);

    // Nothing unless the size was changed in this run.
    void save(UserDefaults &store) const;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *sheet;
    QString key;
    QSize former; // with which it was first shown; not valid before
};
