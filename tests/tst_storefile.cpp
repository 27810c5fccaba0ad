// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "platform/StoreFile.h"
#include "support/StoreHome.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

bool renamesalways = false; // the file system knows no rename that replaces nothing
bool cannotlink = false;

mode_t modeOf(const QString &path)
{
    struct stat status { };
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_mode & 07777U : 0U;
}

void setMode(const QString &path, mode_t mode)
{
    QCOMPARE(::chmod(QFile::encodeName(path).constData(), mode), 0);
}

// An environment variable while it lives; null is unset.
class Variable final {
public:
    Variable(const char *variable, const char *value)
        : name(variable)
        , wasset(qEnvironmentVariableIsSet(variable))
        , former(qgetenv(variable))
    {
        value != nullptr ? qputenv(name, value) : qunsetenv(name);
    }
    ~Variable() { wasset ? qputenv(name, former) : qunsetenv(name); }
    Q_DISABLE_COPY_MOVE(Variable)

private:
    const char *name;
    bool wasset;
    QByteArray former;
};

} // namespace

// In place of the C library's: the file system of the tests can do all of it.
extern "C" int renameat2(int fromfolder, const char *from, int tofolder, const char *to, unsigned flags) noexcept
{
    if (renamesalways && flags != 0) {
        errno = EINVAL;
        return -1;
    }
    return int(::syscall(SYS_renameat2, fromfolder, from, tofolder, to, flags));
}

extern "C" int link(const char *from, const char *to) noexcept
{
    if (cannotlink) {
        errno = EPERM;
        return -1;
    }
    return ::linkat(AT_FDCWD, from, AT_FDCWD, to, 0);
}

// Where the store's file is, who may see it, and how it is moved out of the way.
class StoreFileTest final : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<StoreHome> place;
    QString path;

private slots:
    void init()
    {
        place = std::make_unique<StoreHome>();
        path = place->path;
        renamesalways = false;
        cannotlink = false;
    }

    void cleanup() { place.reset(); }

    void theStoreIsWhereTheVariablesSay_data()
    {
        QTest::addColumn<QByteArray>("data"); // null: unset
        QTest::addColumn<QByteArray>("home");
        QTest::addColumn<QByteArray>("folder");
        const QByteArray unset;
        const passwd *person = ::getpwuid(::getuid());
        QVERIFY(person != nullptr);
        const QByteArray own = QByteArray(person->pw_dir) + "/.local/share";
        QTest::newRow("the data folder") << QByteArray("/data") << QByteArray("/home/eve") << QByteArray("/data");
        QTest::newRow("home") << unset << QByteArray("/home/eve") << QByteArray("/home/eve/.local/share");
        QTest::newRow("home is the root") << unset << QByteArray("/") << QByteArray("/.local/share");
        QTest::newRow("letters beyond ASCII")
            << unset << QByteArray("/home/\xc3\xa9ve") << QByteArray("/home/\xc3\xa9ve/.local/share");
        QTest::newRow("a relative data folder")
            << QByteArray("data") << QByteArray("/home/eve") << QByteArray("/home/eve/.local/share");
        QTest::newRow("a data folder that is no text")
            << QByteArray("/data/\xe9") << QByteArray("/home/eve") << QByteArray("/home/eve/.local/share");
        QTest::newRow("no home") << unset << unset << own;
        QTest::newRow("an empty home") << unset << QByteArray("") << own;
        QTest::newRow("a relative home") << unset << QByteArray("home/eve") << own;
        QTest::newRow("a home that is no text") << unset << QByteArray("/home/\xe9ve") << own;
    }

    void theStoreIsWhereTheVariablesSay()
    {
        QFETCH(QByteArray, data);
        QFETCH(QByteArray, home);
        QFETCH(QByteArray, folder);
        const Variable datahome("XDG_DATA_HOME", data.isNull() ? nullptr : data.constData());
        const Variable person("HOME", home.isNull() ? nullptr : home.constData());
        QCOMPARE(UserDefaults::standardStorePath().toUtf8(), folder + "/provender/preferences.sqlite");
    }

    void aStoreThatOthersMayReadIsTakenFromThem_data()
    {
        QTest::addColumn<uint>("file");
        QTest::addColumn<uint>("folder");
        QTest::addColumn<uint>("filethen");
        QTest::addColumn<uint>("folderthen");
        QTest::newRow("as a copy is made") << 0644U << 0755U << 0600U << 0700U;
        QTest::newRow("everybody's") << 0777U << 0777U << 0600U << 0700U;
        QTest::newRow("read-only stays so") << 0444U << 0755U << 0400U << 0700U;
        QTest::newRow("one's own already") << 0600U << 0700U << 0600U << 0700U;
    }

    void aStoreThatOthersMayReadIsTakenFromThem()
    {
        QFETCH(uint, file);
        QFETCH(uint, folder);
        UserDefaults(path).setObject(1, day);
        setMode(path, file);
        setMode(place->folder, folder);
        setMode(place->home.path(), 0755);
        QCOMPARE(place->stored(day), number(1));
        QTEST(uint(modeOf(path)), "filethen");
        QTEST(uint(modeOf(place->folder)), "folderthen");
        QCOMPARE(uint(modeOf(place->home.path())), 0755U); // no folder of ours
    }

    void aFolderOfAnotherNameOrBeyondALinkKeepsItsMode()
    {
        const QString other = place->home.filePath(QStringLiteral("other"));
        QVERIFY(QDir().mkdir(other) && QDir().rmdir(place->folder) && QFile::link(other, place->folder));
        setMode(other, 0755);
        UserDefaults(path).setObject(1, day);
        QCOMPARE(UserDefaults(other + QStringLiteral("/preferences.sqlite")).objectForKey(day), number(1));
        QCOMPARE(uint(modeOf(other)), 0755U);
    }

    void anotherOnesStoreKeepsItsMode()
    {
        if (::geteuid() != 0)
            QSKIP("only root can give a file away");
        UserDefaults(path).setObject(1, day);
        QCOMPARE(::chown(QFile::encodeName(path).constData(), 65534, 65534), 0);
        setMode(path, 0644);
        QCOMPARE(place->stored(day), number(1));
        QCOMPARE(uint(modeOf(path)), 0644U);
    }

    void aJournalThatIsNoRegularFileIsNeverOpened_data()
    {
        QTest::addColumn<QString>("part");
        QTest::addColumn<bool>("isstored");
        QTest::addColumn<bool>("islinked");
        for (const char *part : {"-journal", "-wal", "-shm"})
            QTest::newRow(part) << QString::fromLatin1(part) << true << false;
        QTest::newRow("before there is a store") << QStringLiteral("-journal") << false << false;
        QTest::newRow("beside what the store links to") << QStringLiteral("-journal") << true << true;
    }

    void aJournalThatIsNoRegularFileIsNeverOpened()
    {
        QFETCH(QString, part);
        QFETCH(bool, isstored);
        QFETCH(bool, islinked);
        if (isstored)
            UserDefaults(path).setObject(1, day);
        const QString file = islinked ? place->home.filePath(QStringLiteral("elsewhere")) : path;
        if (islinked)
            QVERIFY(QFile::rename(path, file) && QFile::link(file, path));
        QCOMPARE(::mkfifo(QFile::encodeName(file + part).constData(), 0600), 0);
        {
            UserDefaults defaults(path);
            QVERIFY(!defaults.objectForKey(day).isValid());
            defaults.setObject(2, day);
            QVERIFY(!defaults.synchronize());
            QVERIFY(QFile::remove(file + part));
        }
        QCOMPARE(place->stored(day), number(2));
    }

    void aJournalThatBecomesAPipeIsNotOpenedByTheNextSave()
    {
        UserDefaults(path).setObject(1, day);
        UserDefaults defaults(path);
        QCOMPARE(defaults.objectForKey(day), number(1));
        QCOMPARE(::mkfifo(QFile::encodeName(path + QStringLiteral("-journal")).constData(), 0600), 0);
        defaults.setObject(2, day);
        QVERIFY(!defaults.synchronize());
        QVERIFY(QFile::remove(path + QStringLiteral("-journal")));
        QVERIFY(defaults.synchronize());
    }

    void settingAsideReplacesAndCopiesNothing_data()
    {
        QTest::addColumn<bool>("links");
        QTest::newRow("by a rename") << false;
        QTest::newRow("by a link") << true;
    }

    void settingAsideReplacesAndCopiesNothing()
    {
        QFETCH(bool, links);
        renamesalways = links;
        writeFile(path, "no database");
        writeFile(path + QStringLiteral("-journal"), "a journal");
        const quint64 inode = StoreFile::look(path).identity.inode;
        // Such a name leads to nothing and is taken all the same.
        QVERIFY(QFile::link(QStringLiteral("/nowhere"), place->aside("-wal")));
        QVERIFY(StoreFile::setAside(path));
        QCOMPARE(contentOf(place->aside("-2")), QByteArray("no database"));
        QCOMPARE(contentOf(place->aside("-2-journal")), QByteArray("a journal"));
        QCOMPARE(StoreFile::look(place->aside("-2")).identity.inode, inode);
        QCOMPARE(place->files().size(), 3);
    }

    void whereNothingCanBeRenamedTheStoreStaysWithItsJournal()
    {
        renamesalways = true;
        cannotlink = true;
        writeFile(path, "no database");
        writeFile(path + QStringLiteral("-journal"), QByteArray(28, '\0')); // finished, so not played back
        {
            UserDefaults defaults(path);
            defaults.setObject(1, day);
            QCOMPARE(defaults.objectForKey(day), number(1));
            QVERIFY(!defaults.synchronize());
            QCOMPARE(contentOf(path), QByteArray("no database"));
            QCOMPARE(place->files().join(u' '), QStringLiteral("preferences.sqlite preferences.sqlite-journal"));
            cannotlink = false;
        }
        QCOMPARE(place->stored(day), number(1));
        QCOMPARE(contentOf(place->aside()), QByteArray("no database"));
    }
};

QTEST_GUILESS_MAIN(StoreFileTest)
#include "tst_storefile.moc"
