// SPDX-License-Identifier: MIT
#pragma once

#include <sdkhost/ModuleLibrary.h>
#include <sdkhost/ReactorList.h>

#include <QCoreApplication>
#include <QString>
#include <QTranslator>

#include <vector>

class OdRxModule;

namespace sdkhost {

class Host;

//! A module, from loading its library to unloading it. Catches the module's exceptions. GUI thread.
class FXSDK_API Module
{
    Q_DECLARE_TR_FUNCTIONS(sdkhost::Module)
public:
    //! \param name by which the user requested it; the module object gets it as its name
    //! \param file absolute path of the library
    //! \param host must outlive the module
    Module(const QString &name, const QString &file, Host &host);
    //! Unloads the library. end() must have been called after a successful start().
    ~Module();

    Module(const Module &) = delete;
    Module &operator=(const Module &) = delete;

    //! See ModuleLibrary::handle().
    void *handle() const { return m_library.handle(); }
    const QString &name() const { return m_name; }
    //! True if both are from the same file, even if the paths differ.
    bool isSameAs(const Module &other) const { return m_library.handle() == other.m_library.handle(); }

    //! True if the module's code is running: the running command is the module's, or a function of its
    //! library is on the stack. Then the library must not be unloaded.
    bool isCodeRunning() const;

    //! Loads the library.
    //! \return a failure if it is not a module for this host
    Outcome load();
    //! Creates and starts the module. Before that, installs a translator of its texts, if the library's
    //! folder has a catalogue for one of the user's languages: translations/NAME_LANGUAGE.qm, with NAME that
    //! of the library without its suffix. The translator exists as long as this object.
    Outcome start();
    //! Ends the module, even if start() failed, and removes its remaining registrations and widgets.
    Outcome end();

private:
    template<class Reactor>
    std::vector<Reactor *> own(const ReactorList<Reactor> &reactors) const;
    void notifyOfMainWindow(bool created) const;
    void notifyOfDocument() const;
    void removeRegistrations() const;
    void deleteWidgets() const;

    QString m_name;
    QString m_file;
    Host &m_host;
    ModuleLibrary m_library;
    QTranslator m_texts;
    OdRxModule *m_object = nullptr;
    bool m_isStarted = false;
};

} // namespace sdkhost
