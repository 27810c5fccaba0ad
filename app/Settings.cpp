// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "app/AppDelegate.h"

#include "app/SettingsKeys.h"
#include "model/StoredDay.h"
#include "platform/LocalDay.h"
#include "platform/NumberText.h"
#include "platform/UserDefaults.h"

#include <algorithm>

namespace {

// The RDA that a stored element stands for: a number is itself, a text its leading number, anything else 0.
float rdaFromStored(const QVariant &element)
{
    switch (element.typeId()) {
    case QMetaType::QString:
        return NumberText::floatValue(element.toString());
    case QMetaType::Bool:
        return element.toBool() ? 1.0F : 0.0F;
    case QMetaType::Float:
        return element.value<float>();
    case QMetaType::Double:
        return static_cast<float>(element.value<double>());
    case QMetaType::Int:
    case QMetaType::LongLong:
        return static_cast<float>(element.toLongLong());
    default:
        return 0.0F;
    }
}

// What this run has set goes into the stored allowances, the rest of them stays.
UserDefaults::Joined joinRDAs(const QVariantList &stored, const QVariantList &mine, const QVariantList &changed)
{
    QVariantList values;
    for (int i = 0; i < NutrientCatalogue::nutrientCount; ++i)
        values.append(rdaFromStored(changed.value(i).toBool() ? mine.value(i) : stored.value(i)));
    return {values};
}

// How a stored value that this run could not read comes together with its own.
std::optional<UserDefaults::Joined> joinValues(
    const QString &key, const QVariant &stored, const QVariant &mine, const QVariant &changed)
{
    if (stored.typeId() != QMetaType::QVariantList)
        return std::nullopt;
    if (key == SettingsKeys::RDAs)
        return joinRDAs(stored.toList(), mine.toList(), changed.toList());
    if (LocalDay::dateOfKey(key))
        return StoredDay::joined(stored.toList(), mine.toList());
    return std::nullopt;
}

// A date that the picker can show. Anything else stored as the last date counts as no date at all.
bool isShowable(const QVariant &date)
{
    if (date.typeId() != QMetaType::QDateTime)
        return false;
    const QDate day = LocalDay::dateOf(date.toDateTime());
    return day.isValid() && day >= LocalDay::firstDate() && day <= LocalDay::lastDate();
}

QVariantList defaultRDAs()
{
    QVariantList values;
    values.reserve(NutrientCatalogue::nutrientCount);
    for (const int rda : NutrientCatalogue::defaultRDAs())
        values.append(rda);
    return values;
}

} // namespace

void AppDelegate::prepareStore(UserDefaults &store)
{
    store.setJoin(joinValues);
    store.takeInPending();
}

void AppDelegate::initPrefs()
{
    prefs = &UserDefaults::standardUserDefaults();
    // The first two do nothing and are kept for whoever looks for them. No default for "LastDate" and "RDAs": a run
    // that finds none knows that it is the first.
    prefs->registerDefaults({
        {SettingsKeys::FirstLaunch, QStringLiteral("YES")},
        {SettingsKeys::ShowXNutrients, 61}, // GCOVR_EXCL_LINE: no code but what follows an exception
        {SettingsKeys::RememberDate, QStringLiteral("YES")},
        {SettingsKeys::UseP, QStringLiteral("YES")},
        {SettingsKeys::RecalculateAmount, QStringLiteral("NO")},
        {SettingsKeys::OwnFoodsFirst, QStringLiteral("YES")},
    });

    const QVariant stored = prefs->objectForKey(SettingsKeys::RDAs);
    const bool list = stored.typeId() == QMetaType::QVariantList;
    if (stored.isValid() && !list)
        prefs->keepUnread(SettingsKeys::RDAs);
    const QVariantList values = list ? stored.toList() : defaultRDAs();
    // A shorter list leaves the rest at 0.
    const auto length = std::min(static_cast<std::size_t>(values.size()), rdas.size());
    for (std::size_t i = 0; i < length; ++i)
        rdas[i] = rdaFromStored(values[static_cast<qsizetype>(i)]);
    // Where an earlier run could save nothing, what it set is this run's to save.
    const QVariantList changed = prefs->changedForKey(SettingsKeys::RDAs).toList();
    for (std::size_t i = 0; i < rdas.size(); ++i)
        rdaschanged.set(i, changed.value(static_cast<qsizetype>(i)).toBool());

    const QVariant lastdate = prefs->objectForKey(SettingsKeys::LastDate);
    if (prefs->boolForKey(SettingsKeys::RememberDate) && isShowable(lastdate))
        setDate(lastdate.toDateTime());
    else
        today();
}
