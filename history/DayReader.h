// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "history/Days.h"
#include "model/FoodRecord.h"
#include "platform/UserDefaults.h"

#include <QByteArray>
#include <QHash>

#include <functional>

struct StoredDay;

namespace History {

// The day that the window shows, which may differ from what is stored: its records, as they would be stored.
struct ShownDay {
    QDate date;
    QList<QByteArray> records;
};

// Reads stored days in one ordered scan, and each food's file once, however many days name the food: a file that turns
// up or changes later is not looked at again as long as the reader lives. It is made when a history is opened and goes
// when that is closed, since all it holds is there to be quick.
//
// It only looks: no key counts as read by this run, and none changes. What cannot be read counts as not logged;
// Days::iswhole tells of it.
class DayReader final {
public:
    // Hands over every key between two, both included, that has a value, in the order of the keys, each with its value.
    // False when some of them could not be read.
    using Row = UserDefaults::Row;
    using Scan = std::function<bool(const QString &firstkey, const QString &lastkey, const Row &row)>;

    // From the store, pending values included. The preferences outlive the reader.
    explicit DayReader(const UserDefaults &prefs);
    // From elsewhere.
    explicit DayReader(Scan scan);
    Q_DISABLE_COPY_MOVE(DayReader)

    // The period's days and those around it that Days::all tells of.
    [[nodiscard]] Days read(const Period &period, const std::optional<ShownDay> &shown = {});
    // The same of the period from the first logged day up to `last`; of `last` alone when there is none.
    [[nodiscard]] Days readAll(QDate last, const std::optional<ShownDay> &shown = {});
    // The days of the period and no others.
    [[nodiscard]] Days readOnly(const Period &period, const std::optional<ShownDay> &shown = {});

    // The next logged day before or after one; nothing when there is none.
    [[nodiscard]] std::optional<QDate> loggedBefore(QDate date, const std::optional<ShownDay> &shown = {});
    [[nodiscard]] std::optional<QDate> loggedAfter(QDate date, const std::optional<ShownDay> &shown = {});

private:
    // Every day of the range that has a value, in order; the shown one with its own. False when some could not be read.
    bool eachDay(const Period &range, const std::optional<ShownDay> &shown,
        const std::function<void(QDate date, const StoredDay &day)> &each);
    [[nodiscard]] Days readRange(const Period &range, const std::optional<ShownDay> &shown);
    void add(Days &days, QDate date, const StoredDay &stored);
    [[nodiscard]] int placeOf(const std::optional<QString> &name);
    [[nodiscard]] int placeByName(const std::optional<QString> &name);

    struct SharedName {
        QString name; // kept, so that no other text comes to lie where it lies
        int place;
    };

    Scan scan;
    FoodRecord::Reader records;
    std::shared_ptr<Foods> foods;
    QHash<QString, int> places; // in `foods`, by name
    QHash<const QChar *, SharedName> sharednames;
    int namelessplace = -1;
};

} // namespace History
