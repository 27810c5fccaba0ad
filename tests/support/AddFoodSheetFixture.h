// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "catalog/FoodCatalogue.h"
#include "platform/Bundle.h"
#include "ui/foodsheet/AddFoodSheet.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QMainWindow>
#include <QtTest>

#include <memory>

inline const QString banana = QStringLiteral("Bananas, raw");
inline const QString cheddar = QStringLiteral("Cheese, cheddar");
inline const QString apricots = QStringLiteral("Apricots, raw");

// The add-food sheet as a person works it: keys go to whatever has the focus, and the sheet's owner closes it when told
// to. Each test has a new sheet over a new window.
class AddFoodSheetFixture : public QObject {
    Q_OBJECT

protected:
    std::unique_ptr<QMainWindow> window;
    AddFoodSheet *sheet = nullptr;
    QList<QStringList> added; // what was chosen each time that the sheet was closed

    template <typename Widget>
    Widget *find(const char *name) const
    {
        auto *widget = sheet->findChild<Widget *>(QLatin1String(name));
        Q_ASSERT(widget != nullptr);
        return widget;
    }
    QLineEdit *field() const { return find<QLineEdit>("searchfield"); }
    QListView *list() const { return find<QListView>("foodlist"); }
    QListWidget *tobeadded() const { return find<QListWidget>("tobeaddedlist"); }
    QString text(const char *label) const { return find<QLabel>(label)->text(); }

    void open()
    {
        sheet->open();
        QTRY_COMPARE(QApplication::activeWindow(), sheet);
    }
    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    static void type(const char *keys) { QTest::keyClicks(QApplication::focusWidget(), QLatin1String(keys)); }

    QString current() const { return list()->currentIndex().data().toString(); }
    QStringList selected() const
    {
        QStringList names;
        for (const QModelIndex &index : list()->selectionModel()->selectedIndexes())
            names << index.data().toString();
        names.sort();
        return names;
    }
    QStringList kept() const
    {
        QStringList names;
        for (int row = 0; row < tobeadded()->count(); ++row)
            names << tobeadded()->item(row)->text();
        return names;
    }
    QPoint placeOf(int row) const { return list()->visualRect(list()->model()->index(row, 0)).center(); }

private slots:
    void initTestCase() { Bundle::mainBundle().setResourcePath(QStringLiteral(SOURCE_DIR "/resources")); }

    void init()
    {
        window = std::make_unique<QMainWindow>();
        window->resize(900, 650);
        sheet = new AddFoodSheet(window.get());
        sheet->foodlistcontroller()->setContent(FoodCatalogue::foodNames());
        added.clear();
        connect(sheet, &AddFoodSheet::addSelectedFoods, sheet, [this] {
            sheet->done(0);
            added << sheet->foodlistcontroller()->selectedObjects();
        });
        window->show();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
    }
    void cleanup() { window.reset(); }
};
