// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "history/Figures.h"
#include "model/StoredDay.h"
#include "platform/NumberText.h"
#include "platform/PendingFile.h"
#include "platform/PropertyList.h"
#include "support/LockedStore.h"
#include "support/RandomHistory.h"
#include "support/StoreHome.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <QRegularExpression>

namespace {

using Rows = QList<QStringList>;
const int entrycolumns = 5; // before the nutrients
const int daycolumns = 2;

struct Ended {
    int status;
    QByteArray out;
    QByteArray err;
};

// A text that the program printed for a number.
float numberOf(const QString &text)
{
    const float infinite = std::numeric_limits<float>::infinity();
    if (text == QLatin1String("nan"))
        return std::numeric_limits<float>::quiet_NaN();
    return text == QLatin1String("inf") ? infinite
        : text == QLatin1String("-inf") ? -infinite
                                        : NumberText::floatValue(text);
}

QString orNothing(const Naive::Text &text)
{
    return QString::fromStdString(text.value_or(std::string()));
}

} // namespace

// The second program, run as a process, and its output as another program's readers understand it. The long log is that
// of the history's own test, and this test holds its store open like the running program.
class ExportTest final : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<RandomHistory> random;
    QString program; // beside the random food files

    [[nodiscard]] static Ended finish(QProcess &process)
    {
        process.waitForFinished();
        return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1, process.readAllStandardOutput(),
            process.readAllStandardError()};
    }
    static void prepare(QProcess &process, const QString &executable, const QStringList &arguments)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("de_DE.UTF-8"));
        environment.insert(QStringLiteral("LANGUAGE"), QStringLiteral("C"));
        process.setProcessEnvironment(environment);
        process.setProgram(executable);
        process.setArguments(arguments);
    }
    [[nodiscard]] static Ended run(const QString &executable, const QStringList &arguments)
    {
        QProcess process;
        prepare(process, executable, arguments);
        process.start();
        return finish(process);
    }
    // Of a store, with the rest of the arguments in one text.
    [[nodiscard]] Ended exported(const QString &store, const QString &arguments = {}) const
    {
        return run(program, QStringList{QStringLiteral("--store"), store} + arguments.split(u' ', Qt::SkipEmptyParts));
    }
    // What python understands of it.
    [[nodiscard]] static Rows rowsOf(const QByteArray &printed, const QString &format)
    {
        QProcess python;
        python.start(QStringLiteral("python3"), {QStringLiteral(SOURCE_DIR "/tests/exportedrows.py"), format});
        python.write(printed);
        python.closeWriteChannel();
        const Ended read = finish(python);
        if (read.status != 0)
            qWarning("%s", read.err.constData());
        Rows rows;
        for (const QJsonValue &row : QJsonDocument::fromJson(read.out).array())
            rows.append(row.toVariant().toStringList());
        return rows;
    }
    [[nodiscard]] Rows exportedRows(const QString &store, const QString &arguments, const QString &format) const
    {
        const Ended printed = exported(store, arguments + QStringLiteral(" --format=") + format);
        return printed.status == 0 ? rowsOf(printed.out, format) : Rows();
    }

    [[nodiscard]] History::Days historyDays()
    {
        return random->history.reader.readOnly({random->begin, random->begin.addDays(RandomHistory::dayCount)});
    }
    [[nodiscard]] static QString dateText(QDate date) { return date.toString(Qt::ISODate); }

    // "2026-11-21 A 30", for each entry; the days in one text.
    [[nodiscard]] QString entriesOf(const QString &store) const
    {
        QStringList entries;
        const Rows rows = exportedRows(store, {}, QStringLiteral("csv"));
        for (const QStringList &row : rows.mid(1))
            entries.append(QStringList(row.mid(0, 3)).join(u' '));
        return entries.join(QStringLiteral(", "));
    }

    static QByteArray record(const std::optional<QString> &name, float amount, const std::optional<QString> &unit)
    {
        Food food(name);
        food.setCuramount(amount);
        food.setCurunit(unit);
        return FoodRecord::archivedDataWithRootObject(food);
    }

    static void formats()
    {
        QTest::addColumn<QString>("format");
        QTest::newRow("as CSV") << QStringLiteral("csv");
        QTest::newRow("as JSON") << QStringLiteral("json");
    }

private slots:
    void initTestCase()
    {
        random = std::make_unique<RandomHistory>(20261122);
        const QDir folder = QFileInfo(QFileInfo(random->history.files.pathOf(QStringLiteral("F00"))).path()).dir();
        program = folder.filePath(QStringLiteral("provender-export"));
        QVERIFY(QFile::copy(QStringLiteral(PROVENDER_EXPORT), program));
    }

    void everyEntryIsPrintedAsItWasStoredWithTheHistorysWeightsAndAmounts_data() { formats(); }
    void everyEntryIsPrintedAsItWasStoredWithTheHistorysWeightsAndAmounts()
    {
        QFETCH(QString, format);
        const Rows rows = exportedRows(random->history.path, {}, format);
        const History::Days days = historyDays();
        QCOMPARE(rows.size(), 1 + days.entries.size());
        qsizetype at = 1;
        for (const auto &[date, entries] : random->naive.log) {
            for (const NaiveHistory::Entry &entry : entries) {
                const QStringList &row = rows[at];
                QCOMPARE(row.size(), entrycolumns + int(nutrients));
                QCOMPARE(row[0], dateText(date));
                QCOMPARE(row[1], orNothing(entry.name));
                QVERIFY(sameBits(numberOf(row[2]), entry.amount));
                QCOMPARE(row[3], orNothing(entry.unit));
                QVERIFY(sameBits(numberOf(row[4]), days.entries[at - 1].grams));
                for (std::size_t i = 0; i < nutrients; ++i) {
                    const QString &text = row[entrycolumns + int(i)];
                    QCOMPARE(!text.isEmpty(), entry.known[i]);
                    QVERIFY(text.isEmpty() || sameBits(numberOf(text), entry.amounts[i]));
                }
                ++at;
            }
        }
        QCOMPARE(at, rows.size());
    }

    void everyDayIsPrintedWithTheHistorysSumsAndKnownShares_data() { formats(); }
    void everyDayIsPrintedWithTheHistorysSumsAndKnownShares()
    {
        QFETCH(QString, format);
        const Rows rows = exportedRows(random->history.path, QStringLiteral("--per day"), format);
        const History::Days days = historyDays();
        QCOMPARE(rows.size(), 1 + days.all.size());
        int unknown = 0;
        for (std::size_t i = 0; i < std::size_t(days.all.size()); ++i) {
            const QStringList &row = rows[1 + qsizetype(i)];
            const History::Day &logged = days.ofPeriod()[i];
            QCOMPARE(row.size(), daycolumns + 2 * int(nutrients));
            QCOMPARE(row[0], dateText(logged.date));
            QCOMPARE(row[1], QString::number(logged.entrycount));
            const History::KnownShares shares = History::knownShares(days, days.ofPeriod().subspan(i, 1));
            for (std::size_t nutrient = 0; nutrient < nutrients; ++nutrient) {
                const auto knows = [&](const NaiveHistory::Entry &entry) { return entry.known[nutrient]; };
                const auto &entries = random->naive.log.at(logged.date);
                const QString &sum = row[daycolumns + int(nutrient)];
                QCOMPARE(!sum.isEmpty(), std::any_of(entries.begin(), entries.end(), knows));
                QVERIFY(sum.isEmpty() || sameBits(numberOf(sum), logged.sums[nutrient]));
                unknown += sum.isEmpty() ? 1 : 0;
                QCOMPARE(row[daycolumns + int(nutrients + nutrient)].toDouble(), shares[nutrient]);
            }
        }
        QVERIFY(unknown > 0);
    }

    void theColumnsNameTheirUnits()
    {
        const QStringList names = exportedRows(random->history.path, {}, QStringLiteral("json")).value(0);
        QCOMPARE(names.mid(0, 6).join(u'|'), QStringLiteral("date|food|amount|unit|grams|Energy (kcal)"));
        QVERIFY(names.contains(QStringLiteral("Selenium (µg)")));
        QVERIFY(names.contains(QStringLiteral("Alanine (g)")));
        const QStringList daynames
            = exportedRows(random->history.path, QStringLiteral("--per=day"), QStringLiteral("csv")).value(0);
        QCOMPARE(daynames.mid(0, 3).join(u'|'), QStringLiteral("date|entries|Energy (kcal)"));
        QCOMPARE(daynames.mid(61, 3).join(u'|'), QStringLiteral("Tyrosine (g)|Valine (g)|Energy, known share"));
    }

    void onlyTheDaysAskedForArePrinted()
    {
        const QDate first = random->begin.addDays(51);
        const QDate last = random->begin.addDays(120);
        const Rows all = exportedRows(random->history.path, QStringLiteral("--per day"), QStringLiteral("csv"));
        const Rows some = exportedRows(random->history.path,
            QStringLiteral("--per day --from %1 --to %2").arg(dateText(first), dateText(last)), QStringLiteral("csv"));
        Rows wanted = all.mid(0, 1);
        for (const QStringList &row : all.mid(1)) {
            if (row[0] >= dateText(first) && row[0] <= dateText(last))
                wanted.append(row);
        }
        QVERIFY(some.size() > 10 && some.size() < all.size());
        QCOMPARE(some, wanted);
    }

    void neitherTheStoreNorWhoeverHasItOpenNotices()
    {
        StoreHome place;
        QVERIFY(QFile::copy(random->history.path, place.path));
        const QByteArray before = contentOf(place.path);
        const Ended printed = exported(place.path);
        QCOMPARE(printed.err, "");
        for (const LockedStore::Lock lock : {LockedStore::Exclusive, LockedStore::Shared}) {
            const LockedStore running(place.path, lock);
            const Ended meanwhile = exported(place.path);
            QCOMPARE(meanwhile.status, 0);
            QCOMPARE(meanwhile.out, printed.out);
            QCOMPARE(meanwhile.err, "provender-export: Provender is running: what it has not saved yet is missing\n");
        }
        QCOMPARE(contentOf(place.path), before);
        QCOMPARE(place.files(), QStringList{QStringLiteral("preferences.sqlite")});
    }

    void whatCouldNotBeSavedCountsAsTheNextStartTakesItIn_data()
    {
        QTest::addColumn<bool>("isstored");
        QTest::addColumn<bool>("isread");
        QTest::addColumn<bool>("ischanged");
        QTest::addColumn<QString>("wanted");
        QTest::newRow("in the place of what its run had read")
            << true << true << false << QStringLiteral("2015-05-10 C 3, 2015-05-11 B 2, 2015-05-12 D 4");
        QTest::newRow("after what its run could not read")
            << true << false << false
            << QStringLiteral("2015-05-10 C 3, 2015-05-11 A 1, 2015-05-11 B 2, 2015-05-12 D 4");
        QTest::newRow("after what was stored since")
            << true << true << true << QStringLiteral("2015-05-10 C 3, 2015-05-11 E 5, 2015-05-11 B 2, 2015-05-12 D 4");
        QTest::newRow("beside a store that was never made")
            << false << false << false << QStringLiteral("2015-05-10 C 3, 2015-05-11 B 2");
    }

    void whatCouldNotBeSavedCountsAsTheNextStartTakesItIn()
    {
        QFETCH(bool, isstored);
        QFETCH(bool, isread);
        QFETCH(bool, ischanged);
        StoreHome place;
        const QString pending = place.path + QStringLiteral(".pending");
        const auto list
            = [](const char *name, float amount) { return QVariantList{StoredHistory::record(name, amount)}; };
        const auto join = [](const QString &, const QVariant &former, const QVariant &mine, const QVariant &) {
            return std::optional(StoredDay::joined(former.toList(), mine.toList()));
        };
        if (isstored) {
            UserDefaults defaults(place.path);
            defaults.setObject(list("A", 1), day);
            defaults.setObject(list("D", 4), QStringLiteral("2015_05_12"));
        } else {
            QVERIFY(QDir().mkdir(place.path)); // where no store can be made
        }
        {
            std::optional<LockedStore> locked;
            UserDefaults defaults(place.path);
            if (isstored && !isread)
                locked.emplace(place.path, LockedStore::Exclusive);
            static_cast<void>(defaults.objectForKey(day));
            if (isread)
                locked.emplace(place.path, LockedStore::Shared);
            defaults.setObject(list("B", 2), day);
            defaults.setObject(list("C", 3), QStringLiteral("2015_05_10"));
            QVERIFY(defaults.leavePending());
        }
        if (ischanged)
            QVERIFY(StoreView(place.path).put(day, PropertyList::write(list("E", 5)).value()));
        if (!isstored)
            QVERIFY(QDir().rmdir(place.path));
        const QByteArray before = contentOf(pending);
        const QString entries = entriesOf(place.path);
        QCOMPARE(contentOf(pending), before);
        QTEST(entries, "wanted");
        {
            UserDefaults next(place.path);
            next.setJoin(join);
            next.takeInPending();
        }
        QVERIFY(!QFile::exists(pending));
        QCOMPARE(entriesOf(place.path), entries);
    }

    void whatSeveralRunsCouldNotSaveCountsToTheLast()
    {
        StoreHome place;
        UserDefaults(place.path).setObject(QVariantList{StoredHistory::record("A", 1)}, day);
        for (const auto &[key, food] : {std::pair(QStringLiteral("2015_05_12"), "C"), std::pair(day, "B")}) {
            const LockedStore locked(place.path, LockedStore::Exclusive);
            UserDefaults defaults(place.path);
            defaults.setObject(QVariantList{StoredHistory::record(food, 2)}, key);
            QVERIFY(defaults.leavePending());
        }
        const QString last = PendingFile::pathOf(place.path, PendingFile::mostFiles);
        QVERIFY(QFile::rename(PendingFile::pathOf(place.path, 2), last));
        QCOMPARE(entriesOf(place.path), QStringLiteral("2015-05-11 A 1, 2015-05-11 B 2, 2015-05-12 C 2"));
        writeFile(last, "no database");
        const Ended printed = exported(place.path);
        QCOMPARE(printed.status, 1);
        QVERIFY(printed.err.contains(".pending-9 is damaged"));
    }

    void aSaveThatIsGoingOnIsWaitedForAndOneThatBrokeOffIsSaid()
    {
        StoreHome place;
        UserDefaults(place.path).setObject(QVariantList{StoredHistory::record("A", 1)}, day);
        const QString journal = place.path + QStringLiteral("-journal");
        writeFile(journal, "\xd9\xd5");
        const Ended broken = exported(place.path);
        QCOMPARE(broken.status, 1);
        QCOMPARE(broken.out, "");
        QVERIFY(broken.err.contains("has a save that did not end: start Provender, quit it and try again\n"));
        QProcess process;
        prepare(process, program, {QStringLiteral("--store"), place.path});
        process.start();
        QVERIFY(!process.waitForFinished(100));
        writeFile(journal, QByteArray(28, '\0')); // as a program that goes on running leaves it
        const Ended waited = finish(process);
        QCOMPARE(waited.status, 0);
        QVERIFY(waited.out.contains("2015-05-11,A,1,g,1,"));
    }

    void aStoreThatIsSavedWhileItIsReadIsReadAgain()
    {
        StoreHome place;
        const QString next = place.path + QStringLiteral(".next");
        UserDefaults(place.path).setObject(QVariantList{StoredHistory::record("A", 1)}, day);
        UserDefaults(next).setObject(QVariantList{StoredHistory::record("B", 2)}, day);
        QProcess process;
        prepare(process, program, {QStringLiteral("--store"), place.path});
        QProcessEnvironment environment = process.processEnvironment();
        environment.insert(QStringLiteral("LD_PRELOAD"), QStringLiteral(CHANGING_STORE));
        environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("verify_asan_link_order=0"));
        process.setProcessEnvironment(environment);
        process.start();
        const Ended printed = finish(process);
        QVERIFY(!QFile::exists(next));
        QVERIFY(printed.out.contains("\r\n2015-05-11,B,2,"));
    }

    void quotesAndLineBreaksAndControlCharactersAreThoseOfRfc4180()
    {
        StoreHome place;
        {
            UserDefaults defaults(place.path);
            defaults.setObject(QVariantList{record(QStringLiteral("Butter, salted"), 25, QStringLiteral("g")),
                                   record(QStringLiteral("a \"b\"\r\nc\td"), -0.1F, QStringLiteral("=1+1")),
                                   record(QStringLiteral("\u001b[31m") + QChar(u'\0') + QChar(0xd800), 1e20F, {}),
                                   record({}, 1e-7F, QString())},
                day);
        }
        const auto heads = [&](const QString &format) {
            QByteArrayList lines;
            const Ended printed = run(QStringLiteral(PROVENDER_EXPORT),
                {QStringLiteral("--store"), place.path, QStringLiteral("--format"), format});
            const QByteArray end = format == QLatin1String("csv") ? "\r\n2015" : "\n";
            for (qsizetype at = 0, next = 0; next >= 0 && at < printed.out.size(); at = next + 1) {
                next = printed.out.indexOf(end, at);
                lines.append(printed.out.mid(at, 100));
            }
            return lines;
        };
        const QByteArrayList csv = heads(QStringLiteral("csv"));
        QCOMPARE(csv.size(), 5);
        QVERIFY(csv[0].startsWith("date,food,amount,unit,grams,Energy (kcal),"));
        QVERIFY(csv[1].startsWith("\n2015-05-11,\"Butter, salted\",25,g,25,179.25,0.015,"));
        QVERIFY(csv[2].startsWith("\n2015-05-11,\"a \"\"b\"\"\r\nc\td\",-0.1,=1+1,0,,,,"));
        QVERIFY(csv[3].startsWith("\n2015-05-11,\xef\xbf\xbd[31m\xef\xbf\xbd?,100000002004087734272,,1000000020"));
        QVERIFY(csv[4].startsWith("\n2015-05-11,,0.0000001,,0,,,"));
        const QByteArrayList json = heads(QStringLiteral("json"));
        QCOMPARE(json.size(), 4);
        QVERIFY(json[1].startsWith("{\"date\":\"2015-05-11\",\"food\":\"a \\\"b\\\"\\r\\nc\\td\",\"amount\":-0.1"));
        QVERIFY(json[2].startsWith("{\"date\":\"2015-05-11\",\"food\":\"\\u001b[31m\\u0000"));
        QVERIFY(json[3].startsWith("{\"date\":\"2015-05-11\",\"food\":null,\"amount\":0.0000001,\"un"));
    }

    void whatIsWrongIsSaidInOneLineAndNothingElseIsPrinted_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("status");
        QTest::addColumn<QString>("sentence");
        const auto row = [](const char *arguments, int status, const char *sentence) {
            QTest::newRow(arguments) << QString::fromUtf8(arguments).split(u' ', Qt::SkipEmptyParts) << status
                                     << QString::fromUtf8(sentence);
        };
        row("--from 2026-2-1", 2, "--from cannot be \"2026-2-1\"");
        row("--from 2026_02-01", 2, "--from cannot be \"2026_02-01\"");
        row("--to 2026-02_01", 2, "--to cannot be \"2026-02_01\"");
        row("--to=2026-02-29", 2, "--to cannot be \"2026-02-29\"");
        row("--per week", 2, "--per cannot be \"week\"");
        row("--format xml", 2, "--format cannot be \"xml\"");
        row("--store=", 2, "--store cannot be \"\"");
        row("--store", 2, "--store wants a value");
        row("2026-11-21", 2, "unknown argument \"2026-11-21\"");
        row("--help=me", 2, "unknown argument \"--help=me\"");
        row("--from 2026-11-21 --to 2026-11-20", 2, "--from is after --to");
        row("--store /nowhere/at\nall", 1, "there is no log at /nowhere/at?all");
        row("--store=/nowhere/a=b", 1, "there is no log at /nowhere/a=b");
        row("--store /dev/zero", 1, "/dev/zero cannot be read");
        row("--store " SOURCE_DIR "/README.md", 1, SOURCE_DIR "/README.md is damaged, of a newer version or no log");
        row("", 1, "there is no log at"); // the user's own, in the test's home
    }

    void whatIsWrongIsSaidInOneLineAndNothingElseIsPrinted()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, sentence);
        const Ended printed = run(program, arguments);
        QTEST(printed.status, "status");
        QCOMPARE(printed.out, "");
        QVERIFY2(printed.err.startsWith("provender-export: " + sentence.toUtf8()), printed.err.constData());
        QCOMPARE(printed.err.count('\n'), 1);
    }

    void theVersionIsPrintedAndNothingElse()
    {
        const Ended printed = run(program, {QStringLiteral("--version")});
        QCOMPARE(printed.status, 0);
        const QRegularExpression version(QStringLiteral("^provender-export \\d+\\.\\d+\\.\\d+\n$"));
        QVERIFY2(version.match(QString::fromUtf8(printed.out)).hasMatch(), printed.out.constData());
        QCOMPARE(printed.err, "");
    }

    void storesThatTheProgramOpensAreReadAndOthersAreNot_data()
    {
        QTest::addColumn<QByteArray>("sql");
        QTest::addColumn<int>("status");
        QTest::addColumn<QByteArray>("firstfields");
        QTest::newRow("as it is") << QByteArray() << 0 << QByteArray("2015-05-11,A,1,");
        QTest::newRow("with a log for its writes")
            << QByteArray("PRAGMA journal_mode=WAL") << 0 << QByteArray("2015-05-11,A,1,");
        QTest::newRow("a view in place of the table") << QByteArray(
            "ALTER TABLE defaults RENAME TO others; CREATE VIEW defaults AS SELECT * FROM others "
            "UNION ALL SELECT * FROM others") << 0 << QByteArray("2015-05-11,A,1,");
        QTest::newRow("no table") << QByteArray("DROP TABLE defaults") << 0 << QByteArray();
        QTest::newRow("another table") << QByteArray("ALTER TABLE defaults RENAME COLUMN key TO name") << 1
                                       << QByteArray();
        QTest::newRow("a newer version") << QByteArray("PRAGMA user_version=2") << 1 << QByteArray();
        QTest::newRow("values that are no property list")
            << QByteArray("UPDATE defaults SET value = 'bplist00'") << 0 << QByteArray();
        QTest::newRow("damage") << QByteArray(
            "PRAGMA writable_schema=ON; INSERT INTO sqlite_master VALUES('table', 'x', 'x', 2, 'CREATE TABLE x(y)')")
                                << 1 << QByteArray();
    }

    void storesThatTheProgramOpensAreReadAndOthersAreNot()
    {
        QFETCH(QByteArray, sql);
        QFETCH(QByteArray, firstfields);
        StoreHome place;
        UserDefaults(place.path).setObject(QVariantList{StoredHistory::record("A", 1)}, day);
        if (!sql.isEmpty())
            QVERIFY(StoreView(place.path).run(sql.constData()));
        const QByteArray before = contentOf(place.path);
        const Ended printed = exported(place.path);
        QTEST(printed.status, "status");
        const QByteArrayList lines = printed.out.split('\n');
        QCOMPARE(lines.size(), printed.status != 0 ? 1 : firstfields.isEmpty() ? 2 : 3);
        QVERIFY(lines.value(1).startsWith(firstfields));
        QCOMPARE(contentOf(place.path), before);
    }

    void anEmptyStoreIsAnEmptyLog()
    {
        QTemporaryFile empty;
        QVERIFY(empty.open());
        const Ended printed = exported(empty.fileName());
        QCOMPARE(printed.status, 0);
        QCOMPARE(printed.out.count('\n'), 1);
    }

    void anOutputThatIsFullOrClosedIsAnError_data()
    {
        QTest::addColumn<QString>("script");
        QTest::addColumn<QByteArray>("reason");
        QTest::newRow("full") << QStringLiteral("\"$0\" --store \"$1\" > /dev/full")
                              << QByteArray("No space left on device");
        QTest::newRow("full, by days") << QStringLiteral("\"$0\" --store \"$1\" --per day > /dev/full")
                                       << QByteArray("No space left on device");
        QTest::newRow("closed") << QStringLiteral("\"$0\" --store \"$1\" >&-") << QByteArray("Bad file descriptor");
        QTest::newRow("a reader that went away")
            << QStringLiteral("\"$0\" --store \"$1\" | true; exit ${PIPESTATUS[0]}") << QByteArray("Broken pipe");
        QTest::newRow("full before the help")
            << QStringLiteral("\"$0\" --help > /dev/full") << QByteArray("No space left on device");
    }

    void anOutputThatIsFullOrClosedIsAnError()
    {
        QFETCH(QString, script);
        QFETCH(QByteArray, reason);
        QTemporaryDir home;
        const QString copy = home.filePath(QStringLiteral("copy"));
        QVERIFY(QFile::copy(random->history.path, copy));
        const Ended printed = run(QStringLiteral("bash"), {QStringLiteral("-c"), script, program, copy});
        QCOMPARE(printed.status, 1);
        QCOMPARE(printed.err, "provender-export: the output cannot be written: " + reason + '\n');
    }
};

QTEST_GUILESS_MAIN(ExportTest)
#include "tst_export.moc"
