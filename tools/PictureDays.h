// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDate>

class UserDefaults;

// Stores what somebody may have eaten in the fourteen months up to a day, the same at each run: for the pictures of the
// history. Some days are not logged, two of the last month only in part.
void storePictureDays(UserDefaults &store, QDate last);
