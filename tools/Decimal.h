// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// A figure of the release tables, held exactly in millionths: sums of table figures must come out as a person adding
// them on paper gets them, which binary fractions do not do. The limits (six digits before the period and six after
// it) are far from any figure of the tables and keep every product below within 64 bits.
struct Decimal final {
    static constexpr std::int64_t unit = 1'000'000;

    std::int64_t millionths = 0;

    // The value of digits with at most one period among them ("12", "1.40", ".5"); nothing for any other text, a sign
    // or an exponent included, and for a figure beyond the limits.
    [[nodiscard]] static std::optional<Decimal> fromText(std::string_view text);

    [[nodiscard]] bool isPositive() const { return millionths > 0; }
    [[nodiscard]] bool isWhole() const { return millionths % unit == 0; }

    // The value in full, without trailing zeros, a 0 before a leading period.
    [[nodiscard]] std::string text() const { return rounded(6); }

    // The value with at most this many decimals (up to 6), a half rounded up, without trailing zeros.
    [[nodiscard]] std::string rounded(int decimals) const { return dividedBy({.millionths = unit}, decimals); }

    // The quotient by a positive divisor, rounded in the same way.
    [[nodiscard]] std::string dividedBy(Decimal divisor, int decimals) const;

    // The quotient by a positive divisor with at most so many significant digits (and at most 6 decimals).
    [[nodiscard]] std::string dividedBySignificant(Decimal divisor, int digits) const;

    Decimal &operator+=(Decimal other)
    {
        millionths += other.millionths;
        return *this;
    }
};
