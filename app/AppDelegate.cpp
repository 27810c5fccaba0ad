// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "app/AppDelegate.h"

#include "app/SettingsKeys.h"
#include "catalog/FoodCatalogue.h"
#include "platform/NumberText.h"
#include "platform/UserDefaults.h"
#include "ui/foodsheet/ArrayController.h"
#include "ui/table/TableView.h"

#include <QComboBox>
#include <QLineEdit>

#include <utility>

AppDelegate::AppDelegate(Clock clock)
    : now(std::move(clock))
{ }

AppDelegate::~AppDelegate() = default;

void AppDelegate::applicationDidFinishLaunching()
{
    // The containers of the log are empty and no date is current: that is how they were made.
    foodlist = FoodCatalogue::foodNames();
    foodlistcontroller->setContent(foodlist);
    nutdata = NutrientCatalogue::names();
    nutdataunits = NutrientCatalogue::units();
    rdamenu->addItems(nutdata); // the menu is empty before: item i stands for nutrient i
    for (TableView *table : {logtable, nutrienttable}) {
        table->setDelegate(this);
        table->setDataSource(this);
    }
    initPrefs();
    rdainput->setText(NumberText::fixed(double(rdas[0]), 2));
    rdamenu->setCurrentIndex(0);
}

void AppDelegate::applicationWillTerminate()
{
    QVariantList values;
    QVariantList changed;
    for (std::size_t i = 0; i < rdas.size(); ++i) {
        values.append(rdas[i]);
        changed.append(rdaschanged.test(i));
    }
    prefs->setObject(values, SettingsKeys::RDAs, changed);
    if (!curdate.isValid())
        return;
    prefs->setObject(curdate, SettingsKeys::LastDate);
    saveDay();
}

bool AppDelegate::applicationShouldTerminateAfterLastWindowClosed() const
{
    return true;
}
