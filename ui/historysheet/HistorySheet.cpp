// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/historysheet/HistorySheet.h"

#include "catalog/NutrientCatalogue.h"
#include "ui/historysheet/HistoryText.h"

#include "ui_HistorySheet.h"

#include <QAction>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>

#include <malloc.h>

#include <algorithm>
#include <utility>

namespace {

struct ShownLength {
    const char *title;
    std::optional<History::Length> length; // nothing: all
};
const ShownLength lengths[] = {
    {QT_TRANSLATE_NOOP("HistorySheet", "7 days"), History::Length::Days7},
    {QT_TRANSLATE_NOOP("HistorySheet", "30 days"), History::Length::Days30},
    {QT_TRANSLATE_NOOP("HistorySheet", "90 days"), History::Length::Days90},
    {QT_TRANSLATE_NOOP("HistorySheet", "1 year"), History::Length::Year},
    {QT_TRANSLATE_NOOP("HistorySheet", "All"), {}},
};
constexpr int thirtydays = 1;

QString loggedOf(std::size_t logged, const History::Period &days)
{
    return days.days() == 1 ? HistorySheet::tr("%1 of 1 day logged").arg(logged)
                            : HistorySheet::tr("%1 of %2 days logged").arg(logged).arg(days.days());
}

// A line ends before a number, not between it and its unit.
QString unbroken(QString sentence)
{
    for (qsizetype i = 1; i < sentence.size(); ++i) {
        if (sentence[i] == u' ' && sentence[i - 1].isDigit())
            sentence[i] = QChar::Nbsp;
    }
    return sentence;
}

bool isEnter(const QKeyEvent &event)
{
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

} // namespace

HistorySheet::HistorySheet(QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(tr("History"));
}

HistorySheet::~HistorySheet() = default;

void HistorySheet::makeControls()
{
    ui = std::make_unique<Ui::HistorySheet>();
    const QSize given = size();
    ui->setupUi(this);
    resize(given);
    for (const ShownLength &shown : lengths)
        ui->lengthbox->addItem(tr(shown.title));
    ui->lengthbox->setCurrentIndex(thirtydays);
    fitted = {{ui->figures, FiguresTable::makeColumns(*ui->figures)},
        {ui->sources, SourcesTable::makeColumns(*ui->sources)},
        {ui->unknownsources, UnknownSourcesTable::makeColumns(*ui->unknownsources)},
        {ui->days, DaysTable::makeColumns(*ui->days)}};
    const std::pair<TableView *, HistoryTable *> tables[] = {{ui->figures, &figurestable}, {ui->sources, &sourcestable},
        {ui->unknownsources, &unknowntable}, {ui->days, &daystable}};
    for (const auto &[view, table] : tables) {
        view->setDataSource(table);
        view->setDelegate(table);
        view->installEventFilter(this);
        view->viewport()->installEventFilter(this);
    }
    ui->coursepage->installEventFilter(this);
    ui->sources->setPlaceholderText(tr("No food of this period gave any of it."));
    const int figureswidth = fitted.front().second.width() + ui->figures->verticalScrollBar()->sizeHint().width();
    ui->splitter->setSizes({std::min(figureswidth + 20, width() * 11 / 20), width() - figureswidth});
    ui->splitter->setStretchFactor(0, 0);
    ui->splitter->setStretchFactor(1, 1);
    ui->figures->horizontalHeader()->setSectionsClickable(true);
    ui->figures->horizontalHeader()->setSortIndicatorShown(true);
    fillOrders();
    connectControls();
}

// Each column, either way, so that what a click on a title does can be chosen by keys as well.
void HistorySheet::fillOrders()
{
    const QAbstractItemModel &columns = *ui->figures->model();
    ui->orderbox->addItem(tr("As in the window"));
    ui->orderbox->addItem(tr("The other way round"));
    for (int column = 1; column < columns.columnCount(); ++column) {
        const QString title = columns.headerData(column, Qt::Horizontal).toString();
        ui->orderbox->addItem(tr("%1, least first").arg(title));
        ui->orderbox->addItem(tr("%1, most first").arg(title));
    }
    ui->figures->horizontalHeader()->setSortIndicator(0, Qt::AscendingOrder);
}

void HistorySheet::connectControls()
{
    connect(ui->lengthbox, &QComboBox::activated, this, &HistorySheet::startPeriod);
    connect(ui->withtoday, &QAbstractButton::clicked, this, &HistorySheet::startPeriod);
    // Not the buttons' own shortcuts, which press the button first and click it a moment later.
    const auto step = [this](QAbstractButton *button, const QString &title, const QKeySequence &key, bool later) {
        auto *action = new QAction(title, this);
        action->setShortcut(key);
        addAction(action);
        connect(action, &QAction::triggered, this, [this, later] { stepPeriod(later); });
        connect(button, &QAbstractButton::clicked, action, &QAction::trigger);
    };
    step(ui->earlierbutton, tr("Earlier Period"), QKeySequence(Qt::ALT | Qt::Key_Left), false);
    step(ui->laterbutton, tr("Later Period"), QKeySequence(Qt::ALT | Qt::Key_Right), true);
    connect(ui->leaveout, &QAbstractButton::clicked, this, &HistorySheet::showDays);
    connect(ui->orderbox, &QComboBox::activated, this, [this](int index) {
        figurestable.setOrder({FiguresTable::columns[std::size_t(index / 2)], index % 2 != 0});
        const QSignalBlocker quiet(ui->figures->horizontalHeader());
        ui->figures->horizontalHeader()->setSortIndicator(
            index / 2, index % 2 != 0 ? Qt::DescendingOrder : Qt::AscendingOrder);
        reload(*ui->figures);
        chooseNutrient(nutrient);
    });
    connect(ui->figures->horizontalHeader(), &QHeaderView::sectionClicked, this, &HistorySheet::orderByColumn);
    connect(ui->figures->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
        [this](const QModelIndex &current) {
            if (!isreloading && current.isValid() && figurestable.nutrientOfRow(current.row()) != nutrient)
                chooseNutrient(figurestable.nutrientOfRow(current.row()));
        });
    connect(
        ui->days->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this](const QModelIndex &current) {
            if (!isreloading && current.isValid() && ui->days->hasFocus())
                moveCursor(daystable.dayOfRow(current.row()));
        });
    for (DayView *view : std::initializer_list<DayView *>{ui->chart, ui->year}) {
        connect(view, &DayView::dayPointedAt, this, &HistorySheet::moveCursor);
        connect(view, &DayView::nutrientStepped, this, &HistorySheet::stepNutrient);
    }
    connect(ui->tabs, &QTabWidget::currentChanged, this, &HistorySheet::showSources);
    for (TableView *table : {ui->sources, ui->unknownsources, ui->days})
        connect(table, &QAbstractItemView::doubleClicked, this, [this] { choose(dayToOpen()); });
    connect(ui->closebutton, &QAbstractButton::clicked, this, &QDialog::reject);
}

void HistorySheet::openWith(Sources &&sources)
{
    if (isVisible())
        return;
    if (!ui)
        makeControls();
    from = std::move(sources);
    startPeriod();
    QWidget *const pages[] = {ui->chart, ui->sources, ui->days};
    pages[ui->tabs->currentIndex()]->setFocus();
    open();
}

void HistorySheet::done(int result)
{
    QDialog::done(result);
    from = {};
    read = {};
    days = {};
    course = {};
    figures.reset();
    if (!ui)
        return;
    ui->leaveout->setChecked(false);
    ui->chart->setContent({});
    ui->year->setYear({}, false);
    figurestable.setFigures({}, {}, {});
    sourcestable.setSources({}, {}, {});
    unknowntable.setSources({}, {});
    daystable.setDays({});
    for (TableView *table : {ui->figures, ui->sources, ui->unknownsources, ui->days})
        reload(*table);
    malloc_trim(0); // what twenty years took goes back to the system, not to the allocator alone
}

// A table that has the keyboard gives itself a current row, which nobody chose.
void HistorySheet::reload(TableView &table)
{
    isreloading = true;
    table.reloadData();
    isreloading = false;
}

void HistorySheet::orderByColumn(int column)
{
    const bool again = ui->orderbox->currentIndex() == 2 * column;
    ui->orderbox->setCurrentIndex(2 * column + (again ? 1 : 0));
    emit ui->orderbox->activated(ui->orderbox->currentIndex());
}

std::optional<History::Length> HistorySheet::chosenLength() const
{
    return lengths[ui->lengthbox->currentIndex()].length;
}

QDate HistorySheet::lastDay() const
{
    const QDate last = ui->withtoday->isChecked() ? from.today : from.today.addDays(-1);
    return last.isValid() ? last : from.today;
}

// Also asked for by a box whose letter was pressed right before the sheet was closed: the click comes later.
void HistorySheet::startPeriod()
{
    if (!from.reader)
        return;
    if (const std::optional<History::Length> length = chosenLength())
        period = History::periodUpTo(lastDay(), *length);
    readPeriod();
}

void HistorySheet::stepPeriod(bool later)
{
    const std::optional<History::Length> length = chosenLength();
    if (!from.reader || !length || (later && !ui->laterbutton->isEnabled()))
        return;
    period = later ? History::after(period, *length) : History::before(period, *length);
    // Where there is a leap day, a year back and on again ends a day early or late.
    if (later && period.last >= lastDay().addDays(-1))
        period = History::periodUpTo(lastDay(), *length);
    readPeriod();
}

void HistorySheet::readPeriod()
{
    read = chosenLength() ? from.reader->read(period, from.shown) : from.reader->readAll(lastDay(), from.shown);
    period = read.period;
    ui->earlierbutton->setEnabled(chosenLength().has_value());
    ui->laterbutton->setEnabled(chosenLength() && period.last < lastDay());
    showDays();
}

void HistorySheet::showDays()
{
    if (!from.reader)
        return;
    const QList<QDate> incomplete = History::incompleteDays(read);
    days = ui->leaveout->isChecked() ? read.without(incomplete) : read;
    figures = History::figures(days, from.allowances);
    figurestable.setFigures(figures, from.allowances, period.last);
    daystable.setDays(days);
    for (TableView *table : {ui->figures, ui->unknownsources, ui->days})
        table->setPlaceholderText(emptyText());
    ui->chart->setEmptyText(emptyText());
    reload(*ui->figures);
    const std::span<const History::Day> logged = days.ofPeriod();
    if (!period.contains(cursor))
        cursor = logged.empty() ? period.last : logged.back().date;
    showPeriod(incomplete);
    chooseNutrient(nutrient);
}

// On a first day all that is logged is today, which counts only when asked for.
QString HistorySheet::emptyText() const
{
    const bool uptoyesterday = period.last.addDays(1) == from.today && !ui->withtoday->isChecked();
    return uptoyesterday ? tr("No day of this period is logged. Today is left out.")
                         : tr("No day of this period is logged.");
}

void HistorySheet::showPeriod(const QList<QDate> &incomplete)
{
    QString logged = loggedOf(read.ofPeriod().size(), period);
    if (ui->leaveout->isChecked() && !incomplete.isEmpty())
        logged = tr("%1, %2 of them left out").arg(logged).arg(incomplete.size());
    if (!read.iswhole)
        logged = tr("%1; the store could not be read whole").arg(logged);
    ui->periodlabel->setText(HistoryText::period(period) + QStringLiteral(": ") + logged);
    ui->incompleterow->setVisible(!incomplete.isEmpty());
    const auto sentence = [&](const QString &named) {
        return incomplete.size() == 1 ? tr("1 day looks incomplete: %1").arg(named)
                                      : tr("%1 days look incomplete: %2").arg(incomplete.size()).arg(named);
    };
    constexpr qsizetype few = 5; // a line of them
    constexpr qsizetype many = 200; // more are not on a screen at once, nor would anybody hear them out
    ui->incompletelabel->setText(sentence(HistoryText::someDays(incomplete, few, period.last)));
    const QString most = sentence(HistoryText::someDays(incomplete, many, period.last));
    ui->incompletelabel->setToolTip(QStringLiteral("<p>%1</p>").arg(most)); // as rich text it is wrapped
    ui->leaveout->setAccessibleDescription(most);
}

void HistorySheet::chooseNutrient(int index)
{
    nutrient = index;
    if (figures) {
        const int row = figurestable.rowOfNutrient(nutrient);
        ui->figures->selectRowIndexes({row});
        ui->figures->setCurrentRow(row);
    }
    showNutrient();
}

void HistorySheet::stepNutrient(int rows)
{
    const int row = std::clamp(figurestable.rowOfNutrient(nutrient) + rows, 0, NutrientCatalogue::nutrientCount - 1);
    chooseNutrient(figurestable.nutrientOfRow(row));
}

void HistorySheet::showNutrient()
{
    const auto i = std::size_t(nutrient);
    const QString &name = NutrientCatalogue::names()[nutrient];
    const float allowance = from.allowances[i];
    course = History::course(days, nutrient);
    ui->chart->setContent({period, course, NutrientCatalogue::units()[nutrient], allowance});
    ui->chart->setAccessibleName(tr("Course of %1").arg(name));
    ui->year->setYear(History::year(days, nutrient, allowance), allowance > 0.0F);
    ui->year->setAccessibleName(tr("%1 in the year %2").arg(name).arg(period.last.year()));
    QString summary = figures ? HistoryText::summary(nutrient, (*figures)[i], allowance, period.last) : emptyText();
    ui->summarylabel->setText(unbroken(std::move(summary)));
    daystable.setNutrient(nutrient, allowance);
    ui->days->setAccessibleName(tr("Days with %1").arg(name));
    reload(*ui->days);
    ui->sources->setAccessibleName(tr("Foods that gave %1").arg(name));
    ui->unknownsources->setAccessibleName(tr("Foods without a figure for %1").arg(name));
    showssources = false;
    showSources();
    showCursor();
}

// A pass over all entries, for whoever looks at them alone.
void HistorySheet::showSources()
{
    if (!from.reader || showssources || ui->tabs->currentWidget() != ui->sourcespage)
        return;
    History::Sources found = History::sources(days, nutrient);
    sourcestable.setSources(std::move(found.known), NutrientCatalogue::units()[nutrient], period.last);
    unknowntable.setSources(std::move(found.unknown), period.last);
    reload(*ui->sources);
    reload(*ui->unknownsources);
    ui->unknownsources->setVisible(unknowntable.numberOfRowsInTableView(nullptr) > 0);
    showssources = true;
}

void HistorySheet::moveCursor(QDate day)
{
    cursor = day;
    showCursor();
}

void HistorySheet::showCursor()
{
    const History::Day *logged = days.on(cursor);
    std::optional<double> figure;
    if (logged != nullptr)
        figure = double(logged->sums[std::size_t(nutrient)]);
    const QString sentence = daySentence(cursor) + groupSentence(cursor);
    ui->cursorlabel->setText(unbroken(sentence));
    ui->chart->setCurrentDay(cursor, sentence, figure);
    ui->year->setCurrentDay(cursor, daySentence(cursor), figure);
    const int row = daystable.rowOfDay(cursor);
    if (row >= 0)
        ui->days->setCurrentRow(row);
}

// "Wed 4 Nov 2026: 54.00 mg, 90 % of the RDA"
QString HistorySheet::daySentence(QDate day) const
{
    const History::Day *logged = days.on(day);
    if (logged == nullptr)
        return HistoryText::day(day) + QStringLiteral(": ")
            + (read.on(day) != nullptr ? tr("left out") : tr("not logged"));
    const double amount = double(logged->sums[std::size_t(nutrient)]);
    const QString text = HistoryText::day(day) + QStringLiteral(": ")
        + HistoryText::amount(amount, NutrientCatalogue::units()[nutrient]);
    const std::optional<double> ratio = History::ratioOf(amount, from.allowances[std::size_t(nutrient)]);
    return ratio ? tr("%1, %2 of the RDA").arg(text, HistoryText::percent(*ratio)) : text;
}

// What the lines of the chart say at a day of the period.
QString HistorySheet::groupSentence(QDate day) const
{
    if (!period.contains(day))
        return {};
    const QString &unit = NutrientCatalogue::units()[nutrient];
    const History::Bar &bar = course.bars[History::barOf(course, day)];
    QString text;
    if (course.grouping != History::Grouping::Day && bar.loggeddays > 0)
        text = tr("; %1: mean %2, %3")
                   .arg(HistoryText::period(bar.days), HistoryText::amount(bar.mean, unit),
                       loggedOf(std::size_t(bar.loggeddays), bar.days));
    const auto running = std::lower_bound(course.running.begin(), course.running.end(), day,
        [](const History::RunningMean &mean, QDate date) { return mean.day < date; });
    if (running != course.running.end() && running->day == day)
        text += tr("; mean of seven days %1").arg(HistoryText::amount(running->mean, unit));
    return text;
}

QDate HistorySheet::dayToOpen() const
{
    const QWidget *focus = focusWidget();
    if (focus == ui->chart || focus == ui->year)
        return cursor;
    const auto *table = qobject_cast<const TableView *>(focus);
    const QModelIndex current = table != nullptr ? table->currentIndex() : QModelIndex();
    if (!current.isValid() || table == ui->figures)
        return {};
    return table == ui->days   ? daystable.dayOfRow(current.row())
        : table == ui->sources ? sourcestable.lastDayOfRow(current.row())
                               : unknowntable.lastDayOfRow(current.row());
}

void HistorySheet::choose(QDate day)
{
    if (!day.isValid())
        return;
    accept();
    emit dayChosen(day);
}

QList<std::pair<QString, QString>> HistorySheet::keys()
{
    return {{tr("Left, Right"), tr("Previous or next day")},
        {tr("Page Up, Page Down"), tr("Back or on by a week, or by a bar")}, {tr("Home, End"), tr("First or last day")},
        {tr("Up, Down"), tr("Another nutrient")},
        {tr("Arrows, Page keys in the year"), tr("By a week, a day, a month")},
        {tr("Alt+Left, Alt+Right"), tr("The period before or after")},
        {tr("Enter"), tr("Open the day; of a food, the last day with it")}, {tr("Esc"), tr("Close")}};
}

void HistorySheet::keyPressEvent(QKeyEvent *event)
{
    if (!isEnter(*event)) {
        QDialog::keyPressEvent(event);
        return;
    }
    if (auto *button = qobject_cast<QPushButton *>(focusWidget()))
        button->click();
    else
        choose(dayToOpen());
}

// In a low sheet the chart has the room: of both nothing could be read.
void HistorySheet::fitYear()
{
    constexpr int lines = 18; // of text, that both take
    ui->year->setVisible(ui->coursepage->height() >= lines * fontMetrics().height());
}

// A table would take Esc for its selection, which here only says whose course is shown.
bool HistorySheet::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize) {
        for (const auto &[table, columns] : fitted)
            if (watched == table->viewport())
                columns.fit(*table);
        if (watched == ui->coursepage)
            fitYear();
    }
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
        reject();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}
