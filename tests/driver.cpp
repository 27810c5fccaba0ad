// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

// Linked to the program's own main: works the program from within, where a display has no keys to send. Once the window
// is painted it adds a food and goes on as its last argument says; then it prints a line.

#include "ui/table/TableView.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QMainWindow>
#include <QScrollBar>
#include <QTimer>
#include <QtTest>

#include <cstdio>

namespace {

class Driver final : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint && window == nullptr) {
            window = qobject_cast<QMainWindow *>(watched);
            if (window != nullptr)
                startTimer(0); // when this paint is over
        }
        return false;
    }

protected:
    void timerEvent(QTimerEvent *event) override
    {
        killTimer(event->timerId());
        drive();
    }

private:
    void trigger(const char *action) const { window->findChild<QAction *>(QString::fromLatin1(action))->trigger(); }

    void drive()
    {
        trigger("actionaddfood");
        auto *field = window->findChild<QLineEdit *>(QStringLiteral("searchfield"));
        QTest::keyClicks(field, QStringLiteral("butter, salted"));
        QTest::keyClick(field, Qt::Key_Return);
        const QString state = QCoreApplication::arguments().constLast();
        if (state == QStringLiteral("editor") || state == QStringLiteral("painting"))
            openEditor();
        if (state == QStringLiteral("sheet"))
            trigger("actionaddfood");
        if (state == QStringLiteral("painting"))
            always([this] { scroll(); });
        if (state == QStringLiteral("days"))
            always([this] { turn(); });
        std::puts("ready");
        std::fflush(stdout);
    }

    // Types an amount and does not take it.
    void openEditor() const
    {
        auto *table = window->findChild<TableView *>(QStringLiteral("logtable"));
        table->setCurrentRow(3);
        QTest::keyClicks(table, QStringLiteral("2"));
        QTest::keyClicks(table->viewport()->findChild<QLineEdit *>(), QStringLiteral("5.5"));
    }

    void always(const std::function<void()> &act)
    {
        auto *timer = new QTimer(this);
        connect(timer, &QTimer::timeout, this, act);
        timer->start(0);
    }

    void scroll()
    {
        QScrollBar *bar = window->findChild<TableView *>(QStringLiteral("nutrienttable"))->verticalScrollBar();
        bar->setValue(bar->value() == bar->maximum() ? 0 : bar->value() + 1);
        window->repaint();
    }

    void turn()
    {
        isnext = !isnext;
        trigger(isnext ? "actionnextday" : "actionpreviousday");
    }

    QMainWindow *window = nullptr;
    bool isnext = false;
};

void begin()
{
    QCoreApplication::instance()->installEventFilter(new Driver(QCoreApplication::instance()));
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(begin)
