// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "history/DayReader.h"
#include "model/Food.h"
#include "platform/UserDefaults.h"

#include <QDate>
#include <QHash>
#include <QString>

#include <optional>
#include <span>
#include <vector>

namespace History {

// A food that the person has logged, and how it was logged last.
struct OwnFood {
    QString name;
    QDate lastday;
    float amount = 0.0F;
    std::optional<QString> unit; // the title as stored; absent: grams. Whether the food's file has it nobody has asked.
    qint32 unitidx = 0; // as stored; the unit is what its title says
    double usefulness
        = 0.0; // 0 only after some 40 years; of two foods the one with more is likelier to be wanted again
};

// The foods of the last 60 logged days, which are those with at least one food record: what a person is likely to add
// again, each with its last quantity. Read from the records alone, newest day first, and no food file is opened: 60
// days of 20 entries are read in a few milliseconds, however many years lie before them. It only looks: no key counts
// as read by this run.
//
// Usefulness is frequency and recency in one figure, the "combined recency and frequency" of D. Lee et al., "LRFU: A
// Spectrum of Policies that Subsumes the Least Recently Used and Least Frequently Used Policies", IEEE Transactions on
// Computers 50 (2001): the sum over the days on which a food was logged of (1/2)^(age / half-life), ages in days from
// the newest logged day that is not yet to come; how long ago that is does not matter, since another day would multiply
// all the figures by the same. Days after today are as new as it. A half-life of two weeks spans two turns of a weekly
// rhythm. For a simulated person whose habit never changes (see bench/bench_habit.cpp) the foods of the habit stand at
// place 21.7 of the list with it, at 22.8 with one week and at 20.8 without any decay; what is lost to that is little
// beside what a person gains whose habit does change.
class OwnFoods final {
public:
    static constexpr int loggeddays = 60;
    static constexpr std::size_t listed = 40; // at most, in a list to choose from
    static constexpr double halflife = 14.0; // days

    // The day that the window shows counts as it is there, not as it is stored. Without today no day is yet to come.
    explicit OwnFoods(const UserDefaults &prefs, const std::optional<ShownDay> &shown = {}, QDate today = {});

    // Each name once, the most useful first; of equally useful ones the one logged last, then the one that comes first
    // in its day. Entries without a name are left out.
    [[nodiscard]] const std::vector<OwnFood> &all() const { return foods; }
    // The first of them.
    [[nodiscard]] std::span<const OwnFood> mostUseful() const;
    // Null when the name is not among them.
    [[nodiscard]] const OwnFood *named(const QString &name) const;

private:
    void addDay(QDate day, const std::vector<Food> &entries, double weight);

    std::vector<OwnFood> foods;
    QHash<QString, std::size_t> places; // in `foods`, by name
};

} // namespace History
