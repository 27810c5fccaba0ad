// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

// Every key of the store but the days', which LocalDay names. What each holds is in docs/formats.md.
namespace SettingsKeys {

// Registered, and never read.
inline const QString FirstLaunch = QStringLiteral("FirstLaunch");
inline const QString ShowXNutrients = QStringLiteral("ShowXNutrients");

// Flags with registered defaults.
inline const QString RememberDate = QStringLiteral("RememberDate");
inline const QString UseP = QStringLiteral("UseP");
inline const QString RecalculateAmount = QStringLiteral("RecalculateAmount");
inline const QString OwnFoodsFirst = QStringLiteral("OwnFoodsFirst");

// Written at shutdown; none has a registered default.
inline const QString LastDate = QStringLiteral("LastDate");
inline const QString RDAs = QStringLiteral("RDAs");
inline const QString WindowGeometry = QStringLiteral("WindowGeometry");
inline const QString WindowSplitters = QStringLiteral("WindowSplitters");
// Only where the person chose another than the usual one.
inline const QString ColumnWidths = QStringLiteral("ColumnWidths");
inline const QString ShortcutsSheetSize = QStringLiteral("ShortcutsSheetSize");
inline const QString AddFoodSheetSize = QStringLiteral("AddFoodSheetSize");
inline const QString DaySheetSize = QStringLiteral("DaySheetSize");

} // namespace SettingsKeys
