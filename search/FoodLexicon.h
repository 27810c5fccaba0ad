// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>

// What the food search knows about the words that the catalogue's names are made of: which are stop words, which tell
// the everyday form of a food and which a doctored one. Everything else is told from how rare a word is among the names
// (its inverse document frequency), so the lists are short and hold no food.
namespace FoodLexicon {

enum class Tone {
    Ordinary, // tells one food from another, the more the rarer it is
    StopWord, // "and", "of": worth nothing
    Plain, // "raw", "whole": what a person means who says no more
    Neutral, // "enriched", "commercially": every form of a food may be called so
    Processed, // "dried", "canned", "mix"
    StandIn // "imitation", "meatless": not the food at all
};

[[nodiscard]] Tone tone(const QByteArray &word);

// Whether a part of a name that is made of such words alone tells the food's state and not its kind: "cured" in "Pork,
// cured, bacon", "broilers or fryers" in "Chicken, broilers or fryers, breast".
[[nodiscard]] bool tellsState(const QByteArray &word);

// Whether a name's first part is where in a shop the food stands and not what it is: "nuts", "fast foods". `next` is
// the word after it.
[[nodiscard]] bool isShelf(const QByteArray &part, const QByteArray &next);

// Whether a name with this word is of baby food or of one people's kitchen, wanted only by who asks for it.
[[nodiscard]] bool isForFew(const QByteArray &word);

// Whether the word tells a food that has to be made up first, or that this has been done: nobody drinks the powder.
[[nodiscard]] bool isDry(const QByteArray &word);
[[nodiscard]] bool isMadeUp(const QByteArray &word);

// Capitals that are no brand's: fatty acids, an authority.
[[nodiscard]] bool isAbbreviation(const QByteArray &word);

// Whether the word only ties others together, so that a name may lack it: "and", "with".
[[nodiscard]] bool isIdle(const QByteArray &word);

// Whether the word is one of a food that no name has, so that it is no misspelling of another.
[[nodiscard]] bool isUnknownFood(const QByteArray &word);

// Whether a name that begins with the word is of meat, poultry or fish, which is eaten cooked.
[[nodiscard]] bool isFlesh(const QByteArray &word);

// Whether the word tells how a food comes and not which it is, though it stands where the noun does: "cod fillet",
// "olives black".
[[nodiscard]] bool isCut(const QByteArray &word);

// Whether a person who finds nothing meant no food by the word: "glass", "of", "some".
[[nodiscard]] bool isServing(const QByteArray &word);

} // namespace FoodLexicon
