// SPDX-License-Identifier: MIT
#pragma once

#include <QDir>
#include <QFile>
#include <QStringList>

#include <algorithm>

//! Runs what follows in a session of its own, so that neither a running service nor anybody's settings come
//! in. \param home a folder for its files
inline QStringList freshSession(const QString &home)
{
    return {QStringLiteral("dbus-run-session"), QStringLiteral("--"), QStringLiteral("env"),
            QStringLiteral("HOME=") + home, QStringLiteral("XDG_RUNTIME_DIR=") + home};
}

//! Whether a process of that session still runs: its services end by themselves, some time after it, and
//! write into the folder until then.
inline bool sessionRuns(const QString &home)
{
    const QByteArray mark = ("HOME=" + home).toLocal8Bit() + '\0';
    const QStringList processes = QDir(QStringLiteral("/proc")).entryList({QStringLiteral("[0-9]*")});
    return std::any_of(processes.begin(), processes.end(), [&](const QString &process) {
        QFile environment(QStringLiteral("/proc/%1/environ").arg(process));
        return environment.open(QIODevice::ReadOnly) && environment.readAll().contains(mark);
    });
}
