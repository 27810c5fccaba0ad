// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "ui/WindowState.h"

#include <QDataStream>

#include <algorithm>

namespace {

// A rectangle as it is stored, which may be beyond what QRect can reckon with.
struct Corners {
    qint32 left = 0;
    qint32 top = 0;
    qint32 right = -1;
    qint32 bottom = -1;
};

QDataStream &operator>>(QDataStream &stream, Corners &corners)
{
    return stream >> corners.left >> corners.top >> corners.right >> corners.bottom;
}

bool isSensible(const Corners &corners, const QList<QRect> &screens)
{
    const qint64 width = qint64(corners.right) - corners.left + 1;
    const qint64 height = qint64(corners.bottom) - corners.top + 1;
    QRect all;
    for (const QRect &screen : screens)
        all |= screen;
    const bool isseen = std::any_of(screens.begin(), screens.end(), [&](const QRect &screen) {
        return corners.left <= screen.right() && corners.right >= screen.left() && corners.top <= screen.bottom()
            && corners.bottom >= screen.top();
    });
    return isseen && width > 0 && height > 0 && width <= 2 * all.width() && height <= 2 * all.height();
}

} // namespace

bool WindowState::isGeometry(const QByteArray &state, const QList<QRect> &screens)
{
    QDataStream stream(state);
    stream.setVersion(QDataStream::Qt_4_0);
    quint32 magic = 0;
    quint32 version = 0;
    Corners frame;
    Corners normal;
    Corners inside;
    qint32 number = 0;
    quint16 maximised = 0; // and full screen
    stream >> magic >> version >> frame >> normal >> number >> maximised >> number >> inside;
    return stream.status() == QDataStream::Ok && stream.atEnd() && isSensible(frame, screens)
        && isSensible(normal, screens) && isSensible(inside, screens);
}

bool WindowState::isSplitter(const QByteArray &state, const QByteArray &now)
{
    // A marker, a version and the number of sizes come before the sizes; the width of the handle and flags after them.
    constexpr qsizetype before = 12;
    constexpr qsizetype sizes = 8;
    return state.size() == now.size() && state.left(before) == now.left(before)
        && state.mid(before + sizes) == now.mid(before + sizes);
}
