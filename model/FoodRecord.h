// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "model/Food.h"

#include <QByteArray>

#include <optional>

// The food record: what the store keeps of a log entry, as a keyed archive of the class "Food" with the keys "name",
// "amount", "unit" and "unitidx". Units and nutrients come from the food's file again.
namespace FoodRecord {

[[nodiscard]] QByteArray archivedDataWithRootObject(const Food &food);

// The food that a record describes, not loaded yet; nothing when the data is no keyed archive of a Food.
[[nodiscard]] std::optional<Food> unarchiveObjectWithData(const QByteArray &data);

} // namespace FoodRecord
