// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/SqliteStore.h"

#include <QHash>
#include <QMap>
#include <QString>
#include <QVariant>

#include <functional>
#include <optional>

// The user's preferences: values under keys, kept in one store file, above registered defaults that live in memory
// only. Day logs are values like any other, so a value is read from the store when it is asked for and not kept; only
// flags are, since a table asks for them at every cell.
//
// Nothing here fails aloud. A value that cannot be written stays pending: reads answer it, and it is written with the
// next write, at synchronize() and when the object goes. What is pending when the program ends can be left in a file of
// its own, "<store>.pending", for the next start to take in.
//
// No stored value that this run has not read is replaced without a copy. Before a key is written, what is stored under
// it is compared with what this run last read or wrote there:
//  - the same: it is replaced;
//  - another one, or one that could not be read when it was asked for: it is joined with this run's where the kind of
//    value knows how (setJoin), else kept under "<key>.unread" and replaced;
//  - never asked for, or not understood: it is kept under "<key>.unread" and replaced.
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

    // Every key that has a pending or stored value, sorted, each once; the pending ones alone when the store cannot
    // be read.
    [[nodiscard]] QStringList storedKeys() const;

    // The pending or stored value, else the registered one, else an invalid variant. Who asks takes the value in: it is
    // replaced without a copy when the key is next written.
    [[nodiscard]] QVariant objectForKey(const QString &key) const;

    // A boolean as it is, a number whether it is not 0, a text whether Y, y, T, t or a digit 1 to 9 comes first after
    // blanks, one sign and zeros ("YES" is true, "NO" and "0" are not); false for anything else or nothing.
    [[nodiscard]] bool boolForKey(const QString &key) const;

    // On the disk when it returns, unless the store cannot be written or a transaction is open. `changed` tells the
    // join which part of the value this run changed, in the join's own terms.
    void setObject(const QVariant &value, const QString &key, const QVariant &changed = {});

    // What a join makes of a stored value and this run's.
    struct Joined {
        QVariant value;
        bool whole = true; // false when a part of this run's value is not in it: a copy of that value is kept
    };
    // Nothing for a kind of value that cannot be joined. Asked again with the same stored value whenever this run's
    // changes, so that the newer one replaces the older one and nothing else.
    using Join = std::function<std::optional<Joined>(
        const QString &key, const QVariant &stored, const QVariant &mine, const QVariant &changed)>;
    void setJoin(Join function) { join = std::move(function); }

    // What objectForKey() answers, for whoever only looks: the key counts as read by this run, or not, as before.
    [[nodiscard]] QVariant peekObjectForKey(const QString &key) const;

    // Hands over every key between two, both included, that has a pending or stored value, with that value's bytes; the
    // keys in their order. Only looks, like peekObjectForKey(), and in one query however many keys there are. False when
    // some of the stored ones could not be read. Whoever takes a row leaves these preferences alone meanwhile.
    using Row = SqliteStore::Row;
    bool peekRange(const QString &first, const QString &last, const Row &row) const;

    // What setObject() was told of the change of the value that is pending; invalid when none is.
    [[nodiscard]] QVariant changedForKey(const QString &key) const { return pending.value(key).changed; }

    // The copies kept of a key's values, oldest first; those that are no value are left out.
    [[nodiscard]] QVariantList unreadObjectsForKey(const QString &key) const;

    // The caller understood the value of the key, but not as what it should be: it is kept under "<key>.unread", once,
    // when the key is next written.
    void keepUnread(const QString &key);

    // Writes what is pending in one transaction; true when nothing is left. Does nothing inside a Transaction.
    bool synchronize();

    // Leaves what is pending in the file beside the store, all of it or nothing; true when there is nothing to be left
    // or it is on the disk. The file goes when all of it has reached the store. Where one is that this run could not
    // take in, it stays, and another one is begun, "<store>.pending-2" and so on.
    bool leavePending();
    // Takes in what an earlier run left there, as if this run had set it. A value whose stored form that run had read
    // replaces it if the store still holds that form; any other counts as one that could not be read.
    void takeInPending();

private:
    struct Waiting {
        QByteArray bytes; // encoded, so that reads answer what another run would read
        QVariant changed;
    };

public:
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
        QMap<QString, Waiting> former;
        bool isopen = true;
    };

private:
    // What this run knows of what is stored under a key that it has asked for.
    struct Known {
        bool isread = false; // false: nobody could tell
        bool isunderstood = true;
        std::optional<QByteArray> bytes; // as stored; shared with whoever read them
    };

    // What becomes of a key, and the stored bytes that its value was joined with.
    struct Decision {
        SqliteStore::Change change;
        std::optional<QByteArray> joinedwith;
    };

    [[nodiscard]] Decision decide(const QString &key, const std::optional<QByteArray> &stored) const;
    [[nodiscard]] std::optional<SqliteStore::Change> joinWith(const QString &key, const QByteArray &stored) const;
    [[nodiscard]] QString pendingPath(int number) const;
    bool takeIn(const QString &path);
    void removePendingFile();

    QString storepath;
    mutable SqliteStore store;
    QVariantMap registered;
    QMap<QString, Waiting> pending;
    mutable QHash<QString, Known> known;
    mutable QHash<QString, QByteArray> joined; // what was stored under a key whose value this run joined with its own
    Join join;
    mutable QHash<QString, bool> flags; // those that were read or set in this run
    bool intransaction = false;
    QString pendingfile; // what this run took in or left, and is to be removed; empty when there is none
    bool isleft = false; // all that is pending is in that file
};
