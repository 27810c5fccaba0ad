// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "fuzz/Fuzzing.h"
#include "model/Food.h"
#include "platform/Bundle.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

// The input is a food's file; the food is asked what the window asks.
int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const QTemporaryDir folder(
        QString::fromLatin1(Fuzzing::scratchFolder) + QStringLiteral("/provender-fuzz-XXXXXX"));
    static QFile file(folder.filePath(QStringLiteral("Database.xml/Input.xml")));
    if (!file.isOpen()) {
        QDir(folder.path()).mkpath(QStringLiteral("Database.xml"));
        Bundle::mainBundle().setResourcePath(folder.path());
        Fuzzing::require(file.open(QIODevice::ReadWrite | QIODevice::Unbuffered), "the scratch file opens");
    }
    file.resize(0);
    file.seek(0);
    file.write(reinterpret_cast<const char *>(data), static_cast<qint64>(size));

    Food food(QStringLiteral("Input"));
    const QStringList units = food.getUnitNames();
    Fuzzing::require(!units.isEmpty() && units.first() == QStringLiteral("g"), "the first unit is g");
    // Few questions of each kind: a file that breaks off, as most inputs do, is read anew for every one.
    (void)food.getAmountOfNutrient(static_cast<int>(size % NutrientCatalogue::nutrientCount));
    Fuzzing::require(
        Fuzzing::same(food.getGrams(), 100.0F) || units.count(QStringLiteral("g")) != 1, "a fresh food weighs 100 g");
    for (qsizetype i = 0; i < units.size() && i < 4; ++i) {
        Fuzzing::require(food.gramsOfUnit(units[i]).has_value(), "every unit has a weight");
        food.setUnit(units[i], static_cast<qint32>(i), i % 2 == 1);
        Fuzzing::require(food.curunit() == units[i], "a unit of the list is taken");
        (void)food.getGrams();
    }
    return 0;
}
