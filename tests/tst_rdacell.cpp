// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/table/TableView.h"
#include "ui/table/TableViewDataSource.h"
#include "ui/table/TableViewDelegate.h"
#include "ui/table/TextFieldCellRDA.h"

#include <QHeaderView>
#include <QImage>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QStyleOptionViewItem>
#include <QtTest>

#include <cmath>
#include <limits>

namespace {

constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr float notanumber = std::numeric_limits<float>::quiet_NaN();

QPalette lightPalette()
{
    QPalette palette(QColor(239, 239, 239), QColor(239, 239, 239));
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Text, Qt::black);
    palette.setColor(QPalette::Disabled, QPalette::Text, QColor(190, 190, 190));
    palette.setColor(QPalette::Highlight, QColor(48, 140, 198));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

QPalette darkPalette()
{
    QPalette palette(QColor(53, 53, 53), QColor(53, 53, 53));
    palette.setColor(QPalette::Base, QColor(35, 35, 35));
    palette.setColor(QPalette::Text, QColor(240, 240, 240));
    palette.setColor(QPalette::Disabled, QPalette::Text, QColor(110, 110, 110));
    palette.setColor(QPalette::Highlight, QColor(42, 130, 218));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

double luminance(QRgb color)
{
    const auto part = [](int value) {
        const double c = value / 255.0;
        return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(qRed(color)) + 0.7152 * part(qGreen(color)) + 0.0722 * part(qBlue(color));
}

double contrast(QRgb one, QRgb other)
{
    const double a = luminance(one);
    const double b = luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

// What is painted of a widget from now on.
class PaintedRegion final : public QObject {
public:
    explicit PaintedRegion(QWidget *widget) { widget->installEventFilter(this); }

    QRegion region;

protected:
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            region += static_cast<QPaintEvent *>(event)->region();
        return false;
    }
};

// Three rows, a name and a bar, as the nutrient table has them; the middle one has the bar.
class BarSource final : public TableViewDataSource, public TableViewDelegate {
public:
    float ratio = 0.0F;
    QString text;

    int numberOfRowsInTableView(const TableView * /*table*/) const override { return 3; }
    QVariant objectValueForTableColumn(const TableView * /*table*/, const QString & /*column*/, int row) override
    {
        return row == 1 ? text : QString();
    }
    void setObjectValue(
        const TableView * /*table*/, const QVariant & /*value*/, const QString & /*column*/, int /*row*/) override
    { }
    void willDisplayCell(const TableView * /*table*/, TableCell &cell, const QString & /*column*/, int row) override
    {
        if (auto *bar = dynamic_cast<TextFieldCellRDA *>(&cell)) {
            bar->setPercent(row == 1 ? ratio : 0.0F);
            bar->setDrawsBackground(row == 1);
            bar->setBackgroundColor(Qt::transparent);
        }
    }
    std::optional<QList<int>> selectionIndexesForProposedSelection(
        const TableView * /*table*/, const QList<int> & /*proposed*/) override
    {
        return std::nullopt;
    }
    void tableViewSelectionDidChange() override { }
    Tip toolTipForCell(const TableView * /*table*/, const QString & /*column*/, int /*row*/) override { return {}; }
};

class BarTable final {
public:
    explicit BarTable(const QPalette &palette)
    {
        view.setStyle(style.get());
        view.setPalette(palette);
        view.addTableColumn({QStringLiteral("Name"), QStringLiteral("Name"), nullptr, false});
        view.addTableColumn(
            {QStringLiteral("Amount"), QStringLiteral("Amount"), std::make_unique<TextFieldCellRDA>(), false});
        view.cellForColumn(QStringLiteral("Amount"))->setAlignment(Qt::AlignRight);
        view.setDataSource(&source);
        view.setDelegate(&source);
        view.resize(400, 200);
        view.setColumnWidth(0, 100);
        view.setColumnWidth(1, 100);
        view.reloadData();
    }

    QImage grab(float ratio, const QString &text = {})
    {
        source.ratio = ratio;
        source.text = text;
        view.reloadData();
        return view.viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
    }

    // The bar cell without the line left free below it.
    QRect frame() const { return view.visualRect(view.model()->index(1, 1)).adjusted(0, 0, 0, -1); }

    std::unique_ptr<QStyle> style{QStyleFactory::create(QStringLiteral("Fusion"))};
    BarSource source;
    TableView view;
};

// Notes the states of the panels it is asked for.
class PanelStyle final : public QProxyStyle {
public:
    void drawPrimitive(
        PrimitiveElement element, const QStyleOption *option, QPainter *painter, const QWidget *widget) const override
    {
        if (element == PE_PanelItemViewItem)
            panels.append(option->state);
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }

    mutable QList<QStyle::State> panels;
};

// How far one colour reaches from the frame's left edge along the middle of the row.
int lengthOf(const QImage &image, const QRect &frame, QColor color)
{
    const int y = frame.center().y();
    int length = 0;
    while (frame.left() + length < image.width() && image.pixel(frame.left() + length, y) == color.rgb())
        ++length;
    return length;
}

} // namespace

class RdaCellTest final : public QObject {
    Q_OBJECT

private slots:
    void theRatioIsKeptAsItIs()
    {
        TextFieldCellRDA cell;
        QCOMPARE(cell.percent(), 0.0F);
        for (const float ratio : {1.5F, -3.0F, infinity}) {
            cell.setPercent(ratio);
            QCOMPARE(cell.percent(), ratio);
        }
        cell.setPercent(notanumber);
        QVERIFY(std::isnan(cell.percent()));
    }

    void aClearedCellHasNoBar()
    {
        TextFieldCellRDA cell;
        cell.setObjectValue(QStringLiteral("150 %"));
        cell.setPercent(1.5F);
        cell.setDrawsBackground(true);
        cell.clear();
        QCOMPARE(cell.percent(), 0.0F);
        QVERIFY(!cell.drawsBackground());
        QCOMPARE(cell.stringValue(), QString());
    }

    void theBarIsPaintedOnATurnedPainterToo()
    {
        QImage image(200, 200, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.rotate(90);
        painter.translate(0, -20);
        TextFieldCellRDA cell;
        cell.setPercent(2.0F);
        cell.drawWithFrame(painter, {0, 0, 50, 20}, QStyleOptionViewItem());
        QCOMPARE(image.pixelColor(10, 95), QColor(Qt::red)); // twice the width, downwards
        QCOMPARE(image.pixelColor(10, 105), QColor(Qt::white));
    }

    void noFrameHasASelectionColour()
    {
        const TextFieldCellRDA cell;
        QStyleOptionViewItem option;
        option.state |= QStyle::State_Selected | QStyle::State_Enabled | QStyle::State_Active;
        QVERIFY(!cell.highlightColorWithFrame({}, option).isValid());
        QVERIFY(!cell.highlightColorWithFrame({10, 10, 500, 20}, option).isValid());
        QVERIFY(TableCell().highlightColorWithFrame({}, option).isValid());
    }

    void theColourTurnsFromWhiteToRed_data()
    {
        QTest::addColumn<float>("ratio");
        QTest::addColumn<QColor>("color");
        QTest::newRow("hardly anything is white") << 1e-6F << QColor(255, 255, 255);
        QTest::newRow("half is 1, 0.7, 0.7") << 0.5F << QColor::fromRgbF(1.0F, 0.7F, 0.7F);
        QTest::newRow("all is 1, 0.4, 0.4") << 1.0F << QColor::fromRgbF(1.0F, 0.4F, 0.4F);
        QTest::newRow("one and a half is 1, 0.1, 0.1") << 1.5F << QColor::fromRgbF(1.0F, 0.1F, 0.1F);
        QTest::newRow("twice is pure red") << 2.0F << QColor(255, 0, 0);
        QTest::newRow("infinity is pure red") << infinity << QColor(255, 0, 0);
    }

    void theColourTurnsFromWhiteToRed()
    {
        QFETCH(float, ratio);
        QFETCH(QColor, color);
        QCOMPARE(TextFieldCellRDA::barColor(ratio).rgb(), color.rgb());
    }

    void theBarIsTheRatioOfTheWidth_data()
    {
        QTest::addColumn<float>("ratio");
        QTest::addColumn<QRectF>("bar");
        QTest::newRow("0 is no bar") << 0.0F << QRectF();
        QTest::newRow("minus 0 is no bar") << -0.0F << QRectF();
        QTest::newRow("a negative ratio is no bar") << -1.0F << QRectF();
        QTest::newRow("negative infinity is no bar") << -infinity << QRectF();
        QTest::newRow("not a number is no bar") << notanumber << QRectF();
        QTest::newRow("half") << 0.5F << QRectF(100, 20, 50, 10);
        QTest::newRow("all") << 1.0F << QRectF(100, 20, 100, 10);
        QTest::newRow("three cells") << 3.0F << QRectF(100, 20, 300, 10);
        QTest::newRow("up to the end of the bounds") << 4.0F << QRectF(100, 20, 400, 10);
        QTest::newRow("no further than the bounds") << 5.0F << QRectF(100, 20, 400, 10);
        QTest::newRow("longer than 32 bits of pixels") << 1e9F << QRectF(100, 20, 400, 10);
        QTest::newRow("the largest float") << std::numeric_limits<float>::max() << QRectF(100, 20, 400, 10);
        QTest::newRow("infinity") << infinity << QRectF(100, 20, 400, 10);
    }

    void theBarIsTheRatioOfTheWidth()
    {
        QFETCH(float, ratio);
        QTEST(TextFieldCellRDA::barRectangle(ratio, {100, 20, 100, 10}, {0, 0, 500, 300}), "bar");
    }

    void aFrameWithoutWidthHasNoBar()
    {
        QVERIFY(TextFieldCellRDA::barRectangle(infinity, {100, 20, 0, 10}, {0, 0, 500, 300}).isEmpty());
    }

    void aFrameScrolledOutToTheLeftKeepsItsEnd()
    {
        QCOMPARE(TextFieldCellRDA::barRectangle(1.0F, {-60, 20, 100, 10}, {0, 0, 500, 300}), QRectF(0, 20, 40, 10));
    }

    void theBarIsPainted_data()
    {
        QTest::addColumn<float>("ratio");
        QTest::addColumn<int>("length");
        QTest::addColumn<QColor>("color");
        const QColor red(255, 0, 0);
        QTest::newRow("0") << 0.0F << 0 << red;
        QTest::newRow("0.5") << 0.5F << 50 << QColor::fromRgbF(1.0F, 0.7F, 0.7F);
        QTest::newRow("1") << 1.0F << 100 << QColor::fromRgbF(1.0F, 0.4F, 0.4F);
        QTest::newRow("1.5 runs past the cell") << 1.5F << 150 << QColor::fromRgbF(1.0F, 0.1F, 0.1F);
        QTest::newRow("2 is two cells") << 2.0F << 200 << red;
        QTest::newRow("3 fills the viewport") << 3.0F << -1 << red;
        QTest::newRow("infinity fills the viewport") << infinity << -1 << red;
        QTest::newRow("negative") << -1.0F << 0 << red;
        QTest::newRow("negative infinity") << -infinity << 0 << red;
        QTest::newRow("not a number") << notanumber << 0 << red;
    }

    // In both themes.
    void theBarIsPainted()
    {
        QFETCH(float, ratio);
        QFETCH(int, length);
        QFETCH(QColor, color);
        for (const QPalette &palette : {lightPalette(), darkPalette()}) {
            BarTable table(palette);
            const QImage image = table.grab(ratio);
            const QRect frame = table.frame();
            const int whole = image.width() - frame.left();
            const int expected = length < 0 ? whole : std::min(length, whole);
            QCOMPARE(lengthOf(image, frame, color), expected);
            QCOMPARE(lengthOf(image, frame.translated(0, table.view.rowHeight(1)), color), 0);
            if (expected == 0)
                continue;
            const QRgb bar = color.rgb();
            QCOMPARE(image.pixel(frame.left(), frame.top()), bar);
            QCOMPARE(image.pixel(frame.left(), frame.bottom()), bar);
            QVERIFY(image.pixel(frame.left(), frame.top() - 1) != bar);
            QVERIFY(image.pixel(frame.left(), frame.bottom() + 1) != bar);
            QVERIFY(image.pixel(frame.left() - 1, frame.center().y()) != bar);
            if (expected < whole)
                QCOMPARE(image.pixel(frame.left() + expected, frame.center().y()), palette.color(QPalette::Base).rgb());
        }
    }

    void aRatioOfThreeIsThreeCellsWideWhereThereIsRoom()
    {
        BarTable table(lightPalette());
        table.view.setColumnWidth(1, 50);
        QCOMPARE(lengthOf(table.grab(3.0F), table.frame(), Qt::red), 150);
    }

    void nothingIsLeftOfALongerBar()
    {
        BarTable table(lightPalette());
        table.view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&table.view));
        table.source.ratio = 2.5F;
        table.view.reloadData();
        QCoreApplication::processEvents();
        const PaintedRegion painted(table.view.viewport());
        table.source.ratio = 0.25F;
        table.view.reloadData();
        QCoreApplication::processEvents();
        const QRect row(table.frame().topLeft(), QPoint(table.view.viewport()->width() - 1, table.frame().bottom()));
        QVERIFY((QRegion(row) - painted.region).isEmpty());
        const QImage shown = table.grab(0.25F);
        QCOMPARE(lengthOf(shown, table.frame(), QColor::fromRgbF(1.0F, 0.85F, 0.85F)), 25);
    }

    // Only a strip to the right of the last column is exposed, as when something lay over it.
    void theEndBehindTheCellIsPaintedOnItsOwn()
    {
        BarTable table(lightPalette());
        table.grab(1.5F);
        QImage image(table.view.viewport()->size(), QImage::Format_RGB32);
        image.fill(Qt::green);
        const QRect strip(table.frame().right() + 10, 0, 20, image.height());
        table.view.viewport()->render(&image, strip.topLeft(), strip, QWidget::DrawWindowBackground);
        QCOMPARE(image.pixel(strip.left() + 5, table.frame().center().y()), QColor::fromRgbF(1.0F, 0.1F, 0.1F).rgb());
    }

    void theBarMeetsTheRestOnAPixelAtEveryScale_data()
    {
        QTest::addColumn<double>("scale");
        QTest::newRow("100 %") << 1.0;
        QTest::newRow("150 %") << 1.5;
        QTest::newRow("200 %") << 2.0;
    }

    void theBarMeetsTheRestOnAPixelAtEveryScale()
    {
        QFETCH(double, scale);
        BarTable table(darkPalette());
        table.grab(0.333F, QStringLiteral("33 % of what one needs"));
        const QSize size = table.view.viewport()->size();
        QImage image(size * scale, QImage::Format_RGB32);
        image.setDevicePixelRatio(scale);
        table.view.viewport()->render(&image);
        const QColor bar = TextFieldCellRDA::barColor(0.333F);
        const int y = int((table.frame().top() + 1) * scale); // above the letters
        const int left = int(std::round(table.frame().left() * scale));
        const int end = left + int(std::round(33.3 * scale));
        for (int x = left; x < int(table.frame().right() * scale); ++x)
            QCOMPARE(image.pixel(x, y), x < end ? bar.rgb() : darkPalette().color(QPalette::Base).rgb());
    }

    void theTextIsBlackOnTheBarAndThePalettesBesideIt()
    {
        BarTable table(darkPalette());
        table.view.cellForColumn(QStringLiteral("Amount"))->setAlignment(Qt::AlignLeft);
        const QString text = QStringLiteral("MMMMMMMM");
        const QImage image = table.grab(0.5F, text);
        const QRect frame = table.frame();
        int darkest = 255;
        int lightest = 0;
        for (int y = frame.top(); y <= frame.bottom(); ++y) {
            for (int x = frame.left(); x < frame.left() + 50; ++x)
                darkest = std::min(darkest, qRed(image.pixel(x, y)));
            for (int x = frame.left() + 50; x <= frame.right(); ++x)
                lightest = std::max(lightest, qRed(image.pixel(x, y)));
        }
        QVERIFY2(darkest < 40, qPrintable(QString::number(darkest)));
        QVERIFY2(lightest > 200, qPrintable(QString::number(lightest)));
    }

    void theStylesPanelLiesBelowAndIsNeverASelectedOne()
    {
        PanelStyle style;
        QWidget widget;
        widget.setStyle(&style);
        QImage image(200, 20, QImage::Format_RGB32);
        QPainter painter(&image);
        QStyleOptionViewItem option;
        option.widget = &widget;
        option.state = QStyle::State_Enabled | QStyle::State_Selected | QStyle::State_MouseOver;
        TextFieldCellRDA().drawWithFrame(painter, {0, 0, 200, 20}, option);
        QCOMPARE(style.panels.size(), 1);
        QVERIFY(!style.panels.first().testFlag(QStyle::State_Selected));
        QVERIFY(style.panels.first().testFlag(QStyle::State_MouseOver));
        TableCell().drawWithFrame(painter, {0, 0, 200, 20}, option);
        QVERIFY(style.panels.last().testFlag(QStyle::State_Selected));
    }

    void anOpaqueBackgroundIsPaintedOverTheBarAndATransparentOneIsNot()
    {
        QImage image(200, 20, QImage::Format_RGB32);
        TextFieldCellRDA cell;
        cell.setPercent(2.0F);
        cell.setBackgroundColor(Qt::blue);
        const auto pixel = [&] {
            image.fill(Qt::white);
            QPainter painter(&image);
            cell.drawWithFrame(painter, {0, 0, 200, 20}, QStyleOptionViewItem());
            return image.pixelColor(50, 10);
        };
        QVERIFY(!cell.drawsBackground());
        QCOMPARE(pixel(), QColor(Qt::red));
        cell.setDrawsBackground(true);
        QCOMPARE(pixel(), QColor(Qt::blue));
        cell.setBackgroundColor(Qt::transparent);
        QCOMPARE(pixel(), QColor(Qt::red));
    }

    void theTextOverTheBarIsReadable_data()
    {
        QTest::addColumn<float>("ratio");
        QTest::addColumn<bool>("dark");
        QTest::addColumn<QString>("state");
        for (const float ratio : {0.01F, 0.5F, 1.0F, 1.6F, 3.0F}) {
            for (const bool dark : {false, true}) {
                for (const char *state : {"normal", "hovered", "disabled", "inactive"}) {
                    QTest::addRow("%s, %s, ratio %g", dark ? "dark" : "light", state, double(ratio))
                        << ratio << dark << QString::fromLatin1(state);
                }
            }
        }
    }

    // The darkest pixel of the text against the bar beside it. The text is set to the left and starts at the edge, so
    // that the shortest bar has some of it.
    void theTextOverTheBarIsReadable()
    {
        QFETCH(float, ratio);
        QFETCH(bool, dark);
        QFETCH(QString, state);
        BarTable table(dark ? darkPalette() : lightPalette());
        table.grab(0.0F);
        const QRect rectangle(0, 0, 1000, 24); // a hundredth of it is still a letter
        QStyleOptionViewItem option;
        option.initFrom(&table.view);
        option.widget = &table.view;
        option.rect = rectangle;
        option.font = table.view.font();
        option.state = QStyle::State_None;
        option.state.setFlag(QStyle::State_Enabled, state != QStringLiteral("disabled"));
        option.state.setFlag(QStyle::State_Active, state != QStringLiteral("inactive"));
        option.state.setFlag(QStyle::State_MouseOver, state == QStringLiteral("hovered"));
        table.view.viewport()->resize(1000, 100);

        TextFieldCellRDA cell;
        cell.setObjectValue(QStringLiteral("M 123.45 mg"));
        cell.setPercent(ratio);
        QImage image(rectangle.size(), QImage::Format_RGB32);
        image.fill(table.view.palette().color(QPalette::Base));
        {
            QPainter painter(&image);
            cell.drawWithFrame(painter, rectangle, option);
        }
        const QRgb bar = TextFieldCellRDA::barColor(ratio).rgb();
        QCOMPARE(image.pixel(0, 0), bar);
        QRgb darkest = bar;
        const int end = std::min(int(std::round(1000 * ratio)), 1000);
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < end; ++x) {
                if (luminance(image.pixel(x, y)) < luminance(darkest))
                    darkest = image.pixel(x, y);
            }
        }
        const double measured = contrast(darkest, bar);
        QVERIFY2(measured >= 4.5, qPrintable(QString::number(measured)));
    }
};

QTEST_MAIN(RdaCellTest)
#include "tst_rdacell.moc"
