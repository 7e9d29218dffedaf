// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <QVariant>

// The small modules of tests/support/modules, as their loader's tests see them.

//! The path of one of the test modules.
inline QString modulePath(const char *name)
{
    return QCoreApplication::applicationDirPath() +
           QStringLiteral("/modules/%1_module.so").arg(QLatin1String(name));
}

//! What the modules have noted since the last call of this.
inline QStringList takeCalls()
{
    const QStringList calls = qApp->property("moduleCalls").toStringList();
    qApp->setProperty("moduleCalls", QVariant());
    return calls;
}

//! Whether a file is in this process's memory.
inline bool isMapped(const QString &path)
{
    QFile maps(QStringLiteral("/proc/self/maps"));
    if (!maps.open(QIODevice::ReadOnly))
        qFatal("the test cannot see what is mapped");
    return maps.readAll().contains(QFile::encodeName(QFileInfo(path).fileName()));
}
