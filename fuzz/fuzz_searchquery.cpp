// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "catalog/FoodCatalogue.h"
#include "fuzz/Fuzzing.h"
#include "search/FoodSearch.h"

#include <vector>

namespace {

void checkLetters(const FoodSearch &search, int index, const QString &name)
{
    int end = 0;
    for (const FoodSearch::Letters &each : search.matchedLetters(index)) {
        Fuzzing::require(each.start >= end && each.count > 0, "matched letters ascend and lie apart");
        end = each.start + each.count;
        Fuzzing::require(end <= name.size(), "matched letters lie within the name");
    }
}

} // namespace

// Every third name, so that all kinds of names are met at three times the speed. The input is read as UTF-16 when its
// first byte is odd, which gives every lone surrogate, else as UTF-8.
int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const QStringList names = [] {
        QStringList some;
        const QStringList all = FoodCatalogue::foodNames();
        for (qsizetype i = 0; i < all.size(); i += 3)
            some.append(all[i]);
        return some;
    }();
    static FoodSearch search(names);

    const QByteArray bytes = Fuzzing::bytes(data, size);
    QString query;
    if (size > 0 && (data[0] & 1U) != 0)
        for (qsizetype i = 1; i + 1 < bytes.size(); i += 2)
            query.append(QChar(uchar(bytes[i]), uchar(bytes[i + 1])));
    else
        query = QString::fromUtf8(bytes.mid(1));

    const std::vector<int> found = search.search(query);
    std::vector<bool> seen(static_cast<std::size_t>(names.size()), false);
    for (const int index : found) {
        Fuzzing::require(index >= 0 && index < names.size(), "finds foods of the list");
        Fuzzing::require(!seen[static_cast<std::size_t>(index)], "finds each food once");
        seen[static_cast<std::size_t>(index)] = true;
    }
    for (std::size_t i = 0; i < found.size() && i < 20; ++i)
        checkLetters(search, found[i], names[found[i]]);
    Fuzzing::require(found == search.search(query), "finds the same again");
    return 0;
}
