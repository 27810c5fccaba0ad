// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

// Opens a folder, made when it is missing, with those above it, each for its owner alone. A folder of our own that is
// open to others is closed to them. The caller closes the descriptor; -1 when there is no such folder and none can be
// made. What was made is on the disk by then, so a file in it is not lost with it in a power cut.
[[nodiscard]] int openPrivateFolder(const QString &path);
