// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>
#include <QStringView>

#include <string_view>

// Numbers to text and back, the one way the program does it. The period is the decimal mark whatever the user's locale,
// and nothing but the C++ library's locale-free conversions is used: strtof reads "0x10", "inf" and "nan" as numbers
// and follows the locale, QString::toFloat refuses trailing text, and std::from_chars alone refuses leading blanks and
// "+".
namespace NumberText {

// The float at the front of a text, after blanks: sign, ASCII digits with a period among them, exponent, as far as
// they make a number. It is rounded a single time. Without a number the answer is 0; a number out of a float's range
// gives an infinity or a zero, with its sign.
[[nodiscard]] float floatValue(std::string_view text);
[[nodiscard]] float floatValue(QStringView text);

// What printf makes of "%.<decimals>f" in the C locale: ties in the binary value go to even, and what rounds to zero
// from below keeps its minus. Infinities are "inf" and "-inf"; no number is "nan", never "-nan".
[[nodiscard]] QString fixed(double value, int decimals);

// The shortest decimal number that reads back as the very same one, for another program to read: with a period, without
// an exponent. Infinities and no number are as above.
[[nodiscard]] QByteArray exact(float value);
[[nodiscard]] QByteArray exact(double value);

} // namespace NumberText
