// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "catalog/FoodCatalogue.h"
#include "platform/LocalDay.h"
#include "tests/support/Run.h"
#include "ui/controls/DatePicker.h"
#include "ui/foodsheet/AddFoodSheet.h"

#include <QAbstractEventDispatcher>
#include <QAction>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QClipboard>
#include <QDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QToolButton>
#include <QTreeWidget>
#include <QtTest>

namespace {

const QString A = QStringLiteral("A");
const QString B = QStringLiteral("B");
const QString C = QStringLiteral("C");
constexpr int amountcolumn = 1;
constexpr int energycolumn = 3;

} // namespace

// The window as a person drives it, with keys and mouse: each command from wherever the keyboard is, and what becomes
// of an amount that is being typed.
class MainWindowTest final : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        home = std::make_unique<Home>();
        for (const QString &name : {A, B, C})
            home->files.writeElements(name, "<nutrient name='Energy' amount='50'/>");
        run = std::make_unique<Run>(*home);
        run->show();
        QVERIFY(QTest::qWaitForWindowActive(window()));
    }
    void cleanup()
    {
        run.reset();
        home.reset();
    }

    void threeFoodsAreAddedByKeysAndMouse()
    {
        Bundle::mainBundle().setResourcePath({}); // the foods as shipped
        QTest::keyClick(table(), Qt::Key_N, Qt::ControlModifier);
        AddFoodSheet *sheet = run->controller.addview;
        QTRY_COMPARE(QApplication::activeWindow(), sheet);
        QWidget *field = sheet->focusWidget();
        QTest::keyClicks(field, QStringLiteral("apricots raw"));
        QTest::keyClick(field, Qt::Key_Return, Qt::ControlModifier);
        QTest::keyClicks(field, QStringLiteral("milk whole"));
        QTest::keyClick(field, Qt::Key_Return);
        QTRY_VERIFY(!sheet->isVisible());
        QCOMPARE(table()->model()->rowCount(), 2);

        QTest::mouseClick(window()->findChild<QPushButton *>(QStringLiteral("addfoodbutton")), Qt::LeftButton);
        QTRY_COMPARE(QApplication::activeWindow(), sheet);
        QTest::keyClicks(sheet->focusWidget(), QStringLiteral("egg whole raw fresh"));
        auto *list = sheet->findChild<QListView *>(QStringLiteral("foodlist"));
        QVERIFY(list);
        const QPoint first = list->visualRect(list->model()->index(0, 0)).center();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, first);
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, first);
        QTRY_VERIFY(!sheet->isVisible());

        QCOMPARE(run->names(),
            QStringList(
                {QStringLiteral("Apricots, raw"), QStringLiteral("Milk, whole, 3.25% milkfat, with added vitamin D"),
                    QStringLiteral("Egg, whole, raw, fresh")}));
        QCOMPARE(run->controller.nutrientstotal[0], 252.0F); // 48 + 61 + 143 kcal
        QCOMPARE(shown(table(), 0, energycolumn), QStringLiteral("48"));
        QCOMPARE(shown(table(), 1, energycolumn), QStringLiteral("61"));
        QCOMPARE(shown(table(), 2, energycolumn), QStringLiteral("143"));
        QCOMPARE(shown(nutrients(), 0, 1), QStringLiteral("13 %")); // 252 of 2000
        QCOMPARE(label(), QStringLiteral("3 foods"));
    }

    void afterAddingANumberIsTheLastFoodsAmount()
    {
        QTest::keyClick(table(), Qt::Key_N, Qt::ControlModifier);
        AddFoodSheet *sheet = run->controller.addview;
        QTRY_COMPARE(QApplication::activeWindow(), sheet);
        QTest::keyClicks(sheet->focusWidget(), QStringLiteral("honey"));
        QTest::keyClick(sheet->focusWidget(), Qt::Key_Return);
        window()->activateWindow(); // as a window manager does
        QTRY_VERIFY(table()->hasFocus());
        QCOMPARE(table()->selectedRowIndexes(), QList<int>());
        QTest::keyClicks(table(), QStringLiteral("2"));
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("5"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QCOMPARE(run->entries(), QStringList{QStringLiteral("Honey 25 g 0")});
    }

    void choosingNothingLeavesTheCurrentRowAlone()
    {
        run->add({A, B});
        table()->setFocus();
        table()->setCurrentRow(0);
        QTest::keyClick(table(), Qt::Key_N, Qt::ControlModifier);
        AddFoodSheet *sheet = run->controller.addview;
        QTRY_COMPARE(QApplication::activeWindow(), sheet);
        sheet->reject();
        QCOMPARE(run->names(), QStringList({A, B}));
        QCOMPARE(table()->currentIndex().row(), 0);
    }

    void theAddFoodButtonSaysWhatIsLeftToBeAdded()
    {
        const auto *button = window()->findChild<QPushButton *>(QStringLiteral("addfoodbutton"));
        const QString usual = button->toolTip();
        AddFoodSheet *sheet = run->controller.addview;
        const std::pair<const char *, const char *> kept[]
            = {{"honey", "\n1 food is on the list to be added"}, {"zwieback", "\n2 foods are on the list to be added"}};
        for (const auto &[query, tip] : kept) {
            QTest::keyClick(table(), Qt::Key_N, Qt::ControlModifier);
            QTest::keyClicks(sheet->focusWidget(), QLatin1String(query));
            QTest::keyClick(sheet->focusWidget(), Qt::Key_Return, Qt::ControlModifier);
            QTest::keyClick(sheet->focusWidget(), Qt::Key_Escape);
            QCOMPARE(button->toolTip(), usual + QLatin1String(tip));
            QCOMPARE(run->names(), QStringList());
        }
        QTest::keyClick(table(), Qt::Key_N, Qt::ControlModifier);
        QTest::keyClick(sheet->focusWidget(), Qt::Key_Return);
        QCOMPARE(run->names(), QStringList({QStringLiteral("Honey"), QStringLiteral("Zwieback")}));
        QCOMPARE(button->toolTip(), usual);
    }

    void theWindowSaysWhichDayThisIs()
    {
        const auto *today = window()->findChild<QPushButton *>(QStringLiteral("todaybutton"));
        const auto said = [&] {
            const auto *label = window()->findChild<QLabel *>(QStringLiteral("daylabel"));
            return QStringList{label->text(), today->font().bold() ? QStringLiteral("go") : QString()}.join(u'|');
        };
        QCOMPARE(said(), QStringLiteral("Saturday · Today|"));
        QCOMPARE(window()->windowTitle(), QStringLiteral("Saturday 21 November 2026 - Provender"));
        QTest::keyClick(table(), Qt::Key_Right, Qt::AltModifier);
        QCOMPARE(said(), QStringLiteral("Sunday · Tomorrow|go"));
        QTest::keyClick(table(), Qt::Key_Right, Qt::AltModifier);
        QCOMPARE(said(), QStringLiteral("Monday|go"));
        QCOMPARE(window()->windowTitle(), QStringLiteral("Monday 23 November 2026 - Provender"));
        click("todaybutton");
        QCOMPARE(said(), QStringLiteral("Saturday · Today|"));
        run->controller.datepicker->stepBy(-1);
        QCOMPARE(said(), QStringLiteral("Friday · Yesterday|go"));
    }

    void pastMidnightTheWindowSaysSoWhenItIsNextActive()
    {
        const auto *label = window()->findChild<QLabel *>(QStringLiteral("daylabel"));
        home->now = home->now.addDays(1);
        QWidget other;
        other.show();
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
        window()->activateWindow();
        QTRY_COMPARE(label->text(), QStringLiteral("Saturday · Yesterday"));
    }

    void theTotalsAreThoseOfTheNutrientTable()
    {
        home->files.writeElements(A,
            "<nutrient name='Energy' amount='1841.6'/><nutrient name='Carbs' amount='217'/>"
            "<nutrient name='Protein' amount='99'/><nutrient name='Fat' amount='84.4'/>");
        home->files.writeElements(B, "<nutrient name='Energy' amount='1000000'/>");
        const auto *totals = window()->findChild<QLabel *>(QStringLiteral("totals"));
        QCOMPARE(totals->text(), QStringLiteral("0 kcal · carbs 0 g · protein 0 g · fat 0 g"));
        run->add({A});
        QCOMPARE(totals->text(), QStringLiteral("1,842 kcal · carbs 217 g · protein 99 g · fat 84 g"));
        click("usep");
        QCOMPARE(totals->text(), QStringLiteral("1,842 kcal · carbs 217 g · protein 99 g · fat 84 g"));
        run->add({B});
        QVERIFY(totals->text().startsWith(QStringLiteral("1,001,842 kcal")));
        QTest::mouseClick(
            table()->viewport(), Qt::LeftButton, {}, table()->visualRect(table()->model()->index(0, 0)).center());
        QVERIFY(totals->text().startsWith(QStringLiteral("1,842 kcal")));
        type(0, QStringLiteral("5"));
        QTest::keyClick(editor(), Qt::Key_Return);
        QCOMPARE(totals->text(), QStringLiteral("1,000,092 kcal · carbs 11 g · protein 5 g · fat 4 g"));
        QCOMPARE(shown(nutrients(), 0, 1), QStringLiteral("1000092.06 kcal"));
        QTest::keyClick(table(), Qt::Key_Left, Qt::AltModifier);
        QCOMPARE(totals->text(), QStringLiteral("0 kcal · carbs 0 g · protein 0 g · fat 0 g"));
    }

    void anEmptyDaySaysHowItGetsFoods()
    {
        QVERIFY(table()->accessibleDescription().contains(QStringLiteral("Ctrl+N")));
        QVERIFY(table()->accessibleDescription().contains(QStringLiteral("Ctrl+D")));
        run->add({A});
        QCOMPARE(table()->accessibleDescription(), QString());
    }

    void theSheetsOwnKeysAreListedAsTheReadmeHasThem()
    {
        QFile readme(QStringLiteral(SOURCE_DIR "/README.md"));
        QVERIFY(readme.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(readme.readAll());
        const std::pair<QString, QString> parts[]
            = {{QStringLiteral("In Add Food"), QStringLiteral("| Adding foods |")},
                {QStringLiteral("In Add from Another Day"), QStringLiteral("| In another day's entries |")},
                {QStringLiteral("In History"), QStringLiteral("| In the history |")}};
        QTest::keyClick(table(), Qt::Key_F1);
        const auto *keys = sheet()->findChild<QTreeWidget *>(QStringLiteral("shortcuts"));
        for (const auto &[title, head] : parts) {
            const QList<QTreeWidgetItem *> found = keys->findItems(title, Qt::MatchExactly);
            QCOMPARE(found.size(), 1);
            QVERIFY(found[0]->childCount() >= 4);
            const QString told = text.section(head, 1).section(QStringLiteral("\n\n"), 0, 0);
            for (int i = 0; i < found[0]->childCount(); ++i)
                for (const QString &key : found[0]->child(i)->text(1).split(QStringLiteral(", ")))
                    QVERIFY2(told.contains(key), qPrintable(title + u' ' + key));
        }
    }

    void everyShortcutOfTheWindowIsListed()
    {
        QApplication::clipboard()->setText(QStringLiteral("before"));
        window()->findChild<QAction *>(QStringLiteral("actionhistory"))->trigger();
        QTest::keyClick(sheet(), Qt::Key_Escape); // whose own keys are not the window's
        auto *later = new QAction(QStringLiteral("&Later…"), window());
        later->setShortcuts({QKeySequence(QStringLiteral("Ctrl+Alt+L")), QKeySequence(QStringLiteral("F9"))});
        auto *daymenu = window()->findChild<QMenu *>(QStringLiteral("daymenu"));
        for (const bool ismenus : {false, true}) {
            if (ismenus)
                daymenu->addAction(later);
            QTest::keyClick(table(), Qt::Key_F1);
            auto *keys = sheet()->findChild<QTreeWidget *>(QStringLiteral("shortcuts"));
            QVERIFY(keys && keys->isVisible());
            QStringList lines;
            for (QTreeWidgetItemIterator at(keys); *at; ++at)
                lines << ((*at)->parent() ? (*at)->parent()->text(0) + u'/' : QString()) + (*at)->text(0) + u' '
                        + (*at)->text(1);
            QVERIFY(lines.contains(QStringLiteral("File/Add Food Ctrl+N")));
            QVERIFY(lines.contains(QStringLiteral("Edit/Remove Del")));
            QVERIFY(lines.contains(QStringLiteral("Help/Keyboard Shortcuts F1")));
            QCOMPARE(lines.filter(QStringLiteral("Later")),
                QStringList((ismenus ? QStringLiteral("Day") : QStringLiteral("Elsewhere"))
                    + QStringLiteral("/Later Ctrl+Alt+L or F9")));
            int withkeys = 0;
            for (const QAction *action : window()->findChildren<QAction *>(QString(), Qt::FindDirectChildrenOnly))
                withkeys += action->shortcut().isEmpty() ? 0 : 1;
            const QStringList ofsheets = lines.filter(QRegularExpression(QStringLiteral("^In [^/]*/")));
            QCOMPARE(lines.filter(QStringLiteral("/")).size() - ofsheets.size(), withkeys);
            QTest::keyClick(keys, Qt::Key_Down);
            QTest::keyClick(keys, Qt::Key_C, Qt::ControlModifier);
            QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("before"));
            QTest::keyClick(keys, Qt::Key_Escape);
            QVERIFY(!keys->isVisible());
        }
    }

    void aboutSaysVersionLicenceFiguresAndStore()
    {
        QCoreApplication::setApplicationVersion(QStringLiteral("7.8.9"));
        window()->findChild<QAction *>(QStringLiteral("actionabout"))->trigger();
        QStringList texts;
        for (const QLabel *text : sheet()->findChildren<QLabel *>())
            texts << text->text();
        for (const char *said : {"7.8.9", "MIT", "Release 24 (2011)"})
            QVERIFY2(!texts.filter(QLatin1String(said)).isEmpty(), said);
        QCOMPARE(sheet()->findChild<QLineEdit *>(QStringLiteral("storepath"))->text(), home->storePath());
        QTest::keyClick(sheet(), Qt::Key_Return);
        QCOMPARE(sheet(), nullptr);
    }

    void noFigureIsCutInASmallWindow_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<int>("points"); // of the font
        for (const QSize size : {QSize(640, 400), QSize(800, 500), QSize(1920, 1080)})
            for (const int points : {9, 14})
                QTest::addRow("%d x %d, %d points", size.width(), size.height(), points) << size << points;
    }

    void noFigureIsCutInASmallWindow()
    {
        QFETCH(QSize, size);
        QFETCH(int, points);
        const QFont usual = QApplication::font();
        QFont font = usual;
        font.setPointSize(points);
        QApplication::setFont(font);
        again();
        window()->resize(size);
        run->add({A});
        run->edit(0, QStringLiteral("340000")); // 8500 %
        run->controller.updateNutrients();
        QCoreApplication::processEvents();
        const auto *totals = window()->findChild<QLabel *>(QStringLiteral("totals"));
        QVERIFY(totals->text().startsWith(QStringLiteral("170,000 kcal")));
        const QRect lines = totals->fontMetrics().boundingRect(
            QRect(0, 0, totals->width(), window()->height()), Qt::TextWordWrap, totals->text());
        QVERIFY(totals->size().expandedTo(lines.size()) == totals->size()); // on a second line, not cut
        QApplication::setFont(usual);
        QCOMPARE(window()->size(), size);
        const QRect cell = nutrients()->visualRect(nutrients()->model()->index(0, 1));
        QCOMPARE(shown(nutrients(), 0, 1), QStringLiteral("8500 %"));
        QVERIFY(nutrients()->viewport()->rect().contains(cell));
        QVERIFY(cell.width() >= nutrients()->fontMetrics().horizontalAdvance(QStringLiteral("8500 %")) + 8);
    }

    void namesAndUnitsHaveTheRoomTheyNeed_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<bool>("unitfits");
        QTest::newRow("small") << 800 << false;
        QTest::newRow("large") << 1920 << true;
    }

    void namesAndUnitsHaveTheRoomTheyNeed()
    {
        QFETCH(int, width);
        QFETCH(bool, unitfits);
        const QString unit = QStringLiteral("1 piece, cooked, excluding refuse (yield from 1 lb)");
        const QString name = QStringLiteral("Beans, snap, green, canned, regular pack");
        home->files.writeElements(name, "<measure name='" + unit.mid(2).toUtf8() + "' amount='1' grams='10'/>");
        run->add({name});
        run->controller.foods[0]->setCurunit(unit);
        window()->resize(width, 500);
        run->controller.logtable->reloadData();
        QCoreApplication::processEvents();
        const QFontMetrics metrics = table()->fontMetrics();
        QCOMPARE(shown(table(), 0, 2), unit);
        QCOMPARE(table()->columnWidth(2) >= metrics.horizontalAdvance(unit) + 22, unitfits);
        QCOMPARE(table()->horizontalHeader()->length(), table()->viewport()->width());
    }

    void twentyEightLettersOfEveryNameAreSeenInASmallWindow()
    {
        const QString unit = QStringLiteral("1 piece, cooked, excluding refuse (yield from 1 lb)");
        home->files.writeElements(
            QStringLiteral("Beans"), "<measure name='" + unit.mid(2).toUtf8() + "' amount='1' grams='10'/>");
        run->add({QStringLiteral("Beans")});
        run->controller.foods[0]->setCurunit(unit);
        window()->resize(800, 500);
        table()->reloadData();
        QCoreApplication::processEvents();
        const QFontMetricsF metrics(table()->font());
        constexpr int cellmargins = 12;
        const int room = table()->columnWidth(0) - cellmargins;
        for (const QString &name : FoodCatalogue::foodNames())
            QVERIFY2(metrics.elidedText(name, Qt::ElideRight, room).size() > std::min(name.size() - 1, qsizetype(28)),
                qPrintable(name));
    }

    void aColumnKeepsTheWidthThatThePersonGaveIt()
    {
        const auto drag = [](const TableView *view, int section, int by) {
            QWidget *header = view->horizontalHeader()->viewport();
            const QPoint edge(view->horizontalHeader()->sectionViewportPosition(section)
                    + view->horizontalHeader()->sectionSize(section) - 1,
                header->height() / 2);
            QTest::mousePress(header, Qt::LeftButton, {}, edge);
            QTest::mouseMove(header, edge + QPoint(by, 0));
            QTest::mouseRelease(header, Qt::LeftButton, {}, edge + QPoint(by, 0));
        };
        window()->resize(1200, 600);
        run->terminate();
        QVERIFY(!run->store.objectForKey(QStringLiteral("ColumnWidths")).isValid());
        drag(table(), amountcolumn, 30);
        drag(nutrients(), 0, -20);
        const int amount = table()->columnWidth(amountcolumn);
        const int name = nutrients()->columnWidth(0);
        run->add({A});
        window()->resize(1000, 600);
        QCOMPARE(table()->columnWidth(amountcolumn), amount);
        run->terminate();
        const QVariantList stored = run->store.objectForKey(QStringLiteral("ColumnWidths")).toList();
        QCOMPARE(stored, QVariantList({amount, 0, 0, name}));
        again();
        QCOMPARE(table()->columnWidth(amountcolumn), amount);
        QCOMPARE(nutrients()->columnWidth(0), name);
        for (const QVariant &damaged :
            {QVariant(5), QVariant(QVariantList{1, 2}), QVariant(QVariantList{-5, 0, 1 << 20, QByteArray("x")})}) {
            run->store.setObject(damaged, QStringLiteral("ColumnWidths"));
            again();
            QVERIFY(table()->columnWidth(amountcolumn) < amount);
        }
    }

    void aFirstWindowIsNoLargerThanItsScreen()
    {
        const QSize screen = window()->screen()->availableSize(); // the test's is smaller than the usual window
        QVERIFY(screen.width() < 1080);
        QVERIFY(window()->width() < screen.width());
        QVERIFY(window()->height() < screen.height());
    }

    void lookingInTheCalendarOpensNoDay()
    {
        DatePicker *picker = run->controller.datepicker;
        picker->setFocus(); // in the log the key opens the menu of units
        QTest::keyClick(picker, Qt::Key_Down, Qt::AltModifier);
        auto *days = picker->calendarWidget()->findChild<QTableView *>();
        for (int press = 0; press < 3; ++press)
            QTest::keyClick(days, Qt::Key_Right);
        QTest::keyClick(days, Qt::Key_Return);
        QCOMPARE(LocalDay::key(run->controller.curdate), QStringLiteral("2026_11_24"));
        run->terminate();
        QVERIFY(run->store.objectForKey(QStringLiteral("2026_11_24")).isValid());
        for (const char *day : {"2026_11_22", "2026_11_23"})
            QVERIFY(!run->store.objectForKey(QLatin1String(day)).isValid());
    }

    void theSheetMarksTheFoodsOfTheDay()
    {
        const QString apricots = QStringLiteral("Apricots, raw");
        const auto mark = [&] {
            run->controller.addFood();
            auto *list = run->controller.addview->findChild<QListView *>(QStringLiteral("foodlist"));
            const QModelIndex food = list->model()->index(int(run->controller.foodlist.indexOf(apricots)), 0);
            const QString text = food.data(Qt::AccessibleDescriptionRole).toString();
            run->controller.addview->reject();
            return text;
        };
        QCOMPARE(mark(), QString());
        run->add({A, apricots});
        QCOMPARE(mark(), QStringLiteral("in the log"));
        run->controller.nextDay();
        QCOMPARE(mark(), QString());
    }

    void anAmountTypedShowsFreshTotals()
    {
        run->add({A, B});
        QCOMPARE(shown(nutrients(), 0, 1), QStringLiteral("5 %"));
        QCOMPARE(shown(table(), 0, energycolumn), QStringLiteral("50"));
        type(0, QStringLiteral("700"));
        QTest::keyClick(editor(), Qt::Key_Return);
        QCOMPARE(shown(nutrients(), 0, 1), QStringLiteral("20 %"));
        QCOMPARE(shown(table(), 0, amountcolumn), QStringLiteral("700.00"));
        QCOMPARE(shown(table(), 0, energycolumn), QStringLiteral("350"));
        QCOMPARE(table()->currentIndex().row(), 0);
    }

    void escLeavesTheAmount()
    {
        run->add({A});
        type(0, QStringLiteral("700"));
        QTest::keyClick(editor(), Qt::Key_Escape);
        QCOMPARE(run->entries(), QStringList{QStringLiteral("A 100 g 0")});
        QCOMPARE(shown(nutrients(), 0, 1), QStringLiteral("2 %"));
    }

    void eachCommandFirstEndsAnOpenEditor_data()
    {
        QTest::addColumn<QString>("action");
        for (const char *name : {"actionaddfood", "actioncut", "actioncopy", "actionpaste", "actionremove",
                 "actionpreviousday", "actionnextday", "actiontoday", "actionpreferences", "actionselectall",
                 "actiondeselect", "actionshortcuts", "actionabout"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }

    void eachCommandFirstEndsAnOpenEditor()
    {
        QFETCH(QString, action);
        run->add({A, B});
        home->now = home->now.addDays(3); // so that today is another day
        type(0, QStringLiteral("700"));
        QVERIFY(editor());
        window()->findChild<QAction *>(action)->trigger();
        QVERIFY(!editor());
        run->controller.addview->reject();
        run->controller.hidePrefs();
        run->controller.setDate(home->now.addDays(-3));
        const bool isremoved = action == QStringLiteral("actioncut") || action == QStringLiteral("actionremove");
        QCOMPARE(run->entries().size(), isremoved ? 1 : 2); // that row has the frame
        if (!isremoved)
            QCOMPARE(run->entries().constFirst(), QStringLiteral("A 700 g 0"));
        if (action == QStringLiteral("actioncut"))
            QCOMPARE(run->controller.copyfoods[0]->curamount(), 700.0F);
    }

    void whatIsStillBeingComposedGoesToItsRowBeforeACommand()
    {
        run->add({A});
        type(0, QStringLiteral("7"));
        QInputMethodEvent composing(QStringLiteral("25"), {});
        QCoreApplication::sendEvent(editor(), &composing);
        window()->findChild<QAction *>(QStringLiteral("actionpreviousday"))->trigger();
        run->controller.nextDay();
        QCOMPARE(run->entries(), QStringList{QStringLiteral("A 725 g 0")});
    }

    void aKeyHeldOnGoesNoFurtherThanItsWindow_data()
    {
        QTest::addColumn<QString>("action"); // that opens the sheet
        QTest::addColumn<Qt::Key>("key"); // that closes it
        QTest::addColumn<bool>("istold"); // that it is a repetition; else it is let go and pressed at one moment
        for (const bool istold : {true, false}) {
            const auto row = [istold](const char *which) -> QTestData & {
                return QTest::addRow("%s, %s", which, istold ? "told" : "not told");
            };
            row("Esc in the preferences") << QStringLiteral("actionpreferences") << Qt::Key_Escape << istold;
            row("Esc in the search") << QStringLiteral("actionaddfood") << Qt::Key_Escape << istold;
            row("Return in the search") << QStringLiteral("actionaddfood") << Qt::Key_Return << istold;
        }
    }

    void aKeyHeldOnGoesNoFurtherThanItsWindow()
    {
        QFETCH(QString, action);
        QFETCH(Qt::Key, key);
        QFETCH(bool, istold);
        run->add({A, B});
        run->select({1});
        window()->findChild<QAction *>(action)->trigger();
        QTRY_VERIFY(QApplication::activeWindow() != window());
        QTest::keyPress(QApplication::focusWidget(), key);
        window()->activateWindow(); // as a window manager does
        QTRY_VERIFY(table()->hasFocus());
        if (istold) {
            hold(key, {});
        } else {
            for (const QEvent::Type type : {QEvent::KeyRelease, QEvent::KeyPress}) {
                QKeyEvent event(type, key, {});
                event.setTimestamp(70000);
                QCoreApplication::sendEvent(table(), &event);
            }
        }
        QVERIFY(!editor());
        QCOMPARE(table()->selectedRowIndexes(), QList<int>{1});
    }

    void aHeldKeyPressedInAnotherWindowDoesNotReachACommand()
    {
        run->add({A, B});
        run->select({1});
        run->controller.showPrefs();
        QTRY_COMPARE(QApplication::activeWindow(), run->controller.preferences);
        QTest::keyPress(QApplication::focusWidget(), Qt::Key_Delete);
        run->controller.hidePrefs();
        window()->activateWindow(); // as a window manager does
        table()->setFocus();
        QTRY_VERIFY(table()->hasFocus());
        hold(Qt::Key_X, Qt::ControlModifier);
        hold(Qt::Key_Delete, {});
        QCOMPARE(run->names(), QStringList({A, B}));
        QTest::keyPress(table(), Qt::Key_Up);
        hold(Qt::Key_Up, {});
        QCOMPARE(table()->currentIndex().row(), 0); // its own window's keys go on
        QTest::keyRelease(table(), Qt::Key_Up);
    }

    void aHeldKeyThatNobodySawPressedRepeatsInATextField_data()
    {
        QTest::addColumn<Qt::Key>("key"); // whose press an input method took
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        QTest::addColumn<QString>("text"); // that the field has then
        const QString typed = QStringLiteral("700");
        QTest::newRow("Backspace") << Qt::Key_Backspace << Qt::KeyboardModifiers() << QStringLiteral("70");
        QTest::newRow("a key that ends things") << Qt::Key_Escape << Qt::KeyboardModifiers() << typed;
        QTest::newRow("a key with a command's modifier")
            << Qt::Key_Backspace << Qt::KeyboardModifiers(Qt::ControlModifier) << typed;
    }

    void aHeldKeyThatNobodySawPressedRepeatsInATextField()
    {
        QFETCH(Qt::Key, key);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        run->add({A});
        type(0, QStringLiteral("700"));
        hold(key, modifiers);
        QVERIFY(editor());
        QTEST(editor()->text(), "text");
    }

    void closingTheWindowEndsAnOpenEditor()
    {
        run->add({A});
        type(0, QStringLiteral("700"));
        QCloseEvent event; // nothing else: a window that is hidden loses the focus, which ends the editor too
        QCoreApplication::sendEvent(window(), &event);
        QVERIFY(!editor());
        QCOMPARE(run->entries(), QStringList{QStringLiteral("A 700 g 0")});
    }

    void choosingADateEndsAnOpenEditor()
    {
        run->add({A});
        type(0, QStringLiteral("700"));
        run->controller.datepicker->stepUp(); // as the wheel or the arrow keys do
        QCOMPARE(run->names(), QStringList());
        run->controller.previousDay();
        QCOMPARE(run->entries(), QStringList{QStringLiteral("A 700 g 0")});
    }

    void aDateTypedButNotEnteredCountsForTheSheet()
    {
        run->add({A});
        typeYear();
        window()->findChild<QAction *>(QStringLiteral("actionaddfood"))->trigger();
        QCOMPARE(LocalDay::key(run->controller.curdate), QStringLiteral("2025_11_21"));
        QCOMPARE(run->names(), QStringList());
    }

    void aDateTypedButNotEnteredIsDroppedByEveryOtherCommand_data()
    {
        QTest::addColumn<QString>("action");
        QTest::addColumn<QString>("day");
        for (const char *name : {"actioncut", "actioncopy", "actionpaste", "actionremove", "actiontoday",
                 "actionpreferences", "actionselectall", "actiondeselect"})
            QTest::newRow(name) << QString::fromLatin1(name) << QStringLiteral("2026-11-21");
        QTest::newRow("actionpreviousday") << QStringLiteral("actionpreviousday") << QStringLiteral("2026-11-20");
        QTest::newRow("actionnextday") << QStringLiteral("actionnextday") << QStringLiteral("2026-11-22");
    }

    void aDateTypedButNotEnteredIsDroppedByEveryOtherCommand()
    {
        QFETCH(QString, action);
        run->add({A});
        typeYear();
        window()->findChild<QAction *>(action)->trigger();
        QTEST(run->controller.datepicker->text(), "day");
        run->controller.hidePrefs();
        table()->setFocus(); // which would enter it
        QTEST(LocalDay::dateOf(run->controller.curdate).toString(Qt::ISODate), "day");
    }

    void aDateTypedButNotEnteredIsDroppedOnTheWayToACommand_data()
    {
        QTest::addColumn<QString>("way");
        QTest::addColumn<QString>("day");
        const auto row = [](const char *way, const char *day) {
            QTest::newRow(way) << QString::fromLatin1(way) << QString::fromLatin1(day);
        };
        row("previousdaybutton", "2026-11-20");
        row("nextdaybutton", "2026-11-22");
        row("todaybutton", "2026-11-21");
        row("the menu by the mouse", "2026-11-20");
        row("the menu by its key", "2026-11-20");
    }

    void aDateTypedButNotEnteredIsDroppedOnTheWayToACommand()
    {
        QFETCH(QString, way);
        typeYear();
        if (way.endsWith(QStringLiteral("button"))) {
            click(way.toLatin1());
        } else {
            auto *menu = openMenu("daymenu", way.endsWith(QStringLiteral("key")));
            QVERIFY(menu->isVisible());
            auto *action = window()->findChild<QAction *>(QStringLiteral("actionpreviousday"));
            QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
        }
        QTEST(run->controller.datepicker->text(), "day");
        QTEST(LocalDay::dateOf(run->controller.curdate).toString(Qt::ISODate), "day");
        QVERIFY(!run->store.objectForKey(QStringLiteral("2025_11_21")).isValid());
    }

    void aDateTypedButNotEnteredWaitsWhileAnotherWindowHasTheKeyboard()
    {
        typeYear();
        QWidget other;
        other.show();
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
        QCOMPARE(LocalDay::key(run->controller.curdate), QStringLiteral("2026_11_21"));
        window()->activateWindow();
        QTRY_VERIFY(run->controller.datepicker->hasFocus());
        QTest::keyClick(run->controller.datepicker, Qt::Key_Return);
        QCOMPARE(LocalDay::key(run->controller.curdate), QStringLiteral("2025_11_21"));
    }

    void anArrowKeyHeldInTheDateStopsWhenAnotherWindowTakesTheKeyboard()
    {
        DatePicker *picker = run->controller.datepicker;
        picker->setFocus();
        QTest::keyPress(picker, Qt::Key_Up);
        hold(Qt::Key_Up, {});
        const auto steps = [picker] { return QAbstractEventDispatcher::instance()->registeredTimers(picker).size(); };
        QVERIFY(steps() > 0);
        QWidget other;
        other.show();
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
        QCOMPARE(steps(), 0);
    }

    void aDateTypedButNotEnteredIsDroppedAtTheEnd_data()
    {
        QTest::addColumn<bool>("closes");
        QTest::addColumn<bool>("inmenu"); // which is open meanwhile
        QTest::newRow("by closing the window") << true << false;
        QTest::newRow("by closing the window while a menu is open") << true << true;
        QTest::newRow("by the session's save, after which the program may stay") << false << false;
    }

    void aDateTypedButNotEnteredIsDroppedAtTheEnd()
    {
        QFETCH(bool, closes);
        QFETCH(bool, inmenu);
        typeYear();
        if (inmenu)
            QVERIFY(openMenu("filemenu", false)->isVisible());
        if (closes)
            window()->close();
        else
            run->interface->endEditing();
        QCOMPARE(run->controller.datepicker->text(), QStringLiteral("2026-11-21"));
        run->terminate();
        QCOMPARE(run->store.objectForKey(QStringLiteral("LastDate")).toDateTime(), home->now);
        QVERIFY(!run->store.objectForKey(QStringLiteral("2025_11_21")).isValid());
    }

    void aWindowThatGoesEntersNoDate()
    {
        typeYear();
        run->interface.reset();
        QCOMPARE(LocalDay::key(run->controller.curdate), QStringLiteral("2026_11_21"));
    }

    void commandsActOnTheLogFromAnywhereInTheWindow_data()
    {
        QTest::addColumn<QString>("where");
        for (const char *name :
            {"logtable", "nutrienttable", "usep", "previousdaybutton", "addfoodbutton", "todaybutton"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }

    void commandsActOnTheLogFromAnywhereInTheWindow()
    {
        QFETCH(QString, where);
        run->add({A, B, C});
        run->select({1});
        auto *widget = window()->findChild<QWidget *>(where);
        widget->setFocus();
        QTRY_VERIFY(widget->hasFocus());
        QTest::keyClick(widget, Qt::Key_X, Qt::ControlModifier);
        QCOMPARE(run->names(), QStringList({A, C}));
        QTest::keyClick(widget, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(run->names(), QStringList({A, C, B}));
        run->select({0});
        QTest::keyClick(widget, Qt::Key_C, Qt::ControlModifier);
        QTest::keyClick(widget, Qt::Key_Delete);
        QCOMPARE(run->names(), QStringList({C, B}));
        QTest::keyClick(widget, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(run->names(), QStringList({C, B, A}));
        QTest::keyClick(widget, Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(label(), QStringLiteral("3 selected foods"));
        QTest::keyClick(widget, Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(label(), QStringLiteral("3 foods"));
    }

    void inATextFieldTheKeysAreTheFields()
    {
        run->add({A, B});
        run->select({0, 1});
        auto *field = run->controller.datepicker->findChild<QLineEdit *>();
        field->setFocus();
        QTRY_VERIFY(field->hasFocus());
        for (const Qt::Key key : {Qt::Key_X, Qt::Key_C, Qt::Key_V})
            QTest::keyClick(field, key, Qt::ControlModifier);
        QTest::keyClick(field, Qt::Key_Delete);
        QCOMPARE(run->names(), QStringList({A, B}));
        QVERIFY(run->controller.copyfoods.empty());
        table()->setFocus();
        type(0, QStringLiteral("700"));
        QTest::keyClick(editor(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(editor(), Qt::Key_X, Qt::ControlModifier);
        QVERIFY(editor());
        QCOMPARE(editor()->text(), QString());
        QTest::keyClick(editor(), Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(editor()->text(), QStringLiteral("700"));
        QCOMPARE(run->names(), QStringList({A, B}));
    }

    void daysChangeByKeysAndButtons()
    {
        const auto day = [this] { return LocalDay::key(run->controller.curdate); };
        QTest::keyClick(table(), Qt::Key_Left, Qt::AltModifier);
        QCOMPARE(day(), QStringLiteral("2026_11_20"));
        QTest::keyClick(table(), Qt::Key_Right, Qt::AltModifier);
        QTest::keyClick(table(), Qt::Key_Right, Qt::AltModifier);
        QCOMPARE(day(), QStringLiteral("2026_11_22"));
        QTest::keyClick(table(), Qt::Key_T, Qt::ControlModifier);
        QCOMPARE(day(), QStringLiteral("2026_11_21"));
        click("previousdaybutton");
        click("previousdaybutton");
        QCOMPARE(day(), QStringLiteral("2026_11_19"));
        click("nextdaybutton");
        QCOMPARE(day(), QStringLiteral("2026_11_20"));
        click("todaybutton");
        QCOMPARE(day(), QStringLiteral("2026_11_21"));
    }

    void sheetsOpenByKeys()
    {
        QTest::keyClick(table(), Qt::Key_Comma, Qt::ControlModifier);
        QVERIFY(run->controller.preferences->isVisible());
        run->controller.hidePrefs();
        QTest::keyClick(table(), Qt::Key_N, Qt::ControlModifier);
        QVERIFY(run->controller.addview->isVisible());
    }

    void thePercentageSwitchTakesEffectAtOnce()
    {
        run->add({A});
        QCOMPARE(shown(nutrients(), 0, 1), QStringLiteral("2 %"));
        auto *box = window()->findChild<QCheckBox *>(QStringLiteral("usep"));
        box->setFocus();
        QTest::keyClick(box, Qt::Key_Space);
        QCOMPARE(shown(nutrients(), 0, 1), QStringLiteral("50.00 kcal"));
        QVERIFY(!run->store.boolForKey(QStringLiteral("UseP")));
        QTest::keyClick(box, Qt::Key_Space);
        QCOMPARE(shown(nutrients(), 0, 1), QStringLiteral("2 %"));
    }

    void everyCommandHasAMenuItemAndItsButtonTellsTheKey()
    {
        const QList<std::pair<const char *, const char *>> keys = {{"actionaddfood", "Ctrl+N"},
            {"actionquit", "Ctrl+Q"}, {"actioncut", "Ctrl+X"}, {"actioncopy", "Ctrl+C"}, {"actionpaste", "Ctrl+V"},
            {"actionremove", "Del"}, {"actionselectall", "Ctrl+A"}, {"actiondeselect", "Ctrl+Shift+A"},
            {"actioneditamount", "F2"}, {"actionchooseunit", "Alt+Down"}, {"actionpreferences", "Ctrl+,"},
            {"actionpreviousday", "Alt+Left"}, {"actionnextday", "Alt+Right"}, {"actiontoday", "Ctrl+T"},
            {"actionfoodsbynutrient", "Ctrl+R"}, {"actionaddfromday", "Ctrl+D"}, {"actionhistory", "Ctrl+H"},
            {"actionpreviousloggedday", "Alt+Shift+Left"}, {"actionnextloggedday", "Alt+Shift+Right"}};
        QList<QAction *> items;
        for (const QAction *menu : window()->menuBar()->actions())
            items += menu->menu()->actions();
        for (const auto &[name, key] : keys) {
            auto *action = window()->findChild<QAction *>(QString::fromLatin1(name));
            QVERIFY2(items.contains(action), name);
            QCOMPARE(action->shortcut().toString(), QString::fromLatin1(key));
            QVERIFY(action->isEnabled()); // commands are never disabled
        }
        for (const auto &[button, key] : {std::pair{"addfoodbutton", "Ctrl+N"}, {"todaybutton", "Ctrl+T"},
                 {"previousdaybutton", "Alt+Left"}, {"nextdaybutton", "Alt+Right"}})
            QVERIFY(window()
                        ->findChild<QWidget *>(QString::fromLatin1(button))
                        ->toolTip()
                        .contains(QString::fromLatin1(key)));
    }

    void tabGoesThroughEverythingAndLeavesEverything()
    {
        run->add({A, B});
        table()->setFocus();
        QStringList visited;
        for (int i = 0; i < 12; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            visited.append(QApplication::focusWidget()->objectName());
        }
        for (const char *name : {"previousdaybutton", "datepicker", "nextdaybutton", "todaybutton", "addfoodbutton",
                 "logtable", "nutrienttable", "usep"})
            QVERIFY2(visited.contains(QString::fromLatin1(name)), name);
    }

    void anEmptyLogSaysHowToAddAFood()
    {
        QVERIFY(table()->accessibleDescription().contains(QStringLiteral("Ctrl+N")));
        run->add({A});
        QVERIFY(!table()->accessibleDescription().contains(QStringLiteral("Ctrl+N")));
    }

private:
    QMainWindow *window() { return run->controller.window; }
    TableView *table() { return run->controller.logtable; }
    TableView *nutrients() { return run->controller.nutrienttable; }
    // The open amount editor; one that has closed is still there for a moment.
    QLineEdit *editor()
    {
        auto *field = table()->viewport()->findChild<QLineEdit *>();
        return field != nullptr && field->isVisible() ? field : nullptr;
    }
    // Another run of the program.
    void again()
    {
        run.reset();
        run = std::make_unique<Run>(*home);
        run->show();
    }
    QString label() { return run->controller.label->text(); }
    // The one that is open.
    QDialog *sheet()
    {
        for (auto *dialog : window()->findChildren<QDialog *>())
            if (dialog->isVisible())
                return dialog;
        return nullptr;
    }
    static QString shown(const TableView *view, int row, int column)
    {
        return view->model()->index(row, column).data().toString();
    }
    void click(const char *name)
    {
        QTest::mouseClick(window()->findChild<QWidget *>(QString::fromLatin1(name)), Qt::LeftButton);
    }
    QMenu *openMenu(const char *name, bool bykey)
    {
        auto *menu = window()->findChild<QMenu *>(QString::fromLatin1(name));
        if (bykey) // that is underlined in its title
            QTest::keyClick(QApplication::focusWidget(), menu->title().at(1).toLower().toLatin1(), Qt::AltModifier);
        else
            QTest::mouseClick(window()->menuBar(), Qt::LeftButton, {},
                window()->menuBar()->actionGeometry(menu->menuAction()).center());
        return menu;
    }
    // Types a year into the date field and leaves it there.
    void typeYear()
    {
        DatePicker *picker = run->controller.datepicker;
        picker->setDisplayFormat(QStringLiteral("yyyy-MM-dd"));
        picker->setFocus();
        QTRY_VERIFY(picker->hasFocus());
        picker->setSelectedSection(QDateTimeEdit::YearSection);
        QTest::keyClicks(picker, QStringLiteral("2025"));
        QCOMPARE(LocalDay::key(run->controller.curdate), QStringLiteral("2026_11_21"));
    }
    // One repetition of a key that is held down, as the window system gives it: as a shortcut first, then as a key.
    static void hold(Qt::Key key, Qt::KeyboardModifiers modifiers)
    {
        QWidget *focus = QApplication::focusWidget();
        if (qt_sendShortcutOverrideEvent(focus, 0, key, modifiers, {}, true))
            return;
        QKeyEvent repeated(QEvent::KeyPress, key, modifiers, {}, true);
        QCoreApplication::sendEvent(focus, &repeated);
    }
    // Types into the amount of a row and leaves its editor open.
    void type(int row, const QString &text)
    {
        table()->setFocus();
        table()->setCurrentRow(row);
        QTest::keyClick(table(), Qt::Key_F2);
        QVERIFY(editor());
        QTest::keyClick(editor(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(editor(), text);
    }

    std::unique_ptr<Home> home;
    std::unique_ptr<Run> run;
};

QTEST_MAIN(MainWindowTest)
#include "tst_mainwindow.moc"
