// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "model/FoodRecord.h"
#include "platform/LocalDay.h"
#include "tests/support/Run.h"
#include "tests/support/StoreView.h"
#include "ui/controls/DatePicker.h"
#include "ui/daysheet/DaySheet.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QtTest>

namespace {

const QString A = QStringLiteral("A");
const QString B = QStringLiteral("B");
const QString C = QStringLiteral("C");

QByteArray record(const QString &name, float amount, const QString &unit, qint32 unitidx)
{
    Food food(name);
    food.setCuramount(amount);
    food.setCurunit(unit);
    food.setCurunitidx(unitidx);
    return FoodRecord::archivedDataWithRootObject(food);
}

} // namespace

// The entries of another day, added to the log by keys.
class OtherDayTest final : public QObject {
    Q_OBJECT

    const QDate today{2026, 11, 21};
    // With an item that is no record, a second entry of a name, a food without a file and a unit that no file has.
    const QVariantList meal{record(C, 250.0F, QStringLiteral("g"), 0), QByteArray("no record"),
        record(A, 0.5F, QStringLiteral("1 cup"), 2), record(C, 7.0F, QStringLiteral("g"), 0),
        record(QStringLiteral("Z"), 3.0F, QStringLiteral("1 unknown"), 9)};
    const QStringList mealentries{
        QStringLiteral("C 250 g 0"), QStringLiteral("A 0.5 1 cup 2"), QStringLiteral("Z 3 1 unknown 9")};

    [[nodiscard]] QString key(int daysago) const { return LocalDay::key(today.addDays(-daysago)); }

    // A run whose store has these days, on the first of them.
    void start(const QMap<int, QVariantList> &daysago)
    {
        {
            UserDefaults store(home->storePath());
            UserDefaults::Transaction transaction(store);
            for (auto day = daysago.cbegin(); day != daysago.cend(); ++day)
                store.setObject(day.value(), key(day.key()));
            QVERIFY(transaction.commit());
        }
        run = std::make_unique<Run>(*home);
        run->show();
        QVERIFY(QTest::qWaitForWindowActive(run->controller.window));
    }

    void openSheet()
    {
        press(Qt::Key_D, Qt::ControlModifier);
        sheet = run->controller.window->findChild<DaySheet *>();
        QTRY_COMPARE(QApplication::activeWindow(), sheet);
    }
    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    static void hold(Qt::Key key, const QString &text)
    {
        QKeyEvent repeated(QEvent::KeyPress, key, Qt::NoModifier, text, true);
        QCoreApplication::sendEvent(QApplication::focusWidget(), &repeated);
    }
    [[nodiscard]] QTreeWidget *list() const { return sheet->findChild<QTreeWidget *>(); }
    [[nodiscard]] QString title() const
    {
        return sheet->findChild<QLabel *>(QStringLiteral("daylabel"))->text().section(u'\u2013', 1).trimmed();
    }
    // "[x] A 2.00 1 cup" for each row, with what stands after the unit.
    [[nodiscard]] QStringList rows() const
    {
        QStringList texts;
        for (int row = 0; row < list()->topLevelItemCount(); ++row) {
            const QTreeWidgetItem &item = *list()->topLevelItem(row);
            const QVariant tick = item.data(0, Qt::CheckStateRole);
            QStringList text{!tick.isValid()      ? QStringLiteral("   ")
                    : tick.toInt() == Qt::Checked ? QStringLiteral("[x]")
                                                  : QStringLiteral("[ ]")};
            for (int column = 0; column < item.columnCount(); ++column)
                text.append(item.text(column));
            texts.append(text.join(u' ').trimmed());
        }
        return texts;
    }

private slots:
    void init()
    {
        home = std::make_unique<Home>();
        for (const QString &name : {A, B, C})
            home->files.writeElements(
                name, "<nutrient name='Energy' amount='50'/><measure name='cup' amount='1' grams='240'/>");
    }
    void cleanup()
    {
        run.reset();
        home.reset();
    }

    void enterAddsThemAsOpeningThatDayWouldMakeThem()
    {
        start({{1, {}}, {2, meal}});
        openSheet();
        QCOMPARE(title(), QStringLiteral("2 days before"));
        press(Qt::Key_Return);
        QTRY_VERIFY(!sheet->isVisible());
        QCOMPARE(run->entries(), mealentries);
        QCOMPARE(run->controller.logtable->model()->rowCount(), 3);
        QCOMPARE(run->controller.label->text(), QStringLiteral("3 foods"));
        QCOMPARE(run->controller.nutrienttable->model()->index(0, 1).data().toString(),
            QStringLiteral("9 %")); // 185 of 2000

        const auto records = run->controller.curdatefoods;
        const auto totals = run->controller.nutrientstotal;
        QCOMPARE(run->controller.unreadfoods, QVariantList());
        run->controller.setDate(home->now.addDays(-2));
        QCOMPARE(run->controller.curdatefoods, records);
        for (std::size_t i = 0; i < totals.size(); ++i)
            QCOMPARE(bitsOf(run->controller.nutrientstotal[i]), bitsOf(totals[i]));
    }

    void theyComeAfterTheEntriesOfTheLogAndTheLastOneIsEditedNext()
    {
        start({{0, {record(B, 1.0F, QStringLiteral("g"), 0)}}, {1, meal}});
        run->select({0});
        openSheet();
        press(Qt::Key_Return);
        run->controller.window->activateWindow(); // as a window manager does
        QTRY_VERIFY(run->controller.logtable->hasFocus());
        QCOMPARE(run->entries(), QStringList(QStringLiteral("B 1 g 0")) + mealentries);
        QCOMPARE(run->controller.logtable->currentIndex().row(), 3);
        QCOMPARE(run->controller.logtable->selectedRowIndexes(), QList<int>());
        QCOMPARE(run->controller.logtable->model()->rowCount(), 4);
    }

    void theOtherDayKeepsItsBytesAndBothClipboardsWhatTheyHold()
    {
        QApplication::clipboard()->setText(QStringLiteral("mine"));
        start({{0, {record(B, 1.0F, QStringLiteral("g"), 0)}}, {1, meal}});
        const auto bytes = [&] { return StoreView(home->storePath()).bytes(key(1)); };
        run.reset();
        const QByteArray former = bytes();
        start({});
        run->select({0});
        run->controller.copy();
        openSheet();
        press(Qt::Key_C, Qt::ControlModifier);
        press(Qt::Key_Return);
        QCOMPARE(run->names().size(), 4);
        QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("mine"));
        QCOMPARE(run->controller.copyfoods.size(), std::size_t(1));
        QCOMPARE(run->controller.copyfoods[0]->name(), B);
        QVERIFY(run->terminate());
        run.reset();
        QCOMPARE(bytes(), former);
        QVERIFY(!former.isEmpty());
        QCOMPARE(
            StoreView(home->storePath()).column("SELECT key FROM defaults WHERE key LIKE '%.unread'"), QStringList());
    }

    void lookingAtADayIsNotReadingIt()
    {
        start({{1, meal}});
        openSheet();
        press(Qt::Key_Return);
        run->store.setObject(QVariantList(), key(1)); // by somebody who has not opened it
        QCOMPARE(run->store.unreadObjectsForKey(key(1)), QVariantList{QVariant(meal)});
    }

    void spaceTakesAnEntryOutAndInAgain()
    {
        start({{1, meal}});
        openSheet();
        press(Qt::Key_Space);
        press(Qt::Key_Down);
        press(Qt::Key_Space);
        press(Qt::Key_Down);
        QTest::keyPress(QApplication::focusWidget(), Qt::Key_Space);
        hold(Qt::Key_Space, QStringLiteral(" "));
        QTest::keyRelease(QApplication::focusWidget(), Qt::Key_Space);
        press(Qt::Key_Up);
        press(Qt::Key_Up);
        press(Qt::Key_Space);
        QCOMPARE(rows(),
            (QStringList{QStringLiteral("[x] C 250.00 g"), QStringLiteral("[ ] A 0.50 1 cup"),
                QStringLiteral("[ ] Z 3.00 1 unknown")}));
        QCOMPARE(addButton()->text(), QStringLiteral("&Add"));
        press(Qt::Key_End);
        press(Qt::Key_Space);
        QCOMPARE(addButton()->text(), QStringLiteral("&Add 2 foods"));
        press(Qt::Key_Return);
        QCOMPARE(run->entries(), (QStringList{mealentries[0], mealentries[2]}));
    }

    void entriesOfTheLogSaySoAndCannotBeTicked()
    {
        start({{0, {record(A, 1.0F, QStringLiteral("g"), 0)}}, {1, meal}});
        openSheet();
        press(Qt::Key_Down);
        press(Qt::Key_Space);
        QCOMPARE(rows(),
            (QStringList{QStringLiteral("[x] C 250.00 g"), QStringLiteral("A 0.50 1 cup in the log"),
                QStringLiteral("[x] Z 3.00 1 unknown")}));
        press(Qt::Key_Return);
        QCOMPARE(run->entries(), (QStringList{QStringLiteral("A 1 g 0"), mealentries[0], mealentries[2]}));
    }

    void endlessTextsAreCutOffInTheListAndAddedWhole()
    {
        const QString name(100000, u'n');
        const QString unit(100000, u'u');
        start({{1, {record(name, 1.0F, unit, 0)}}});
        openSheet();
        QVERIFY(rows().constFirst().size() < 3000);
        press(Qt::Key_Return);
        QCOMPARE(run->entries(), QStringList(name + QStringLiteral(" 1 ") + unit + QStringLiteral(" 0")));
    }

    void leftAndRightGoToTheDaysThatHaveEntries()
    {
        const QVariantList one{record(B, 1.0F, QStringLiteral("g"), 0)};
        start({{-3, one}, {0, meal}, {1, {}}, {2, one}, {3, {QByteArray("no record")}}, {30, meal}});
        openSheet();
        QStringList titles{title()};
        for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Left, Qt::Key_Right, Qt::Key_Right, Qt::Key_Right}) {
            press(key);
            titles.append(title());
        }
        QCOMPARE(titles,
            (QStringList{QStringLiteral("2 days before"), QStringLiteral("30 days before"),
                QStringLiteral("30 days before"), QStringLiteral("2 days before"), QStringLiteral("3 days after"),
                QStringLiteral("3 days after")}));
        QCOMPARE(rows(), QStringList{QStringLiteral("[x] B 1.00 g")});
        press(Qt::Key_Space); // the first entry is the current one
        QCOMPARE(rows(), QStringList{QStringLiteral("[ ] B 1.00 g")});
        press(Qt::Key_Space);
        press(Qt::Key_Return);
        QCOMPARE(run->names().last(), B);
    }

    void withoutAnEarlierDayTheNextOneIsOffered()
    {
        start({{-3, meal}, {-4, meal}});
        openSheet();
        QCOMPARE(title(), QStringLiteral("3 days after"));
        // The program ends from here too.
        QVERIFY(sheet->actions().contains(run->controller.window->findChild<QAction *>(QStringLiteral("actionquit"))));
    }

    void aDayEnteredInThisRunIsOffered()
    {
        start({});
        run->add({B});
        press(Qt::Key_Right, Qt::AltModifier);
        openSheet();
        QCOMPARE(title(), QStringLiteral("the day before"));
        press(Qt::Key_Return);
        QCOMPARE(run->names(), QStringList{B});
    }

    void aDateTypedButNotEnteredCounts()
    {
        start({{0, meal}});
        DatePicker *picker = run->controller.datepicker;
        picker->setDisplayFormat(QStringLiteral("yyyy-MM-dd"));
        picker->setFocus();
        picker->setSelectedSection(QDateTimeEdit::DaySection);
        QTest::keyClicks(picker, QStringLiteral("25"));
        run->controller.window->findChild<QAction *>(QStringLiteral("actionaddfromday"))->trigger();
        QCOMPARE(LocalDay::key(run->controller.curdate), QStringLiteral("2026_11_25"));
        sheet = run->controller.window->findChild<DaySheet *>();
        QCOMPARE(title(), QStringLiteral("4 days before"));
    }

    void theSheetHasTheSizeThatItWasLastGiven()
    {
        start({{1, meal}});
        openSheet();
        const QSize size = sheet->size() - QSize(40, 30);
        sheet->resize(size);
        press(Qt::Key_Escape);
        QVERIFY(run->terminate());
        run.reset();
        start({});
        openSheet();
        QCOMPARE(sheet->size(), size);
    }

    void escAndCancelAddNothing()
    {
        start({{1, meal}});
        openSheet();
        press(Qt::Key_Escape);
        QTRY_VERIFY(!sheet->isVisible());
        run->controller.window->activateWindow();
        QTRY_VERIFY(run->controller.logtable->hasFocus());
        openSheet();
        QTest::mouseClick(sheet->findChild<QPushButton *>(QStringLiteral("cancelbutton")), Qt::LeftButton);
        QTRY_VERIFY(!sheet->isVisible());
        QCOMPARE(run->names(), QStringList());
    }

    void enterStaysWhereNothingIsTicked()
    {
        start({{1, {record(B, 1.0F, QStringLiteral("g"), 0)}}});
        openSheet();
        press(Qt::Key_Space);
        QVERIFY(!addButton()->isEnabled());
        press(Qt::Key_Return);
        QVERIFY(sheet->isVisible());
        QCOMPARE(run->names(), QStringList());
    }

    void withoutAnotherDayTheSheetSaysSo()
    {
        start({{0, meal}});
        openSheet();
        QCOMPARE(sheet->findChild<QLabel *>(QStringLiteral("daylabel"))->text(),
            QStringLiteral("No other day has entries."));
        for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Space, Qt::Key_Return})
            press(key);
        QVERIFY(sheet->isVisible());
        QCOMPARE(rows(), QStringList());
        QCOMPARE(run->entries(), mealentries);
    }

    void everyControlHasANameAndARowIsHeardWhole()
    {
        start({{0, {record(A, 1.0F, QStringLiteral("g"), 0)}}, {1, meal}});
        openSheet();
        for (const QWidget *control : sheet->findChildren<QWidget *>()) {
            if (control->focusPolicy() != Qt::NoFocus && control->isVisible() && control != list()->viewport())
                QVERIFY2(!QAccessible::queryAccessibleInterface(const_cast<QWidget *>(control))
                              ->text(QAccessible::Name)
                              .isEmpty(),
                    qPrintable(control->objectName()));
        }
        QAccessibleInterface *table = QAccessible::queryAccessibleInterface(list());
        QCOMPARE(table->text(QAccessible::Description), sheet->findChild<QLabel *>(QStringLiteral("daylabel"))->text());
        const auto heard = [&](int row) { return table->tableInterface()->cellAt(row, 0); };
        QCOMPARE(heard(0)->text(QAccessible::Name), QStringLiteral("C, 250.00 g"));
        QVERIFY(heard(0)->state().checked);
        QCOMPARE(heard(1)->text(QAccessible::Name), QStringLiteral("A, 0.50 1 cup, in the log"));
        QVERIFY(!heard(1)->state().checked);
    }

private:
    [[nodiscard]] QPushButton *addButton() const
    {
        return sheet->findChild<QPushButton *>(QStringLiteral("addbutton"));
    }

    std::unique_ptr<Home> home;
    std::unique_ptr<Run> run;
    DaySheet *sheet = nullptr;
};

QTEST_MAIN(OtherDayTest)
#include "tst_otherday.moc"
