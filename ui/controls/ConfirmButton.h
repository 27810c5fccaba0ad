// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPushButton>

// A button for what cannot be taken back: the first press only turns its text into a question, the second one confirms.
// The question is withdrawn when the focus leaves the button. A box that asks the same would take the keyboard away.
class ConfirmButton final : public QPushButton {
    Q_OBJECT
    Q_PROPERTY(QString question READ question WRITE setQuestion)

public:
    explicit ConfirmButton(QWidget *parent = nullptr);

    [[nodiscard]] const QString &question() const { return questiontext; }
    void setQuestion(const QString &text) { questiontext = text; }

signals:
    void confirmed();

protected:
    // The second press of a double click has not read the question.
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void press();
    void withdraw();

    QString questiontext;
    QString usualtext; // while the question is shown
};
