// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/historysheet/CourseChart.h"

#include "ui/historysheet/HistoryText.h"

#include <QEvent>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr double margin = 6.0;

int widestLabel(const ChartAxis &axis, const QFontMetrics &metrics, const QString &after)
{
    int widest = 0;
    for (const double mark : axis.marks())
        widest = std::max(widest, metrics.horizontalAdvance(axis.label(mark) + after));
    return widest;
}

} // namespace

CourseChart::CourseChart(QWidget *parent)
    : DayView(parent)
{
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    policy.setVerticalStretch(1);
    setSizePolicy(policy);
    layOut();
}

void CourseChart::setContent(Content shown)
{
    content = std::move(shown);
    isempty = std::none_of(content.course.bars.begin(), content.course.bars.end(),
        [](const History::Bar &bar) { return bar.loggeddays > 0; });
    layOut();
    update();
}

void CourseChart::setEmptyText(const QString &text)
{
    emptytext = text;
    picture = QPixmap();
    update();
}

// The axis and the room that its labels leave.
void CourseChart::layOut()
{
    picture = QPixmap();
    double low = 0.0;
    double high = hasAllowance() ? double(content.allowance) : 0.0;
    const auto show = [&](double amount) {
        if (!std::isfinite(amount))
            return;
        low = std::min(low, amount);
        high = std::max(high, amount);
    };
    for (const History::Bar &bar : content.course.bars)
        show(bar.mean);
    for (const History::RunningMean &mean : content.course.running)
        show(mean.mean);

    const QFontMetrics metrics = fontMetrics();
    const double line = metrics.height();
    const double top = margin + line + margin; // the legend
    const double bottom = height() - margin - line - margin;
    const int steps = std::clamp(static_cast<int>((bottom - top) / (2.5 * line)), 1, 8);
    axis = ChartAxis::over(low, high, steps);
    double right = width() - margin - metrics.averageCharWidth();
    if (hasAllowance()) {
        const double allowance = double(content.allowance);
        percents = ChartAxis::over(axis.low / allowance * 100.0, axis.high / allowance * 100.0, steps);
        right -= widestLabel(percents, metrics, QStringLiteral(" %"));
    }
    const double left = 2 * margin + widestLabel(axis, metrics, {});
    plot = QRectF(QPointF(left, top), QPointF(std::max(right, left + 1.0), std::max(bottom, top + 1.0)));
}

QRectF CourseChart::plotArea() const
{
    return plot;
}

double CourseChart::heightOf(double amount) const
{
    return plot.bottom() - (amount - axis.low) / (axis.high - axis.low) * plot.height();
}

double CourseChart::leftOf(QDate day) const
{
    return plot.left() + double(content.period.first.daysTo(day)) / content.period.days() * plot.width();
}

QRectF CourseChart::barArea(const History::Bar &bar) const
{
    const double left = leftOf(bar.days.first);
    const double right = leftOf(bar.days.last.addDays(1));
    const double gap = std::min((right - left) / 6.0, 3.0);
    // What is no number, or infinite, takes the whole height.
    const double amount = std::isfinite(bar.mean) ? bar.mean : axis.high;
    const QPointF from(left + gap, heightOf(std::max(amount, 0.0)));
    const QPointF to(right - gap, heightOf(std::min(amount, 0.0)));
    return {from, to};
}

QDate CourseChart::dayAfterKey(int key) const
{
    const History::Period &period = content.period;
    const QDate from = std::clamp(currentDay(), period.first, period.last);
    const auto inside = [&](QDate day) { return day.isValid() ? std::clamp(day, period.first, period.last) : from; };
    // By a week, or to the same day of the bar before or after.
    const auto byGroup = [&](int direction) {
        return content.course.grouping == History::Grouping::Month ? from.addMonths(direction)
                                                                   : from.addDays(7 * direction);
    };
    switch (key) {
    case Qt::Key_Left:
        return inside(from.addDays(-1));
    case Qt::Key_Right:
        return inside(from.addDays(1));
    case Qt::Key_PageUp:
        return inside(byGroup(-1));
    case Qt::Key_PageDown:
        return inside(byGroup(1));
    case Qt::Key_Home:
        return period.first;
    case Qt::Key_End:
        return period.last;
    default:
        return {};
    }
}

QDate CourseChart::dayAt(QPointF place) const
{
    const History::Period &period = content.period;
    if (isempty || place.x() < plot.left() || place.x() >= plot.right())
        return {};
    const auto number = static_cast<qint64>((place.x() - plot.left()) / plot.width() * period.days());
    return period.first.addDays(std::clamp(number, qint64(0), qint64(period.days()) - 1));
}

void CourseChart::resizeEvent(QResizeEvent *event)
{
    DayView::resizeEvent(event);
    layOut();
}

void CourseChart::changeEvent(QEvent *event)
{
    DayView::changeEvent(event);
    if (event->type() != QEvent::ActivationChange)
        layOut(); // for another font, style or palette
}
