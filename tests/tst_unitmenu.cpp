// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "tests/support/LogTableTest.h"

#include <QAccessible>
#include <QScreen>

namespace {

QStringList none()
{
    return {};
}

} // namespace

class UnitMenuTest final : public LogTableTest {
    Q_OBJECT

    // Where the open menu's chosen item is on the screen.
    QRect chosenItem() const
    {
        const QMenu *menu = openMenuOf(*table);
        return menu->actionGeometry(menu->activeAction()).translated(menu->pos());
    }

    static void mouse(QEvent::Type type, QWidget *widget, QPoint place, int milliseconds)
    {
        QMouseEvent event(type, place, widget->mapToGlobal(place),
            type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
            type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, {});
        event.setTimestamp(quint64(milliseconds));
        QCoreApplication::sendEvent(widget, &event);
    }

private slots:
    void init() { makeWindow(); }
    void cleanup() { dropWindow(); }

    void oneClickOpensTheUnitMenuWithTheRowsItems()
    {
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, middleOf(*table, 2, unit));
        QMenu *menu = openMenuOf(*table);
        QVERIFY(menu != nullptr);
        QCOMPARE(menu->actions().size(), 3);
        QCOMPARE(menu->actions().at(1)->text(), QStringLiteral("cup && 2"));
        QCOMPARE(menu->activeAction(), menu->actions().at(1));
        QVERIFY(menu->actions().at(1)->isChecked());
        QVERIFY(!menu->actions().at(0)->isChecked());
        QCOMPARE(table->currentIndex().row(), 2);
        QCOMPARE(table->selectedRowIndexes(), QList<int>());
        QVERIFY(chosenItem().contains(table->viewport()->mapToGlobal(middleOf(*table, 2, unit))));
        QCOMPARE(QAccessible::queryAccessibleInterface(menu)->text(QAccessible::Name), QStringLiteral("Unit"));
    }

    void theMenuIsOverItsCellAsFarAsTheScreenReaches_data()
    {
        QTest::addColumn<bool>("attop"); // of the screen, or at its bottom
        QTest::addColumn<int>("chosen");
        QTest::addColumn<bool>("isoverit");
        QTest::newRow("the first item at the top") << true << 0 << true;
        QTest::newRow("the last item at the top") << true << 2 << false;
        QTest::newRow("the first item at the bottom") << false << 0 << false;
        QTest::newRow("the last item at the bottom") << false << 2 << true;
    }

    void theMenuIsOverItsCellAsFarAsTheScreenReaches()
    {
        QFETCH(bool, attop);
        QFETCH(int, chosen);
        constexpr int room = 30; // for an item and no more
        source.entries[2].unit = chosen;
        table->reloadData();
        const QPoint place = middleOf(*table, 2, unit);
        const QRect screen = window->screen()->availableGeometry();
        const int wanted = attop ? screen.top() + room : screen.bottom() - room;
        window->move(window->pos() + QPoint(0, wanted - table->viewport()->mapToGlobal(place).y()));
        QTRY_VERIFY(qAbs(table->viewport()->mapToGlobal(place).y() - wanted) < 5);
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, place);
        QVERIFY(screen.contains(openMenuOf(*table)->geometry()));
        QTEST(chosenItem().contains(table->viewport()->mapToGlobal(place)), "isoverit");
    }

    void withinADoubleClicksTimeOfTheOpeningPressTheMouseChoosesNothing_data()
    {
        QTest::addColumn<int>("later"); // than the press that opened the menu, in milliseconds
        QTest::addColumn<bool>("chooses");
        const int interval = QApplication::doubleClickInterval();
        QTest::newRow("at once") << 0 << false;
        QTest::newRow("just within it") << interval - 1 << false;
        QTest::newRow("after it") << interval << true;
    }

    void withinADoubleClicksTimeOfTheOpeningPressTheMouseChoosesNothing()
    {
        QFETCH(int, later);
        QFETCH(bool, chooses);
        constexpr int opened = 50000;
        mouse(QEvent::MouseButtonPress, table->viewport(), middleOf(*table, 2, unit), opened);
        QMenu *menu = openMenuOf(*table);
        QVERIFY(menu != nullptr);
        const QPoint other = menu->actionGeometry(menu->actions().at(0)).center();
        mouse(QEvent::MouseButtonPress, menu, other, opened + later);
        mouse(QEvent::MouseButtonRelease, menu, other, opened + later);
        QCOMPARE(source.notes, chooses ? QStringList{QStringLiteral("unit 2 = 0 g")} : none());
        QCOMPARE(openMenuOf(*table) == nullptr, chooses);
    }

    void aLateReleaseChoosesOnlyAfterADrag_data()
    {
        QTest::addColumn<bool>("again"); // pressed within the interval
        QTest::addColumn<bool>("isdragged"); // or the hand trembles
        QTest::newRow("of a double click") << true << false;
        QTest::newRow("of one slow click") << false << false;
        QTest::newRow("dragged to another item") << false << true;
        QTest::newRow("of a double click, dragged to another item") << true << true;
    }

    void aLateReleaseChoosesOnlyAfterADrag()
    {
        QFETCH(bool, again);
        QFETCH(bool, isdragged);
        constexpr int opened = 50000;
        const int late = opened + QApplication::doubleClickInterval() + 40;
        const QPoint cell = middleOf(*table, 2, unit);
        mouse(QEvent::MouseButtonPress, table->viewport(), cell, opened);
        QMenu *menu = openMenuOf(*table);
        QVERIFY(menu != nullptr);
        const QPoint pressed = menu->mapFromGlobal(table->viewport()->mapToGlobal(cell));
        if (again)
            mouse(QEvent::MouseButtonPress, menu, pressed, opened + 300);
        const QPoint place = isdragged ? menu->actionGeometry(menu->actions().at(0)).center() : pressed;
        for (int i = 0; i < 8; ++i) // from when on Qt takes it for a motion
            mouse(QEvent::MouseMove, menu, place + QPoint(i % 2, 0), late);
        mouse(QEvent::MouseButtonRelease, menu, place, late);
        QCOMPARE(source.notes, isdragged ? QStringList{QStringLiteral("unit 2 = 0 g")} : none());
    }

    void aQuickPressOutsideClosesTheMenu()
    {
        mouse(QEvent::MouseButtonPress, table->viewport(), middleOf(*table, 2, unit), 50000);
        QVERIFY(openMenuOf(*table) != nullptr);
        mouse(QEvent::MouseButtonPress, openMenuOf(*table), QPoint(-20, -20), 50100);
        QVERIFY(openMenuOf(*table) == nullptr);
        QCOMPARE(source.notes, none());
    }

    void aMenuOpenedByAKeyTakesAPressAtOnce()
    {
        makeCurrent(2, name);
        press(Qt::Key_Space);
        QMenu *menu = openMenuOf(*table);
        const QPoint other = menu->actionGeometry(menu->actions().at(0)).center();
        mouse(QEvent::MouseButtonPress, menu, other, 1);
        mouse(QEvent::MouseButtonRelease, menu, other, 2);
        QCOMPARE(source.notes, QStringList{QStringLiteral("unit 2 = 0 g")});
    }

    void aDoubleClickWhoseFirstClickChoseAnItemOpensTheMenuAgainAndNoEditor()
    {
        const QPoint place = middleOf(*table, 2, unit);
        QMouseEvent event(QEvent::MouseButtonDblClick, place, table->viewport()->mapToGlobal(place), Qt::LeftButton,
            Qt::LeftButton, {});
        QCoreApplication::sendEvent(table->viewport(), &event);
        QVERIFY(openMenuOf(*table) != nullptr);
        QVERIFY(editor() == nullptr);
    }

    void theCellIsAsWideAsItsTextAndTheArrow()
    {
        const QSize menu = table->itemDelegate()->sizeHint({}, cellAt(*table, 2, unit));
        const QFontMetricsF metrics{QStyleOptionViewItem().font};
        QVERIFY(menu.width() > metrics.horizontalAdvance(QStringLiteral("cup & 2")) + 12);
    }

    void aClickWithAModifierSelectsInstead()
    {
        QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::ControlModifier, middleOf(*table, 2, unit));
        QVERIFY(openMenuOf(*table) == nullptr);
        QCOMPARE(table->selectedRowIndexes(), QList<int>{2});
    }

    void anotherButtonOpensNoMenu()
    {
        for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
            QTest::mouseClick(table->viewport(), button, {}, middleOf(*table, 2, unit));
            QVERIFY(openMenuOf(*table) == nullptr);
            QTest::mouseDClick(table->viewport(), button, {}, middleOf(*table, 2, unit));
            QVERIFY(openMenuOf(*table) == nullptr);
        }
    }

    void aKeyOpensTheMenuOfTheCurrentRow_data()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        QTest::newRow("Space") << Qt::Key_Space << Qt::KeyboardModifiers();
        QTest::newRow("Alt+Down") << Qt::Key_Down << Qt::KeyboardModifiers(Qt::AltModifier);
    }

    void aKeyOpensTheMenuOfTheCurrentRow()
    {
        QFETCH(Qt::Key, key);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        makeCurrent(3, name);
        press(key, modifiers);
        QMenu *menu = openMenuOf(*table);
        QVERIFY(menu != nullptr);
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Return);
        QCOMPARE(source.notes, QStringList{QStringLiteral("unit 3 = 2 slice")});
        QVERIFY(openMenuOf(*table) == nullptr);
        QVERIFY(table->hasFocus());
        QCOMPARE(table->currentIndex().row(), 3);
    }

    void lettersHomeAndEndGoToAUnit_data()
    {
        QTest::addColumn<QString>("keys"); // letters, "<" for Home and ">" for End
        QTest::addColumn<QString>("active");
        const auto row = [](const char *keys, const char *active) {
            QTest::newRow(keys) << QString::fromLatin1(keys) << QString::fromLatin1(active);
        };
        row("c", "2 cups & a bit");
        row("C", "2 cups & a bit");
        row("cc", "1 cup");
        row("ccc", "2 cups & a bit");
        row("s", "12 slices");
        row("g", "g");
        row("sg", "g");
        row("x", "1 large");
        row(">", "12 slices");
        row("<", "g");
    }

    void lettersHomeAndEndGoToAUnit()
    {
        QFETCH(QString, keys);
        source.entries[3].units = {QStringLiteral("g"), QStringLiteral("1 cup"), QStringLiteral("1 large"),
            QStringLiteral("2 cups & a bit"), QStringLiteral("12 slices")};
        source.entries[3].unit = 2;
        makeCurrent(3, name);
        press(Qt::Key_Space);
        QMenu *menu = openMenuOf(*table);
        for (const QChar key : keys) {
            if (key == u'<' || key == u'>')
                QTest::keyClick(menu, key == u'<' ? Qt::Key_Home : Qt::Key_End);
            else
                QTest::keyClick(menu, key.toLatin1());
        }
        QCOMPARE(openMenuOf(*table), menu); // nothing was chosen yet
        QTEST(menu->activeAction()->text().replace(QStringLiteral("&&"), QStringLiteral("&")), "active");
    }

    void aUnitsDetailIsAtItsRightAndNotInItsTitle()
    {
        const QString detail = QStringLiteral("1234567.89 g");
        source.entries[3].detail = detail;
        makeCurrent(3, name);
        press(Qt::Key_Space);
        QMenu *menu = openMenuOf(*table);
        QCOMPARE(menu->actions().at(1)->text(), QStringLiteral("cup && 3"));
        const QFontMetrics metrics = menu->fontMetrics();
        QRect item = menu->actionGeometry(menu->actions().at(0)).adjusted(2, 2, -2, -2);
        QVERIFY(menu->rect().contains(item));
        QVERIFY(item.width() > metrics.horizontalAdvance(QStringLiteral("cup & 3") + detail));
        item.setLeft(item.right() - metrics.horizontalAdvance(detail));
        const QImage picture = menu->grab(item).toImage();
        int ink = 0;
        for (int x = 0; x < picture.width(); ++x) {
            for (int y = 0; y < picture.height(); ++y)
                ink += picture.pixel(x, y) != picture.pixel(0, 0) ? 1 : 0;
        }
        QVERIFY(ink > 50);
    }

    void escapeChoosesNothing()
    {
        makeCurrent(3, name);
        press(Qt::Key_Space);
        QTest::keyClick(openMenuOf(*table), Qt::Key_Escape);
        QVERIFY(openMenuOf(*table) == nullptr);
        QCOMPARE(source.notes, none());
    }

    void theUnitThatIsAlreadySetIsSentAsWell()
    {
        makeCurrent(3, name);
        press(Qt::Key_Space);
        QTest::keyClick(openMenuOf(*table), Qt::Key_Return);
        QCOMPARE(source.notes, QStringList{QStringLiteral("unit 3 = 1 cup & 3")});
    }

    void theMenuKeepsItsItemsWhileOtherRowsArePainted()
    {
        makeCurrent(1, name);
        press(Qt::Key_Space);
        table->viewport()->grab();
        QCOMPARE(source.prepared.last().back(), QChar(u'4'));
        QTest::keyClick(openMenuOf(*table), Qt::Key_Return);
        QCOMPARE(source.notes, QStringList{QStringLiteral("unit 1 = 1 cup & 1")});
    }

    void theMenuIsAskedAfreshEachTime()
    {
        makeCurrent(1, name);
        source.entries[1].units = {QStringLiteral("g")};
        source.entries[1].unit = 0;
        press(Qt::Key_Space);
        QCOMPARE(openMenuOf(*table)->actions().size(), 1);
        QTest::keyClick(openMenuOf(*table), Qt::Key_Escape);
        source.entries[1].units.append(QStringLiteral("cup"));
        press(Qt::Key_Space);
        QCOMPARE(openMenuOf(*table)->actions().size(), 2);
    }

    void openingTheMenuDeliversAnOpenEditorFirst()
    {
        makeCurrent(1, name);
        type("12");
        source.onEdit = [this] { source.entries[1].units.append(QStringLiteral("added by the edit")); };
        press(Qt::Key_Down, Qt::AltModifier); // which the editor leaves to its table
        QCOMPARE(source.notes, QStringList{QStringLiteral("Amount 1 = 12")});
        QVERIFY(editor() == nullptr);
        QVERIFY(openMenuOf(*table) != nullptr);
        QCOMPARE(openMenuOf(*table)->actions().size(), 4);
    }

    void openingAnotherMenuClosesTheFirst()
    {
        makeCurrent(1, name);
        press(Qt::Key_Space);
        const QPointer<QMenu> first = openMenuOf(*table);
        QTest::keyClick(table, Qt::Key_Space);
        QVERIFY(!first || !first->isVisible());
        QVERIFY(openMenuOf(*table) != nullptr);
    }

    void aReloadAndTheEndOfEditingCloseTheMenu()
    {
        makeCurrent(3, name);
        press(Qt::Key_Space);
        table->reloadData();
        QVERIFY(openMenuOf(*table) == nullptr);
        press(Qt::Key_Space);
        QVERIFY(!table->endEditing());
        QVERIFY(openMenuOf(*table) == nullptr);
        QCOMPARE(source.notes, none());
    }

    void choosingMayReloadTheTable()
    {
        makeCurrent(3, name);
        source.entries[3].units = {QStringLiteral("g"), QStringLiteral("cup")};
        press(Qt::Key_Space);
        QMenu *menu = openMenuOf(*table);
        connect(menu->actions().at(1), &QAction::triggered, table, [this] {
            source.fill(2);
            table->reloadData();
        });
        QTest::keyClick(menu, Qt::Key_Return);
        QCOMPARE(source.notes, QStringList{QStringLiteral("unit 3 = 1 cup")});
        QCOMPARE(table->model()->rowCount(), 2);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(table->findChildren<QMenu *>().isEmpty());
    }

    void noMenuOpensForARowThatIsGone()
    {
        makeCurrent(3, name);
        source.entries.resize(2);
        source.forget();
        press(Qt::Key_Space);
        press(Qt::Key_F2);
        QVERIFY(openMenuOf(*table) == nullptr);
        QVERIFY(editor() == nullptr);
        QCOMPARE(source.asked, none());
    }
};

QTEST_MAIN(UnitMenuTest)
#include "tst_unitmenu.moc"
