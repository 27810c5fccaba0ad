// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "export/Arguments.h"
#include "export/ExportedDays.h"
#include "export/SavedLog.h"

#include <QCoreApplication>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr int badArgument = 2;

// One line, whatever is in the names of files.
void say(QString sentence)
{
    for (QChar &c : sentence) {
        if (c.category() == QChar::Other_Control)
            c = u'?';
    }
    std::fprintf(stderr, "provender-export: %s\n", sentence.toUtf8().constData());
}

bool print(const QByteArray &text)
{
    return std::fwrite(text.constData(), 1, static_cast<std::size_t>(text.size()), stdout) == std::size_t(text.size());
}

// What the rows were written to may be full, or nobody may read it any more; some of that shows only now.
int end(bool iswritten)
{
    if (iswritten && std::fclose(stdout) == 0)
        return EXIT_SUCCESS;
    say(QStringLiteral("the output cannot be written: %1").arg(QString::fromLocal8Bit(std::strerror(errno))));
    return EXIT_FAILURE;
}

int run(const Export::Arguments &arguments)
{
    if (!arguments.fault.isEmpty()) {
        say(arguments.fault + QStringLiteral("; --help tells what there is"));
        return badArgument;
    }
    if (arguments.wantshelp)
        return end(print(Export::usage()));
    if (arguments.wantsversion)
        return end(print(QByteArrayLiteral("provender-export " PROVENDER_VERSION "\n")));
    Export::SavedLog log;
    if (const QString fault = log.read(arguments.storepath); !fault.isEmpty()) {
        say(fault);
        return EXIT_FAILURE;
    }
    if (log.isInUse())
        say(QStringLiteral("Provender is running: what it has not saved yet is missing"));
    const Export::ExportedDays days(log, arguments.period);
    return end(arguments.rows == Export::Rows::Entries ? days.writeEntries(arguments.format, stdout)
                                                       : days.writeDays(arguments.format, stdout));
}

} // namespace

int main(int argc, char **argv)
{
    if (::fcntl(STDOUT_FILENO, F_GETFD) < 0)
        return end(false); // else the next file that is opened would take its place
    static_cast<void>(std::signal(SIGPIPE, SIG_IGN)); // a reader that went away is an error like any other
    // For what Qt thinks of the locale.
    qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext &, const QString &) {}); // GCOVR_EXCL_LINE: only without UTF-8
    const QCoreApplication application(argc, argv); // whose folder the food files are found from
    return run(Export::argumentsOf(QCoreApplication::arguments().mid(1)));
}
