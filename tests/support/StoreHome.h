// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/UserDefaults.h"
#include "tests/support/StoreView.h"

#include <QtTest>

#include <memory>

// What the tests of the store share: a home of their own with a store's folder in it.

inline const QString day = QStringLiteral("2015_05_11");
inline const QString rdas = QStringLiteral("RDAs");

inline QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

inline void writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

inline QVariant number(int value)
{
    return QVariant(qint64(value));
}

// A new home for each test.
struct StoreHome {
    QTemporaryDir home;
    QString folder = home.filePath(QStringLiteral("provender"));
    QString path = folder + QStringLiteral("/preferences.sqlite");

    StoreHome() { QDir().mkdir(folder); }

    [[nodiscard]] QVariant stored(const QString &key) const { return UserDefaults(path).objectForKey(key); }
    [[nodiscard]] QString aside(const char *tail = "") const
    {
        return path + QStringLiteral(".unusable") + QLatin1String(tail);
    }
    [[nodiscard]] QStringList files() const
    {
        return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot | QDir::System);
    }
};
