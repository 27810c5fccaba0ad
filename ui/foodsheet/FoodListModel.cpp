// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/foodsheet/FoodListModel.h"

#include "platform/NumberText.h"

namespace {

// Three digits or so, which is what the figures are known to.
QString amountText(float amount, const QString &unit)
{
    return NumberText::fixed(double(amount), amount >= 100 ? 0 : amount >= 10 ? 1 : 2) + u' ' + unit;
}

} // namespace

FoodListModel::FoodListModel(const QStringList &names, QObject *parent)
    : QAbstractListModel(parent)
    , foodnames(names)
    , search(names)
    , hits(search.search({}))
    , bynutrient(names)
{ }

void FoodListModel::setOwnFoods(const std::vector<LoggedFood> &foods, int listed)
{
    own.clear();
    ownlisted.clear();
    lastquantities.clear();
    eaten.reset();
    if (!foods.empty() && places.isEmpty()) {
        places.reserve(foodnames.size());
        for (int i = 0; i < foodnames.size(); ++i)
            places.insert(foodnames[i], i);
    }
    QHash<int, float> usefulness;
    for (const LoggedFood &food : foods) {
        const auto place = places.constFind(food.name);
        if (place == places.constEnd())
            continue; // of another catalogue: it cannot be chosen
        own.insert(*place, food);
        usefulness.insert(*place, food.usefulness);
        if (int(ownlisted.size()) < listed)
            ownlisted.push_back(*place);
    }
    search.setOwnFoods(listed > 0 ? usefulness : QHash<int, float>());
}

void FoodListModel::setQuery(const QString &query)
{
    beginResetModel();
    const std::vector<int> &found = search.search(query);
    const bool all = FoodSearch::isEmpty(query);
    hits.clear();
    nutrientrows.clear();
    askedquantities.clear();
    if (ordered) {
        fillByNutrient(all ? nullptr : &found);
    } else {
        if (all)
            hits = ownlisted;
        ownrows = int(hits.size());
        hits.insert(hits.end(), found.begin(), found.end());
    }
    endResetModel();
}

void FoodListModel::setOrder(const std::optional<Order> &by, const Allowances &rdas)
{
    ordered = by;
    allowances = rdas;
}

void FoodListModel::fillByNutrient(const std::vector<int> *found)
{
    ownrows = 0;
    unknown = 0;
    if (!hasReadFoods())
        return;
    FoodsByNutrient::List list = found != nullptr
        ? bynutrient.listOf(*found, ordered->nutrient, ordered->basis, eatenFoods())
        : bynutrient.list(ordered->nutrient, ordered->basis, eatenFoods());
    ownrows = int(list.eaten.size());
    unknown = list.unknown;
    nutrientrows = std::move(list.eaten);
    nutrientrows.insert(nutrientrows.end(), list.catalogue.begin(), list.catalogue.end());
    hits.reserve(nutrientrows.size());
    for (const FoodsByNutrient::Row &row : nutrientrows)
        hits.push_back(row.food);
}

// Once for all keys and nutrients, since it reads the file of each of one's own foods.
const std::vector<FoodsByNutrient::Eaten> &FoodListModel::eatenFoods()
{
    if (eaten)
        return *eaten;
    eaten.emplace();
    for (auto food = own.keyBegin(); food != own.keyEnd(); ++food) {
        const std::optional<Quantity> last = lastQuantityOf(*food);
        if (!last) {
            eaten->push_back({*food, std::nullopt});
            continue;
        }
        Composition composition;
        static_cast<void>(composition.read(foodnames[*food]));
        eaten->push_back({*food, Portion{last->value(), last->unit, composition.grams(last->value(), last->unit)}});
    }
    return *eaten;
}

void FoodListModel::setMarkedFoods(const QStringList &foodsinlog, const QStringList &foodstobeadded)
{
    inlog = {foodsinlog.begin(), foodsinlog.end()};
    tobeadded = {foodstobeadded.begin(), foodstobeadded.end()};
    if (!hits.empty())
        emit dataChanged(index(0), index(rowCount() - 1), {MarkRole, Qt::AccessibleDescriptionRole});
}

QString FoodListModel::nameAt(int row) const
{
    return foodnames[foodAt(row)];
}

std::optional<Quantity> FoodListModel::lastQuantity(int row) const
{
    return lastQuantityOf(foodAt(row));
}

std::optional<Quantity> FoodListModel::lastQuantityOf(int index) const
{
    const auto food = own.constFind(index);
    if (food == own.constEnd())
        return std::nullopt;
    const auto known = lastquantities.constFind(index);
    if (known != lastquantities.constEnd())
        return *known;
    Composition composition;
    static_cast<void>(composition.read(food->name)); // what cannot be read has grams alone
    return *lastquantities.insert(index, Quantity::logged(food->amount, food->unit, composition));
}

std::optional<Quantity> FoodListModel::saidQuantity(int row) const
{
    if (askedQuantity())
        return askedAt(row).quantity;
    if (!ordered)
        return row < ownrows ? lastQuantity(row) : std::nullopt;
    if (ordered->basis != FoodsByNutrient::Basis::Portion)
        return std::nullopt; // each row is about 100 g, or about something that nobody weighs
    const Portion &portion = nutrientrows[static_cast<std::size_t>(row)].portion;
    Composition composition;
    static_cast<void>(composition.read(nameAt(row)));
    return Quantity::logged(portion.amount, portion.unit, composition);
}

QString FoodListModel::lastTime(int row) const
{
    return own.value(foodAt(row)).when;
}

int FoodListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(hits.size());
}

QVariant FoodListModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return nameAt(index.row());
    case MatchedLettersRole:
        return QVariant::fromValue(search.matchedLetters(foodAt(index.row())));
    case MarkRole:
        return markAt(index.row());
    case FiguresRole:
        return figuresAt(index.row());
    case Qt::AccessibleDescriptionRole: {
        QStringList said{markAt(index.row())};
        said += figuresAt(index.row());
        said.removeAll(QString());
        return said.join(QStringLiteral(", "));
    }
    default:
        return {};
    }
}

QString FoodListModel::markAt(int row) const
{
    const QString name = nameAt(row);
    if (inlog.contains(name))
        return tr("in the log");
    if (tobeadded.contains(name))
        return tr("to be added");
    return saidAt(row);
}

QString FoodListModel::saidAt(int row) const
{
    if (ordered) {
        if (ordered->basis != FoodsByNutrient::Basis::Portion)
            return {};
        if (askedQuantity()) {
            const Asked asked = askedAt(row);
            const QString weight = gramsText(asked.grams);
            const bool ingrams = !asked.quantity || asked.quantity->unitidx == 0;
            return ingrams ? weight : asked.quantity->text() + QStringLiteral(", ") + weight;
        }
        // From the portion alone: reading the file of each row that is painted would slow each key down.
        const Portion &portion = nutrientrows[static_cast<std::size_t>(row)].portion;
        const bool ingrams = portion.unit == Portion().unit;
        const QString said = quantityText(portion.amount, ingrams, portion.unit);
        return ingrams ? said : said + QStringLiteral(", ") + gramsText(portion.grams);
    }
    // Below its own rows the list says of each food what it says to everybody, and adds it like that.
    if (row >= ownrows && ownrows > 0)
        return {};
    const std::optional<Quantity> last = lastQuantity(row);
    return last ? tr("%1, %2", "a day and a quantity").arg(lastTime(row), last->text()) : lastTime(row);
}

FoodListModel::Asked FoodListModel::askedAt(int row) const
{
    const auto known = askedquantities.constFind(foodAt(row));
    if (known != askedquantities.constEnd())
        return *known;
    Composition composition;
    static_cast<void>(composition.read(nameAt(row))); // without a file there are grams
    Asked asked{Quantity::asked(*askedQuantity(), composition)};
    if (asked.quantity)
        asked.grams = composition.grams(asked.quantity->value(), asked.quantity->unit);
    return *askedquantities.insert(foodAt(row), asked);
}

QStringList FoodListModel::figuresAt(int row) const
{
    if (!ordered)
        return {};
    const FoodsByNutrient::Row &shown = nutrientrows[static_cast<std::size_t>(row)];
    const bool another = askedQuantity() && ordered->basis == FoodsByNutrient::Basis::Portion;
    const float amount
        = another && shown.portion.grams > 0 ? shown.amount / shown.portion.grams * askedAt(row).grams : shown.amount;
    const float allowance = allowances[static_cast<std::size_t>(ordered->nutrient)];
    const QString unit = NutrientCatalogue::units()[ordered->nutrient];
    const QString share
        = allowance > 0 ? NumberText::fixed(double(amount / allowance * 100), 0) + QStringLiteral(" %") : QString();
    return {amountText(amount, unit), share};
}
