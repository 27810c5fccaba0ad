// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/controls/OutlineStyle.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>
#include <QTreeWidget>
#include <QtTest>

#include <cmath>

namespace {

double luminance(const QColor &color)
{
    const auto linear = [](double part) { return part <= 0.04 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4); };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor &one, const QColor &other)
{
    const double first = luminance(one) + 0.05;
    const double second = luminance(other) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

// The most that any pixel of a picture stands out against a colour, along the line through its middle.
double most(const QImage &image, const QRect &area, const QColor &against)
{
    double found = 0;
    for (int x = area.left(); x <= area.right(); ++x)
        found = std::max(found, contrast(image.pixelColor(x, area.center().y()), against));
    return found;
}

} // namespace

// What an outline has to be told from its surroundings by: a contrast of three to one.
class OutlineStyleTest final : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QPalette dark(QColor(0x2e, 0x32, 0x36), QColor(0x2b, 0x2e, 0x33));
        dark.setColor(QPalette::Base, QColor(0x1e, 0x20, 0x23));
        for (const QPalette::ColorRole role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
            dark.setColor(role, QColor(0xe6, 0xe8, 0xea));
        dark.setColor(QPalette::Highlight, QColor(0x2f, 0x65, 0xa0));
        QApplication::setPalette(dark);
        QApplication::setStyle(QStringLiteral("fusion"));
        OutlineStyle::use();
    }

    void aControlWithTheKeyboardHasAnOutlineInTheDark_data()
    {
        QTest::addColumn<std::shared_ptr<QWidget>>("control");
        QTest::newRow("button") << std::shared_ptr<QWidget>(new QPushButton);
        QTest::newRow("tool button") << std::shared_ptr<QWidget>(new QToolButton);
        QTest::newRow("field") << std::shared_ptr<QWidget>(new QLineEdit);
        QTest::newRow("choice") << std::shared_ptr<QWidget>(new QComboBox);
    }

    void aControlWithTheKeyboardHasAnOutlineInTheDark()
    {
        QFETCH(std::shared_ptr<QWidget>, control);
        QWidget window;
        QCheckBox other(&window);
        control->setParent(&window);
        control->setFocusPolicy(Qt::StrongFocus);
        control->setGeometry(10, 10, 80, 30);
        window.resize(100, 60);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        const QRect edge(8, 10, 5, 30);
        const QColor around = window.palette().color(QPalette::Window);
        other.setFocus();
        const double without = most(window.grab().toImage(), edge, around);
        control->setFocus();
        const double with = most(window.grab().toImage(), edge, around);
        control->setParent(nullptr);
        QVERIFY2(with >= 3.0 && with > without, qPrintable(QStringLiteral("%1, %2").arg(with).arg(without)));
    }

    void aDesktopsOwnStyleIsKept()
    {
        QApplication::setStyle(QStringLiteral("windows"));
        OutlineStyle::use();
        QVERIFY(dynamic_cast<OutlineStyle *>(QApplication::style()) == nullptr);
        QApplication::setStyle(QStringLiteral("fusion"));
        OutlineStyle::use();
    }

    void aBoxWithoutATickIsSeenInTheDark()
    {
        QCheckBox box;
        const QColor window = box.palette().color(QPalette::Window);
        QVERIFY(most(box.grab().toImage(), QRect(0, 0, 10, box.sizeHint().height()), window) >= 3.0);

        QTreeWidget list;
        auto *item = new QTreeWidgetItem(&list, {QString()});
        item->setCheckState(0, Qt::Unchecked);
        list.resize(200, 100);
        const QRect row = list.visualItemRect(item);
        const QColor base = list.palette().color(QPalette::Base);
        QVERIFY(most(list.viewport()->grab().toImage(), row, base) >= 3.0);
    }
};

QTEST_MAIN(OutlineStyleTest)
#include "tst_outlinestyle.moc"
