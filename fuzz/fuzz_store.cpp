// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "fuzz/Fuzzing.h"
#include "fuzz/ScratchStore.h"
#include "tests/support/Run.h"

#include <QApplication>

// A whole store from the fuzz input: the program opens it, edits the day, leaves it for another, ends, and opens it
// again. Whatever the store held, what the person entered must be there.

namespace {

const char *const keys[]
    = {"2026_11_21", "2026_11_20", "2026_11_22", "RDAs", "LastDate", "RememberDate", "UseP", "RecalculateAmount",
        "OwnFoodsFirst", "WindowGeometry", "WindowSplitters", "HistorySheetSize", "2026_11_21.unread", "ColumnWidths"};

// Pairs of a key's number, a length of two bytes and a value of so many bytes.
void fillStore(const QString &path, const QByteArray &input)
{
    QMap<QString, QByteArray> values;
    for (qsizetype at = 0; at + 3 <= input.size();) {
        const char *key = keys[uchar(input[at]) % std::size(keys)];
        const qsizetype length = uchar(input[at + 1]) + 256 * uchar(input[at + 2]);
        values.insert(QString::fromLatin1(key), input.mid(at + 3, length));
        at += 3 + length;
    }
    Fuzzing::writeStore(path, values);
}

void writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    Fuzzing::require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(), "the store is written");
}

void readTables(Run &run)
{
    for (int row = 0; row < int(run.controller.foods.size()); ++row)
        for (const char *column : {"Name", "Amount", "Unit", "Energy"})
            (void)run.logCell(QString::fromLatin1(column), row);
    for (int row = 0; row < NutrientCatalogue::nutrientCount; ++row)
        for (const char *column : {"Name", "Amount"})
            (void)run.nutrient(QString::fromLatin1(column), row);
}

void checkLists(const Run &run)
{
    const auto size = run.controller.foods.size();
    Fuzzing::require(run.controller.curdatefoods.size() == qsizetype(size), "a record for each food");
    for (const auto &amounts : run.controller.nutrients)
        Fuzzing::require(amounts.size() == size, "an amount for each food");
}

// Adds a food and edits what is there. Answers the entries.
QStringList edit(Run &run, uchar choice)
{
    auto &controller = run.controller;
    run.add({QStringLiteral("Real"), QStringLiteral("No such food")});
    const int last = int(controller.foods.size()) - 1;
    run.edit((choice & 7) % (last + 1), QStringLiteral("12.5"));
    run.select({0, last});
    if ((choice & 8) != 0)
        controller.copy();
    if ((choice & 16) != 0)
        controller.removeSelected();
    if ((choice & 32) != 0)
        controller.paste();
    checkLists(run);
    readTables(run);
    return run.entries();
}

bool prepare()
{
    qputenv("TZ", "UTC");
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("TMPDIR", Fuzzing::scratchFolder); // the homes, which are synced at every save
    static int argc = 1;
    static char name[] = "fuzz_store";
    static char *argv[] = {name, nullptr};
    static const QApplication application(argc, argv);
    return true;
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    [[maybe_unused]] static const bool isprepared = prepare();
    if (size < 2)
        return 0;
    Home home;
    home.files.writeElements(
        QStringLiteral("Real"), "<measure name='cup' amount='1' grams='240'/><nutrient name='Energy' amount='50'/>");
    QDir().mkpath(home.folder.filePath(QStringLiteral("provender")));
    const QByteArray input = Fuzzing::bytes(data + 2, size - 2);
    if ((data[0] & 1U) != 0)
        writeFile(home.storePath(), input);
    else
        fillStore(home.storePath(), input);

    QStringList entered;
    QDateTime date;
    QVariantList unread;
    {
        Run run(home);
        run.launch();
        readTables(run);
        entered = edit(run, data[1]);
        date = run.controller.curdate;
        unread = run.controller.unreadfoods;
        // Leaving the day stores it; coming back shows it as it was left.
        if ((data[0] & 2U) != 0) {
            run.controller.nextDay();
            checkLists(run);
            run.controller.setDate(date);
            Fuzzing::require(run.entries() == entered, "the day left is as it was when it is opened again");
        }
        run.terminate();
    }
    Run run(home);
    run.launch();
    run.controller.setDate(date);
    checkLists(run);
    Fuzzing::require(run.entries() == entered, "another run shows what was entered");
    Fuzzing::require(run.controller.unreadfoods.size() == unread.size(), "what could not be read is kept");
    return 0;
}
