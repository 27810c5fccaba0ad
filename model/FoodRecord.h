// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "model/Food.h"

#include <QByteArray>
#include <QHash>

#include <optional>
#include <vector>

// The food record: what the store keeps of a log entry, as a keyed archive of the class "Food" with the keys "name",
// "amount", "unit" and "unitidx". Units and nutrients come from the food's file again.
namespace FoodRecord {

[[nodiscard]] QByteArray archivedDataWithRootObject(const Food &food);

// The food that a record describes, not loaded yet; nothing when the data is no keyed archive of a Food.
[[nodiscard]] std::optional<Food> unarchiveObjectWithData(const QByteArray &data);

// The same for whoever reads thousands of records, of which most name a food and a unit that came before. A record that
// this program wrote is told apart from another of the same food and unit by the four bytes of its amount alone: after
// a year of records, and up to 64 foods and units for each size of a record, only the first of them is taken apart.
class Reader final {
public:
    // To learn a form takes as long as taking twenty records apart: a year of them is read sooner without.
    static constexpr int usualYear = 8000;

    // Learns forms once so many records were taken apart.
    explicit Reader(int learnsafter = usualYear)
        : usual(learnsafter)
    { }

    [[nodiscard]] std::optional<Food> unarchiveObjectWithData(const QByteArray &data);

private:
    // What records of one food and unit look like.
    struct Form {
        QByteArray data; // one of them
        qsizetype amountplace; // where the four bytes of the amount stand in each
        Food food;
    };

    // False when the record is none that this program would write.
    bool learn(const Food &food, const QByteArray &data);

    QHash<qsizetype, std::vector<Form>> forms; // by the size of the record
    int usual;
    int takenapart = 0;
    int strange = 0;
};

} // namespace FoodRecord
