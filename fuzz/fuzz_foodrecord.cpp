// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "fuzz/Fuzzing.h"
#include "model/FoodRecord.h"

#include <optional>

namespace {

bool same(const std::optional<Food> &left, const std::optional<Food> &right)
{
    if (!left || !right)
        return left.has_value() == right.has_value();
    return left->name() == right->name() && Fuzzing::same(left->curamount(), right->curamount())
        && left->curunit() == right->curunit() && left->curunitidx() == right->curunitidx();
}

// Whoever has learnt what this record looks like reads each that differs from it in one byte as whoever has not.
void readAlike(const QByteArray &record)
{
    FoodRecord::Reader reader(0);
    static_cast<void>(reader.unarchiveObjectWithData(record));
    for (qsizetype at = 0; at < record.size(); ++at) {
        QByteArray other = record;
        other[at] = static_cast<char>(other[at] ^ (1 << (at % 8)));
        Fuzzing::require(same(reader.unarchiveObjectWithData(other), FoodRecord::unarchiveObjectWithData(other)),
            "a record read by its form is the record");
    }
}

} // namespace

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
    constexpr std::size_t longest = 512;
    if (size <= longest)
        readAlike(Fuzzing::bytes(data, size));
    return 0;
}
