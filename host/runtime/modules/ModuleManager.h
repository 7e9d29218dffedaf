// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"
#include "host/runtime/MessageSink.h"
#include "host/runtime/Outcome.h"
#include "host/runtime/modules/ModuleHost.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

namespace fxhost {

class HostLog;
class Module;

//! Loads and unloads modules. GUI thread.
class FXHOST_API ModuleManager
{
    Q_DECLARE_TR_FUNCTIONS(fxhost::ModuleManager)
public:
    //! Everything that is passed in must outlive the manager.
    //! \param report gets why a module was not loaded or unloaded
    ModuleManager(const ModuleHost &host, HostLog &log, MessageSink report);
    //! Unloads what is still loaded.
    ~ModuleManager();

    ModuleManager(const ModuleManager &) = delete;
    ModuleManager &operator=(const ModuleManager &) = delete;

    //! Loads a module and starts it. When the main window is there already, the module is notified of it, and
    //! then of the current drawing. A failure is shown as a message that names the file and the reason, and
    //! leaves nothing behind.
    //! \param path relative to the working directory unless absolute
    //! \return whether the module is running now
    bool load(const QString &path);
    //! Ends a module and unloads it; while the main window is there, the module is first notified that it
    //! goes. What the module left registered, and widgets of its classes, are removed: their code goes.
    //! \param path as it was given to load()
    //! \return false, with a message, when no such module is loaded, or while its code is being run: by a
    //! command, a drag, a dialog, or because it asks for this itself
    bool unload(const QString &path);
    //! Ends and unloads all, the last loaded first.
    void unloadAll();

    //! In the order of loading, as the paths were given.
    QStringList loaded() const;
    //! The loaded modules that name may mean: the one of this path, or else those whose file is called so,
    //! with or without ".so". As the paths were given.
    QStringList named(const QString &name) const;

private:
    Outcome start(const QString &path);
    void end(std::unique_ptr<Module> module);

    const ModuleHost m_host;
    HostLog &m_log;
    MessageSink m_report;
    std::vector<std::unique_ptr<Module>> m_modules;
};

} // namespace fxhost
