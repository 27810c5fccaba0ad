// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "app/AppDelegate.h"

#include "model/StoredValues.h"
#include "platform/LocalDay.h"
#include "platform/UserDefaults.h"

#include <algorithm>

namespace {

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

void AppDelegate::initPrefs()
{
    prefs = &UserDefaults::standardUserDefaults();
    prefs->setJoin(StoredValues::join);
    prefs->takeInPending();
    // The first two do nothing and are kept for whoever looks for them. No default for "LastDate" and "RDAs": a run
    // that finds none knows that it is the first.
    prefs->registerDefaults({
        {QStringLiteral("FirstLaunch"), QStringLiteral("YES")},
        {QStringLiteral("ShowXNutrients"), 61},
        {QStringLiteral("RememberDate"), QStringLiteral("YES")},
        {QStringLiteral("UseP"), QStringLiteral("YES")},
        {QStringLiteral("RecalculateAmount"), QStringLiteral("NO")},
    });

    const QVariant stored = prefs->objectForKey(StoredValues::rdaskey);
    const bool list = stored.typeId() == QMetaType::QVariantList;
    if (stored.isValid() && !list)
        prefs->keepUnread(StoredValues::rdaskey);
    const QVariantList values = list ? stored.toList() : defaultRDAs();
    // A shorter list leaves the rest at 0.
    const auto length = std::min(static_cast<std::size_t>(values.size()), rdas.size());
    for (std::size_t i = 0; i < length; ++i)
        rdas[i] = StoredValues::rda(values[static_cast<qsizetype>(i)]);

    const QVariant lastdate = prefs->objectForKey(QStringLiteral("LastDate"));
    if (prefs->boolForKey(QStringLiteral("RememberDate")) && isShowable(lastdate))
        setDate(lastdate.toDateTime());
    else
        today();
}
