// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringView>

#include <string_view>

// Numbers to text and back, the one way the program does it. The period is the decimal mark whatever the user's locale,
// and nothing but the C++ library's locale-free conversions is used: strtof reads "0x10", "inf" and "nan" as numbers
// and follows the locale, QString::toFloat refuses trailing text, and std::from_chars alone refuses leading blanks and
// "+".
namespace NumberText {

// The float that a text begins with: leading blanks are skipped, the longest decimal number (sign, ASCII digits,
// period, exponent) is read and rounded once, straight to float. 0 when the text does not begin with a number; an
// infinity when the number is too large for a float, a zero of its sign when it is too small.
[[nodiscard]] float floatValue(std::string_view text);
[[nodiscard]] float floatValue(QStringView text);

// "%.<decimals>f" as C prints it in the C locale: the binary value rounded exactly, ties to even, "-0.00" for a small
// negative value, "inf", "-inf", and "nan" without a sign.
[[nodiscard]] QString fixed(double value, int decimals);

} // namespace NumberText
