// SPDX-License-Identifier: MIT
#pragma once

#include <CFxDocumentManager.h>
#include <CFxServices.h>
#include <OdEdCommandStack.h>
#include <OdEditor.h>
#include <OdRxUnixModule.h>
#include <vela_OdRxModule.h>

#include <QCoreApplication>
#include <QStringList>
#include <QVariant>

//! Appends a line to the calls that the test reads: a property of the application, since it outlives the
//! module's library.
inline void noteCall(const char *module, const QString &call)
{
    constexpr char property[] = "moduleCalls";
    QStringList calls = qApp->property(property).toStringList();
    calls.append(QString::fromLatin1(module) + QLatin1Char(' ') + call);
    qApp->setProperty(property, calls);
}

//! Calls a member of an engine object, which is counted, and releases it.
template<class Object, class Function, class Argument>
void callOnce(Object *object, Function member, Argument *argument)
{
    (object->*member)(argument);
    object->release();
}

//! Registers module, a reactor of both kinds, and its command, if it has one, with the host.
template<class Module>
void registerModule(Module *module, OdEdCommand *command = nullptr)
{
    if (command)
        callOnce(odedRegCmds(), &OdEdCommandStack::addCommand, command);
    callOnce(odedEditor(), &OdEditor::addReactor, module);
    GetFxSystemServices()->GetDocumentManager()->AddReactor(module);
}

//! The reverse.
template<class Module>
void unregisterModule(Module *module, OdEdCommand *command = nullptr)
{
    if (command)
        callOnce(odedRegCmds(), &OdEdCommandStack::removeCommand, command);
    callOnce(odedEditor(), &OdEditor::removeReactor, module);
    GetFxSystemServices()->GetDocumentManager()->RemoveReactor(module);
}

//! Marks the entry points of a module library.
#define MODULE_EXPORT extern "C" __attribute__((visibility("default")))

//! As odrxGetAPIVersion() of a module that fits the host.
inline void reportVersion(int &major, int &minor, int &majorBuild, int &minorBuild)
{
    major = odrxApiMajor;
    minor = odrxApiMinor;
    majorBuild = odrxApiMajorBuild;
    minorBuild = odrxApiMinorBuild;
}
