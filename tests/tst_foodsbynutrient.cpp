// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "bynutrient/FoodsByNutrient.h"
#include "catalog/FoodCatalogue.h"
#include "catalog/NutrientCatalogue.h"

#include <QFile>
#include <QRegularExpression>
#include <QtTest>

#include <algorithm>

using Basis = FoodsByNutrient::Basis;

class FoodsByNutrientTest final : public QObject {
    Q_OBJECT

private:
    const QStringList names = FoodCatalogue::foodNames();
    FoodsByNutrient foods{names};

    static int nutrient(const char *name) { return NutrientCatalogue::indexOfNutrient(name); }

    QStringList firstOf(int index)
    {
        QStringList first;
        for (const FoodsByNutrient::Row &row : foods.list(index, Basis::Portion).catalogue)
            if (first.size() < FoodsByNutrient::firstRows)
                first << names[row.food];
        return first;
    }

private slots:
    void goodSourcesAreAmongTheFirstSixtyAndImplausibleOnesAreNot_data()
    {
        QTest::addColumn<QStringList>("good");
        QTest::addColumn<QStringList>("implausible");

        QFile file(QStringLiteral(DATA_DIR "/foodsources.tsv"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QMap<QString, QMap<QString, QStringList>> patterns;
        for (const QString &line : QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts)) {
            const QStringList fields = line.split(u'\t');
            if (!line.startsWith(u'#'))
                patterns[fields.value(0)][fields.value(2)] << fields.value(1);
        }
        QVERIFY(patterns.size() >= 10);
        for (auto each = patterns.constBegin(); each != patterns.constEnd(); ++each)
            QTest::newRow(qPrintable(each.key()))
                << each.value()[QStringLiteral("yes")] << each.value()[QStringLiteral("no")];
    }

    void goodSourcesAreAmongTheFirstSixtyAndImplausibleOnesAreNot()
    {
        QFETCH(QStringList, good);
        QFETCH(QStringList, implausible);

        const int index = nutrient(QTest::currentDataTag());
        QVERIFY(index >= 0);
        const QStringList first = firstOf(index);
        QCOMPARE(first.size(), FoodsByNutrient::firstRows);
        QStringList missing;
        for (const QString &pattern : good)
            if (first.filter(QRegularExpression(pattern)).isEmpty())
                missing << pattern;
        QCOMPARE(good.size(), 8);
        QVERIFY2(missing.size() <= 2, qPrintable(missing.join(u'\n')));
        for (const QString &pattern : implausible) {
            const auto wrong = first.filter(QRegularExpression(pattern));
            QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(u'\n')));
        }
    }
};

QTEST_GUILESS_MAIN(FoodsByNutrientTest)
#include "tst_foodsbynutrient.moc"
