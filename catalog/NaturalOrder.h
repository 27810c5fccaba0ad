// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringView>

// The order of the food catalogue: that of the food files' names as a file browser sorts them. The names are stored in
// this order and never sorted while the program runs; the importer and the tests hold the list to it.
//
// - A run of digits is one unit and goes by its value, whatever its length and its leading zeros.
// - Letters go without regard to case.
// - The blank and punctuation come before digits, digits before letters; punctuation goes as the default table of the
//   Unicode Collation Algorithm has it. (A collation library would bring megabytes of tables for these 95
//   characters, and an order that moves with its version.)
// - What lies outside printable ASCII is in no name; it comes last, by code unit, so that any two texts have an order.
namespace NaturalOrder {

// Compares two file names: negative when the left one comes first, positive when the right one does. It is 0 for texts
// that differ in nothing but case or leading zeros.
[[nodiscard]] int compareFileNames(QStringView left, QStringView right);

// Compares two food names by the names of their files, which end in ".xml": so a name does not simply come before the
// longer ones that begin with it, but where the "." behind it puts it.
[[nodiscard]] int compareFoodNames(QStringView left, QStringView right);

} // namespace NaturalOrder
