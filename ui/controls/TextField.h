// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QLineEdit>

// A line edit that gives out what an input method is still composing in it. Qt's own can only ask the input method to
// commit; one that does not answer leaves the shown digits out of the text, and an empty amount is 0. What is composed
// is committed when the focus goes to another field, and forgotten with the field's being hidden.
class TextField : public QLineEdit {
    Q_OBJECT

public:
    explicit TextField(QWidget *parent = nullptr);

    // What is being composed becomes part of the text. To be called before the text is taken.
    void commitComposition();
    void dropComposition();

protected:
    void focusOutEvent(QFocusEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;

private:
    QString composition;
};
