// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QRandomGenerator>
#include <QString>

#include <memory>

struct sqlite3_vfs;

// A layer between SQLite and the disk that fails at a chosen operation, or cuts the power there.
//
// While one lives it is SQLite's default, so whatever opens a store goes through it. It remembers of each file what a
// power cut would leave: the contents at the last sync, and the writes since, of which a disk may keep any 512 bytes or
// none; a file's removal lasts only once its folder was synced. Files that were there at the first opening count as
// safely on the disk.
class FaultyVfs final {
public:
    FaultyVfs();
    ~FaultyVfs();
    Q_DISABLE_COPY_MOVE(FaultyVfs)

    // LostWrite: the disk says that it took a write and did not. The beginning of a file is spared.
    enum class Fault { DiskFull, InputOutput, PowerCut, LostWrite };
    enum class Count { Writing, Everything }; // with Everything reads, locks and look-ups are counted and fail as well

    // The operation of this number from now on fails, counted from 1; with `lasting` every later one too. A power cut
    // lasts in any case.
    void arm(Fault fault, int operation, bool lasting, Count count = Count::Writing);
    void disarm();
    [[nodiscard]] bool hasStruck() const { return struck; }
    // Operations since arm().
    [[nodiscard]] int operations() const { return counted; }

    // What a disk may keep of the writes that were not synced.
    enum class Survivors { None, Some, All };
    // After a power cut and with every connection closed: makes the files what the disk kept, and disarms.
    void restart(Survivors survivors, quint32 seed = 0);

    // For the layer itself.
    enum class Operation { Open, Read, Write, Truncate, Sync, Delete, Look };
    [[nodiscard]] int strike(Operation operation); // SQLITE_OK or the error to give
    [[nodiscard]] bool losesWrites() const { return fault == Fault::LostWrite; }
    void opened(const QString &path, bool created);
    void written(const QString &path, qint64 offset, const QByteArray &bytes);
    void truncated(const QString &path, qint64 size);
    void synced(const QString &path);
    void removed(const QString &path, bool foldersynced);

private:
    struct Change {
        qint64 offset = 0;
        QByteArray bytes;
        bool istruncation = false;
    };
    struct File {
        QByteArray durable;
        bool isdurable = false; // its name is on the disk
        bool exists = true;
        QList<Change> unsynced;
    };

    void putBack(const QString &path, const File &file, Survivors survivors, QRandomGenerator &random) const;

    std::unique_ptr<sqlite3_vfs> vfs;
    QMap<QString, File> files;
    Fault fault = Fault::InputOutput;
    Count count = Count::Writing;
    int target = 0; // 0: disarmed
    int counted = 0;
    bool islasting = false;
    bool struck = false;
};
