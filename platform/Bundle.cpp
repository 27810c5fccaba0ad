// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "platform/Bundle.h"

#include <QCoreApplication>
#include <QFile>

#include <sys/stat.h>

namespace {

bool exists(const QByteArray &path)
{
    struct stat status { };
    return ::stat(path.constData(), &status) == 0;
}

} // namespace

Bundle &Bundle::mainBundle()
{
    static Bundle bundle;
    return bundle;
}

void Bundle::setResourcePath(const QString &folder)
{
    resourcepath = folder;
}

QString Bundle::pathForResource(const QString &name, const QString &type, const QString &directory) const
{
    if (name.isEmpty() || name.contains(u'/') || name.contains(QChar(u'\0')))
        return {};
    const QString tail = u'/' + directory + u'/' + name + u'.' + type;
    if (!resourcepath.isEmpty()) {
        const QString path = resourcepath + tail;
        return exists(QFile::encodeName(path)) ? path : QString();
    }
    const QString program = QCoreApplication::applicationDirPath();
    for (const QString &folder : {program, program + QStringLiteral("/../share/provender")}) {
        const QString path = folder + tail;
        if (exists(QFile::encodeName(path)))
            return path;
    }
    return {};
}
