// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "history/OwnFoods.h"
#include "model/FoodRecord.h"
#include "platform/LocalDay.h"
#include "tests/support/StoreHome.h"

using History::OwnFood;
using History::OwnFoods;

// What a person logs again, read from stored days.
class OwnFoodsTest final : public QObject {
    Q_OBJECT

    const QDate today{2026, 11, 21};

    static QByteArray record(const QString &name, float amount = 100.0F, const std::optional<QString> &unit = {})
    {
        Food food(name);
        food.setCuramount(amount);
        food.setCurunit(unit);
        food.setCurunitidx(unit ? 3 : 0);
        return FoodRecord::archivedDataWithRootObject(food);
    }

    static QVariantList dayOf(const QStringList &names)
    {
        QVariantList items;
        for (const QString &name : names)
            items.append(record(name));
        return items;
    }

    // The day so many days before today.
    [[nodiscard]] QString key(int daysago) const { return LocalDay::key(today.addDays(-daysago)); }

    static QStringList namesOf(std::span<const OwnFood> foods)
    {
        QStringList names;
        for (const OwnFood &food : foods)
            names.append(food.name);
        return names;
    }

    [[nodiscard]] static QStringList namesIn(const UserDefaults &store) { return namesOf(OwnFoods(store).all()); }

private slots:
    void whatIsLoggedMoreOftenOrLaterComesFirst_data()
    {
        QTest::addColumn<QList<int>>("daysagoofone");
        QTest::addColumn<QList<int>>("daysagoofother");
        QTest::newRow("later") << QList<int>{0} << QList<int>{1};
        QTest::newRow("more often") << QList<int>{1, 2} << QList<int>{0};
        QTest::newRow("often lately rather than often long ago") << QList<int>{0, 1} << QList<int>{40, 41, 42};
        QTest::newRow("four times two weeks ago rather than once now") << QList<int>{14, 15, 16, 17} << QList<int>{0};
    }

    void whatIsLoggedMoreOftenOrLaterComesFirst()
    {
        QFETCH(QList<int>, daysagoofone);
        QFETCH(QList<int>, daysagoofother);
        StoreHome home;
        UserDefaults store(home.path);
        UserDefaults::Transaction open(store); // what is not written yet counts like what is
        for (int daysago = 0; daysago < 60; ++daysago) {
            QStringList names;
            if (daysagoofother.contains(daysago))
                names.append(QStringLiteral("other"));
            if (daysagoofone.contains(daysago))
                names.append(QStringLiteral("one"));
            store.setObject(dayOf(names), key(daysago));
        }
        QCOMPARE(namesIn(store), (QStringList{QStringLiteral("one"), QStringLiteral("other")}));
    }

    void equallyUsefulFoodsKeepTheOrderOfTheirDay()
    {
        StoreHome home;
        UserDefaults store(home.path);
        const QStringList names{QStringLiteral("b"), QStringLiteral("c"), QStringLiteral("a")};
        store.setObject(dayOf(names), key(3));
        QCOMPARE(namesIn(store), names);
    }

    void usefulnessHalvesInTwoWeeks()
    {
        StoreHome home;
        UserDefaults store(home.path);
        store.setObject(dayOf({QStringLiteral("a")}), key(0));
        store.setObject(dayOf({QStringLiteral("a"), QStringLiteral("b")}), key(14));
        const OwnFoods foods(store);
        QCOMPARE(foods.named(QStringLiteral("a"))->usefulness, 1.5);
        QCOMPARE(foods.named(QStringLiteral("b"))->usefulness, 0.5);
        QVERIFY(foods.named(QStringLiteral("c")) == nullptr);
    }

    void aDayYetToComeMakesNoneOlder()
    {
        StoreHome home;
        UserDefaults store(home.path);
        store.setObject(dayOf({QStringLiteral("later")}), QStringLiteral("9999_12_31"));
        store.setObject(dayOf({QStringLiteral("a")}), key(3));
        store.setObject(dayOf({QStringLiteral("b")}), key(17));
        const OwnFoods foods(store, {}, today);
        QCOMPARE(foods.named(QStringLiteral("later"))->usefulness, 1.0);
        QCOMPARE(foods.named(QStringLiteral("a"))->usefulness, 1.0);
        QCOMPARE(foods.named(QStringLiteral("b"))->usefulness, 0.5);
    }

    void aFoodBearsItsLastQuantity()
    {
        StoreHome home;
        UserDefaults store(home.path);
        const QString milk = QStringLiteral("Milk");
        store.setObject(QVariantList{record(milk, 250.0F)}, key(0));
        store.setObject(QVariantList{record(milk, 0.5F, QStringLiteral("1 cup"))}, key(1));
        const auto last = [&](QDate shownday, const QList<QByteArray> &records) {
            return *OwnFoods(store, History::ShownDay{shownday, records}).named(milk);
        };
        const OwnFood stored = *OwnFoods(store).named(milk);
        QCOMPARE(stored.amount, 250.0F);
        QVERIFY(!stored.unit);
        QCOMPARE(stored.lastday, today);
        // The shown day's records count in the place of the stored ones, and its emptiness too.
        const OwnFood emptied = last(today, {});
        QCOMPARE(emptied.amount, 0.5F);
        QCOMPARE(emptied.unit, QStringLiteral("1 cup"));
        QCOMPARE(emptied.unitidx, 3);
        QCOMPARE(emptied.lastday, today.addDays(-1));
        const OwnFood changed = last(today, {record(milk, 7.0F)});
        QCOMPARE(changed.amount, 7.0F);
        QCOMPARE(changed.usefulness, stored.usefulness);
        QCOMPARE(last(today.addDays(1), {record(milk, 8.0F)}).amount, 8.0F); // not stored at all
    }

    void onlyTheLastSixtyLoggedDaysCount()
    {
        StoreHome home;
        UserDefaults store(home.path);
        UserDefaults::Transaction open(store);
        // Every other day is empty or holds nothing that is a record.
        for (int i = 0; i < 61; ++i) {
            store.setObject(dayOf({QString::number(i)}), key(2 * i));
            store.setObject(i % 2 == 0 ? QVariantList() : QVariantList{QByteArray("no record")}, key(2 * i + 1));
        }
        const OwnFoods foods(store);
        QCOMPARE(foods.all().size(), std::size_t(60));
        QVERIFY(foods.named(QStringLiteral("59")) != nullptr);
        QVERIFY(foods.named(QStringLiteral("60")) == nullptr);
        QCOMPARE(foods.mostUseful().size(), std::size_t(40));
        QCOMPARE(namesOf(foods.mostUseful()).last(), QStringLiteral("39"));
    }

    void entriesWithoutANameAndOtherKeysAreLeftOut()
    {
        StoreHome home;
        UserDefaults store(home.path);
        const Food nameless{std::nullopt};
        store.setObject(
            QVariantList{FoodRecord::archivedDataWithRootObject(nameless), record(QStringLiteral("a"))}, key(0));
        store.setObject(dayOf({QStringLiteral("b")}), QStringLiteral("2026_02_30"));
        store.setObject(dayOf({QStringLiteral("c")}), key(1) + QStringLiteral(".unread"));
        store.setObject(qint64(5), key(2));
        QCOMPARE(namesIn(store), QStringList{QStringLiteral("a")});
    }

    void nothingLoggedIsNoFoods()
    {
        StoreHome home;
        const UserDefaults store(home.path);
        const OwnFoods foods(store, History::ShownDay{today, {}});
        QVERIFY(foods.all().empty());
        QVERIFY(foods.mostUseful().empty());
    }

    void readingThemChangesNothingThatIsStored()
    {
        StoreHome home;
        UserDefaults(home.path).setObject(dayOf({QStringLiteral("a")}), key(0));
        const QByteArray former = contentOf(home.path);
        UserDefaults store(home.path);
        QCOMPARE(namesIn(store), QStringList{QStringLiteral("a")});
        QCOMPARE(contentOf(home.path), former);
        // It counts as not read: its value is kept when the day is written.
        store.setObject(dayOf({}), key(0));
        QCOMPARE(store.unreadObjectsForKey(key(0)), QVariantList{QVariant(dayOf({QStringLiteral("a")}))});
    }
};

QTEST_GUILESS_MAIN(OwnFoodsTest)
#include "tst_ownfoods.moc"
