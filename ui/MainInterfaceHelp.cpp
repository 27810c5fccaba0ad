// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/MainInterface.h"

#include "app/SettingsKeys.h"
#include "platform/UserDefaults.h"
#include "ui/AboutSheet.h"
#include "ui/SheetSize.h"
#include "ui/ShortcutsSheet.h"
#include "ui_MainWindow.h"

#include <QMainWindow>

// The help menu. Its sheets are made when they are first asked for: the start has no time for what few ever open.

void MainInterface::connectHelp()
{
    connect(main->actionshortcuts, &QAction::triggered, this, &MainInterface::showShortcuts);
    connect(main->actionabout, &QAction::triggered, this, &MainInterface::showAbout);
}

void MainInterface::showShortcuts()
{
    endEditing();
    if (shortcuts == nullptr) {
        shortcuts = new ShortcutsSheet(window.get());
        new SheetSize(shortcuts, SettingsKeys::ShortcutsSheetSize);
        shortcuts->addAction(main->actionquit);
    }
    shortcuts->open();
}

void MainInterface::showAbout()
{
    endEditing();
    if (about == nullptr) {
        about = new AboutSheet(window.get(), UserDefaults::standardUserDefaults().storePath());
        about->addAction(main->actionquit);
    }
    about->open();
}
