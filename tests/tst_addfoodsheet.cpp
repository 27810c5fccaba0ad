// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "catalog/FoodCatalogue.h"
#include "platform/Bundle.h"
#include "ui/AddFoodSheet.h"
#include "ui/FoodListModel.h"

#include <QAbstractButton>
#include <QAbstractItemModelTester>
#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QMainWindow>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTreeWidget>
#include <QtTest>

namespace {

const QString banana = QStringLiteral("Bananas, raw");
const QString cheddar = QStringLiteral("Cheese, cheddar");
const QString apricots = QStringLiteral("Apricots, raw");

} // namespace

// Each test works as a person does: keys go to whatever has the focus, and the sheet's owner closes it when told to.
class AddFoodSheetTest final : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<QMainWindow> window;
    AddFoodSheet *sheet = nullptr;
    QList<QStringList> added; // what was chosen each time that the sheet was closed

    template <typename Widget>
    Widget *find(const char *name) const
    {
        auto *widget = sheet->findChild<Widget *>(QLatin1String(name));
        Q_ASSERT(widget != nullptr);
        return widget;
    }
    QLineEdit *field() const { return find<QLineEdit>("searchfield"); }
    QListView *list() const { return find<QListView>("foodlist"); }
    QListWidget *tobeadded() const { return find<QListWidget>("tobeaddedlist"); }
    QString text(const char *label) const { return find<QLabel>(label)->text(); }

    void open()
    {
        sheet->open();
        QTRY_COMPARE(QApplication::activeWindow(), sheet);
    }
    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    static void type(const char *keys) { QTest::keyClicks(QApplication::focusWidget(), QLatin1String(keys)); }

    QString current() const { return list()->currentIndex().data().toString(); }
    QStringList selected() const
    {
        QStringList names;
        for (const QModelIndex &index : list()->selectionModel()->selectedIndexes())
            names << index.data().toString();
        names.sort();
        return names;
    }
    QStringList kept() const
    {
        QStringList names;
        for (int row = 0; row < tobeadded()->count(); ++row)
            names << tobeadded()->item(row)->text();
        return names;
    }
    QPoint placeOf(int row) const { return list()->visualRect(list()->model()->index(row, 0)).center(); }

private slots:
    void initTestCase() { Bundle::mainBundle().setResourcePath(QStringLiteral(SOURCE_DIR "/resources")); }

    void init()
    {
        window = std::make_unique<QMainWindow>();
        window->resize(900, 650);
        sheet = new AddFoodSheet(window.get());
        sheet->foodlistcontroller()->setContent(FoodCatalogue::foodNames());
        added.clear();
        connect(sheet, &AddFoodSheet::addSelectedFoods, sheet, [this] {
            sheet->done(0);
            added << sheet->foodlistcontroller()->selectedObjects();
        });
        window->show();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
    }
    void cleanup() { window.reset(); }

    void hasNoControlsBeforeItFirstOpens()
    {
        QVERIFY(sheet->findChildren<QWidget *>().isEmpty());
        QVERIFY(!sheet->windowTitle().isEmpty());
    }

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

    void noHitsSaysSoAndKeepsWhatWasTyped()
    {
        open();
        type("xyzzy");
        QCOMPARE(text("hitslabel"), QStringLiteral("No food found"));
        QVERIFY(find<QLabel>("nohitslabel")->isVisible());
        press(Qt::Key_Return);
        QVERIFY(sheet->isVisible());
        QCOMPARE(field()->text(), QStringLiteral("xyzzy"));
        field()->clear();
        QVERIFY(!find<QLabel>("nohitslabel")->isVisible());
        QCOMPARE(text("hitslabel"), QStringLiteral("7801 foods"));
    }

    void theNumberOfHitsIsShown()
    {
        open();
        type("zwieback");
        QCOMPARE(text("hitslabel"), QStringLiteral("1 food"));
        field()->clear();
        type("rutabagas");
        QCOMPARE(text("hitslabel"), QStringLiteral("3 foods"));
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
        type("cheddar");
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

    void aPlainDoubleClickAddsTheFood()
    {
        open();
        type("cheddar");
        const QString second = list()->model()->index(1, 0).data().toString();
        QTest::mouseClick(list()->viewport(), Qt::LeftButton, Qt::NoModifier, placeOf(1));
        QTest::mouseDClick(list()->viewport(), Qt::LeftButton, Qt::NoModifier, placeOf(1));
        QVERIFY(!sheet->isVisible());
        QCOMPARE(added, QList<QStringList>{{second}});
    }

    void otherDoubleClicksAddNothing()
    {
        open();
        type("cheddar");
        QTest::mouseDClick(list()->viewport(), Qt::LeftButton, Qt::ControlModifier, placeOf(1));
        QTest::mouseDClick(list()->viewport(), Qt::LeftButton, Qt::ShiftModifier, placeOf(2));
        QTest::mouseDClick(list()->viewport(), Qt::RightButton, Qt::NoModifier, placeOf(1));
        field()->clear();
        type("zwieback");
        QTest::mouseDClick(list()->viewport(), Qt::LeftButton, Qt::NoModifier, list()->viewport()->rect().center());
        QVERIFY(sheet->isVisible());
        QVERIFY(added.isEmpty());
    }

    void clicksSelectAndLeaveTheFocusInTheField()
    {
        open();
        type("cheese");
        QTest::mouseClick(list()->viewport(), Qt::LeftButton, Qt::NoModifier, placeOf(1));
        QTest::mouseClick(list()->viewport(), Qt::LeftButton, Qt::ControlModifier, placeOf(3));
        QCOMPARE(selected().size(), 2);
        QVERIFY(field()->hasFocus());
    }

    void theButtonsDoWhatTheKeysDo()
    {
        open();
        auto *keep = find<QAbstractButton>("keepbutton");
        auto *remove = find<QAbstractButton>("removebutton");
        QVERIFY(!keep->isEnabled());
        QVERIFY(!remove->isEnabled());
        for (const char *query : {"banana", "cheddar"}) {
            type(query);
            QVERIFY(keep->isEnabled());
            QTest::mouseClick(keep, Qt::LeftButton);
            QVERIFY(field()->hasFocus());
        }
        QCOMPARE(kept(), QStringList({banana, cheddar}));
        QTest::mouseClick(tobeadded()->viewport(), Qt::LeftButton, Qt::NoModifier,
            tobeadded()->visualItemRect(tobeadded()->item(0)).center());
        QTest::mouseClick(remove, Qt::LeftButton);
        QCOMPARE(kept(), QStringList{cheddar});
        QTest::mouseClick(find<QAbstractButton>("addbutton"), Qt::LeftButton);
        QCOMPARE(added, QList<QStringList>{{cheddar}});
    }

    void foodsOfTheLogAndKeptOnesAreMarked()
    {
        sheet->setFoodsInLog({banana});
        open();
        type("banana");
        QCOMPARE(list()->currentIndex().data(FoodListModel::MarkRole).toString(), QStringLiteral("in the log"));
        QCOMPARE(list()->currentIndex().data(Qt::AccessibleDescriptionRole).toString(), QStringLiteral("in the log"));
        field()->clear();
        type("cheddar");
        QVERIFY(list()->currentIndex().data(FoodListModel::MarkRole).toString().isEmpty());
        press(Qt::Key_Return, Qt::ControlModifier);
        type("cheddar");
        QCOMPARE(list()->currentIndex().data(FoodListModel::MarkRole).toString(), QStringLiteral("to be added"));
        press(Qt::Key_Escape);

        sheet->setFoodsInLog({});
        open();
        type("banana");
        QVERIFY(list()->currentIndex().data(FoodListModel::MarkRole).toString().isEmpty());
    }

    void thePreviewShowsTheCurrentFoodIn100Grams()
    {
        open();
        QVERIFY(find<QLabel>("nofoodlabel")->isVisible());
        type("apricots raw");
        QCOMPARE(current(), apricots);
        QCOMPARE(text("namelabel"), apricots);
        QVERIFY(find<QLabel>("namelabel")->isVisible());
        QCOMPARE(text("energyfigure"), QStringLiteral("48 kcal"));
        QCOMPARE(text("carbsfigure"), QStringLiteral("11.1 g"));
        QCOMPARE(text("proteinfigure"), QStringLiteral("1.4 g"));
        QCOMPARE(text("fatfigure"), QStringLiteral("0.4 g"));
        QCOMPARE(text("fiberfigure"), QStringLiteral("2.0 g"));
        const auto *measures = find<QTreeWidget>("measurelist");
        QStringList lines;
        for (int row = 0; row < measures->topLevelItemCount(); ++row)
            lines << measures->topLevelItem(row)->text(0) + u'=' + measures->topLevelItem(row)->text(1);
        QCOMPARE(lines.join(u';'), QStringLiteral("1 cup, halves=155 g;1 cup, sliced=165 g;1 apricot=35 g"));
        press(Qt::Key_Down);
        QCOMPARE(text("namelabel"), current());
        field()->clear();
        QVERIFY(find<QLabel>("nofoodlabel")->isVisible());
    }

    void aFoodWithoutAFileShowsZeros()
    {
        sheet->foodlistcontroller()->setContent({QStringLiteral("Ambrosia")});
        open();
        type("ambrosia");
        QCOMPARE(text("energyfigure"), QStringLiteral("0 kcal"));
        QCOMPARE(find<QTreeWidget>("measurelist")->topLevelItemCount(), 0);
        press(Qt::Key_Return);
        QCOMPARE(added, QList<QStringList>{{QStringLiteral("Ambrosia")}});
    }

    void theFieldTellsAScreenReaderWhatIsChosen()
    {
        open();
        QCOMPARE(field()->accessibleDescription(), QStringLiteral("7801 foods"));
        type("apricots raw");
        QCOMPARE(field()->accessibleDescription(),
            QStringLiteral("1 food. Apricots, raw, Energy 48 kcal, Carbs 11.1 g, Protein 1.4 g, Fat 0.4 g, Fiber 2.0 g "
                           "in 100 g"));
    }

    void everyControlHasANameThatCanBeSaid()
    {
        open();
        type("banana");
        press(Qt::Key_Return, Qt::ControlModifier);
        type("cheddar");
        int named = 0;
        for (QWidget *widget : sheet->findChildren<QWidget *>()) {
            if (!widget->isVisible() || widget->focusPolicy() == Qt::NoFocus || widget->objectName().startsWith(u"qt_"))
                continue;
            QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(widget);
            QVERIFY2(!interface->text(QAccessible::Name).isEmpty(), qPrintable(widget->objectName()));
            ++named;
        }
        QCOMPARE(named, 8);
    }

    void tabReachesAndLeavesEverything()
    {
        open();
        type("banana");
        press(Qt::Key_Return, Qt::ControlModifier);
        type("cheddar");
        QStringList visited;
        for (int tab = 0; tab < 20; ++tab) {
            press(Qt::Key_Tab);
            if (field()->hasFocus())
                break;
            visited << QApplication::focusWidget()->objectName();
        }
        QVERIFY(field()->hasFocus());
        QCOMPARE(visited.join(u' '),
            QStringLiteral("foodlist measurelist tobeaddedlist keepbutton removebutton addbutton cancelbutton"));
        press(Qt::Key_Backtab);
        QCOMPARE(QApplication::focusWidget()->objectName(), QStringLiteral("cancelbutton"));
    }

    void noButtonIsPressedByAnEnterElsewhere()
    {
        open();
        for (const QPushButton *button : sheet->findChildren<QPushButton *>()) {
            QVERIFY(!button->autoDefault());
            QVERIFY(!button->isDefault());
        }
        type("banana");
        press(Qt::Key_Return);
        QCOMPARE(added.size(), 1);
    }

    void anActionPutOnTheSheetWorksWhileItIsOpen()
    {
        auto *quit = new QAction(window.get());
        quit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
        window->addAction(quit);
        sheet->addAction(quit);
        const QSignalSpy spy(quit, &QAction::triggered);
        open();
        press(Qt::Key_Q, Qt::ControlModifier);
        QCOMPARE(spy.size(), 1);
    }

    void theLabelsKeysGoToTheirControls()
    {
        open();
        list()->setFocus();
        press(Qt::Key_S, Qt::AltModifier);
        QVERIFY(field()->hasFocus());
    }

    void theListModelKeepsItsPromises()
    {
        FoodListModel model(FoodCatalogue::foodNames().mid(0, 300));
        const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        for (const char *query : {"beer", "beer light", "xyzzy", ""})
            model.setQuery(QString::fromLatin1(query));
        model.setMarkedFoods({model.nameAt(0)}, {model.nameAt(1)});
        QCOMPARE(model.rowCount(), 300);
        QVERIFY(!model.data(model.index(300)).isValid());
    }

    // Letters in bold are darker in sum: the first row with "cheddar" found against the same row with everything shown.
    void theMatchedLettersAreBold()
    {
        open();
        const auto inkOfFirstRow = [this] {
            list()->clearSelection();
            list()->setCurrentIndex({});
            const QImage image = list()->viewport()->grab(list()->visualRect(list()->model()->index(0, 0))).toImage();
            qint64 ink = 0;
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x)
                    ink += 255 - qGray(image.pixel(x, y));
            }
            return ink;
        };
        type("abiyuch raw");
        const qint64 bold = inkOfFirstRow();
        field()->clear();
        const qint64 plain = inkOfFirstRow();
        QVERIFY2(bold > plain * 11 / 10, qPrintable(QStringLiteral("%1 against %2").arg(bold).arg(plain)));
    }

    void allRowsHaveOneHeight()
    {
        open();
        QVERIFY(list()->uniformItemSizes());
        type("beef");
        QCOMPARE(list()->visualRect(list()->model()->index(0, 0)).height(),
            list()->visualRect(list()->model()->index(1, 0)).height());
        QVERIFY(!list()->horizontalScrollBar()->isVisible());
    }
};

QTEST_MAIN(AddFoodSheetTest)
#include "tst_addfoodsheet.moc"
