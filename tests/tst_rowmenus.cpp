// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "platform/LocalDay.h"
#include "tests/support/WindowTest.h"
#include "ui/controls/DatePicker.h"

#include <QCalendarWidget>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDialog>
#include <QMenuBar>

// The menus of the rows and the Edit menu: what stands in them, what it does, and what is shown as doing nothing.
class RowMenusTest final : public WindowTest {
    Q_OBJECT

    // Asks for a row's menu as the right button does, or as the menu key does.
    void rightClick(TableView *table, int row)
    {
        table->scrollTo(table->model()->index(row, 0));
        QTRY_VERIFY(table->viewport()->rect().contains(table->visualRect(table->model()->index(row, 0))));
        const QPoint place = table->visualRect(table->model()->index(row, 0)).center();
        QTest::mouseClick(table->viewport(), Qt::RightButton, {}, place);
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, table->viewport()->mapToGlobal(place));
        QCoreApplication::sendEvent(table->viewport(), &event);
    }
    static void pressMenuKey(TableView *table)
    {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
        QCoreApplication::sendEvent(table, &event);
    }
    void choose(const char *action)
    {
        QMenu *menu = openMenu();
        QVERIFY(menu != nullptr);
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(find<QAction>(action)).center());
    }
    // The texts of the open menu's items, those that are disabled in brackets.
    QStringList items()
    {
        QStringList texts;
        const QMenu *menu = openMenu();
        for (const QAction *item : menu != nullptr ? menu->actions() : QList<QAction *>()) {
            const QString text = item->text().remove(u'&');
            if (!item->isSeparator())
                texts.append(item->isEnabled() ? text : u'(' + text + u')');
        }
        return texts;
    }
    QString disabledItems()
    {
        QStringList disabled;
        for (const QString &item : items()) {
            if (item.startsWith(u'('))
                disabled.append(item.sliced(1).chopped(1));
        }
        return disabled.join(u' ');
    }

private slots:
    void init() { makeWindow(); }
    void cleanup() { dropWindow(); }

    void theRightButtonOpensTheRowsMenu()
    {
        run->add({A, B});
        frame(0);
        rightClick(log(), 1);
        QCOMPARE(items(),
            QStringList({QStringLiteral("Edit Amount"), QStringLiteral("Choose Unit"), QStringLiteral("Cut"),
                QStringLiteral("Copy"), QStringLiteral("(Paste)"), QStringLiteral("Remove")}));
        QCOMPARE(log()->selectedRowIndexes(), QList<int>{1});
        choose("actionremove");
        QCOMPARE(run->names(), QStringList{A});
    }

    void belowTheRowsThereIsNoMenu()
    {
        run->add({A});
        const QPoint place(20, log()->viewport()->height() - 5);
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, log()->viewport()->mapToGlobal(place));
        QCoreApplication::sendEvent(log()->viewport(), &event);
        QVERIFY(openMenu() == nullptr);
    }

    void theMenuKeysOpenTheFramedRowsMenuBesideIt_data()
    {
        QTest::addColumn<bool>("byfunctionkey");
        QTest::newRow("the menu key") << false;
        QTest::newRow("Shift+F10") << true;
    }
    void theMenuKeysOpenTheFramedRowsMenuBesideIt()
    {
        QFETCH(const bool, byfunctionkey);
        run->add({A, B, C});
        frame(1);
        if (byfunctionkey)
            QTest::keyClick(log(), Qt::Key_F10, Qt::ShiftModifier);
        else
            pressMenuKey(log());
        QVERIFY(openMenu() != nullptr);
        const QRect row = log()->visualRect(log()->model()->index(1, 0));
        QCOMPARE(openMenu()->pos(), log()->viewport()->mapToGlobal(row.bottomLeft()));
        QTest::keyClick(openMenu(), Qt::Key_T);
        QCOMPARE(run->names(), QStringList({A, C}));
    }

    void aRowsAmountAndUnitAreReachedFromItsMenu()
    {
        run->add({A, B});
        rightClick(log(), 1);
        choose("actioneditamount");
        QVERIFY(editor() != nullptr);
        type(QStringLiteral("30"));
        press(Qt::Key_Return);
        rightClick(log(), 1);
        choose("actionchooseunit");
        QVERIFY(openMenu() != nullptr);
        QTest::keyClick(openMenu(), Qt::Key_End);
        QTest::keyClick(openMenu(), Qt::Key_Return);
        QCOMPARE(run->entries().constLast(), QStringLiteral("B 30 1 cup 1"));
    }

    void theEditMenuEditsTheLogFromAnywhere()
    {
        run->add({A, B});
        frame(1);
        find<QWidget>("usep")->setFocus();
        find<QAction>("actioneditamount")->trigger();
        QVERIFY(editor() != nullptr);
        QCOMPARE(log()->currentIndex().row(), 1);
        press(Qt::Key_Escape);
        find<QWidget>("usep")->setFocus();
        find<QAction>("actionchooseunit")->trigger();
        QVERIFY(openMenu() != nullptr);
    }

    void outsideTheLogItsKeysAreOthers()
    {
        run->add({A});
        frame(0);
        QWidget *picker = find<QWidget>("datepicker");
        picker->setFocus();
        press(Qt::Key_Down, Qt::AltModifier);
        QVERIFY(openMenu() == nullptr);
        QVERIFY(picker->findChild<QCalendarWidget *>()->isVisible());
        picker->findChild<QCalendarWidget *>()->window()->close();
        nutrients()->setFocus();
        press(Qt::Key_F2);
        QVERIFY(editor() == nullptr);
    }

    void aNutrientsMenuOpensThePreferencesAtIt()
    {
        rightClick(nutrients(), 31);
        QCOMPARE(items(), QStringList({QStringLiteral("Foods by Nutrient…"), QStringLiteral("Set Allowance…")}));
        choose("actionsetallowance");
        QVERIFY(run->controller.preferences->isVisible());
        QCOMPARE(run->controller.rdamenu->currentText(), QStringLiteral("Vitamin C"));
        QCOMPARE(run->controller.rdalabel->text(), QStringLiteral("mg"));
        QCOMPARE(run->controller.preferences->focusWidget(), run->controller.rdainput);
        QTest::keyClicks(run->controller.rdainput, QStringLiteral("120"));
        QTest::keyClick(run->controller.rdainput, Qt::Key_Return);
        QCOMPARE(run->controller.rdas[31], 120.0F);
    }

    void whatWouldDoNothingIsDisabledWhileTheEditMenuIsOpen_data()
    {
        QTest::addColumn<std::function<void()>>("prepare");
        QTest::addColumn<QString>("disabled");
        const auto row = [](const char *when, const std::function<void()> &prepare, const char *disabled) {
            QTest::newRow(when) << prepare << QString::fromLatin1(disabled);
        };
        row(
            "in an empty log", [] {}, "Cut Copy Paste Remove Select All Deselect All Edit Amount Choose Unit");
        row(
            "with a framed row",
            [this] {
                run->add({A, B});
                frame(0);
            },
            "Paste Deselect All");
        row(
            "with the keyboard elsewhere",
            [this] {
                run->add({A, B});
                nutrients()->setFocus();
            },
            "Cut Copy Paste Remove Deselect All");
        row(
            "with all rows selected",
            [this] {
                run->add({A, B});
                run->select({0, 1});
            },
            "Paste Select All");
        row(
            "with the copied food in the log",
            [this] {
                run->add({A});
                run->select({0});
                run->controller.copy();
            },
            "Paste Select All");
        row(
            "with the cut food gone from it",
            [this] {
                run->add({A});
                run->select({0});
                run->controller.cut();
            },
            "Cut Copy Remove Select All Deselect All Edit Amount Choose Unit");
    }

    void whatWouldDoNothingIsDisabledWhileTheEditMenuIsOpen()
    {
        QFETCH(std::function<void()>, prepare);
        prepare();
        auto *menu = find<QMenu>("editmenu");
        QMenuBar *bar = window()->menuBar();
        QStringList bykeys;
        bar->setFocus(Qt::MenuBarFocusReason); // as it does itself when it is walked through by keys
        emit menu->aboutToShow();
        for (const QAction *item : menu->actions())
            if (!item->isSeparator() && !item->isEnabled())
                bykeys.append(item->text().remove(u'&'));
        emit menu->aboutToHide();
        QTEST(bykeys.join(u' '), "disabled");
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(menu->menuAction()).center());
        QTEST(disabledItems(), "disabled");
        QTest::keyClick(menu, Qt::Key_Escape);
        for (const QAction *item : menu->actions())
            QVERIFY(item->isEnabled()); // whose shortcuts stay alive
    }

    void whatWouldDoNothingIsDisabledWhileTheDayMenuIsOpen_data()
    {
        QTest::addColumn<QDate>("day");
        QTest::addColumn<QString>("disabled");
        QTest::newRow("on the only logged day")
            << QDate(2015, 5, 11) << QStringLiteral("Previous Logged Day Next Logged Day");
        QTest::newRow("after it") << QDate(2015, 5, 12) << QStringLiteral("Next Logged Day");
        QTest::newRow("today") << QDate() << QStringLiteral("Today Next Logged Day");
        QTest::newRow("on the first day")
            << LocalDay::firstDate() << QStringLiteral("Previous Day Previous Logged Day");
        QTest::newRow("on the last day") << LocalDay::lastDate() << QStringLiteral("Next Day Next Logged Day");
    }

    void whatWouldDoNothingIsDisabledWhileTheDayMenuIsOpen()
    {
        QFETCH(QDate, day);
        run->controller.datepicker->setDate({2015, 5, 11});
        run->add({A});
        if (day.isValid())
            run->controller.datepicker->setDate(day);
        else
            run->controller.today();
        auto *menu = find<QMenu>("daymenu");
        QMenuBar *bar = window()->menuBar();
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(menu->menuAction()).center());
        QTEST(disabledItems(), "disabled");
        QTest::keyClick(menu, Qt::Key_Escape);
        for (const QAction *item : menu->actions())
            QVERIFY(item->isEnabled());
    }
};

QTEST_MAIN(RowMenusTest)
#include "tst_rowmenus.moc"
