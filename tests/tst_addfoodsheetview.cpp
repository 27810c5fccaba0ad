// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "tests/support/AddFoodSheetFixture.h"
#include "ui/foodsheet/FoodListModel.h"

#include <QAbstractButton>
#include <QAbstractItemModelTester>
#include <QAccessible>
#include <QAction>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTreeWidget>

// What the sheet shows and says, the mouse, and the ways round it.
class AddFoodSheetViewTest final : public AddFoodSheetFixture {
    Q_OBJECT

private slots:
    void hasNoControlsBeforeItFirstOpens()
    {
        QVERIFY(sheet->findChildren<QWidget *>().isEmpty());
        QVERIFY(!sheet->windowTitle().isEmpty());
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
        sheet->reject();

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
        QCOMPARE(lines.join(u';'), QStringLiteral("g=;1 cup, halves=155 g;1 cup, sliced=165 g;1 apricot=35 g"));
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
        QCOMPARE(find<QTreeWidget>("measurelist")->topLevelItemCount(), 1); // grams
        press(Qt::Key_Return);
        QCOMPARE(added, QList<QStringList>{{QStringLiteral("Ambrosia")}});
    }

    void theFieldTellsAScreenReaderWhatIsChosen()
    {
        open();
        QCOMPARE(field()->accessibleDescription(), QStringLiteral("7801 foods"));
        type("apricots raw");
        QCOMPARE(field()->accessibleDescription(),
            text("hitslabel")
                + QStringLiteral(". Apricots, raw, Energy 48 kcal, Carbs 11.1 g, Protein 1.4 g, Fat 0.4 g, Fiber 2.0 g "
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
        QCOMPARE(named, 10);
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
            QStringLiteral(
                "amountfield measurelist foodlist tobeaddedlist keepbutton removebutton addbutton cancelbutton "
                "nutrientbox"));
        press(Qt::Key_Backtab);
        QCOMPARE(QApplication::focusWidget()->objectName(), QStringLiteral("nutrientbox"));
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

    void theMarkOfAFoodInTheLogIsReadOnEveryRow()
    {
        sheet->setFoodsInLog({FoodCatalogue::foodNames().at(0)});
        open();
        // The strongest contrast against the row's own ground, in the row's right quarter, where no name reaches.
        const auto contrastAtTheRight = [this](int row) {
            const QRect rect = list()->visualRect(list()->model()->index(row, 0));
            const QImage image = list()->viewport()->grab(rect.adjusted(rect.width() * 3 / 4, 1, -2, -1)).toImage();
            const QColor ground = image.pixelColor(image.width() - 1, 1);
            int most = 0;
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x)
                    most = std::max(most, std::abs(qGray(image.pixel(x, y)) - qGray(ground.rgb())));
            }
            return most;
        };
        list()->clearSelection();
        list()->setCurrentIndex({});
        const int plain = contrastAtTheRight(0);
        QCOMPARE(contrastAtTheRight(1), 0);
        list()->setCurrentIndex(list()->model()->index(0, 0));
        list()->selectionModel()->select(list()->currentIndex(), QItemSelectionModel::ClearAndSelect);
        const int selected = contrastAtTheRight(0);
        const QPalette palette = list()->palette();
        const int whole = std::abs(
            qGray(palette.color(QPalette::HighlightedText).rgb()) - qGray(palette.color(QPalette::Highlight).rgb()));
        QVERIFY2(plain > 100, qPrintable(QString::number(plain)));
        QVERIFY2(selected > whole * 8 / 10, qPrintable(QStringLiteral("%1 of %2").arg(selected).arg(whole)));
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

QTEST_MAIN(AddFoodSheetViewTest)
#include "tst_addfoodsheetview.moc"
