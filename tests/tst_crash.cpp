// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "tests/support/CrashPlan.h"
#include "tests/support/KillingVfs.h"
#include "tests/support/Program.h"

#include <QtTest>

#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <map>
#include <sys/mman.h>

namespace {

// How many runs are killed: a multiple may be asked for with "-times <n>".
int times = 1;
constexpr int killsInSaves = 130;
constexpr int killsAnyTime = 70;
constexpr int killsByKeys = 24;

constexpr int daysTyped = 12;
const QString firstDay = QStringLiteral("2015_05_11");

// The memory that a run tells its progress in.
class SharedProgress final {
public:
    explicit SharedProgress(const QString &path)
    {
        const int file = ::open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
        if (file < 0 || ::ftruncate(file, sizeof(Progress)) != 0)
            qFatal("no progress file");
        memory = ::mmap(nullptr, sizeof(Progress), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
        ::close(file);
        if (memory == MAP_FAILED)
            qFatal("no shared memory");
    }
    ~SharedProgress() { ::munmap(memory, sizeof(Progress)); }
    Q_DISABLE_COPY_MOVE(SharedProgress)

    Progress *operator->() const { return static_cast<Progress *>(memory); }
    void clear() const { std::memset(memory, 0, sizeof(Progress)); }

private:
    void *memory;
};

} // namespace

// Kills the program at any moment, over and over on one store, and looks each time at what is left.
class CrashTest final : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<ProgramHome> home;
    std::unique_ptr<SharedProgress> progress;
    QRandomGenerator random{20150511};
    quint32 lastplan = 2;
    int killsamidkeys = 0;
    std::map<QString, int> phases; // of the moments of the kills

    // The store with its journal, to be looked at without doing the next run's work.
    [[nodiscard]] QString copyOfStore(const ProgramHome &where, const QTemporaryDir &folder) const
    {
        QString path = folder.filePath(QStringLiteral("preferences.sqlite"));
        for (const QString &companion : {QString(), QStringLiteral("-journal")})
            QFile::copy(where.storePath() + companion, path + companion);
        return path;
    }

    // Runs a plan; 0 kills it never. False when it was killed.
    bool run(quint32 plan, int operation, KillingVfs::When when, long microseconds)
    {
        progress->clear();
        Program child(QStringLiteral(CRASHCHILD), *home);
        child.process.setArguments(
            {home->storePath(), home->path() + QStringLiteral("/progress"), QString::number(plan),
                QString::number(operation), QString::number(int(when)), QString::number(microseconds)});
        child.start();
        const int end = child.waitForEnd();
        if (end != 0 && end != -2)
            qFatal("the child ended with %d: %s", end, child.output().constData());
        return end == 0;
    }

    // What is in the store.
    CrashPlan::Contents contents() const
    {
        const QTemporaryDir copy;
        const UserDefaults store(copyOfStore(*home, copy));
        CrashPlan::Contents found;
        for (int day = 0; day < 6; ++day) {
            const QString key = QDate(2021, 5, 1).addDays(day).toString(QStringLiteral("yyyy_MM_dd"));
            if (const QStringList entries = ProgramHome::entries(store, key); !entries.isEmpty())
                found.insert(key, entries);
        }
        if (const QVariantList rdas = store.objectForKey(QStringLiteral("RDAs")).toList(); !rdas.isEmpty())
            found.insert(QStringLiteral("RDAs"), {QString::number(double(rdas.first().toFloat()))});
        if (const QDateTime last = store.objectForKey(QStringLiteral("LastDate")).toDateTime(); last.isValid())
            found.insert(QStringLiteral("LastDate"), {last.toString(Qt::ISODate)});
        return found;
    }

    void verifyWholeStore(const ProgramHome &where) const
    {
        const QTemporaryDir copy;
        QCOMPARE(StoreView(copyOfStore(where, copy)).integrity(), QStringLiteral("ok"));
        for (const QString &name : where.contents())
            QVERIFY2(!name.contains(QLatin1String("unusable")), qPrintable(name));
    }

    // One run that is killed, and what it leaves: the store before it with the saves that it had finished, or with one
    // more when it was killed inside that. The store is then `stored`.
    void killAndLook(CrashPlan::Contents &stored, quint32 number, int operation, KillingVfs::When when, long time)
    {
        const bool isfinished = run(number, operation, when, time);
        verifyWholeStore(*home);
        const CrashPlan plan(number);
        const int finished = (*progress)->finished;
        const int begun = (*progress)->begun;
        QVERIFY(begun == finished || begun == finished + 1);
        QCOMPARE(begun > finished, (*progress)->phase == Progress::Saving);
        const CrashPlan::Contents found = contents();
        const bool isold = found == plan.afterSaves(stored, finished);
        const bool isnew = begun > finished && found == plan.afterSaves(stored, begun);
        QVERIFY2(isold || isnew,
            qPrintable(QStringLiteral("plan %1, operation %2, time %3, saves %4 of %5")
                           .arg(number)
                           .arg(operation)
                           .arg(time)
                           .arg(finished)
                           .arg(begun)));
        stored = found;
        if (!isfinished)
            phases[phaseName((*progress)->phase)] += 1;
    }

    static QString phaseName(int phase)
    {
        static constexpr const char *names[] = {"starting", "between saves", "inside a save", "ending"};
        return QString::fromLatin1(names[phase]);
    }

    static QVariantList foodsOfTheFirstDay()
    {
        QVariantList records;
        for (int i = 0; i < 20; ++i)
            records.append(FoodRecord::archivedDataWithRootObject(Food(FoodCatalogue::foodNames()[i * 100])));
        return records;
    }

    static QString dayAfterFirst(int number)
    {
        return QDate(2015, 5, 11).addDays(number).toString(QStringLiteral("yyyy_MM_dd"));
    }

    // The foods of the first day are pasted into each day after it; the program then quits, if it still can.
    void killWhileKeysAreTyped(const XServer &server, const ProgramHome &eater)
    {
        Program victim(QStringLiteral(PROVENDER), eater, &server);
        QVERIFY(victim.startShown());
        QStringList keys{QStringLiteral("key"), QStringLiteral("--delay"), QStringLiteral("12"),
            QStringLiteral("ctrl+a"), QStringLiteral("ctrl+c")};
        for (int day = 0; day < daysTyped; ++day)
            keys << QStringLiteral("alt+Right") << QStringLiteral("ctrl+v");
        keys << QStringLiteral("ctrl+q");
        Program typist(QStringLiteral("xdotool"), eater, &server);
        typist.process.setArguments(keys);
        typist.start();
        // At some save, or shortly after.
        const QByteArray key = dayAfterFirst(random.bounded(1, daysTyped + 1)).toLatin1();
        while (!eater.storeBytes().contains(key) && !victim.process.waitForFinished(1)) { }
        QThread::usleep(ulong(random.bounded(15000)));
        victim.signal(SIGKILL);
        // It may have quit by itself by then, as the last key asked it to; that is no kill.
        const int end = victim.waitForEnd();
        typist.waitForEnd();
        QVERIFY(end == -2 || end == 0);
        if (end == 0)
            return;
        ++killsamidkeys;
        phases[hasHotJournal(eater) ? phaseName(Progress::Saving) : QStringLiteral("elsewhere, by keys")] += 1;
    }

    // A journal whose header is not zeros is that of a save that was not finished.
    static bool hasHotJournal(const ProgramHome &eater)
    {
        QFile journal(eater.storePath() + QStringLiteral("-journal"));
        return journal.open(QIODevice::ReadOnly) && journal.read(1) > QByteArray(1, '\0');
    }

    // How many days after the first are stored, each with all of the foods; -1 when one is not, or is out of turn.
    int daysLeft(const ProgramHome &eater, const QStringList &foods) const
    {
        const QTemporaryDir copy;
        const UserDefaults store(copyOfStore(eater, copy));
        if (ProgramHome::entries(store, firstDay) != foods)
            return -1;
        int count = 0;
        bool isover = false;
        for (int day = 1; day <= daysTyped + 1; ++day) {
            const QString key = dayAfterFirst(day);
            const bool isstored = store.objectForKey(key).isValid();
            if (isstored && (isover || ProgramHome::entries(store, key) != foods))
                return -1;
            isover = !isstored;
            count += isstored ? 1 : 0;
        }
        return count;
    }

private slots:
    void initTestCase()
    {
        home = std::make_unique<ProgramHome>();
        progress = std::make_unique<SharedProgress>(home->path() + QStringLiteral("/progress"));
        UserDefaults(home->storePath()).setObject(false, QStringLiteral("RememberDate"));
    }

    void anUndisturbedRunDoesAsPlanned()
    {
        const CrashPlan plan(1);
        QVERIFY(run(1, 0, KillingVfs::When::Before, 0));
        QCOMPARE(int((*progress)->finished), CrashPlan::saves);
        QCOMPARE(int((*progress)->begun), CrashPlan::saves);
        QCOMPARE(contents(), plan.afterSaves({}, CrashPlan::saves));
        QVERIFY(contents().size() > 3);
    }

    void aKillInsideASaveLeavesItEntirelyOrNotAtAll()
    {
        CrashPlan::Contents stored = contents();
        int operations = (*progress)->operations;
        QVERIFY(operations > 30);
        int insidesaves = 0;
        for (int kill = 0; kill < killsInSaves * times; ++kill) {
            const auto when = KillingVfs::When(random.bounded(3));
            killAndLook(stored, ++lastplan, 1 + random.bounded(operations), when, 0);
            if (QTest::currentTestFailed())
                return;
            insidesaves += (*progress)->phase == Progress::Saving ? 1 : 0;
        }
        QVERIFY(insidesaves > killsInSaves * times / 2);
    }

    void aKillAtAnyMomentLosesNothingThatWasLeft()
    {
        QElapsedTimer clock;
        clock.start();
        QVERIFY(run(2, 0, KillingVfs::When::Before, 0));
        const int length = int(clock.nsecsElapsed() / 1000);
        CrashPlan::Contents stored = contents();
        for (int kills = 0; kills < killsAnyTime * times;) {
            killAndLook(stored, ++lastplan, 0, KillingVfs::When::Before, 1 + random.bounded(length));
            kills += (*progress)->phase == Progress::Ended ? 0 : 1;
            if (QTest::currentTestFailed())
                return;
        }
    }

    void aKillOfTheShippedProgramAmidKeysLeavesWholeDays()
    {
        const XServer server;
        QVERIFY(!server.name().isEmpty());
        int daysleft = 0;
        int partial = 0;
        // A program that quit before its kill does not count.
        for (int attempt = 0; killsamidkeys < killsByKeys * times && attempt < 2 * killsByKeys * times; ++attempt) {
            const ProgramHome eater;
            {
                UserDefaults store(eater.storePath());
                store.setObject(foodsOfTheFirstDay(), firstDay);
                store.setObject(QDateTime({2015, 5, 11}, {12, 0}, Qt::UTC), QStringLiteral("LastDate"));
            }
            const QStringList foods = eater.entries(firstDay);
            QCOMPARE(foods.size(), 20);
            killWhileKeysAreTyped(server, eater);
            verifyWholeStore(eater);
            const int left = daysLeft(eater, foods);
            QVERIFY2(left >= 0, "a day is not whole, or was left out");
            daysleft += left;
            partial += left > 0 && left < daysTyped ? 1 : 0;
        }
        // The keys did arrive, and the kills came while they did.
        QVERIFY(daysleft > 2 * killsByKeys * times);
        QVERIFY(partial > killsByKeys * times / 2);
        QVERIFY(killsamidkeys >= 20 * times);
    }

    void cleanupTestCase()
    {
        int sum = 0;
        for (const auto &[phase, count] : phases) {
            std::printf("kills %s: %d\n", qPrintable(phase), count);
            sum += count;
        }
        std::printf("kills of the shipped program amid keys: %d\n", killsamidkeys);
        std::printf("kills in all: %d\n", sum);
        if (QTest::currentTestFailed())
            return;
        QVERIFY(phases[phaseName(Progress::Saving)] >= 30);
        QVERIFY(sum >= 200 * times);
        QVERIFY(2 * phases[phaseName(Progress::Saving)] >= sum);
    }
};

int main(int argc, char **argv)
{
    QList<char *> arguments(argv, argv + argc);
    for (int i = 1; i + 1 < arguments.size(); ++i) {
        if (qstrcmp(arguments[i], "-times") == 0) {
            times = std::max(1, std::atoi(arguments[i + 1]));
            arguments.remove(i, 2);
        }
    }
    int count = int(arguments.size());
    QCoreApplication application(count, arguments.data());
    CrashTest test;
    return QTest::qExec(&test, count, arguments.data());
}
#include "tst_crash.moc"
