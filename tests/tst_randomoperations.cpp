// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "platform/LocalDay.h"
#include "tests/support/Chance.h"
#include "tests/support/NaiveComparison.h"
#include "tests/support/NaiveLog.h"
#include "tests/support/Run.h"

#include "model/FoodRecord.h"
#include "ui/controls/DatePicker.h"
#include "ui/foodsheet/ArrayController.h"
#include "ui/table/MenuItemUnit.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRandomGenerator>
#include <QtTest>

#include <algorithm>
#include <numeric>
#include <span>

namespace {

constexpr int days = 6;
constexpr std::size_t rowsatmost = 30; // entries without a name, which equal no other, would double with each paste

quint32 seed = 0;
int operations = 20000;

} // namespace

// The program and a naive model of it get the same operations, in an order drawn by chance; after each of them all that
// the program knows of its log and shows of it must be the same, sums, columns and bars to the bit.
class RandomOperationsTest final : public QObject {
    Q_OBJECT

private slots:
    void theLogDoesWhatTheNaiveOneDoes()
    {
        qInfo("seed %u, %d operations (--seed N --operations N repeats or changes them)", seed, operations);
        chance.seed(seed);
        for (int i = 0; i < Chance::foods; ++i)
            chance.writeFile(home.files, i);
        std::vector<Naive::Nutrient> nutrients;
        for (int i = 0; i < NutrientCatalogue::nutrientCount; ++i)
            nutrients.push_back({NutrientCatalogue::names()[i].toStdString(),
                NutrientCatalogue::units()[i].toStdString(), NutrientCatalogue::defaultRDAs()[std::size_t(i)]});
        naive = std::make_unique<Naive::Log>(
            QFileInfo(home.files.pathOf(Chance::foodName(0))).path().toStdString(), std::move(nutrients));
        start();

        QMap<QString, int> done;
        for (int i = 0; i < operations; ++i) {
            const Operation &operation = drawOperation();
            ++done[QString::fromLatin1(operation.name)];
            ++naive->moment;
            const QString what = (this->*operation.perform)();
            QString difference = differenceBetween(*run, *naive);
            if (difference.isEmpty() && !leftday.isEmpty())
                difference = differenceOfStoredDay(*run, *naive, leftday);
            leftday.clear();
            if (!difference.isEmpty())
                QFAIL(qPrintable(QStringLiteral("seed %1, operation %2 (%3 %4): %5")
                                     .arg(seed)
                                     .arg(i)
                                     .arg(QString::fromLatin1(operation.name), what, difference)));
        }
        qInfo() << done;
        if (operations >= 20000)
            QCOMPARE(std::size_t(done.size()), allOperations().size());
        run.reset();
    }

private:
    // Does the same to both logs and says what it was.
    struct Operation {
        const char *name;
        int weight; // how often in a thousand it is drawn
        QString (RandomOperationsTest::*perform)();
    };
    static std::span<const Operation> allOperations()
    {
        using Test = RandomOperationsTest;
        static constexpr Operation all[] = {
            {"add", 130, &Test::add},
            {"add without a name", 15, &Test::addWithoutName},
            {"select", 145, &Test::select},
            {"click", 60, &Test::click},
            {"select by keys", 20, &Test::selectByKeys},
            {"click a nutrient", 5, &Test::clickNutrient},
            {"amount", 130, &Test::editAmount},
            {"unit", 120, &Test::changeUnit},
            {"remove", 40, &Test::remove},
            {"cut", 30, &Test::cut},
            {"copy", 70, &Test::copy},
            {"paste", 80, &Test::paste},
            {"open a day", 20, &Test::openDay},
            {"go to a day", 25, &Test::goToDay},
            {"choose a date", 10, &Test::chooseDate},
            {"store a day", 5, &Test::storeDay},
            {"write a file", 15, &Test::writeAnyFile},
            {"RDA", 50, &Test::changeRDA},
            {"reload the nutrients", 23, &Test::updateNutrients},
            {"switch a setting", 4, &Test::switchSetting},
            {"preferences", 1, &Test::showPreferences},
            {"reopen", 2, &Test::reopen},
        };
        return all;
    }
    const Operation &drawOperation()
    {
        int point = chance.draw(1000);
        for (const Operation &operation : allOperations()) {
            point -= operation.weight;
            if (point < 0)
                return operation;
        }
        qFatal("the weights make no thousand");
    }

    int rows() const { return int(naive->foods.size()); }

    void start()
    {
        run = std::make_unique<Run>(home);
        naive->rdalabel = run->controller.rdalabel->text().toStdString(); // as described, until a nutrient is chosen
        run->show();
        naive->start(home.now.toSecsSinceEpoch());
    }
    QString reopen()
    {
        naive->quit();
        run->terminate();
        run.reset();
        start();
        return {};
    }

    QString add()
    {
        QStringList names;
        std::vector<Naive::FoodPointer> plain;
        for (int count = chance.draw(4); count > 0; --count) {
            const QString name = chance.anyName();
            names.append(name);
            plain.push_back(std::make_shared<Naive::Food>());
            plain.back()->name = name.toStdString();
        }
        naive->add(plain);
        ArrayController *sheet = run->controller.foodlistcontroller;
        sheet->clearSelection();
        for (const QString &name : names.mid(0, names.size() / 2))
            sheet->addFoodToBeAdded(name);
        sheet->setSelection(names.mid(names.size() / 2));
        run->controller.addSelectedFoods();
        return names.join(u',');
    }
    QString addWithoutName()
    {
        if (naive->foods.size() >= rowsatmost)
            return {};
        Naive::Record record = chance.record();
        record.name.reset();
        naive->add({foodOf(record)});
        run->controller.addFoodPriv(std::make_shared<Food>(toFood(record)));
        run->add({});
        return {};
    }
    QString select()
    {
        QList<int> chosen;
        const int percent = chance.draw(4) * 25;
        for (int row = 0; row < rows(); ++row)
            if (chance.percent(percent))
                chosen.append(row);
        propose(chosen);
        run->select(chosen);
        return {};
    }
    void propose(const QList<int> &chosen) { naive->select({chosen.begin(), chosen.end()}); }
    // Plain, with Ctrl, or a second one with Shift.
    QString click()
    {
        if (rows() == 0)
            return {};
        const int row = chance.draw(rows());
        if (chance.percent(40)) {
            QList<int> toggled(naive->selection.begin(), naive->selection.end());
            if (toggled.removeAll(row) == 0)
                toggled.append(row);
            std::sort(toggled.begin(), toggled.end());
            propose(toggled);
            clickRow(run->controller.logtable, row, Qt::ControlModifier);
            return QStringLiteral("on row %1 with Ctrl").arg(row);
        }
        propose({row});
        clickRow(run->controller.logtable, row, Qt::NoModifier);
        if (chance.percent(50))
            return QStringLiteral("on row %1").arg(row);
        const int end = chance.draw(rows());
        QList<int> range;
        for (int each = std::min(row, end); each <= std::max(row, end); ++each)
            range.append(each);
        propose(range);
        clickRow(run->controller.logtable, end, Qt::ShiftModifier);
        return QStringLiteral("on row %1 and with Shift on %2").arg(row).arg(end);
    }
    static void clickRow(TableView *table, int row, Qt::KeyboardModifiers modifiers)
    {
        const QModelIndex cell = table->model()->index(row, 0);
        table->scrollTo(cell);
        QTest::mouseClick(table->viewport(), Qt::LeftButton, modifiers, table->visualRect(cell).center());
    }
    QString selectByKeys()
    {
        const bool all = chance.percent(50);
        QList<int> chosen(all ? rows() : 0);
        std::iota(chosen.begin(), chosen.end(), 0);
        propose(chosen);
        if (all)
            run->controller.window->findChild<QAction *>(QStringLiteral("actionselectall"))->trigger();
        else
            QTest::keyClick(run->controller.logtable, Qt::Key_Escape);
        return all ? QStringLiteral("all") : QStringLiteral("none");
    }
    // Selects nothing.
    QString clickNutrient()
    {
        clickRow(run->controller.nutrienttable, chance.draw(NutrientCatalogue::nutrientCount), Qt::NoModifier);
        return {};
    }

    QString editAmount()
    {
        if (rows() == 0)
            return {};
        const int row = chance.draw(rows());
        const char *text = chance.number();
        naive->editAmount(std::size_t(row), text);
        run->edit(row, QString::fromLatin1(text));
        return QStringLiteral("%1 of row %2").arg(QString::fromLatin1(text)).arg(row);
    }
    QString changeUnit()
    {
        if (rows() == 0)
            return {};
        MenuItemUnit item;
        item.setTag(chance.draw(rows()));
        item.setTitle(QString::fromLatin1(chance.unitTitle()));
        item.setIdx(chance.draw(7));
        naive->changeUnit(std::size_t(item.tag()), item.title().toStdString(), item.idx());
        run->controller.updateUnit(item);
        return QStringLiteral("%1 of row %2").arg(item.title()).arg(item.tag());
    }

    QString remove()
    {
        naive->remove();
        run->controller.removeSelected();
        return {};
    }
    QString cut()
    {
        naive->cut();
        run->controller.cut();
        return {};
    }
    QString copy()
    {
        naive->copy();
        run->controller.copy();
        return {};
    }
    QString paste()
    {
        if (naive->foods.size() + naive->clipboard.size() > rowsatmost)
            return {};
        naive->paste();
        run->controller.paste();
        return {};
    }

    // Notes the day that is left, to be looked up in the store.
    void leaveDay() { leftday = LocalDay::key(run->controller.curdate); }
    QString openDay()
    {
        leaveDay();
        const QDateTime date = firstday.addDays(chance.draw(days)).addSecs(chance.draw(86400));
        naive->setDate(date.toSecsSinceEpoch());
        run->controller.setDate(date);
        return date.toString(Qt::ISODate);
    }
    QString goToDay()
    {
        leaveDay();
        switch (chance.draw(3)) {
        case 0:
            naive->previousDay();
            run->controller.previousDay();
            return QStringLiteral("before");
        case 1:
            naive->nextDay();
            run->controller.nextDay();
            return QStringLiteral("after");
        default:
            home.now = firstday.addDays(chance.draw(days)).addSecs(chance.draw(86400));
            naive->today(home.now.toSecsSinceEpoch());
            run->controller.today();
            return QStringLiteral("today");
        }
    }
    // In the picker, by hand or by code.
    QString chooseDate()
    {
        leaveDay();
        DatePicker *picker = run->controller.datepicker;
        const int ahead = chance.draw(7) - 3;
        if (chance.percent(50)) {
            naive->chooseDate(ahead);
            picker->setDate(picker->date().addDays(ahead));
        } else {
            naive->picker += ahead * 40000;
            picker->setDateValue(instantOf(naive->picker));
            naive->updateDate();
            run->controller.updateDate();
        }
        return QString::number(ahead);
    }
    // Under the key of a day that is not shown.
    QString storeDay()
    {
        const QString key = LocalDay::key(firstday.addDays(chance.draw(days)));
        if (key == LocalDay::key(run->controller.curdate))
            return {};
        std::vector<Naive::Record> &records = naive->store[key.toStdString()];
        records.clear();
        QVariantList items;
        for (int count = chance.draw(6); count > 0; --count) {
            records.push_back(chance.record());
            items.append(FoodRecord::archivedDataWithRootObject(toFood(records.back())));
        }
        run->store.setObject(items, key);
        return key;
    }
    QString writeAnyFile()
    {
        chance.writeFile(home.files, chance.draw(Chance::foods));
        return {};
    }

    QString changeRDA()
    {
        if (chance.percent(3)) {
            naive->RDAreset();
            run->controller.RDAreset();
            return QStringLiteral("reset");
        }
        const int chosen = chance.percent(3) ? -1 : chance.draw(NutrientCatalogue::nutrientCount);
        naive->rdamenu = chosen;
        run->controller.rdamenu->setCurrentIndex(chosen);
        if (chosen < 0 || chance.percent(50)) {
            naive->RDAtick();
            run->controller.RDAtick();
            if (chosen < 0) { // nothing else is ever done without a choice
                naive->rdamenu = 0;
                run->controller.rdamenu->setCurrentIndex(0);
            }
            return QStringLiteral("tick %1").arg(chosen);
        }
        naive->rdainput = chance.number();
        run->controller.rdainput->setText(QString::fromStdString(naive->rdainput));
        naive->setRDA();
        run->controller.setRDA();
        return QStringLiteral("set %1").arg(chosen);
    }
    QString updateNutrients()
    {
        naive->updateNutrients();
        run->controller.updateNutrients();
        return {};
    }
    QString switchSetting()
    {
        const std::pair<const char *, bool *> settings[] = {{"UseP", &naive->usep},
            {"RememberDate", &naive->rememberdate}, {"RecalculateAmount", &naive->recalculateamount}};
        const auto &[key, value] = settings[chance.draw(3)];
        *value = !*value;
        run->store.setObject(*value, QString::fromLatin1(key));
        return QString::fromLatin1(key);
    }
    // Opened, written into and closed.
    QString showPreferences()
    {
        run->controller.showPrefs();
        run->controller.rdainput->setText(QStringLiteral("not set"));
        naive->hidePrefs();
        run->controller.hidePrefs();
        return {};
    }

    static Food toFood(const Naive::Record &record)
    {
        Food food(toText(record.name));
        food.setCuramount(record.amount);
        food.setCurunit(toText(record.unit));
        food.setCurunitidx(record.unitindex);
        return food;
    }

    Home home;
    const QDateTime firstday = home.now;
    std::unique_ptr<Run> run;
    std::unique_ptr<Naive::Log> naive;
    Chance chance;
    QString leftday;
};

int main(int argc, char **argv)
{
    seed = QRandomGenerator::system()->generate();
    QStringList arguments;
    for (int i = 0; i < argc; ++i) {
        const QByteArray argument(argv[i]);
        if (argument == "--seed" && i + 1 < argc)
            seed = QByteArray(argv[++i]).toUInt();
        else if (argument == "--operations" && i + 1 < argc)
            operations = QByteArray(argv[++i]).toInt();
        else
            arguments.append(QString::fromLocal8Bit(argument));
    }
    qputenv("QTEST_FUNCTION_TIMEOUT", QByteArray::number(1000 * 60 * 60 * 24)); // many operations take long
    const QApplication application(argc, argv);
    RandomOperationsTest test;
    return QTest::qExec(&test, arguments);
}

#include "tst_randomoperations.moc"
