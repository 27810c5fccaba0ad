// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/foodsheet/ArrayController.h"

#include <QtTest>

class ArrayControllerTest final : public QObject {
    Q_OBJECT

private slots:
    void keepsTheContentInItsOrder()
    {
        ArrayController controller;
        QVERIFY(controller.content().isEmpty());
        controller.setContent({QStringLiteral("b"), QStringLiteral("a")});
        QCOMPARE(controller.content(), QStringList({QStringLiteral("b"), QStringLiteral("a")}));
        QVERIFY(controller.selectedObjects().isEmpty());
    }

    void givesWhatIsToBeAddedBeforeWhatIsSelected()
    {
        ArrayController controller;
        controller.setSelection({QStringLiteral("a"), QStringLiteral("b")});
        controller.addFoodToBeAdded(QStringLiteral("z"));
        controller.addFoodToBeAdded(QStringLiteral("y"));
        QCOMPARE(controller.selectedObjects().join(u' '), QStringLiteral("z y a b"));
    }

    void givesAFoodOnce()
    {
        ArrayController controller;
        controller.addFoodToBeAdded(QStringLiteral("b"));
        controller.addFoodToBeAdded(QStringLiteral("a"));
        controller.addFoodToBeAdded(QStringLiteral("b"));
        controller.setSelection({QStringLiteral("a"), QStringLiteral("c")});
        QCOMPARE(controller.foodsToBeAdded().join(u' '), QStringLiteral("b a"));
        QCOMPARE(controller.selectedObjects().join(u' '), QStringLiteral("b a c"));
    }

    void removesByIndexAndIgnoresAWrongOne()
    {
        ArrayController controller;
        controller.addFoodToBeAdded(QStringLiteral("a"));
        controller.addFoodToBeAdded(QStringLiteral("b"));
        controller.removeFoodToBeAdded(-1);
        controller.removeFoodToBeAdded(2);
        QCOMPARE(controller.foodsToBeAdded().join(u' '), QStringLiteral("a b"));
        controller.removeFoodToBeAdded(0);
        QCOMPARE(controller.foodsToBeAdded().join(u' '), QStringLiteral("b"));
    }

    void clearsEverythingChosenAndKeepsTheContent()
    {
        ArrayController controller;
        controller.setContent({QStringLiteral("a")});
        controller.addFoodToBeAdded(QStringLiteral("a"));
        controller.setSelection({QStringLiteral("a")});
        controller.clearSelection();
        QVERIFY(controller.selectedObjects().isEmpty());
        QVERIFY(controller.foodsToBeAdded().isEmpty());
        QCOMPARE(controller.content().size(), 1);
    }
};

QTEST_APPLESS_MAIN(ArrayControllerTest)
#include "tst_arraycontroller.moc"
