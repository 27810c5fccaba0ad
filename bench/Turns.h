// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

// How every benchmark measures and reports. What is compared takes turns, one sample of each at a time, and the median
// of the ratios of these pairs counts: what else runs on a machine comes and goes within milliseconds, and only
// neighbours meet the same of it. Blocks of samples in turns gave 2.72 and 0.30 for the same ratio in one run.
//
// A time has nothing to be divided by. Its limit is judged where a fixed piece of work of the same kind, which took
// turns with it, always took about as long: its slowest tenth is held against its fastest. So no figure of any machine
// stands here. What slows a whole run evenly, such as a lower clock, is not noticed.

#include <QStringList>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <vector>

namespace Turns {

using Times = std::vector<double>; // milliseconds

// How many times as long as its fastest tenth the slowest tenth of the work beside a time may take for the time to be
// judged.
constexpr double undisturbed = 1.25;

template <typename Work>
double milliseconds(const Work &work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

// Keeps the compiler from leaving out what nobody reads.
template <typename Result>
void keep(const Result &result)
{
    asm volatile("" : : "g"(&result) : "memory");
}

// The value that this share of all is not above; of two in the middle the upper.
inline double quantile(Times values, double share)
{
    const auto place = values.begin() + static_cast<std::ptrdiff_t>(share * static_cast<double>(values.size()));
    std::nth_element(values.begin(), place, values.end());
    return *place;
}

inline double medianOf(const Times &values)
{
    return quantile(values, 0.5);
}

// Of samples that go through the same steps again and again: of each step the median over its rounds, of these the
// worst. With one step it is the median.
inline double worstStep(const Times &values, std::size_t steps = 1)
{
    double worst = 0.0;
    for (std::size_t step = 0; step < steps; ++step) {
        Times rounds;
        for (std::size_t i = step; i < values.size(); i += steps)
            rounds.push_back(values[i]);
        worst = std::max(worst, medianOf(rounds));
    }
    return worst;
}

struct Pair {
    Times measured;
    Times reference;

    [[nodiscard]] double ratio() const
    {
        Times ratios;
        for (std::size_t i = 0; i < measured.size(); ++i)
            ratios.push_back(measured[i] / reference[i]);
        return medianOf(ratios);
    }
    // How unevenly the same work went. The median would miss what interrupts every third sample.
    [[nodiscard]] double spread() const { return quantile(reference, 0.9) / quantile(reference, 0.1); }
};

// Each side is called with the turn's number and answers in milliseconds, so that it can prepare and tidy up
// unmeasured. They lead by turns: the second one finds warmer caches, or what the first left to be written.
template <typename Measured, typename Reference>
Pair inTurns(std::size_t turns, const Measured &measured, const Reference &reference)
{
    Pair pair;
    for (std::size_t turn = 0; turn < turns; ++turn) {
        if (turn % 2 == 0)
            pair.measured.push_back(measured(turn));
        pair.reference.push_back(reference(turn));
        if (turn % 2 != 0)
            pair.measured.push_back(measured(turn));
    }
    return pair;
}

inline const char *verdict(double value, std::optional<double> limit, double spread = 1.0)
{
    if (!limit)
        return "";
    if (spread > undisturbed)
        return "not judged: machine busy";
    return value <= *limit ? "" : "OVER";
}

// Prints one line a figure, its parts separated by tabs as report.py reads them: what, value, unit, limit, what it is
// of, verdict. The program ends with exitCode().
class Figures final {
public:
    void ratio(const QString &what, const Pair &pair, std::optional<double> limit = {})
    {
        figure(what, pair.ratio(), "times", limit,
            QString::asprintf("%.4g ms / %.4g ms", medianOf(pair.measured), medianOf(pair.reference)));
    }
    void time(const QString &what, const Pair &pair, double limit, std::size_t steps = 1)
    {
        const double spread = pair.spread();
        const QString beside = QString::asprintf("beside %.4g ms, spread %.2f", medianOf(pair.reference), spread);
        figure(what, worstStep(pair.measured, steps), "ms", limit, beside, spread);
    }
    void figure(const QString &what, double value, const char *unit = "ms", std::optional<double> limit = {},
        const QString &of = {}, double spread = 1.0)
    {
        const QString result = QLatin1String(verdict(value, limit, spread));
        const QString most = limit ? QString::number(*limit) : QString();
        const QStringList parts{what, QString::number(value, 'g', 9), QLatin1String(unit), most, of, result};
        std::puts(qPrintable(parts.join(u'\t')));
        std::fflush(stdout);
        isover = isover || result == QLatin1String("OVER");
    }
    [[nodiscard]] int exitCode() const { return isover ? EXIT_FAILURE : EXIT_SUCCESS; }

private:
    bool isover = false;
};

} // namespace Turns
