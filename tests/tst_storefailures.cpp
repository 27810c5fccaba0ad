// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "platform/PropertyList.h"
#include "support/StoreHome.h"

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// Somebody whom permissions stop, unlike root.
class Unprivileged final {
public:
    Unprivileged()
        : isroot(::geteuid() == 0)
    {
        if (isroot && ::seteuid(nobody) != 0)
            qFatal("cannot become nobody");
    }
    ~Unprivileged()
    {
        if (isroot && ::seteuid(0) != 0)
            qFatal("cannot become root again");
    }
    Q_DISABLE_COPY_MOVE(Unprivileged)

    static constexpr uid_t nobody = 65534;

private:
    bool isroot;
};

void setMode(const QString &path, mode_t mode)
{
    QCOMPARE(::chmod(QFile::encodeName(path).constData(), mode), 0);
}

} // namespace

// What becomes of the user's values while a store that is whole cannot be read or written.
class StoreFailuresTest final : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<StoreHome> place;
    QString folder;
    QString path;

    [[nodiscard]] QVariant stored(const QString &key) const { return place->stored(key); }
    [[nodiscard]] QString aside(const char *tail = "") const { return place->aside(tail); }
    [[nodiscard]] QStringList files() const { return place->files(); }

    void handToNobody() const
    {
        if (::geteuid() != 0)
            return;
        QStringList all{place->home.path(), folder, path};
        for (const QString &name : all) {
            if (QFile::exists(name))
                QCOMPARE(::chown(QFile::encodeName(name).constData(), Unprivileged::nobody, Unprivileged::nobody), 0);
        }
    }

private slots:
    void init()
    {
        place = std::make_unique<StoreHome>();
        folder = place->folder;
        path = place->path;
    }

    void cleanup() { place.reset(); }

    void aLockedStoreIsNoDamageAndValuesWait()
    {
        UserDefaults(path).setObject(1, day);
        UserDefaults defaults(path);
        defaults.registerDefaults({{day, QStringLiteral("registered")}});
        {
            StoreView other(path);
            QVERIFY(other.run("BEGIN EXCLUSIVE"));
            QCOMPARE(defaults.objectForKey(day), QVariant(QStringLiteral("registered")));
            QElapsedTimer timer;
            timer.start();
            static_cast<void>(defaults.objectForKey(rdas));
            QVERIFY2(timer.elapsed() < 500, "only the first read waits for a lock");
            defaults.setObject(2, day);
            QCOMPARE(defaults.objectForKey(day), number(2));
            QVERIFY(other.run("COMMIT"));
            QCOMPARE(other.bytes(day), PropertyList::write(1).value());
        }
        defaults.setObject(3, rdas);
        QVERIFY(!QFile::exists(aside()));
        QCOMPARE(defaults.objectForKey(day), number(2));
        QVERIFY(defaults.synchronize());
    }

    void aFlagStaysAsItWasReadUntilTheNextWrite()
    {
        const QString flag = QStringLiteral("UseP");
        UserDefaults(path).setObject(true, flag);
        UserDefaults defaults(path);
        {
            StoreView other(path);
            QVERIFY(other.run("BEGIN EXCLUSIVE"));
            QVERIFY(!defaults.boolForKey(flag)); // nobody can tell what is stored
        }
        QVERIFY(!defaults.boolForKey(flag)); // from memory: the store would say yes by now
        defaults.setObject(1, day);
        QVERIFY(defaults.boolForKey(flag));
    }

    void aFlagSetWhileTheStoreIsLockedCountsAtOnce()
    {
        const QString flag = QStringLiteral("UseP");
        UserDefaults(path).setObject(1, day);
        UserDefaults defaults(path);
        StoreView other(path);
        QVERIFY(other.run("BEGIN EXCLUSIVE"));
        QVERIFY(!defaults.boolForKey(flag));
        defaults.setObject(true, flag);
        QVERIFY(defaults.boolForKey(flag));
        QVERIFY(other.run("COMMIT"));
    }

    void whatIsNoRegularFileIsLeftAlone_data()
    {
        QTest::addColumn<bool>("ispipe");
        QTest::newRow("a link to a device") << false;
        QTest::newRow("a pipe") << true;
    }

    void whatIsNoRegularFileIsLeftAlone()
    {
        QFETCH(bool, ispipe);
        QVERIFY(QDir().mkpath(folder));
        if (ispipe)
            QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
        else
            QVERIFY(QFile::link(QStringLiteral("/dev/null"), path));
        {
            UserDefaults defaults(path);
            QVERIFY(!defaults.objectForKey(day).isValid());
            defaults.setObject(1, day);
            QCOMPARE(defaults.objectForKey(day), number(1));
            QVERIFY(!defaults.synchronize());
        }
        QCOMPARE(QDir(folder).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot),
            QStringList{QStringLiteral("preferences.sqlite")});
        QVERIFY(QFile::remove(path));
    }

    void aLinkToNowhereIsNoStoreUntilItLeadsSomewhere()
    {
        QVERIFY(QDir().mkpath(folder));
        const QString elsewhere = place->home.filePath(QStringLiteral("elsewhere"));
        QVERIFY(QFile::link(elsewhere + QStringLiteral("/store"), path));
        UserDefaults defaults(path);
        defaults.setObject(1, day);
        QVERIFY(!defaults.synchronize());
        QVERIFY(QDir().mkpath(elsewhere));
        QVERIFY(defaults.synchronize());
        QVERIFY(QFile::exists(elsewhere + QStringLiteral("/store")));
    }

    void whatALockedStoreHeldIsKeptBesideWhatWasEnteredMeanwhile()
    {
        UserDefaults(path).setObject(1, day);
        {
            UserDefaults defaults(path);
            {
                StoreView other(path);
                QVERIFY(other.run("BEGIN EXCLUSIVE"));
                QVERIFY(!defaults.objectForKey(day).isValid());
            }
            defaults.setObject(2, day);
        }
        QCOMPARE(stored(day), number(2));
        QCOMPARE(stored(day + QStringLiteral(".unread")), number(1));
    }

    void aReaderInTheWayOnlyDelaysTheWrite()
    {
        UserDefaults(path).setObject(1, day);
        {
            UserDefaults defaults(path);
            StoreView other(path);
            {
                QVERIFY(other.run("BEGIN"));
                SqliteStatement reading(other.handle, "SELECT value FROM defaults");
                QCOMPARE(reading.step(), SQLITE_ROW);
                defaults.setObject(2, day);
                QVERIFY(!defaults.synchronize());
                QCOMPARE(defaults.objectForKey(day), number(2));
            }
            QVERIFY(other.run("COMMIT"));
            QVERIFY(defaults.synchronize());
        }
        QCOMPARE(stored(day), number(2));
    }

    void pendingValuesAreWrittenWhenTheDefaultsGo()
    {
        UserDefaults(path).setObject(1, day);
        {
            UserDefaults defaults(path);
            {
                StoreView other(path);
                QVERIFY(other.run("BEGIN EXCLUSIVE"));
                defaults.setObject(2, day);
            }
        }
        QCOMPARE(stored(day), number(2));
    }

    void aReadOnlyFolderIsReadAndValuesWait()
    {
        UserDefaults(path).setObject(1, day);
        handToNobody();
        const QByteArray before = contentOf(path);
        {
            const Unprivileged person;
            setMode(folder, 0500);
            UserDefaults defaults(path);
            QCOMPARE(defaults.objectForKey(day), number(1));
            defaults.setObject(2, day);
            QCOMPARE(defaults.objectForKey(day), number(2));
            QVERIFY(!defaults.synchronize());
            QCOMPARE(contentOf(path), before);
            setMode(folder, 0700);
            defaults.setObject(3, rdas);
        }
        QCOMPARE(stored(day), number(2));
        QCOMPARE(stored(rdas), number(3));
        QCOMPARE(files(), QStringList{QStringLiteral("preferences.sqlite")});
    }

    void aReadOnlyStoreIsReadAndValuesWait()
    {
        UserDefaults(path).setObject(1, day);
        handToNobody();
        const QByteArray before = contentOf(path);
        {
            const Unprivileged person;
            setMode(path, 0400);
            UserDefaults defaults(path);
            QCOMPARE(defaults.objectForKey(day), number(1));
            defaults.setObject(2, day);
            QCOMPARE(defaults.objectForKey(day), number(2));
            QCOMPARE(contentOf(path), before);
            setMode(path, 0600);
            QVERIFY(defaults.synchronize());
        }
        QCOMPARE(stored(day), number(2));
        QVERIFY(!QFile::exists(aside()));
    }

    void anUnreadableStoreIsNoDamage()
    {
        UserDefaults(path).setObject(1, day);
        handToNobody();
        {
            const Unprivileged person;
            setMode(path, 0000);
            UserDefaults defaults(path);
            QVERIFY(!defaults.objectForKey(day).isValid());
            defaults.setObject(2, day);
            QCOMPARE(defaults.objectForKey(day), number(2));
            setMode(path, 0600);
        }
        QCOMPARE(stored(day), number(2));
        QCOMPARE(stored(day + QStringLiteral(".unread")), number(1));
        QCOMPARE(files(), QStringList{QStringLiteral("preferences.sqlite")});
    }

    void aDamagedStoreInAReadOnlyFolderStaysAndValuesWait()
    {
        writeFile(path, "no database");
        writeFile(path + QStringLiteral("-journal"), QByteArray(28, '\0'));
        handToNobody();
        {
            const Unprivileged person;
            setMode(folder, 0500);
            UserDefaults defaults(path);
            defaults.setObject(2, day);
            QCOMPARE(defaults.objectForKey(day), number(2));
            QCOMPARE(contentOf(path), QByteArray("no database"));
            QVERIFY(QFile::exists(path + QStringLiteral("-journal")));
            setMode(folder, 0700);
        }
        QCOMPARE(contentOf(aside()), QByteArray("no database"));
        QVERIFY(QFile::exists(aside("-journal")));
        QCOMPARE(stored(day), number(2));
    }

    void aReadOnlyHomeWorksInMemory()
    {
        QVERIFY(QDir().rmdir(folder));
        handToNobody();
        {
            const Unprivileged person;
            setMode(place->home.path(), 0500);
            {
                UserDefaults defaults(path);
                defaults.setObject(1, day);
                UserDefaults::Transaction save(defaults);
                defaults.setObject(2, rdas);
                QVERIFY(!save.commit());
                QCOMPARE(defaults.objectForKey(day), number(1));
                QCOMPARE(defaults.objectForKey(rdas), number(2));
                setMode(place->home.path(), 0700);
                QVERIFY(defaults.synchronize());
            }
        }
        QCOMPARE(stored(day), number(1));
        QCOMPARE(stored(rdas), number(2));
    }

    void aFolderInPlaceOfTheStoreIsLeftAlone()
    {
        QVERIFY(QDir().mkdir(path));
        UserDefaults defaults(path);
        QVERIFY(!defaults.objectForKey(day).isValid());
        defaults.setObject(1, day);
        QCOMPARE(defaults.objectForKey(day), number(1));
        QVERIFY(!defaults.synchronize());
        QCOMPARE(files(), QStringList{QStringLiteral("preferences.sqlite")});
        QVERIFY(QDir().rmdir(path));
        QVERIFY(defaults.synchronize());
        QCOMPARE(defaults.objectForKey(day), number(1));
    }

    void aPipeInPlaceOfTheStoreIsNotWaitedFor()
    {
        QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
        UserDefaults defaults(path);
        defaults.setObject(1, day);
        QCOMPARE(defaults.objectForKey(day), number(1));
        QVERIFY(QFile::remove(path));
    }

    void aFileInPlaceOfTheFolderIsLeftAlone()
    {
        QVERIFY(QDir().rmdir(folder));
        writeFile(folder, "a file");
        UserDefaults defaults(path);
        defaults.setObject(1, day);
        QCOMPARE(defaults.objectForKey(day), number(1));
        QCOMPARE(contentOf(folder), QByteArray("a file"));
        QVERIFY(QFile::remove(folder));
        QVERIFY(defaults.synchronize());
    }

    void aFileThatMayNotGrowKeepsTheLastSavedState()
    {
        UserDefaults(path).setObject(1, day);
        const QVariant large(QByteArray(300000, 'x'));
        struct rlimit former { };
        QCOMPARE(::getrlimit(RLIMIT_FSIZE, &former), 0);
        const auto handler = std::signal(SIGXFSZ, SIG_IGN);
        {
            UserDefaults defaults(path);
            struct rlimit narrow = former;
            narrow.rlim_cur = 100000;
            QCOMPARE(::setrlimit(RLIMIT_FSIZE, &narrow), 0);
            defaults.setObject(large, day);
            const bool iswritten = defaults.synchronize();
            const QVariant answer = defaults.objectForKey(day);
            QCOMPARE(::setrlimit(RLIMIT_FSIZE, &former), 0);
            QVERIFY(!iswritten);
            QCOMPARE(answer, large);
            {
                const QString copy = place->home.filePath(QStringLiteral("copy.sqlite"));
                QVERIFY(QFile::copy(path, copy));
                if (QFile::exists(path + QStringLiteral("-journal")))
                    QVERIFY(QFile::copy(path + QStringLiteral("-journal"), copy + QStringLiteral("-journal")));
                QCOMPARE(UserDefaults(copy).objectForKey(day), number(1));
            }
            defaults.setObject(3, rdas);
        }
        std::signal(SIGXFSZ, handler);
        QCOMPARE(stored(day), large);
        QCOMPARE(stored(rdas), number(3));
        QCOMPARE(files(), QStringList{QStringLiteral("preferences.sqlite")});
    }

    void aStoreThatIsRemovedWhileOpenIsWrittenAnew()
    {
        UserDefaults(path).setObject(1, day);
        {
            UserDefaults defaults(path);
            QCOMPARE(defaults.objectForKey(day), number(1));
            QVERIFY(QFile::remove(path));
            defaults.setObject(2, day);
            defaults.setObject(3, rdas);
            QVERIFY(QFile::remove(path));
            defaults.setObject(4, rdas);
        }
        QVERIFY(!stored(day).isValid()); // it was on the disk, and somebody took it away
        QCOMPARE(stored(rdas), number(4));
    }
};

QTEST_GUILESS_MAIN(StoreFailuresTest)
#include "tst_storefailures.moc"
