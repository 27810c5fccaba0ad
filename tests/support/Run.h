// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "app/AppDelegate.h"
#include "platform/UserDefaults.h"
#include "tests/support/FoodFiles.h"
#include "ui/MainInterface.h"
#include "ui/table/TableView.h"

#include <QCoreApplication>
#include <QMainWindow>
#include <QTemporaryDir>

#include <bit>
#include <cmath>

// The controller with its state open to a test's eyes, noting what happens to it.
class TestedAppDelegate final : public AppDelegate {
public:
    using AppDelegate::AppDelegate;

    using AppDelegate::addFoodPriv;
    using AppDelegate::FoodPointer;

    using AppDelegate::addview;
    using AppDelegate::copyfoods;
    using AppDelegate::curdate;
    using AppDelegate::curdatefoods;
    using AppDelegate::datepicker;
    using AppDelegate::foodlist;
    using AppDelegate::foodlistcontroller;
    using AppDelegate::foods;
    using AppDelegate::label;
    using AppDelegate::logtable;
    using AppDelegate::nutdata;
    using AppDelegate::nutdataunits;
    using AppDelegate::nutrients;
    using AppDelegate::nutrientsselected;
    using AppDelegate::nutrientstotal;
    using AppDelegate::nutrienttable;
    using AppDelegate::preferences;
    using AppDelegate::prefs;
    using AppDelegate::rdainput;
    using AppDelegate::rdalabel;
    using AppDelegate::rdamenu;
    using AppDelegate::rdas;
    using AppDelegate::unreadfoods;

    void tableViewSelectionDidChange() override
    {
        events.append(QStringLiteral("handler"));
        if (whenHandling)
            whenHandling();
        AppDelegate::tableViewSelectionDidChange();
    }

    QStringList events; // "handler" for each run of the selection handler, and what a test's own tables note
    std::function<void()> whenHandling;
};

// Where a test's user lives: a store and food files of its own, and a clock that stands where the test puts it.
struct Home {
    QTemporaryDir folder;
    FoodFiles files;
    QDateTime now = QDateTime({2026, 11, 21}, {12, 0}, Qt::UTC);

    [[nodiscard]] QString storePath() const { return folder.filePath(QStringLiteral("provender/preferences.sqlite")); }
};

// One run of the program, from launching to its end, in the test's process.
class Run final {
public:
    explicit Run(Home &where)
        : home(where)
        , store(where.storePath())
        , controller([&where] { return where.now; })
    {
        UserDefaults::setStandardUserDefaults(&store);
        interface = std::make_unique<MainInterface>(controller);
    }
    ~Run()
    {
        interface.reset();
        UserDefaults::setStandardUserDefaults(nullptr);
    }
    Q_DISABLE_COPY_MOVE(Run)

    Run &launch()
    {
        controller.applicationDidFinishLaunching();
        controller.events.clear();
        return *this;
    }
    // Launches and shows the window.
    Run &show()
    {
        launch();
        interface->show();
        return *this;
    }
    bool terminate()
    {
        UserDefaults::Transaction transaction(store);
        controller.applicationWillTerminate();
        interface->saveWindowState(store);
        return transaction.commit() || store.leavePending();
    }

    // Adds foods the way a command does: each in turn, then both tables.
    void add(const QStringList &names)
    {
        for (const QString &name : names)
            controller.addFoodPriv(std::make_shared<Food>(name));
        controller.logtable->reloadData();
        controller.nutrienttable->reloadData();
    }
    void select(const QList<int> &rows) { controller.logtable->selectRowIndexes(rows); }
    void edit(int row, const QString &amount)
    {
        controller.setObjectValue(controller.logtable, amount, QStringLiteral("Amount"), row);
    }

    [[nodiscard]] QStringList names() const
    {
        QStringList list;
        for (const auto &food : controller.foods)
            list.append(food->name().value_or(QStringLiteral("(absent)")));
        return list;
    }
    // Name, amount, unit and unit index of every entry, "Apple 100 g 0".
    [[nodiscard]] QStringList entries() const
    {
        QStringList list;
        for (const auto &food : controller.foods)
            list.append(QStringLiteral("%1 %2 %3 %4")
                            .arg(food->name().value_or(QStringLiteral("(absent)")))
                            .arg(double(food->curamount()))
                            .arg(food->curunit().value_or(QStringLiteral("(absent)")))
                            .arg(food->curunitidx()));
        return list;
    }
    [[nodiscard]] QVariant nutrient(const QString &column, int row)
    {
        return controller.objectValueForTableColumn(controller.nutrienttable, column, row);
    }
    [[nodiscard]] QVariant logCell(const QString &column, int row)
    {
        return controller.objectValueForTableColumn(controller.logtable, column, row);
    }

    Home &home;
    UserDefaults store;
    TestedAppDelegate controller;
    std::unique_ptr<MainInterface> interface;
};

// The bits of a float; every NaN counts as the same.
inline quint32 bitsOf(float value)
{
    return std::isnan(value) ? 0x7fc00000U : std::bit_cast<quint32>(value);
}

// An instant by the local date and time of the zone in force.
inline QDateTime localInstant(QDate date, QTime time)
{
    return QDateTime(date, time, Qt::LocalTime).toUTC();
}

// Puts the process into a time zone for as long as it lives.
class TimeZone final {
public:
    explicit TimeZone(const QByteArray &name)
        : former(qgetenv("TZ"))
    {
        enter(name);
    }
    ~TimeZone() { enter(former); }
    Q_DISABLE_COPY_MOVE(TimeZone)

    static void enter(const QByteArray &name)
    {
        qputenv("TZ", name);
        ::tzset();
    }

private:
    QByteArray former;
};
