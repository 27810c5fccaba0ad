// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "export/ExportedDays.h"
#include "fuzz/ScratchStore.h"
#include "fuzz/StoredDays.h"
#include "history/DayReader.h"
#include "platform/LocalDay.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include <cstdlib>

// The printed log, read as another program reads it. The first byte says how many of the values were left beside the
// store by a run that could not save, whether that run knew what was there, and what a row is for.

namespace {

using Values = QMap<QString, QByteArray>;

// How many rows there are, each ended as it should be; all have so many fields.
int csvRows(const QByteArray &printed, int columns)
{
    int rows = 0;
    int fields = 1;
    bool isquoted = false;
    for (qsizetype i = 0; i < printed.size(); ++i) {
        const char c = printed[i];
        Fuzzing::require(isquoted || c != '\n' || printed[i - 1] == '\r', "a bare line feed is quoted");
        Fuzzing::require(c == '\n' || c == '\r' || c == '\t' || (c & '\x80') != 0 || (c >= ' ' && c != '\x7f'),
            "no control character is printed");
        isquoted ^= c == '"';
        if (!isquoted && c == ',')
            ++fields;
        if (isquoted || c != '\n')
            continue;
        Fuzzing::require(fields == columns, "a row has a field for each column");
        fields = 1;
        ++rows;
    }
    Fuzzing::require(!isquoted && fields == 1, "the last row is whole");
    return rows;
}

int jsonRows(const QByteArray &printed, int columns)
{
    Fuzzing::require(printed.isEmpty() || printed.endsWith('\n'), "the last object is whole");
    int rows = 0;
    for (const QByteArray &line : printed.split('\n').mid(0, printed.count('\n'))) {
        Fuzzing::require(QJsonDocument::fromJson(line).object().size() == columns, "an object has all its keys");
        ++rows;
    }
    return rows;
}

QByteArray printed(const Export::ExportedDays &days,
    bool (Export::ExportedDays::*write)(Export::Format, std::FILE *) const, Export::Format format)
{
    char *text = nullptr;
    std::size_t length = 0;
    std::FILE *file = ::open_memstream(&text, &length);
    Fuzzing::require((days.*write)(format, file) && std::fclose(file) == 0, "all is written");
    const QByteArray bytes(text, static_cast<qsizetype>(length));
    std::free(text);
    return bytes;
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    StoredDays::prepareFoods();
    static const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("store"));
    const QString pendingpath = PendingFile::pathOf(path, 1);
    QFile::remove(path);
    QFile::remove(pendingpath);

    StoredDays::Input input(data, size);
    const unsigned choice = input.number(1);
    Values pending = StoredDays::read(input, choice & 3U);
    const Values values = StoredDays::read(input);
    Fuzzing::writeStore(path, values);
    for (auto value = pending.begin(); value != pending.end(); ++value) {
        const bool isknown = (choice & 4U) != 0 && values.contains(value.key());
        *value = PendingFile::write(
            {*value, {}, isknown, isknown ? std::optional(values.value(value.key())) : std::nullopt});
    }
    if (!pending.isEmpty())
        Fuzzing::writeStore(pendingpath, pending);

    Export::SavedLog log;
    Fuzzing::require(log.read(path).isEmpty(), "the log is read");
    const History::Period period{LocalDay::firstDate(), LocalDay::lastDate()};
    History::DayReader reader([&](const QString &first, const QString &last, const StoreCopy::Row &row) {
        return log.scan(first, last, row);
    });
    const History::Days days = reader.readOnly(period);
    for (qsizetype i = 1; i < days.all.size(); ++i)
        Fuzzing::require(days.all[i - 1].date < days.all[i].date, "the days are in order, each once");
    const Export::ExportedDays exported(log, period);
    const bool isperday = (choice & 8U) != 0;
    const auto write = isperday ? &Export::ExportedDays::writeDays : &Export::ExportedDays::writeEntries;
    const int columns = (isperday ? 2 : 5) + (isperday ? 2 : 1) * NutrientCatalogue::nutrientCount;
    const qsizetype rows = isperday ? days.all.size() : days.entries.size();
    Fuzzing::require(csvRows(printed(exported, write, Export::Format::Csv), columns) == rows + 1,
        "a row for each entry or day, after the columns' names");
    Fuzzing::require(
        jsonRows(printed(exported, write, Export::Format::Json), columns) == rows, "an object for each entry or day");
    return 0;
}
