// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/LogTable.h"

#include <QAbstractItemModelTester>
#include <QtTest>

#include <memory>

// A test of a table alone in its window. Tests of it are private slots of a class derived from this one.
class LogTableTest : public QObject {
protected:
    LogSource source;
    std::unique_ptr<TableView> table;
    std::unique_ptr<QAbstractItemModelTester> tester;

    void makeTable()
    {
        source = LogSource();
        table = std::make_unique<TableView>();
        source.table = table.get();
        addLogColumns(*table);
        table->setDataSource(&source);
        table->setDelegate(&source);
        tester = std::make_unique<QAbstractItemModelTester>(
            table->model(), QAbstractItemModelTester::FailureReportingMode::QtTest);
        table->resize(500, 300);
    }

    void dropTable()
    {
        tester.reset();
        table.reset();
    }

    void show()
    {
        table->show();
        table->activateWindow();
        table->setFocus();
        QVERIFY(QTest::qWaitForWindowActive(table.get()));
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

    QString shown(int row, int column) const { return cellAt(*table, row, column).data().toString(); }
};
