// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

// What a start costs that shows anything to read: a main window with one line of text, whose font is to be found and
// whose letters are to be drawn.

#include <QApplication>
#include <QLabel>
#include <QMainWindow>

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    QMainWindow window;
    window.setCentralWidget(new QLabel(QStringLiteral("19 foods")));
    window.resize(1080, 680);
    window.show();
    return QApplication::exec();
}
