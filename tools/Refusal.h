// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <stdexcept>
#include <string>

// Why the importer does not go on: the file, the line where there is one, and what is wrong with it. Thrown where it is
// found and printed by main; nothing has been written until then.
struct Refusal final : std::runtime_error {
    Refusal(const std::string &file, const std::string &reason)
        : std::runtime_error(file + ": " + reason)
    { }
    Refusal(const std::string &file, int line, const std::string &reason)
        : std::runtime_error(file + ':' + std::to_string(line) + ": " + reason)
    { }
};
