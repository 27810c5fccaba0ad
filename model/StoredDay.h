// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "model/FoodRecord.h"
#include "platform/UserDefaults.h"

#include <vector>

// What the store's value of a day key says: its entries by the rules of opening a day, for the controller that opens
// it and for whoever reads many days without a window.
struct StoredDay {
    std::vector<Food> foods; // in their order, not loaded yet; one whose name came before is left out
    QVariantList unread; // items that are no food record, in their order

    // Empty for a value that is no list.
    [[nodiscard]] static StoredDay of(const QVariant &value);
    // The same of the store's bytes, for whoever reads many days with one reader: no record is copied on the way.
    [[nodiscard]] static StoredDay ofStored(const QByteArray &bytes, FoodRecord::Reader &reader);

    // The day of a run that could not read the stored one, joined with that: the stored entries as they are, those of
    // `mine` after them whose names they have not, items that are no record last. Not whole when an entry of `mine` was
    // left out that differs from the stored one of its name.
    [[nodiscard]] static UserDefaults::Joined joined(const QVariantList &stored, const QVariantList &mine);
};
