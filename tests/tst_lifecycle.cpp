// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "support/Run.h"

#include "platform/LocalDay.h"

#include "ui/controls/DatePicker.h"
#include "ui/foodsheet/AddFoodSheet.h"
#include "ui/foodsheet/ArrayController.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QScreen>
#include <QSplitter>
#include <QtTest>

namespace {

QString key(const char *text)
{
    return QString::fromLatin1(text);
}

} // namespace

// Start-up, the settings it reads, and the save at the end.
class LifecycleTest final : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        home = std::make_unique<Home>();
        home->files.writeElements(key("A"), "<nutrient name='Energy' amount='50'/>");
    }
    void cleanup() { home.reset(); }

    void beforeLaunchingNothingIsThere()
    {
        Run run(*home);
        QVERIFY(!run.controller.curdate.isValid());
        QVERIFY(run.controller.foods.empty());
        QVERIFY(run.controller.foodlist.isEmpty());
        QCOMPARE(run.controller.rdamenu->count(), 0);
        for (const float rda : run.controller.rdas)
            QCOMPARE(bitsOf(rda), bitsOf(0.0F));
    }

    void theControllersWindowIsForEverybodyToSee()
    {
        Run run(*home);
        const AppDelegate &controller = run.controller;
        QCOMPARE(controller.window, run.interface->mainWindow());
    }

    void aFirstRunHasTheDefaultsAndOpensToday()
    {
        Run run(*home);
        run.launch();
        QCOMPARE(run.controller.rdas[0], 2000.0F);
        QCOMPARE(run.controller.rdas[6], 0.0F);
        for (std::size_t i = 0; i < 61; ++i)
            QCOMPARE(run.controller.rdas[i], static_cast<float>(NutrientCatalogue::defaultRDAs()[i]));
        QVERIFY(run.store.boolForKey(key("UseP")));
        QVERIFY(run.store.boolForKey(key("RememberDate")));
        QVERIFY(!run.store.boolForKey(key("RecalculateAmount")));
        QCOMPARE(run.controller.curdate, home->now);
        QCOMPARE(run.controller.datepicker->dateValue(), home->now);
        QCOMPARE(run.controller.label->text(), key("0 foods"));
        QCOMPARE(run.controller.rdainput->text(), key("2000.00"));
        QCOMPARE(run.controller.rdamenu->currentText(), key("Energy"));
    }

    void theRegisteredDefaultsAreTheseSix()
    {
        Run run(*home);
        run.launch();
        QCOMPARE(run.store.objectForKey(key("FirstLaunch")), QVariant(key("YES")));
        QCOMPARE(run.store.objectForKey(key("ShowXNutrients")).toInt(), 61);
        QCOMPARE(run.store.objectForKey(key("RememberDate")), QVariant(key("YES")));
        QCOMPARE(run.store.objectForKey(key("UseP")), QVariant(key("YES")));
        QCOMPARE(run.store.objectForKey(key("RecalculateAmount")), QVariant(key("NO")));
        QCOMPARE(run.store.objectForKey(key("OwnFoodsFirst")), QVariant(key("YES")));
        QVERIFY(!run.store.objectForKey(key("LastDate")).isValid());
        QVERIFY(!run.store.objectForKey(key("RDAs")).isValid());
    }

    void registeredDefaultsAreNeverStored()
    {
        {
            Run run(*home);
            run.launch();
            run.terminate();
        }
        const UserDefaults bare(home->storePath());
        for (const char *name : {"FirstLaunch", "ShowXNutrients", "RememberDate", "UseP", "RecalculateAmount", "OwnFoodsFirst"})
            QVERIFY(!bare.objectForKey(key(name)).isValid());
    }

    void valuesThatNothingReadsChangeNothing()
    {
        Run run(*home);
        run.store.setObject(false, key("FirstLaunch"));
        run.store.setObject(5, key("ShowXNutrients"));
        run.launch();
        QCOMPARE(run.controller.numberOfRowsInTableView(run.controller.nutrienttable), 61);
        QCOMPARE(run.controller.rdas[0], 2000.0F);
        QCOMPARE(run.controller.curdate, home->now);
    }

    void theMenuHoldsTheNutrientsInOrder()
    {
        Run run(*home);
        run.launch();
        QCOMPARE(run.controller.rdamenu->count(), 61);
        for (int i = 0; i < 61; ++i)
            QCOMPARE(run.controller.rdamenu->itemText(i), NutrientCatalogue::names()[i]);
        QCOMPARE(run.controller.rdamenu->currentIndex(), 0);
    }

    void theFirstDayShowsInBothTables()
    {
        {
            Run run(*home);
            run.launch();
            run.add({key("A")});
            run.terminate();
        }
        Run run(*home);
        run.launch();
        const auto amount = [](const TableView *table) { return table->model()->index(0, 1).data().toString(); };
        QCOMPARE(amount(run.controller.logtable), key("100.00"));
        QCOMPARE(amount(run.controller.nutrienttable), key("2 %"));
    }

    void theUnitLabelIsNotWrittenAtStart()
    {
        Run run(*home);
        run.controller.rdalabel->setText(key("as described"));
        run.launch();
        QCOMPARE(run.controller.rdalabel->text(), key("as described"));
    }

    void theSheetGetsTheCatalogue()
    {
        Run run(*home);
        run.launch();
        QCOMPARE(run.controller.foodlist.size(), 7801);
        QCOMPARE(run.controller.foodlistcontroller->content(), run.controller.foodlist);
        QVERIFY(run.controller.copyfoods.empty());
    }

    void theStoredDateIsOpenedWhenRemembered()
    {
        const QDateTime last = home->now.addDays(-40);
        Run run(*home);
        run.store.setObject(last, key("LastDate"));
        run.store.setObject(true, key("RememberDate"));
        run.launch();
        QCOMPARE(run.controller.curdate, last);
    }

    void todayIsOpenedWhenNothingIsToBeRemembered()
    {
        Run run(*home);
        run.store.setObject(home->now.addDays(-40), key("LastDate"));
        run.store.setObject(false, key("RememberDate"));
        run.launch();
        QCOMPARE(run.controller.curdate, home->now);
    }

    void aLastDateThatCannotBeShownCountsAsNone_data()
    {
        QTest::addColumn<QVariant>("stored");
        QTest::newRow("words") << QVariant(QStringLiteral("2026-11-01"));
        QTest::newRow("a number") << QVariant(7LL);
        QTest::newRow("before year 1") << QVariant(QDateTime({-5, 1, 1}, {12, 0}, Qt::UTC));
        QTest::newRow("after year 9999") << QVariant(QDateTime({10000, 1, 2}, {12, 0}, Qt::UTC));
        QTest::newRow("after year 9999 in the zone alone") << QVariant(QDateTime({9999, 12, 31}, {20, 0}, Qt::UTC));
    }

    void aLastDateThatCannotBeShownCountsAsNone()
    {
        QFETCH(QVariant, stored);
        const TimeZone here("Pacific/Auckland");
        Run run(*home);
        run.store.setObject(stored, key("LastDate"));
        run.launch();
        QCOMPARE(run.controller.curdate, home->now);
    }

    void aShorterListOfRDAsLeavesTheRestAtZero()
    {
        QVariantList ten;
        for (int i = 0; i < 10; ++i)
            ten.append(float(i) + 0.5F);
        Run run(*home);
        run.store.setObject(ten, key("RDAs"));
        run.launch();
        for (std::size_t i = 0; i < 61; ++i)
            QCOMPARE(run.controller.rdas[i], i < 10 ? float(i) + 0.5F : 0.0F);
        QCOMPARE(run.controller.rdainput->text(), key("0.50"));
    }

    void aLongerListOfRDAsEndsAt61()
    {
        QVariantList many;
        for (int i = 0; i < 100; ++i)
            many.append(i);
        Run run(*home);
        run.store.setObject(many, key("RDAs"));
        run.launch();
        QCOMPARE(run.controller.rdas[60], 60.0F);
    }

    void integersLoadAsFloatsDo()
    {
        QVariantList integers;
        QVariantList floats;
        for (const int rda : NutrientCatalogue::defaultRDAs()) {
            integers.append(rda);
            floats.append(float(rda));
        }
        Home other;
        Run first(*home);
        first.store.setObject(integers, key("RDAs"));
        first.launch();
        const auto loaded = first.controller.rdas;
        Run second(other);
        second.store.setObject(floats, key("RDAs"));
        second.launch();
        QCOMPARE(second.controller.rdas, loaded);
    }

    void elementsOfAnotherKindAreReadAsTheyCanBe()
    {
        Run run(*home);
        run.store.setObject(
            QVariantList({key("12.5 g"), true, false, 2.25, home->now, QByteArray("7"), key("x"), 5'000'000'000LL}),
            key("RDAs"));
        run.launch();
        const std::vector<float> read(run.controller.rdas.begin(), run.controller.rdas.begin() + 9);
        QCOMPARE(read, (std::vector<float>{12.5F, 1.0F, 0.0F, 2.25F, 0.0F, 0.0F, 0.0F, 5e9F, 0.0F}));
    }

    void rdasThatAreNoListCountAsNoneAndAreKept()
    {
        {
            Run run(*home);
            run.store.setObject(key("2000"), key("RDAs"));
            run.launch();
            QCOMPARE(run.controller.rdas[0], 2000.0F);
            QCOMPARE(run.controller.rdas[1], 300.0F);
            run.terminate();
        }
        const UserDefaults store(home->storePath());
        QCOMPARE(store.objectForKey(key("RDAs")).toList().size(), 61);
        QCOMPARE(store.objectForKey(key("RDAs.unread")).toString(), key("2000"));
    }

    void theEndStoresRDAsDateAndDay()
    {
        const QString daykey = LocalDay::key(home->now);
        {
            Run run(*home);
            run.launch();
            run.add({key("A")});
            QVERIFY(!run.store.objectForKey(key("RDAs")).isValid());
            run.terminate();
        }
        {
            const UserDefaults store(home->storePath());
            const QVariantList rdas = store.objectForKey(key("RDAs")).toList();
            QCOMPARE(rdas.size(), 61);
            for (int i = 0; i < 61; ++i) {
                QCOMPARE(rdas[i].typeId(), int(QMetaType::Float));
                QCOMPARE(rdas[i].toFloat(), float(NutrientCatalogue::defaultRDAs()[static_cast<std::size_t>(i)]));
            }
            QCOMPARE(store.objectForKey(key("LastDate")).toDateTime(), home->now);
            QCOMPARE(store.objectForKey(daykey).toList().size(), 1);
        }
        home->now = home->now.addDays(2);
        Run again(*home);
        again.launch();
        QCOMPARE(again.names(), QStringList{key("A")});
        QCOMPARE(LocalDay::key(again.controller.curdate), daykey);
    }

    void theDateIsStoredAlsoWhenItIsNotToBeRemembered()
    {
        Run run(*home);
        run.store.setObject(false, key("RememberDate"));
        run.launch();
        run.terminate();
        QCOMPARE(run.store.objectForKey(key("LastDate")).toDateTime(), home->now);
    }

    void withoutACurrentDateOnlyTheRDAsAreStored()
    {
        {
            Run run(*home);
            run.launch();
            run.controller.curdate = QDateTime();
            run.terminate();
        }
        const UserDefaults store(home->storePath());
        QVERIFY(store.objectForKey(key("RDAs")).isValid());
        QVERIFY(!store.objectForKey(key("LastDate")).isValid());
        QVERIFY(!store.objectForKey(LocalDay::key(home->now)).isValid());
    }

    void changedRDAsAreThereAtTheNextStart()
    {
        {
            Run run(*home);
            run.launch();
            run.controller.rdamenu->setCurrentIndex(31);
            run.controller.rdainput->setText(key("75.5"));
            run.controller.setRDA();
            run.terminate();
        }
        Run again(*home);
        again.launch();
        QCOMPARE(again.controller.rdas[31], 75.5F);
        QCOMPARE(again.controller.rdas[0], 2000.0F);
    }

    void theLastWindowsClosingIsToEndTheProgram()
    {
        Run run(*home);
        QVERIFY(run.controller.applicationShouldTerminateAfterLastWindowClosed());
    }

    void theWindowComesBackWhereItWas()
    {
        QByteArray geometry;
        QList<int> sizes;
        const auto splitterOf = [](const Run &run) { return run.controller.window->findChild<QSplitter *>(); };
        {
            Run run(*home);
            run.show();
            run.controller.window->resize(900, 555);
            splitterOf(run)->setSizes({500, 380});
            sizes = splitterOf(run)->sizes();
            run.terminate();
            geometry = run.controller.window->saveGeometry();
        }
        Run again(*home);
        QCOMPARE(again.store.objectForKey(key("WindowGeometry")).toByteArray(), geometry);
        QVERIFY(!again.store.objectForKey(key("WindowSplitters")).toByteArray().isEmpty());
        again.show();
        QCOMPARE(again.controller.window->size(), QSize(900, 555));
        QCOMPARE(splitterOf(again)->sizes(), sizes);
    }

    void theAddFoodSheetKeepsItsSize()
    {
        const QString sizekey = key("AddFoodSheetSize");
        const auto sheetOf = [](Run &run) -> AddFoodSheet * {
            run.show();
            run.controller.addFood();
            return run.controller.addview;
        };
        QSize usual;
        {
            Run run(*home);
            usual = sheetOf(run)->size();
            run.terminate();
            QVERIFY(!run.store.objectForKey(sizekey).isValid()); // nobody chose it
            run.controller.addview->resize(700, 555);
            run.controller.addview->reject();
            run.terminate();
        }
        const QSize screen = QGuiApplication::primaryScreen()->availableSize();
        const std::pair<QVariantList, QSize> stored[] = {{{700, 555}, {700, 555}}, {{}, usual}, {{700}, usual},
            {{700, 555, 1}, usual}, {{0, 555}, usual}, {{700, -1}, usual}, {{700, 100000}, {700, screen.height()}}};
        for (const auto &[value, shown] : stored) {
            Run again(*home);
            if (shown != QSize(700, 555)) // else what the first run stored
                again.store.setObject(value, sizekey);
            QCOMPARE(sheetOf(again)->size(), shown);
        }
    }

    void aSavedWindowThatIsDamagedIsNoDanger_data()
    {
        QTest::addColumn<QString>("saved");
        QTest::newRow("geometry") << key("WindowGeometry");
        QTest::newRow("splitter") << key("WindowSplitters");
    }

    void aSavedWindowThatIsDamagedIsNoDanger()
    {
        QFETCH(QString, saved);
        QByteArray whole;
        {
            Run run(*home);
            run.show();
            run.terminate();
            whole = run.store.objectForKey(saved).toByteArray();
        }
        QVERIFY(whole.size() > 20);
        for (qsizetype at = 0; at < whole.size(); ++at) {
            for (const char flip : {'\x7f', '\x80'}) {
                QByteArray damaged = whole;
                damaged[at] = char(damaged[at] ^ flip);
                Run run(*home);
                run.store.setObject(damaged, saved);
                run.show();
                const QRect window = run.controller.window->frameGeometry();
                const QRect screen = run.controller.window->screen()->geometry();
                QVERIFY2(window.width() <= 2 * screen.width() && window.height() <= 2 * screen.height()
                        && window.intersects(screen),
                    qPrintable(QString::number(at)));
                const auto *splitter = run.controller.window->findChild<QSplitter *>();
                QVERIFY2(splitter->handleWidth() < 20 && splitter->orientation() == Qt::Horizontal,
                    qPrintable(QString::number(at)));
            }
        }
    }

    void aSavedWindowOutsideEveryScreenIsDropped()
    {
        QByteArray elsewhere;
        {
            QWidget other;
            other.setGeometry(100000, 100, 500, 400);
            elsewhere = other.saveGeometry();
        }
        QRect usual;
        {
            Run plain(*home);
            plain.show();
            usual = plain.controller.window->geometry();
            plain.store.setObject(elsewhere, key("WindowGeometry"));
        }
        Run again(*home);
        again.show();
        QCOMPARE(again.controller.window->geometry(), usual);
    }

private:
    std::unique_ptr<Home> home;
};

QTEST_MAIN(LifecycleTest)
#include "tst_lifecycle.moc"
