// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "catalog/FoodCatalogue.h"
#include "model/DaySums.h"
#include "model/FoodRecord.h"
#include "model/StoredDay.h"
#include "platform/LocalDay.h"
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
