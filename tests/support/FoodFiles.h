// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Bundle.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>
#include <QTemporaryDir>

// Food files of a test's own: the main bundle looks for resources in here as long as this lives.
class FoodFiles final {
public:
    FoodFiles()
    {
        QDir(folder.path()).mkpath(QStringLiteral("Database.xml"));
        Bundle::mainBundle().setResourcePath(folder.path());
    }
    ~FoodFiles() { Bundle::mainBundle().setResourcePath({}); }
    Q_DISABLE_COPY_MOVE(FoodFiles)

    [[nodiscard]] QString pathOf(const QString &food) const
    {
        return folder.filePath(QStringLiteral("Database.xml/") + food + QStringLiteral(".xml"));
    }

    // Writes a food's file with these bytes, whatever they are.
    void write(const QString &food, const QByteArray &bytes) const
    {
        QFile file(pathOf(food));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write %s", qPrintable(file.fileName()));
    }

    // The same with these elements inside a food element.
    void writeElements(const QString &food, const QByteArray &elements) const
    {
        write(food, "<food>\n" + elements + "</food>\n");
    }

    void remove(const QString &food) const { QFile::remove(pathOf(food)); }

private:
    QTemporaryDir folder;
};
