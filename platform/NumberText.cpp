// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "platform/NumberText.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace {

constexpr bool isBlank(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

constexpr bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

// How many digits stand at the front of the text.
std::size_t leadingDigits(std::string_view text)
{
    std::size_t count = 0;
    while (count < text.size() && isDigit(text[count]))
        ++count;
    return count;
}

// The length of the exponent ("e5", "E-12") at the front of the text, 0 when there is none that is complete.
std::size_t exponentLength(std::string_view text)
{
    if (text.empty() || (text[0] != 'e' && text[0] != 'E'))
        return 0;
    std::size_t mark = 1;
    if (mark < text.size() && (text[mark] == '+' || text[mark] == '-'))
        ++mark;
    const std::size_t digits = leadingDigits(text.substr(mark));
    return digits == 0 ? 0 : mark + digits;
}

// The decimal exponent of an unsigned number's first digit that is not zero, counted so that 0.1 has 0 and 1 has 1.
// from_chars leaves the value alone when a number is out of range and does not say at which end: this does. `whole` is
// the number of digits before the period.
long long magnitude(std::string_view number, std::size_t whole)
{
    const std::size_t mark = number.find_first_of("eE");
    const std::size_t first = number.find_first_not_of("0.");
    long long exponent = 0;
    if (mark != std::string_view::npos) {
        std::string_view digits = number.substr(mark + 1);
        const bool negative = digits.front() == '-';
        if (negative || digits.front() == '+')
            digits.remove_prefix(1);
        constexpr long long beyond = std::numeric_limits<long long>::max() / 4; // longer than any text's digits
        if (std::from_chars(digits.data(), digits.data() + digits.size(), exponent).ec != std::errc()
            || exponent > beyond)
            exponent = beyond;
        if (negative)
            exponent = -exponent;
    }
    const auto position = static_cast<long long>(first);
    const auto point = static_cast<long long>(whole);
    return exponent + (position < point ? point - position : point + 1 - position);
}

template <typename Number>
QByteArray shortest(Number value)
{
    if (std::isnan(value))
        return QByteArrayLiteral("nan");
    std::array<char, 512> text{}; // the smallest double has 324 digits after the period
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed).ptr;
    return {text.data(), end - text.data()};
}

} // namespace

float NumberText::floatValue(std::string_view text)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    const bool negative = !text.empty() && text.front() == '-';
    if (!text.empty() && (text.front() == '-' || text.front() == '+'))
        text.remove_prefix(1);

    const std::size_t whole = leadingDigits(text);
    std::size_t length = whole;
    std::size_t fraction = 0;
    if (length < text.size() && text[length] == '.') {
        fraction = leadingDigits(text.substr(length + 1));
        length += 1 + fraction;
    }
    if (whole + fraction == 0)
        return 0.0F;
    length += exponentLength(text.substr(length));

    const std::string_view number = text.substr(0, length);
    float value = 0.0F;
    if (std::from_chars(number.data(), number.data() + number.size(), value).ec == std::errc::result_out_of_range)
        value = magnitude(number, whole) > 0 ? std::numeric_limits<float>::infinity() : 0.0F;
    return negative ? -value : value;
}

float NumberText::floatValue(QStringView text)
{
    // Whatever is not ASCII ends a number, and Latin-1 conversion leaves no other character looking like a digit.
    const QByteArray latin = text.toLatin1();
    return floatValue(std::string_view(latin.constData(), static_cast<std::size_t>(latin.size())));
}

QString NumberText::fixed(double value, int decimals)
{
    if (std::isnan(value))
        return QStringLiteral("nan");
    std::array<char, 512> text{}; // the longest double has 309 digits before the period
    const auto end
        = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, decimals).ptr;
    return QString::fromLatin1(text.data(), end - text.data());
}

QByteArray NumberText::exact(float value)
{
    return shortest(value);
}

QByteArray NumberText::exact(double value)
{
    return shortest(value);
}
