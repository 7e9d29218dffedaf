// SPDX-License-Identifier: MIT
#include "host/runtime/FxHost.h"

#include "host/runtime/HostSettings.h"
#include "host/runtime/commands/CommandRunner.h"
#include "host/runtime/commands/CommandSet.h"
#include "host/runtime/commands/HostCommands.h"
#include "host/runtime/documents/DocumentManager.h"
#include "host/runtime/log/HostLog.h"
#include "host/runtime/mainframe/MainFrame.h"
#include "host/runtime/modules/ModuleManager.h"
#include "host/runtime/preview/PreviewCache.h"
#include "host/runtime/probe/FileProbe.h"
#include "host/runtime/recent/ReachableRecentFiles.h"
#include "host/runtime/recent/RecentFileStore.h"
#include "host/runtime/recent/RecentFiles.h"

#include <CFxEditorReactor.h>
#include <sdkhost/Customization.h>
#include <sdkhost/GuiThread.h>

#include <QDir>
#include <QGuiApplication>
#include <QTimer>

#include <utility>

namespace fxhost {

//! The application and its user profile, which only provide the list of recent documents.
class FxHost::Profile : public CFxApplication, public CFxUserProfile
{
public:
    explicit Profile(ReachableRecentFiles &recentFiles) : m_recentFiles(recentFiles) {}

    CFxUserProfile *GetUserProfile() override
    {
        SDKHOST_ASSERT_GUI_THREAD();
        return this;
    }
    CFxRecentFileList *GetRecentFileList() override
    {
        SDKHOST_ASSERT_GUI_THREAD();
        return &m_recentFiles;
    }

private:
    ReachableRecentFiles &m_recentFiles;
};

FxHost::FxHost(const ProfileFolders &folders, const QString &logFile, QObject *parent) : QObject(parent)
{
    Q_ASSERT_X(!Host::installed(), "FxHost", "one host at a time");
    const MessageSink report = [this](const QString &text) { FxHost::showMessage(text); };

    m_log = std::make_unique<HostLog>(logFile);
    const bool isDivided = folders.state != folders.settings;
    if (!QDir().mkpath(folders.settings))
        report(tr("The directory %1 cannot be created. Settings are not saved.").arg(folders.settings));
    if (isDivided && !QDir().mkpath(folders.state))
        report(tr("The directory %1 cannot be created. Recent documents are not saved.").arg(folders.state));
    m_settings = std::make_unique<HostSettings>(folders.settings, report);
    const QString listName = QStringLiteral("recent.txt");
    m_recentFileStore =
        std::make_unique<RecentFileStore>(QDir(folders.state).filePath(listName),
                                          isDivided ? QDir(folders.settings).filePath(listName) : QString());
    m_recentFiles = std::make_unique<RecentFiles>(*m_recentFileStore, *m_settings, report);
    m_fileProbe = std::make_unique<FileProbe>();
    m_reachableRecentFiles = std::make_unique<ReachableRecentFiles>(*m_recentFiles, *m_fileProbe, report);
    m_previews = std::make_unique<PreviewCache>();
    m_profile = std::make_unique<Profile>(*m_reachableRecentFiles);
    m_mainFrame = std::make_unique<MainFrame>(editor());
    m_documents = std::make_unique<DocumentManager>(*this, *m_recentFiles, *m_fileProbe, *m_log, report);
    m_customization = std::make_unique<Customization>();
    m_commands = std::make_unique<CommandRunner>(commandStack(), editor(), *m_log, report);
    m_hostCommands = std::make_unique<CommandSet>(commandStack());
    addHostCommands(*m_hostCommands, *this);
    m_modules = std::make_unique<ModuleManager>(*this, *m_log, report);

    Host::install(this);
    m_isConstructed = true;
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this, &FxHost::reportApplicationState);
}

FxHost::~FxHost()
{
    m_commands->stop();
    m_documents->closeAll();
    setMainWindow(nullptr);
    m_modules->unloadAll(); // while every service still exists
    m_recentFiles->writeRest();
    Host::install(nullptr);
}

HostLog &FxHost::log()
{
    return *m_log;
}

HostSettings &FxHost::settings()
{
    return *m_settings;
}

RecentFiles &FxHost::recentFiles()
{
    return *m_recentFiles;
}

FileProbe &FxHost::fileProbe()
{
    return *m_fileProbe;
}

DocumentManager &FxHost::documents()
{
    return *m_documents;
}

Customization &FxHost::customization()
{
    return *m_customization;
}

CommandRunner &FxHost::commands()
{
    return *m_commands;
}

ModuleManager &FxHost::modules()
{
    return *m_modules;
}

void FxHost::setMainWindow(QWidget *window)
{
    SDKHOST_ASSERT_GUI_THREAD();
    m_mainFrame->setWindow(window);
}

QWidget *FxHost::mainWindow() const
{
    return m_mainFrame->GetMainWindow();
}

void FxHost::reportApplicationState(Qt::ApplicationState state)
{
    if (state == Qt::ApplicationActive)
        m_recentFiles->refresh(); // another host with the same profile may have changed the list
    editor().reactors().notify(state == Qt::ApplicationActive ? &CFxEditorReactor::appActivated
                                                              : &CFxEditorReactor::appDeactivated);
}

void FxHost::setPathChooser(PathChooser chooser)
{
    m_pathChooser = std::move(chooser);
}

const FxHost::PathChooser &FxHost::pathChooser() const
{
    return m_pathChooser;
}

void FxHost::showMessage(const QString &text)
{
    SDKHOST_ASSERT_GUI_THREAD();
    if (m_isConstructed)
        emit message(text);
    else // from the event loop, after the program has connected to message()
        QTimer::singleShot(0, this, [this, text] { emit message(text); });
}

void FxHost::requestHelp(int topic)
{
    SDKHOST_ASSERT_GUI_THREAD();
    m_log->help(topic);
    emit helpRequested(topic);
}

CFxApplication *FxHost::GetApplication()
{
    SDKHOST_ASSERT_GUI_THREAD();
    return m_profile.get();
}

CFxMainFrame *FxHost::GetMainFrame()
{
    SDKHOST_ASSERT_GUI_THREAD();
    return m_mainFrame.get();
}

CFxDocumentManager *FxHost::GetDocumentManager()
{
    SDKHOST_ASSERT_GUI_THREAD();
    return m_documents.get();
}

CFxUICustomization *FxHost::GetCustomization()
{
    SDKHOST_ASSERT_GUI_THREAD();
    return m_customization.get();
}

OdRxObject *FxHost::RunCommand(const CFxString &name, const CFxString *argument)
{
    SDKHOST_ASSERT_GUI_THREAD();
    return m_commands->run(name, argument ? QString(*argument) : QString());
}

CFxDocument *FxHost::currentDocument() const
{
    return m_documents->current();
}

const OdEdCommand *FxHost::runningCommand() const
{
    return m_commands->running();
}

QImage FxHost::readPreview(const CFxString &path) const
{
    return m_previews->read(path);
}

} // namespace fxhost
