// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDate>
#include <QWidget>

#include <optional>

// A painted picture of many days with a cursor on one of them. It knows where its cursor is, not what the day came to:
// its owner hears that the cursor is to move, moves it, and says the sentence and the figure of the day, which a screen
// reader is told as the picture's description and value. A picture alone would say nothing to it.
class DayView : public QWidget {
    Q_OBJECT

public:
    explicit DayView(QWidget *parent);

    [[nodiscard]] QDate currentDay() const { return current; }
    // A day without a figure, or with one that is not finite, tells a screen reader of its sentence alone.
    void setCurrentDay(QDate day, const QString &sentence, std::optional<double> figure);
    [[nodiscard]] double currentFigure() const { return figure; }

signals:
    // A key or a click asks for the cursor to go there.
    void dayPointedAt(QDate day);
    // A key asks for the nutrient so many places further.
    void nutrientStepped(int steps);

protected:
    // Where a key would take the cursor; an invalid date for a key that moves nothing.
    [[nodiscard]] virtual QDate dayAfterKey(int key) const = 0;
    [[nodiscard]] virtual QDate dayAt(QPointF place) const = 0;
    // What stands around the picture while it has the keyboard.
    void paintFocus(QPainter &painter) const;

    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    QDate current;
    double figure = 0.0;
};
