// SPDX-License-Identifier: MIT
#include "host/runtime/commands/TypedPath.h"

#include "host/runtime/Paths.h"
#include "host/runtime/probe/FileProbe.h"

#include <QDir>
#include <QFileInfo>

namespace fxhost {

namespace {

bool exists(const QString &path, FileProbe &probe)
{
    const QString fullPath = absolutePath(path);
    return probe.unresponsive({fullPath}).isEmpty() && QFileInfo::exists(fullPath);
}

QString withoutQuotes(const QString &path)
{
    const bool isQuoted = path.size() > 2 && path.front() == path.back() &&
                          (path.front() == QLatin1Char('"') || path.front() == QLatin1Char('\''));
    return isQuoted ? path.mid(1, path.size() - 2) : path;
}

QString withHome(const QString &path)
{
    const bool isInHome = path == QLatin1String("~") || path.startsWith(QLatin1String("~/"));
    return isInHome ? QDir::homePath() + path.mid(1) : path;
}

} // namespace

QString typedPath(const QString &argument, FileProbe &probe)
{
    QString path = argument;
    for (const auto read : {withoutQuotes, withHome}) {
        const QString meant = read(path);
        if (meant != path && exists(path, probe))
            return path;
        path = meant;
    }
    return path;
}

} // namespace fxhost
