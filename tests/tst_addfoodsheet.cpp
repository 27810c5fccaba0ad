// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "tests/support/AddFoodSheetFixture.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>

// Choosing foods with the keyboard, and what the sheet's owner is told.
class AddFoodSheetTest final : public AddFoodSheetFixture {
    Q_OBJECT

private slots:
    void opensOverItsWindowWithTheFocusInTheField()
    {
        open();
        QCOMPARE(sheet->windowModality(), Qt::WindowModal);
        QVERIFY(field()->hasFocus());
        QCOMPARE(list()->model()->rowCount(), FoodCatalogue::foodCount);
        QCOMPARE(list()->model()->index(0, 0).data().toString(), QStringLiteral("Abiyuch, raw"));
        QCOMPARE(text("hitslabel"), QStringLiteral("7801 foods"));
    }

    void withNothingTypedNoRowIsCurrent()
    {
        open();
        QVERIFY(!list()->currentIndex().isValid());
        QVERIFY(selected().isEmpty());
        type("b");
        QVERIFY(list()->currentIndex().isValid());
        press(Qt::Key_Backspace);
        QVERIFY(!list()->currentIndex().isValid());
        QVERIFY(selected().isEmpty());
        QVERIFY(field()->hasFocus());
    }

    void enterWithNothingTypedJustCloses()
    {
        open();
        press(Qt::Key_Return);
        QVERIFY(!sheet->isVisible());
        QCOMPARE(added, QList<QStringList>{{}});
    }

    void enterAddsTheFirstFoodFound()
    {
        open();
        type("banana");
        QCOMPARE(current(), banana);
        QCOMPARE(selected(), QStringList{banana});
        press(Qt::Key_Return);
        QVERIFY(!sheet->isVisible());
        QCOMPARE(added, QList<QStringList>{{banana}});
    }

    void whatIsStillBeingComposedIsSearchedForFirst_data()
    {
        QTest::addColumn<int>("way");
        QTest::newRow("by Return") << 0;
        QTest::newRow("by the Add button") << 1;
        QTest::newRow("kept by Ctrl+Return") << 2;
    }

    void whatIsStillBeingComposedIsSearchedForFirst()
    {
        QFETCH(int, way);
        open();
        compose("apricots raw");
        if (way == 1)
            QTest::mouseClick(find<QPushButton>("addbutton"), Qt::LeftButton);
        else
            press(Qt::Key_Return, way == 2 ? Qt::ControlModifier : Qt::NoModifier);
        if (way == 2)
            QCOMPARE(kept(), QStringList{apricots});
        else
            QCOMPARE(added, QList<QStringList>{{apricots}});
    }

    void whatIsChosenInTheListWhileComposingIsAdded_data()
    {
        QTest::addColumn<bool>("bymouse"); // in the list as it is shown; a key goes on from what is searched for
        QTest::addColumn<QString>("first");
        QTest::newRow("by the mouse") << true << QStringLiteral("Acerola");
        QTest::newRow("by an arrow key") << false << QStringLiteral("Apricots");
    }

    void whatIsChosenInTheListWhileComposingIsAdded()
    {
        QFETCH(bool, bymouse);
        QFETCH(QString, first);
        open();
        compose("apricots");
        if (bymouse)
            QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, placeOf(1));
        else
            press(Qt::Key_Down);
        QCOMPARE(list()->currentIndex().row(), 1);
        const QString chosen = current();
        QVERIFY(chosen.startsWith(first));
        if (bymouse)
            QTest::mouseClick(find<QPushButton>("addbutton"), Qt::LeftButton);
        else
            press(Qt::Key_Return);
        QCOMPARE(added, QList<QStringList>{{chosen}});
    }

    void whatWasBeingComposedIsForgottenWithTheSheet_data()
    {
        QTest::addColumn<bool>("bykey");
        QTest::newRow("by Esc") << true;
        QTest::newRow("by Cancel") << false;
    }

    void whatWasBeingComposedIsForgottenWithTheSheet()
    {
        QFETCH(bool, bykey);
        open();
        compose("apricots raw");
        if (bykey)
            press(Qt::Key_Escape);
        else
            QTest::mouseClick(find<QPushButton>("cancelbutton"), Qt::LeftButton);
        open();
        press(Qt::Key_Return);
        QCOMPARE(added, QList<QStringList>({{}, {}}));
    }

    void theEnterOfTheNumberPadIsEnterToo()
    {
        open();
        type("banana");
        QTest::keyClick(field(), Qt::Key_Enter, Qt::KeypadModifier);
        QCOMPARE(added, QList<QStringList>{{banana}});
    }

    void anEnterHeldFromBeforeDoesNotCloseTheSheet()
    {
        open();
        QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"), true);
        QCoreApplication::sendEvent(field(), &repeated);
        QVERIFY(sheet->isVisible());
    }

    void arrowAndPageKeysMoveInTheListAndTheFieldKeepsTheFocus()
    {
        open();
        press(Qt::Key_Down);
        QCOMPARE(list()->currentIndex().row(), 0);
        press(Qt::Key_Down);
        QCOMPARE(list()->currentIndex().row(), 1);
        press(Qt::Key_Up);
        QCOMPARE(list()->currentIndex().row(), 0);
        press(Qt::Key_PageDown);
        const int page = list()->currentIndex().row();
        QVERIFY(page > 5);
        press(Qt::Key_PageUp);
        QCOMPARE(list()->currentIndex().row(), 0);
        press(Qt::Key_End);
        QCOMPARE(current(), QStringLiteral("Zwieback"));
        press(Qt::Key_Home);
        QCOMPARE(list()->currentIndex().row(), 0);
        QVERIFY(field()->hasFocus());
        QVERIFY(field()->text().isEmpty());
    }

    void inATextHomeAndEndMoveTheCursorAndWithCtrlMoveInTheList()
    {
        open();
        type("milk");
        press(Qt::Key_Home);
        QCOMPARE(field()->cursorPosition(), 0);
        QCOMPARE(list()->currentIndex().row(), 0);
        press(Qt::Key_End, Qt::ControlModifier);
        QCOMPARE(list()->currentIndex().row(), list()->model()->rowCount() - 1);
        press(Qt::Key_Home, Qt::ControlModifier);
        QCOMPARE(list()->currentIndex().row(), 0);
        QCOMPARE(field()->text(), QStringLiteral("milk"));
    }

    void enterAfterMovingAddsTheCurrentFood()
    {
        open();
        press(Qt::Key_Down);
        press(Qt::Key_Down);
        press(Qt::Key_Return);
        QCOMPARE(added, QList<QStringList>{{QStringLiteral("Acerola juice, raw")}});
    }

    void shiftAndAnArrowSelectSeveralInTheOrderOfTheList()
    {
        open();
        type("cheese");
        press(Qt::Key_Down);
        press(Qt::Key_Down);
        press(Qt::Key_Up, Qt::ShiftModifier);
        press(Qt::Key_Up, Qt::ShiftModifier);
        QCOMPARE(selected().size(), 3);
        QStringList first;
        for (int row = 0; row < 3; ++row)
            first << list()->model()->index(row, 0).data().toString();
        QCOMPARE(find<QAbstractButton>("addbutton")->text(), QStringLiteral("&Add 3 foods"));
        press(Qt::Key_Return);
        QCOMPARE(added, QList<QStringList>{first});
    }

    void ctrlAndArrowsAndBlankSelectSingleFoods()
    {
        open();
        type("cheese");
        press(Qt::Key_Down, Qt::ControlModifier);
        press(Qt::Key_Down, Qt::ControlModifier);
        press(Qt::Key_Space, Qt::ControlModifier);
        QCOMPARE(list()->selectionModel()->selectedIndexes().size(), 2);
        QVERIFY(list()->selectionModel()->isSelected(list()->model()->index(0, 0)));
        QVERIFY(list()->selectionModel()->isSelected(list()->model()->index(2, 0)));
        QCOMPARE(field()->text(), QStringLiteral("cheese"));
    }

    void foodsThatTheQueryHidesAreNotSelected()
    {
        open();
        type("cheese");
        press(Qt::Key_Down, Qt::ShiftModifier);
        QCOMPARE(selected().size(), 2);
        type(" cheddar");
        QCOMPARE(selected(), QStringList{cheddar});
        QCOMPARE(sheet->foodlistcontroller()->selectedObjects(), QStringList{cheddar});
    }

    void ctrlEnterKeepsTheFoodAndClearsTheFieldForTheNext()
    {
        open();
        type("banana");
        press(Qt::Key_Return, Qt::ControlModifier);
        QVERIFY(sheet->isVisible());
        QVERIFY(field()->text().isEmpty());
        QVERIFY(field()->hasFocus());
        QVERIFY(!list()->currentIndex().isValid());
        QCOMPARE(kept(), QStringList{banana});
        QCOMPARE(list()->model()->rowCount(), FoodCatalogue::foodCount);

        type("cheddar");
        press(Qt::Key_Enter, Qt::ControlModifier);
        type("apricots");
        QCOMPARE(current(), apricots);
        press(Qt::Key_Return);
        QCOMPARE(added, (QList<QStringList>{{banana, cheddar, apricots}}));
    }

    void ctrlEnterWithNothingCurrentKeepsNothing()
    {
        open();
        press(Qt::Key_Return, Qt::ControlModifier);
        type("xyzzy");
        press(Qt::Key_Return, Qt::ControlModifier);
        QVERIFY(kept().isEmpty());
        QVERIFY(sheet->isVisible());
        QCOMPARE(field()->text(), QStringLiteral("xyzzy"));
    }

    void ctrlEnterAfterMovingWithNothingTypedForgetsThePlace()
    {
        open();
        press(Qt::Key_Down);
        press(Qt::Key_Return, Qt::ControlModifier);
        QCOMPARE(kept(), QStringList{QStringLiteral("Abiyuch, raw")});
        QVERIFY(!list()->currentIndex().isValid());
        press(Qt::Key_Return);
        QCOMPARE(added, QList<QStringList>{{QStringLiteral("Abiyuch, raw")}});
    }

    void aFoodIsKeptOnce()
    {
        open();
        for (int time = 0; time < 2; ++time) {
            type("banana");
            press(Qt::Key_Return, Qt::ControlModifier);
        }
        QCOMPARE(kept(), QStringList{banana});
        type("banana");
        press(Qt::Key_Return);
        QCOMPARE(added, QList<QStringList>{{banana}});
    }

    void enterWithNothingTypedAddsWhatWasKept()
    {
        open();
        type("banana");
        press(Qt::Key_Return, Qt::ControlModifier);
        press(Qt::Key_Return);
        QCOMPARE(added, QList<QStringList>{{banana}});
    }

    void theKeptFoodsAreEditedWithTheKeyboard()
    {
        open();
        for (const char *query : {"banana", "cheddar", "apricots"}) {
            type(query);
            press(Qt::Key_Return, Qt::ControlModifier);
        }
        for (int tab = 0; tab < 10 && !tobeadded()->hasFocus(); ++tab)
            press(Qt::Key_Tab);
        QVERIFY(tobeadded()->hasFocus());
        press(Qt::Key_Down);
        QCOMPARE(tobeadded()->currentItem()->text(), cheddar);
        press(Qt::Key_Delete);
        QCOMPARE(kept(), QStringList({banana, apricots}));
        QCOMPARE(tobeadded()->currentItem()->text(), apricots);
        QVERIFY(tobeadded()->hasFocus());
        press(Qt::Key_Backspace);
        QCOMPARE(kept(), QStringList{banana});
        QCOMPARE(tobeadded()->currentItem()->text(), banana);
        QVERIFY(field()->text().isEmpty());
        press(Qt::Key_Return);
        QCOMPARE(added, QList<QStringList>{{banana}});
    }

    void removingTheLastKeptFoodGoesBackToTheField()
    {
        open();
        type("banana");
        press(Qt::Key_Return, Qt::ControlModifier);
        tobeadded()->setFocus();
        press(Qt::Key_Delete);
        QVERIFY(kept().isEmpty());
        QVERIFY(field()->hasFocus());
        press(Qt::Key_Return);
        QCOMPARE(added, QList<QStringList>{{}});
    }

    void typingInAListGoesToTheField_data()
    {
        QTest::addColumn<QString>("name");
        for (const char *name : {"foodlist", "tobeaddedlist", "measurelist"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }

    void typingInAListGoesToTheField()
    {
        QFETCH(QString, name);
        open();
        type("banana");
        press(Qt::Key_Return, Qt::ControlModifier);
        type("che");
        sheet->findChild<QWidget *>(name)->setFocus();
        QVERIFY(!field()->hasFocus());
        type("ddar");
        QVERIFY(field()->hasFocus());
        QCOMPARE(field()->text(), QStringLiteral("cheddar"));
        QCOMPARE(current(), cheddar);
    }

    void backspaceInTheListGoesToTheField()
    {
        open();
        type("cheddar");
        list()->setFocus();
        press(Qt::Key_Backspace);
        QCOMPARE(field()->text(), QStringLiteral("chedda"));
        QVERIFY(field()->hasFocus());
    }

    void ctrlCInAListLeavesTheClipboardAlone()
    {
        QApplication::clipboard()->setText(QStringLiteral("before"));
        open();
        type("banana");
        press(Qt::Key_Return, Qt::ControlModifier);
        type("cheddar");
        for (const char *name : {"foodlist", "tobeaddedlist", "measurelist"}) {
            sheet->findChild<QWidget *>(QLatin1String(name))->setFocus();
            press(Qt::Key_Down);
            press(Qt::Key_C, Qt::ControlModifier);
        }
        QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("before"));
    }

    void cancellingEmptiesTheSelectionAndSendsIt_data()
    {
        QTest::addColumn<QString>("how");
        QTest::newRow("Esc in the field") << QStringLiteral("field");
        QTest::newRow("Esc in the list") << QStringLiteral("list");
        QTest::newRow("Cancel") << QStringLiteral("button");
        QTest::newRow("Enter on Cancel") << QStringLiteral("enter");
        QTest::newRow("the title bar") << QStringLiteral("title");
    }

    void cancellingEmptiesTheSelectionAndSendsIt()
    {
        QFETCH(QString, how);
        open();
        type("banana");
        press(Qt::Key_Return, Qt::ControlModifier);
        press(Qt::Key_Down);
        auto *cancel = find<QAbstractButton>("cancelbutton");
        if (how == QLatin1String("field")) {
            press(Qt::Key_Escape);
        } else if (how == QLatin1String("list")) {
            list()->setFocus();
            press(Qt::Key_Escape);
        } else if (how == QLatin1String("button")) {
            QTest::mouseClick(cancel, Qt::LeftButton);
        } else if (how == QLatin1String("enter")) {
            cancel->setFocus();
            press(Qt::Key_Return);
        } else {
            sheet->close();
        }
        QVERIFY(!sheet->isVisible());
        QCOMPARE(added, QList<QStringList>{{}});
    }

    void whileSomethingIsTypedEscClearsItFirst_data()
    {
        QTest::addColumn<QString>("where");
        for (const char *name : {"searchfield", "foodlist", "cancelbutton"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }

    void whileSomethingIsTypedEscClearsItFirst()
    {
        QFETCH(QString, where);
        open();
        type("cheddar");
        sheet->findChild<QWidget *>(where)->setFocus();
        press(Qt::Key_Escape);
        QVERIFY(sheet->isVisible());
        QVERIFY(field()->text().isEmpty());
        QVERIFY(field()->hasFocus());
        press(Qt::Key_Escape);
        QVERIFY(!sheet->isVisible());
    }

    void theListToBeAddedOutlivesACancellingAndNoAdding()
    {
        open();
        for (const char *query : {"banana", "cheddar"}) {
            type(query);
            press(Qt::Key_Return, Qt::ControlModifier);
        }
        for (int time = 0; time < 2; ++time) {
            press(Qt::Key_Escape);
            QCOMPARE(added.last(), QStringList());
            QCOMPARE(sheet->countOfFoodsLeft(), 2);
            open();
            QCOMPARE(kept(), QStringList({banana, cheddar}));
        }
        press(Qt::Key_Return);
        QCOMPARE(added.last(), QStringList({banana, cheddar}));
        QCOMPARE(sheet->countOfFoodsLeft(), 0);
        sheet->reject(); // which finds the sheet closed
        open();
        QCOMPARE(kept(), QStringList());
    }

    void theSheetIsClosedByItsOwnerAlone()
    {
        disconnect(sheet, &AddFoodSheet::addSelectedFoods, nullptr, nullptr);
        const QSignalSpy spy(sheet, &AddFoodSheet::addSelectedFoods);
        open();
        press(Qt::Key_Escape);
        type("banana");
        press(Qt::Key_Return);
        sheet->close();
        QCOMPARE(spy.size(), 3);
        QVERIFY(sheet->isVisible());
        sheet->done(0);
        QVERIFY(!sheet->isVisible());
        QCOMPARE(spy.size(), 3);
    }

    void openingForgetsTheLastTimeAndClosingDoesNot()
    {
        open();
        type("banana");
        press(Qt::Key_Return, Qt::ControlModifier);
        type("cheddar");
        press(Qt::Key_Return);
        QCOMPARE(sheet->foodlistcontroller()->selectedObjects(), QStringList({banana, cheddar}));
        QCOMPARE(field()->text(), QStringLiteral("cheddar"));

        open();
        QVERIFY(field()->text().isEmpty());
        QVERIFY(field()->hasFocus());
        QVERIFY(kept().isEmpty());
        QVERIFY(!list()->currentIndex().isValid());
        QVERIFY(sheet->foodlistcontroller()->selectedObjects().isEmpty());
        QCOMPARE(list()->verticalScrollBar()->value(), 0);
        press(Qt::Key_Return);
        QCOMPARE(added.last(), QStringList());
    }

    void openingAnOpenSheetForgetsNothing()
    {
        open();
        type("banana");
        sheet->open();
        QCOMPARE(field()->text(), QStringLiteral("banana"));
    }

private:
    // As an input method does that does not answer when it is to commit.
    void compose(const char *text)
    {
        QInputMethodEvent composing(QLatin1String(text), {});
        QCoreApplication::sendEvent(field(), &composing);
    }
};

QTEST_MAIN(AddFoodSheetTest)
#include "tst_addfoodsheet.moc"
