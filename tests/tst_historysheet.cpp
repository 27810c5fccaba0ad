// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "model/FoodRecord.h"
#include "platform/LocalDay.h"
#include "platform/PropertyList.h"
#include "tests/support/Run.h"
#include "tests/support/StoreView.h"
#include "ui/controls/DatePicker.h"
#include "ui/historysheet/CourseChart.h"
#include "ui/historysheet/HistorySheet.h"
#include "ui/historysheet/YearView.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QTabWidget>
#include <QtTest>

#include <limits>
#include <random>

namespace {

const QString Bread = QStringLiteral("Bread");
const QString Juice = QStringLiteral("Juice");
const QString Meat = QStringLiteral("Meat");
const int vitaminc = NutrientCatalogue::indexOfNutrient("Vitamin C");
const QDate today(2026, 11, 21);

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray record(const QString &name, float grams)
{
    Food food(name);
    food.setCuramount(grams);
    return FoodRecord::archivedDataWithRootObject(food);
}

} // namespace

// The history's sheet as a person drives it from the window, by keys. Before today, of each five days four are logged
// with 500 g of bread; 4 Nov with 200 g, 11 Nov with juice as well and 12 Nov with meat, whose file has no vitamin C.
class HistorySheetTest final : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        home = std::make_unique<Home>();
        home->files.writeElements(
            Bread, "<nutrient name='Energy' amount='100'/><nutrient name='Vitamin C' amount='10'/>");
        home->files.writeElements(
            Juice, "<nutrient name='Energy' amount='50'/><nutrient name='Vitamin C' amount='40'/>");
        home->files.writeElements(Meat, "<nutrient name='Energy' amount='200'/>");
        UserDefaults store(home->storePath());
        UserDefaults::Transaction all(store);
        for (int i = 0; i < 30; ++i) {
            const QDate day = QDate(2026, 10, 22).addDays(i);
            QVariantList items{record(Bread, day == QDate(2026, 11, 4) ? 200.0F : 500.0F)};
            if (day == QDate(2026, 11, 11))
                items.append(record(Juice, 100.0F));
            if (day == QDate(2026, 11, 12))
                items.append(record(Meat, 50.0F));
            if (i % 5 != 4)
                store.setObject(items, LocalDay::key(day));
            else if (i % 2 == 0)
                store.setObject(QVariantList(), LocalDay::key(day)); // as browsing leaves a day
        }
        all.commit();
    }
    void cleanup()
    {
        run.reset();
        home.reset();
    }

    void nothingOfItIsThereBeforeItIsOpened()
    {
        start();
        QVERIFY(!window()->findChild<HistorySheet *>());
    }

    void itSaysWhatIsLoggedAndWhatLooksIncomplete()
    {
        open();
        QCOMPARE(text("periodlabel"), QStringLiteral("22 Oct to 20 Nov 2026: 24 of 30 days logged"));
        QCOMPARE(text("incompletelabel"), QStringLiteral("1 day looks incomplete: 4 Nov"));
        QVERIFY(text("notelabel").contains(QStringLiteral("today's allowances")));
    }

    void theTableHasMeanBoundsKnownShareAndPercentage()
    {
        open();
        QCOMPARE(row(vitaminc),
            QStringList({QStringLiteral("Vitamin C"), QStringLiteral("50.42 mg"), QStringLiteral("20.00"),
                QStringLiteral("90.00"), QStringLiteral("99 %"), QStringLiteral("84 %")}));
        QCOMPARE(figures()->model()->index(vitaminc, 1).data(Qt::AccessibleDescriptionRole).toString(),
            QStringLiteral("Vitamin C: mean of a logged day 50.42 mg, 84 % of the RDA (60.00 mg); "
                           "lowest 20.00 mg on 4 Nov, highest 90.00 mg on 11 Nov; known for 99 % of the energy"));
        const int water = NutrientCatalogue::indexOfNutrient("Water"); // nobody knows it, and it has no allowance
        QCOMPARE(row(water)[1], QStringLiteral("\u2265 0.00 g"));
        QCOMPARE(row(water)[4], QStringLiteral("0 %"));
        QCOMPARE(row(water)[5], QStringLiteral("\u2013"));
    }

    void incompleteDaysAreLeftOutWhileTheSwitchIsOn()
    {
        open();
        auto *box = find<QCheckBox>("leaveout");
        press(box, Qt::Key_Space);
        QCOMPARE(row(vitaminc)[1], QStringLiteral("51.74 mg"));
        QCOMPARE(
            text("periodlabel"), QStringLiteral("22 Oct to 20 Nov 2026: 24 of 30 days logged, 1 of them left out"));
        goTo({2026, 11, 4});
        QCOMPARE(text("cursorlabel"), QStringLiteral("Wed 4 Nov 2026: left out; mean of seven days 500.00 kcal"));
        press(box, Qt::Key_Space);
        QCOMPARE(row(vitaminc)[1], QStringLiteral("50.42 mg"));
        press(box, Qt::Key_Space);
        press(box, Qt::Key_Escape);
        openAgain(); // anew, with all days
        QCOMPARE(row(vitaminc)[1], QStringLiteral("50.42 mg"));
        QVERIFY(!box->isChecked());
    }

    void allIncompleteDaysAreNamedWhereThereIsRoom()
    {
        {
            UserDefaults store(home->storePath());
            for (int i = 0; i < 8; ++i)
                store.setObject(QVariantList{record(Bread, 1.0F)}, LocalDay::key(QDate(2026, 11, 13).addDays(i)));
        }
        open();
        QVERIFY(text("incompletelabel").endsWith(QStringLiteral("16 Nov and 4 more")));
        QVERIFY(find<QLabel>("incompletelabel")->toolTip().contains(QStringLiteral("18 Nov, 19 Nov, 20 Nov")));
        QVERIFY(find<QCheckBox>("leaveout")->accessibleDescription().endsWith(QStringLiteral("19 Nov, 20 Nov")));
    }

    void theTipNamesTwoHundredDaysAtMost()
    {
        {
            UserDefaults store(home->storePath());
            UserDefaults::Transaction all(store);
            for (int i = 0; i < 601; ++i)
                store.setObject(
                    QVariantList{record(Bread, i < 201 ? 1.0F : 500.0F)}, LocalDay::key(today.addDays(-1 - i)));
            all.commit();
        }
        open();
        choose(find<QComboBox>("lengthbox"), 4);
        QVERIFY(find<QLabel>("incompletelabel")->toolTip().endsWith(QStringLiteral(" and 1 more</p>")));
        QVERIFY(find<QCheckBox>("leaveout")->accessibleDescription().endsWith(QStringLiteral(" and 1 more")));
    }

    void aLogOfAllTimesWithAnythingInItIsShown()
    {
        const auto noNumber = std::numeric_limits<float>::quiet_NaN();
        {
            StoreView store(home->storePath());
            for (const char *key : {"2026_02_30", "2026_11_20.unread", "2026_11_2", "0000_12_31"})
                QVERIFY(store.put(
                    QString::fromLatin1(key), PropertyList::write(QVariantList{record(Bread, 9e9F)}).value()));
            QVERIFY(store.put(QStringLiteral("1900_01_01"), "bplist00 and no more"));
        }
        {
            UserDefaults store(home->storePath());
            const QString endless(100000, u'n');
            store.setObject(QVariantList{record(Bread, 1e-45F), record(endless, 1.0F)}, QStringLiteral("0001_01_01"));
            store.setObject(QVariantList{record(Juice, noNumber), 5, QByteArray("no record"), record(Juice, 1.0F)},
                QStringLiteral("1900_01_02"));
            store.setObject(QVariantList{record(Bread, 3e38F)}, QStringLiteral("1900_01_03"));
            store.setObject(QVariantList{record(Bread, 1.0F)}, QStringLiteral("9999_12_31"));
        }
        open();
        const QString before = text("periodlabel");
        choose(find<QComboBox>("lengthbox"), 4);
        QCOMPARE(text("periodlabel"), QStringLiteral("1 Jan 0001 to 20 Nov 2026: 27 of 739940 days logged"));
        QCOMPARE(row(0)[1], QStringLiteral("nan kcal"));
        for (const int order : {2, 3}) { // by the mean, either way
            choose(find<QComboBox>("orderbox"), order);
            QCOMPARE(row(60)[1].first(3), QStringLiteral("nan"));
        }
        choose(find<QComboBox>("orderbox"), 0);
        for (int i = 0; i < 61; ++i)
            press(chart(), Qt::Key_Down);
        for (int page = 0; page < 3; ++page) {
            find<QTabWidget>("tabs")->setCurrentIndex(page);
            QVERIFY(!sheet()->grab().isNull());
        }
        QCOMPARE(find<TableView>("days")->model()->rowCount(), 27);
        find<QTabWidget>("tabs")->setCurrentIndex(0);
        choose(find<QComboBox>("lengthbox"), 1);
        QCOMPARE(text("periodlabel"), before);
    }

    void todayComesFromMemoryAndCountsWhenAskedFor()
    {
        start();
        run->add({Bread}); // 100 g, which nothing has stored
        open();
        press(find<QCheckBox>("withtoday"), Qt::Key_Space);
        QCOMPARE(text("periodlabel"), QStringLiteral("23 Oct to 21 Nov 2026: 24 of 30 days logged"));
        QCOMPARE(row(vitaminc)[1], QStringLiteral("48.75 mg"));
    }

    void theKeysMoveTheCursor_data()
    {
        QTest::addColumn<QList<int>>("keys");
        QTest::addColumn<QDate>("day");
        QTest::newRow("it begins on the last logged day") << QList<int>{} << QDate(2026, 11, 19);
        QTest::newRow("Left") << QList<int>{Qt::Key_Left} << QDate(2026, 11, 18);
        QTest::newRow("Right") << QList<int>{Qt::Key_Right} << QDate(2026, 11, 20);
        QTest::newRow("the end stops it") << QList<int>{Qt::Key_Right, Qt::Key_Right} << QDate(2026, 11, 20);
        QTest::newRow("Page Up") << QList<int>{Qt::Key_PageUp} << QDate(2026, 11, 12);
        QTest::newRow("Page Down") << QList<int>{Qt::Key_Home, Qt::Key_PageDown} << QDate(2026, 10, 29);
        QTest::newRow("Home") << QList<int>{Qt::Key_Home} << QDate(2026, 10, 22);
        QTest::newRow("the beginning stops it") << QList<int>{Qt::Key_Home, Qt::Key_Left} << QDate(2026, 10, 22);
        QTest::newRow("End") << QList<int>{Qt::Key_Home, Qt::Key_End} << QDate(2026, 11, 20);
    }

    void theKeysMoveTheCursor()
    {
        QFETCH(QList<int>, keys);
        QFETCH(QDate, day);
        open();
        for (const int key : keys)
            press(chart(), Qt::Key(key));
        QCOMPARE(chart()->currentDay(), day);
        QCOMPARE(find<YearView>("year")->currentDay(), day);
    }

    void theCursorSaysTheDayAndItsLines()
    {
        open();
        goTo({2026, 11, 11});
        QCOMPARE(text("cursorlabel"),
            QStringLiteral("Wed 11 Nov 2026: 550.00 kcal, 28 % of the RDA; mean of seven days 510.00 kcal"));
        QCOMPARE(chart()->accessibleDescription(), text("cursorlabel"));
        press(chart(), Qt::Key_Left);
        QCOMPARE(text("cursorlabel"), QStringLiteral("Tue 10 Nov 2026: not logged; mean of seven days 440.00 kcal"));
        press(chart(), Qt::Key_Home); // of seven days only one is logged
        QCOMPARE(text("cursorlabel"), QStringLiteral("Thu 22 Oct 2026: 500.00 kcal, 25 % of the RDA"));
        choose(find<QComboBox>("lengthbox"), 3);
        goTo({2026, 11, 10});
        QVERIFY(text("cursorlabel").contains(QStringLiteral("9 Nov to 15 Nov 2026: mean 530.00 kcal, 5 of 7 days")));
    }

    void upAndDownChangeTheNutrient()
    {
        open();
        for (int i = 0; i < vitaminc; ++i)
            press(chart(), Qt::Key_Down);
        QCOMPARE(figures()->currentIndex().row(), vitaminc);
        QVERIFY(text("summarylabel").startsWith(QStringLiteral("Vitamin C: ")));
        QCOMPARE(chart()->accessibleName(), QStringLiteral("Course of Vitamin C"));
        press(chart(), Qt::Key_Up);
        QCOMPARE(figures()->currentIndex().row(), vitaminc - 1);
        press(figures(), Qt::Key_Down); // in the table itself too
        QCOMPARE(chart()->accessibleName(), QStringLiteral("Course of Vitamin C"));
    }

    void enterOpensTheDayAsTheDateFieldDoes()
    {
        open();
        goTo({2026, 11, 11});
        press(chart(), Qt::Key_Return);
        QVERIFY(!sheet()->isVisible());
        QCOMPARE(LocalDay::dateOf(run->controller.curdate), QDate(2026, 11, 11));
        QCOMPARE(run->controller.datepicker->date(), QDate(2026, 11, 11));
        QCOMPARE(run->names(), QStringList({Bread, Juice}));
    }

    void aHeldEnterAndOneInTheTableOfNutrientsOpenNoDay()
    {
        open();
        QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"), true);
        QCoreApplication::sendEvent(chart(), &held);
        QVERIFY(sheet()->isVisible());
        figures()->setFocus();
        press(figures(), Qt::Key_Return);
        QVERIFY(sheet()->isVisible());
        QVERIFY(!text("summarylabel").contains(QStringLiteral("known for"))); // all of it is
    }

    void enterOnAButtonPressesIt()
    {
        open();
        goTo({2026, 11, 11});
        auto *close = find<QAbstractButton>("closebutton");
        close->setFocus();
        press(close, Qt::Key_Return);
        QVERIFY(!sheet()->isVisible());
        QCOMPARE(LocalDay::dateOf(run->controller.curdate), today);
    }

    void theSourcesSayWhereItCameFrom()
    {
        open();
        chooseVitaminC();
        find<QTabWidget>("tabs")->setCurrentIndex(1);
        auto *sources = find<TableView>("sources");
        QCOMPARE(cells(sources),
            QList<QStringList>({{Bread, QStringLiteral("1170.00 mg"), QStringLiteral("24"), QStringLiteral("97 %"),
                                    QStringLiteral("97 %")},
                {Juice, QStringLiteral("40.00 mg"), QStringLiteral("1"), QStringLiteral("100 %"),
                    QStringLiteral("3 %")}}));
        QCOMPARE(
            sources->model()->index(1, 0).data(Qt::ToolTipRole).toString(), QStringLiteral("Juice, last on 11 Nov"));
        auto *unknown = find<TableView>("unknownsources");
        QCOMPARE(cells(unknown), QList<QStringList>({{Meat, QStringLiteral("100 kcal"), QStringLiteral("1")}}));
        unknown->setFocus();
        press(unknown, Qt::Key_Return);
        QCOMPARE(LocalDay::dateOf(run->controller.curdate), QDate(2026, 11, 12));
    }

    void theDaysSayTheSameAsTheChart()
    {
        open();
        chooseVitaminC();
        find<QTabWidget>("tabs")->setCurrentIndex(2);
        auto *days = find<TableView>("days");
        QCOMPARE(days->model()->rowCount(), 24);
        QCOMPARE(cells(days)[7],
            QStringList({QStringLiteral("Wed 11 Nov 2026"), QStringLiteral("2"), QStringLiteral("550 kcal"),
                QStringLiteral("90.00 mg"), QStringLiteral("150 %")}));
        days->setFocus();
        press(days, Qt::Key_Down);
        QCOMPARE(chart()->currentDay(), QDate(2026, 11, 18));
        press(days, Qt::Key_Return);
        QCOMPARE(LocalDay::dateOf(run->controller.curdate), QDate(2026, 11, 18));
    }

    void theTableIsSortedByKeysAndByItsTitles()
    {
        open();
        auto *orders = find<QComboBox>("orderbox");
        choose(orders, int(orders->findText(QStringLiteral("% of RDA, most first"))));
        QCOMPARE(row(0)[0], QStringLiteral("Vitamin C"));
        QCOMPARE(row(1)[0], QStringLiteral("Energy"));
        QCOMPARE(row(60)[5], QStringLiteral("\u2013")); // what has no allowance is last either way
        choose(orders, int(orders->findText(QStringLiteral("% of RDA, least first"))));
        QCOMPARE(row(60)[5], QStringLiteral("\u2013"));
        QHeaderView *header = figures()->horizontalHeader();
        const auto click = [&](int column) {
            QTest::mouseClick(
                header->viewport(), Qt::LeftButton, {}, {header->sectionViewportPosition(column) + 20, 8});
        };
        click(1);
        QCOMPARE(row(60)[0], QStringLiteral("Energy"));
        click(1);
        QCOMPARE(row(0)[0], QStringLiteral("Energy"));
        QCOMPARE(orders->currentText(), QStringLiteral("Mean, most first"));
        click(0);
        QCOMPARE(row(vitaminc)[0], QStringLiteral("Vitamin C"));
    }

    void anEmptyPeriodSaysSoInWords()
    {
        open();
        press(chart(), Qt::Key_Left, Qt::AltModifier);
        const QString empty = QStringLiteral("No day of this period is logged.");
        QCOMPARE(text("periodlabel"), QStringLiteral("22 Sep to 21 Oct 2026: 0 of 30 days logged"));
        QCOMPARE(text("summarylabel"), empty);
        QCOMPARE(figures()->model()->rowCount(), 0);
        QCOMPARE(figures()->accessibleDescription(), empty);
        press(chart(), Qt::Key_Down); // and nothing of it fails
        press(chart(), Qt::Key_Right, Qt::AltModifier);
        QVERIFY(text("periodlabel").startsWith(QStringLiteral("22 Oct to 20 Nov 2026")));
    }

    void onAFirstDayItSaysThatTodayIsLeftOut()
    {
        home->now = QDateTime({2030, 1, 1}, {12, 0}, Qt::UTC);
        open();
        QCOMPARE(text("summarylabel"), QStringLiteral("No day of this period is logged. Today is left out."));
        QCOMPARE(figures()->accessibleDescription(), text("summarylabel"));
        press(find<QCheckBox>("withtoday"), Qt::Key_Space);
        QCOMPARE(text("summarylabel"), QStringLiteral("No day of this period is logged."));
    }

    void nutrientAndCursorStayWhileATableIsFilledAnew()
    {
        open();
        chooseVitaminC();
        figures()->setFocus();
        press(figures(), Qt::Key_Left, Qt::AltModifier); // nothing is logged there
        press(figures(), Qt::Key_Right, Qt::AltModifier);
        QCOMPARE(chart()->accessibleName(), QStringLiteral("Course of Vitamin C"));
        QCOMPARE(figures()->currentIndex().row(), vitaminc);
        find<QTabWidget>("tabs")->setCurrentIndex(2);
        auto *days = find<TableView>("days");
        days->setFocus();
        press(days, Qt::Key_Left, Qt::AltModifier);
        chart()->dayPointedAt({2026, 11, 10}); // not logged
        days->setFocus();
        press(days, Qt::Key_Right, Qt::AltModifier);
        QVERIFY(text("cursorlabel").startsWith(QStringLiteral("Tue 10 Nov 2026")));
    }

    void aYearBackAndOnAgainIsTheSame_data()
    {
        QTest::addColumn<QDate>("day");
        QTest::addColumn<QString>("year");
        const auto row
            = [](QDate day, const char *year) { QTest::addRow("%s", year) << day << QString::fromLatin1(year); };
        row({2024, 2, 28}, "1 Mar 2023 to 28 Feb 2024");
        row({2024, 2, 29}, "1 Mar 2023 to 29 Feb 2024");
        row({2025, 2, 28}, "29 Feb 2024 to 28 Feb 2025");
    }

    void aYearBackAndOnAgainIsTheSame()
    {
        QFETCH(QDate, day);
        QFETCH(QString, year);
        home->now = QDateTime(day.addDays(1), {12, 0}, Qt::UTC);
        open();
        choose(find<QComboBox>("lengthbox"), 3);
        QVERIFY(text("periodlabel").startsWith(year));
        press(chart(), Qt::Key_Left, Qt::AltModifier);
        QVERIFY(!text("periodlabel").startsWith(year));
        press(chart(), Qt::Key_Right, Qt::AltModifier);
        QVERIFY(text("periodlabel").startsWith(year));
        QVERIFY(!find<QAbstractButton>("laterbutton")->isEnabled());
    }

    void aStoreThatCannotBeReadIsNoEmptyOne()
    {
        HistorySheet sheet;
        const auto unreadable = [](const QString &, const QString &, const UserDefaults::Row &) { return false; };
        HistorySheet::Sources sources;
        sources.reader = std::make_unique<History::DayReader>(unreadable);
        sources.today = today;
        sheet.openWith(std::move(sources));
        QCOMPARE(sheet.findChild<QLabel *>(QStringLiteral("periodlabel"))->text(),
            QStringLiteral("22 Oct to 20 Nov 2026: 0 of 30 days logged; the store could not be read whole"));
    }

    void whatComesAfterClosingFindsNothing()
    {
        open();
        press(chart(), Qt::Key_Escape);
        for (QAction *action : sheet()->actions()) {
            if (action->shortcut().toString().startsWith(QStringLiteral("Alt+")))
                action->trigger();
        }
        emit find<QComboBox>("lengthbox")->activated(1);
        find<QCheckBox>("leaveout")->click();
        find<QTabWidget>("tabs")->setCurrentIndex(1);
        QVERIFY(cells(find<TableView>("sources")).isEmpty());
    }

    void openedOnceMoreItStaysAsItIs()
    {
        open();
        sheet()->openWith({});
        choose(find<QComboBox>("lengthbox"), 0);
        QVERIFY(text("periodlabel").startsWith(QStringLiteral("14 Nov")));
    }

    void aNarrowTableKeepsTheKnownShare()
    {
        open();
        figures()->setCurrentIndex(figures()->model()->index(0, 2));
        sheet()->resize(700, 560);
        QVERIFY(figures()->isColumnHidden(2));
        QCOMPARE(figures()->currentIndex().column(), 0); // or no key would lead away
        QVERIFY(!figures()->isColumnHidden(4));
    }

    // Of the three tables, what is shown at the least.
    void noTableHidesItsFiguresBehindAScrollBar_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QList<int>>("figurescolumns");
        QTest::addColumn<QList<int>>("sourcescolumns");
        QTest::addColumn<QList<int>>("dayscolumns");
        using Columns = QList<int>;
        QTest::newRow("the least") << QSize(640, 400) << Columns{0, 1, 5} << Columns{0, 4} << Columns{0, 3};
        QTest::newRow("small") << QSize(800, 500) << Columns{0, 1, 4, 5} << Columns{0, 1, 4} << Columns{0, 3, 4};
        QTest::newRow("first") << QSize(1080, 680) << Columns{0, 1, 2, 3, 4, 5} << Columns{0, 1, 2, 3, 4}
                               << Columns{0, 1, 2, 3, 4};
    }

    void noTableHidesItsFiguresBehindAScrollBar()
    {
        QFETCH(QSize, size);
        QFETCH(QList<int>, figurescolumns);
        QFETCH(QList<int>, sourcescolumns);
        QFETCH(QList<int>, dayscolumns);
        start();
        window()->resize(size);
        open();
        sheet()->resize(size); // also where the screen is smaller
        const auto check = [this](const char *name, const QList<int> &columns) {
            const auto *table = find<TableView>(name);
            QList<int> seen;
            for (int column = 0; column < table->model()->columnCount(); ++column)
                if (!table->isColumnHidden(column))
                    seen.append(column);
            QCOMPARE(seen, columns);
            QVERIFY(table->horizontalHeader()->length() <= table->viewport()->width());
        };
        check("figures", figurescolumns);
        find<QTabWidget>("tabs")->setCurrentIndex(1);
        check("sources", sourcescolumns);
        find<QTabWidget>("tabs")->setCurrentIndex(2);
        check("days", dayscolumns);
    }

    void theFirstSizeShowsMostOfAFoodsName()
    {
        start();
        open();
        sheet()->resize(1080, 680);
        find<QTabWidget>("tabs")->setCurrentIndex(1);
        const auto *table = find<TableView>("sources");
        const QFontMetrics metrics = table->fontMetrics();
        const QString name = QStringLiteral("Broccoli, cooked, boiled, drained, without salt");
        QVERIFY(metrics.elidedText(name, Qt::ElideRight, table->columnWidth(0) - 16).size() > 24);
    }

    void aLowSheetHasTheChartAlone()
    {
        open();
        QVERIFY(find<YearView>("year")->isVisible());
        sheet()->resize(640, 400);
        QVERIFY(!find<YearView>("year")->isVisible());
        QTRY_VERIFY(chart()->height() > 6 * chart()->fontMetrics().height());
    }

    void tabGoesRoundItInTheOrderOfReading()
    {
        open();
        QStringList reached;
        for (int i = 0; i < 12; ++i) {
            reached.append(sheet()->focusWidget()->objectName());
            press(sheet()->focusWidget(), Qt::Key_Tab);
        }
        const QStringList round{QStringLiteral("chart"), QStringLiteral("year"), QStringLiteral("closebutton"),
            QStringLiteral("lengthbox"), QStringLiteral("earlierbutton"), QStringLiteral("withtoday"),
            QStringLiteral("leaveout"), QStringLiteral("orderbox"), QStringLiteral("figures"),
            QStringLiteral("qt_tabwidget_tabbar")};
        QCOMPARE(reached, round + round.first(2));
        for (int i = 0; i < 12; ++i) {
            press(sheet()->focusWidget(), Qt::Key_Backtab);
            QCOMPARE(sheet()->focusWidget()->objectName(), reached[11 - i]);
        }
    }

    void escClosesItFromEverywhere()
    {
        open();
        for (const char *name : {"figures", "chart", "year", "lengthbox", "withtoday"}) {
            auto *widget = find<QWidget>(name);
            widget->setFocus();
            press(widget, Qt::Key_Escape);
            QVERIFY2(!sheet()->isVisible(), name);
            openAgain();
        }
    }

    void itsSizeIsRemembered()
    {
        open();
        QCOMPARE(sheet()->size(), window()->size());
        sheet()->resize(700, 560);
        press(chart(), Qt::Key_Escape);
        run->terminate();
        run.reset();
        open();
        QCOMPARE(sheet()->size(), QSize(700, 560));
    }

    void aSizeThatIsNoneIsDropped_data()
    {
        QTest::addColumn<QVariant>("stored");
        QTest::newRow("a text") << QVariant(QStringLiteral("900x600"));
        QTest::newRow("one number") << QVariant(QVariantList{qint64(900)});
        QTest::newRow("nothing of it") << QVariant(QVariantList{qint64(0), qint64(600)});
    }

    void aSizeThatIsNoneIsDropped()
    {
        QFETCH(QVariant, stored);
        start();
        run->store.setObject(stored, QStringLiteral("HistorySheetSize"));
        open();
        QCOMPARE(sheet()->size(), window()->size());
    }

    void theStoreStaysAsItIsWhateverKeysAreUsed()
    {
        start();
        run->store.synchronize();
        const QByteArray before = contentOf(home->storePath());
        openAgain();
        std::mt19937 chance(16);
        constexpr Qt::Key keys[] = {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp,
            Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End, Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Space, Qt::Key_Tab,
            Qt::Key_F2, Qt::Key_Delete, Qt::Key_7, Qt::Key_X};
        constexpr Qt::KeyboardModifier modifiers[]
            = {Qt::NoModifier, Qt::NoModifier, Qt::NoModifier, Qt::AltModifier, Qt::ShiftModifier, Qt::ControlModifier};
        for (int i = 0; i < 3000; ++i) {
            QWidget *popup = QApplication::activePopupWidget();
            QWidget *focus = popup != nullptr ? popup : sheet()->focusWidget();
            press(focus, chance() % 200 == 0 ? Qt::Key_Escape : keys[chance() % std::size(keys)],
                modifiers[chance() % std::size(modifiers)]);
            if (!sheet()->isVisible())
                openAgain();
            if (QTest::currentTestFailed())
                return;
        }
        QCOMPARE(contentOf(home->storePath()), before);
        QCOMPARE(LocalDay::dateOf(run->controller.curdate), today);
    }

private:
    QMainWindow *window() const { return run->controller.window; }
    HistorySheet *sheet() const { return window()->findChild<HistorySheet *>(); }
    template <typename Widget>
    Widget *find(const char *name) const
    {
        auto *widget = sheet()->findChild<Widget *>(QLatin1String(name));
        Q_ASSERT(widget != nullptr);
        return widget;
    }
    CourseChart *chart() const { return find<CourseChart>("chart"); }
    TableView *figures() const { return find<TableView>("figures"); }
    // A line of it may not end between a number and its unit.
    QString text(const char *label) const { return find<QLabel>(label)->text().replace(QChar::Nbsp, u' '); }

    void start()
    {
        if (run)
            return;
        run = std::make_unique<Run>(*home);
        run->show();
        QVERIFY(QTest::qWaitForWindowActive(window()));
    }
    void openAgain()
    {
        window()->activateWindow(); // as a window manager does when a sheet closes
        QTRY_COMPARE(QApplication::activeWindow(), window());
        QTest::keyClick(run->controller.logtable, Qt::Key_H, Qt::ControlModifier);
        QTRY_COMPARE(QApplication::activeWindow(), sheet());
    }
    void open()
    {
        start();
        openAgain();
        QCOMPARE(sheet()->focusWidget(), chart());
    }
    static void press(QWidget *where, Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(where, key, modifiers);
    }
    static void choose(QComboBox *box, int index)
    {
        box->setFocus();
        press(box, Qt::Key_Home);
        for (int i = 0; i < index; ++i)
            press(box, Qt::Key_Down);
    }
    void goTo(QDate day) const
    {
        press(chart(), Qt::Key_Home);
        while (chart()->currentDay() < day)
            press(chart(), Qt::Key_Right);
    }
    void chooseVitaminC() const
    {
        for (int i = 0; i < vitaminc; ++i)
            press(chart(), Qt::Key_Down);
    }
    static QList<QStringList> cells(const TableView *table)
    {
        QList<QStringList> rows;
        for (int row = 0; row < table->model()->rowCount(); ++row) {
            rows.append(QStringList());
            for (int column = 0; column < table->model()->columnCount(); ++column)
                rows.last().append(table->model()->index(row, column).data().toString());
        }
        return rows;
    }
    QStringList row(int row) const { return cells(figures())[row]; }

    std::unique_ptr<Home> home;
    std::unique_ptr<Run> run;
};

QTEST_MAIN(HistorySheetTest)
#include "tst_historysheet.moc"
