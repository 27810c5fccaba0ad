// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "support/Run.h"

#include "platform/LocalDay.h"

#include "model/FoodRecord.h"
#include "ui/table/MenuItemUnit.h"

#include <QtTest>

namespace {

// A table that notes what it is told into the controller's list of events.
class RecordingTableView final : public TableView {
public:
    RecordingTableView(QString tablename, QStringList &list)
        : name(std::move(tablename))
        , events(list)
    { }

    void reloadData() override
    {
        events.append(QStringLiteral("reload ") + name);
        TableView::reloadData();
    }
    void deselectAll() override
    {
        events.append(QStringLiteral("deselect ") + name);
        TableView::deselectAll();
    }

private:
    QString name;
    QStringList &events;
};

const QString handler = QStringLiteral("handler");
const QString deselect = QStringLiteral("deselect log");
const QString reloadlog = QStringLiteral("reload log");
const QString nutrients = QStringLiteral("reload nutrients");

} // namespace

// The order in which each command reloads tables, clears the selection and so runs the selection handler, with none,
// one and several of three rows selected.
class CommandOrderTest final : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        home = std::make_unique<Home>();
        for (const char *name : {"A", "B", "C"})
            home->files.writeElements(QString::fromLatin1(name),
                "<nutrient name='Energy' amount='50'/><measure name='cup' amount='1' grams='2'/>");
        run = std::make_unique<Run>(*home);
        logtable = std::make_unique<RecordingTableView>(QStringLiteral("log"), run->controller.events);
        nutrienttable = std::make_unique<RecordingTableView>(QStringLiteral("nutrients"), run->controller.events);
        for (RecordingTableView *table : {logtable.get(), nutrienttable.get()}) {
            TableView::Column column;
            column.identifier = QStringLiteral("Name");
            table->addTableColumn(std::move(column));
        }
        run->controller.logtable = logtable.get();
        run->controller.nutrienttable = nutrienttable.get();
        run->launch();
        run->add({QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")});
    }
    void cleanup()
    {
        run.reset();
        logtable.reset();
        nutrienttable.reset();
        home.reset();
    }

    void eachCommandTakesItsStepsInOrder_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<QList<int>>("selected");
        QTest::addColumn<QStringList>("steps");

        const QList<int> none;
        const QList<int> one = {1};
        const QList<int> several = {0, 2};
        // The handler reloads the nutrients as its last step.
        const QStringList clearing = {deselect, handler, nutrients};
        const auto rows = [&](const char *command, const QStringList &withNone, const QStringList &withSome) {
            const QString name = QString::fromLatin1(command);
            QTest::addRow("%s with none selected", command) << name << none << withNone;
            QTest::addRow("%s with one selected", command) << name << one << withSome;
            QTest::addRow("%s with several selected", command) << name << several << withSome;
        };
        rows("removeSelected", {}, clearing + QStringList{reloadlog, nutrients});
        rows("cut", {}, clearing + QStringList{reloadlog, nutrients});
        rows("copy", {}, {});
        rows("paste", {nutrients, reloadlog}, {nutrients, reloadlog});
        rows("addSelectedFoods", {reloadlog, nutrients}, {reloadlog, nutrients});
        rows("addFoodPriv", {}, {});
        rows("amount edit", {deselect}, clearing);
        rows("unit edit", {deselect, reloadlog, nutrients}, clearing + QStringList{reloadlog, nutrients});
        rows("setDate of the same day", {nutrients}, {nutrients});
        rows("updateNutrients", {nutrients}, {nutrients});
        rows("setRDA", {nutrients}, {nutrients});
        rows("RDAreset", {}, {});
        rows("RDAtick", {}, {});
        // An empty day drops every row: the handler runs inside the log's reload.
        rows("setDate of another day", {nutrients, reloadlog, nutrients},
            {nutrients, reloadlog, handler, nutrients, nutrients});
    }

    void eachCommandTakesItsStepsInOrder()
    {
        QFETCH(QString, command);
        QFETCH(QList<int>, selected);
        run->select(selected);
        run->controller.events.clear();
        perform(command);
        QTEST(run->controller.events, "steps");
    }

    void theHandlerSeesTheSumsOfBeforeAnAmountEdit()
    {
        run->select({0});
        watchHandler();
        run->edit(0, QStringLiteral("200"));
        QCOMPARE(seen, QList<float>{150.0F}); // before anything was subtracted
        QCOMPARE(run->controller.nutrientstotal[0], 200.0F);
    }

    void theHandlerSeesAUnitEditHalfWay()
    {
        run->select({0});
        watchHandler();
        perform(QStringLiteral("unit edit"));
        QCOMPARE(seen, QList<float>{100.0F}); // the old amounts are out, the new ones not yet in
        QCOMPARE(seenUnits, QStringList{QStringLiteral("1 cup")}); // and the entry and its record are changed
        QCOMPARE(run->controller.nutrientstotal[0], 200.0F);
    }

    void theHandlerSeesARemovalDone()
    {
        run->select({0});
        watchHandler();
        run->controller.removeSelected();
        QCOMPARE(seen, QList<float>{100.0F});
        QCOMPARE(run->controller.foods.size(), std::size_t(2));
    }

    void theOldDayIsStoredBeforeAnythingIsCleared()
    {
        const QString daykey = LocalDay::key(run->controller.curdate);
        run->controller.nextDay();
        QCOMPARE(run->store.objectForKey(daykey).toList().size(), 3);
    }

private:
    void perform(const QString &command)
    {
        TestedAppDelegate &controller = run->controller;
        if (command == QStringLiteral("removeSelected"))
            controller.removeSelected();
        else if (command == QStringLiteral("cut"))
            controller.cut();
        else if (command == QStringLiteral("copy"))
            controller.copy();
        else if (command == QStringLiteral("paste"))
            controller.paste();
        else if (command == QStringLiteral("addSelectedFoods"))
            controller.addSelectedFoods();
        else if (command == QStringLiteral("addFoodPriv"))
            controller.addFoodPriv(std::make_shared<Food>(QStringLiteral("D")));
        else if (command == QStringLiteral("amount edit"))
            run->edit(0, QStringLiteral("5"));
        else if (command == QStringLiteral("unit edit")) {
            MenuItemUnit cup;
            cup.setTitle(QStringLiteral("1 cup"));
            cup.setIdx(1);
            controller.updateUnit(cup);
        } else if (command == QStringLiteral("setDate of the same day"))
            controller.setDate(controller.curdate.addSecs(1));
        else if (command == QStringLiteral("setDate of another day"))
            controller.setDate(controller.curdate.addDays(1));
        else if (command == QStringLiteral("updateNutrients"))
            controller.updateNutrients();
        else if (command == QStringLiteral("setRDA"))
            controller.setRDA();
        else if (command == QStringLiteral("RDAreset"))
            controller.RDAreset();
        else if (command == QStringLiteral("RDAtick"))
            controller.RDAtick();
        else
            QFAIL(qPrintable(command));
    }

    void watchHandler()
    {
        run->controller.whenHandling = [this] {
            seen.append(run->controller.nutrientstotal[0]);
            const auto record = FoodRecord::unarchiveObjectWithData(run->controller.curdatefoods[0]);
            if (record && run->controller.foods[0]->curunit() == record->curunit()
                && record->curunit() != QStringLiteral("g"))
                seenUnits.append(*record->curunit());
        };
        seen.clear();
        seenUnits.clear();
    }

    std::unique_ptr<Home> home;
    std::unique_ptr<Run> run;
    std::unique_ptr<RecordingTableView> logtable;
    std::unique_ptr<RecordingTableView> nutrienttable;
    QList<float> seen;
    QStringList seenUnits;
};

QTEST_MAIN(CommandOrderTest)
#include "tst_commandorder.moc"
