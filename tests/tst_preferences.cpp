// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "support/Run.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QtTest>

namespace {

const QString amount = QStringLiteral("Amount");
const QString usep = QStringLiteral("UseP");

} // namespace

// The preferences sheet, driven through its controls.
class PreferencesTest final : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        home = std::make_unique<Home>();
        home->files.writeElements(QStringLiteral("A"), "<nutrient name='Energy' amount='1000'/>");
        run = std::make_unique<Run>(*home);
        run->show();
        run->add({QStringLiteral("A")});
        QVERIFY(QTest::qWaitForWindowExposed(run->controller.window));
        run->controller.showPrefs();
        QVERIFY(QTest::qWaitForWindowExposed(run->controller.preferences));
    }
    void cleanup()
    {
        run.reset();
        home.reset();
    }

    void theSheetIsModalToItsWindowAndCloses()
    {
        QVERIFY(run->controller.preferences->isVisible());
        QCOMPARE(run->controller.preferences->windowModality(), Qt::WindowModal);
        run->controller.hidePrefs();
        QVERIFY(!run->controller.preferences->isVisible());
    }

    void everyWayOutSendsHidePrefs_data()
    {
        QTest::addColumn<int>("way");
        QTest::newRow("the Close button") << 0;
        QTest::newRow("Esc") << 1;
        QTest::newRow("the title bar's button") << 2;
    }

    void everyWayOutSendsHidePrefs()
    {
        QFETCH(int, way);
        QSignalSpy finished(run->controller.preferences, &QDialog::finished);
        if (way == 0)
            click("closebutton");
        else if (way == 1)
            QTest::keyClick(run->controller.preferences, Qt::Key_Escape);
        else
            run->controller.preferences->close();
        QVERIFY(!run->controller.preferences->isVisible());
        QCOMPARE(finished.size(), 1);
        QCOMPARE(finished[0][0].toInt(), 0);
    }

    void aNumberTypedAndSetIsStoredAndShown_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<float>("stored");
        QTest::addColumn<QString>("shown");
        QTest::newRow("a fraction") << QStringLiteral("12.345") << 12.345F << QStringLiteral("12.35");
        QTest::newRow("a comma") << QStringLiteral("12,5") << 12.0F << QStringLiteral("12.00");
        QTest::newRow("words") << QStringLiteral("abc") << 0.0F << QStringLiteral("0.00");
        QTest::newRow("a negative number") << QStringLiteral("-5") << -5.0F << QStringLiteral("-5.00");
        QTest::newRow("nothing") << QString() << 0.0F << QStringLiteral("0.00");
    }

    void aNumberTypedAndSetIsStoredAndShown()
    {
        QFETCH(QString, typed);
        QFETCH(float, stored);
        for (const bool byKey : {true, false}) {
            type(typed);
            if (byKey)
                QTest::keyClick(run->controller.rdainput, Qt::Key_Return);
            else
                click("setbutton");
            QCOMPARE(bitsOf(run->controller.rdas[0]), bitsOf(stored));
            QTEST(run->controller.rdainput->text(), "shown");
            QVERIFY(run->controller.preferences->isVisible());
            run->controller.rdas[0] = 2000.0F;
        }
    }

    void whatIsStillBeingComposedIsSet_data()
    {
        QTest::addColumn<bool>("bykey");
        QTest::newRow("by Return") << true;
        QTest::newRow("by the button") << false;
    }

    void whatIsStillBeingComposedIsSet()
    {
        QFETCH(bool, bykey);
        run->controller.rdainput->selectAll();
        compose(QStringLiteral("25"));
        if (bykey)
            QTest::keyClick(run->controller.rdainput, Qt::Key_Return);
        else
            click("setbutton");
        QCOMPARE(run->controller.rdas[0], 25.0F);
        QCOMPARE(run->controller.rdainput->text(), QStringLiteral("25.00"));
    }

    void whatWasBeingComposedIsOfItsNutrientAlone()
    {
        run->controller.rdas[0] = run->controller.rdas[1] = 0.0F;
        run->controller.RDAtick();
        compose(QStringLiteral("9"));
        run->controller.rdamenu->setFocus();
        QTest::keyClick(run->controller.rdamenu, Qt::Key_Down);
        QCOMPARE(run->controller.rdamenu->currentIndex(), 1);
        click("setbutton");
        QCOMPARE(run->controller.rdas[1], 0.0F);
    }

    void returnHeldSetsOnce()
    {
        type(QStringLiteral("12.345"));
        for (const bool isrepeated : {false, true, true}) {
            QKeyEvent pressed(QEvent::KeyPress, Qt::Key_Return, {}, QStringLiteral("\r"), isrepeated);
            QCoreApplication::sendEvent(run->controller.rdainput, &pressed);
        }
        QCOMPARE(run->controller.rdas[0], 12.345F); // and not the 12.35 that the field shows
    }

    void theWheelChangesTheNutrientWithTheFocusAlone()
    {
        QComboBox *menu = run->controller.rdamenu;
        run->controller.rdainput->setFocus();
        wheel(menu);
        QCOMPARE(menu->currentIndex(), 0);
        QVERIFY(!menu->hasFocus());
        menu->setFocus();
        wheel(menu);
        QCOMPARE(menu->currentIndex(), 1);
    }

    void returnSetsTheRDAAndPressesNoButton()
    {
        type(QStringLiteral("1"));
        std::vector<std::unique_ptr<QSignalSpy>> spies;
        for (QAbstractButton *button : run->controller.preferences->findChildren<QAbstractButton *>())
            spies.push_back(std::make_unique<QSignalSpy>(button, &QAbstractButton::clicked));
        QVERIFY(spies.size() >= 6);
        QTest::keyClick(run->controller.rdainput, Qt::Key_Return);
        QCOMPARE(run->controller.rdas[0], 1.0F);
        for (const auto &spy : spies)
            QCOMPARE(spy->size(), 0);
    }

    void theNutrientTableFollowsAtOnce()
    {
        QCOMPARE(shownEnergy(), QStringLiteral("50 %"));
        type(QStringLiteral("2500"));
        QTest::keyClick(run->controller.rdainput, Qt::Key_Return);
        QCOMPARE(shownEnergy(), QStringLiteral("40 %"));
    }

    void anRDANotAboveZeroShowsNoPercentage()
    {
        type(QStringLiteral("-5"));
        QTest::keyClick(run->controller.rdainput, Qt::Key_Return);
        QCOMPARE(shownEnergy(), QStringLiteral("0 %"));
    }

    void choosingANutrientShowsItsRDAAndUnit()
    {
        QTest::keyClicks(run->controller.rdamenu, QStringLiteral("Sel"));
        QCOMPARE(run->controller.rdamenu->currentIndex(), 17);
        QCOMPARE(run->controller.rdainput->text(), QStringLiteral("70.00"));
        QCOMPARE(run->controller.rdalabel->text(), QStringLiteral("\u00b5g"));
        type(QStringLiteral("55"));
        QTest::keyClick(run->controller.rdainput, Qt::Key_Return);
        QCOMPARE(run->controller.rdas[17], 55.0F);
        QCOMPARE(run->controller.rdas[0], 2000.0F);
    }

    void choosingByCodeSendsNothing()
    {
        run->controller.rdamenu->setCurrentIndex(31);
        QCOMPARE(run->controller.rdainput->text(), QStringLiteral("2000.00"));
    }

    void withoutAChosenNutrientTheFirstIsShown()
    {
        run->controller.rdamenu->setCurrentIndex(-1);
        run->controller.rdainput->clear();
        run->controller.RDAtick();
        QCOMPARE(run->controller.rdainput->text(), QStringLiteral("2000.00"));
        QCOMPARE(run->controller.rdalabel->text(), QStringLiteral("kcal"));
    }

    void everyItemStandsForItsNutrient()
    {
        for (int i = 0; i < 61; ++i) {
            run->controller.rdas[static_cast<std::size_t>(i)] = float(i) + 0.25F;
            run->controller.rdamenu->setCurrentIndex(i);
            run->controller.RDAtick();
            QCOMPARE(run->controller.rdainput->text(), QStringLiteral("%1.25").arg(i));
            QCOMPARE(run->controller.rdalabel->text(), NutrientCatalogue::units()[i]);
        }
    }

    void resettingShowsTheDefaultButLeavesTheTableUntilTheSheetIsHidden()
    {
        type(QStringLiteral("1000"));
        QTest::keyClick(run->controller.rdainput, Qt::Key_Return);
        run->controller.rdas[60] = 9.0F;
        QCOMPARE(shownEnergy(), QStringLiteral("100 %"));
        click("resetbutton");
        click("resetbutton");
        QCOMPARE(run->controller.rdainput->text(), QStringLiteral("2000.00"));
        QCOMPARE(run->controller.rdalabel->text(), QStringLiteral("kcal"));
        for (std::size_t i = 0; i < 61; ++i)
            QCOMPARE(run->controller.rdas[i], static_cast<float>(NutrientCatalogue::defaultRDAs()[i]));
        QCOMPARE(shownEnergy(), QStringLiteral("100 %")); // still of the old one
        click("closebutton");
        QCOMPARE(shownEnergy(), QStringLiteral("50 %"));
    }

    void resettingDoesNotWriteTheStore()
    {
        click("resetbutton");
        click("resetbutton");
        QVERIFY(!run->store.objectForKey(QStringLiteral("RDAs")).isValid());
        type(QStringLiteral("7"));
        click("setbutton");
        QVERIFY(!run->store.objectForKey(QStringLiteral("RDAs")).isValid());
    }

    void anRDATypedIsSetWhenThePersonGoesOn_data()
    {
        QTest::addColumn<QString>("to");
        QTest::newRow("the next control, by Tab") << QStringLiteral("Tab");
        QTest::newRow("another nutrient, by the mouse") << QStringLiteral("nutrient");
        QTest::newRow("a setting, by the mouse") << QStringLiteral("rememberdate");
        QTest::newRow("Close, by the mouse") << QStringLiteral("closebutton");
        QTest::newRow("Close, by its letter") << QStringLiteral("letter");
        QTest::newRow("Close, by Return on it") << QStringLiteral("Return");
        QTest::newRow("the title bar's button") << QStringLiteral("title");
        QTest::newRow("the end of the program, whose save comes next") << QStringLiteral("end");
    }

    void anRDATypedIsSetWhenThePersonGoesOn()
    {
        QFETCH(QString, to);
        QDialog *sheet = run->controller.preferences;
        for (const bool composed : {false, true}) {
            run->controller.showPrefs();
            QTRY_COMPARE(QApplication::activeWindow(), sheet);
            run->controller.rdamenu->setCurrentIndex(31);
            run->controller.RDAtick();
            run->controller.rdainput->setFocus();
            type(QStringLiteral("77"));
            if (composed)
                compose(QStringLiteral("5"));
            if (to == QStringLiteral("Tab")) {
                QTest::keyClick(run->controller.rdainput, Qt::Key_Tab);
                QVERIFY(!run->controller.rdainput->hasFocus());
            } else if (to == QStringLiteral("nutrient")) {
                QTest::mouseClick(run->controller.rdamenu, Qt::LeftButton);
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
                QCOMPARE(run->controller.rdamenu->currentIndex(), 32);
            } else if (to == QStringLiteral("letter")) {
                QTest::keyClick(run->controller.rdainput, Qt::Key_C, Qt::AltModifier);
                QTRY_VERIFY(!sheet->isVisible());
            } else if (to == QStringLiteral("Return")) {
                auto *button = sheet->findChild<QAbstractButton *>(QStringLiteral("closebutton"));
                for (int tab = 0; tab < 10 && !button->hasFocus(); ++tab)
                    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
                QTest::keyClick(button, Qt::Key_Return);
                QVERIFY(!sheet->isVisible());
            } else if (to == QStringLiteral("title")) {
                sheet->close();
            } else if (to == QStringLiteral("end")) {
                run->interface->endEditing();
            } else {
                click(to.toLatin1().constData());
            }
            QCOMPARE(run->controller.rdas[31], composed ? 775.0F : 77.0F);
            QCOMPARE(run->controller.rdas[32], float(NutrientCatalogue::defaultRDAs()[32]));
        }
    }

    void goingOnFromAnUntouchedFieldSetsNothing()
    {
        run->controller.rdas[0] = 0.4166667F; // of which the field shows 0.42
        run->controller.RDAtick();
        run->controller.rdainput->setFocus();
        QTest::keyClick(run->controller.rdainput, Qt::Key_Tab);
        click("setbutton");
        click("closebutton");
        QCOMPARE(run->controller.rdas[0], 0.4166667F);
    }

    void resettingAsksFirstAndForgetsTheQuestionWhenTheFocusLeaves()
    {
        auto *button = run->controller.preferences->findChild<QAbstractButton *>(QStringLiteral("resetbutton"));
        const QString text = button->text();
        run->controller.rdas[60] = 9.0F;
        QTest::keyClick(run->controller.rdainput, Qt::Key_D, Qt::AltModifier);
        QTRY_COMPARE(button->text(), QStringLiteral("Reset all 61 &allowances?"));
        QVERIFY(button->hasFocus());
        QTest::keyClick(button, Qt::Key_Tab);
        QCOMPARE(button->text(), text);
        click("resetbutton");
        click("closebutton");
        QCOMPARE(button->text(), text);
        QCOMPARE(run->controller.rdas[60], 9.0F);
        run->controller.showPrefs();
        QTRY_COMPARE(QApplication::activeWindow(), run->controller.preferences);
        button->setFocus();
        QTest::keyClick(button, Qt::Key_Return);
        QCOMPARE(run->controller.rdas[60], 9.0F);
        QTest::keyClick(button, Qt::Key_Return);
        QCOMPARE(run->controller.rdas[60], 0.0F);
        QCOMPARE(button->text(), text);
    }

    void aDoubleClickOnResetOnlyAsks()
    {
        auto *button = run->controller.preferences->findChild<QAbstractButton *>(QStringLiteral("resetbutton"));
        run->controller.rdas[60] = 9.0F;
        click("resetbutton");
        QTest::mouseDClick(button, Qt::LeftButton);
        QTest::mouseRelease(button, Qt::LeftButton);
        QCOMPARE(button->text(), QStringLiteral("Reset all 61 &allowances?"));
        QCOMPARE(run->controller.rdas[60], 9.0F);
        click("resetbutton");
        QCOMPARE(run->controller.rdas[60], 0.0F);
    }

    void anRDATypedIsDiscardedByEscAlone()
    {
        type(QStringLiteral("777"));
        compose(QStringLiteral("7"));
        QTest::keyClick(run->controller.rdainput, Qt::Key_Escape);
        QVERIFY(!run->controller.preferences->isVisible());
        QCOMPARE(run->controller.rdas[0], 2000.0F);
        run->controller.showPrefs();
        QCOMPARE(run->controller.rdainput->text(), QStringLiteral("2000.00"));
    }

    void settingsAreWrittenAtOnce_data()
    {
        QTest::addColumn<QByteArray>("box");
        QTest::addColumn<QString>("setting");
        QTest::newRow("percentages") << QByteArray("prefsusep") << usep;
        QTest::newRow("weight") << QByteArray("recalculateamount") << QStringLiteral("RecalculateAmount");
        QTest::newRow("date") << QByteArray("rememberdate") << QStringLiteral("RememberDate");
        QTest::newRow("own foods") << QByteArray("ownfoodsfirst") << QStringLiteral("OwnFoodsFirst");
    }

    void settingsAreWrittenAtOnce()
    {
        QFETCH(QByteArray, box);
        QFETCH(QString, setting);
        auto *checkbox = run->controller.preferences->findChild<QCheckBox *>(QString::fromLatin1(box));
        QVERIFY(checkbox);
        const bool before = run->store.boolForKey(setting);
        QCOMPARE(checkbox->isChecked(), before);
        click(box.constData());
        QCOMPARE(run->store.boolForKey(setting), !before);
        QCOMPARE(run->store.objectForKey(setting).typeId(), int(QMetaType::Bool));
        click(box.constData());
        QCOMPARE(run->store.boolForKey(setting), before);
    }

    void bothPercentageSwitchesAgreeAndTheTableFollows()
    {
        auto *inSheet = run->controller.preferences->findChild<QCheckBox *>(QStringLiteral("prefsusep"));
        auto *inWindow = run->controller.window->findChild<QCheckBox *>(QStringLiteral("usep"));
        QVERIFY(inSheet && inWindow);
        QVERIFY(inWindow->isChecked());
        click("prefsusep");
        QVERIFY(!inWindow->isChecked());
        QCOMPARE(shownEnergy(), QStringLiteral("1000.00 kcal"));
        click("closebutton");
        inWindow->click();
        QVERIFY(inSheet->isChecked());
        QVERIFY(run->store.boolForKey(usep));
        QCOMPARE(shownEnergy(), QStringLiteral("50 %"));
    }

    void theSheetCarriesQuit()
    {
        bool carries = false;
        for (const QAction *action : run->controller.preferences->actions())
            carries = carries || action->shortcut() == QKeySequence(QStringLiteral("Ctrl+Q"));
        QVERIFY(carries);
    }

private:
    // What the table shows, not what the controller would answer.
    QString shownEnergy() { return run->controller.nutrienttable->model()->index(0, 1).data().toString(); }
    void type(const QString &text)
    {
        run->controller.rdainput->selectAll();
        QTest::keyClick(run->controller.rdainput, Qt::Key_Delete);
        QTest::keyClicks(run->controller.rdainput, text);
    }
    void compose(const QString &text)
    {
        run->controller.rdainput->setFocus();
        QInputMethodEvent composing(text, {});
        QCoreApplication::sendEvent(run->controller.rdainput, &composing);
    }
    // Turned towards the person, by the window system as it were: only such a turn may move the focus.
    static void wheel(QWidget *widget)
    {
        const QPoint place = widget->rect().center();
        QWheelEvent turned(
            place, widget->mapToGlobal(place), {}, {0, -120}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&turned);
        qApp->notify(widget, &turned);
    }
    void click(const char *name)
    {
        auto *button = run->controller.preferences->findChild<QAbstractButton *>(QString::fromLatin1(name));
        QVERIFY(button);
        // A check box answers on its indicator, which is at its left.
        QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(10, button->height() / 2));
    }

    std::unique_ptr<Home> home;
    std::unique_ptr<Run> run;
};

QTEST_MAIN(PreferencesTest)
#include "tst_preferences.moc"
