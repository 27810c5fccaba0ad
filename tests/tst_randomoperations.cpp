// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "tests/support/NaiveLog.h"
#include "platform/LocalDay.h"
#include "tests/support/Run.h"

#include "model/FoodRecord.h"
#include "ui/table/MenuItemUnit.h"

#include <QLabel>
#include <QRandomGenerator>
#include <QtTest>

#include <random>

namespace {

constexpr int days = 6;
constexpr int foodsinall = 18;
const QString recalculate = QStringLiteral("RecalculateAmount");

quint32 seed = 0;
int operations = 20000;

// What a person, or a cat, may type as an amount.
constexpr const char *amounttexts[] = {"100", "250", "0.5", "33.3", "1.1", "7", "0.4166667", "12,5", "abc", "", "0",
    "-0", "-5", "0x10", "1e", "nan", "inf", ".5", "5.", "  +4", "1.5e2x", "3.3333333", "1e-45", "16777217", "1e20"};
constexpr const char *wildtexts[] = {"1e400", "-1e400", "1e38"};
constexpr const char *unittitles[] = {"g", "1 cup", "2 slices", "1 crumb", "1 hole", "1 barrel"};

QString foodName(int index)
{
    return QStringLiteral("F%1").arg(index, 2, 10, QLatin1Char('0'));
}

std::string toText(const QString &text)
{
    return text.toStdString();
}

Naive::Text toText(const std::optional<QString> &text)
{
    return text ? Naive::Text(text->toStdString()) : std::nullopt;
}

bool same(const Food &food, const Naive::Text &name, float amount, const Naive::Text &unit, qint32 index)
{
    return toText(food.name()) == name && bitsOf(food.curamount()) == bitsOf(amount) && toText(food.curunit()) == unit
        && food.curunitidx() == index;
}

} // namespace

// The program and a naive model of it get the same operations, in an order drawn by chance; after each of them all that
// the program knows of its log must be the same, sums and columns to the bit.
class RandomOperationsTest final : public QObject {
    Q_OBJECT

private slots:
    void theLogDoesWhatTheNaiveOneDoes()
    {
        qInfo("seed %u, %d operations (--seed N --operations N repeats or changes them)", seed, operations);
        random.seed(seed);
        for (int i = 0; i < foodsinall; ++i)
            writeFile(i);
        std::vector<std::string> nutrients;
        for (const QString &name : NutrientCatalogue::names())
            nutrients.push_back(toText(name));
        naive = std::make_unique<Naive::Log>(toText(QFileInfo(home.files.pathOf(foodName(0))).path()), nutrients);
        start();
        naive->openDay(toText(LocalDay::key(home.now)));

        QMap<QString, int> done;
        for (int i = 0; i < operations; ++i) {
            const QString what = operate();
            ++done[what.section(u' ', 0, 0)];
            const QString difference = compare();
            if (!difference.isEmpty())
                QFAIL(qPrintable(
                    QStringLiteral("seed %1, operation %2 (%3): %4").arg(seed).arg(i).arg(what, difference)));
        }
        qInfo() << done;
        if (operations >= 20000)
            for (const char *kind :
                {"add", "remove", "cut", "copy", "paste", "amount", "unit", "select", "day", "reopen", "file"})
                QVERIFY2(done.value(QString::fromLatin1(kind)) > 0, kind);
        run.reset();
    }

private:
    int draw(int below) { return static_cast<int>(random() % static_cast<quint32>(below)); }
    bool chance(int percent) { return draw(100) < percent; }

    // A food's file in one of its states: whole, whole with other figures, broken off, or missing.
    void writeFile(int index)
    {
        if (index % 9 == 8) // these never have one
            return;
        const QString name = foodName(index);
        const int state = draw(30);
        if (state == 0)
            return home.files.remove(name);
        QByteArray elements = "<measure name='cup' amount='1' grams='" + figure()
            + "'/><measure name='slices' amount='2' grams='" + figure()
            + "'/><measure name='crumb' amount='1' grams='0'/><measure name='hole' grams='-3.7' amount='1'/>";
        for (const QString &nutrient : NutrientCatalogue::names())
            if (chance(60))
                elements += "<nutrient name='" + nutrient.toUtf8() + "'"
                    + (chance(3) ? QByteArray() : " amount='" + figure() + "'") + "/>";
        if (chance(20)) // a title and a name a second time
            elements += "<measure name='cup' amount='1.4' grams='" + figure() + "'/><nutrient name='Energy' amount='"
                + figure() + "'/>";
        if (state == 1) {
            home.files.write(name, "<food>" + elements.left(draw(int(elements.size()))));
        } else if (state == 2) {
            home.files.write(name, "<food>" + elements + "</fodo>");
        } else {
            home.files.writeElements(name, elements);
        }
    }
    QByteArray figure()
    {
        static constexpr const char *odd[] = {"0", "1e", "x", "", "-0.5", ".5", "1,5"};
        if (chance(4))
            return odd[draw(int(std::size(odd)))];
        return QByteArray::number(draw(1000)) + '.' + QByteArray::number(draw(1000));
    }

    void start()
    {
        run = std::make_unique<Run>(home);
        run->launch();
    }

    QString operate()
    {
        const int rows = int(naive->foods.size());
        const int kind = draw(1000);
        if (kind < 170)
            return add();
        if (kind < 430)
            return select(rows);
        if (kind < 570 && rows > 0)
            return editAmount(draw(rows));
        if (kind < 700 && rows > 0)
            return changeUnit(draw(rows));
        if (kind < 740) {
            naive->remove();
            run->controller.removeSelected();
            return QStringLiteral("remove");
        }
        if (kind < 770) {
            naive->cut();
            run->controller.cut();
            return QStringLiteral("cut");
        }
        if (kind < 840) {
            naive->copy();
            run->controller.copy();
            return QStringLiteral("copy");
        }
        if (kind < 930) {
            naive->paste();
            run->controller.paste();
            return QStringLiteral("paste");
        }
        if (kind < 980)
            return openDay();
        if (kind < 995) {
            writeFile(draw(foodsinall));
            return QStringLiteral("file");
        }
        if (kind < 998) {
            run->store.setObject(!run->store.boolForKey(recalculate), recalculate);
            return QStringLiteral("recalculate");
        }
        naive->quitAndStart();
        run->terminate();
        run.reset();
        start();
        return QStringLiteral("reopen");
    }

    QString add()
    {
        QStringList names;
        std::vector<std::string> plain;
        for (int count = 1 + draw(3); count > 0; --count) {
            const QString name = chance(2) ? QStringLiteral("del") : foodName(draw(foodsinall));
            names.append(name);
            plain.push_back(toText(name));
        }
        naive->add(plain);
        run->add(names);
        return QStringLiteral("add ") + names.join(u',');
    }

    QString select(int rows)
    {
        QList<int> chosen;
        std::vector<std::size_t> plain;
        const int percent = draw(4) * 25;
        for (int row = 0; row < rows; ++row) {
            if (chance(percent)) {
                chosen.append(row);
                plain.push_back(static_cast<std::size_t>(row));
            }
        }
        naive->select(plain);
        run->select(chosen);
        return QStringLiteral("select");
    }

    QString editAmount(int row)
    {
        const char *text
            = chance(2) ? wildtexts[draw(int(std::size(wildtexts)))] : amounttexts[draw(int(std::size(amounttexts)))];
        naive->editAmount(static_cast<std::size_t>(row), text);
        run->edit(row, QString::fromLatin1(text));
        return QStringLiteral("amount %1 of row %2").arg(QString::fromLatin1(text)).arg(row);
    }

    QString changeUnit(int row)
    {
        // The ones without weight make amounts infinite for good, so they come up seldom.
        const int choice = chance(6) ? 3 + draw(3) : draw(3);
        MenuItemUnit item;
        item.setTag(row);
        item.setTitle(QString::fromLatin1(unittitles[choice]));
        item.setIdx(draw(7));
        const bool keepweight = run->store.boolForKey(recalculate);
        naive->changeUnit(static_cast<std::size_t>(row), unittitles[choice], item.idx(), keepweight);
        run->controller.updateUnit(item);
        return QStringLiteral("unit %1 of row %2").arg(item.title()).arg(row);
    }

    QString openDay()
    {
        const QDateTime date = home.now.addDays(draw(days)).addSecs(draw(3600));
        const QString left = LocalDay::key(run->controller.curdate);
        naive->openDay(toText(LocalDay::key(date)));
        run->controller.setDate(date);
        leftday = left;
        return QStringLiteral("day ") + LocalDay::key(date);
    }

    // What the program has and the naive log has not, or the other way round; empty when there is nothing.
    QString compare()
    {
        const TestedAppDelegate &log = run->controller;
        const std::size_t count = naive->foods.size();
        if (log.foods.size() != count || std::size_t(log.curdatefoods.size()) != count)
            return QStringLiteral("%1 entries for %2").arg(log.foods.size()).arg(count);
        for (std::size_t row = 0; row < count; ++row) {
            const Naive::Food &food = *naive->foods[row];
            if (!same(*log.foods[row], food.name, food.amount, food.unit, food.unitindex))
                return QStringLiteral("entry %1").arg(row);
            if (!sameRecord(log.curdatefoods[int(row)], naive->records[row]))
                return QStringLiteral("record %1").arg(row);
        }
        if (log.copyfoods.size() != naive->clipboard.size())
            return QStringLiteral("clipboard size");
        for (std::size_t i = 0; i < naive->clipboard.size(); ++i) {
            const Naive::Food &food = *naive->clipboard[i];
            if (!same(*log.copyfoods[i], food.name, food.amount, food.unit, food.unitindex))
                return QStringLiteral("clipboard food %1").arg(i);
        }
        for (std::size_t i = 0; i < Naive::nutrientcount; ++i) {
            if (log.nutrients[i].size() != count)
                return QStringLiteral("length of column %1").arg(i);
            for (std::size_t row = 0; row < count; ++row)
                if (bitsOf(log.nutrients[i][row]) != bitsOf(naive->amounts[row][i]))
                    return QStringLiteral("column %1, row %2").arg(i).arg(row);
            if (bitsOf(log.nutrientstotal[i]) != bitsOf(naive->total[i]))
                return QStringLiteral("total %1: %2 for %3")
                    .arg(i)
                    .arg(double(log.nutrientstotal[i]))
                    .arg(double(naive->total[i]));
            if (bitsOf(log.nutrientsselected[i]) != bitsOf(naive->selected[i]))
                return QStringLiteral("selected sum %1").arg(i);
        }
        QList<int> selection;
        for (const std::size_t row : naive->selection)
            selection.append(int(row));
        if (log.logtable->selectedRowIndexes() != selection)
            return QStringLiteral("selection");
        if (toText(log.label->text()) != naive->label)
            return QStringLiteral("label \"%1\" for \"%2\"")
                .arg(log.label->text(), QString::fromStdString(naive->label));
        return compareStore();
    }

    // The day that was left last, as it is in the store.
    QString compareStore()
    {
        const QString key = std::exchange(leftday, QString());
        if (key.isEmpty())
            return {};
        const auto expected = naive->store.find(toText(key));
        const QVariantList items = run->store.objectForKey(key).toList();
        if (expected == naive->store.end())
            return items.isEmpty() ? QString() : QStringLiteral("a day stored too early");
        if (std::size_t(items.size()) != expected->second.size())
            return QStringLiteral("stored entries of %1").arg(key);
        for (std::size_t i = 0; i < expected->second.size(); ++i)
            if (!sameRecord(items[int(i)].toByteArray(), expected->second[i]))
                return QStringLiteral("stored entry %1 of %2").arg(i).arg(key);
        return {};
    }

    static bool sameRecord(const QByteArray &data, const Naive::Record &record)
    {
        const auto food = FoodRecord::unarchiveObjectWithData(data);
        return food && same(*food, record.name, record.amount, record.unit, record.unitindex);
    }

    Home home;
    std::unique_ptr<Run> run;
    std::unique_ptr<Naive::Log> naive;
    std::mt19937 random;
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
    const QApplication application(argc, argv);
    RandomOperationsTest test;
    return QTest::qExec(&test, arguments);
}

#include "tst_randomoperations.moc"
