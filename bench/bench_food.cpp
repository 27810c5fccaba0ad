// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

// What a food's first question costs: finding its file, reading it and keeping what it says, against the least that
// expat can do with the same file. Each pass takes every 13th food of the list, 601 real files; the passes of one food
// follow each other, so that both meet the same machine. The run fails when the ratio is over its limit.

#include "catalog/FoodCatalogue.h"
#include "model/Food.h"
#include "platform/Bundle.h"

#include <QElapsedTimer>
#include <QFile>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <expat.h>
#include <fcntl.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr int step = 13;
constexpr int rounds = 41;
constexpr double limit = 1.5;

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

double medianOf(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

} // namespace

int main()
{
    Bundle::mainBundle().setResourcePath(QStringLiteral(SOURCE_DIR "/resources"));
    QStringList names;
    const QStringList all = FoodCatalogue::foodNames();
    for (qsizetype i = 0; i < all.size(); i += step)
        names.append(all[i]);

    // Of each food the median of its rounds, bare and loaded; then the medians of those.
    std::vector<double> bare;
    std::vector<double> loaded;
    std::vector<double> ratios;
    for (const QString &name : names) {
        const QByteArray path = QFile::encodeName(
            Bundle::mainBundle().pathForResource(name, QStringLiteral("xml"), QStringLiteral("Database.xml")));
        std::array<std::vector<double>, 2> times;
        for (int round = 0; round < rounds; ++round) {
            QElapsedTimer timer;
            timer.start();
            parseBare(path);
            times[0].push_back(double(timer.nsecsElapsed()) / 1000.0);
            timer.restart();
            load(name);
            times[1].push_back(double(timer.nsecsElapsed()) / 1000.0);
        }
        bare.push_back(medianOf(times[0]));
        loaded.push_back(medianOf(times[1]));
        ratios.push_back(loaded.back() / bare.back());
    }
    const double ratio = medianOf(ratios);
    std::printf("%-52s %8.1f us / %8.1f us = %.2f (at most %.2f)%s\n", "loading a food against a bare pass of expat",
        medianOf(loaded), medianOf(bare), ratio, limit, ratio <= limit ? "" : "  OVER");
    return ratio <= limit ? EXIT_SUCCESS : EXIT_FAILURE;
}
