// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "tests/support/LogTableTest.h"

#include <QAccessible>
#include <QSignalSpy>

#include <functional>
#include <utility>

namespace {

QStringList none()
{
    return {};
}

} // namespace

class TableEditingTest final : public LogTableTest {
    Q_OBJECT

    // One repetition of a key that is held down.
    static void hold(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, const QString &text = {})
    {
        QKeyEvent event(QEvent::KeyPress, key, modifiers, text, true);
        QCoreApplication::sendEvent(qApp->focusWidget(), &event);
    }

    // What an input method sends to the widget with the focus.
    static void compose(const QString &composition, const QString &committed = {})
    {
        QInputMethodEvent event(composition, {});
        event.setCommitString(committed);
        QCoreApplication::sendEvent(qApp->focusWidget(), &event);
    }

private slots:
    void init() { makeWindow(); }
    void cleanup() { dropWindow(); }

    // Opening

    void aKeyInTheRowOpensItsAmountEditorWithTheTextSelected_data()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::addColumn<int>("column");
        QTest::newRow("Return on the name") << Qt::Key_Return << name;
        QTest::newRow("Return on the energy") << Qt::Key_Return << energy;
        QTest::newRow("Enter on the amount") << Qt::Key_Enter << amount;
        QTest::newRow("F2 on the unit") << Qt::Key_F2 << unit;
        QTest::newRow("F2 on the amount") << Qt::Key_F2 << amount;
    }

    void aKeyInTheRowOpensItsAmountEditorWithTheTextSelected()
    {
        QFETCH(Qt::Key, key);
        QFETCH(int, column);
        makeCurrent(2, column);
        press(key);
        QCOMPARE(editedRow(), 2);
        QCOMPARE(editor()->text(), QStringLiteral("2.00"));
        QCOMPARE(editor()->selectedText(), QStringLiteral("2.00"));
        QCOMPARE(editor(), qApp->focusWidget());
        QCOMPARE(table->currentIndex(), cellAt(*table, 2, amount));
    }

    void typingADigitReplacesTheTextByIt_data()
    {
        QTest::addColumn<QString>("typed");
        for (const char *typed : {"0", "7", "75", "-1", ".5", "12.25"})
            QTest::newRow(typed) << QString::fromLatin1(typed);
    }

    // Each key but the first reaches the editor: the text is selected once, not again after the first digit.
    void typingADigitReplacesTheTextByIt()
    {
        QFETCH(QString, typed);
        makeCurrent(1, name);
        for (const QChar key : typed) {
            QTest::keyClick(qApp->focusWidget(), key.toLatin1());
            QCoreApplication::processEvents();
        }
        QCOMPARE(editedRow(), 1);
        QCOMPARE(editor()->text(), typed);
        QCOMPARE(editor()->selectedText(), QString());
        press(Qt::Key_Return);
        QCOMPARE(source.notes, QStringList{QStringLiteral("Amount 1 = ") + typed});
    }

    void digitsOfTheKeypadAndWithShiftOpenItToo()
    {
        makeCurrent(1, name);
        press(Qt::Key_4, Qt::KeypadModifier);
        QCOMPARE(editor()->text(), QStringLiteral("4"));
        press(Qt::Key_Escape);
        QKeyEvent shifted(QEvent::KeyPress, Qt::Key_Ampersand, Qt::ShiftModifier, QStringLiteral("1"));
        QCoreApplication::sendEvent(table, &shifted);
        QCOMPARE(editor()->text(), QStringLiteral("1"));
    }

    void otherKeysOpenNothing()
    {
        makeCurrent(1, amount);
        type("abc,+e/*");
        press(Qt::Key_5, Qt::ControlModifier);
        press(Qt::Key_5, Qt::AltModifier);
        press(Qt::Key_Return, Qt::ControlModifier);
        QVERIFY(editor() == nullptr);
        QCOMPARE(source.notes, none());
    }

    void aKeyHeldOnOpensNothingAndClearsNothing_data()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        QTest::addColumn<QString>("text");
        const Qt::KeyboardModifiers none;
        QTest::newRow("Return") << Qt::Key_Return << none << QString();
        QTest::newRow("F2") << Qt::Key_F2 << none << QString();
        QTest::newRow("a digit") << Qt::Key_5 << none << QStringLiteral("5");
        QTest::newRow("Space") << Qt::Key_Space << none << QStringLiteral(" ");
        QTest::newRow("Alt+Down") << Qt::Key_Down << Qt::KeyboardModifiers(Qt::AltModifier) << QString();
        QTest::newRow("Esc") << Qt::Key_Escape << none << QString();
    }

    void aKeyHeldOnOpensNothingAndClearsNothing()
    {
        QFETCH(Qt::Key, key);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        QFETCH(QString, text);
        makeCurrent(2, name);
        table->selectRowIndexes({2});
        hold(key, modifiers, text);
        QVERIFY(editor() == nullptr);
        QVERIFY(openMenuOf(*table) == nullptr);
        QCOMPARE(table->selectedRowIndexes(), QList<int>{2});
    }

    void aKeyThatOpensAnEditorNeitherClosesItNorOpensTheNextWhileItIsHeld()
    {
        makeCurrent(2, name);
        press(Qt::Key_Return);
        hold(Qt::Key_Return);
        QCOMPARE(editedRow(), 2);
        press(Qt::Key_Tab);
        hold(Qt::Key_Tab, {}, QStringLiteral("\t"));
        QCOMPARE(editedRow(), 3);
        hold(Qt::Key_5, {}, QStringLiteral("5"));
        hold(Qt::Key_5, {}, QStringLiteral("5"));
        QCOMPARE(editor()->text(), QStringLiteral("55"));
    }

    void aHeldArrowKeyGoesOn()
    {
        makeCurrent(0, name);
        press(Qt::Key_Down);
        hold(Qt::Key_Down);
        hold(Qt::Key_Down);
        QCOMPARE(table->currentIndex().row(), 3);
    }

    // Input methods

    void whatAnInputMethodCommitsOnTheAmountOpensItAsATypedDigitDoes_data()
    {
        QTest::addColumn<QString>("committed");
        QTest::addColumn<bool>("opens");
        QTest::newRow("a digit") << QStringLiteral("2") << true;
        QTest::newRow("several") << QStringLiteral("25") << true;
        QTest::newRow("a point") << QStringLiteral(".5") << true;
        QTest::newRow("a half") << QStringLiteral("\u00bd") << true;
        QTest::newRow("a letter") << QStringLiteral("a2") << false;
        QTest::newRow("nothing") << QString() << false;
    }

    void whatAnInputMethodCommitsOnTheAmountOpensItAsATypedDigitDoes()
    {
        QFETCH(QString, committed);
        QFETCH(bool, opens);
        makeCurrent(2, amount);
        compose({}, committed);
        QCOMPARE(editor() != nullptr, opens);
        if (!opens)
            return;
        QCOMPARE(editor()->text(), committed);
        QVERIFY(editor()->hasFocus());
        type("7");
        press(Qt::Key_Return);
        QCOMPARE(source.notes, QStringList{QStringLiteral("Amount 2 = ") + committed + u'7'});
    }

    void aCompositionBegunOnTheAmountEndsInItsEditor()
    {
        makeCurrent(2, amount);
        compose(QStringLiteral("2"));
        compose(QStringLiteral("25"));
        QCOMPARE(editedRow(), 2);
        compose({}, QStringLiteral("25"));
        QVERIFY(editor()->hasFocus());
        press(Qt::Key_Return);
        QCOMPARE(source.notes, QStringList{QStringLiteral("Amount 2 = 25")});
        press(Qt::Key_3);
        QVERIFY(editor()->hasFocus());
    }

    void whatIsStillBeingComposedIsDelivered_data()
    {
        QTest::addColumn<bool>("inthecell"); // or in the open editor
        QTest::addColumn<std::function<void()>>("end");
        for (const bool inthecell : {false, true}) {
            const auto row = [&](const char *how) -> QTestData & {
                return QTest::addRow("%s, %s", how, inthecell ? "begun on the cell" : "in the editor") << inthecell;
            };
            row("by a command") << std::function([this] { table->endEditing(); });
            row("by the focus") << std::function([this] { after->setFocus(); });
        }
        const auto row = [](const char *how) -> QTestData & { return QTest::newRow(how) << false; };
        row("by Return") << std::function([this] { press(Qt::Key_Return); });
        row("by Tab") << std::function([this] { press(Qt::Key_Tab); });
    }

    void whatIsStillBeingComposedIsDelivered()
    {
        QFETCH(bool, inthecell);
        QFETCH(std::function<void()>, end);
        makeCurrent(2, amount);
        if (!inthecell)
            press(Qt::Key_F2);
        compose(QStringLiteral("25"));
        end();
        QCOMPARE(source.notes, QStringList{QStringLiteral("Amount 2 = 25")});
        table->endEditing();
        table->setFocus();
        press(Qt::Key_3); // the next edit has the focus again
        QCOMPARE(editor(), qApp->focusWidget());
    }

    void whatIsBeingComposedIsGoneWhenTheCursorLeavesIt()
    {
        makeCurrent(2, amount);
        press(Qt::Key_F2);
        type("7");
        compose(QStringLiteral("25"));
        press(Qt::Key_Home); // Qt takes it out of sight
        press(Qt::Key_Return);
        QCOMPARE(source.notes, QStringList{QStringLiteral("Amount 2 = 7")});
    }

    void escapeDropsWhatIsBeingComposed()
    {
        makeCurrent(2, amount);
        press(Qt::Key_F2);
        compose(QStringLiteral("25"));
        press(Qt::Key_Escape);
        QCOMPARE(source.notes, none());
    }

    void aDoubleClickOpensTheRowsAmount_data()
    {
        QTest::addColumn<int>("column");
        QTest::newRow("on the amount") << amount;
        QTest::newRow("on the name") << name;
        QTest::newRow("on the energy") << energy;
    }

    void aDoubleClickOpensTheRowsAmount()
    {
        QFETCH(int, column);
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, middleOf(*table, 3, column));
        QVERIFY(editor() == nullptr);
        QTest::mouseDClick(table->viewport(), Qt::LeftButton, {}, middleOf(*table, 3, column));
        QCOMPARE(editedRow(), 3);
        QCOMPARE(editor()->selectedText(), QStringLiteral("3.00"));
    }

    void aDoubleClickWithAnotherButtonOpensNothing()
    {
        for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
            QTest::mouseDClick(table->viewport(), button, {}, middleOf(*table, 3, amount));
            QVERIFY(editor() == nullptr);
        }
    }

    void aDoubleClickBelowTheRowsOpensNothing()
    {
        QTest::mouseDClick(table->viewport(), Qt::LeftButton, {}, {20, table->viewport()->height() - 3});
        QVERIFY(editor() == nullptr);
    }

    void aTableWithoutAnEditableColumnOpensNothing()
    {
        TableView plain;
        plain.addTableColumn({QStringLiteral("Name"), QStringLiteral("Name"), nullptr, false});
        plain.setDataSource(&source);
        plain.reloadData();
        plain.selectionModel()->setCurrentIndex(cellAt(plain, 1, 0), QItemSelectionModel::NoUpdate);
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_F2, Qt::Key_5, Qt::Key_Space})
            QTest::keyClick(&plain, key);
        QTest::mouseDClick(plain.viewport(), Qt::LeftButton, {}, middleOf(plain, 1, 0));
        QVERIFY(plain.findChildren<QLineEdit *>().isEmpty());
        QCOMPARE(source.notes, none());
    }

    void anAmountAsPeopleWriteItIsDeliveredWithAPeriod_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("delivered");
        const auto row = [](const char *typed, const char *delivered) {
            QTest::newRow(typed) << QString::fromUtf8(typed) << QString::fromUtf8(delivered);
        };
        row("1/2", "0.5");
        row("1 1/2", "1.5");
        row("1\u00bd", "1.5");
        row("1,5", "1.5");
        row("1.5", "1.5");
        row("1,500", "1,500");
        row("abc", "abc");
    }

    void anAmountAsPeopleWriteItIsDeliveredWithAPeriod()
    {
        QFETCH(QString, typed);
        QFETCH(QString, delivered);
        makeCurrent(2, amount);
        press(Qt::Key_F2);
        compose({}, typed);
        press(Qt::Key_Return);
        QCOMPARE(source.notes, QStringList{QStringLiteral("Amount 2 = ") + delivered});
    }

    void whatCountsForNothingIsToldWhileItIsTyped()
    {
        QPalette theme = table->palette();
        theme.setColor(QPalette::ToolTipBase, Qt::darkBlue);
        theme.setColor(QPalette::ToolTipText, Qt::cyan);
        table->setPalette(theme);
        makeCurrent(2, amount);
        press(Qt::Key_F2);
        const auto told = [this] {
            const QPalette colors = editor()->palette();
            const bool iscolored = colors.color(QPalette::Base) == table->palette().color(QPalette::ToolTipBase)
                && colors.color(QPalette::Text) == table->palette().color(QPalette::ToolTipText);
            const bool isplain = colors.color(QPalette::Base) == table->palette().color(QPalette::Base);
            const QString text = editor()->accessibleDescription();
            if (editor()->toolTip() != text || iscolored == text.isEmpty() || isplain != text.isEmpty())
                return QStringLiteral("not as it is coloured");
            return text;
        };
        QCOMPARE(told(), QString());
        const QString zero = QStringLiteral("What is typed counts as 0");
        press(Qt::Key_Delete);
        QCOMPARE(told(), zero);
        type("0");
        QCOMPARE(told(), zero);
        type(",5");
        QCOMPARE(told(), QString());
        press(Qt::Key_A, Qt::ControlModifier);
        type("-3");
        QCOMPARE(told(), QStringLiteral("What is typed is below 0"));
        press(Qt::Key_Return);
        QCOMPARE(source.notes, QStringList{QStringLiteral("Amount 2 = -3")});
    }

    void theEditorSaysWhatItEdits()
    {
        makeCurrent(2, name);
        press(Qt::Key_F2);
        QCOMPARE(
            QAccessible::queryAccessibleInterface(editor())->text(QAccessible::Name), QStringLiteral("Amount, Food 2"));
    }

    // Ending

    void returnCommitsAtOnceAndKeepsTheRowCurrent()
    {
        makeCurrent(2, name);
        type("42");
        QSignalSpy ended(table, &TableView::editingEnded);
        press(Qt::Key_Return);
        QCOMPARE(source.notes, QStringList{QStringLiteral("Amount 2 = 42")});
        QVERIFY(editor() == nullptr);
        QCOMPARE(ended.size(), 1);
        QCOMPARE(table->currentIndex(), cellAt(*table, 2, amount));
        QVERIFY(table->hasFocus());
        QCOMPARE(shown(2, amount), QStringLiteral("42.00"));
        QCoreApplication::processEvents();
        QVERIFY(editor() == nullptr);
        QCOMPARE(source.notes.size(), 1);
    }

    void escapeLeavesTheValueAndTheSelection()
    {
        makeCurrent(2, name);
        table->selectRowIndexes({2});
        source.forget();
        QSignalSpy ended(table, &TableView::editingEnded);
        type("42");
        press(Qt::Key_Escape);
        QVERIFY(editor() == nullptr);
        QVERIFY(table->hasFocus());
        QCOMPARE(source.notes, none());
        QCOMPARE(ended.size(), 0);
        QCOMPARE(table->selectedRowIndexes(), QList<int>{2});
        QCOMPARE(shown(2, amount), QStringLiteral("2.00"));
    }

    void anUntouchedEditorDeliversNothing_data()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::newRow("by Return") << Qt::Key_Return;
        QTest::newRow("by Enter") << Qt::Key_Enter;
        QTest::newRow("by Tab") << Qt::Key_Tab;
        QTest::newRow("by Escape") << Qt::Key_Escape;
    }

    void anUntouchedEditorDeliversNothing()
    {
        QFETCH(Qt::Key, key);
        makeCurrent(2, name);
        QSignalSpy ended(table, &TableView::editingEnded);
        press(Qt::Key_F2);
        press(key);
        press(Qt::Key_Escape);
        QCOMPARE(source.notes, none());
        QCOMPARE(ended.size(), 0);
    }

    void tabCommitsAndOpensTheNextRowsAmount()
    {
        makeCurrent(3, name);
        type("30");
        press(Qt::Key_Tab);
        QCOMPARE(source.notes, QStringList{QStringLiteral("Amount 3 = 30")});
        QCOMPARE(editedRow(), 4);
        QCOMPARE(editor()->selectedText(), QStringLiteral("4.00"));
        QCOMPARE(table->selectedRowIndexes(), QList<int>());
        QCOMPARE(source.proposals.size(), 0);
        type("40");
        press(Qt::Key_Tab);
        QCOMPARE(source.notes.last(), QStringLiteral("Amount 4 = 40"));
        QVERIFY(editor() == nullptr);
        QCOMPARE(window->focusWidget(), after);
    }

    void shiftTabCommitsAndOpensThePreviousRowsAmount()
    {
        makeCurrent(1, name);
        type("10");
        press(Qt::Key_Backtab, Qt::ShiftModifier);
        QCOMPARE(source.notes, QStringList{QStringLiteral("Amount 1 = 10")});
        QCOMPARE(editedRow(), 0);
        press(Qt::Key_Backtab, Qt::ShiftModifier);
        QVERIFY(editor() == nullptr);
        QCOMPARE(window->focusWidget(), before);
    }

    void leavingTheEditorDeliversItsText()
    {
        makeCurrent(1, name);
        type("10");
        after->setFocus();
        QCOMPARE(source.notes, QStringList{QStringLiteral("Amount 1 = 10")});
        QVERIFY(editor() == nullptr);
    }

    void clickingAnotherRowDeliversToItsOwnRowFirst()
    {
        makeCurrent(1, name);
        type("10");
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, middleOf(*table, 3, name));
        QCOMPARE(source.notes, (QStringList{QStringLiteral("Amount 1 = 10"), QStringLiteral("selected [3]")}));
        QVERIFY(editor() == nullptr);
    }

    void endingTheEditingDeliversAndClosesAtOnce()
    {
        QVERIFY(!table->endEditing());
        makeCurrent(1, name);
        type("10");
        QSignalSpy ended(table, &TableView::editingEnded);
        QVERIFY(table->endEditing());
        QVERIFY(editor() == nullptr);
        QCOMPARE(source.notes, QStringList{QStringLiteral("Amount 1 = 10")});
        QCOMPARE(ended.size(), 1);
        QVERIFY(!table->endEditing());
        QCOMPARE(source.notes.size(), 1);
        press(Qt::Key_F2);
        QVERIFY(table->endEditing());
        QCOMPARE(source.notes.size(), 1);
        QCOMPARE(ended.size(), 1);
    }

    void theTextGoesToItsOwnRowAlthoughTheCurrentCellMoved()
    {
        makeCurrent(1, name);
        type("10");
        makeCurrent(3, amount);
        QCOMPARE(source.notes, QStringList{QStringLiteral("Amount 1 = 10")});
        QVERIFY(editor() == nullptr);
    }

    void editingEndsAfterTheEditorHasClosed()
    {
        makeCurrent(1, name);
        bool wasopen = true;
        QStringList notes;
        connect(table, &TableView::editingEnded, table, [&] {
            wasopen = editor() != nullptr;
            notes = source.notes;
        });
        type("10");
        press(Qt::Key_Return);
        QVERIFY(!wasopen);
        QCOMPARE(notes.size(), 1);
    }

    void onlyTheEditedRowIsAskedAfresh()
    {
        makeCurrent(1, name);
        for (LogSource::Entry &entry : source.entries)
            entry.name = QStringLiteral("Changed");
        source.forget();
        type("10");
        press(Qt::Key_Return);
        table->viewport()->grab();
        for (const QString &note : std::as_const(source.asked))
            QVERIFY2(note.endsWith(QStringLiteral(" 1")), qPrintable(note));
        QCOMPARE(source.asked.size(), 4);
        QCOMPARE(shown(1, name), QStringLiteral("Changed"));
        QCOMPARE(shown(2, name), QStringLiteral("Food 2"));
    }

    void anyTextIsDeliveredAsTyped()
    {
        makeCurrent(1, name);
        press(Qt::Key_F2);
        type("abc");
        press(Qt::Key_Return);
        press(Qt::Key_F2);
        press(Qt::Key_Delete);
        press(Qt::Key_Return);
        QCOMPARE(source.notes, (QStringList{QStringLiteral("Amount 1 = abc"), QStringLiteral("Amount 1 = ")}));
    }

    // Reloading below an open editor

    void aReloadKeepsAnOpenEditorsTextAndItsRow()
    {
        makeCurrent(1, name);
        type("12");
        source.fill(8);
        source.entries[1].amount = QStringLiteral("99.00");
        table->reloadData();
        table->viewport()->grab();
        QCOMPARE(editedRow(), 1);
        QCOMPARE(editor()->text(), QStringLiteral("12"));
        QCOMPARE(editor(), qApp->focusWidget());
        source.fill(2);
        table->reloadData();
        QCOMPARE(editor()->text(), QStringLiteral("12"));
        press(Qt::Key_Return);
        QCOMPARE(source.notes, QStringList{QStringLiteral("Amount 1 = 12")});
    }

    void anEditorWhoseRowIsGoneClosesWithoutDelivering()
    {
        makeCurrent(3, name);
        type("12");
        QSignalSpy ended(table, &TableView::editingEnded);
        source.fill(2);
        table->reloadData();
        QVERIFY(editor() == nullptr);
        QVERIFY(!table->endEditing());
        QCOMPARE(source.notes, none());
        QCOMPARE(ended.size(), 0);
        QVERIFY(table->hasFocus());
        QCOMPARE(table->currentIndex().row(), 1);
    }

    void anEditMayDeselectAndReload()
    {
        table->selectRowIndexes({0, 1});
        makeCurrent(1, name);
        source.forget();
        source.onEdit = [this] {
            table->deselectAll();
            table->reloadData();
        };
        type("12");
        press(Qt::Key_Return);
        QCOMPARE(source.notes, (QStringList{QStringLiteral("Amount 1 = 12"), QStringLiteral("selected []")}));
        QCOMPARE(shown(1, amount), QStringLiteral("12.00"));
        QVERIFY(editor() == nullptr);
    }

    void anEditThatEndsTheEditingDeliversOnce()
    {
        makeCurrent(1, name);
        source.onEdit = [this] { table->endEditing(); };
        type("12");
        press(Qt::Key_Return);
        QCOMPARE(source.notes, QStringList{QStringLiteral("Amount 1 = 12")});
        QVERIFY(editor() == nullptr);
    }

    void aTableMayGoAwayWithAnOpenEditor()
    {
        makeCurrent(1, name);
        type("12");
        const QPointer<QWidget> open = editor();
        QVERIFY(open);
        tester.reset();
        window.reset();
        QCoreApplication::processEvents();
        QVERIFY(!open);
        QCOMPARE(source.notes, QStringList{QStringLiteral("Amount 1 = 12")}); // its window was hidden first
    }
};

QTEST_MAIN(TableEditingTest)
#include "tst_tableediting.moc"
