// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/historysheet/CourseChart.h"

#include "ui/historysheet/HistoryText.h"
#include "ui/historysheet/Shades.h"

#include <QLocale>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr double labelgap = 4.0;
constexpr double gapheight = 3.0; // of the mark of a day that is not logged, below the axis

QPen linePen(const QColor &color, double width)
{
    return {color, width, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin};
}

QPen allowancePen(const QColor &color)
{
    return {color, 1.4, Qt::DashLine, Qt::FlatCap};
}

} // namespace

void CourseChart::paintEvent(QPaintEvent * /*event*/)
{
    if (picture.isNull() || picture.devicePixelRatio() != devicePixelRatioF())
        paintPicture();
    QPainter painter(this);
    painter.drawPixmap(0, 0, picture);
    if (!isempty)
        paintCursor(painter);
    paintFocus(painter);
}

void CourseChart::paintPicture()
{
    picture = QPixmap(size() * devicePixelRatioF());
    picture.setDevicePixelRatio(devicePixelRatioF());
    QPainter painter(&picture);
    painter.setFont(font());
    painter.fillRect(rect(), palette().color(QPalette::Base));
    if (isempty) {
        painter.setPen(palette().color(QPalette::Text));
        painter.drawText(rect(), static_cast<int>(Qt::AlignCenter) | Qt::TextWordWrap, emptytext);
    } else {
        paintAxis(painter);
        if (hasAllowance())
            paintPercents(painter);
        paintDates(painter);
        paintBars(painter);
        painter.setRenderHint(QPainter::Antialiasing);
        paintRunningMean(painter);
        if (hasAllowance())
            paintAllowance(painter);
        paintLegend(painter);
    }
}

void CourseChart::paintAxis(QPainter &painter) const
{
    const double line = fontMetrics().height();
    for (const double mark : axis.marks()) {
        const double y = std::round(heightOf(mark));
        painter.setPen(mark == 0.0 ? palette().color(QPalette::Text) : Shades::faint(palette()));
        painter.drawLine(QPointF(plot.left(), y), QPointF(plot.right(), y));
        painter.setPen(palette().color(QPalette::Text));
        painter.drawText(QRectF(0.0, y - line / 2, plot.left() - labelgap, line),
            static_cast<int>(Qt::AlignRight | Qt::AlignVCenter), axis.label(mark));
    }
    painter.drawText(QRectF(labelgap, 0.0, plot.left() + plot.width() / 3, plot.top() - labelgap),
        static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter), content.unit);
}

void CourseChart::paintPercents(QPainter &painter) const
{
    const double line = fontMetrics().height();
    painter.setPen(palette().color(QPalette::Text));
    for (const double mark : percents.marks()) {
        const double y = std::round(heightOf(mark / 100.0 * double(content.allowance)));
        if (y < plot.top() - 1.0 || y > plot.bottom() + 1.0)
            continue;
        painter.drawLine(QPointF(plot.right() - labelgap, y), QPointF(plot.right(), y));
        painter.drawText(QRectF(plot.right() + labelgap, y - line / 2, width() - plot.right() - labelgap, line),
            static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter), percents.label(mark) + QStringLiteral(" %"));
    }
}

void CourseChart::paintDates(QPainter &painter) const
{
    const std::vector<History::Bar> &bars = content.course.bars;
    const bool withyear = content.period.days() > 400;
    const QString format = withyear ? QStringLiteral("MMM yyyy") : QStringLiteral("d MMM");
    const double slot = plot.width() / double(bars.size());
    const double room
        = fontMetrics().horizontalAdvance(withyear ? QStringLiteral("MMM 0000M") : QStringLiteral("00 MMMM"));
    auto each = static_cast<std::size_t>(std::max(1.0, std::ceil(room / slot)));
    if (withyear && content.course.grouping == History::Grouping::Week)
        each = std::max(each, std::size_t(5)); // a month is named once
    painter.setPen(palette().color(QPalette::Text));
    for (std::size_t i = 0; i < bars.size(); i += each) {
        const double left = leftOf(bars[i].days.first);
        const double right = bars.size() > each ? left + room : leftOf(bars[i].days.last.addDays(1));
        if (bars.size() > each && i > 0 && right > width())
            break;
        const bool under = each == 1; // with room for each, it stands in the middle of its bar
        const QRectF box(left, plot.bottom() + labelgap, under ? slot : room, fontMetrics().height());
        painter.drawText(box, static_cast<int>((under ? Qt::AlignHCenter : Qt::AlignLeft) | Qt::AlignTop),
            QLocale().toString(bars[i].days.first, format));
    }
}

void CourseChart::paintBars(QPainter &painter) const
{
    const QColor fill = palette().color(QPalette::Highlight);
    const QColor text = palette().color(QPalette::Text);
    const double zero = heightOf(0.0);
    int paintedcolumn = -1; // where bars are narrower than a pixel, the tallest of a pixel's shows
    double paintedheight = 0.0;
    for (const History::Bar &bar : content.course.bars) {
        const QRectF area = barArea(bar);
        if (bar.loggeddays == 0) {
            painter.fillRect(QRectF(area.left(), plot.bottom() + 1.0, std::max(area.width(), 1.0), gapheight), text);
            continue;
        }
        const auto column = static_cast<int>(area.left());
        if (area.width() < 1.0 && column == paintedcolumn && area.height() <= paintedheight)
            continue;
        paintedcolumn = column;
        paintedheight = area.height();
        if (!std::isfinite(bar.mean)) {
            painter.fillRect(area, QBrush(text, Qt::BDiagPattern));
            continue;
        }
        painter.fillRect(QRectF(area.left(), area.top(), std::max(area.width(), 1.0), area.height()), fill);
    }
    painter.setPen(text);
    painter.drawLine(QPointF(plot.left(), std::round(zero)), QPointF(plot.right(), std::round(zero)));
}

void CourseChart::paintRunningMean(QPainter &painter) const
{
    const double dayhalf = plot.width() / content.period.days() / 2.0;
    QPolygonF line;
    const auto draw = [&](const QPen &pen) {
        painter.setPen(pen);
        if (line.size() == 1)
            painter.drawLine(line.first() - QPointF(dayhalf, 0.0), line.first() + QPointF(dayhalf, 0.0));
        // Piece by piece: the time that the outline of a long line takes grows faster than its length.
        constexpr int piece = 8;
        for (int i = 0; i + 1 < line.size(); i += piece)
            painter.drawPolyline(line.constData() + i, std::min(piece + 1, static_cast<int>(line.size()) - i));
    };
    const auto finish = [&] {
        if (line.isEmpty())
            return;
        draw(linePen(palette().color(QPalette::Base), 4.0)); // so that it shows on the bars too
        draw(linePen(palette().color(QPalette::Text), 1.8));
        line.clear();
    };
    QDate before;
    for (const History::RunningMean &mean : content.course.running) {
        if (before.isValid() && before.addDays(1) != mean.day)
            finish();
        before = mean.day;
        if (!std::isfinite(mean.mean)) {
            finish();
            continue;
        }
        const QPointF point(leftOf(mean.day) + dayhalf, heightOf(mean.mean));
        // More points than pixels would be painted over each other.
        if (line.isEmpty() || point.x() - line.last().x() >= 0.5)
            line.append(point);
    }
    finish();
}

void CourseChart::paintAllowance(QPainter &painter) const
{
    const double y = heightOf(double(content.allowance));
    painter.setPen(allowancePen(palette().color(QPalette::Text)));
    painter.drawLine(QPointF(plot.left(), y), QPointF(plot.right(), y));
}

void CourseChart::paintCursor(QPainter &painter) const
{
    if (!content.period.contains(currentDay()))
        return;
    const History::Bar &bar = content.course.bars[History::barOf(content.course, currentDay())];
    const QRectF area(QPointF(leftOf(bar.days.first), plot.top()),
        QPointF(leftOf(bar.days.last.addDays(1)), plot.bottom() + gapheight + 1.0));
    painter.setPen(palette().color(QPalette::Text));
    painter.setBrush(Qt::NoBrush);
    if (area.width() >= 4.0)
        painter.drawRect(area.adjusted(0.5, 0.5, -0.5, -0.5));
    const double middle = (leftOf(currentDay()) + leftOf(currentDay().addDays(1))) / 2.0;
    if (area.width() < 4.0)
        painter.drawLine(QPointF(middle, area.top()), QPointF(middle, area.bottom()));
    const double half = 4.0;
    painter.setBrush(palette().color(QPalette::Text));
    painter.drawPolygon(QPolygonF({QPointF(middle - half, plot.top() - half), QPointF(middle + half, plot.top() - half),
        QPointF(middle, plot.top() + 1.0)}));
    painter.setBrush(Qt::NoBrush);
}

// The names of the lines, from the right.
void CourseChart::paintLegend(QPainter &painter) const
{
    const QColor text = palette().color(QPalette::Text);
    const double middle = plot.top() / 2.0;
    const double sample = 2.0 * fontMetrics().height();
    double right = width() - 2 * labelgap;
    const auto name = [&](const QString &what, const QPen &pen) {
        const double wide = fontMetrics().horizontalAdvance(what);
        if (right - wide - labelgap - sample < plot.left() + fontMetrics().horizontalAdvance(content.unit))
            return; // no room beside the unit
        painter.setPen(text);
        painter.drawText(QRectF(right - wide, 0.0, wide + 1.0, plot.top()),
            static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter), what);
        right -= wide + labelgap;
        painter.setPen(pen);
        painter.drawLine(QPointF(right - sample, middle), QPointF(right, middle));
        right -= sample + 3 * labelgap;
    };
    if (hasAllowance())
        name(tr("allowance"), allowancePen(text));
    name(tr("mean of seven days"), linePen(text, 1.8));
}
