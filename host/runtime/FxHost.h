// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"
#include "host/runtime/MessageSink.h"

#include <CFxServices.h>

#include <QObject>
#include <QPointer>

#include <functional>
#include <memory>

class QWidget;

namespace fxhost {

class AnsweringRecentFiles;
class CommandRunner;
class CommandSet;
class CommandStack;
class Customization;
class DocumentManager;
class Editor;
class FileProbe;
class HostLog;
class HostSettings;
class ModuleManager;
class RecentFiles;
class RecentFileStore;

//! The running host: owns every service and hands them to the program by reference, to modules through the
//! published interface. At most one exists at a time. GUI thread.
//!
//! A program makes a QApplication, then this, then connects message(), then shows its window, and only then
//! calls setMainWindow(). The destructor ends everything in the order that modules count on: drawings are
//! closed, the main frame is reported gone, modules are unloaded.
class FXHOST_API FxHost : public QObject, public CFxSystemServices
{
    Q_OBJECT
public:
    //! Asks the person for a drawing to open. \return a path, or the empty string when he changed his mind
    using PathChooser = std::function<QString()>;

    //! Reads the profile. What is wrong with it is said by message() from the event loop, when there has been
    //! time to connect; it never keeps the host from starting.
    //! \param profileDir where settings and the recent-file list are kept; made when it is missing
    //! \param logFile what the host was asked to do is appended here; empty for no log
    FxHost(const QString &profileDir, const QString &logFile, QObject *parent = nullptr);
    ~FxHost() override;

    //! The running host, or null.
    static FxHost *instance();

    HostLog &log();
    HostSettings &settings();
    RecentFiles &recentFiles();
    FileProbe &fileProbe();
    DocumentManager &documents();
    Customization &customization();
    Editor &editor();
    CommandStack &commandStack();
    CommandRunner &commands();
    ModuleManager &modules();

    //! Tells modules that the main window is there, or, with null, that the one that was there is about to
    //! go. The old window must still live. A window that was set before is reported gone first.
    void setMainWindow(QWidget *window);
    //! The main window, or null.
    QWidget *mainWindow() const;

    //! What _OPEN asks when it is given no path. None: _OPEN without a path fails.
    void setPathChooser(PathChooser chooser);
    const PathChooser &pathChooser() const;

    //! Passes text on to whoever shows messages.
    void showMessage(const QString &text);
    //! Logs the request and passes it on to whoever shows help. \param topic 0 is the front page
    void requestHelp(int topic);

    CFxApplication *GetApplication() override;
    CFxMainFrame *GetMainFrame() override;
    CFxDocumentManager *GetDocumentManager() override;
    CFxUICustomization *GetCustomization() override;
    OdRxObject *RunCommand(const CFxString &name, const CFxString *argument) override;

signals:
    //! Something that the person should read, in whole sentences.
    void message(const QString &text);
    void helpRequested(int topic);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    class Facets;

    void readProfile(const QString &profileDir, const MessageSink &report);
    void reportApplicationState(Qt::ApplicationState state);

    std::unique_ptr<HostLog> m_log;
    std::unique_ptr<HostSettings> m_settings;
    std::unique_ptr<RecentFileStore> m_recentFileStore;
    QString m_recentFilesProblem; //!< the last one; empty when the list could be kept
    std::unique_ptr<RecentFiles> m_recentFiles;
    std::unique_ptr<FileProbe> m_fileProbe;
    std::unique_ptr<AnsweringRecentFiles> m_answeringRecentFiles;
    std::unique_ptr<Editor> m_editor;
    std::unique_ptr<DocumentManager> m_documents;
    std::unique_ptr<Customization> m_customization;
    std::unique_ptr<CommandStack> m_commandStack;
    std::unique_ptr<CommandRunner> m_commands;
    std::unique_ptr<CommandSet> m_hostCommands;
    std::unique_ptr<ModuleManager> m_modules;
    std::unique_ptr<Facets> m_facets;
    QPointer<QWidget> m_mainWindow;
    PathChooser m_pathChooser;
};

} // namespace fxhost
