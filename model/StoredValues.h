// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "model/Food.h"
#include "platform/UserDefaults.h"

#include <vector>

// What the values of the store mean, for whoever reads them: a day's list of food records, and the allowances. And how
// a stored value that a run could not read comes together with the one that it entered instead.
namespace StoredValues {

inline const QString rdaskey = QStringLiteral("RDAs");

// A day's list, taken apart.
struct Day {
    std::vector<Food> foods; // in their order, not loaded yet; a name that came before is left out
    QVariantList unread; // items that are no food record
};
// Empty when the value is no list.
[[nodiscard]] Day day(const QVariant &value);

// The RDA that a stored element stands for: a number is itself, a text its leading number, a boolean 0 or 1, anything
// else 0.
[[nodiscard]] float rda(const QVariant &element);

// A day holds its stored entries first, as they are, and those of `mine` after them whose names it has not; it is not
// whole when one of `mine` was left out that differs from the stored one of its name. Allowances are the stored ones
// but where `changed`, a list of 61 booleans, says that this run set them. Nothing for any other key, or when the
// stored value is no list.
[[nodiscard]] std::optional<UserDefaults::Joined> join(
    const QString &key, const QVariant &stored, const QVariant &mine, const QVariant &changed);

} // namespace StoredValues
