// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "tests/support/LogWindowTest.h"

#include <QAccessible>

namespace {

QStringList none()
{
    return {};
}

} // namespace

class UnitMenuTest final : public LogWindowTest {
    Q_OBJECT

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
        const QPoint corner = table->viewport()->mapToGlobal(table->visualRect(cellAt(*table, 2, unit)).bottomLeft());
        QCOMPARE(menu->pos(), corner);
        QCOMPARE(QAccessible::queryAccessibleInterface(menu)->text(QAccessible::Name), QStringLiteral("Unit"));
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
