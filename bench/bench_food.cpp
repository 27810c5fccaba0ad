// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

// What a food's first question costs: finding its file, reading it and keeping what it says, against the least that
// expat can do with the same file. Every 13th food of the list, 601 real files; the turns of one food follow each
// other.

#include "bench/Turns.h"
#include "catalog/FoodCatalogue.h"
#include "model/Food.h"
#include "platform/Bundle.h"

#include <QFile>

#include <cstdio>
#include <cstdlib>
#include <expat.h>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr qsizetype step = 13;
constexpr std::size_t rounds = 41;

void nothing(void *user, const XML_Char *element, const XML_Char **attributes)
{
    (void)user;
    (void)element;
    (void)attributes;
}

// Open, read, parse, close; the start tags are handed to nobody.
void parseBare(const QByteArray &path)
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

void load(const QString &name)
{
    Food food(name);
    if (food.getUnitNames().isEmpty())
        std::abort();
}

} // namespace

int main()
{
    Bundle::mainBundle().setResourcePath(QStringLiteral(SOURCE_DIR "/resources"));
    QStringList names;
    std::vector<QByteArray> paths;
    const QStringList all = FoodCatalogue::foodNames();
    for (qsizetype i = 0; i < all.size(); i += step) {
        names.append(all[i]);
        paths.push_back(QFile::encodeName(
            Bundle::mainBundle().pathForResource(all[i], QStringLiteral("xml"), QStringLiteral("Database.xml"))));
    }
    const Turns::Pair pair = Turns::inTurns(
        paths.size() * rounds,
        [&](std::size_t turn) { return Turns::milliseconds([&] { load(names[qsizetype(turn / rounds)]); }); },
        [&](std::size_t turn) { return Turns::milliseconds([&] { parseBare(paths[turn / rounds]); }); });
    Turns::Figures figures;
    figures.ratio(QStringLiteral("loading a food against a bare pass of expat"), pair, 1.5);
    return figures.exitCode();
}
