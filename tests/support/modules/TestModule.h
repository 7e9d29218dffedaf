// SPDX-License-Identifier: MIT
#pragma once

#include <OdRxUnixModule.h>
#include <vela_OdRxModule.h>

#include <QCoreApplication>
#include <QStringList>
#include <QVariant>

//! Appends a line to the calls that the test reads, which outlive the module's library: they are the
//! application's property.
inline void noteCall(const char *module, const QString &call)
{
    constexpr char property[] = "moduleCalls";
    QStringList calls = qApp->property(property).toStringList();
    calls.append(QString::fromLatin1(module) + QLatin1Char(' ') + call);
    qApp->setProperty(property, calls);
}

//! Marks what a module library shows to the loader.
#define MODULE_EXPORT extern "C" __attribute__((visibility("default")))
