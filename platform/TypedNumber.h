// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

// Numbers as people write them at a table: NumberText alone reads "1/2" and "1,5" as 1.
namespace TypedNumber {

// A fraction ("1/2", "1 1/2", "½", "1½") or a decimal comma with one or two digits after it ("1,5"), written with a
// period instead. Every other text is given back as it is, "1,500" and "1/0" too.
[[nodiscard]] QString withPeriod(const QString &text);

} // namespace TypedNumber
