// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/SqliteStore.h"

#include <QHash>
#include <QMap>
#include <QSet>
#include <QString>
#include <QVariant>

// The user's preferences: values under keys, kept in one store file, above registered defaults that live in memory
// only. Day logs are values like any other, so a value is read from the store when it is asked for and not kept; only
// flags are, since a table asks for them at every cell.
//
// Nothing here fails aloud. A value that cannot be written stays pending: reads answer it, and it is written with the
// next write, at synchronize() and when the object goes. A stored value that cannot be read or understood counts as
// absent and is kept under "<key>.unread" before the key is first written.
//
// Values are bool, integers (read as qint64), float, double, QDateTime (read as UTC), QByteArray, QString, QVariantList
// and QVariantMap of these.
class UserDefaults final {
public:
    // Opens nothing yet.
    explicit UserDefaults(const QString &storePath);
    ~UserDefaults();
    Q_DISABLE_COPY_MOVE(UserDefaults)

    // The application's own: those that were set, else those of the user's store. Whoever sets some keeps them alive
    // until they are replaced; null goes back to the user's.
    [[nodiscard]] static UserDefaults &standardUserDefaults();
    static void setStandardUserDefaults(UserDefaults *defaults);
    // Where the user's store is or will be: StoreFile::standardPath().
    [[nodiscard]] static QString standardStorePath();

    [[nodiscard]] QString storePath() const { return storepath; }

    // What a key without a stored value has. Never written; a second registration adds to the first.
    void registerDefaults(const QVariantMap &defaults);

    // The pending or stored value, else the registered one, else an invalid variant.
    [[nodiscard]] QVariant objectForKey(const QString &key) const;

    // A boolean as it is, a number whether it is not 0, a text whether Y, y, T, t or a digit 1 to 9 comes first behind
    // blanks, one sign and zeros ("YES" is true, "NO" and "0" are not); false for anything else or nothing.
    [[nodiscard]] bool boolForKey(const QString &key) const;

    // On the disk when it returns, unless the store cannot be written or a transaction is open.
    void setObject(const QVariant &value, const QString &key);

    // The caller understood the value of the key, but not as what it should be: it is kept under "<key>.unread", once,
    // when the key is next written.
    void keepUnread(const QString &key);

    // Writes what is pending in one transaction; true when nothing is left. Does nothing inside a Transaction.
    bool synchronize();

    // Makes the writes of its lifetime one: all of them reach the disk, with whatever was pending before, or none.
    class Transaction final {
    public:
        // One at a time.
        explicit Transaction(UserDefaults &defaults);
        // Forgets the writes unless they were committed.
        ~Transaction();
        Q_DISABLE_COPY_MOVE(Transaction)

        // True when they are on the disk; else they stay pending, together.
        bool commit();

    private:
        UserDefaults &defaults;
        QMap<QString, QByteArray> former;
        bool isopen = true;
    };

private:
    QString storepath;
    mutable SqliteStore store;
    QVariantMap registered;
    QMap<QString, QByteArray> pending; // encoded, so that reads answer what another run would read
    mutable QSet<QString> unread; // keys whose stored value is to be kept
    mutable QHash<QString, bool> flags; // those that were read or set in this run
    bool intransaction = false;
};
