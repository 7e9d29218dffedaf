// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/editor/ReactorList.h"
#include "host/runtime/modules/ModuleHost.h"
#include "host/runtime/modules/ModuleLibrary.h"

#include <QCoreApplication>
#include <QString>

#include <vector>

class OdRxModule;

namespace fxhost {

//! A module, from loading its library to unloading it. Catches the module's exceptions. GUI thread.
class Module
{
    Q_DECLARE_TR_FUNCTIONS(fxhost::Module)
public:
    //! \param path as given by the user
    Module(const QString &path, const ModuleHost &host);
    //! Unloads the library. end() must have been called after a successful start().
    ~Module();

    Module(const Module &) = delete;
    Module &operator=(const Module &) = delete;

    const QString &path() const { return m_path; }
    //! See ModuleLibrary::handle().
    void *handle() const { return m_library.handle(); }
    //! True if both are from the same file, even if the paths differ.
    bool isSameAs(const Module &other) const { return m_library.handle() == other.m_library.handle(); }

    //! True if the module's code is running: the running command is the module's, or a function of its
    //! library is on the stack. Then the library must not be unloaded.
    bool isCodeRunning() const;

    //! Loads the library.
    //! \return a failure if it is not a module for this host
    Outcome load();
    //! Creates and starts the module.
    Outcome start();
    //! Ends the module, even if start() failed, and removes its remaining registrations and widgets.
    Outcome end();

private:
    template<class Reactor>
    std::vector<Reactor *> own(const ReactorList<Reactor> &reactors) const;
    void notifyOfMainWindow(bool created) const;
    void removeRegistrations() const;
    void deleteWidgets() const;

    QString m_path;
    const ModuleHost m_host;
    ModuleLibrary m_library;
    OdRxModule *m_object = nullptr;
    bool m_isStarted = false;
};

} // namespace fxhost
