// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <QVariant>

// The small modules of tests/support/modules, for the tests of the module loader.

//! The path of one of the test modules.
inline QString modulePath(const char *name)
{
    return QCoreApplication::applicationDirPath() +
           QStringLiteral("/modules/%1_module.so").arg(QLatin1String(name));
}

//! The calls that the modules have recorded since the last call of this function.
inline QStringList takeCalls()
{
    const QStringList calls = qApp->property("moduleCalls").toStringList();
    qApp->setProperty("moduleCalls", QVariant());
    return calls;
}

//! Whether a file is mapped into this process.
inline bool isMapped(const QString &path)
{
    QFile maps(QStringLiteral("/proc/self/maps"));
    if (!maps.open(QIODevice::ReadOnly))
        qFatal("cannot read /proc/self/maps");
    return maps.readAll().contains(QFile::encodeName(QFileInfo(path).fileName()));
}
