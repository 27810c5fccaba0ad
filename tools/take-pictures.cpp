// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

// take-pictures <folder> day|dark|large: pictures of the program's windows with a day in them, for the documents. The
// windows are the program's own; only the palette, the clock and the store are this program's, since the program itself
// has no option for them. "large" is the same day at a scale that QT_SCALE_FACTOR gives. With a size and a name:
// pictures of every window, those that can be as large at that size.

#include "app/AppDelegate.h"
#include "catalog/NutrientCatalogue.h"
#include "platform/UserDefaults.h"
#include "tools/PictureDays.h"
#include "ui/MainInterface.h"
#include "ui/controls/DatePicker.h"
#include "ui/controls/OutlineStyle.h"
#include "ui/daysheet/DaySheet.h"
#include "ui/foodsheet/AddFoodSheet.h"
#include "ui/historysheet/HistorySheet.h"
#include "ui/table/TableView.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMainWindow>
#include <QPalette>
#include <QPushButton>
#include <QScrollBar>
#include <QTabWidget>
#include <QTemporaryDir>

#include <cstdio>

namespace {

struct Eaten {
    const char *food;
    float amount;
    const char *unit;
};

constexpr Eaten eaten[] = {
    {"Cereals, oats, regular and quick, not fortified, dry", 0.5F, "1 cup"},
    {"Milk, whole, 3.25% milkfat, with added vitamin D", 1, "1 cup"},
    {"Blueberries, raw", 75, "g"},
    {"Honey", 1, "1 tbsp"},
    {"Coffee, brewed from grounds, prepared with tap water", 2, "1 cup (8 fl oz)"},
    {"Oranges, raw, all commercial varieties", 1, "1 fruit (2-5/8\" dia)"},
    {"Bread, whole-wheat, commercially prepared", 2, "1 slice"},
    {"Butter, salted", 10, "g"},
    {"Cheese, cheddar", 1.5F, "1 oz"},
    {"Tomatoes, red, ripe, raw, year round average", 120, "g"},
    {"Lettuce, cos or romaine, raw", 1, "1 cup shredded"},
    {"Apples, raw, with skin", 1, "1 medium (3\" dia)"},
    {"Nuts, almonds", 30, "g"},
    {"Chicken, broilers or fryers, breast, meat only, cooked, roasted", 1, "1 cup, chopped or diced"},
    {"Rice, brown, long-grain, cooked", 1, "1 cup"},
    {"Broccoli, cooked, boiled, drained, without salt", 150, "g"},
    {"Oil, olive, salad or cooking", 1, "1 tablespoon"},
    {"Yogurt, plain, whole milk, 8 grams protein per 8 ounce", 0.5F, "1 cup (8 fl oz)"},
    {"Chocolate, dark, 70-85% cacao solids", 20, "g"},
};

class Day final : public AppDelegate {
public:
    using AppDelegate::addFoodPriv;
    using AppDelegate::addview;
    using AppDelegate::AppDelegate;
    using AppDelegate::logtable;
    using AppDelegate::preferences;
    using AppDelegate::rdamenu;
    using AppDelegate::window;

    // False when a food does not know the unit given for it here.
    bool eat()
    {
        for (const Eaten &entry : eaten) {
            const auto food = std::make_shared<Food>(QString::fromUtf8(entry.food));
            const int position = int(food->getUnitNames().indexOf(QString::fromUtf8(entry.unit)));
            food->setUnit(QString::fromUtf8(entry.unit), position, false);
            food->setCuramount(entry.amount);
            if (position < 0)
                return false;
            addFoodPriv(food);
        }
        logtable->reloadData();
        updateNutrients();
        return true;
    }
};

void makeDark()
{
    QPalette dark(QColor(0x2e, 0x32, 0x36), QColor(0x2b, 0x2e, 0x33));
    dark.setColor(QPalette::Base, QColor(0x1e, 0x20, 0x23));
    dark.setColor(QPalette::AlternateBase, QColor(0x25, 0x28, 0x2c));
    for (const QPalette::ColorRole role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        dark.setColor(role, QColor(0xe6, 0xe8, 0xea));
    dark.setColor(QPalette::PlaceholderText, QColor(0xa0, 0xa4, 0xa8));
    dark.setColor(QPalette::Highlight, QColor(0x2f, 0x65, 0xa0));
    dark.setColor(QPalette::HighlightedText, Qt::white);
    dark.setColor(QPalette::ToolTipBase, QColor(0x2b, 0x2e, 0x33));
    dark.setColor(QPalette::ToolTipText, QColor(0xe6, 0xe8, 0xea));
    for (const QPalette::ColorRole role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        dark.setColor(QPalette::Disabled, role, QColor(0x80, 0x84, 0x88));
    QApplication::setPalette(dark);
}

class Pictures final {
public:
    explicit Pictures(const QString &path)
        : folder(path)
    { }

    void take(QWidget &shown, const QString &name)
    {
        settle();
        saved = shown.grab().save(folder.filePath(name + QStringLiteral(".png")), "PNG") && saved;
    }
    [[nodiscard]] bool allSaved() const { return saved; }

    static void settle()
    {
        for (int i = 0; i < 10; ++i)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    }
    static void press(QWidget &where, int key, const QString &text, Qt::KeyboardModifiers modifiers = {})
    {
        QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
        QCoreApplication::sendEvent(&where, &event);
        settle();
    }
    static void type(QWidget &where, const QString &text)
    {
        for (const QChar letter : text)
            press(where, letter.toUpper().unicode(), letter);
    }

private:
    QDir folder;
    bool saved = true;
};

// The day's entries offered to the next day, which has one of them already.
void takeOtherDay(Day &day, Pictures &pictures, const QString &name)
{
    day.nextDay();
    day.addFoodPriv(std::make_shared<Food>(QStringLiteral("Honey")));
    day.window->findChild<QAction *>(QStringLiteral("actionaddfromday"))->trigger();
    auto &sheet = *day.window->findChild<DaySheet *>();
    Pictures::press(*sheet.focusWidget(), Qt::Key_Down, QString());
    Pictures::press(*sheet.focusWidget(), Qt::Key_Space, QString());
    pictures.take(sheet, name);
    sheet.reject();
    day.previousDay();
}

void takeSheets(Day &day, Pictures &pictures)
{
    day.window->findChild<QAction *>(QStringLiteral("actionaddfood"))->trigger();
    QWidget &field = *day.addview->findChild<QLineEdit *>(QStringLiteral("searchfield"));
    pictures.take(*day.addview, QStringLiteral("own-foods"));
    for (const char *kept : {"80 g carrots raw", "2 tbsp hummus"}) {
        Pictures::type(field, QLatin1String(kept));
        Pictures::press(field, Qt::Key_Return, QString(), Qt::ControlModifier);
    }
    Pictures::type(field, QStringLiteral("3 eggs"));
    pictures.take(*day.addview, QStringLiteral("add-food"));
    Pictures::press(field, Qt::Key_Escape, QString());
    day.addview->orderByNutrient(NutrientCatalogue::indexOfNutrient("Iron"));
    pictures.take(*day.addview, QStringLiteral("foods-by-iron"));
    day.addview->reject();
    takeOtherDay(day, pictures, QStringLiteral("another-day"));
    day.showPrefs();
    day.rdamenu->setCurrentIndex(day.rdamenu->findText(QStringLiteral("Vitamin C")));
    day.RDAtick();
    pictures.take(*day.preferences, QStringLiteral("preferences"));
    day.preferences->findChild<QPushButton *>(QStringLiteral("resetbutton"))->click();
    pictures.take(*day.preferences, QStringLiteral("question"));
    day.hidePrefs();
    for (const char *name : {"shortcuts", "about"}) {
        day.window->findChild<QAction *>(QLatin1String("action") + QLatin1String(name))->trigger();
        Pictures::settle();
        QWidget *sheet = QApplication::activeModalWidget();
        pictures.take(*sheet, QLatin1String(name));
        sheet->close();
    }
}

// Vitamin C in the history, as large as the window, small and large, and the foods and days.
void takeHistory(Day &day, Pictures &pictures, const QString &name, bool all)
{
    day.window->findChild<QAction *>(QStringLiteral("actionhistory"))->trigger();
    auto &sheet = *day.window->findChild<HistorySheet *>();
    Pictures::settle();
    for (int row = 0; row < NutrientCatalogue::indexOfNutrient("Vitamin C"); ++row)
        Pictures::press(*sheet.focusWidget(), Qt::Key_Down, QString());
    for (int back = 0; back < 4; ++back)
        Pictures::press(*sheet.focusWidget(), Qt::Key_Left, QString());
    pictures.take(sheet, name);
    if (!all)
        return;
    auto &tabs = *sheet.findChild<QTabWidget *>(QStringLiteral("tabs"));
    for (int tab = 1; tab < tabs.count(); ++tab) {
        tabs.setCurrentIndex(tab);
        pictures.take(sheet, name + u'-' + QString::number(tab));
    }
    tabs.setCurrentIndex(0);
    auto &lengths = *sheet.findChild<QComboBox *>(QStringLiteral("lengthbox"));
    for (const int length : {0, 3, 4}) {
        lengths.setCurrentIndex(length);
        emit lengths.activated(length);
        pictures.take(sheet, name + QStringLiteral("-length-") + QString::number(length));
    }
    sheet.resize(800, 500);
    pictures.take(sheet, name + QStringLiteral("-small"));
    sheet.resize(1920, 1080);
    pictures.take(sheet, name + QStringLiteral("-wide"));
    sheet.reject();
}

void takeMenu(Day &day, Pictures &pictures, const QString &name)
{
    day.logtable->setCurrentRow(0);
    day.logtable->openMenuOfCurrentRow();
    Pictures::settle();
    if (QWidget *menu = QApplication::activePopupWidget()) {
        pictures.take(*menu, name);
        menu->close();
    }
}

void takeCalendar(Day &day, Pictures &pictures, const QString &name)
{
    auto &picker = *day.window->findChild<DatePicker *>();
    Pictures::press(picker, Qt::Key_Down, QString(), Qt::AltModifier);
    if (QWidget *calendar = QApplication::activePopupWidget()) {
        pictures.take(*calendar, name);
        calendar->close();
    }
}

// Every window, each at this size.
void takeAtSize(Day &day, Pictures &pictures, QSize size, const QString &name)
{
    day.window->resize(size);
    pictures.take(*day.window, name + QStringLiteral("-main"));
    takeMenu(day, pictures, name + QStringLiteral("-unit"));
    takeCalendar(day, pictures, name + QStringLiteral("-calendar"));
    day.window->findChild<QAction *>(QStringLiteral("actionaddfood"))->trigger();
    QWidget &field = *day.addview->findChild<QLineEdit *>(QStringLiteral("searchfield"));
    day.addview->resize(size);
    pictures.take(*day.addview, name + QStringLiteral("-own"));
    Pictures::type(field, QStringLiteral("2 tbsp hummus"));
    Pictures::press(field, Qt::Key_Return, QString(), Qt::ControlModifier);
    Pictures::type(field, QStringLiteral("3 eggs"));
    pictures.take(*day.addview, name + QStringLiteral("-food"));
    Pictures::press(field, Qt::Key_Escape, QString());
    day.addview->orderByNutrient(NutrientCatalogue::indexOfNutrient("Iron"));
    pictures.take(*day.addview, name + QStringLiteral("-iron"));
    day.addview->reject();
    takeOtherDay(day, pictures, name + QStringLiteral("-other"));
    day.showPrefs();
    day.rdamenu->setCurrentIndex(day.rdamenu->findText(QStringLiteral("Vitamin C")));
    day.RDAtick();
    pictures.take(*day.preferences, name + QStringLiteral("-prefs"));
    day.hidePrefs();
    for (const char *sheetname : {"shortcuts", "about"}) {
        day.window->findChild<QAction *>(QLatin1String("action") + QLatin1String(sheetname))->trigger();
        Pictures::settle();
        QWidget *sheet = QApplication::activeModalWidget();
        pictures.take(*sheet, name + u'-' + QLatin1String(sheetname));
        sheet->close();
    }
    day.window->findChild<QAction *>(QStringLiteral("actionhistory"))->trigger();
    auto &sheet = *day.window->findChild<HistorySheet *>();
    Pictures::settle();
    auto &tabs = *sheet.findChild<QTabWidget *>(QStringLiteral("tabs"));
    auto &lengths = *sheet.findChild<QComboBox *>(QStringLiteral("lengthbox"));
    for (int row = 0; row < NutrientCatalogue::indexOfNutrient("Vitamin C"); ++row)
        Pictures::press(*sheet.focusWidget(), Qt::Key_Down, QString());
    for (const int length : {1, 4}) {
        lengths.setCurrentIndex(length);
        emit lengths.activated(length);
        for (int tab = 0; tab < tabs.count(); ++tab) {
            tabs.setCurrentIndex(tab);
            pictures.take(sheet, name + QStringLiteral("-history-") + QString::number(length * 10 + tab));
        }
    }
    sheet.reject();
    day.window->findChild<QAction *>(QStringLiteral("actionnextday"))->trigger();
    pictures.take(*day.window, name + QStringLiteral("-tomorrow"));
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    OutlineStyle::use();
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3 && arguments.size() != 5) {
        std::fputs("usage: take-pictures <folder> day|dark|large [<width>x<height> <name>]\n", stderr);
        return 2;
    }
    const QString &kind = arguments[2];
    if (kind == QStringLiteral("dark"))
        makeDark();
    const QTemporaryDir home;
    UserDefaults store(home.filePath(QStringLiteral("preferences.sqlite")));
    UserDefaults::setStandardUserDefaults(&store);
    int status = 0;
    {
        Day day([] { return QDateTime({2026, 5, 11}, {12, 0}, Qt::UTC); });
        MainInterface interface(day);
        day.applicationDidFinishLaunching();
        interface.show();
        Pictures pictures(arguments[1]);
        if (kind == QStringLiteral("day"))
            pictures.take(*day.window, QStringLiteral("empty"));
        storePictureDays(store, QDate(2026, 5, 10));
        if (!day.eat()) {
            std::fputs("take-pictures: a food of the day lacks its unit\n", stderr);
            return 1;
        }
        if (arguments.size() == 5) {
            const QStringList size = arguments[3].split(u'x');
            takeAtSize(day, pictures, {size.value(0).toInt(), size.value(1).toInt()}, arguments[4]);
        } else if (kind == QStringLiteral("day")) {
            pictures.take(*day.window, QStringLiteral("main"));
            store.setObject(false, QStringLiteral("UseP"));
            interface.show();
            day.updateNutrients();
            pictures.take(*day.window, QStringLiteral("amounts"));
            store.setObject(true, QStringLiteral("UseP"));
            interface.show();
            day.updateNutrients();
            takeSheets(day, pictures);
            takeHistory(day, pictures, QStringLiteral("history"), true);
            day.window->resize(800, 500);
            pictures.take(*day.window, QStringLiteral("small"));
            day.nextDay();
            pictures.take(*day.window, QStringLiteral("tomorrow"));
        } else {
            pictures.take(*day.window, kind);
            takeOtherDay(day, pictures, QStringLiteral("another-day-") + kind);
            takeHistory(day, pictures, QStringLiteral("history-") + kind, kind == QStringLiteral("dark"));
        }
        status = pictures.allSaved() ? 0 : 1;
    }
    UserDefaults::setStandardUserDefaults(nullptr);
    return status;
}
