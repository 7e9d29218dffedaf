// SPDX-License-Identifier: MIT
#include "host/runtime/ProfileFolders.h"

#include "host/runtime/Paths.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

namespace fxhost {

namespace {

//! Qt 5 does not know this folder.
QString stateHome()
{
    const QString folder = pathFromBytes(qgetenv("XDG_STATE_HOME"));
    // Relative paths are ignored, as if the variable were not set, as XDG requires.
    return folder.startsWith(QLatin1Char('/')) ? folder : QDir::homePath() + QStringLiteral("/.local/state");
}

} // namespace

ProfileFolders ProfileFolders::ofUser()
{
    ProfileFolders folders(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation));
    folders.state = QDir::cleanPath(stateHome() + QLatin1Char('/') + QCoreApplication::applicationName());
    return folders;
}

} // namespace fxhost
