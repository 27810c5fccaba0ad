// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/historysheet/ChartAxis.h"
#include "ui/historysheet/CourseChart.h"
#include "ui/historysheet/YearView.h"

#include <QAccessible>
#include <QSignalSpy>
#include <QtTest>

#include <cmath>
#include <limits>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();
const QDate monday(2026, 11, 2);

History::Bar bar(int number, double mean, int loggeddays = 1)
{
    const QDate date = monday.addDays(number);
    return {{date, date}, loggeddays, mean};
}

// A smooth line reaches its own colour only where it covers a whole pixel.
bool isNear(const QColor &one, const QColor &other)
{
    constexpr int most = 100;
    return std::abs(one.red() - other.red()) < most && std::abs(one.green() - other.green()) < most
        && std::abs(one.blue() - other.blue()) < most;
}

bool holds(const QImage &picture, const QRectF &area, const QColor &color)
{
    const QRect pixels = area.toAlignedRect().intersected(picture.rect());
    for (int y = pixels.top(); y <= pixels.bottom(); ++y) {
        for (int x = pixels.left(); x <= pixels.right(); ++x) {
            if (isNear(picture.pixelColor(x, y), color))
                return true;
        }
    }
    return false;
}

} // namespace

// The pictures of the history: where they paint what, and what they say.
class HistoryChartTest final : public QObject {
    Q_OBJECT

private slots:
    void theAxisHasRoundNumbers_data()
    {
        QTest::addColumn<double>("low");
        QTest::addColumn<double>("high");
        QTest::addColumn<int>("steps");
        QTest::addColumn<QString>("labels");
        QTest::newRow("a step of 2") << 0.0 << 90.0 << 4 << "0 20 40 60 80 100";
        QTest::newRow("a step of 5") << 0.0 << 140.0 << 3 << "0 50 100 150";
        QTest::newRow("a step of 1") << 0.0 << 4100.0 << 4 << "0 1000 2000 3000 4000 5000";
        QTest::newRow("less than 1") << 0.0 << 0.9 << 4 << "0.0 0.2 0.4 0.6 0.8 1.0";
        QTest::newRow("it ends at a mark")
            << 0.0 << 2200.0 << 11 << "0 200 400 600 800 1000 1200 1400 1600 1800 2000 2200";
        QTest::newRow("zero is always on it") << 80.0 << 90.0 << 2 << "0 50 100";
        QTest::newRow("below zero") << -5.0 << 7.0 << 3 << "-5 0 5 10";
        QTest::newRow("only below zero") << -7.0 << -3.0 << 2 << "-10 -5 0";
        QTest::newRow("nothing to show") << 0.0 << 0.0 << 4 << "0.0 0.5 1.0";
        QTest::newRow("no step at all") << 0.0 << 10.0 << 0 << "0 10";
        QTest::newRow("very much") << 0.0 << 3e38 << 3 << "0 1.0e38 2.0e38 3.0e38";
        QTest::newRow("very little") << 0.0 << 2e-6 << 2 << "0 1.0e-6 2.0e-6";
        QTest::newRow("infinite") << 0.0 << infinity << 2 << "0.0 0.5 1.0";
        QTest::newRow("no number") << noNumber << 90.0 << 2 << "0 50 100";
    }

    void theAxisHasRoundNumbers()
    {
        QFETCH(double, low);
        QFETCH(double, high);
        QFETCH(int, steps);
        QFETCH(QString, labels);
        const ChartAxis axis = ChartAxis::over(low, high, steps);
        QStringList shown;
        for (const double mark : axis.marks())
            shown.append(axis.label(mark));
        QCOMPARE(shown.join(u' '), labels);
    }

    void barsStandOnZeroAndGapsHaveAMarkAndNoBar()
    {
        CourseChart chart;
        show(chart, {bar(0, 10.0), bar(1, 0.0, 0), bar(2, 0.0), bar(3, 20.0), bar(4, -5.0)}, 0.0F);
        const QImage picture = chart.grab().toImage();
        const QColor fill = chart.palette().color(QPalette::Highlight);
        const QColor text = chart.palette().color(QPalette::Text);
        const auto slot = [&](int number) { return chart.barArea(bar(number, 20.0)); }; // of the tallest
        const auto mark = [&](int number) {
            const QRectF area = slot(number);
            return holds(picture, {area.left() + 2, chart.plotArea().bottom() + 2, area.width() - 4, 1}, text);
        };
        for (const int number : {0, 3, 4})
            QVERIFY2(holds(picture, slot(number) | chart.barArea(bar(number, -5.0)), fill),
                qPrintable(QString::number(number)));
        const QRectF first = chart.barArea(bar(0, 10.0));
        QVERIFY(holds(picture, first.adjusted(2, 2, -2, -2), fill));
        QVERIFY(!holds(picture, slot(0).adjusted(0, 0, 0, -first.height() - 2), fill)); // half as high as the tallest
        QVERIFY(chart.barArea(bar(4, -5.0)).top() >= chart.heightOf(0.0) - 1);
        QVERIFY(!holds(picture, slot(1), fill));
        QVERIFY(!holds(picture, slot(2), fill)); // a logged day without any
        QVERIFY(mark(1));
        for (const int number : {0, 2, 3, 4})
            QVERIFY2(!mark(number), qPrintable(QString::number(number)));
    }

    void amountsThatAreNoNumberBreakNothing_data()
    {
        QTest::addColumn<double>("amount");
        for (const double amount : {infinity, -infinity, noNumber, 1e300, 5e-324})
            QTest::newRow(qPrintable(QString::number(amount))) << amount;
    }

    void amountsThatAreNoNumberBreakNothing()
    {
        QFETCH(double, amount);
        CourseChart chart;
        show(chart, {bar(0, 10.0), bar(1, amount), bar(2, 10.0)}, 0.0F, {{monday, amount}, {monday.addDays(1), 10.0}});
        const QRectF first = chart.barArea(bar(0, 10.0));
        QVERIFY(std::isfinite(first.top()) && std::isfinite(chart.barArea(bar(1, amount)).top()));
        if (std::abs(amount) < 1e300 || !std::isfinite(amount))
            QVERIFY(holds(chart.grab().toImage(), first, chart.palette().color(QPalette::Highlight)));
    }

    void theAllowanceIsALineAndAnAxis()
    {
        CourseChart without;
        CourseChart with;
        show(without, {bar(0, 10.0), bar(1, 10.0)}, 0.0F);
        show(with, {bar(0, 10.0), bar(1, 10.0)}, 60.0F);
        QVERIFY(with.heightOf(60.0) > with.plotArea().top() - 1); // it is on the axis, however little was eaten
        const double gap = (with.barArea(bar(0, 1.0)).right() + with.barArea(bar(1, 1.0)).left()) / 2;
        const QRectF line(with.plotArea().left() + 1, with.heightOf(60.0) - 1, with.plotArea().width() - 20, 2);
        QVERIFY(gap > 0);
        QVERIFY(holds(with.grab().toImage(), line, with.palette().color(QPalette::Text)));
        QVERIFY(without.plotArea().right() > with.plotArea().right()); // the percentages
    }

    void theMeanIsBrokenWhereDaysAreMissing()
    {
        CourseChart chart;
        const auto day = [](int number) { return monday.addDays(number); };
        show(chart, {bar(0, 1.0), bar(1, 1.0), bar(2, 1.0), bar(3, 1.0), bar(4, 1.0), bar(5, 100.0)}, 0.0F,
            {{day(0), 50.0}, {day(1), 50.0}, {day(4), 50.0}, {day(5), 50.0}});
        const QImage picture = chart.grab().toImage();
        const QColor text = chart.palette().color(QPalette::Text);
        const auto between = [&](int number) {
            const double left = chart.barArea(bar(number, 1.0)).center().x();
            const double right = chart.barArea(bar(number + 1, 1.0)).center().x();
            return QRectF(left + 5, chart.heightOf(50.0) - 3, right - left - 10, 6);
        };
        QVERIFY(holds(picture, between(0), text));
        for (const int number : {1, 2, 3})
            QVERIFY2(!holds(picture, between(number), text), qPrintable(QString::number(number)));
        QVERIFY(holds(picture, between(4), text));
    }

    void aMonthOfTwoYearsWeeksIsNamedOnce()
    {
        CourseChart chart;
        std::vector<History::Bar> bars;
        for (int i = 0; i < 60; ++i)
            bars.push_back({{monday.addDays(7 * i), monday.addDays(7 * i + 6)}, 7, 1.0});
        show(chart, bars, 0.0F, {}, History::Grouping::Week);
        chart.resize(2400, 300); // has room for twice as many names
        const QRectF plot = chart.plotArea();
        const auto below = [&](int from, int to) {
            return QRectF(QPointF(chart.barArea(bars[std::size_t(from)]).left(), plot.bottom() + 2),
                QPointF(chart.barArea(bars[std::size_t(to)]).left() - 5, chart.height() - 2));
        };
        const QImage picture = chart.grab().toImage();
        QVERIFY(!holds(picture, below(3, 5), chart.palette().color(QPalette::Text)));
        QVERIFY(holds(picture, below(5, 7), chart.palette().color(QPalette::Text)));
    }

    void aLargerFontHasItsRoom()
    {
        CourseChart chart;
        show(chart, {bar(0, 1.0)}, 60.0F);
        const QRectF before = chart.plotArea();
        QFont large = chart.font();
        large.setPointSize(2 * large.pointSize());
        chart.setFont(large);
        QVERIFY(chart.plotArea().left() > before.left());
        QVERIFY(chart.plotArea().bottom() < before.bottom());
    }

    void moreBarsThanPixelsArePainted()
    {
        CourseChart chart;
        std::vector<History::Bar> bars;
        for (int i = 0; i < 7000; ++i)
            bars.push_back(bar(i, i == 3500 ? 100.0 : 1.0));
        show(chart, bars, 0.0F);
        const QRectF tallest = chart.barArea(bars[3500]);
        QVERIFY(
            holds(chart.grab().toImage(), tallest.adjusted(-1, 5, 1, -5), chart.palette().color(QPalette::Highlight)));
    }

    void withoutALoggedDayThereAreWords()
    {
        CourseChart chart;
        chart.setEmptyText(QStringLiteral("MMMMMMMM"));
        show(chart, {bar(0, 0.0, 0)}, 60.0F);
        const QRectF middle = QRectF(chart.rect()).adjusted(150, 100, -150, -100);
        QVERIFY(holds(chart.grab().toImage(), middle, chart.palette().color(QPalette::Text)));
        chart.setEmptyText({});
        QVERIFY(!holds(chart.grab().toImage(), middle, chart.palette().color(QPalette::Text)));
    }

    void aClickPointsAtTheDayUnderIt()
    {
        CourseChart chart;
        show(chart, {bar(0, 1.0), bar(1, 1.0), bar(2, 1.0)}, 0.0F);
        const QSignalSpy pointed(&chart, &DayView::dayPointedAt);
        QTest::mouseClick(&chart, Qt::LeftButton, {}, chart.barArea(bar(2, 1.0)).center().toPoint());
        QTest::mouseClick(&chart, Qt::LeftButton, {}, QPoint(2, 150)); // beside the bars
        QCOMPARE(pointed.size(), 1);
        QCOMPARE(pointed[0][0].toDate(), monday.addDays(2));
    }

    void aClickInTheYearPointsAtTheDayUnderIt()
    {
        YearView view;
        view.resize(700, 200);
        view.setYear(yearOfSteps(), true);
        const QSignalSpy pointed(&view, &DayView::dayPointedAt);
        QTest::mouseClick(&view, Qt::LeftButton, {}, view.cellArea({2026, 7, 3}).center().toPoint());
        QTest::mouseClick(&view, Qt::LeftButton, {}, QPoint(2, 2)); // beside the cells
        QCOMPARE(pointed.size(), 1);
        QCOMPARE(pointed[0][0].toDate(), QDate(2026, 7, 3));
    }

    void theYearHasAShadeForEachStepAndHollowDays()
    {
        YearView view;
        view.resize(700, 200);
        view.setYear(yearOfSteps(), true);
        const QImage picture = view.grab().toImage();
        const auto colorOf = [&](int number) {
            return picture.pixelColor(view.cellArea(QDate(2026, 1, 1).addDays(number)).center().toPoint());
        };
        for (int step = 0; step < History::steps; ++step) {
            QCOMPARE(colorOf(step), view.shade(step));
            QVERIFY(step == 0 || view.shade(step) != view.shade(step - 1));
        }
        QCOMPARE(colorOf(History::steps), view.palette().color(QPalette::Base));
        QVERIFY(view.cellArea({2026, 1, 1}).left() < view.cellArea({2026, 1, 1}).width());
        QVERIFY(view.shade(0) != view.palette().color(QPalette::Base));
    }

    void theYearsKeysGoByDayAndByWeek_data()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::addColumn<QDate>("day");
        QTest::newRow("Left") << Qt::Key_Left << QDate(2026, 1, 3);
        QTest::newRow("Right") << Qt::Key_Right << QDate(2026, 1, 17);
        QTest::newRow("Up") << Qt::Key_Up << QDate(2026, 1, 9);
        QTest::newRow("Down") << Qt::Key_Down << QDate(2026, 1, 11);
        QTest::newRow("Page Up stops at the year's first day") << Qt::Key_PageUp << QDate(2026, 1, 1);
        QTest::newRow("Page Down") << Qt::Key_PageDown << QDate(2026, 2, 10);
        QTest::newRow("Home") << Qt::Key_Home << QDate(2026, 1, 1);
        QTest::newRow("End") << Qt::Key_End << QDate(2026, 12, 31);
    }

    void theYearsKeysGoByDayAndByWeek()
    {
        QFETCH(Qt::Key, key);
        QFETCH(QDate, day);
        YearView view;
        const QSignalSpy pointed(&view, &DayView::dayPointedAt);
        QTest::keyClick(&view, key);
        QCOMPARE(pointed.size(), 0); // there is none yet
        view.setYear(yearOfSteps(), true);
        view.setCurrentDay({2026, 1, 10}, {}, 0.0);
        QTest::keyClick(&view, key);
        QCOMPARE(pointed.size(), 1);
        QCOMPARE(pointed[0][0].toDate(), day);
        QTest::keyClick(&view, key, Qt::ControlModifier); // means something else
        QCOMPARE(pointed.size(), 1);
    }

    void aScreenReaderHearsWhereTheCursorIs()
    {
        CourseChart chart;
        chart.setAccessibleName(QStringLiteral("Course of Iron"));
        QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(&chart);
        QCOMPARE(spoken->role(), QAccessible::Chart);
        QCOMPARE(spoken->text(QAccessible::Name), QStringLiteral("Course of Iron"));
        QVERIFY(spoken->state().focusable);
        QVERIFY(spoken->valueInterface());
        chart.setCurrentDay(monday, QStringLiteral("Mon: 4.00 mg"), 4.0);
        QAccessibleValueInterface *value = spoken->valueInterface();
        value->setCurrentValue(7.0); // by which no day would be meant
        QCOMPARE(value->currentValue().toDouble(), 4.0);
        QVERIFY(value->minimumValue().toDouble() < -3e38);
        QVERIFY(value->maximumValue().toDouble() > 3e38); // a mean may be that
        QCOMPARE(value->minimumStepSize().toDouble(), 0.0);
        chart.setCurrentDay(monday, QStringLiteral("Mon: inf mg"), infinity);
        QCOMPARE(spoken->text(QAccessible::Description), QStringLiteral("Mon: inf mg"));
        QCOMPARE(spoken->text(QAccessible::Value), QStringLiteral("Mon: inf mg"));
        QCOMPARE(spoken->valueInterface()->currentValue().toDouble(), 0.0);
    }

private:
    static void show(CourseChart &chart, const std::vector<History::Bar> &bars, float allowance,
        const std::vector<History::RunningMean> &running = {}, History::Grouping grouping = History::Grouping::Day)
    {
        chart.resize(500, 300);
        History::Course course;
        course.grouping = grouping;
        course.bars = bars;
        course.running = running;
        chart.setContent({{bars.front().days.first, bars.back().days.last}, course, QStringLiteral("mg"), allowance});
    }
    // 1 January has step 0, and so on; from 6 January on nothing is logged.
    static History::Year yearOfSteps()
    {
        History::Year year;
        year.year = 2026;
        for (int i = 0; i < 365; ++i) {
            History::Cell cell;
            cell.date = QDate(2026, 1, 1).addDays(i);
            cell.week = (i + 3) / 7;
            cell.weekday = (i + 3) % 7;
            if (i < History::steps)
                cell.step = i;
            year.cells.push_back(cell);
        }
        return year;
    }
};

QTEST_MAIN(HistoryChartTest)
#include "tst_historychart.moc"
