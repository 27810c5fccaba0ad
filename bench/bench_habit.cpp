// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

// What a person saves whose own foods come first: a year of logging by a simulated person, every food searched for
// letter by letter, in the catalogue's ranking alone and with the foods of the last 60 logged days. The person has a
// habit of 80 foods, each with its own rhythm of the week, and 15 % of what they eat is none of them. What is typed for
// a food is one of the queries of the search's tests that mean it, so that the words are those that people type and not
// the catalogue's. The same numbers come out each time.

#include "bench/Turns.h"
#include "catalog/FoodCatalogue.h"
#include "history/OwnFoods.h"
#include "model/FoodRecord.h"
#include "platform/LocalDay.h"
#include "search/FoodSearch.h"

#include <QFile>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <algorithm>
#include <functional>
#include <iterator>
#include <map>

namespace {

constexpr int habitsize = 80;
constexpr double newshare = 0.15;
constexpr int mealsofaday = 4;
constexpr int foodsofameal = 4;
constexpr int year = 365;
constexpr int amongthefirst = 3;

struct Wish {
    QString typed;
    int food; // by catalogue index
};

// A food of the habit: how likely it is eaten on each day of the week.
struct Habit {
    Wish wish;
    std::array<double, 7> likelihood;
};

// For each query of the tests, one of the foods that it may mean, whichever that is, as long as the search finds it at
// all. A query that may mean a food of another one is only more words for that: the person has words of their own.
std::vector<Wish> everydayWishes(QRandomGenerator &chance)
{
    const QStringList names = FoodCatalogue::foodNames();
    QFile file(QStringLiteral(SOURCE_DIR "/tests/data/queries.tsv"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("no queries");
    FoodSearch search(names);
    std::vector<Wish> wishes;
    std::vector<int> taken;
    const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    for (const QString &line : lines) {
        if (line.startsWith(u'#'))
            continue;
        const QString typed = line.section(u'\t', 0, 0);
        const std::vector<int> found = search.search(typed);
        std::vector<int> meant;
        const QStringList patterns = line.section(u'\t', 1).split(QStringLiteral(" | "));
        for (const QString &pattern : patterns) {
            const QRegularExpression expression(QRegularExpression::anchoredPattern(
                QRegularExpression::escape(pattern).replace(QStringLiteral("\\*"), QStringLiteral(".*"))));
            for (int food = 0; food < names.size(); ++food) {
                if (expression.match(names[food]).hasMatch())
                    meant.push_back(food);
            }
        }
        const auto isIn = [](const std::vector<int> &foods) {
            return [&](int food) { return std::find(foods.begin(), foods.end(), food) != foods.end(); };
        };
        std::erase_if(meant, std::not_fn(isIn(found)));
        if (meant.empty() || std::any_of(meant.begin(), meant.end(), isIn(taken)))
            continue;
        const int food = meant[std::size_t(chance.bounded(int(meant.size())))];
        taken.push_back(food);
        wishes.push_back({typed, food});
    }
    std::shuffle(wishes.begin(), wishes.end(), chance);
    return wishes;
}

std::vector<Habit> habitOf(const std::vector<Wish> &wishes, QRandomGenerator &chance)
{
    std::vector<Habit> habits;
    for (int i = 0; i < habitsize; ++i) {
        Habit habit{wishes[std::size_t(i)], {}};
        const int chosenday = chance.bounded(7);
        for (int day = 0; day < 7; ++day) {
            const bool weekend = day >= 5;
            double &likelihood = habit.likelihood[std::size_t(day)];
            if (i < 10) // every day
                likelihood = 0.8;
            else if (i < 30) // at work
                likelihood = weekend ? 0.02 : 0.25;
            else if (i < 50) // at the weekend
                likelihood = weekend ? 0.3 : 0.03;
            else if (i < 65) // once a week
                likelihood = day == chosenday ? 0.7 : 0.01;
            else // now and then
                likelihood = 0.06;
        }
        habits.push_back(habit);
    }
    return habits;
}

// Without those eaten today, as the log has them already.
const Wish *choose(const std::vector<Habit> &habits, const std::vector<Wish> &others, const QDate &day,
    const std::vector<int> &eaten, QRandomGenerator &chance)
{
    const auto isEaten = [&](int food) { return std::find(eaten.begin(), eaten.end(), food) != eaten.end(); };
    for (;;) {
        if (chance.generateDouble() < newshare) {
            const Wish &wish = others[std::size_t(chance.bounded(int(others.size())))];
            if (!isEaten(wish.food))
                return &wish;
            continue;
        }
        const Habit &habit = habits[std::size_t(chance.bounded(habitsize))];
        if (!isEaten(habit.wish.food) && chance.generateDouble() < habit.likelihood[std::size_t(day.dayOfWeek() - 1)])
            return &habit.wish;
    }
}

// Where a food stands, from 1 on; as far as can be when it is not there.
std::size_t positionIn(const std::vector<int> &found, int food)
{
    const auto place = std::find(found.begin(), found.end(), food);
    return place == found.end() ? std::size_t(FoodCatalogue::foodCount) : std::size_t(place - found.begin()) + 1;
}

struct Effort {
    std::size_t position; // with the whole query typed
    int letters; // until it is among the first, all of them where it never is
    bool never = false;
};

Effort effortOf(FoodSearch &search, const Wish &wish, const std::vector<int> &first)
{
    Effort effort{positionIn(search.search(wish.typed), wish.food), int(wish.typed.size())};
    if (positionIn(first, wish.food) <= amongthefirst) {
        effort.letters = 0;
        return effort;
    }
    for (int letters = 1; letters <= wish.typed.size(); ++letters) {
        if (positionIn(search.search(wish.typed.left(letters)), wish.food) <= amongthefirst) {
            effort.letters = letters;
            return effort;
        }
    }
    effort.never = true;
    return effort;
}

struct Sum {
    double position = 0;
    double first = 0;
    double letters = 0;
    double never = 0;
    int count = 0;

    void add(const Effort &effort)
    {
        position += double(effort.position);
        first += effort.position == 1 ? 1 : 0;
        letters += effort.letters;
        never += effort.never ? 1 : 0;
        ++count;
    }
    void report(Turns::Figures &figures, const QString &how) const
    {
        figures.figure(how + QStringLiteral(", position of the food wanted, mean"), position / count, "");
        figures.figure(how + QStringLiteral(", first of all"), 100 * first / count, "%");
        figures.figure(how + QStringLiteral(", letters until among the first three, mean"), letters / count, "");
        figures.figure(how + QStringLiteral(", never among the first three"), 100 * never / count, "%");
    }
};

// The figures of a search are a matter of its query as long as nothing of the person's is known.
class PlainSearch final {
public:
    const Effort &effortOf(const Wish &wish)
    {
        const auto found = known.find(wish.food);
        return found != known.end() ? found->second
                                    : known.emplace(wish.food, ::effortOf(search, wish, {})).first->second;
    }

private:
    FoodSearch search{FoodCatalogue::foodNames()};
    std::map<int, Effort> known;
};

void logAYear(Turns::Figures &figures)
{
    QRandomGenerator chance(20261121);
    const QStringList names = FoodCatalogue::foodNames();
    QHash<QString, int> places;
    for (int food = 0; food < names.size(); ++food)
        places.insert(names[food], food);
    const std::vector<Wish> wishes = everydayWishes(chance);
    const std::vector<Habit> habits = habitOf(wishes, chance);
    const std::vector<Wish> others(wishes.begin() + habitsize, wishes.end());

    const QTemporaryDir home;
    UserDefaults store(home.filePath(QStringLiteral("preferences.sqlite")));
    UserDefaults::Transaction open(store); // the days stay in memory
    PlainSearch plain;
    FoodSearch search(names);
    Sum before;
    Sum after;
    for (int number = 0; number < year; ++number) {
        const QDate day = QDate(2025, 1, 1).addDays(number);
        History::ShownDay shown{day, {}};
        std::vector<int> eaten;
        for (int meal = 0; meal < mealsofaday; ++meal) {
            const History::OwnFoods own(store, shown);
            QHash<int, float> usefulness;
            std::vector<int> first;
            for (const History::OwnFood &food : own.all())
                usefulness.insert(places[food.name], float(food.usefulness));
            for (const History::OwnFood &food : own.mostUseful())
                first.push_back(places[food.name]);
            search.setOwnFoods(usefulness);
            for (int i = 0; i < foodsofameal; ++i) {
                const Wish &wish = *choose(habits, others, day, eaten, chance);
                eaten.push_back(wish.food);
                before.add(plain.effortOf(wish));
                after.add(effortOf(search, wish, first));
                shown.records.append(FoodRecord::archivedDataWithRootObject(Food(names[wish.food])));
            }
        }
        store.setObject(QVariantList(shown.records.begin(), shown.records.end()), LocalDay::key(day));
    }
    before.report(figures, QStringLiteral("catalogue alone"));
    after.report(figures, QStringLiteral("own foods first"));
}

// From a store of 20 years, as the sheet's opening does it.
void readThem(Turns::Figures &figures)
{
    constexpr int twentyyears = 7305;
    constexpr int foodsofaday = 20;
    constexpr int rounds = 31;
    const QStringList names = FoodCatalogue::foodNames();
    const QTemporaryDir home;
    const QString path = home.filePath(QStringLiteral("preferences.sqlite"));
    {
        UserDefaults store(path);
        UserDefaults::Transaction transaction(store);
        for (int number = 0; number < twentyyears; ++number) {
            QVariantList items;
            for (int i = 0; i < foodsofaday; ++i)
                items.append(FoodRecord::archivedDataWithRootObject(Food(names[(number % 97) * 71 + i])));
            store.setObject(items, LocalDay::key(QDate(2006, 11, 21).addDays(number)));
        }
        transaction.commit();
    }
    const UserDefaults store(path);
    Turns::Times times;
    for (int round = 0; round < rounds; ++round)
        times.push_back(Turns::milliseconds([&] { Turns::keep(History::OwnFoods(store)); }));
    figures.figure(QStringLiteral("read the own foods, 20 years stored, median"), Turns::medianOf(times));
}

} // namespace

int main()
{
    Turns::Figures figures;
    logAYear(figures);
    readThem(figures);
    return figures.exitCode();
}
