// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

// Writes the seed corpus of the fuzz targets into fuzz/corpus/<subject>/ of the source tree: real food files, the
// records and day logs that the program makes of them, and texts as people type them.

#include "model/FoodRecord.h"
#include "platform/Bundle.h"
#include "platform/PropertyList.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QVariant>

#include <cstdio>
#include <cstdlib>

namespace {

const QString sources = QStringLiteral(SOURCE_DIR);
const QStringList names = {QStringLiteral("Apricots, raw"),
    QStringLiteral("Milk, whole, 3.25% milkfat, with added vitamin D"), QStringLiteral("Egg, whole, raw, fresh")};

void write(const char *subject, const char *name, const QByteArray &bytes)
{
    const QString folder = sources + QStringLiteral("/fuzz/corpus/") + QString::fromLatin1(subject);
    QDir().mkpath(folder);
    QFile file(folder + u'/' + QString::fromLatin1(name));
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size())
        return;
    std::fprintf(stderr, "seed-corpus: cannot write %s\n", qPrintable(file.fileName()));
    std::exit(EXIT_FAILURE);
}

QByteArray foodFile(const QString &name)
{
    QFile file(sources + QStringLiteral("/resources/Database.xml/") + name + QStringLiteral(".xml"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The records of the three foods, each in its second unit.
QVariantList dayLog()
{
    QVariantList records;
    for (const QString &name : names) {
        Food food(name);
        food.setUnit(food.getUnitNames().value(1), 1, true);
        records.append(FoodRecord::archivedDataWithRootObject(food));
    }
    return records;
}

// One value of a store as the store's target reads it.
QByteArray stored(char key, const QVariant &value)
{
    const QByteArray bytes = PropertyList::write(value).value_or(QByteArray());
    return QByteArray(1, key) + char(bytes.size() & 0xff) + char(bytes.size() >> 8) + bytes;
}

} // namespace

int main()
{
    Bundle::mainBundle().setResourcePath(sources + QStringLiteral("/resources"));
    write("foodfile", "apricots", foodFile(names[0]));
    write("foodfile", "milk", foodFile(names[1]));

    const QVariantList day = dayLog();
    write("foodrecord", "apricots", day[0].toByteArray());
    write("foodrecord", "egg", day[2].toByteArray());

    QVariantList rdas;
    for (int i = 0; i < 61; ++i)
        rdas.append(1.5F * float(i));
    const QDateTime date({2026, 11, 20}, {12, 0}, Qt::UTC);
    write("propertylist", "day", *PropertyList::write(day));
    write("propertylist", "rdas", *PropertyList::write(rdas));
    write("propertylist", "date", *PropertyList::write(date));

    const QByteArray settings = stored(4, date) + stored(5, QStringLiteral("YES")) + stored(6, false);
    write("store", "day", QByteArray("\2\0", 2) + stored(0, day) + stored(3, rdas));
    write("store", "yesterday", QByteArray("\2\70", 2) + stored(1, day) + settings);
    write("store", "damaged", QByteArray("\0\20", 2) + stored(0, day + rdas.mid(0, 3)) + stored(3, QString()));
    write("store", "nostore", QByteArray("\1\0SQLite format 3", 17));

    write("numbertext", "amount", "12.50");
    write("numbertext", "blanks", " \t-1.00000012e-38 g");
    write("numbertext", "large", "340282356779733661637539395458142568447.999");
    write("numbertext", "hexadecimal", "0x10");
    write("searchquery", "words", " milk whole");
    write("searchquery", "beginnings", " APR ra");
    write("searchquery", "quantity", " 1 1/2 cups of milk");
    write("searchquery", "grams", " half a dozen x 2,5kg");
    write("searchquery", "number", " 3.25% \303\251");
    write("searchquery", "utf16", QByteArray("\1e\0g\0g\0", 7));

    write("quantity", "milk", "1 1/2 cups of milk\n244\t1 cup\n30.5\t1 fl oz\n15.2\t1 tbsp\n976\t1 quart");
    write("quantity", "meat", "beef 1 lb 4 oz\n85\t3 oz\n227\t1 steak (yield from 1 lb raw meat)");
    write("quantity", "pieces", "2 bread slices\n28\t1 slice\n12\t1 slice, thin (x 0.75 oz)\n454\t1 loaf\nnan\t");
    write("quantity", "can", "half a can x2\n330\t1 can (12 fl oz)\n1e39\t2 large\n-1\t1,000 extra large");
    write("quantity", "times", "yogurt 2 x 200 g\n0\t1 serving");

    // Three days, of which one has foods without files, units that are unknown and amounts that are no number.
    const QByteArray days = QByteArrayLiteral("\x09\x02\x00\x42\xc8\x00\x00\x08\x43\x48\x00\x00"
                                              "\x08\x05\x01\x7f\xc0\x00\x00\x12\x7f\x80\x00\x00\x1b\x00\x00\x00\x01\xfe"
                                              "text\x24\xff\x80\x00\x00"
                                              "\x0a\x01\x05\x41\x20\x00\x00");
    write("history", "month", QByteArray("\x33\x01", 2) + days);
    write("history", "year", QByteArray("\x35\x00", 2) + days);
    write("history", "all", QByteArray("\x36\x02", 2) + days);
    write("export", "stored", QByteArray("\x00", 1) + days);
    write("export", "pending", QByteArray("\x01", 1) + days);
    write("export", "joined", QByteArray("\x0d", 1) + days.left(12) + days);
    write("export", "bytes", QByteArray("\x00\x09\xff\x00\x08", 5) + "bplist00");
    return EXIT_SUCCESS;
}
