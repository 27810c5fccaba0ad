// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "platform/StoreCopy.h"

#include "platform/SqliteStatement.h"

#include <QFile>
#include <QFileInfo>
#include <QThread>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using Result = StoreCopy::Result;

constexpr int attempts = 50;
constexpr unsigned long pauseMilliseconds = 20;

constexpr qint64 storeVersion = 1;
// Where a database's header says that it is written by way of a log (2) or of a journal (1).
constexpr qint64 writeVersionAt = 18;
constexpr qint64 headerSize = 100;

// The bytes that SQLite's locks are on.
constexpr off_t firstLockByte = 0x40000000;
constexpr off_t lockBytes = 512;

struct SqliteFree {
    void operator()(unsigned char *bytes) const { sqlite3_free(bytes); }
};
using Bytes = std::unique_ptr<unsigned char, SqliteFree>;

// An open regular file; a pipe would be waited for.
class RegularFile final {
public:
    explicit RegularFile(const QByteArray &path)
        : descriptor(::open(path.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC))
        , error(descriptor < 0 ? errno : 0)
    {
        struct stat status { };
        if (descriptor < 0 || ::fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode))
            return;
        isregular = true;
        length = status.st_size;
    }
    ~RegularFile()
    {
        if (descriptor >= 0)
            ::close(descriptor);
    }
    Q_DISABLE_COPY_MOVE(RegularFile)

    [[nodiscard]] bool isMissing() const { return error == ENOENT; }
    [[nodiscard]] bool isRegular() const { return isregular; }
    [[nodiscard]] qint64 size() const { return length; }

    // How many bytes there are from a place on, up to so many; negative on an error.
    [[nodiscard]] qint64 read(unsigned char *buffer, qint64 count, qint64 at) const
    {
        qint64 done = 0;
        while (done < count) {
            const ssize_t some = ::pread(descriptor, buffer + done, static_cast<std::size_t>(count - done), at + done);
            if (some < 0 && errno == EINTR)
                continue; // GCOVR_EXCL_LINE: no signal interrupts the reading of a local file
            if (some <= 0)
                return some < 0 ? -1 : done;
            done += some;
        }
        return done;
    }

    [[nodiscard]] bool holdsExactly(const unsigned char *bytes, qint64 count) const
    {
        std::array<unsigned char, 65536> part{};
        for (qint64 at = 0;; at += qint64(part.size())) {
            const qint64 wanted = std::min(qint64(part.size()), count - at);
            // One byte more at the end, where there should be none.
            const qint64 got = read(part.data(), std::max(wanted, qint64(1)), at);
            if (wanted <= 0)
                return got == 0;
            if (got != wanted || std::memcmp(part.data(), bytes + at, static_cast<std::size_t>(wanted)) != 0)
                return false;
        }
    }

    // Whether another process has one of SQLite's locks on it. Asking takes none.
    [[nodiscard]] bool isLocked() const
    {
        struct flock lock { };
        lock.l_type = F_WRLCK;
        lock.l_whence = SEEK_SET;
        lock.l_start = firstLockByte;
        lock.l_len = lockBytes;
        return ::fcntl(descriptor, F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
    }

private:
    int descriptor;
    int error;
    bool isregular = false;
    qint64 length = 0;
};

// Whether a save is going on, or broke off: a journal that begins with a zero is one that its owner is done with.
bool isBeingWritten(const QByteArray &path)
{
    unsigned char first = 0;
    const RegularFile journal(path + "-journal");
    if (!journal.isMissing() && (!journal.isRegular() || (journal.read(&first, 1, 0) != 0 && first != 0)))
        return true;
    const RegularFile log(path + "-wal");
    return !log.isMissing() && (!log.isRegular() || log.size() > 0);
}

} // namespace

StoreCopy::~StoreCopy()
{
    close();
}

void StoreCopy::close()
{
    sqlite3_close(database);
    database = nullptr;
    hastable = false;
}

StoreCopy::Result StoreCopy::read(const QString &path)
{
    const QString target = QFileInfo(path).canonicalFilePath(); // a journal lies beside the file itself, not a link
    const QByteArray file = QFile::encodeName(target.isEmpty() ? path : target);
    Result result = attempt(file);
    // What looks damaged while somebody has it open may be in the middle of a save without a journal.
    const auto mayPass = [&] { return result == Result::Unfinished || (result == Result::Unusable && inuse); };
    for (int tried = 1; tried < attempts && mayPass(); ++tried) {
        QThread::msleep(pauseMilliseconds);
        result = attempt(file);
    }
    return result;
}

StoreCopy::Result StoreCopy::attempt(const QByteArray &path)
{
    close();
    const RegularFile file(path);
    if (!file.isRegular())
        return file.isMissing() ? Result::Missing : Result::Unreadable;
    inuse = file.isLocked();
    const qint64 size = file.size();
    Bytes bytes(
        static_cast<unsigned char *>(sqlite3_malloc64(static_cast<sqlite3_uint64>(std::max(size, headerSize)))));
    if (!bytes || file.read(bytes.get(), size, 0) < 0)
        return Result::Unreadable; // GCOVR_EXCL_LINE: only for 2 GiB, without memory or on a failing disk
    // The same bytes before and after a moment at which nobody was writing are those of that moment.
    if (isBeingWritten(path) || !file.holdsExactly(bytes.get(), size))
        return Result::Unfinished;
    if (size == 0)
        return Result::Read;
    if (size < headerSize)
        return Result::Unusable;
    // In memory there are only journals. A log whose contents are in the file by now makes no difference.
    for (const qint64 at : {writeVersionAt, writeVersionAt + 1})
        bytes.get()[at] = std::min(bytes.get()[at], static_cast<unsigned char>(1));
    if (sqlite3_open_v2(":memory:", &database, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr) != SQLITE_OK
        || sqlite3_deserialize(database, "main", bytes.release(), size, size,
               SQLITE_DESERIALIZE_FREEONCLOSE | SQLITE_DESERIALIZE_READONLY)
            != SQLITE_OK)
        return Result::Unreadable; // GCOVR_EXCL_LINE: only without memory
    return examine();
}

StoreCopy::Result StoreCopy::examine()
{
    SqliteStatement check(database, "PRAGMA integrity_check(1)");
    if (check.step() != SQLITE_ROW || check.text(0) != QLatin1String("ok"))
        return Result::Unusable;
    SqliteStatement version(database, "PRAGMA user_version");
    if (version.step() != SQLITE_ROW || version.integer(0) < 0 || version.integer(0) > storeVersion)
        return Result::Unusable;
    SqliteStatement table(database, "SELECT count(*) FROM sqlite_master WHERE name = 'defaults' COLLATE NOCASE");
    if (table.step() != SQLITE_ROW)
        return Result::Unusable; // GCOVR_EXCL_LINE: the check before it has read the file
    hastable = table.integer(0) != 0;
    const bool isours = scan(QString(), QString(), [](const QString &, const QByteArray &) {});
    return isours ? Result::Read : Result::Unusable;
}

bool StoreCopy::scan(const QString &first, const QString &last, const Row &row) const
{
    if (!hastable)
        return true;
    SqliteStatement query(database, "SELECT key, value FROM defaults WHERE key BETWEEN ?1 AND ?2 ORDER BY key");
    query.bind(1, first).bind(2, last);
    std::optional<QString> former; // a table that is not ours may have a key twice
    int result = query.step();
    for (; result == SQLITE_ROW; result = query.step()) {
        const QString key = query.text(0);
        if (key != former)
            row(key, query.blob(1));
        former = key;
    }
    return result == SQLITE_DONE;
}
