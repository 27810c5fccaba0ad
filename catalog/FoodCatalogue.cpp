// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "catalog/FoodCatalogue.h"

#include <iterator>

namespace {

// Defines `names`, all names one after the other, and `lengths`, the length of each.
#include "FoodNames.inc"

static_assert(std::size(lengths) == FoodCatalogue::foodCount);

} // namespace

QStringList FoodCatalogue::foodNames()
{
    QStringList list;
    list.reserve(foodCount);
    const char16_t *name = names;
    for (const unsigned char length : lengths) {
        list.append(QString::fromRawData(reinterpret_cast<const QChar *>(name), length));
        name += length;
    }
    return list;
}
