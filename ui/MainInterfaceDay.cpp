// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/MainInterface.h"

#include "app/AppDelegate.h"
#include "platform/LocalDay.h"
#include "platform/NumberText.h"
#include "ui_MainWindow.h"

#include <QLocale>
#include <QMainWindow>

#include <string_view>
#include <utility>

// What the window says of the day shown: its weekday, its title and its main totals.

namespace {

// "1842" as "1,842".
QString grouped(QString number)
{
    const qsizetype first = number.startsWith(u'-') ? 1 : 0;
    if (number.size() > first && number[first].isDigit())
        for (qsizetype at = number.size() - 3; at > first; at -= 3)
            number.insert(at, u',');
    return number;
}

} // namespace

void MainInterface::connectDay()
{
    // As wide as when it stands out, so that nothing moves.
    QFont bold = main->todaybutton->font();
    bold.setBold(true);
    main->todaybutton->setFont(bold);
    main->todaybutton->setMinimumWidth(main->todaybutton->sizeHint().width());
    main->todaybutton->setFont({});
    connect(main->nutrienttable, &TableView::reloaded, this, &MainInterface::showTotals);
}

void MainInterface::showDay()
{
    const QLocale english = QLocale::c(); // as the window's other texts are
    const QDate day = LocalDay::dateOf(main->datepicker->dateValue());
    const QDate today = LocalDay::dateOf(controller.now());
    const qint64 ahead = today.daysTo(day);
    const QString near = ahead == 0 ? tr("Today")
        : ahead == 1                ? tr("Tomorrow")
        : ahead == -1               ? tr("Yesterday")
                                    : QString();
    const QString weekday = english.dayName(day.dayOfWeek());
    main->daylabel->setText(near.isEmpty() ? weekday : weekday + QStringLiteral(" · ") + near);
    QFont font;
    font.setBold(ahead != 0);
    main->todaybutton->setFont(font);
    window->setWindowTitle(tr("%1 - Provender").arg(english.toString(day, QStringLiteral("dddd d MMMM yyyy"))));
}

void MainInterface::showTotals()
{
    const std::pair<std::string_view, QString> shown[]
        = {{"Energy", QString()}, {"Carbs", tr("carbs ")}, {"Protein", tr("protein ")}, {"Fat", tr("fat ")}};
    QStringList totals;
    for (const auto &[nutrient, word] : shown) {
        const int index = NutrientCatalogue::indexOfNutrient(nutrient);
        const QString amount = grouped(NumberText::fixed(double(controller.displayedSum(index)), 0));
        totals << word + amount + u' ' + NutrientCatalogue::units()[index];
    }
    main->totals->setText(totals.join(QStringLiteral(" · ")));
}
