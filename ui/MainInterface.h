// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "history/DayReader.h"
#include "ui/InputGuard.h"
#include "ui/MenuItems.h"

#include <QList>
#include <QObject>

#include <array>
#include <functional>
#include <memory>
#include <optional>

class AddFoodSheet;
class AppDelegate;
class HistorySheet;
class OtherDay;
class QAction;
class QMainWindow;
class PreferencesSheet;
class TableView;
class QCheckBox;
class QDateTime;
class QDialog;
class ShortcutsSheet;
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
    // Ends an open amount editor, whose text goes to its row, drops a date that was typed and not entered, and sets an
    // allowance that was typed. What comes before the end and before every command but those three that take the date.
    void endEditing();
    // Writes the window's place, the splitter's, and the widths and sizes that the person changed.
    void saveWindowState(UserDefaults &store) const;

    [[nodiscard]] QMainWindow *mainWindow() const { return window.get(); }

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    using Operation = void (AppDelegate::*)();

    void makeTables();
    void connectFields();
    void connectCommands();
    void connectOtherDay();
    void makeOtherDay();
    void connectPreferences();
    void connectSetting(QCheckBox *box, const QString &key);
    void setUseP(bool percentages);
    void showSettings();
    // ui/MainInterfaceColumns.cpp
    void connectColumns();
    void restoreColumns(const UserDefaults &store);
    // Nothing unless the person changed a width, now or in an earlier run.
    void saveColumns(UserDefaults &store) const;
    void arrangeColumns();
    void arrangeLogColumns();
    void arrangeNutrientColumns();

    // ui/MainInterfaceHelp.cpp
    void connectHelp();
    void showShortcuts();
    void showAbout();

    // ui/MainInterfaceDay.cpp
    void connectDay();
    // The weekday, how far from today, and the window's title. To be called after whatever may have opened another day,
    // and not inside it: the title goes to the display, and where that is broken the program saves and ends at once.
    void showDay();
    // The main sums of what the nutrient table shows.
    void showTotals();

    // Sets the allowance that was typed and not set, if one was: before anything else is done in the preferences.
    void setTypedRDA();
    // Says on the button how many foods wait on the sheet's list.
    void showFoodsLeft();
    // The line about entries kept from a save that could not be read: only when the shown day has some to be added.
    void showKept();

    // ui/AddedFoods.cpp
    // The controller's addFood(), after the sheet was told what the person has logged.
    void openFoodSheet();
    void prepareFoodSheet();
    // The controller's operation, and then the quantities that the foods were chosen with.
    void addSelectedFoods();
    void enterQuantity(int row);

    // Sends the operation when the action is chosen, after endEditing() and what else is to come first.
    void connectCommand(QAction *action, Operation operation, const std::function<void()> &first = {});
    // Clears the log's selection where another day is to be opened: its rows are the shown day's.
    void leaveDayFor(const QDateTime &next);
    // Where the log has the keyboard and nothing is selected, selects the row that its frame is on.
    void selectFramedRow();
    // After the add-food sheet: a number typed next is the amount of the food added last, or of the food chosen last
    // that the log had already.
    void frameAddedFood(int formerrows);

    // ui/History.cpp
    void connectHistory();
    void openHistory();
    void makeHistory();
    void goToLoggedDay(bool later);
    // The one before or after the shown day; nothing when there is none.
    [[nodiscard]] std::optional<QDate> loggedDay(bool later) const;
    void goToDay(QDate day);
    [[nodiscard]] std::optional<History::ShownDay> shownDay() const;

    // ui/MainInterfaceMenus.cpp
    void makeMenus();
    // A menu of the table's rows, which acts on the current one; no item is a separator.
    void addRowMenu(TableView *table, const QString &name, const QList<QAction *> &items);
    void setConditions();
    // Whether a row would be selected by selectFramedRow().
    [[nodiscard]] bool hasFramedRow() const;
    [[nodiscard]] bool isLog(const QWidget *keyboard) const;
    // Opens the preferences at a nutrient's allowance.
    void setAllowance(int nutrient);

    AppDelegate &controller;
    std::unique_ptr<Ui::MainWindow> main; // the names of the controls; they outlive the controls
    std::unique_ptr<Ui::PreferencesSheet> prefs;
    // What the person made them, 0 where the room decides: the log's amount, unit and energy, the nutrients' name.
    std::array<int, 4> columnwidths{};
    int unitwidth = 0; // that the units shown need
    int nutrientwidth = 0; // that the nutrients' names need
    bool arranging = false;
    std::unique_ptr<QMainWindow> window;
    PreferencesSheet *preferences; // a child of the window
    AddFoodSheet *addview;
    std::unique_ptr<OtherDay> otherday; // until it is first opened, nothing
    HistorySheet *history = nullptr; // until it is first opened
    ShortcutsSheet *shortcuts = nullptr; // until it is first asked for
    QDialog *about = nullptr;
    InputGuard inputguard;
    MenuItems menuitems;
    bool barcamefromlog = false; // whether the menu bar took the keyboard from the log
};
