// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "platform/PropertyList.h"
#include "platform/UserDefaults.h"

#include <QtTest>

#include <limits>
#include <sys/stat.h>

namespace {

const QString day = QStringLiteral("2015_05_11");

unsigned modeOf(const QString &path)
{
    struct stat status { };
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_mode & 07777U : 0U;
}

QVariantList records(int count)
{
    QVariantList list;
    for (int i = 0; i < count; ++i)
        list.append(QByteArray::number(i).repeated(50));
    return list;
}

} // namespace

// What the preferences answer, and that it is all in the file afterwards. Each test opens the store anew to look.
class UserDefaultsTest final : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> home;
    QString path;

    [[nodiscard]] QVariant stored(const QString &key) const { return UserDefaults(path).objectForKey(key); }

    [[nodiscard]] QByteArray fileBytes() const
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
    }

private slots:
    void theStoredKeysAreThoseThatWereSetAndThoseThatWait()
    {
        const QString other = QStringLiteral("RDAs");
        {
            UserDefaults defaults(path);
            defaults.registerDefaults({{QStringLiteral("UseP"), true}});
            QCOMPARE(defaults.storedKeys(), QStringList());
            defaults.setObject(1, other);
            defaults.setObject(1, day);
            UserDefaults::Transaction save(defaults);
            defaults.setObject(2, QStringLiteral("LastDate"));
            defaults.setObject(2, day);
            QCOMPARE(defaults.storedKeys(), (QStringList{day, QStringLiteral("LastDate"), other}));
        }
        QCOMPARE(UserDefaults(path).storedKeys(), (QStringList{day, other}));
    }

    void aRangeHandsOverEachKeyOnceInOrderWithWhatReadsAnswer()
    {
        UserDefaults defaults(path);
        const auto keysBetween = [&](const QString &first, const QString &last) {
            QStringList keys;
            const auto take = [&](const QString &key, const QByteArray &value) {
                keys.append(key + u'=' + PropertyList::read(value)->toString());
            };
            return defaults.peekRange(first, last, take) ? keys.join(u' ') : QStringLiteral("not whole");
        };
        QCOMPARE(keysBetween(QStringLiteral("a"), QStringLiteral("z")), QString());
        for (const char *key : {"b", "d", "f", "h", "k"})
            defaults.setObject(1, QLatin1String(key));
        UserDefaults::Transaction save(defaults);
        for (const char *key : {"a", "c", "d", "h", "i", "j"})
            defaults.setObject(2, QLatin1String(key));
        QCOMPARE(keysBetween(QStringLiteral("b"), QStringLiteral("i")), QStringLiteral("b=1 c=2 d=2 f=1 h=2 i=2"));
        QCOMPARE(keysBetween(QStringLiteral("j"), QStringLiteral("j")), QStringLiteral("j=2"));
        QCOMPARE(keysBetween(QStringLiteral("k"), QStringLiteral("z")), QStringLiteral("k=1"));
    }

    void init()
    {
        home = std::make_unique<QTemporaryDir>();
        path = home->filePath(QStringLiteral("share/provender/preferences.sqlite"));
    }

    void cleanup()
    {
        UserDefaults::setStandardUserDefaults(nullptr);
        home.reset();
    }

    void aNewStoreHoldsNothing()
    {
        const UserDefaults defaults(path);
        QVERIFY(!defaults.objectForKey(day).isValid());
        QVERIFY(!defaults.boolForKey(QStringLiteral("UseP")));
    }

    void lookingCreatesNoFile()
    {
        {
            UserDefaults defaults(path);
            defaults.registerDefaults({{QStringLiteral("UseP"), QStringLiteral("YES")}});
            QVERIFY(defaults.boolForKey(QStringLiteral("UseP")));
            QVERIFY(!defaults.objectForKey(day).isValid());
            QVERIFY(defaults.synchronize());
        }
        QVERIFY(QDir(home->path()).isEmpty());
    }

    void everyKindOfValueSurvivesTheRun_data()
    {
        QTest::addColumn<QVariant>("value");
        QTest::newRow("a text") << QVariant(QStringLiteral("YES"));
        QTest::newRow("a boolean") << QVariant(true);
        QTest::newRow("an integer") << QVariant(qint64(61));
        QTest::newRow("a float") << QVariant(2000.5F);
        QTest::newRow("a double") << QVariant(0.1);
        QTest::newRow("a date") << QVariant(QDateTime(QDate(2015, 5, 11), QTime(23, 59, 59, 7), Qt::UTC));
        QTest::newRow("data") << QVariant(QByteArray("\0\1\2", 3));
        QTest::newRow("an empty day") << QVariant(QVariantList());
        QTest::newRow("a day of 200 records") << QVariant(records(200));
        QTest::newRow("61 floats") << QVariant(QVariantList(61, 1.5F));
    }

    void everyKindOfValueSurvivesTheRun()
    {
        QFETCH(QVariant, value);
        {
            UserDefaults defaults(path);
            defaults.setObject(value, day);
            QCOMPARE(defaults.objectForKey(day), value);
        }
        QCOMPARE(stored(day), value);
        QCOMPARE(stored(day).typeId(), value.typeId());
    }

    void aValueIsOnTheDiskWhenItIsSet()
    {
        UserDefaults defaults(path);
        defaults.setObject(1, day);
        // A copy of the file, as it is while the store is still open.
        const QString copy = home->filePath(QStringLiteral("copy.sqlite"));
        QVERIFY(QFile::copy(path, copy));
        QCOMPARE(UserDefaults(copy).objectForKey(day), QVariant(qint64(1)));
    }

    void aLaterValueReplacesAnEarlierOne()
    {
        {
            UserDefaults defaults(path);
            defaults.setObject(records(20), day);
            defaults.setObject(records(3), day);
            QCOMPARE(defaults.objectForKey(day), QVariant(records(3)));
        }
        QCOMPARE(stored(day), QVariant(records(3)));
    }

    void keysAreComparedExactly()
    {
        const QStringList keys{QStringLiteral("usep"), QStringLiteral("UseP"), QStringLiteral("UseP "), QString(),
            QStringLiteral(u"\u00e9"), QStringLiteral(u"e\u0301"), QStringLiteral("%"), QStringLiteral("a'b")};
        {
            UserDefaults defaults(path);
            for (int i = 0; i < keys.size(); ++i)
                defaults.setObject(i, keys.at(i));
        }
        for (int i = 0; i < keys.size(); ++i)
            QCOMPARE(stored(keys.at(i)), QVariant(qint64(i)));
    }

    void registeredDefaultsAnswerOnlyWhereNothingIsStored()
    {
        const QString units = QStringLiteral("ShowXNutrients");
        UserDefaults defaults(path);
        defaults.registerDefaults({{units, 61}, {day, QStringLiteral("first")}});
        QCOMPARE(defaults.objectForKey(units), QVariant(61));
        defaults.setObject(7, units);
        QCOMPARE(defaults.objectForKey(units), QVariant(qint64(7)));
        defaults.registerDefaults({{units, 62}, {QStringLiteral("other"), 1}});
        QCOMPARE(defaults.objectForKey(units), QVariant(qint64(7)));
        QCOMPARE(defaults.objectForKey(day), QVariant(QStringLiteral("first")));
        QCOMPARE(defaults.objectForKey(QStringLiteral("other")), QVariant(1));
    }

    void aFlagReadBeforeItsDefaultIsRegisteredFollowsIt()
    {
        const QString flag = QStringLiteral("UseP");
        UserDefaults defaults(path);
        QVERIFY(!defaults.boolForKey(flag));
        defaults.registerDefaults({{flag, QStringLiteral("YES")}});
        QVERIFY(defaults.boolForKey(flag));
    }

    void registeredDefaultsAreNeverWritten()
    {
        {
            UserDefaults defaults(path);
            defaults.registerDefaults({{QStringLiteral("UseP"), QStringLiteral("YES")}});
            defaults.setObject(1, day);
        }
        QVERIFY(!stored(QStringLiteral("UseP")).isValid());
        QCOMPARE(stored(day), QVariant(qint64(1)));
    }

    void flagsAreReadFromManyKinds_data()
    {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<bool>("flag");

        const auto text = [](const char *ascii, bool flag) {
            QTest::addRow("the text '%s'", ascii) << QVariant(QString::fromLatin1(ascii)) << flag;
        };
        for (const char *yes : {"YES", "yes", "y", "true", "T", "1", "9", "007", "-1", "+1", "  \tYES", " -05", "0y"})
            text(yes, true);
        for (const char *no :
            {"NO", "no", "", "0", "000", "false", "f", "n", "-", "--1", "- 1", "on", "x1", "0 1", ".5"})
            text(no, false);
        QTest::newRow("true") << QVariant(true) << true;
        QTest::newRow("false") << QVariant(false) << false;
        QTest::newRow("the integer 0") << QVariant(0) << false;
        QTest::newRow("the integer 2") << QVariant(2) << true;
        QTest::newRow("the integer -1") << QVariant(-1) << true;
        QTest::newRow("an integer beyond 32 bits") << QVariant(qint64(1) << 32) << true;
        QTest::newRow("the float 0") << QVariant(0.0F) << false;
        QTest::newRow("a float below 1") << QVariant(0.25F) << true;
        QTest::newRow("the double 0") << QVariant(-0.0) << false;
        QTest::newRow("the smallest double") << QVariant(std::numeric_limits<double>::denorm_min()) << true;
        QTest::newRow("a date") << QVariant(QDateTime(QDate(2015, 5, 11), QTime(1, 0), Qt::UTC)) << false;
        QTest::newRow("data") << QVariant(QByteArray("YES")) << false;
        QTest::newRow("a list") << QVariant(QVariantList{true}) << false;
    }

    void flagsAreReadFromManyKinds()
    {
        QFETCH(QVariant, value);
        QFETCH(bool, flag);
        const QString key = QStringLiteral("RememberDate");
        {
            UserDefaults registering(path);
            registering.registerDefaults({{key, value}});
            QCOMPARE(registering.boolForKey(key), flag);
        }
        {
            UserDefaults setting(path);
            setting.registerDefaults({{key, !flag}});
            QCOMPARE(setting.boolForKey(key), !flag);
            setting.setObject(value, key);
            QCOMPARE(setting.boolForKey(key), flag);
        }
        UserDefaults reopened(path);
        reopened.registerDefaults({{key, !flag}});
        QCOMPARE(reopened.boolForKey(key), flag);
    }

    void aTransactionIsWrittenAtItsCommit()
    {
        UserDefaults(path).setObject(1, day);
        const QByteArray before = fileBytes();
        {
            UserDefaults defaults(path);
            UserDefaults::Transaction transaction(defaults);
            defaults.setObject(2, day);
            defaults.setObject(3, QStringLiteral("RDAs"));
            QCOMPARE(defaults.objectForKey(day), QVariant(qint64(2)));
            QVERIFY(!defaults.synchronize());
            QCOMPARE(fileBytes(), before);
            QVERIFY(transaction.commit());
        }
        QCOMPARE(stored(day), QVariant(qint64(2)));
        QCOMPARE(stored(QStringLiteral("RDAs")), QVariant(qint64(3)));
    }

    void aTransactionThatIsNotCommittedIsForgotten()
    {
        const QString flag = QStringLiteral("UseP");
        UserDefaults(path).setObject(1, day);
        {
            UserDefaults defaults(path);
            {
                UserDefaults::Transaction transaction(defaults);
                defaults.setObject(2, day);
                defaults.setObject(true, flag);
                QVERIFY(defaults.boolForKey(flag));
            }
            QCOMPARE(defaults.objectForKey(day), QVariant(qint64(1)));
            QVERIFY(!defaults.boolForKey(flag));
            defaults.setObject(4, QStringLiteral("other"));
        }
        QCOMPARE(stored(day), QVariant(qint64(1)));
        QVERIFY(!stored(flag).isValid());
        QCOMPARE(stored(QStringLiteral("other")), QVariant(qint64(4)));
    }

    void theStoreAndItsFoldersAreTheOwnersAlone()
    {
        const mode_t former = ::umask(0);
        UserDefaults defaults(path);
        defaults.setObject(1, day);
        ::umask(former);
        QCOMPARE(modeOf(path), 0600U);
        QCOMPARE(modeOf(path + QStringLiteral("-journal")), 0600U);
        QCOMPARE(modeOf(home->filePath(QStringLiteral("share/provender"))), 0700U);
        QCOMPARE(modeOf(home->filePath(QStringLiteral("share"))), 0700U);
    }

    void nothingButTheStoreIsLeft()
    {
        {
            UserDefaults defaults(path);
            for (int i = 0; i < 5; ++i)
                defaults.setObject(records(i), day + QString::number(i));
        }
        QStringList found;
        QDirIterator walk(
            home->path(), QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
        while (walk.hasNext())
            found.append(walk.next());
        found.sort();
        QCOMPARE(found,
            QStringList(
                {home->filePath(QStringLiteral("share")), home->filePath(QStringLiteral("share/provender")), path}));
    }

    void theStoresBytesChangeOnlyWithAWrite()
    {
        UserDefaults(path).setObject(records(20), day);
        const QByteArray before = fileBytes();
        {
            UserDefaults defaults(path);
            defaults.registerDefaults({{QStringLiteral("UseP"), QStringLiteral("YES")}});
            QVERIFY(defaults.boolForKey(QStringLiteral("UseP")));
            QCOMPARE(defaults.objectForKey(day), QVariant(records(20)));
            defaults.keepUnread(day);
            QVERIFY(defaults.synchronize());
            QCOMPARE(fileBytes(), before);
            QVERIFY(!QFile::exists(path + QStringLiteral("-journal")));
        }
        QCOMPARE(fileBytes(), before);
    }

    void theStandardDefaultsCanBeReplaced()
    {
        UserDefaults mine(path);
        UserDefaults::setStandardUserDefaults(&mine);
        QCOMPARE(&UserDefaults::standardUserDefaults(), &mine);
        QCOMPARE(mine.storePath(), path);
        UserDefaults::setStandardUserDefaults(nullptr);
        QCOMPARE(UserDefaults::standardUserDefaults().storePath(), UserDefaults::standardStorePath());
    }
};

QTEST_GUILESS_MAIN(UserDefaultsTest)
#include "tst_userdefaults.moc"
