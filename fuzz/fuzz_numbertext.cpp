// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "fuzz/Fuzzing.h"
#include "platform/NumberText.h"
#include "platform/TypedNumber.h"

#include <cstring>
#include <limits>
#include <string>
#include <string_view>

namespace {

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

// The number that the text begins with, found in another way than the program finds it: the longest beginning that is
// a sign, digits with at most one period, and a complete exponent. Empty when there is none.
std::string leadingNumber(std::string_view text)
{
    const std::size_t start = text.find_first_not_of(" \t\n\v\f\r");
    if (start == std::string_view::npos)
        return {};
    std::string longest;
    enum { Start, Sign, Whole, LonePoint, Fraction, Mark, MarkSign, Exponent } state = Start;
    for (std::size_t i = start; i < text.size(); ++i) {
        const char c = text[i];
        if (isDigit(c))
            state = state <= Whole ? Whole : state <= Fraction ? Fraction : Exponent;
        else if ((c == '+' || c == '-') && (state == Start || state == Mark))
            state = state == Start ? Sign : MarkSign;
        else if (c == '.' && state <= Whole)
            state = state == Whole ? Fraction : LonePoint;
        else if ((c == 'e' || c == 'E') && (state == Whole || state == Fraction))
            state = Mark;
        else
            break;
        if (state == Whole || state == Fraction || state == Exponent)
            longest = text.substr(start, i + 1 - start);
    }
    return longest;
}

} // namespace

// Reading is held against strtof on the number alone, writing against snprintf: both in the C locale, which this
// program never leaves.
int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string text(reinterpret_cast<const char *>(data), size);
    const float value = NumberText::floatValue(std::string_view(text));
    const std::string number = leadingNumber(text);
    // glibc counts the digits of an exponent in an int and the program in 64 bits; no text here is longer.
    Fuzzing::require(
        Fuzzing::same(value, number.empty() ? 0.0F : std::strtof(number.c_str(), nullptr)), "reads what strtof reads");
    const QString wide = QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
    Fuzzing::require(Fuzzing::same(value, NumberText::floatValue(QStringView(wide))), "reads the same as UTF-16");

    const QString typed = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    const QString made = TypedNumber::withPeriod(typed);
    Fuzzing::require(made == typed || leadingNumber(made.toStdString()) == made.trimmed().toStdString(),
        "what is written with a period is a number");
    Fuzzing::require(TypedNumber::withPeriod(made) == made, "a number with a period stays");

    double printed = double(value);
    if (size >= sizeof(printed) + 1) // any double, too
        std::memcpy(&printed, data + 1, sizeof(printed));
    for (const double each : {printed, double(value)}) {
        for (const int decimals : {0, 2}) {
            char expected[512];
            std::snprintf(expected, sizeof(expected), "%.*f", decimals, each);
            const QString shown = NumberText::fixed(each, decimals);
            Fuzzing::require(std::isnan(each) ? shown == QStringLiteral("nan") : shown == QString::fromLatin1(expected),
                "prints what snprintf prints");
        }
    }
    return 0;
}
