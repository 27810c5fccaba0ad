// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "catalog/FoodCatalogue.h"
#include "model/DaySums.h"
#include "model/FoodRecord.h"
#include "model/StoredDay.h"
#include "platform/KeyedArchiver.h"
#include "platform/LocalDay.h"
#include "platform/PropertyList.h"
#include "tests/support/Run.h"

#include <QRandomGenerator>
#include <QtTest>

#include <limits>

// Stored days read without a window say what opening them says.
class StoredDaysTest final : public QObject {
    Q_OBJECT

private:
    QRandomGenerator random{20261121};

    std::optional<QString> someName(const QStringList &names)
    {
        switch (random.bounded(12)) {
        case 0:
            return std::nullopt;
        case 1:
            return QStringLiteral("a food without a file");
        default:
            return names[random.bounded(40)]; // so few that some come twice
        }
    }

    float someAmount()
    {
        constexpr std::array odd
            = {0.0F, -3.5F, 1e30F, std::numeric_limits<float>::infinity(), std::numeric_limits<float>::quiet_NaN()};
        const int choice = random.bounded(40);
        return choice < int(odd.size()) ? odd[std::size_t(choice)] : float(random.bounded(500.0));
    }

    std::optional<QString> someUnit(Food &food)
    {
        const QStringList titles = food.getUnitNames();
        switch (random.bounded(10)) {
        case 0:
            return std::nullopt;
        case 1:
            return QStringLiteral("1 unknown");
        default:
            return titles[random.bounded(int(titles.size()))];
        }
    }

    QVariantList someDay(const QStringList &names)
    {
        QVariantList items;
        for (int count = random.bounded(25); count > 0; --count) {
            if (random.bounded(10) == 0) {
                items.append(random.bounded(2) == 0 ? QVariant(QByteArray("no record")) : QVariant(qint64(7)));
                continue;
            }
            Food food(someName(names));
            food.setCurunit(someUnit(food));
            food.setCuramount(someAmount());
            items.append(FoodRecord::archivedDataWithRootObject(food));
        }
        return items;
    }

    // Of another program's making: the last byte of 65663 is that of the float.
    static QByteArray ofAWholeNumber()
    {
        KeyedArchiver archiver(QStringLiteral("Food"));
        archiver.encodeString(QStringLiteral("A"), QLatin1String("name"));
        archiver.encodeInt(65663, QLatin1String("amount"));
        archiver.encodeString(QStringLiteral("ab"), QLatin1String("unit"));
        archiver.encodeInt(0, QLatin1String("unitidx"));
        return archiver.archivedData();
    }

private slots:
    void theSumsOfAStoredDayAreThoseOfOpeningItBitForBit()
    {
        Home home;
        Bundle::mainBundle().setResourcePath({}); // the foods as shipped
        QStringList names;
        for (int i = 0; i < 40; ++i)
            names.append(FoodCatalogue::foodNames()[random.bounded(FoodCatalogue::foodNames().size())]);
        Run run(home);
        run.launch();
        int repeated = 0;
        int unread = 0;
        for (int i = 0; i < 300; ++i) {
            const QVariantList items = someDay(names);
            home.now = home.now.addDays(1);
            run.store.setObject(items, LocalDay::key(home.now));
            StoredDay day = StoredDay::of(run.store.objectForKey(LocalDay::key(home.now)));
            const DaySums::Amounts sums = DaySums::of(day.foods);
            run.controller.setDate(home.now);
            QCOMPARE(day.foods.size(), run.controller.foods.size());
            QCOMPARE(day.unread, run.controller.unreadfoods);
            for (std::size_t n = 0; n < sums.size(); ++n)
                QCOMPARE(bitsOf(sums[n]), bitsOf(run.controller.nutrientstotal[n]));
            unread += int(day.unread.size());
            repeated += int(items.size() - day.unread.size()) - int(day.foods.size());
        }
        QVERIFY(repeated > 100);
        QVERIFY(unread > 100);
    }

    // Thousands of records of few foods, so that all the reader has learnt comes into play.
    void whatOneReaderReadsIsWhatEachRecordSaysAlone()
    {
        QFile file(QStringLiteral(DATA_DIR "/records/apple.record"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray foreign = file.readAll();
        const QStringList names{QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("a \"B\" and more letters")};
        const QStringList units{QStringLiteral("ab"), QStringLiteral("cd"), QStringLiteral("1 cup")};
        FoodRecord::Reader reader;
        for (int i = 0; i < 14000; ++i) {
            Food food(names[random.bounded(3)]);
            food.setCurunit(random.bounded(5) == 0 ? std::nullopt : std::optional(units[random.bounded(3)]));
            food.setCurunitidx(random.bounded(3) - 1);
            food.setCuramount(std::bit_cast<float>(random.generate()));
            QByteArray record = FoodRecord::archivedDataWithRootObject(food);
            if (random.bounded(10) == 0) // damaged somewhere, the class and the offsets included
                record[random.bounded(int(record.size()))] = char(random.bounded(256));
            else if (random.bounded(10) == 0)
                record = ofAWholeNumber();
            else if (random.bounded(10) == 0)
                record = QByteArray(foreign).replace("\x42\xc8", QByteArray::number(10 + random.bounded(90)));
            const std::optional<Food> alone = FoodRecord::unarchiveObjectWithData(record);
            const std::optional<Food> read = reader.unarchiveObjectWithData(record);
            QCOMPARE(read.has_value(), alone.has_value());
            if (!read)
                continue;
            QCOMPARE(read->name(), alone->name());
            QCOMPARE(bitsOf(read->curamount()), bitsOf(alone->curamount()));
            QCOMPARE(read->curunit(), alone->curunit());
            QCOMPARE(read->curunitidx(), alone->curunitidx());
        }
    }

    void aDayOfTheStoresBytesIsTheDayOfItsValue()
    {
        FoodRecord::Reader reader;
        const QStringList names = FoodCatalogue::foodNames().mid(0, 40);
        for (int i = 0; i < 200; ++i) {
            QVariant value = someDay(names);
            if (i % 10 == 0)
                value = QVariantMap{{QStringLiteral("a"), value}};
            QByteArray bytes = PropertyList::write(value).value();
            if (i % 10 == 1)
                bytes.chop(1);
            const StoredDay expected = StoredDay::of(PropertyList::read(bytes).value_or(QVariant()));
            StoredDay day = StoredDay::ofStored(bytes, reader);
            bytes.fill('x'); // nothing of the day lies in them
            QCOMPARE(day.unread, expected.unread);
            QCOMPARE(day.foods.size(), expected.foods.size());
            for (std::size_t entry = 0; entry < day.foods.size(); ++entry)
                QCOMPARE(FoodRecord::archivedDataWithRootObject(day.foods[entry]),
                    FoodRecord::archivedDataWithRootObject(expected.foods[entry]));
        }
    }

    void aNameCountsOnceAndNoNameEachTime()
    {
        QVariantList items;
        for (const auto &name : {std::optional(QStringLiteral("A")), std::optional(QString()), std::optional<QString>(),
                 std::optional<QString>(), std::optional(QStringLiteral("A"))})
            items.append(FoodRecord::archivedDataWithRootObject(Food(name)));
        const StoredDay day = StoredDay::of(items);
        QCOMPARE(day.foods.size(), std::size_t(4));
        QCOMPARE(day.foods[0].name(), QStringLiteral("A"));
        QCOMPARE(day.foods[1].name(), QString());
        QVERIFY(!day.foods[2].name() && !day.foods[3].name());
    }

    void aValueThatIsNoListIsAnEmptyDay()
    {
        for (const QVariant &value : {QVariant(), QVariant(qint64(1)), QVariant(QStringLiteral("A"))}) {
            const StoredDay day = StoredDay::of(value);
            QVERIFY(day.foods.empty());
            QVERIFY(day.unread.isEmpty());
        }
    }
};

QTEST_MAIN(StoredDaysTest)
#include "tst_storeddays.moc"
