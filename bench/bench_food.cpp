// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

// What a food's first question costs: finding its file, reading it and keeping what it says, against the least that
// expat can do with the same file. Every 13th food of the list, 601 real files; the turns of one food follow each
// other.

#include "bench/BarePass.h"
#include "bench/Turns.h"
#include "catalog/FoodCatalogue.h"
#include "model/Food.h"
#include "platform/Bundle.h"

#include <cstdlib>

namespace {

constexpr qsizetype step = 13;
constexpr std::size_t rounds = 41;

void load(const QString &name)
{
    Food food(name);
    if (food.getUnitNames().isEmpty())
        std::abort();
}

} // namespace

int main()
{
    Bundle::mainBundle().setResourcePath(QStringLiteral(SOURCE_DIR "/resources"));
    QStringList names;
    std::vector<QByteArray> paths;
    const QStringList all = FoodCatalogue::foodNames();
    for (qsizetype i = 0; i < all.size(); i += step) {
        names.append(all[i]);
        paths.push_back(BarePass::pathOf(all[i]));
    }
    const Turns::Pair pair = Turns::inTurns(
        paths.size() * rounds,
        [&](std::size_t turn) { return Turns::milliseconds([&] { load(names[qsizetype(turn / rounds)]); }); },
        [&](std::size_t turn) { return Turns::milliseconds([&] { BarePass::parse(paths[turn / rounds]); }); });
    Turns::Figures figures;
    figures.ratio(QStringLiteral("loading a food against a bare pass of expat"), pair, 1.5);
    return figures.exitCode();
}
