// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "fuzz/Fuzzing.h"
#include "model/FoodRecord.h"

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const auto food = FoodRecord::unarchiveObjectWithData(Fuzzing::bytes(data, size));
    if (!food)
        return 0;
    const QByteArray record = FoodRecord::archivedDataWithRootObject(*food);
    const auto again = FoodRecord::unarchiveObjectWithData(record);
    Fuzzing::require(again.has_value(), "a record can be read again");
    Fuzzing::require(again->name() == food->name(), "the name stays");
    Fuzzing::require(Fuzzing::same(again->curamount(), food->curamount()), "the amount stays");
    Fuzzing::require(again->curunit() == food->curunit(), "the unit stays");
    Fuzzing::require(again->curunitidx() == food->curunitidx(), "the unit's index stays");
    Fuzzing::require(FoodRecord::archivedDataWithRootObject(*again) == record, "the bytes stay");
    return 0;
}
