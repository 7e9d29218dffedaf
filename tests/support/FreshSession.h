// SPDX-License-Identifier: MIT
#pragma once

#include <QDir>
#include <QStringList>

//! Runs what follows in a session of its own, so that neither a running service nor anybody's settings come
//! in. Its home is a folder of that name in the working directory; it stays behind, since services that other
//! programs have started may still write there.
inline QStringList freshSession(const QString &name)
{
    const QDir home(QDir::current().filePath(name));
    QDir(home).removeRecursively();
    home.mkpath(QStringLiteral("."));
    return {QStringLiteral("dbus-run-session"), QStringLiteral("--"), QStringLiteral("env"),
            QStringLiteral("HOME=") + home.path(), QStringLiteral("XDG_RUNTIME_DIR=") + home.path()};
}
