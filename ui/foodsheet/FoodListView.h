// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QListView>

class QLabel;

// A list of two parts, each under a heading. The headings are no rows, so that no key stops at them, no count has them,
// and all rows keep one height, which thousands of them need: the heading of the part that is in sight stands above the
// rows, and a line with the second heading parts the two.
class FoodListView final : public QListView {
    Q_OBJECT

public:
    explicit FoodListView(QWidget *parent = nullptr);

    // So many rows belong to the first part. No rows, or no first heading: the list has one part and no heading.
    void setParts(const QString &first, int firstrows, const QString &second);
    // The heading that stands above the rows, empty when there is none.
    [[nodiscard]] QString heading() const;

    void setModel(QAbstractItemModel *model) override;

protected:
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void showHeading();
    void placeHeading();

    QLabel *label;
    QString firstheading;
    QString secondheading;
    int boundary = 0;
};
