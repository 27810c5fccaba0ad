// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>

#include <vector>

// What people call a food that the catalogue calls something else, or a short word for the most ordinary one of many.
// The words are as FoodWords::tokenize() gives them; the plural of what is said is said by its singular.
struct FoodSynonym {
    std::vector<QByteArray> said;
    std::vector<QByteArray> meant;
};

[[nodiscard]] const std::vector<FoodSynonym> &foodSynonyms();
