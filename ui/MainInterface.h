// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "history/DayReader.h"
#include "ui/InputGuard.h"

#include <QObject>

#include <memory>
#include <optional>

class AddFoodSheet;
class AppDelegate;
class HistorySheet;
class QAction;
class QMainWindow;
class PreferencesSheet;
class QCheckBox;
class UserDefaults;
namespace Ui {
class MainWindow;
class PreferencesSheet;
} // namespace Ui

// The interface as described by the .ui files, loaded and connected to the controller: its controls become the
// controller's fields, their signals its actions. What the controller leaves to the interface stands here too: that an
// open editor is ended before a command, that fresh totals are asked for after an edit, and how the settings' check
// boxes reach the store. Owns all windows; the controller must outlive it.
class MainInterface final : public QObject {
public:
    explicit MainInterface(AppDelegate &appdelegate);
    ~MainInterface() override;
    Q_DISABLE_COPY_MOVE(MainInterface)

    // Shows the main window where it last stood. Called when launching has finished.
    void show();
    // Brings the window to the front for a second start of the program.
    void raise();
    // Ends an open amount editor, whose text goes to its row, and drops a date that was typed and not entered. What
    // comes before every command but one, and before the end.
    void endEditing();
    // Writes the window's place and the splitter's.
    void saveWindowState(UserDefaults &store) const;

    [[nodiscard]] QMainWindow *mainWindow() const { return window.get(); }

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    using Operation = void (AppDelegate::*)();

    void makeTables();
    void connectFields();
    void connectCommands();
    void connectPreferences();
    void connectSetting(QCheckBox *box, const QString &key);
    void setUseP(bool percentages);
    void showSettings();
    // The line about entries kept from a save that could not be read: only when the shown day has some to be added.
    void showKept();

    // ui/History.cpp
    void connectHistory();
    void openHistory();
    void makeHistory();
    void goToLoggedDay(bool later);
    [[nodiscard]] std::optional<History::ShownDay> shownDay() const;

    // Sends the operation when the action is chosen, after endEditing().
    void connectCommand(QAction *action, Operation operation);

    AppDelegate &controller;
    std::unique_ptr<Ui::MainWindow> main; // the names of the controls; they outlive the controls
    std::unique_ptr<Ui::PreferencesSheet> prefs;
    std::unique_ptr<QMainWindow> window;
    PreferencesSheet *preferences; // a child of the window, as the other sheet is
    AddFoodSheet *addview;
    HistorySheet *history = nullptr; // until it is first opened
    InputGuard inputguard;
};
