// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>
#include <QList>
#include <QString>

#include <memory>
#include <utility>
#include <vector>

class QKeyEvent;
namespace Ui {
class DaySheet;
}

// The sheet that offers the entries of another day to be added to the log, all of them ticked: whoever eats the same
// again presses Enter. The list keeps the focus; Left and Right ask for other days, Space unticks. An entry that is in
// the log already has nothing to be ticked, and says so.
//
// It is handed the day that it shows and asks its owner for another one, so that it knows neither the store nor the
// log. The controls are made when it first opens, as those of the add-food sheet are.
class DaySheet final : public QDialog {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DaySheet)

public:
    struct Entry {
        QString food;
        QString amount;
        QString unit;
        bool inlog = false;
    };
    struct Day {
        QString title;
        std::vector<Entry> entries;
        bool hasearlier = false; // whether there is another day to go to
        bool haslater = false;
    };

    explicit DaySheet(QWidget *parent = nullptr);
    ~DaySheet() override;

    // What its own keys do, for the list of all shortcuts: each key with its command.
    [[nodiscard]] static QList<std::pair<QString, QString>> keys();

    // Shows a day, every entry ticked that is not in the log.
    void showDay(const Day &day);
    void open() override;
    // Where there is something ticked, sends addEntries().
    void accept() override;

signals:
    void earlierDay();
    void laterDay();
    // The ticked entries, by their places in the day, ascending. The owner adds them and closes the sheet by done(0).
    void addEntries(const QList<int> &places);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void makeControls();
    [[nodiscard]] QList<int> tickedPlaces() const;
    void turnTick();
    void showChoice();
    bool listKeyPressed(const QKeyEvent &event);

    std::unique_ptr<Ui::DaySheet> ui;
};
