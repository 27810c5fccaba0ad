// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "history/Course.h"
#include "history/DayReader.h"
#include "history/Figures.h"
#include "ui/historysheet/HistoryTables.h"

#include <QDialog>

#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace Ui {
class HistorySheet;
}

// The sheet that says what weeks, months and years came to: a table of the 61 nutrients, and of one of them the course
// over the period, the foods it came from, the days, and the year at a glance. It only reads, by way of the reader that
// it is handed, and nothing that is done in it changes anything but what it shows.
//
// A nutrient and a cursor on a day are shared by everything in it. What belongs to a period is read when the period is
// asked for; another nutrient is worked out from what was read.
//
// The controls are made when the sheet first opens; what was read, and the reader with its foods, live from its opening
// to its closing.
class HistorySheet final : public QDialog {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(HistorySheet)

public:
    struct Sources {
        std::unique_ptr<History::DayReader> reader;
        std::optional<History::ShownDay> shown;
        History::Allowances allowances{};
        QDate today;
    };

    explicit HistorySheet(QWidget *parent = nullptr);
    ~HistorySheet() override;

    // What its own keys do, for the list of all shortcuts: each key with its command.
    [[nodiscard]] static QList<std::pair<QString, QString>> keys();

    // Opens on the 30 days up to yesterday, of energy; again with the length, the nutrient and the view that it was
    // closed with, up to the present end. The view has the keyboard.
    void openWith(Sources &&sources);
    void done(int result) override;

signals:
    // Sent right after it closed: the person wants to see this day.
    void dayChosen(QDate day);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void makeControls();
    void connectControls();
    void fillOrders();
    void fitYear();
    void orderByColumn(int column);
    [[nodiscard]] std::optional<History::Length> chosenLength() const;
    [[nodiscard]] QDate lastDay() const; // yesterday or today
    void startPeriod();
    void stepPeriod(bool later);
    void readPeriod();
    [[nodiscard]] QString emptyText() const;
    void showPeriod(const QList<QDate> &incomplete);
    void showDays();
    void showNutrient();
    void showSources();
    void showCursor();
    void moveCursor(QDate day);
    void chooseNutrient(int index);
    void stepNutrient(int rows);
    [[nodiscard]] QString daySentence(QDate day) const;
    [[nodiscard]] QString groupSentence(QDate day) const;
    [[nodiscard]] QDate dayToOpen() const; // of what has the keyboard
    void choose(QDate day);
    void reload(TableView &table);

    std::unique_ptr<Ui::HistorySheet> ui;
    Sources from;
    History::Period period;
    History::Days read;
    History::Days days; // those of them that count
    History::Course course;
    std::optional<History::Table> figures;
    int nutrient = 0;
    QDate cursor;
    bool showssources = false; // those of the present nutrient and days
    bool isreloading = false;
    std::vector<std::pair<TableView *, FittedColumns>> fitted; // of all tables
    FiguresTable figurestable;
    SourcesTable sourcestable;
    UnknownSourcesTable unknowntable;
    DaysTable daystable;
};
