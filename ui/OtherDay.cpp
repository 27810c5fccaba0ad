// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/OtherDay.h"

#include "app/AppDelegate.h"
#include "platform/NumberText.h"
#include "ui/daysheet/DaySheet.h"
#include "ui/table/TableCell.h"

#include <QLocale>

OtherDay::OtherDay(AppDelegate &appdelegate, DaySheet &daysheet)
    : controller(appdelegate)
    , sheet(daysheet)
{
    connect(&sheet, &DaySheet::earlierDay, this, [this] { goTo(offered, false); });
    connect(&sheet, &DaySheet::laterDay, this, [this] { goTo(offered, true); });
    connect(&sheet, &DaySheet::addEntries, this, &OtherDay::add);
}

void OtherDay::open(QDate shownday)
{
    shown = shownday;
    offered = {};
    std::optional<QDate> day = controller.otherLoggedDay(shown, false);
    if (!day)
        day = controller.otherLoggedDay(shown, true);
    if (day)
        show(*day);
    else
        sheet.showDay({tr("No other day has entries."), {}});
    sheet.open();
}

void OtherDay::goTo(QDate from, bool islater)
{
    if (const std::optional<QDate> day = controller.otherLoggedDay(from, islater))
        show(*day);
}

void OtherDay::show(QDate day)
{
    offered = day;
    const auto apart = shown.daysTo(day);
    const QString distance = apart == -1 ? tr("the day before")
        : apart == 1                     ? tr("the day after")
        : apart < 0                      ? tr("%1 days before").arg(-apart)
                                         : tr("%1 days after").arg(apart);
    DaySheet::Day told;
    told.title = QLocale::c().toString(day, QStringLiteral("ddd d MMM yyyy")) + QStringLiteral(" \u2013 ") + distance;
    for (const auto &food : controller.entriesOf(day)) {
        const QString amount = NumberText::fixed(double(food->curamount()), 2);
        told.entries.push_back({TableCell::shortened(food->name().value_or(QString())), amount,
            TableCell::shortened(food->curunit().value_or(tr("g"))), controller.holds(*food)});
    }
    told.hasearlier = controller.otherLoggedDay(day, false).has_value();
    told.haslater = controller.otherLoggedDay(day, true).has_value();
    sheet.showDay(told);
}

void OtherDay::add(const QList<int> &places)
{
    const auto all = controller.entriesOf(offered);
    std::vector<std::shared_ptr<Food>> ticked;
    for (const int place : places)
        ticked.push_back(all[static_cast<std::size_t>(place)]);
    sheet.done(0);
    controller.addEntries(ticked);
    emit entriesAdded();
}
