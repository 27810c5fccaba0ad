// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Bundle.h"

#include <QByteArray>
#include <QFile>
#include <QString>

#include <cstdio>
#include <cstdlib>
#include <expat.h>
#include <fcntl.h>
#include <unistd.h>

// The least that expat can do with a food file: what reading one is held against.
namespace BarePass {

inline QByteArray pathOf(const QString &food)
{
    return QFile::encodeName(
        Bundle::mainBundle().pathForResource(food, QStringLiteral("xml"), QStringLiteral("Database.xml")));
}

inline void nothing(void *user, const XML_Char *element, const XML_Char **attributes)
{
    (void)user;
    (void)element;
    (void)attributes;
}

// Open, read, parse, close; the start tags are handed to nobody.
inline void parse(const QByteArray &path)
{
    const int descriptor = ::open(path.constData(), O_RDONLY | O_CLOEXEC);
    XML_Parser parser = XML_ParserCreate(nullptr);
    XML_SetStartElementHandler(parser, nothing);
    for (;;) {
        constexpr int chunk = 16384;
        const auto count = static_cast<int>(::read(descriptor, XML_GetBuffer(parser, chunk), chunk));
        if (XML_ParseBuffer(parser, count, count == 0 ? 1 : 0) != XML_STATUS_OK) {
            std::fprintf(stderr, "%s is no food file\n", path.constData());
            std::exit(EXIT_FAILURE);
        }
        if (count == 0)
            break;
    }
    XML_ParserFree(parser);
    ::close(descriptor);
}

} // namespace BarePass
