// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/historysheet/HistoryText.h"

#include "catalog/NutrientCatalogue.h"
#include "platform/NumberText.h"

#include <QCoreApplication>
#include <QLocale>

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("HistoryText", text);
}

} // namespace

QString HistoryText::amount(double value, const QString &unit)
{
    return NumberText::fixed(value, 2) + u' ' + unit;
}

QString HistoryText::percent(double ratio)
{
    return NumberText::fixed(ratio * 100.0, 0) + QStringLiteral(" %");
}

QString HistoryText::shortDay(QDate day, QDate beside)
{
    return QLocale().toString(
        day, day.year() == beside.year() ? QStringLiteral("d MMM") : QStringLiteral("d MMM yyyy"));
}

QString HistoryText::day(QDate date)
{
    return QLocale().toString(date, QStringLiteral("ddd d MMM yyyy"));
}

QString HistoryText::period(const History::Period &days)
{
    const QString last = QLocale().toString(days.last, QStringLiteral("d MMM yyyy"));
    return days.first == days.last ? last : tr("%1 to %2").arg(shortDay(days.first, days.last), last);
}

QString HistoryText::someDays(const QList<QDate> &days, qsizetype most, QDate beside)
{
    QStringList names;
    for (const QDate date : days.first(std::min(most, days.size())))
        names.append(shortDay(date, beside));
    const QString named = names.join(QStringLiteral(", "));
    return days.size() > most ? tr("%1 and %2 more").arg(named).arg(days.size() - most) : named;
}

QString HistoryText::mean(const History::NutrientFigures &figures, const QString &unit)
{
    const QString text = amount(figures.mean, unit);
    return figures.isLowerBound() ? QStringLiteral("\u2265 ") + text : text;
}

QString HistoryText::summary(int nutrient, const History::NutrientFigures &figures, float allowance, QDate beside)
{
    const QString &unit = NutrientCatalogue::units()[nutrient];
    QString text = tr("%1: mean of a logged day %2").arg(NutrientCatalogue::names()[nutrient], mean(figures, unit));
    if (figures.ratio)
        text += tr(", %1 of the RDA (%2)").arg(percent(*figures.ratio), amount(double(allowance), unit));
    text += tr("; lowest %1 on %2, highest %3 on %4")
                .arg(amount(double(figures.lowest), unit), shortDay(figures.lowestday, beside),
                    amount(double(figures.highest), unit), shortDay(figures.highestday, beside));
    constexpr double all = 0.995; // reads as 100 %
    return figures.knownshare < all ? text + tr("; known for %1 of the energy").arg(percent(figures.knownshare)) : text;
}
