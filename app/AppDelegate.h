// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "catalog/NutrientCatalogue.h"
#include "model/Food.h"
#include "ui/table/TableViewDataSource.h"
#include "ui/table/TableViewDelegate.h"

#include <QByteArray>
#include <QDate>
#include <QDateTime>
#include <QList>
#include <QObject>
#include <QStringList>
#include <QVariant>

#include <array>
#include <bitset>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
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
//
// What an operation does to the selection and which tables it reloads, in which order, is part of its contract and
// stands beside it. Where nothing stands, it does not touch the log table's selection, reloads nothing and writes
// nothing to the store. "The handler" is tableViewSelectionDidChange(), which the log table runs inside whatever
// changed its selection, deselectAll() and reloadData() included. Some of what is left undone looks like a slip:
// docs/decisions/inherited-behaviour.md says what depends on it. What is marked "Added" came to the controller's own
// operations later: it only reads, or is made of their steps.
class AppDelegate : public QObject, public TableViewDataSource, public TableViewDelegate {
public:
    // Answers the current instant; a test passes a clock of its own to stand at midnight.
    using Clock = std::function<QDateTime()>;

    explicit AppDelegate(Clock clock = QDateTime::currentDateTimeUtc);
    ~AppDelegate() override;
    Q_DISABLE_COPY_MOVE(AppDelegate)

    // app/AppDelegate.cpp: start and stop

    // Added: tells the store how a value that could not be read comes together with this run's, and has it take in what
    // an earlier run could not save. Before launching finishes.
    static void prepareStore(UserDefaults &store);

    // Fills the menu and the sheet, becomes both tables' delegate and source, reads the settings and opens the first
    // day. The RDA's field is filled; its unit label stays as described until a nutrient is chosen.
    void applicationDidFinishLaunching();
    // Writes the RDAs and then, where a day is shown, its date and its log: when the program ends, and when the session
    // says that it may. Changes nothing in memory and may run again. Ending an open editor first is the interface's.
    void applicationWillTerminate();
    // Always.
    [[nodiscard]] bool applicationShouldTerminateAfterLastWindowClosed() const;

    // daylog/DayStore.cpp: the day shown

    // Makes the instant's day the one shown; the only way a date becomes current. Reloads the nutrients first, and for
    // another instant of the day shown that is all: nothing is saved, the picker is not set, and the earlier instant
    // stays the current one. Otherwise saves the day left, sets the picker, empties log and sums, adds the stored
    // entries, reloads the log, then the nutrients, and counts all entries in the label. The rows selected before stay
    // selected, with sums of 0 until the selection changes; only those that the new day has not leave it in the log's
    // reload, whose handler then sums the rest.
    void setDate(const QDateTime &date);
    // setDate() of the picker's instant.
    void updateDate();
    // setDate() of the clock's.
    void today();
    // Added. setDate() of the calendar day before or after at the same time of day; of the shown instant where dates
    // end.
    void previousDay();
    void nextDay();
    // Added. The entries in the copies kept of the shown day's former values whose names the log has not: each once,
    // not loaded yet.
    [[nodiscard]] std::vector<std::shared_ptr<Food>> keptFoods() const;
    // Added. addFoodPriv() for each of them, then reloads the log, then the nutrients. The copies stay.
    void addKeptFoods();

    // daylog/OtherDays.cpp: the entries of other days. All added; the days themselves are not written and count as not
    // read.

    // What opening the day would make the entries, not loaded yet; each call makes new ones.
    [[nodiscard]] std::vector<std::shared_ptr<Food>> entriesOf(QDate day) const;
    // The nearest day before or after one that has entries, the shown day passed over; nothing when there is none.
    [[nodiscard]] std::optional<QDate> otherLoggedDay(QDate from, bool islater) const;
    // Whether addFoodPriv() would drop the food.
    [[nodiscard]] bool holds(const Food &food) const;
    // addFoodPriv() for each of them, then reloads the log, then the nutrients.
    void addEntries(const std::vector<std::shared_ptr<Food>> &entries);

    // daylog/LogEditing.cpp: commands on the log. None writes the store; addFoodPriv() and the handler alone set
    // the label.

    // Opens the sheet, which marks the foods of the log.
    void addFood();
    // Closes the sheet and adds 100 g of each chosen food in the order of choosing; then reloads the log, then the
    // nutrients, also when nothing was chosen. The choice stays until the sheet next opens.
    void addSelectedFoods();
    // Nothing without a selection. Subtracts and marks the selected rows, sweeps the log, deselects all, then reloads
    // the log, then the nutrients. The sweep goes by name: it also takes an entry that bore the mark before, and leaves
    // that one's amounts in the totals.
    void removeSelected();
    // copy(), then removeSelected().
    void cut();
    // Nothing without a selection: the clipboard stays. Otherwise replaces it by new foods with the names, amounts and
    // unit titles of the selected rows, their unit index the default one. The system's clipboard is never touched.
    void copy();
    // Adds the clipboard's own objects, so that a pasted entry and its clipboard food are one. Reloads the nutrients,
    // then the log: the other way round from every other command; also when nothing is added.
    void paste();

    // daylog/Accumulators.cpp: the selection's sums

    // Whichever table sent it, sums the stored amounts of the log's selected rows from 0, in ascending order; an empty
    // selection leaves the sums as they were. Then sets the label and reloads the nutrients, not the log.
    void tableViewSelectionDidChange() override;

    // daylog/Edits.cpp: edits of an entry in place

    // Of the log's "Amount" alone, for any other cell nothing. Deselects all first, so that the handler shows the sums
    // of before the edit, then changes the entry, its record and the sums. Any text is taken: no number reads as 0.
    // Reloads neither table: the view refreshes the row, and the interface asks for totals once the editor has closed.
    void setObjectValue(const TableView *table, const QVariant &value, const QString &column, int row) override;
    // Changes the entry and its record, deselects all while the old amounts are out of the totals and the new ones not
    // yet in, adds those, then reloads the log, then the nutrients. A unit that is set already, or that the food does
    // not know, takes all these steps too.
    void updateUnit(const MenuItemUnit &item);

    // ui/LogTable.cpp and ui/NutrientTable.cpp: what the tables show

    // The log's entries, 61 nutrients; 0 for any other table.
    [[nodiscard]] int numberOfRowsInTableView(const TableView *table) const override;
    // May read a food's file. In the log "Unit" is the stored unit index, and every column that is none of "Name",
    // "Amount" and "Unit" is energy. Totals are shown while no row is selected, else the selection's sums.
    [[nodiscard]] QVariant objectValueForTableColumn(const TableView *table, const QString &column, int row) override;
    // Rebuilds the log's unit menu, its item chosen by the unit's title and not by the index, or gives the nutrients'
    // bar its ratio, whether amounts or percentages are shown. Other cells are left alone.
    void willDisplayCell(const TableView *table, TableCell &cell, const QString &column, int row) override;
    // The log's as proposed; nothing for any other table, so that nutrients are never selected.
    [[nodiscard]] std::optional<QList<int>> selectionIndexesForProposedSelection(
        const TableView *table, const QList<int> &proposed) override;
    // Added. A nutrient's sentence with the entries that gave most of it, a food's whole name.
    [[nodiscard]] Tip toolTipForCell(const TableView *table, const QString &column, int row) override;
    // Reloads the nutrients. The interface sends it where a person expects fresh totals and no operation reloads them.
    void updateNutrients();

    // ui/Preferences.cpp: the preferences sheet and its RDA editor. None writes the store: that is for the end.

    // Opens the sheet as it was left.
    void showPrefs();
    // Hides the sheet, then ends it.
    void hidePrefs();
    // Shows the RDA and the unit of the nutrient chosen in the menu; of the first where none is.
    void RDAtick();
    // Takes the number typed as the chosen nutrient's RDA, whatever it is (no number is 0), shows what was taken, and
    // reloads the nutrients. Unlike RDAtick() it relies on a chosen nutrient.
    void setRDA();
    // Sets all RDAs back to the built-in ones, then RDAtick(). Leaves the nutrient table with the old percentages; the
    // interface asks for fresh ones when the sheet has been hidden.
    void RDAreset();

protected:
    // The state below is written by the operations above alone; a test reads it through a class of its own.
    friend class MainInterface; // connects the controls

    using FoodPointer = std::shared_ptr<Food>;
    using NutrientSums = std::array<float, NutrientCatalogue::nutrientCount>;

    // app/Settings.cpp
    // Registers the defaults, reads the RDAs and opens the remembered date or today, which loads both tables. Once,
    // after prepareStore() and with the tables connected.
    void initPrefs();

    // daylog/DayStore.cpp
    void saveDay();
    void loadDay(const QString &key);

    // daylog/LogEditing.cpp
    // Appends the very object, its record and its amounts and sets the label by the selection. Nothing at all for a
    // name that is in the log. Leaves the selection's sums; every caller reloads after its loop.
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
    [[nodiscard]] Tip nutrientTip(int index) const;
    [[nodiscard]] std::array<std::pair<QString, float>, 3> mainSources(int index) const;
    [[nodiscard]] QString unknownText(int index) const;

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
    QVariantList unreadfoods; // the day's stored items that are no record: never shown, written back after the rest
    std::vector<FoodPointer> foods;
    std::array<std::vector<float>, NutrientCatalogue::nutrientCount> nutrients; // per nutrient, each entry's amount

    NutrientSums nutrientstotal{}; // over all entries; moved by every change, never summed anew while a day is shown
    NutrientSums nutrientsselected{}; // over the selected rows; means something only while some are
    NutrientSums rdas{};
    // Added. Those that the person set or reset in this run. Where a save meets stored RDAs that the run could not
    // read, it replaces these alone.
    std::bitset<NutrientCatalogue::nutrientCount> rdaschanged;

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
