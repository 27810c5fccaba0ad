// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/historysheet/ChartAxis.h"

#include "platform/NumberText.h"

#include <algorithm>
#include <cmath>

namespace {

// The nearest of 1, 2, 5 and 10 times the power of ten below. The borders are Heckbert's.
double niceNumber(double value)
{
    const double power = std::pow(10.0, std::floor(std::log10(value)));
    const double fraction = value / power;
    const double nice = fraction < 1.5 ? 1.0 : fraction < 3.0 ? 2.0 : fraction < 7.0 ? 5.0 : 10.0;
    return nice * power;
}

} // namespace

ChartAxis ChartAxis::over(double low, double high, int steps)
{
    const double bottom = std::isfinite(low) ? std::min(low, 0.0) : 0.0;
    const double top = std::isfinite(high) ? std::max(high, 0.0) : 0.0;
    constexpr double smallest = 1e-30; // below it a step would come near to numbers without a power of ten
    ChartAxis axis;
    axis.step = niceNumber(std::max(top - bottom, smallest) / std::max(steps, 1));
    axis.low = std::floor(bottom / axis.step) * axis.step;
    axis.high = std::ceil(top / axis.step) * axis.step;
    if (!(top - bottom > smallest))
        axis = {};
    return axis;
}

std::vector<double> ChartAxis::marks() const
{
    std::vector<double> all;
    const double first = std::round(low / step);
    const int count = static_cast<int>(std::round(high / step) - first);
    for (int i = 0; i <= count; ++i)
        all.push_back((first + i) * step);
    return all;
}

QString ChartAxis::label(double mark) const
{
    constexpr double widest = 1e6;
    constexpr double narrowest = 1e-4;
    const double largest = std::max(std::abs(low), std::abs(high));
    if (largest > widest || step < narrowest) {
        const int power = static_cast<int>(std::floor(std::log10(largest)));
        const double fraction = mark / std::pow(10.0, power);
        return mark == 0.0 ? QStringLiteral("0") : NumberText::fixed(fraction, 1) + u'e' + QString::number(power);
    }
    return NumberText::fixed(mark, std::max(0, static_cast<int>(-std::floor(std::log10(step)))));
}
