// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

// grab-screen <picture.png>: waits until something is painted on the (virtual) screen and saves it, without the black
// border that a display with no window manager leaves around a window. A program of ours because the alternatives
// would each be one more package for people who only want to see the window.

#include <QGuiApplication>
#include <QImage>
#include <QPixmap>
#include <QScreen>

#include <chrono>
#include <cstdio>
#include <thread>

namespace {

constexpr int tries = 150;
constexpr std::chrono::milliseconds pause{100};

// The smallest rectangle that holds every pixel that is not black; empty when all of them are.
QRect painted(const QImage &screen)
{
    int left = screen.width();
    int right = -1;
    int top = screen.height();
    int bottom = -1;
    for (int y = 0; y < screen.height(); ++y) {
        for (int x = 0; x < screen.width(); ++x) {
            if (screen.pixel(x, y) == qRgb(0, 0, 0))
                continue;
            left = qMin(left, x);
            right = qMax(right, x);
            top = qMin(top, y);
            bottom = y;
        }
    }
    return QRect(QPoint(left, top), QPoint(right, bottom));
}

bool isOneColour(const QImage &picture)
{
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) != picture.pixel(0, 0))
                return false;
        }
    }
    return true; // GCOVR_EXCL_LINE: only when it is quicker than the program that paints
}

// What the screen shows once it is painted and has stopped changing; a null image when that never happens.
QImage settledScreen(QScreen &screen)
{
    QImage before;
    for (int attempt = 0; attempt < tries; ++attempt) {
        const QImage now = screen.grabWindow(0).toImage().convertToFormat(QImage::Format_RGB32);
        if (now == before && !isOneColour(now)) {
            const QImage window = now.copy(painted(now));
            if (!isOneColour(window))
                return window;
        }
        before = now;
        std::this_thread::sleep_for(pause);
    }
    return {}; // GCOVR_EXCL_LINE: it takes all of 15 seconds to get here
}

} // namespace

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    if (argc != 2) {
        std::fputs("usage: grab-screen <picture.png>\n", stderr);
        return 2;
    }
    const QImage picture = settledScreen(*QGuiApplication::primaryScreen());
    if (picture.isNull()) {
        std::fputs("grab-screen: nothing was painted on the screen\n", stderr); // GCOVR_EXCL_LINE: after those 15 s
        return 1; // GCOVR_EXCL_LINE: after those 15 s
    }
    if (!picture.save(QString::fromLocal8Bit(argv[1]))) {
        std::fprintf(stderr, "grab-screen: cannot write %s\n", argv[1]);
        return 1;
    }
    return 0;
}
