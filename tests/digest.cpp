// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

// Prints a digest of all sums and columns after each of 10,000 operations, the same ones every time. Built several
// times with the log's arithmetic compiled differently; the digests must agree, or a compiler did not keep to the
// order.

#include "tests/support/Run.h"
#include "ui/table/MenuItemUnit.h"

#include <QApplication>

#include <cstdio>
#include <iterator>

namespace {

constexpr int kinds = 10;
constexpr int operations = 10000; // a thousand of each kind
constexpr int foods = 25;

// A generator of our own, so that no library's changes can change the script.
class Numbers {
public:
    int below(int limit)
    {
        state = state * 6364136223846793005ULL + 1442695040888963407ULL;
        return static_cast<int>((state >> 33) % static_cast<quint64>(limit));
    }

private:
    quint64 state = 20260511;
};

class Digest {
public:
    void add(float value)
    {
        for (quint32 bits = bitsOf(value), byte = 0; byte < 4; ++byte, bits >>= 8)
            hash = (hash ^ (bits & 0xffU)) * 1099511628211ULL;
    }
    template <typename Floats>
    void addAll(const Floats &floats)
    {
        for (const float value : floats)
            add(value);
    }
    [[nodiscard]] quint64 value() const { return hash; }

private:
    quint64 hash = 14695981039346656037ULL;
};

QString foodName(int index)
{
    return QStringLiteral("Food %1").arg(index);
}

void writeFoods(const Home &home, Numbers &numbers)
{
    const auto figure
        = [&] { return QByteArray::number(numbers.below(3000)) + '.' + QByteArray::number(numbers.below(10000)); };
    for (int food = 0; food < foods; ++food) {
        QByteArray elements
            = "<measure name='cup' amount='1' grams='" + figure() + "'/><measure name='crumb' amount='1' grams='0'/>";
        for (const QString &nutrient : NutrientCatalogue::names())
            elements += "<nutrient name='" + nutrient.toUtf8() + "' amount='" + figure() + "'/>";
        home.files.writeElements(foodName(food), elements);
    }
}

void editUnit(Run &run, Numbers &numbers, int row)
{
    MenuItemUnit item;
    const int unit = numbers.below(40) == 0 ? 2 : numbers.below(2); // one without weight makes infinities and NaNs
    item.setTag(row);
    item.setIdx(unit);
    item.setTitle(unit == 0 ? QStringLiteral("g") : unit == 1 ? QStringLiteral("1 cup") : QStringLiteral("1 crumb"));
    run.controller.updateUnit(item);
}

void operate(Run &run, Numbers &numbers, int kind)
{
    static constexpr const char *amounts[] = {"100", "33.3", "0.1", "1.1", "7", "0.4166667", "-5", "16777217", "1e-40"};
    if (run.controller.foods.empty())
        run.add({foodName(numbers.below(foods))});
    const int rows = static_cast<int>(run.controller.foods.size());
    const auto selectSome = [&] {
        QList<int> chosen;
        for (int row = 0; row < rows; ++row)
            if (numbers.below(4) == 0)
                chosen.append(row);
        run.select(chosen);
    };
    switch (kind) {
    case 0:
    case 1:
        return run.add(
            {foodName(numbers.below(foods)), foodName(numbers.below(foods)), foodName(numbers.below(foods))});
    case 2:
        return selectSome();
    case 3:
        selectSome();
        return run.controller.removeSelected();
    case 4:
        selectSome();
        return run.controller.cut();
    case 5:
        selectSome();
        return run.controller.copy();
    case 6:
        return run.controller.paste();
    case 7:
        return run.edit(numbers.below(rows), QString::fromLatin1(amounts[numbers.below(int(std::size(amounts)))]));
    case 8:
        run.store.registerDefaults({{QStringLiteral("RecalculateAmount"), numbers.below(2) == 0}});
        return editUnit(run, numbers, numbers.below(rows));
    default:
        return run.controller.setDate(run.home.now.addDays(numbers.below(8)));
    }
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    Home home;
    Numbers numbers;
    writeFoods(home, numbers);
    Run run(home);
    run.launch();
    Digest digest;
    for (int i = 0; i < operations; ++i) {
        operate(run, numbers, i % kinds);
        digest.addAll(run.controller.nutrientstotal);
        digest.addAll(run.controller.nutrientsselected);
        for (const auto &column : run.controller.nutrients)
            digest.addAll(column);
    }
    std::printf("%016llx\n", static_cast<unsigned long long>(digest.value()));
    return 0;
}
