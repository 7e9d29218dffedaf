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

//! One module, from the loading of its library to the unloading. A module's exceptions end here. GUI thread.
class Module
{
    Q_DECLARE_TR_FUNCTIONS(fxhost::Module)
public:
    //! \param path as the user gave it
    Module(const QString &path, const ModuleHost &host);
    //! Unloads the library. end() must have been called after a successful start().
    ~Module();

    Module(const Module &) = delete;
    Module &operator=(const Module &) = delete;

    const QString &path() const { return m_path; }
    //! Whether both come from the same file, whatever their paths.
    bool isSameAs(const Module &other) const { return m_library.handle() == other.m_library.handle(); }

    //! Whether code of the module is being run: the host's command is one of its own, or this call came from
    //! it. Then its library must stay.
    bool isAtWork() const;

    //! Loads the library. \return a failure when it is not a module for this host
    Outcome load();
    //! Creates and starts the module.
    Outcome start();
    //! Ends what start() began, also when that failed half way, and removes what the module leaves behind.
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
