// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "platform/SqliteStore.h"

#include "platform/SqliteStatement.h"

#include <QFile>

#include <sqlite3.h>

namespace {

constexpr qint64 storeVersion = 1;
// How long another process's lock is waited for: long enough for the save of a program that is just ending.
constexpr int patience = 1000;

// Where the file says for which version of the format it may be written, and the newest one that SQLite writes.
constexpr int writeVersionAt = 18;
constexpr unsigned char newestWriteVersion = 2;

constexpr const char *valueQuery = "SELECT value FROM defaults WHERE key = ?1";

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
    valuestatement.reset();
    sqlite3_close(database);
    database = nullptr;
}

SqliteStore::State SqliteStore::open()
{
    if (database != nullptr)
        return State::Ready;
    const StoreFile::Look file = StoreFile::look(path);
    if (file.kind != StoreFile::Look::Kind::Regular)
        return file.kind == StoreFile::Look::Kind::Missing ? State::Missing : State::Unavailable;
    StoreFile::makePrivate(path);
    if (file.size == 1) // SQLite takes a file of one byte for an empty one
        return setAside() ? State::Missing : State::Unavailable;
    identity = file.identity;
    int result = sqlite3_open_v2(
        QFile::encodeName(path).constData(), &database, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    if (result == SQLITE_OK) {
        sqlite3_busy_timeout(database, haswaited ? 0 : patience);
        result = examine();
        if (result == SQLITE_ERROR)
            result = SQLITE_NOTADB;
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

// Sets the connection up and looks whether the file is a store; SQLITE_NOTADB when it is surely none, SQLITE_ERROR when
// its schema or its format is not ours.
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
    return result == SQLITE_ROW || result == SQLITE_DONE ? SQLITE_OK : result;
}

// SQLite, which keeps its journal open, does not notice that somebody took the file away or put another in its place.
bool SqliteStore::isReplaced() const
{
    const StoreFile::Look file = StoreFile::look(path);
    return file.kind != StoreFile::Look::Kind::Regular || file.identity != identity;
}

bool SqliteStore::isUnusable(int result)
{
    if (result == SQLITE_NOTADB)
        return true;
    if (result != SQLITE_CORRUPT && result != SQLITE_MISMATCH)
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
    return StoreFile::setAside(path);
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

bool SqliteStore::scan(const QString &first, const QString &last, const Row &row)
{
    std::optional<QString> handed; // a second attempt goes on after it
    const Answer answer = ask([&] {
        SqliteStatement query(database, "SELECT key, value FROM defaults WHERE key BETWEEN ?1 AND ?2 ORDER BY key");
        query.bind(1, handed.value_or(first)).bind(2, last);
        int result = query.step();
        for (; result == SQLITE_ROW; result = query.step()) {
            const QString key = query.text(0);
            if (handed == key)
                continue;
            row(key, query.blob(1));
            handed = key;
        }
        return result == SQLITE_DONE ? SQLITE_OK : result;
    });
    return answer != Answer::Unavailable;
}

bool SqliteStore::write(const QStringList &keys, const Decision &decide)
{
    haswaited = false;
    if (database != nullptr && isReplaced())
        close();
    // A connection that has been open for long may have lost its file, or hold on to an error that is over: what fails
    // on such a one is tried once more on a new one, and once more in a new file when the former was set aside.
    for (int attempt = 0; attempt < 3; ++attempt) {
        const bool isnew = database == nullptr;
        State state = open();
        if (state == State::Missing && StoreFile::create(path))
            state = open();
        if (state != State::Ready)
            return false;
        int result = commit(keys, decide);
        if (result == SQLITE_OK)
            return true;
        if (isRefusal(result, isnew))
            result = SQLITE_NOTADB;
        const bool isaside = isUnusable(result) && setAside();
        close();
        if (!isaside && (isnew || result == SQLITE_BUSY))
            return false;
    }
    return false; // GCOVR_EXCL_LINE: only where a new file is unusable as well
}

// Whether the file can be read and will never be written, whoever tries: a view in place of the table, a table without
// a unique key, one with another column to fill or a trigger against it, a header that forbids it. Statements that a
// new connection refuses would be refused again; what is read-only for its permissions is another matter.
bool SqliteStore::isRefusal(int result, bool isnew)
{
    if (result == SQLITE_READONLY) {
        // Through SQLite: to close the file after reading it ourselves would take its locks away.
        sqlite3_file *file = nullptr;
        unsigned char version = 0;
        return sqlite3_file_control(database, "main", SQLITE_FCNTL_FILE_POINTER, &file) == SQLITE_OK
            && file->pMethods->xRead(file, &version, 1, writeVersionAt) == SQLITE_OK && version > newestWriteVersion;
    }
    return isnew && (result == SQLITE_ERROR || result == SQLITE_CONSTRAINT || result == SQLITE_MISMATCH);
}

int SqliteStore::commit(const QStringList &keys, const Decision &decide)
{
    written.clear();
    int result = execute("BEGIN IMMEDIATE");
    if (result == SQLITE_OK)
        result = apply(keys, decide);
    if (result == SQLITE_OK)
        result = execute("COMMIT");
    if (result == SQLITE_OK) {
        hastable = true;
        result = readBack();
    }
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

// Damage that no read has met may still lead a save astray, over other values or to where no search finds it. What is
// in memory would not tell, so it is dropped first. SQLITE_MISMATCH when something is not there as it was written.
int SqliteStore::readBack()
{
    sqlite3_db_release_memory(database);
    for (auto value = written.constBegin(); value != written.constEnd(); ++value) {
        std::optional<QByteArray> found;
        if (const int result = get(value.key(), found); result != SQLITE_OK)
            return result;
        if (found != *value)
            return SQLITE_MISMATCH;
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
    if (!valuestatement)
        valuestatement.emplace(database, valueQuery);
    const int result = valuestatement->bind(1, key).step();
    if (result == SQLITE_ROW)
        value = valuestatement->blob(0);
    valuestatement->rewind();
    if (result == SQLITE_ROW || result == SQLITE_DONE)
        return SQLITE_OK;
    valuestatement.reset();
    return result;
}

int SqliteStore::put(const QString &key, const QByteArray &value)
{
    SqliteStatement statement(database,
        "INSERT INTO defaults(key, value) VALUES(?1, ?2) ON CONFLICT(key) DO UPDATE SET value = excluded.value");
    const int result = statement.bind(1, key).bind(2, value).step();
    written.insert(key, value);
    return result == SQLITE_DONE ? SQLITE_OK : result;
}

int SqliteStore::execute(const char *sql)
{
    return sqlite3_exec(database, sql, nullptr, nullptr, nullptr) & 0xff;
}
