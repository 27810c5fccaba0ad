// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <vector>

// An axis that holds zero and all that is to be shown on it, marked at round numbers: multiples of a step that is 1, 2
// or 5 times a power of ten. The step is chosen by Paul Heckbert's rule ("Nice Numbers for Graph Labels", in Graphics
// Gems, 1990), which divides the range by the number of steps wanted and rounds to the nearest such number; the ends
// are the marks outside of what is shown.
struct ChartAxis {
    double low = 0.0;
    double high = 1.0;
    double step = 0.5;

    // About so many steps, at least one. What is not finite counts as zero.
    [[nodiscard]] static ChartAxis over(double low, double high, int steps);
    // From `low` up to `high`, both included.
    [[nodiscard]] std::vector<double> marks() const;
    // With the decimals that the step needs; very large and very small numbers with an exponent.
    [[nodiscard]] QString label(double mark) const;
};
