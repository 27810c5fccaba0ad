// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

// What a start costs at the least: a main window with nothing in it.

#include <QApplication>
#include <QMainWindow>

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    QMainWindow window;
    window.resize(1080, 680);
    window.show();
    return QApplication::exec();
}
