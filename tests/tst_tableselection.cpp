// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "tests/support/LogTableTest.h"

#include <QClipboard>
#include <QSignalSpy>

namespace {

QStringList none()
{
    return {};
}

} // namespace

class TableSelectionTest final : public LogTableTest {
    Q_OBJECT

private slots:
    void init() { makeTable(); }
    void cleanup() { dropWindow(); }

    void selectedRowsAscend()
    {
        load(10);
        table->selectRowIndexes({7, 2, 9, 3, 2});
        QCOMPARE(table->selectedRowIndexes(), (QList<int>{2, 3, 7, 9}));
        table->selectRowIndexes({-5, 8, 10, 4000});
        QCOMPARE(table->selectedRowIndexes(), (QList<int>{8}));
    }

    void deselectingRunsTheHandlerAtOnceAndOnlyWhenARowWasSelected()
    {
        load(5);
        table->deselectAll();
        QCOMPARE(source.notes, none());
        table->selectRowIndexes({1, 2});
        source.forget();
        table->deselectAll();
        QCOMPARE(source.notes, QStringList{QStringLiteral("selected []")});
        table->deselectAll();
        QCOMPARE(source.notes.size(), 1);
    }

    void codeIsNeverAskedByTheFilter()
    {
        load(5);
        source.filter = [](const QList<int> & /*rows*/) { return std::nullopt; };
        table->selectRowIndexes({1, 2});
        QCOMPARE(source.notes, QStringList{QStringLiteral("selected [1 2]")});
        table->selectRowIndexes({1, 2});
        QCOMPARE(source.notes.size(), 1);
        table->deselectAll();
        QCOMPARE(table->selectedRowIndexes(), QList<int>());
        QCOMPARE(source.proposals.size(), 0);
    }

    void keysAndClicksPassTheFilter()
    {
        load(6);
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, middleOf(*table, 1, 0));
        QCOMPARE(source.proposals, (QList<QList<int>>{{1}}));
        QTest::keyClick(table, Qt::Key_Down, Qt::ShiftModifier);
        QTest::keyClick(table, Qt::Key_Down, Qt::ShiftModifier);
        QCOMPARE(table->selectedRowIndexes(), (QList<int>{1, 2, 3}));
        QTest::keyClick(table, Qt::Key_Up, Qt::ShiftModifier);
        QCOMPARE(table->selectedRowIndexes(), (QList<int>{1, 2}));
        QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::ControlModifier, middleOf(*table, 5, 0));
        QCOMPARE(table->selectedRowIndexes(), (QList<int>{1, 2, 5}));
        QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::ControlModifier, middleOf(*table, 1, 0));
        QCOMPARE(table->selectedRowIndexes(), (QList<int>{2, 5}));
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, middleOf(*table, 0, 0));
        QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::ShiftModifier, middleOf(*table, 3, 3));
        QCOMPARE(table->selectedRowIndexes(), (QList<int>{0, 1, 2, 3}));
        QCOMPARE(source.proposals.last(), (QList<int>{0, 1, 2, 3}));
    }

    void withNothingSelectedUpAndDownSelectFromTheFrameOn_data()
    {
        QTest::addColumn<int>("rows");
        QTest::addColumn<int>("framed");
        QTest::addColumn<Qt::Key>("key");
        QTest::addColumn<bool>("extends");
        QTest::addColumn<QList<int>>("selected");
        QTest::newRow("Down among others") << 5 << 2 << Qt::Key_Down << false << QList<int>{3};
        QTest::newRow("Down on the last row") << 5 << 4 << Qt::Key_Down << false << QList<int>{4};
        QTest::newRow("Up on the first row") << 5 << 0 << Qt::Key_Up << false << QList<int>{0};
        QTest::newRow("Up on a row alone") << 1 << 0 << Qt::Key_Up << false << QList<int>{0};
        QTest::newRow("Down on a row alone") << 1 << 0 << Qt::Key_Down << false << QList<int>{0};
        QTest::newRow("Shift+Down") << 5 << 2 << Qt::Key_Down << true << QList<int>{2, 3};
        QTest::newRow("Shift+Up on the first row") << 5 << 0 << Qt::Key_Up << true << QList<int>{0};
    }

    void withNothingSelectedUpAndDownSelectFromTheFrameOn()
    {
        QFETCH(int, rows);
        QFETCH(int, framed);
        QFETCH(Qt::Key, key);
        QFETCH(bool, extends);
        load(rows);
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, middleOf(*table, rows - 1, 0));
        table->deselectAll();
        table->setCurrentRow(framed);
        QTest::keyClick(table, key, Qt::ControlModifier); // which moves and selects nothing
        QCOMPARE(table->selectedRowIndexes(), QList<int>());
        table->setCurrentRow(framed);
        QTest::keyClick(table, key, extends ? Qt::ShiftModifier : Qt::NoModifier);
        QTEST(table->selectedRowIndexes(), "selected");
    }

    void theFirstClickInAScrolledTableIsAboutTheRowUnderIt()
    {
        makeWindow();
        load(60);
        before->setFocus();
        table->reloadData();
        table->selectionModel()->clear();
        table->scrollToBottom();
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, middleOf(*table, 58, name));
        QCOMPARE(table->selectedRowIndexes(), QList<int>{58});
    }

    void selectingAllProposesAllRows()
    {
        load(4);
        QTest::keyClick(table, Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(source.proposals, (QList<QList<int>>{{0, 1, 2, 3}}));
        QCOMPARE(source.notes, QStringList{QStringLiteral("selected [0 1 2 3]")});
    }

    void aRefusalLeavesTheSelectionAsItIs()
    {
        load(6);
        table->selectRowIndexes({2, 4});
        source.forget();
        source.filter = [](const QList<int> & /*rows*/) { return std::nullopt; };
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, middleOf(*table, 1, 0));
        QTest::keyClick(table, Qt::Key_Down);
        QTest::keyClick(table, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(table, Qt::Key_Escape);
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, {20, table->viewport()->height() - 5});
        QCOMPARE(table->selectedRowIndexes(), (QList<int>{2, 4}));
        QCOMPARE(source.notes, none());
        QVERIFY(source.proposals.size() >= 5);
    }

    void aProposalStartsFromWhatIsSelected()
    {
        load(6);
        const auto controlClick = [this](int row) {
            QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::ControlModifier, middleOf(*table, row, 0));
        };
        source.filter = [](const QList<int> & /*rows*/) { return std::nullopt; };
        controlClick(1);
        source.filter = nullptr;
        controlClick(2);
        QCOMPARE(source.proposals, (QList<QList<int>>{{1}, {2}}));
        table->selectRowIndexes({4, 5});
        controlClick(3);
        QCOMPARE(source.proposals.last(), (QList<int>{3, 4, 5}));
        QCOMPARE(table->selectedRowIndexes(), (QList<int>{3, 4, 5}));
    }

    void aTableThatRefusesEverythingNeverSelects()
    {
        load(6);
        source.filter = [](const QList<int> & /*rows*/) { return std::nullopt; };
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, middleOf(*table, 1, 0));
        QTest::keyClick(table, Qt::Key_Down, Qt::ShiftModifier);
        QTest::keyClick(table, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(table, Qt::Key_Space, Qt::ControlModifier);
        QCOMPARE(table->selectedRowIndexes(), QList<int>());
        QCOMPARE(table->currentIndex().row(), 2); // keys still move
        QCOMPARE(source.notes, none());
    }

    void anEmptyAnswerClearsTheSelection()
    {
        load(6);
        table->selectRowIndexes({2, 4});
        source.forget();
        source.filter = [](const QList<int> & /*rows*/) { return QList<int>(); };
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, middleOf(*table, 1, 0));
        QCOMPARE(table->selectedRowIndexes(), QList<int>());
        QCOMPARE(source.notes, QStringList{QStringLiteral("selected []")});
    }

    void theFilterSeesTheSelectionAsItStillIs()
    {
        load(6);
        table->selectRowIndexes({2});
        QList<int> seen;
        source.filter = [&](const QList<int> & /*rows*/) {
            seen = table->selectedRowIndexes();
            return QList<int>{5, 3}; // in any order
        };
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, middleOf(*table, 1, 0));
        QCOMPARE(seen, (QList<int>{2}));
        QCOMPARE(table->selectedRowIndexes(), (QList<int>{3, 5}));
        source.filter = nullptr;
        QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::ControlModifier, middleOf(*table, 0, 0));
        QCOMPARE(table->selectedRowIndexes(), (QList<int>{0, 3, 5}));
    }

    void aClickBelowTheRowsAndEscapeAndTheirKeyClearTheSelection()
    {
        load(3);
        const auto clears = [this](const std::function<void()> &gesture) {
            table->selectRowIndexes({0, 2});
            source.forget();
            gesture();
            return table->selectedRowIndexes().isEmpty() && source.notes == QStringList{QStringLiteral("selected []")};
        };
        QVERIFY(clears([this] {
            QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, {20, table->viewport()->height() - 5});
        }));
        QVERIFY(clears([this] { QTest::keyClick(table, Qt::Key_Escape); }));
        QVERIFY(clears([this] { QTest::keyClick(table, Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier); }));
        QVERIFY(!clears([this] { QTest::keyClick(table, Qt::Key_Control); }));
    }

    void escapeWithNothingToClearIsLeftToTheWindow()
    {
        load(3);
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QCoreApplication::sendEvent(table, &escape);
        QVERIFY(!escape.isAccepted());
        table->selectRowIndexes({1});
        QCoreApplication::sendEvent(table, &escape);
        QVERIFY(escape.isAccepted());
    }

    // The clipboard

    void theSystemClipboardIsNeverTouched()
    {
        load(3);
        QClipboard *clipboard = QGuiApplication::clipboard();
        clipboard->setText(QStringLiteral("mine"));
        table->selectRowIndexes({1});
        table->selectionModel()->setCurrentIndex(cellAt(*table, 1, 0), QItemSelectionModel::NoUpdate);
        for (const int key : {Qt::Key_C, Qt::Key_X, Qt::Key_V})
            QTest::keyClick(table, Qt::Key(key), Qt::ControlModifier);
        QTest::keyClick(table, Qt::Key_Insert, Qt::ControlModifier);
        QCOMPARE(clipboard->text(), QStringLiteral("mine"));
        QCOMPARE(table->selectedRowIndexes(), QList<int>{1});
        QCOMPARE(shown(1, 1), QStringLiteral("1.00"));
    }

    void theMenuBarsShortcutsStillRun()
    {
        load(3);
        QAction copy;
        copy.setShortcut(QKeySequence::Copy);
        table->addAction(&copy);
        QSignalSpy triggered(&copy, &QAction::triggered);
        QTest::keyClick(table, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(triggered.size(), 1);
    }
};

QTEST_MAIN(TableSelectionTest)
#include "tst_tableselection.moc"
