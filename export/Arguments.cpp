// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "export/Arguments.h"

#include "platform/LocalDay.h"
#include "platform/StoreFile.h"

namespace Export {

namespace {

// Of a text such as "2026-11-21"; no date for any other.
QDate dateOf(QString text)
{
    constexpr int length = 10;
    if (text.size() != length || text[4] != u'-' || text[7] != u'-')
        return {};
    return LocalDay::dateOfKey(text.replace(u'-', u'_')).value_or(QDate());
}

bool set(Arguments &arguments, const QString &option, const QString &value)
{
    if (option == QLatin1String("--from")) {
        arguments.period.first = dateOf(value);
        return arguments.period.first.isValid();
    }
    if (option == QLatin1String("--to")) {
        arguments.period.last = dateOf(value);
        return arguments.period.last.isValid();
    }
    if (option == QLatin1String("--per")) {
        arguments.rows = value == QLatin1String("day") ? Rows::Days : Rows::Entries;
        return value == QLatin1String("day") || value == QLatin1String("entry");
    }
    if (option == QLatin1String("--format")) {
        arguments.format = value == QLatin1String("json") ? Format::Json : Format::Csv;
        return value == QLatin1String("json") || value == QLatin1String("csv");
    }
    arguments.storepath = value;
    return !value.isEmpty();
}

} // namespace

Arguments argumentsOf(const QStringList &words)
{
    static const QStringList options{QStringLiteral("--from"), QStringLiteral("--to"), QStringLiteral("--per"),
        QStringLiteral("--format"), QStringLiteral("--store")};
    Arguments arguments;
    arguments.period = {LocalDay::firstDate(), LocalDay::lastDate()};
    arguments.storepath = StoreFile::standardPath();
    for (qsizetype i = 0; i < words.size() && arguments.fault.isEmpty(); ++i) {
        const QString option = words[i].section(u'=', 0, 0);
        const bool hasvalue = words[i].contains(u'=');
        if (words[i] == QLatin1String("--help"))
            arguments.wantshelp = true;
        else if (words[i] == QLatin1String("--version"))
            arguments.wantsversion = true;
        else if (!options.contains(option))
            arguments.fault = QStringLiteral("unknown argument \"%1\"").arg(words[i]);
        else if (!hasvalue && i + 1 == words.size())
            arguments.fault = QStringLiteral("%1 wants a value").arg(option);
        else if (const QString value = hasvalue ? words[i].section(u'=', 1) : words[++i];
                 !set(arguments, option, value))
            arguments.fault = QStringLiteral("%1 cannot be \"%2\"").arg(option, value);
    }
    if (arguments.fault.isEmpty() && arguments.period.first > arguments.period.last)
        arguments.fault = QStringLiteral("--from is after --to");
    return arguments;
}

QByteArray usage()
{
    return QByteArrayLiteral(
        "Usage: provender-export [--from DATE] [--to DATE] [--per entry|day] [--format csv|json]\n"
        "                        [--store FILE]\n"
        "Prints the food log, a row for each entry or day, as CSV or JSON lines.\n"
        "\n"
        "  --from DATE        the first day, such as 2026-11-21; the first logged one when not given\n"
        "  --to DATE          the last day; the last logged one when not given\n"
        "  --per entry|day    what a row is for; an entry when not given\n"
        "  --format csv|json  how it is written; csv when not given\n"
        "  --store FILE       the log to read; Provender's own when not given\n"
        "  --help             prints this\n"
        "  --version          prints the version\n");
}

} // namespace Export
