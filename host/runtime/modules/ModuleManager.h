// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"

#include <sdkhost/MessageSink.h>
#include <sdkhost/Outcome.h>

#include <QObject>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

namespace fxhost {

class HostLog;

//! Loads and unloads modules. GUI thread.
class FXHOST_API ModuleManager : public QObject
{
    Q_OBJECT
public:
    //! All arguments must outlive the manager.
    //! \param report receives the reason if a module cannot be loaded or unloaded
    ModuleManager(Host &host, HostLog &log, MessageSink report);
    //! Unloads all modules.
    ~ModuleManager() override;

    //! Loads a module and starts it. If the main window exists, the module is notified of it, and then of the
    //! current drawing. If this fails, the reason is reported, and everything is undone.
    //! \param path relative paths are relative to the working directory
    //! \return true if the module was loaded
    bool load(const QString &path);
    //! Ends a module and unloads it. If the main window exists, the module is first notified that it is
    //! destroyed. The module's remaining commands, reactors and widgets are removed, because their code is
    //! unloaded.
    //! \param path as given to load()
    //! \return false, with a message, if no such module is loaded, or while its code is running: a command, a
    //! drag, a dialog, or the caller of this function
    bool unload(const QString &path);
    //! Ends and unloads all modules, in reverse order of loading.
    void unloadAll();

    //! The paths as given to load(), in the order of loading.
    QStringList loaded() const;
    //! The paths, as given to load(), of the modules that name can refer to: the one with this path, or
    //! otherwise those with this file name, with or without ".so".
    QStringList named(const QString &name) const;
    //! The system's handles of the libraries, in the order of loading. Each is valid until its module is
    //! unloaded.
    std::vector<void *> libraries() const;

signals:
    //! A module was loaded and started.
    void moduleLoaded();

private:
    Outcome start(const QString &path);
    void end(std::unique_ptr<Module> module);

    Host &m_host;
    HostLog &m_log;
    MessageSink m_report;
    std::vector<std::unique_ptr<Module>> m_modules;
};

} // namespace fxhost
