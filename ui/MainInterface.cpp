// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/MainInterface.h"

#include "app/AppDelegate.h"
#include "app/SettingsKeys.h"
#include "platform/LocalDay.h"
#include "platform/NumberText.h"
#include "platform/UserDefaults.h"
#include "ui/OtherDay.h"
#include "ui/PreferencesSheet.h"
#include "ui/SheetSize.h"
#include "ui/WindowState.h"
#include "ui/daysheet/DaySheet.h"
#include "ui/foodsheet/AddFoodSheet.h"
#include "ui/historysheet/HistorySheet.h"
#include "ui/table/PopUpButtonCell.h"
#include "ui/table/TextFieldCellRDA.h"
#include "ui_MainWindow.h"
#include "ui_PreferencesSheet.h"

#include <QApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QMainWindow>
#include <QScreen>
#include <QStyle>

#include <algorithm>
#include <functional>
#include <utility>

namespace {

TableView::Column column(const QString &identifier, const QString &title, std::unique_ptr<TableCell> cell)
{
    TableView::Column made;
    made.identifier = identifier;
    made.title = title;
    made.cell = std::move(cell);
    return made;
}

std::unique_ptr<TableCell> rightAligned(std::unique_ptr<TableCell> cell)
{
    cell->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return cell;
}

// About what a window manager puts around a window; nobody knows before it has.
QSize frameSize()
{
    const QStyle *style = QApplication::style();
    const int border = style->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth);
    return {2 * border, 2 * border + style->pixelMetric(QStyle::PM_TitleBarHeight)};
}

} // namespace

MainInterface::MainInterface(AppDelegate &appdelegate)
    : controller(appdelegate)
    , main(std::make_unique<Ui::MainWindow>())
    , prefs(std::make_unique<Ui::PreferencesSheet>())
    , window(std::make_unique<QMainWindow>())
    , preferences(new PreferencesSheet(window.get()))
    , addview(new AddFoodSheet(window.get()))
{
    main->setupUi(window.get());
    prefs->setupUi(preferences);
    new SheetSize(addview, SettingsKeys::AddFoodSheetSize);
    makeTables();
    // So that both tables end at the same height, and a date has room.
    main->label->setMinimumHeight(main->usep->sizeHint().height());
    main->datepicker->setMinimumWidth(
        main->datepicker->sizeHint().width() + main->label->fontMetrics().averageCharWidth());
    main->splitter->setStretchFactor(0, 3);
    main->splitter->setStretchFactor(1, 2);
    connectFields();
    connectDay();
    AppDelegate::prepareStore(UserDefaults::standardUserDefaults());
    connectCommands();
    connectOtherDay();
    makeMenus();
    connectHistory();
    connectPreferences();
    connectHelp();
    connectColumns();
    // While a sheet is open the window's own shortcuts do nothing, so each sheet has Quit too.
    preferences->addAction(main->actionquit);
    addview->addAction(main->actionquit);
    window->installEventFilter(this);
    main->logtable->setFocus();
}

MainInterface::~MainInterface()
{
    // A window that goes while it is shown sends a date or an RDA that was half typed; by then nobody is to hear of it.
    disconnect(main->datepicker, nullptr, this, nullptr);
    disconnect(prefs->rdainput, nullptr, this, nullptr);
}

void MainInterface::makeTables()
{
    TableView *log = main->logtable;
    log->addTableColumn(column(QStringLiteral("Name"), tr("Food"), std::make_unique<TableCell>()));
    auto amount = column(QStringLiteral("Amount"), tr("Amount"), rightAligned(std::make_unique<TableCell>()));
    amount.editable = true;
    log->addTableColumn(std::move(amount));
    log->addTableColumn(column(QStringLiteral("Unit"), tr("Unit"), std::make_unique<PopUpButtonCell>()));
    auto energy = std::make_unique<TableCell>();
    energy->setFormatter([](const QVariant &value) { return NumberText::fixed(double(value.toFloat()), 0); });
    log->addTableColumn(column(QStringLiteral("Energy"), tr("kcal"), rightAligned(std::move(energy))));
    log->horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
    log->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch); // what room the others leave
    log->setPlaceholderText(tr("Nothing eaten yet.\nAdd Food (Ctrl+N) or Add from Another Day (Ctrl+D)"));

    TableView *nutrients = main->nutrienttable;
    nutrients->addTableColumn(column(QStringLiteral("Name"), tr("Nutrient"), std::make_unique<TableCell>()));
    nutrients->addTableColumn(
        column(QStringLiteral("Amount"), tr("Amount"), rightAligned(std::make_unique<TextFieldCellRDA>())));
    nutrients->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
    nutrients->setStartsBlock(NutrientCatalogue::startsBlock);
}

void MainInterface::connectFields()
{
    controller.window = window.get();
    controller.datepicker = main->datepicker;
    controller.logtable = main->logtable;
    controller.nutrienttable = main->nutrienttable;
    controller.label = main->label;
    controller.addview = addview;
    controller.foodlistcontroller = addview->foodlistcontroller();
    controller.preferences = preferences;
    controller.rdamenu = prefs->rdamenu;
    controller.rdainput = prefs->rdainput;
    controller.rdalabel = prefs->rdalabel;
}

void MainInterface::connectCommand(QAction *action, Operation operation, const std::function<void()> &first)
{
    connect(action, &QAction::triggered, this, [this, operation, first] {
        endEditing();
        if (first)
            first();
        std::invoke(operation, controller);
        showDay();
        showKept();
    });
}

void MainInterface::connectCommands()
{
    connect(main->actionaddfood, &QAction::triggered, this, &MainInterface::openFoodSheet);
    connect(main->actionfoodsbynutrient, &QAction::triggered, this, [this] {
        openFoodSheet();
        addview->orderByNutrient(std::max(main->nutrienttable->currentIndex().row(), 0));
    });
    const auto selectframed = [this] { selectFramedRow(); };
    connectCommand(main->actioncut, &AppDelegate::cut, selectframed);
    connectCommand(main->actioncopy, &AppDelegate::copy, selectframed);
    connectCommand(main->actionpaste, &AppDelegate::paste);
    connectCommand(main->actionremove, &AppDelegate::removeSelected, selectframed);
    connectCommand(main->actionpreviousday, &AppDelegate::previousDay,
        [this] { leaveDayFor(LocalDay::dayBefore(controller.curdate)); });
    connectCommand(
        main->actionnextday, &AppDelegate::nextDay, [this] { leaveDayFor(LocalDay::dayAfter(controller.curdate)); });
    connectCommand(main->actiontoday, &AppDelegate::today, [this] { leaveDayFor(controller.now()); });
    connectCommand(main->actionpreferences, &AppDelegate::showPrefs);
    connect(main->actionselectall, &QAction::triggered, this, [this] {
        endEditing();
        main->logtable->selectAll();
    });
    connect(main->actiondeselect, &QAction::triggered, this, [this] {
        endEditing();
        main->logtable->deselectAll();
    });
    connect(main->actionquit, &QAction::triggered, this, [] { QCoreApplication::quit(); });

    const std::pair<QAbstractButton *, QAction *> buttons[] = {
        {main->previousdaybutton, main->actionpreviousday},
        {main->nextdaybutton, main->actionnextday},
        {main->todaybutton, main->actiontoday},
        {main->addfoodbutton, main->actionaddfood},
    };
    for (const auto &[button, action] : buttons)
        connect(button, &QAbstractButton::clicked, action, &QAction::trigger);

    connect(main->datepicker, &DatePicker::dateChosen, this, [this] {
        main->logtable->endEditing();
        if (main->datepicker->isInUse())
            leaveDayFor(main->datepicker->dateValue());
        controller.updateDate();
        showDay();
        showKept();
    });
    connect(addview, &AddFoodSheet::addSelectedFoods, this, &MainInterface::addSelectedFoods);
    connect(main->keptbutton, &QAbstractButton::clicked, this, [this] {
        endEditing();
        controller.addKeptFoods();
        main->logtable->setFocus();
        showKept();
    });
    // An amount edit leaves the nutrient table as it is; a person expects fresh figures.
    connect(main->logtable, &TableView::editingEnded, this, [this] { controller.updateNutrients(); });
}

void MainInterface::connectOtherDay()
{
    connect(main->actionaddfromday, &QAction::triggered, this, [this] {
        main->logtable->endEditing();
        main->datepicker->interpretText(); // as for the add-food sheet
        if (!otherday)
            makeOtherDay();
        otherday->open(LocalDay::dateOf(main->datepicker->dateValue()));
    });
}

// Made when it is first asked for, as the history is.
void MainInterface::makeOtherDay()
{
    auto *sheet = new DaySheet(window.get());
    sheet->addAction(main->actionquit);
    new SheetSize(sheet, SettingsKeys::DaySheetSize);
    otherday = std::make_unique<OtherDay>(controller, *sheet);
    connect(otherday.get(), &OtherDay::entriesAdded, this, [this] {
        main->logtable->setFocus();
        main->logtable->setCurrentRow(controller.numberOfRowsInTableView(main->logtable) - 1);
        main->logtable->deselectAll();
        showKept();
    });
}

void MainInterface::leaveDayFor(const QDateTime &next)
{
    if (LocalDay::key(next) != LocalDay::key(controller.curdate))
        main->logtable->deselectAll();
}

void MainInterface::selectFramedRow()
{
    TableView *log = main->logtable;
    const int row = log->currentIndex().row();
    if (row >= 0 && window->focusWidget() == log && log->selectedRowIndexes().isEmpty())
        log->selectRowIndexes({row});
}

void MainInterface::frameAddedFood(int formerrows)
{
    const int rows = controller.numberOfRowsInTableView(main->logtable);
    const QStringList chosen = controller.foodlistcontroller->selectedObjects();
    int row = rows > formerrows ? rows - 1 : -1;
    for (int i = 0; row < 0 && !chosen.isEmpty() && i < rows; ++i) {
        if (controller.foods[static_cast<std::size_t>(i)]->name() == chosen.constLast())
            row = i;
    }
    if (row >= 0)
        main->logtable->setCurrentRow(row);
    if (rows > formerrows)
        main->logtable->deselectAll(); // Del is to remove the row that a number would be typed in
}

void MainInterface::connectPreferences()
{
    connect(prefs->rdamenu, &QComboBox::activated, this, [this] { controller.RDAtick(); });
    connect(prefs->rdainput, &QLineEdit::editingFinished, this, &MainInterface::setTypedRDA);
    connect(prefs->setbutton, &QAbstractButton::clicked, this, &MainInterface::setTypedRDA);
    connect(prefs->resetbutton, &ConfirmButton::confirmed, this, [this] { controller.RDAreset(); });
    connect(prefs->closebutton, &QAbstractButton::clicked, preferences, &PreferencesSheet::hidePrefs);
    connect(preferences, &PreferencesSheet::discardTyped, this, [this] {
        prefs->rdainput->dropComposition();
        prefs->rdainput->setModified(false);
    });
    connect(preferences, &PreferencesSheet::hidePrefs, this, [this] {
        setTypedRDA();
        controller.hidePrefs();
    });
    connect(preferences, &QDialog::finished, this, [this] {
        controller.RDAtick(); // in the place of what was discarded
        controller.updateNutrients(); // a reset shows now
    });
    connectSetting(prefs->recalculateamount, SettingsKeys::RecalculateAmount);
    connectSetting(prefs->rememberdate, SettingsKeys::RememberDate);
    connectSetting(prefs->ownfoodsfirst, SettingsKeys::OwnFoodsFirst);
    for (QCheckBox *box : {main->usep, prefs->prefsusep})
        connect(box, &QAbstractButton::clicked, this, &MainInterface::setUseP);
}

void MainInterface::setTypedRDA()
{
    prefs->rdainput->commitComposition();
    // A field that was only looked at keeps an allowance of more digits than it shows.
    if (prefs->rdainput->isModified())
        controller.setRDA();
}

void MainInterface::connectSetting(QCheckBox *box, const QString &key)
{
    connect(box, &QAbstractButton::clicked, this,
        [key](bool checked) { UserDefaults::standardUserDefaults().setObject(checked, key); });
}

void MainInterface::setUseP(bool percentages)
{
    UserDefaults::standardUserDefaults().setObject(percentages, SettingsKeys::UseP);
    main->usep->setChecked(percentages);
    prefs->prefsusep->setChecked(percentages);
    controller.updateNutrients();
}

void MainInterface::showSettings()
{
    const UserDefaults &store = UserDefaults::standardUserDefaults();
    const bool percentages = store.boolForKey(SettingsKeys::UseP);
    main->usep->setChecked(percentages);
    prefs->prefsusep->setChecked(percentages);
    prefs->recalculateamount->setChecked(store.boolForKey(SettingsKeys::RecalculateAmount));
    prefs->rememberdate->setChecked(store.boolForKey(SettingsKeys::RememberDate));
    prefs->ownfoodsfirst->setChecked(store.boolForKey(SettingsKeys::OwnFoodsFirst));
}

void MainInterface::showFoodsLeft()
{
    const auto count = addview->countOfFoodsLeft();
    const QString text = tr("Add foods to this day (Ctrl+N)");
    main->addfoodbutton->setToolTip(count == 0 ? text
            : count == 1                       ? text + tr("\n1 food is on the list to be added")
                                               : text + tr("\n%1 foods are on the list to be added").arg(count));
}

void MainInterface::showKept()
{
    const auto count = controller.keptFoods().size();
    const QString text = count == 1 ? tr("1 entry was kept from a save that could not be read.")
                                    : tr("%1 entries were kept from a save that could not be read.").arg(count);
    main->keptlabel->setText(text);
    main->keptbutton->setAccessibleDescription(text);
    main->keptrow->setVisible(count > 0);
}

void MainInterface::show()
{
    showSettings();
    showDay();
    showKept();
    const UserDefaults &store = UserDefaults::standardUserDefaults();
    QList<QRect> screens;
    for (const QScreen *screen : QGuiApplication::screens())
        screens.append(screen->geometry());
    const QByteArray geometry = store.objectForKey(SettingsKeys::WindowGeometry).toByteArray();
    if (WindowState::isGeometry(geometry, screens))
        window->restoreGeometry(geometry);
    else // a first window is no larger than its screen
        window->resize(window->size().boundedTo(window->screen()->availableSize() - frameSize()));
    restoreColumns(store);
    const QByteArray sizes = store.objectForKey(SettingsKeys::WindowSplitters).toByteArray();
    if (!WindowState::isSplitter(sizes, main->splitter->saveState()) || !main->splitter->restoreState(sizes))
        main->splitter->setSizes({660, 400});
    window->show();
}

void MainInterface::raise()
{
    window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
    window->show();
    window->raise();
    window->activateWindow();
}

void MainInterface::endEditing()
{
    main->logtable->endEditing();
    main->datepicker->discardTyped();
    setTypedRDA();
}

void MainInterface::saveWindowState(UserDefaults &store) const
{
    store.setObject(window->saveGeometry(), SettingsKeys::WindowGeometry);
    store.setObject(main->splitter->saveState(), SettingsKeys::WindowSplitters);
    saveColumns(store);
    for (const SheetSize *size : window->findChildren<SheetSize *>())
        size->save(store);
}

bool MainInterface::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Close)
        endEditing();
    if (event->type() == QEvent::Resize && watched != window.get())
        arrangeColumns();
    if (event->type() == QEvent::WindowActivate)
        showDay(); // left open past midnight, it is another day's
    return QObject::eventFilter(watched, event);
}
