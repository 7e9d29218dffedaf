// SPDX-License-Identifier: MIT
#include "host/runtime/Paths.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace fxhost {

QString absolutePath(const QString &path)
{
    if (path.isEmpty() || QDir::isAbsolutePath(path))
        return path;
    return QDir::current().absoluteFilePath(path);
}

QString setAside(const QString &path)
{
    QString free = path + QLatin1String(".damaged");
    for (int number = 2; QFileInfo::exists(free) || QFileInfo(free).isSymLink(); ++number)
        free = path + QStringLiteral(".damaged-%1").arg(number);
    return QFile::rename(path, free) ? free : QString();
}

} // namespace fxhost
