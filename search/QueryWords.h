// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

// The tokens of a query: those of FoodWords, each once, with what people abbreviate when they type written out ("w/"
// for "with") and single letters joined where an "and" stands between them ("m & m").
namespace QueryWords {

[[nodiscard]] std::vector<QByteArray> of(const QString &query);

} // namespace QueryWords
