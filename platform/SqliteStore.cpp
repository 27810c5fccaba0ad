// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "platform/SqliteStore.h"

#include "platform/SqliteStatement.h"

#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr qint64 storeVersion = 1;
// How long another process's lock is waited for: long enough for the save of a program that is just ending.
constexpr int patience = 1000;

constexpr const char *valueQuery = "SELECT value FROM defaults WHERE key = ?1";

void syncFolder(const QString &folder)
{
    const int handle = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle >= 0) {
        ::fsync(handle); // a file system that cannot do it has no better way either
        ::close(handle);
    }
}

// The folder and those above it, each for its owner alone, as far as they are missing.
bool makeFolder(const QString &folder)
{
    const QByteArray name = QFile::encodeName(folder);
    const QString parent = QFileInfo(folder).path();
    if (::mkdir(name.constData(), 0700) != 0) {
        if (errno == EEXIST)
            return true;
        if (errno != ENOENT || parent == folder || !makeFolder(parent) || ::mkdir(name.constData(), 0700) != 0)
            return false;
    }
    syncFolder(parent);
    return true;
}

// What the name stands for, without its times: a file whose times were looked at gets a new one with its next write,
// and a save, which has to put that on the disk too, then takes a quarter longer.
bool look(const QByteArray &name, struct statx &status)
{
    return ::statx(AT_FDCWD, name.constData(), 0, STATX_TYPE | STATX_INO | STATX_SIZE, &status) == 0;
}

SqliteStore::Identity identityOf(const struct statx &status)
{
    return {status.stx_dev_major, status.stx_dev_minor, status.stx_ino};
}

} // namespace

SqliteStore::SqliteStore(const QString &storePath)
    : path(storePath)
{ }

SqliteStore::~SqliteStore()
{
    close();
}

void SqliteStore::close()
{
    sqlite3_close(database);
    database = nullptr;
}

SqliteStore::State SqliteStore::open()
{
    if (database != nullptr)
        return State::Ready;
    const QByteArray name = QFile::encodeName(path);
    struct statx status { };
    if (!look(name, status))
        return errno == ENOENT ? State::Missing : State::Unavailable;
    if (!S_ISREG(status.stx_mode))
        return State::Unavailable;
    if (status.stx_size == 1) // SQLite takes a file of one byte for an empty one
        return setAside() ? State::Missing : State::Unavailable;
    identity = identityOf(status);
    int result = sqlite3_open_v2(name.constData(), &database, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    if (result == SQLITE_OK) {
        sqlite3_busy_timeout(database, haswaited ? 0 : patience);
        result = examine();
    }
    if (result == SQLITE_OK) {
        sqlite3_busy_timeout(database, patience);
        return State::Ready;
    }
    haswaited = haswaited || result == SQLITE_BUSY;
    if (isUnusable(result) && setAside())
        return State::Missing;
    close();
    return State::Unavailable;
}

// Sets the connection up and looks whether the file is a store; SQLITE_NOTADB when it is surely none.
int SqliteStore::examine()
{
    // The temporary store is memory so that no file but the store and its journal is ever written.
    if (const int result = execute("PRAGMA locking_mode = EXCLUSIVE; PRAGMA synchronous = EXTRA;"
                                   "PRAGMA temp_store = MEMORY");
        result != SQLITE_OK)
        return result;
    SqliteStatement version(database, "PRAGMA user_version");
    if (const int result = version.step(); result != SQLITE_ROW)
        return result; // GCOVR_EXCL_LINE: the pragmas before it have read the file
    if (version.integer(0) < 0 || version.integer(0) > storeVersion)
        return SQLITE_NOTADB;
    SqliteStatement table(database, "SELECT count(*) FROM sqlite_master WHERE name = 'defaults' COLLATE NOCASE");
    if (const int result = table.step(); result != SQLITE_ROW)
        return result; // GCOVR_EXCL_LINE: the pragmas before it have read the file
    hastable = table.integer(0) != 0;
    if (!hastable)
        return SQLITE_OK;
    SqliteStatement probe(database, valueQuery);
    const int result = probe.step();
    if (result == SQLITE_ERROR)
        return SQLITE_NOTADB; // the table lacks the columns
    return result == SQLITE_ROW || result == SQLITE_DONE ? SQLITE_OK : result;
}

bool SqliteStore::create() const
{
    const QString folder = QFileInfo(path).absolutePath();
    if (!makeFolder(folder))
        return false;
    // SQLite would let everybody read the file. The journal takes the file's mode.
    const int file = ::open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (file < 0)
        return false;
    ::close(file);
    syncFolder(folder);
    return true;
}

// SQLite, which keeps its journal open, does not notice that somebody took the file away or put another in its place.
bool SqliteStore::isReplaced() const
{
    struct statx status { };
    return !look(QFile::encodeName(path), status) || identityOf(status) != identity;
}

bool SqliteStore::isUnusable(int result)
{
    if (result == SQLITE_NOTADB)
        return true;
    if (result != SQLITE_CORRUPT)
        return false;
    // Judged on a new connection: what this one has in memory may be of a save that broke off, or of what the file held
    // before something else was written over it. One that cannot be opened tells nothing.
    close();
    sqlite3_open_v2(
        QFile::encodeName(path).constData(), &database, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    SqliteStatement check(database, "PRAGMA integrity_check(1)");
    const int verdict = check.step();
    if (verdict == SQLITE_ROW)
        return check.text(0) != QLatin1String("ok");
    return verdict == SQLITE_CORRUPT || verdict == SQLITE_NOTADB;
}

bool SqliteStore::setAside()
{
    close();
    // The journal comes before the store: it would be played back into the next one of this name.
    const QStringList parts = {QStringLiteral("-journal"), QStringLiteral("-wal"), QStringLiteral("-shm"), QString()};
    const auto isTaken = [&parts](const QString &name) {
        return std::any_of(parts.begin(), parts.end(), [&name](const QString &part) {
            return QFileInfo(name + part).isSymLink() || QFileInfo::exists(name + part);
        });
    };
    QString aside = path + QStringLiteral(".unusable");
    for (int number = 2; isTaken(aside); ++number)
        aside = path + QStringLiteral(".unusable-%1").arg(number);
    for (const QString &part : parts) {
        if (QFileInfo::exists(path + part) && !QFile::rename(path + part, aside + part))
            return false;
    }
    syncFolder(QFileInfo(path).absolutePath());
    return true;
}

SqliteStore::Answer SqliteStore::ask(const std::function<int()> &question)
{
    // What fails on a connection that has been open for long is tried once more on a new one.
    for (bool again = database != nullptr;; again = false) {
        const State state = open();
        if (state == State::Unavailable)
            return Answer::Unavailable;
        if (state == State::Missing || !hastable)
            return Answer::Absent;
        const int result = question();
        if (result == SQLITE_OK)
            return Answer::Found;
        if (isUnusable(result) && setAside())
            return Answer::Absent;
        close();
        if (!again)
            return Answer::Unavailable;
    }
}

SqliteStore::Value SqliteStore::read(const QString &key)
{
    std::optional<QByteArray> value;
    const Answer answer = ask([&] { return get(key, value); });
    if (answer == Answer::Found && !value)
        return {Answer::Absent, {}};
    return {answer, value.value_or(QByteArray())};
}

std::optional<QStringList> SqliteStore::keys()
{
    QStringList keys;
    const Answer answer = ask([&] {
        keys.clear();
        SqliteStatement query(database, "SELECT key FROM defaults ORDER BY key");
        int result = query.step();
        for (; result == SQLITE_ROW; result = query.step())
            keys.append(query.text(0));
        return result == SQLITE_DONE ? SQLITE_OK : result;
    });
    if (answer == Answer::Unavailable)
        return std::nullopt;
    return keys;
}

bool SqliteStore::write(const QStringList &keys, const Decision &decide)
{
    haswaited = false;
    if (database != nullptr && isReplaced())
        close();
    // A connection that has been open for long may have lost its file, or hold on to an error that is over: what fails
    // on such a one is tried once more on a new one.
    bool again = database != nullptr;
    for (int attempt = 0; attempt < 2; ++attempt) {
        State state = open();
        if (state == State::Missing && create())
            state = open();
        if (state != State::Ready)
            return false;
        const int result = commit(keys, decide);
        if (result == SQLITE_OK)
            return true;
        const bool isaside = isUnusable(result) && setAside();
        close();
        again = isaside || (again && result != SQLITE_BUSY);
        if (!again)
            return false;
    }
    return false;
}

int SqliteStore::commit(const QStringList &keys, const Decision &decide)
{
    int result = execute("BEGIN IMMEDIATE");
    if (result == SQLITE_OK)
        result = apply(keys, decide);
    if (result == SQLITE_OK)
        result = execute("COMMIT");
    if (result == SQLITE_OK)
        hastable = true;
    return result; // a failed one is rolled back when its connection is closed, and it always is
}

int SqliteStore::apply(const QStringList &keys, const Decision &decide)
{
    if (!hastable) {
        const int result
            = execute("CREATE TABLE defaults(key TEXT PRIMARY KEY, value BLOB NOT NULL); PRAGMA user_version = 1");
        if (result != SQLITE_OK)
            return result;
    }
    for (const QString &key : keys) {
        std::optional<QByteArray> stored;
        if (const int result = get(key, stored); result != SQLITE_OK)
            return result;
        const Change change = decide(key, stored);
        for (const QByteArray &copy : change.copies) {
            if (const int result = keepCopy(key, copy); result != SQLITE_OK)
                return result;
        }
        if (const int result = put(key, change.value); result != SQLITE_OK)
            return result;
    }
    return SQLITE_OK;
}

QString SqliteStore::copyName(const QString &key, int number)
{
    const QString name = key + QStringLiteral(".unread");
    return number == 1 ? name : name + u'.' + QString::number(number);
}

int SqliteStore::keepCopy(const QString &key, const QByteArray &value)
{
    for (int number = 1;; ++number) {
        const QString name = copyName(key, number);
        std::optional<QByteArray> taken;
        if (const int result = get(name, taken); result != SQLITE_OK)
            return result;
        if (!taken)
            return put(name, value);
        if (*taken == value)
            return SQLITE_OK;
    }
}

int SqliteStore::get(const QString &key, std::optional<QByteArray> &value)
{
    SqliteStatement query(database, valueQuery);
    const int result = query.bind(1, key).step();
    if (result == SQLITE_ROW)
        value = query.blob(0);
    return result == SQLITE_ROW || result == SQLITE_DONE ? SQLITE_OK : result;
}

int SqliteStore::put(const QString &key, const QByteArray &value)
{
    SqliteStatement statement(database,
        "INSERT INTO defaults(key, value) VALUES(?1, ?2) ON CONFLICT(key) DO UPDATE SET value = excluded.value");
    const int result = statement.bind(1, key).bind(2, value).step();
    return result == SQLITE_DONE ? SQLITE_OK : result;
}

int SqliteStore::execute(const char *sql)
{
    return sqlite3_exec(database, sql, nullptr, nullptr, nullptr) & 0xff;
}
