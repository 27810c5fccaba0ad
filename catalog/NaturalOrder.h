// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringView>

// The order of the food catalogue: that of the food files' names as a file browser sorts them. The names are stored in
// this order and never sorted while the program runs; the importer and the tests hold the list to it.
//
// - Numbers go by what they amount to, however many digits or leading zeros they have.
// - Upper and lower case are one.
// - Ahead of numbers stand the blank and punctuation, ahead of letters the numbers; for punctuation the order is the
//   Unicode Collation Algorithm's default. (A collation library would bring megabytes of tables for these 95
//   characters, and an order that moves with its version.)
// - What lies outside printable ASCII is in no name; it comes last, by code unit, so that any two texts have an order.
namespace NaturalOrder {

// Compares two food names with ".xml" after each: where one begins with the other, that period decides. Negative when
// the left one comes first, positive when the right one does; 0 for texts that differ in nothing but case or leading
// zeros.
[[nodiscard]] int compareFoodNames(QStringView left, QStringView right);

} // namespace NaturalOrder
