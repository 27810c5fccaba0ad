// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QLineEdit>

// A line edit that gives out what an input method is still composing in it. Qt's own can only ask the input method to
// commit; one that does not answer leaves the shown digits out of the text, and an empty amount is 0.
class TextField : public QLineEdit {
    Q_OBJECT

public:
    explicit TextField(QWidget *parent = nullptr);

    // What is being composed becomes part of the text. To be called before the text is taken.
    void commitComposition();

protected:
    void inputMethodEvent(QInputMethodEvent *event) override;

private:
    QString composition;
};
