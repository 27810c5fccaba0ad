// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "tests/support/LogTableTest.h"

#include <QAccessible>
#include <QHeaderView>
#include <QScrollBar>
#include <QSignalSpy>

#include <limits>

namespace {

QStringList none()
{
    return {};
}

} // namespace

class TableViewTest final : public LogTableTest {
    Q_OBJECT

    // Whether anything is painted in a part of a cell, from so many pixels on.
    bool hasInk(int column, int from, int width)
    {
        const QRect cell = table->visualRect(cellAt(*table, 0, column));
        const QImage part
            = table->viewport()->grab({cell.left() + from, cell.top() + 2, width, cell.height() - 4}).toImage();
        for (int y = 0; y < part.height(); ++y)
            for (int x = 0; x < part.width(); ++x)
                if (part.pixel(x, y) != part.pixel(0, 0))
                    return true;
        return false;
    }

private slots:
    void init() { makeTable(); }
    void cleanup() { dropWindow(); }

    // Reloading

    void nothingIsAskedBeforeTheFirstReload()
    {
        source.fill(3);
        show();
        QCOMPARE(table->model()->rowCount(), 0);
        QCOMPARE(source.asked, none());
    }

    void aTableWithoutASourceHasNoRows()
    {
        TableView alone;
        alone.addTableColumn({QStringLiteral("Name"), QStringLiteral("Name"), nullptr, false});
        alone.reloadData();
        alone.deselectAll();
        alone.viewport()->grab();
        QCOMPARE(alone.model()->rowCount(), 0);
        QVERIFY(!alone.endEditing());
        QVERIFY(alone.cellForColumn(QStringLiteral("name")) == nullptr);
        QVERIFY(alone.cellForColumn(QStringLiteral("Name")) != nullptr);
    }

    void anEmptyTableMakesNoCellCallback()
    {
        load(0);
        table->viewport()->grab();
        QCOMPARE(table->model()->rowCount(), 0);
        QCOMPARE(source.asked, none());
        QCOMPARE(source.prepared, none());
    }

    void aReloadTakesTheNewCount()
    {
        load(3);
        for (const int count : {5, 2, 0, 4}) {
            source.fill(count);
            table->reloadData();
            QCOMPARE(table->model()->rowCount(), count);
        }
    }

    void aValueIsAskedOnceUntilTheNextReload()
    {
        load(2);
        table->reloadData();
        source.forget();
        table->viewport()->grab();
        QStringList once = source.asked;
        QCOMPARE(once.size(), 8);
        QCOMPARE(once.removeDuplicates(), 0);
        source.forget();
        table->viewport()->grab();
        shown(1, 0);
        QCOMPARE(source.asked, none());
    }

    void nothingNewShowsWithoutAReload()
    {
        load(2);
        source.entries[1].name = QStringLiteral("Changed");
        table->viewport()->grab();
        QCOMPARE(shown(1, 0), QStringLiteral("Food 1"));
        table->reloadData();
        QCOMPARE(shown(1, 0), QStringLiteral("Changed"));
    }

    void onlyRowsInSightAreAsked()
    {
        load(7801);
        table->reloadData();
        source.forget();
        table->viewport()->grab();
        QVERIFY(source.asked.contains(QStringLiteral("Name 0")));
        QVERIFY(!source.asked.contains(QStringLiteral("Name 100")));
        QVERIFY(source.asked.size() < 100);
    }

    void aRowThatTheSourceNoLongerHasIsNeverAsked()
    {
        load(5);
        table->reloadData();
        source.forget();
        source.entries.resize(2);
        table->viewport()->grab();
        for (int column = 0; column < 4; ++column) {
            for (const int role : {int(Qt::DisplayRole), int(Qt::EditRole), int(Qt::ToolTipRole),
                     int(Qt::AccessibleTextRole), int(Qt::AccessibleDescriptionRole)}) {
                QVERIFY(cellAt(*table, 3, column).data(role).toString().isEmpty());
            }
        }
        for (const QString &note : source.asked + source.prepared)
            QVERIFY2(note.endsWith(u'0') || note.endsWith(u'1'), qPrintable(note));
        QVERIFY(!source.asked.isEmpty());
    }

    void aReloadKeepsTheScrollPositionTheCurrentCellAndTheSelection()
    {
        load(200);
        table->selectRowIndexes({3, 50, 51});
        table->selectionModel()->setCurrentIndex(cellAt(*table, 60, 3), QItemSelectionModel::NoUpdate);
        table->verticalScrollBar()->setValue(777);
        source.forget();
        source.fill(300);
        table->reloadData();
        source.fill(100);
        table->reloadData();
        QCOMPARE(table->verticalScrollBar()->value(), 777);
        QCOMPARE(table->currentIndex(), cellAt(*table, 60, 3));
        QCOMPARE(table->selectedRowIndexes(), (QList<int>{3, 50, 51}));
        QCOMPARE(source.notes, none());
    }

    void aReloadNeverResetsTheModelNorReportsChangedData()
    {
        load(3);
        QSignalSpy resets(table->model(), &QAbstractItemModel::modelReset);
        QSignalSpy changes(table->model(), &QAbstractItemModel::dataChanged);
        for (const int count : {3, 10, 1, 0, 2}) {
            source.fill(count);
            table->reloadData();
        }
        QCOMPARE(resets.size(), 0);
        QCOMPARE(changes.size(), 0);
    }

    void onlyIndexesBeyondTheNewCountLeaveTheSelectionAndTheHandlerRunsOnce()
    {
        load(10);
        table->selectRowIndexes({1, 4, 5, 9});
        source.forget();
        int rowsseen = -1;
        source.onSelection = [&] { rowsseen = table->model()->rowCount(); };
        source.entries.resize(5);
        table->reloadData();
        QCOMPARE(table->selectedRowIndexes(), (QList<int>{1, 4}));
        QCOMPARE(source.notes, QStringList{QStringLiteral("selected [1 4]")});
        QCOMPARE(rowsseen, 5);
        QCOMPARE(source.proposals.size(), 0);
        source.forget();
        source.entries.resize(4); // row 4 is the first that is gone
        table->reloadData();
        QCOMPARE(source.notes, QStringList{QStringLiteral("selected [1]")});
        source.forget();
        source.entries.clear();
        table->reloadData();
        QCOMPARE(source.notes, QStringList{QStringLiteral("selected []")});
    }

    void aReloadDrawsTheNewValues()
    {
        load(3);
        const QImage former = table->viewport()->grab().toImage();
        source.entries[2].name = QStringLiteral("Something else");
        QCOMPARE(table->viewport()->grab().toImage(), former);
        table->reloadData();
        QVERIFY(table->viewport()->grab().toImage() != former);
    }

    // Columns and cells

    void columnsAreFoundByTheirExactIdentifier()
    {
        QVERIFY(table->cellForColumn(QStringLiteral("Amount")) != nullptr);
        QVERIFY(table->cellForColumn(QStringLiteral("amount")) == nullptr);
        QVERIFY(table->cellForColumn(QStringLiteral("Amount ")) == nullptr);
        QVERIFY(dynamic_cast<PopUpButtonCell *>(table->cellForColumn(QStringLiteral("Unit"))) != nullptr);
    }

    void aCellIsPreparedRightBeforeEveryUse()
    {
        load(2);
        source.entries[0].unit = 2;
        QCOMPARE(shown(0, 2), QStringLiteral("cup & 0")); // however it is prepared, it looks as it did
        table->reloadData();
        source.forget();
        QCOMPARE(shown(0, 2), QStringLiteral("slice"));
        QCOMPARE(shown(1, 2), QStringLiteral("cup & 1"));
        QCOMPARE(shown(0, 2), QStringLiteral("slice"));
        QCOMPARE(source.prepared,
            (QStringList{QStringLiteral("Unit 0"), QStringLiteral("Unit 1"), QStringLiteral("Unit 0")}));
        source.forget();
        table->viewport()->grab();
        QCOMPARE(source.prepared.size(), 8);
    }

    void theValueNumberChoosesAnItemUntilCodeChoosesAnother()
    {
        PopUpButtonCell cell;
        for (const char *title : {"g", "cup"}) {
            MenuItemUnit item;
            item.setTitle(QString::fromLatin1(title));
            cell.addItem(item);
        }
        QCOMPARE(cell.indexOfSelectedItem(), -1);
        QCOMPARE(cell.stringValue(), QString());
        cell.setObjectValue(1);
        QCOMPARE(cell.stringValue(), QStringLiteral("cup"));
        cell.selectItemAtIndex(0);
        QCOMPARE(cell.stringValue(), QStringLiteral("g"));
        for (const QVariant &value : {QVariant(2), QVariant(-1), QVariant(QStringLiteral("cup")), QVariant()}) {
            cell.setObjectValue(0);
            cell.setObjectValue(value);
            QCOMPARE(cell.indexOfSelectedItem(), -1);
        }
        cell.setObjectValue(0);
        cell.removeAllItems();
        QCOMPARE(cell.indexOfSelectedItem(), -1);
        QCOMPARE(cell.items().size(), 0);
    }

    void aMenuItemIsWhatWasSet()
    {
        MenuItemUnit item;
        QCOMPARE(item.idx(), 0);
        QCOMPARE(item.tag(), 0);
        item.setIdx(std::numeric_limits<qint32>::min());
        item.setTag(7800);
        item.setTitle(QStringLiteral("1 cup & more"));
        QCOMPARE(item.idx(), std::numeric_limits<qint32>::min());
        QCOMPARE(item.tag(), 7800);
        QCOMPARE(item.title(), QStringLiteral("1 cup & more"));
    }

    void theFormatterWritesTheNumber()
    {
        load(4);
        QCOMPARE(shown(3, 3), QStringLiteral("5"));
        QCOMPARE(cellAt(*table, 3, 3).data(Qt::EditRole).toFloat(), 4.5F);
    }

    void headersFollowTheAlignmentOfTheirColumn()
    {
        QCOMPARE(table->model()->headerData(1, Qt::Horizontal).toString(), QStringLiteral("Amount"));
        const int where = table->model()->headerData(1, Qt::Horizontal, Qt::TextAlignmentRole).toInt();
        QVERIFY(where & Qt::AlignRight);
        QVERIFY(!table->isSortingEnabled());
        QVERIFY(!table->horizontalHeader()->sectionsClickable());
    }

    void everyRowHasTheHeightThatTheFontGives()
    {
        load(100);
        const int height = table->rowHeight(0);
        QVERIFY(height > table->fontMetrics().height());
        QCOMPARE(table->rowHeight(99), height);
        QFont large = table->font();
        large.setPointSize(large.pointSize() * 2);
        table->setFont(large);
        QVERIFY(table->rowHeight(99) > table->fontMetrics().height());
        QVERIFY(table->rowHeight(0) > height);
        QCOMPARE(table->verticalHeader()->sectionResizeMode(0), QHeaderView::Fixed);
    }

    void aLongTextStaysInItsCellAndIsToldInFull()
    {
        load(1);
        source.entries[0].name = QStringLiteral("A very long name, ").repeated(20);
        table->reloadData();
        const QImage cut = table->viewport()->grab(table->visualRect(cellAt(*table, 0, 1))).toImage();
        QCOMPARE(shown(0, 0), source.entries[0].name);
        QVERIFY(table->itemDelegate()->sizeHint(QStyleOptionViewItem(), cellAt(*table, 0, 0)).width()
            > table->columnWidth(0));
        source.entries[0].name = QStringLiteral("Short");
        table->reloadData();
        QCOMPARE(table->viewport()->grab(table->visualRect(cellAt(*table, 0, 1))).toImage(), cut);
        QVERIFY(table->itemDelegate()->sizeHint(QStyleOptionViewItem(), cellAt(*table, 0, 0)).width()
            < table->columnWidth(0));
    }

    void textBeginsOrEndsAtTheSideOfItsColumn()
    {
        load(1);
        source.entries[0].name = QStringLiteral("Milk");
        table->reloadData();
        const int width = 200;
        table->setColumnWidth(0, width);
        table->setColumnWidth(1, width);
        const int length = table->fontMetrics().horizontalAdvance(shown(0, 1));
        QVERIFY(hasInk(0, 3, 20) && !hasInk(0, width / 2, width / 2 - 3)); // within the current cell's frame
        QVERIFY(hasInk(1, width - 20, 17) && !hasInk(1, 3, width - length - 15));
        source.entries[0].name = QStringLiteral("A very long name, ").repeated(20);
        table->reloadData();
        QVERIFY(hasInk(0, width - 25, 22)); // it is cut off at the end
    }

    void aTextOfSeveralLinesIsShownOnOne()
    {
        load(1);
        QList<QImage> pictures;
        for (const char16_t between : {u' ', u'\n', u'\r', u'\t', u'\v', u'\f', u'\x85', u'\u2028', u'\u2029'}) {
            source.entries[0].name = QStringLiteral("Milk") + QChar(between) + QStringLiteral("whole");
            table->reloadData();
            pictures << table->viewport()->grab().toImage();
            QCOMPARE(pictures.last(), pictures.first());
        }
    }

    void aRuleIsDrawnAboveEveryBlock()
    {
        load(6);
        const QImage plain = table->viewport()->grab().toImage();
        table->setStartsBlock([](int row) { return row == 2 || row == 4; });
        const QImage ruled = table->viewport()->grab().toImage();
        for (int row = 0; row < 6; ++row) {
            const int y = table->rowViewportPosition(row);
            const bool changed = ruled.copy(0, y, ruled.width(), 1) != plain.copy(0, y, plain.width(), 1);
            QCOMPARE(changed, row == 2 || row == 4);
        }
    }

    void theRuleIsSeenInALightAndADarkThemeAndAfterScrolling()
    {
        load(100);
        table->setStartsBlock([](int row) { return row == 40; });
        table->verticalScrollBar()->setValue(table->rowHeight(0) * 39 + 3);
        for (const auto &[base, text] : {std::pair(255, 0), std::pair(30, 230)}) {
            QPalette palette;
            palette.setColor(QPalette::Base, QColor(base, base, base));
            palette.setColor(QPalette::Text, QColor(text, text, text));
            table->setPalette(palette);
            const QImage image = table->viewport()->grab().toImage();
            const int x = image.width() - 1;
            const int y = table->rowViewportPosition(40);
            QVERIFY(std::abs(qRed(image.pixel(x, y)) - base) > 50);
            QCOMPARE(qRed(image.pixel(x, y - 2)), base);
            QCOMPARE(qRed(image.pixel(x, y + 2)), base);
        }
    }

    void anEmptyTableSaysWhatToDo()
    {
        load(0);
        const QImage blank = table->viewport()->grab().toImage();
        table->setPlaceholderText(QStringLiteral("Add a food with Ctrl+N"));
        QVERIFY(table->viewport()->grab().toImage() != blank);
        QCOMPARE(table->accessibleDescription(), QStringLiteral("Add a food with Ctrl+N"));
        source.fill(1);
        table->reloadData();
        QCOMPARE(table->accessibleDescription(), QString());
    }

    // Keys and focus

    void tabLeavesTheTableBothWays()
    {
        QWidget place;
        QWidget first(&place);
        first.setFocusPolicy(Qt::StrongFocus);
        TableView inside(&place);
        QWidget last(&place);
        last.setFocusPolicy(Qt::StrongFocus);
        addLogColumns(inside);
        inside.setDataSource(&source);
        source.fill(3);
        inside.reloadData();
        place.show();
        place.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&place));
        inside.setFocus();
        QTest::keyClick(&inside, Qt::Key_Tab);
        QCOMPARE(place.focusWidget(), &last);
        inside.setFocus();
        QTest::keyClick(&inside, Qt::Key_Backtab, Qt::ShiftModifier);
        QCOMPARE(place.focusWidget(), &first);
    }

    void aTableWithTheFocusHasACurrentCellAsSoonAsItHasRows()
    {
        load(0);
        QVERIFY(table->hasFocus());
        QVERIFY(!table->currentIndex().isValid());
        source.fill(2);
        table->reloadData();
        QCOMPARE(table->currentIndex(), cellAt(*table, 0, 0));
        QCOMPARE(table->selectedRowIndexes(), QList<int>());
        source.fill(0);
        table->reloadData();
        source.fill(1);
        table->reloadData();
        QCOMPARE(table->currentIndex(), cellAt(*table, 0, 0));
    }

    void theFocusIsSeenOnEveryCellAndOnAnEmptyTable()
    {
        load(2);
        const auto looksFocused = [this] {
            const QImage focused = table->viewport()->grab().toImage();
            table->clearFocus();
            const QImage plain = table->viewport()->grab().toImage();
            table->setFocus();
            return focused != plain;
        };
        for (int column = 0; column < 4; ++column) {
            table->selectionModel()->setCurrentIndex(cellAt(*table, 1, column), QItemSelectionModel::NoUpdate);
            QVERIFY(looksFocused());
            table->selectRowIndexes({1});
            QVERIFY(looksFocused());
            table->deselectAll();
        }
        source.fill(0);
        table->reloadData();
        QVERIFY(looksFocused());
    }

    void lettersMoveNowhere()
    {
        load(20);
        table->selectionModel()->setCurrentIndex(cellAt(*table, 3, 0), QItemSelectionModel::NoUpdate);
        source.forget();
        QTest::keyClick(table, Qt::Key_F);
        QCOMPARE(table->currentIndex().row(), 3);
        QCOMPARE(source.asked, none());
    }

    // Accessibility

    void whatIsSpokenIsWhatIsPainted()
    {
        load(3);
        QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(table);
        QVERIFY(interface != nullptr && interface->tableInterface() != nullptr);
        for (int row = 0; row < 3; ++row) {
            for (int column = 0; column < 4; ++column) {
                const QAccessibleInterface *cell = interface->tableInterface()->cellAt(row, column);
                QVERIFY(cell != nullptr);
                QCOMPARE(cell->text(QAccessible::Name), shown(row, column));
                QVERIFY(!cell->text(QAccessible::Name).isEmpty());
                const QString identifier = table->model()->headerData(column, Qt::Horizontal).toString();
                QCOMPARE(cell->text(QAccessible::Description), QStringLiteral("%1 of row %2").arg(identifier).arg(row));
            }
        }
        QCOMPARE(interface->tableInterface()->cellAt(2, 2)->text(QAccessible::Name), QStringLiteral("cup & 2"));
    }

    void aScreenReadersSelectionPassesTheFilter()
    {
        load(3);
        QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(table);
        QVERIFY(interface->tableInterface()->selectRow(1));
        QCOMPARE(source.proposals, (QList<QList<int>>{{1}}));
        QCOMPARE(table->selectedRowIndexes(), QList<int>{1});
        source.filter = [](const QList<int> & /*rows*/) { return std::nullopt; };
        interface->tableInterface()->selectRow(2);
        QCOMPARE(table->selectedRowIndexes(), QList<int>{1});
    }

    void theToolTipIsTheDelegatesSentence()
    {
        load(2);
        QCOMPARE(cellAt(*table, 1, 0).data(Qt::ToolTipRole).toString(), QStringLiteral("Name of row 1"));
    }

    void theModelAnswersWhatIsNoCellOfItsWithNothing()
    {
        load(2);
        QAbstractItemModel *model = table->model();
        QVERIFY(!model->data({}).isValid());
        QVERIFY(!model->headerData(4, Qt::Horizontal).isValid());
        QVERIFY(!model->headerData(-1, Qt::Horizontal).isValid());
        QVERIFY(!model->setData(model->index(0, 1), 5, Qt::DisplayRole));
        QVERIFY(!model->setData({}, 5));
        source.entries.resize(1);
        QVERIFY(!model->setData(model->index(1, 1), 5)); // a row that is gone
        QCOMPARE(source.notes, none());
    }

    void aRowsHeaderIsSpokenAsItsFirstCellAndNeverShown()
    {
        load(2);
        QCOMPARE(table->model()->headerData(1, Qt::Vertical, Qt::AccessibleTextRole), QVariant(shown(1, 0)));
        QVERIFY(!table->model()->headerData(1, Qt::Vertical).isValid());
    }

    // Size

    void sevenThousandRowsAreReloadedSelectedAndDroppedQuickly()
    {
        load(7801);
        QElapsedTimer clock;
        clock.start();
        for (int i = 0; i < 20; ++i)
            table->reloadData();
        const qint64 reloads = clock.restart();
        table->selectAll();
        const qint64 select = clock.restart();
        QCOMPARE(table->selectedRowIndexes().size(), 7801);
        clock.restart();
        source.fill(0);
        table->reloadData();
        const qint64 drop = clock.elapsed();
        // A hundred times what they take: only something quadratic gets there.
        QVERIFY2(reloads < 1000 && select < 500 && drop < 1000,
            qPrintable(QStringLiteral("%1 %2 %3").arg(reloads).arg(select).arg(drop)));
        QCOMPARE(source.notes.last(), QStringLiteral("selected []"));
    }
};

QTEST_MAIN(TableViewTest)
#include "tst_tableview.moc"
