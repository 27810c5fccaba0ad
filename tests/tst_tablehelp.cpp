// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/table/TableView.h"
#include "ui/table/TableViewDataSource.h"
#include "ui/table/TableViewDelegate.h"

#include <QHelpEvent>
#include <QTextDocument>
#include <QToolTip>
#include <QtTest>

#include <algorithm>
#include <limits>
#include <memory>

namespace {

// One column of names with the tool tip that a test wants.
class Names final : public TableViewDataSource, public TableViewDelegate {
public:
    QStringList names;
    QString tooltip;

    int numberOfRowsInTableView(const TableView * /*table*/) const override { return int(names.size()); }
    QVariant objectValueForTableColumn(const TableView * /*table*/, const QString & /*column*/, int row) override
    {
        return names.at(row);
    }
    void setObjectValue(
        const TableView * /*table*/, const QVariant &value, const QString & /*column*/, int row) override
    {
        names[row] = value.toString();
    }
    void willDisplayCell(
        const TableView * /*table*/, TableCell & /*cell*/, const QString & /*column*/, int /*row*/) override
    { }
    std::optional<QList<int>> selectionIndexesForProposedSelection(
        const TableView * /*table*/, const QList<int> &proposed) override
    {
        return proposed;
    }
    void tableViewSelectionDidChange() override { }
    Tip toolTipForCell(const TableView * /*table*/, const QString & /*column*/, int /*row*/) override
    {
        return [this] { return tooltip; };
    }
};

} // namespace

// What a table says of a cell that the mouse rests on.
class TableHelpTest final : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        source = Names();
        source.names = {QStringLiteral("Egg"), QStringLiteral("Milk")};
        table = std::make_unique<TableView>();
        table->addTableColumn({QStringLiteral("Name"), QStringLiteral("Name"), nullptr, true});
        table->setDataSource(&source);
        table->setDelegate(&source);
        table->resize(300, 200);
        table->reloadData();
        table->show();
        QVERIFY(QTest::qWaitForWindowExposed(table.get()));
        QToolTip::showText({}, QString());
    }
    void cleanup() { table.reset(); }

    void theDelegatesTextIsTheToolTip()
    {
        source.tooltip = QStringLiteral("Mostly from eggs");
        table->reloadData();
        QCOMPARE(toolTipOfRow(0), source.tooltip);
    }

    void aToolTipIsNeverReadAsMarkup()
    {
        source.tooltip = QStringLiteral("<b>Milk</b>");
        table->reloadData();
        QCOMPARE(toolTipOfRow(0), Qt::convertFromPlainText(source.tooltip));
    }

    void aToolTipsLinesAreOfAboutSixtyCharacters_data()
    {
        QTest::addColumn<QString>("tip");
        QTest::addColumn<QString>("shown");
        const QString sixty = QStringLiteral("Milk, whole, 3.25% milkfat, without added vitamin A and so o");
        QTest::newRow("a short line") << QStringLiteral("Egg") << QStringLiteral("Egg");
        QTest::newRow("sixty characters") << sixty << sixty;
        QTest::newRow("a word that would be cut")
            << sixty + QStringLiteral("n, two") << sixty.chopped(2) + QStringLiteral("\non, two");
        QTest::newRow("a word that just ends") << sixty + QStringLiteral(" two") << sixty + QStringLiteral("\ntwo");
        QTest::newRow("its own lines") << QStringLiteral("Egg\n\n") + sixty + QStringLiteral(" two")
                                       << QStringLiteral("Egg\n\n") + sixty + QStringLiteral("\ntwo");
        QTest::newRow("a word of more") << QString(130, u'W')
                                        << QString(60, u'W') + u'\n' + QString(60, u'W') + u'\n' + QString(10, u'W');
        QTest::newRow("a character of two halves")
            << QString(59, u'W') + QStringLiteral("\U0001F34E") << QString(59, u'W') + QStringLiteral("\n\U0001F34E");
    }

    void aToolTipsLinesAreOfAboutSixtyCharacters()
    {
        QFETCH(QString, tip);
        source.tooltip = tip;
        table->reloadData();
        QTEST(toolTipOfRow(0), "shown");
        QCOMPARE(table->model()->index(0, 0).data(Qt::AccessibleDescriptionRole).toString(), tip); // spoken in one
    }

    void aTextThatFitsHasNoToolTip() { QCOMPARE(toolTipOfRow(0), QString()); }

    void aTextThatIsCutOffIsShownWhole()
    {
        source.names[0] = QString(200, u'W');
        table->reloadData();
        QCOMPARE(toolTipOfRow(0).remove(u'\n'), source.names[0]);
    }

    void aTextOfAMillionCharactersCostsNoMoreThanOneOfAThousand()
    {
        const auto best = [this](const QString &text) {
            source.names = {text, text};
            table->reloadData();
            qint64 shortest = std::numeric_limits<qint64>::max();
            for (int i = 0; i < 5; ++i) {
                QElapsedTimer timer;
                timer.start();
                table->viewport()->grab();
                static_cast<void>(toolTipOfRow(0));
                shortest = std::min(shortest, timer.nsecsElapsed());
            }
            return shortest;
        };
        const qint64 thousand = best(QString(1000, u'W'));
        const qint64 million = best(QString(1000000, u'W'));
        QVERIFY2(million < 3 * thousand, qPrintable(QStringLiteral("%1 ns, %2 ns").arg(thousand).arg(million)));
        const QModelIndex index = table->model()->index(0, 0);
        for (const int role : {int(Qt::DisplayRole), int(Qt::AccessibleTextRole)})
            QCOMPARE(index.data(role).toString(), QString(1000, u'W') + QChar(u'\u2026'));
        QCOMPARE(source.names[0].size(), 1000000);
        QCOMPARE(TableCell::shortened(QString(999, u'W') + QStringLiteral("\U0001F34E")),
            QString(999, u'W') + QChar(u'\u2026')); // half a character is none
    }

    void belowTheRowsThereIsNoToolTip()
    {
        source.tooltip = QStringLiteral("Mostly from eggs");
        QCOMPARE(toolTipAt({5, table->viewport()->height() - 2}), QString());
    }

private:
    QString toolTipOfRow(int row) { return toolTipAt(table->visualRect(table->model()->index(row, 0)).center()); }
    QString toolTipAt(QPoint place)
    {
        QHelpEvent event(QEvent::ToolTip, place, table->viewport()->mapToGlobal(place));
        QCoreApplication::sendEvent(table->viewport(), &event);
        return QToolTip::text();
    }

    Names source;
    std::unique_ptr<TableView> table;
};

QTEST_MAIN(TableHelpTest)
#include "tst_tablehelp.moc"
