// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "bynutrient/Portion.h"

#include "bynutrient/FoodKinds.h"
#include "bynutrient/NamePattern.h"
#include "model/Composition.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace {

constexpr float helpingOfMeat = 85.0F; // three ounces, cooked

// A measure that nobody empties at a sitting.
bool isPackage(const QString &title)
{
    static constexpr std::array words
        = {u"package", u"lb", u"can", u"loaf", u"bunch", u"unit", u"recipe", u"head", u"container", u"bottle"};
    const QString measure = title.section(u' ', 1);
    return std::any_of(words.begin(), words.end(), [&](const char16_t *word) {
        const QStringView begin(word);
        return measure.startsWith(begin) && (measure.size() == begin.size() || !measure[begin.size()].isLetter());
    });
}

// What a raw piece leaves is no measure that a person has before them.
bool isYield(const QString &title)
{
    return title.contains(u"yield") || title.contains(u"raw") || title.contains(u"hulls") || title.contains(u" unit");
}

// A chop or a patty is eaten whole where it is neither a morsel nor a dish for two.
std::optional<Portion> wholePiece(const Composition &composition)
{
    constexpr float least = 60.0F;
    constexpr float most = 150.0F;
    static constexpr std::array pieces = {u"1 chop", u"1 patty"};
    for (const QString &title : composition.unitTitles()) {
        const float grams = composition.gramsOfUnit(title).value_or(0.0F);
        if (grams >= least && grams <= most && std::any_of(pieces.begin(), pieces.end(), [&](const char16_t *piece) {
                return title.startsWith(QStringView(piece));
            }))
            return Portion{1.0F, title, grams};
    }
    return std::nullopt;
}

// As many of a measure as come near to the weight: one of it rather than two, two rather than half of it.
Portion inMeasures(const Composition &composition, float grams)
{
    struct Count {
        float amount;
        float reluctance; // on the scale of the logarithm of the weights' ratio
        float nearness; // how far off it may be
    };
    static constexpr std::array<Count, 5> counts = {
        {{1.0F, 0.0F, 0.24F}, {2.0F, 0.02F, 0.15F}, {0.5F, 0.03F, 0.15F}, {3.0F, 0.04F, 0.15F}, {4.0F, 0.06F, 0.15F}}};
    Portion portion{grams, QStringLiteral("g"), grams};
    float best = 1.0F;
    const QStringList titles = composition.unitTitles();
    for (const QString &title : titles.mid(1)) {
        const float each = composition.gramsOfUnit(title).value_or(0.0F);
        if (each <= 0.0F || isYield(title))
            continue;
        for (const Count &count : counts) {
            const float off = std::abs(std::log(count.amount * each / grams)) + count.reluctance;
            if (off < count.nearness && off < best) {
                best = off;
                portion = {count.amount, title, count.amount * each};
            }
        }
    }
    return portion;
}

Portion firstMeasure(const Composition &composition, float energy)
{
    constexpr float most = 250.0F;
    constexpr float mostenergy = 300.0F;
    constexpr float leastamount = 0.25F;
    constexpr float helping = 200.0F; // kcal, where no measure helps
    const QStringList titles = composition.unitTitles().mid(1);
    const auto first = std::find_if_not(titles.begin(), titles.end(), isPackage);
    if (!titles.isEmpty()) {
        const QString &title = first != titles.end() ? *first : titles.front();
        const float each = composition.gramsOfUnit(title).value_or(0.0F);
        for (float amount = 1.0F; each > 0.0F && amount >= leastamount; amount /= 2.0F) {
            const float grams = amount * each;
            if (grams <= most && grams / 100.0F * energy <= mostenergy)
                return {amount, title, grams};
        }
    }
    const float grams = std::round(std::min(most, energy > 0.0F ? helping / energy * 100.0F : most));
    return {grams, QStringLiteral("g"), grams};
}

} // namespace

Portion Portion::of(const QString &name, const Composition &composition, float energy)
{
    const std::string lower = NamePattern::lowerCase(name);
    const std::optional<float> helping = FoodKinds::helpingOf(lower);
    if (!helping)
        return firstMeasure(composition, energy);
    if (*helping == helpingOfMeat)
        if (const std::optional<Portion> piece = wholePiece(composition))
            return *piece;
    return inMeasures(composition, *helping);
}
