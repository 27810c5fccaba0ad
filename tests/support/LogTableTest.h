// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/LogTable.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QLineEdit>
#include <QVBoxLayout>
#include <QtTest>

#include <memory>

// A test of a table, alone in its window or between two fields. Tests of it are private slots of a class derived from
// this one.
class LogTableTest : public QObject {
protected:
    static constexpr int name = 0;
    static constexpr int amount = 1;
    static constexpr int unit = 2;
    static constexpr int energy = 3;

    LogSource source;
    std::unique_ptr<QWidget> window;
    QLineEdit *before = nullptr;
    TableView *table = nullptr;
    QLineEdit *after = nullptr;
    std::unique_ptr<QAbstractItemModelTester> tester;

    // Alone, not shown, without rows.
    void makeTable()
    {
        table = new TableView;
        window.reset(table);
        connectTable();
        window->resize(500, 300);
    }

    // Between two fields, in a window that is active, with five rows and the focus. Keys go where the focus is.
    void makeWindow()
    {
        window = std::make_unique<QWidget>();
        auto *layout = new QVBoxLayout(window.get());
        before = new QLineEdit;
        table = new TableView;
        after = new QLineEdit;
        for (QWidget *widget : std::initializer_list<QWidget *>{before, table, after})
            layout->addWidget(widget);
        connectTable();
        window->resize(500, 400);
        load(5);
    }

    void dropWindow()
    {
        tester.reset();
        window.reset();
    }

    void show()
    {
        window->show();
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        table->setFocus();
        table->viewport()->grab();
    }

    // Rows 0 to count - 1, shown, with nothing noted.
    void load(int count)
    {
        source.fill(count);
        table->reloadData();
        show();
        source.forget();
    }

    void makeCurrent(int row, int column)
    {
        table->selectionModel()->setCurrentIndex(cellAt(*table, row, column), QItemSelectionModel::NoUpdate);
    }

    // The open editor, or null.
    QLineEdit *editor() const
    {
        for (QLineEdit *line : table->findChildren<QLineEdit *>()) {
            if (line->isVisible())
                return line;
        }
        return nullptr;
    }

    int editedRow() const { return editor() == nullptr ? -1 : table->indexAt(editor()->geometry().center()).row(); }

    void type(const char *keys) { QTest::keyClicks(qApp->focusWidget(), QString::fromLatin1(keys)); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(qApp->focusWidget(), key, modifiers);
    }

    QString shown(int row, int column) const { return cellAt(*table, row, column).data().toString(); }

private:
    void connectTable()
    {
        source = LogSource();
        source.table = table;
        addLogColumns(*table);
        table->setDataSource(&source);
        table->setDelegate(&source);
        tester = std::make_unique<QAbstractItemModelTester>(
            table->model(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    }
};
