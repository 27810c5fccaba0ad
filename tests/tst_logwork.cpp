// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "platform/LocalDay.h"
#include "tests/support/WindowTest.h"
#include "ui/controls/DatePicker.h"
#include "ui/foodsheet/AddFoodSheet.h"

#include <QListView>
#include <QMenuBar>
#include <QToolTip>

#include <functional>

// What keys do with the rows of a day: the row with the frame is the one that they are about, and no selection goes
// from one day to another.
class LogWorkTest final : public WindowTest {
    Q_OBJECT

    // Adds what a query finds, by the keys of the sheet.
    void addByKeys(const QString &query)
    {
        press(Qt::Key_N, Qt::ControlModifier);
        AddFoodSheet *sheet = run->controller.addview;
        QTRY_COMPARE(QApplication::activeWindow(), sheet);
        QTest::keyClicks(sheet->focusWidget(), query);
        QTest::keyClick(sheet->focusWidget(), Qt::Key_Return);
        window()->activateWindow(); // as a window manager does
        QTRY_VERIFY(log()->hasFocus());
    }

private slots:
    void init() { makeWindow(); }
    void cleanup() { dropWindow(); }

    void anotherDayBeginsWithoutASelection_data()
    {
        QTest::addColumn<std::function<void()>>("go");
        const auto row = [](const char *way, const std::function<void()> &go) { QTest::newRow(way) << go; };
        row("Alt+Left", [this] { press(Qt::Key_Left, Qt::AltModifier); });
        row("Alt+Right", [this] { press(Qt::Key_Right, Qt::AltModifier); });
        row("Ctrl+T", [this] { press(Qt::Key_T, Qt::ControlModifier); });
        row("the picker", [this] {
            run->controller.datepicker->setFocus();
            press(Qt::Key_Up);
        });
        row("a date that was typed and left", [this] {
            DatePicker *picker = run->controller.datepicker;
            picker->setDisplayFormat(QStringLiteral("dd"));
            picker->setFocus();
            type(QStringLiteral("22"));
            nutrients()->setFocus();
        });
        row("the button of the day before",
            [this] { QTest::mouseClick(find<QWidget>("previousdaybutton"), Qt::LeftButton); });
    }

    void anotherDayBeginsWithoutASelection()
    {
        QFETCH(std::function<void()>, go);
        const QDateTime day = home->now;
        for (const int days : {-1, 1, 2, 0}) {
            run->controller.setDate(day.addDays(days));
            run->add({A, B, C});
        }
        home->now = day.addDays(2); // so that today is another day
        frame(1);
        run->select({1});
        go();
        QVERIFY(LocalDay::key(run->controller.curdate) != LocalDay::key(day));
        QCOMPARE(log()->selectedRowIndexes(), QList<int>());
        QCOMPARE(label(), QStringLiteral("3 foods"));
        QCOMPARE(shown(nutrients(), 0, 1), QStringLiteral("8 %")); // 150 of 2000
    }

    void theSameDayOpenedAgainKeepsItsSelection()
    {
        run->add({A, B});
        run->select({1});
        press(Qt::Key_T, Qt::ControlModifier);
        QCOMPARE(log()->selectedRowIndexes(), QList<int>{1});
        QCOMPARE(label(), QStringLiteral("1 selected food"));
    }

    void withNothingSelectedAKeyIsAboutTheFramedRow_data()
    {
        QTest::addColumn<std::function<void()>>("command");
        QTest::addColumn<QStringList>("left");
        QTest::addColumn<QList<int>>("selected");
        QTest::addColumn<int>("copied");
        const auto row = [](const char *way, const std::function<void()> &command) -> QTestData & {
            return QTest::newRow(way) << command;
        };
        const QStringList others{A, C};
        const QList<int> none;
        row("Delete", [] { press(Qt::Key_Delete); }) << others << none << 0;
        row("Ctrl+X", [] { press(Qt::Key_X, Qt::ControlModifier); }) << others << none << 1;
        row("Ctrl+C", [] { press(Qt::Key_C, Qt::ControlModifier); }) << QStringList{A, B, C} << QList<int>{1} << 1;
        row("Remove in the menu, by keys",
            [this] {
                press(Qt::Key_E, Qt::AltModifier);
                QTest::keyClick(openMenu(), Qt::Key_R);
            })
            << others << none << 0;
        row("Remove in the menu, by the mouse",
            [this] {
                QMenu *menu = find<QMenu>("editmenu");
                QMenuBar *bar = window()->menuBar();
                QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(menu->menuAction()).center());
                QTest::mouseClick(
                    menu, Qt::LeftButton, {}, menu->actionGeometry(find<QAction>("actionremove")).center());
            })
            << others << none << 0;
    }

    void withNothingSelectedAKeyIsAboutTheFramedRow()
    {
        QFETCH(std::function<void()>, command);
        run->add({A, B, C});
        frame(1);
        command();
        QTEST(run->names(), "left");
        QTEST(log()->selectedRowIndexes(), "selected");
        QTEST(int(run->controller.copyfoods.size()), "copied");
    }

    void aKeyIsAboutTheRowThatWasEditedOrPastedLast()
    {
        run->add({A, B});
        frame(0);
        type(QStringLiteral("7"));
        press(Qt::Key_Return);
        press(Qt::Key_X, Qt::ControlModifier);
        QCOMPARE(run->names(), QStringList{B});
        press(Qt::Key_V, Qt::ControlModifier);
        press(Qt::Key_Down);
        press(Qt::Key_Escape);
        press(Qt::Key_Delete);
        QCOMPARE(run->names(), QStringList{B});
    }

    void aSelectionComesBeforeTheFrame()
    {
        run->add({A, B, C});
        frame(1);
        run->select({0, 2});
        press(Qt::Key_Delete);
        QCOMPARE(run->names(), QStringList{B});
    }

    void withoutTheKeyboardInTheLogNothingIsFramedAndNothingGoes()
    {
        run->add({A, B});
        frame(1);
        nutrients()->setFocus();
        for (const Qt::Key key : {Qt::Key_X, Qt::Key_C})
            press(key, Qt::ControlModifier);
        press(Qt::Key_Delete);
        QCOMPARE(run->names(), QStringList({A, B}));
        QVERIFY(run->controller.copyfoods.empty());
    }

    void aKeyHeldOnRemovesNoSecondRow_data()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        QTest::newRow("Delete") << Qt::Key_Delete << Qt::KeyboardModifiers();
        QTest::newRow("Ctrl+X") << Qt::Key_X << Qt::KeyboardModifiers(Qt::ControlModifier);
    }

    void aKeyHeldOnRemovesNoSecondRow()
    {
        QFETCH(Qt::Key, key);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        run->add({A, B, C});
        frame(1);
        QTest::keyPress(log(), key, modifiers);
        for (int i = 0; i < 3; ++i)
            qt_sendShortcutOverrideEvent(log(), 0, key, modifiers, {}, true);
        QTest::keyRelease(log(), key, modifiers);
        QCOMPARE(run->names(), QStringList({A, C}));
    }

    void anAmountIsTakenAsPeopleWriteIt_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("entry");
        QTest::newRow("a fraction") << QStringLiteral("1/2") << QStringLiteral("A 0.5 g 0");
        QTest::newRow("a comma") << QStringLiteral("1,5") << QStringLiteral("A 1.5 g 0");
        QTest::newRow("no number") << QStringLiteral("0abc") << QStringLiteral("A 0 g 0");
    }

    void anAmountIsTakenAsPeopleWriteIt()
    {
        QFETCH(QString, typed);
        run->add({A});
        frame(0);
        for (const QChar key : typed) // the first opens the editor
            type(key);
        press(Qt::Key_Return);
        QTEST(run->entries().constFirst(), "entry");
    }

    void theUnitMenuTellsWeightsAndTakesLetters()
    {
        run->add({A});
        frame(0);
        press(Qt::Key_Down, Qt::AltModifier);
        QStringList items;
        for (const QAction *item : openMenu()->actions())
            items.append(item->text() + u'|' + item->data().toString() + (item->isChecked() ? u'*' : u' '));
        QCOMPARE(items, QStringList({QStringLiteral("g|1 g*"), QStringLiteral("1 cup|20.5 g ")}));
        QTest::keyClick(openMenu(), Qt::Key_C);
        QTest::keyClick(openMenu(), Qt::Key_Return);
        QCOMPARE(run->entries(), QStringList{QStringLiteral("A 100 1 cup 1")});
    }

    void restingOnANutrientTellsWhatIsKnownOfIt()
    {
        run->add({A, QStringLiteral("Butter, salted of a kind that nobody has made and nobody has a file of")});
        const auto rest = [this](int row) {
            const QModelIndex cell = nutrients()->model()->index(row, 1);
            nutrients()->scrollTo(cell);
            const QPoint place = nutrients()->visualRect(cell).center();
            QHelpEvent event(QEvent::ToolTip, place, nutrients()->viewport()->mapToGlobal(place));
            QCoreApplication::sendEvent(nutrients()->viewport(), &event);
            return QToolTip::text();
        };
        QCOMPARE(rest(0),
            QStringLiteral("Energy, 50.00 kcal, 2 % of the RDA (2000.00 kcal)\nA 100 %\nno figure for 1 of 2 foods"));
        QCOMPARE(rest(43),
            QStringLiteral(
                "Alanine, no allowance set: 0.00 g. Set one in the\npreferences\nno figure for 2 of 2 foods"));
    }

    void aFoodThatIsInTheLogAlreadyGetsTheFrame()
    {
        const QString honey = QStringLiteral("Honey");
        run->add({honey});
        for (int i = 0; i < 60; ++i) // more than there is room for
            run->add({A + QString::number(i)});
        frame(60);
        addByKeys(honey);
        QCOMPARE(run->names().size(), 61);
        QCOMPARE(log()->currentIndex().row(), 0);
        QCOMPARE(log()->rowAt(0), 0);
        type(QStringLiteral("25"));
        press(Qt::Key_Return);
        QCOMPARE(run->entries().constFirst(), QStringLiteral("Honey 25 g 0"));
    }

    void aFoodThatIsAddedGetsTheFrameBeforeOneThatWasThere()
    {
        const QString honey = QStringLiteral("Honey");
        run->add({honey, A, B});
        frame(1);
        addByKeys(QStringLiteral("butter, salted"));
        QCOMPARE(log()->currentIndex().row(), 3);
    }
};

QTEST_MAIN(LogWorkTest)
#include "tst_logwork.moc"
