// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"
#include "host/runtime/ProfileFolders.h"

#include <CFxServices.h>
#include <sdkhost/Host.h>

#include <QObject>

#include <functional>
#include <memory>

class QWidget;

namespace fxhost {

class CommandRunner;
class CommandSet;
class DocumentManager;
class FileProbe;
class HostLog;
class HostSettings;
class MainFrame;
class ModuleManager;
class PreviewCache;
class ReachableRecentFiles;
class RecentFileStore;
class RecentFiles;

//! The running host: owns every service. The program accesses the services by reference, modules through the
//! programming interface. Only one object can exist at a time. GUI thread.
//!
//! A program creates a QApplication, then this object, connects to message(), shows its window, and then
//! calls setMainWindow(). The destructor closes the drawings, notifies the modules that the main window is
//! destroyed, and unloads the modules, in this order.
class FXHOST_API FxHost : public QObject, public CFxSystemServices, public sdkhost::Host
{
    Q_OBJECT
public:
    //! Lets the user choose a drawing to open.
    //! \return a path; empty if the user cancelled
    using PathChooser = std::function<QString()>;

    //! Reads the profile. Errors do not stop the host. message() reports them from the event loop, so that
    //! the program can connect to it first.
    //! \param folders created if they are missing. If the recent documents have a folder of their own, a list
    //! in the folder of the settings, where former versions stored it, is moved there
    //! \param logFile receives a line for each request to the host; empty for no log
    FxHost(const ProfileFolders &folders, const QString &logFile, QObject *parent = nullptr);
    ~FxHost() override;

    HostLog &log();
    HostSettings &settings();
    RecentFiles &recentFiles();
    FileProbe &fileProbe();
    DocumentManager &documents();
    Customization &customization();
    CommandRunner &commands();
    ModuleManager &modules();

    //! See MainFrame::setWindow().
    void setMainWindow(QWidget *window);
    //! The main window, or null.
    QWidget *mainWindow() const;

    //! Called by _OPEN without a path. If none is set, _OPEN without a path fails.
    void setPathChooser(PathChooser chooser);
    const PathChooser &pathChooser() const;

    //! Emits message().
    void showMessage(const QString &text) override;
    //! Logs the request and emits helpRequested().
    //! \param topic 0 is the front page
    void requestHelp(int topic) override;

    CFxApplication *GetApplication() override;
    CFxMainFrame *GetMainFrame() override;
    CFxDocumentManager *GetDocumentManager() override;
    CFxUICustomization *GetCustomization() override;
    OdRxObject *RunCommand(const CFxString &name, const CFxString *argument) override;

signals:
    //! A text for the user, in whole sentences.
    void message(const QString &text);
    void helpRequested(int topic);

private:
    class Profile;

    CFxSystemServices &services() override { return *this; }
    CFxDocument *currentDocument() const override;
    const OdEdCommand *runningCommand() const override;
    QImage readPreview(const CFxString &path) const override;

    void reportApplicationState(Qt::ApplicationState state);

    std::unique_ptr<HostLog> m_log;
    std::unique_ptr<HostSettings> m_settings;
    std::unique_ptr<RecentFileStore> m_recentFileStore;
    std::unique_ptr<RecentFiles> m_recentFiles;
    std::unique_ptr<FileProbe> m_fileProbe;
    std::unique_ptr<ReachableRecentFiles> m_reachableRecentFiles;
    std::unique_ptr<PreviewCache> m_previews;
    std::unique_ptr<MainFrame> m_mainFrame;
    std::unique_ptr<DocumentManager> m_documents;
    std::unique_ptr<Customization> m_customization;
    std::unique_ptr<CommandRunner> m_commands;
    std::unique_ptr<CommandSet> m_hostCommands;
    std::unique_ptr<ModuleManager> m_modules;
    std::unique_ptr<Profile> m_profile;
    PathChooser m_pathChooser;
    bool m_isConstructed = false;
};

} // namespace fxhost
