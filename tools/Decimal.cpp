// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "tools/Decimal.h"

#include <algorithm>

namespace {

constexpr std::size_t digitLimit = 6;

bool allDigits(std::string_view text)
{
    return std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

std::int64_t powerOfTen(int exponent)
{
    std::int64_t power = 1;
    while (exponent-- > 0)
        power *= 10;
    return power;
}

// The quotient to the nearest whole number, a half rounded up.
std::int64_t nearest(std::int64_t dividend, std::int64_t divisor)
{
    return (2 * dividend + divisor) / (2 * divisor);
}

// The text of value / 10^decimals.
std::string shifted(std::int64_t value, int decimals)
{
    std::string text = std::to_string(value);
    if (decimals == 0)
        return text;
    const auto places = static_cast<std::size_t>(decimals);
    if (text.size() <= places)
        text.insert(0, places + 1 - text.size(), '0');
    text.insert(text.size() - places, 1, '.');
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.')
        text.pop_back();
    return text;
}

} // namespace

std::optional<Decimal> Decimal::fromText(std::string_view text)
{
    const std::size_t period = text.find('.');
    std::string_view whole = text.substr(0, period);
    const std::string_view fraction = period == std::string_view::npos ? std::string_view() : text.substr(period + 1);
    whole.remove_prefix(std::min(whole.find_first_not_of('0'), whole.size()));
    if (text.empty() || text == "." || whole.size() > digitLimit || fraction.size() > digitLimit || !allDigits(whole)
        || !allDigits(fraction))
        return std::nullopt;
    std::int64_t value = 0;
    for (const char c : whole)
        value = value * 10 + (c - '0');
    for (std::size_t i = 0; i < digitLimit; ++i)
        value = value * 10 + (i < fraction.size() ? fraction[i] - '0' : 0);
    return Decimal{.millionths = value};
}

std::string Decimal::dividedBy(Decimal divisor, int decimals) const
{
    return shifted(nearest(millionths * powerOfTen(decimals), divisor.millionths), decimals);
}

std::string Decimal::dividedBySignificant(Decimal divisor, int digits) const
{
    const std::int64_t limit = powerOfTen(digits);
    for (int decimals = 6; decimals > 0; --decimals) {
        if (nearest(millionths * powerOfTen(decimals), divisor.millionths) < limit)
            return dividedBy(divisor, decimals);
    }
    std::int64_t step = 1;
    while (nearest(millionths, divisor.millionths * step) >= limit)
        step *= 10;
    return std::to_string(nearest(millionths, divisor.millionths * step) * step);
}
