// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/historysheet/YearView.h"

#include "ui/historysheet/Shades.h"

#include <QLocale>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr double margin = 6.0;
constexpr int weekdays = 7;
constexpr double smallestcell = 5.0;
constexpr double largestcell = 16.0;

} // namespace

YearView::YearView(QWidget *parent)
    : DayView(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void YearView::setYear(const History::Year &shown, bool withallowance)
{
    year = shown;
    hasallowance = withallowance;
    update();
}

// As large as the width allows.
void YearView::resizeEvent(QResizeEvent *event)
{
    DayView::resizeEvent(event);
    setFixedHeight(sizeOfCells(cellSize()).height());
}

// The names of the months above the cells, the legend below them.
QSize YearView::sizeOfCells(double cell) const
{
    const double lines = 2.0 * fontMetrics().height() + 3.0 * margin;
    return {static_cast<int>(54 * cell + 2 * margin), static_cast<int>(weekdays * cell + lines)};
}

QSize YearView::sizeHint() const
{
    return sizeOfCells(10.0);
}

QSize YearView::minimumSizeHint() const
{
    return sizeOfCells(smallestcell);
}

double YearView::cellSize() const
{
    return std::clamp(std::floor((width() - 2 * margin) / 54), smallestcell, largestcell);
}

QRectF YearView::cellArea(QDate day) const
{
    const History::Cell &cell = year.cells[static_cast<std::size_t>(day.dayOfYear() - 1)];
    const double size = cellSize();
    const double top = margin + fontMetrics().height();
    return {margin + cell.week * size, top + cell.weekday * size, size - 1.0, size - 1.0};
}

QColor YearView::shade(int step) const
{
    return Shades::between(palette().color(QPalette::Base), palette().color(QPalette::Highlight),
        0.28 + 0.72 * step / (History::steps - 1));
}

QDate YearView::dayAfterKey(int key) const
{
    if (year.cells.empty())
        return {};
    const QDate first = year.cells.front().date;
    const QDate last = year.cells.back().date;
    const QDate from = std::clamp(currentDay().isValid() ? currentDay() : last, first, last);
    const auto inside = [&](QDate day) { return day.isValid() ? std::clamp(day, first, last) : from; };
    switch (key) {
    case Qt::Key_Left:
        return inside(from.addDays(-weekdays));
    case Qt::Key_Right:
        return inside(from.addDays(weekdays));
    case Qt::Key_Up:
        return inside(from.addDays(-1));
    case Qt::Key_Down:
        return inside(from.addDays(1));
    case Qt::Key_PageUp:
        return inside(from.addMonths(-1));
    case Qt::Key_PageDown:
        return inside(from.addMonths(1));
    case Qt::Key_Home:
        return first;
    case Qt::Key_End:
        return last;
    default:
        return {};
    }
}

QDate YearView::dayAt(QPointF place) const
{
    const auto found = std::find_if(year.cells.begin(), year.cells.end(),
        [&](const History::Cell &cell) { return cellArea(cell.date).contains(place); });
    return found == year.cells.end() ? QDate() : found->date;
}

void YearView::paintCell(QPainter &painter, const QRectF &area, const std::optional<int> &step) const
{
    if (step) {
        painter.fillRect(area, shade(*step));
        return;
    }
    painter.setPen(Shades::between(palette().color(QPalette::Base), palette().color(QPalette::Text), 0.3));
    painter.drawRect(area.adjusted(0.5, 0.5, -0.5, -0.5));
}

void YearView::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Base));
    painter.setBrush(Qt::NoBrush);
    for (const History::Cell &cell : year.cells)
        paintCell(painter, cellArea(cell.date), cell.step);
    if (!year.cells.empty()) {
        paintMonths(painter);
        paintLegend(painter);
    }
    if (currentDay().isValid() && currentDay().year() == year.year) {
        painter.setPen(QPen(palette().color(QPalette::Text), 2.0));
        painter.drawRect(cellArea(currentDay()));
    }
    paintFocus(painter);
}

void YearView::paintMonths(QPainter &painter) const
{
    painter.setPen(palette().color(QPalette::Text));
    double free = 0.0; // from here on nothing is written yet
    for (int month = 1; month <= 12; ++month) {
        const double left = cellArea({year.year, month, 1}).left();
        const QString name = QLocale().standaloneMonthName(month, QLocale::ShortFormat);
        if (left < free)
            continue;
        free = left + fontMetrics().horizontalAdvance(name) + margin / 2;
        painter.drawText(QPointF(left, margin / 2 + fontMetrics().ascent()), name);
    }
}

// The year, then a cell of each shade with what it stands for.
void YearView::paintLegend(QPainter &painter) const
{
    const double size = std::max(cellSize(), 8.0);
    const double top = 2 * margin + fontMetrics().height() + weekdays * cellSize();
    const double line = fontMetrics().height();
    double left = margin;
    const auto write = [&](const QString &text) {
        painter.setPen(palette().color(QPalette::Text));
        painter.drawText(QPointF(left, top + fontMetrics().ascent()), text);
        left += fontMetrics().horizontalAdvance(text) + margin;
    };
    const auto sample = [&](const std::optional<int> &step) {
        paintCell(painter, {left, top + std::floor((line - size) / 2), size, size}, step);
        left += size + margin / 2;
    };
    write(QLocale().toString(QDate(year.year, 1, 1), QStringLiteral("yyyy")) + u' ');
    sample({});
    write(tr("not logged"));
    const QString whole = tr("< 25 %, 25 %, 50 %, 75 %, \u2265 100 %");
    const QStringList shares = whole.split(QStringLiteral(", "));
    const double room = fontMetrics().horizontalAdvance(whole) + History::steps * (size + 1.5 * margin);
    if (hasallowance && left + room < width() && shares.size() == History::steps) {
        for (int step = 0; step < History::steps; ++step) {
            sample(step);
            write(shares[step]);
        }
        return;
    }
    write(tr("least"));
    for (int step = 0; step < History::steps; ++step)
        sample(step);
    write(tr("most"));
}
