// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/Run.h"
#include "ui/table/TableView.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QtTest>

#include <memory>

// A test of the window over the foods A, B and C of a home of its own: 50 kcal in 100 g each, and a cup of 20.5 g. Tests
// of it are private slots of a class derived from this one.
class WindowTest : public QObject {
protected:
    const QString A = QStringLiteral("A");
    const QString B = QStringLiteral("B");
    const QString C = QStringLiteral("C");

    std::unique_ptr<Home> home;
    std::unique_ptr<Run> run;

    void makeWindow()
    {
        home = std::make_unique<Home>();
        for (const QString &name : {A, B, C})
            home->files.writeElements(
                name, "<nutrient name='Energy' amount='50'/><measure name='cup' amount='1' grams='20.5'/>");
        run = std::make_unique<Run>(*home);
        run->show();
        QVERIFY(QTest::qWaitForWindowActive(window()));
    }
    void dropWindow()
    {
        run.reset();
        home.reset();
    }

    QMainWindow *window() { return run->controller.window; }
    TableView *log() { return run->controller.logtable; }
    TableView *nutrients() { return run->controller.nutrienttable; }
    QString label() { return run->controller.label->text(); }
    template <typename Kind>
    Kind *find(const char *name)
    {
        return window()->findChild<Kind *>(QString::fromLatin1(name));
    }
    // The open amount editor; one that has closed is still there for a moment.
    QLineEdit *editor()
    {
        auto *field = log()->viewport()->findChild<QLineEdit *>();
        return field != nullptr && field->isVisible() ? field : nullptr;
    }
    // The menu that is open, or null.
    QMenu *openMenu()
    {
        for (QMenu *menu : window()->findChildren<QMenu *>()) {
            if (menu->isVisible())
                return menu;
        }
        return nullptr;
    }
    static QString shown(const TableView *table, int row, int column)
    {
        return table->model()->index(row, column).data().toString();
    }
    // Gives the log the keyboard, its frame on a row.
    void frame(int row)
    {
        log()->setFocus();
        log()->setCurrentRow(row);
        QTRY_VERIFY(log()->hasFocus());
    }
    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    static void type(const QString &text) { QTest::keyClicks(QApplication::focusWidget(), text); }
};
