// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <span>

// What people say and what the catalogue calls it: the rows that FoodSynonyms makes its synonyms of.
namespace SynonymTable {

struct Row {
    const char *said; // ways to say the same, parted by "|"
    const char *meant; // the words of names; of words parted by "|" a name needs one
};

[[nodiscard]] std::span<const Row> rows();

// The same for what is on the plate, in the cup and in the lunch box, here and elsewhere.
[[nodiscard]] std::span<const Row> dishes();

// The same for foods that people call by their makers' names.
[[nodiscard]] std::span<const Row> brands();

// What people write short: ways to do so, parted by blanks, and the word. None of them is a word of its own.
[[nodiscard]] std::span<const Row> abbreviations();

} // namespace SynonymTable
