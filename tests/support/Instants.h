// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDateTime>

// The instant of an ISO date and time in UTC.
inline QDateTime utc(const char *text)
{
    QDateTime instant = QDateTime::fromString(QString::fromLatin1(text), Qt::ISODateWithMs);
    instant.setTimeSpec(Qt::UTC);
    return instant;
}

// Changes the process's zone without telling the C library.
inline void setZone(const QByteArray &zone)
{
    qputenv("TZ", zone);
}
