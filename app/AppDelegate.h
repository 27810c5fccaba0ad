// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "catalog/NutrientCatalogue.h"
#include "model/Food.h"
#include "ui/TableViewDataSource.h"
#include "ui/TableViewDelegate.h"

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QObject>
#include <QStringList>
#include <QVariant>

#include <array>
#include <bitset>
#include <functional>
#include <memory>
#include <vector>

class AddFoodSheet;
class ArrayController;
class DatePicker;
class MainInterface;
class MenuItemUnit;
class PopUpButtonCell;
class QComboBox;
class QDialog;
class QLabel;
class QLineEdit;
class QMainWindow;
class TextFieldCellRDA;
class UserDefaults;

// The application controller: it owns the day's log, its sums and the RDAs, answers both tables, and carries out every
// command. One object, because every command touches the log, its stored form and its sums together, and their orders
// of steps belong to each other. Its operations are defined in the rooms they serve and grouped here by that file.
//
// Everything runs on the main thread and to its end. Nothing here reports a failure: each falls back to a neutral
// value. The controls are the main interface's; they are connected here before launching finishes and outlive the
// controller's last operation.
class AppDelegate : public QObject, public TableViewDataSource, public TableViewDelegate {
public:
    // Answers the current instant; a test passes a clock of its own to stand at midnight.
    using Clock = std::function<QDateTime()>;

    explicit AppDelegate(Clock clock = QDateTime::currentDateTimeUtc);
    ~AppDelegate() override;
    Q_DISABLE_COPY_MOVE(AppDelegate)

    // app/AppDelegate.cpp: start and stop
    void applicationDidFinishLaunching();
    // Writes the RDAs, the date last shown and its log: when the program ends, and when the session says that it may.
    void applicationWillTerminate();
    [[nodiscard]] bool applicationShouldTerminateAfterLastWindowClosed() const;

    // daylog/DayStore.cpp: the day shown
    // Makes the instant's day the one shown, after saving the one left. The only way a date becomes current.
    void setDate(const QDateTime &date);
    void updateDate();
    void today();
    void previousDay();
    void nextDay();
    // Those of the copies kept of the shown day's former values: entries whose names the day has not, each once, not
    // loaded yet.
    [[nodiscard]] std::vector<std::shared_ptr<Food>> keptFoods() const;
    // Adds them as if by hand. The copies stay.
    void addKeptFoods();
    // The store's key of an instant's day in the time zone in force now: "2015_05_11".
    [[nodiscard]] static QString dayKey(const QDateTime &date);

    // daylog/LogEditing.cpp: commands on the log
    void addFood();
    void addSelectedFoods();
    void removeSelected();
    void cut();
    void copy();
    void paste();

    // daylog/Accumulators.cpp: the selection's sums
    void tableViewSelectionDidChange() override;

    // daylog/Edits.cpp: edits of an entry in place
    void setObjectValue(const TableView *table, const QVariant &value, const QString &column, int row) override;
    void updateUnit(const MenuItemUnit &item);

    // ui/LogTable.cpp and ui/NutrientTable.cpp: what the tables show
    [[nodiscard]] int numberOfRowsInTableView(const TableView *table) const override;
    [[nodiscard]] QVariant objectValueForTableColumn(const TableView *table, const QString &column, int row) override;
    void willDisplayCell(const TableView *table, TableCell &cell, const QString &column, int row) override;
    [[nodiscard]] std::optional<QList<int>> selectionIndexesForProposedSelection(
        const TableView *table, const QList<int> &proposed) override;
    [[nodiscard]] QString toolTipForCell(const TableView *table, const QString &column, int row) override;
    void updateNutrients();

    // ui/Preferences.cpp: the preferences sheet and its RDA editor
    void showPrefs();
    void hidePrefs();
    void RDAtick();
    void setRDA();
    void RDAreset();

protected:
    // The state below is written by the operations above alone; a test reads it through a class of its own.
    friend class MainInterface; // connects the controls

    using FoodPointer = std::shared_ptr<Food>;
    using NutrientSums = std::array<float, NutrientCatalogue::nutrientCount>;

    // app/Settings.cpp
    void initPrefs();

    // daylog/DayStore.cpp
    void saveDay();
    void loadDay(const QString &key);

    // daylog/LogEditing.cpp
    void addFoodPriv(const FoodPointer &food);
    // An absent name equals no name.
    [[nodiscard]] static bool holdsName(const std::vector<FoodPointer> &list, const std::optional<QString> &name);
    void sweepRemoved();
    void showCount(); // of the selection, or of the entries when none is selected
    void showEntryCount();

    // daylog/Accumulators.cpp: the steps that the operations above are made of
    void addEntry(Food &food);
    void subtractStoredEntry(int row);
    void subtractRecomputedEntry(int row);
    void replaceEntry(int row);
    void clearSums();

    // ui/LogTable.cpp, ui/NutrientTable.cpp
    [[nodiscard]] QVariant logValue(const QString &column, int row);
    void rebuildUnits(PopUpButtonCell &cell, int row);
    void prepareBar(TextFieldCellRDA &cell, int row) const;
    [[nodiscard]] QString nutrientValue(const QString &column, int row) const;
    [[nodiscard]] float displayedSum(int index) const;
    [[nodiscard]] float rdaRatio(int index) const;
    [[nodiscard]] QString amountText(int index) const;
    [[nodiscard]] QString percentText(int index) const;
    [[nodiscard]] QString nutrientSentence(int index) const;
    [[nodiscard]] QString mainSources(int index) const;

    Clock now;
    UserDefaults *prefs = nullptr; // the standard store, from initPrefs on
    QStringList foodlist;
    QStringList nutdata;
    QStringList nutdataunits;
    const void *filemanager
        = nullptr; // one of the controller's fields ever since; nothing gives it a value or reads it

    // The day's log: three lists by position, always of one length.
    QDateTime curdate; // the instant whose day is shown, in UTC; not valid before the first day is opened
    QList<QByteArray> curdatefoods; // the records of `foods`, made when an entry is added or edited: what is stored
    std::vector<FoodPointer> copyfoods; // the clipboard; a pasted entry and its clipboard food are one object
    QVariantList unreadfoods; // the day's stored items that are no record: never shown, written back behind the rest
    std::vector<FoodPointer> foods;
    std::array<std::vector<float>, NutrientCatalogue::nutrientCount> nutrients; // per nutrient, each entry's amount

    NutrientSums nutrientstotal{}; // over all entries; moved by every change, never summed anew while a day is shown
    NutrientSums nutrientsselected{}; // over the selected rows; means something only while some are
    NutrientSums rdas{};
    std::bitset<NutrientCatalogue::nutrientCount> rdaschanged; // those that the person set or reset in this run

    QComboBox *rdamenu = nullptr;
    QLabel *rdalabel = nullptr;
    QLineEdit *rdainput = nullptr;
    DatePicker *datepicker = nullptr;
    TableView *nutrienttable = nullptr;
    TableView *logtable = nullptr;
    QLabel *label = nullptr;
    AddFoodSheet *addview = nullptr;
    QDialog *preferences = nullptr;
    ArrayController *foodlistcontroller = nullptr;

public:
    QMainWindow *window = nullptr; // the main window, whose sheets the others are
};
