// SPDX-License-Identifier: MIT
#include "host/runtime/FxHost.h"

#include "host/runtime/HostSettings.h"
#include "host/runtime/commands/CommandRunner.h"
#include "host/runtime/commands/CommandSet.h"
#include "host/runtime/commands/CommandStack.h"
#include "host/runtime/commands/HostCommands.h"
#include "host/runtime/customization/Customization.h"
#include "host/runtime/documents/DocumentManager.h"
#include "host/runtime/editor/Editor.h"
#include "host/runtime/log/HostLog.h"
#include "host/runtime/modules/ModuleManager.h"
#include "host/runtime/probe/FileProbe.h"
#include "host/runtime/recent/AnsweringRecentFiles.h"
#include "host/runtime/recent/RecentFileStore.h"
#include "host/runtime/recent/RecentFiles.h"

#include <CFxEditorReactor.h>

#include <QDir>
#include <QEvent>
#include <QGuiApplication>
#include <QTimer>
#include <QWidget>

#include <utility>

namespace fxhost {

namespace {

FxHost *runningHost = nullptr;

} // namespace

//! The steps of the way from the services to the recent-file list and to the main window.
class FxHost::Facets : public CFxApplication, public CFxUserProfile, public CFxMainFrame
{
public:
    explicit Facets(FxHost &host) : m_host(host) {}

    CFxUserProfile *GetUserProfile() override { return this; }
    CFxRecentFileList *GetRecentFileList() override { return m_host.m_answeringRecentFiles.get(); }
    QWidget *GetMainWindow() override { return m_host.m_mainWindow; }

private:
    FxHost &m_host;
};

FxHost::FxHost(const QString &profileDir, const QString &logFile, QObject *parent) : QObject(parent)
{
    Q_ASSERT_X(!runningHost, "FxHost", "one host at a time");
    runningHost = this;
    const MessageSink report = [this](const QString &text) { showMessage(text); };

    m_log = std::make_unique<HostLog>(logFile);
    m_recentFiles = std::make_unique<RecentFiles>();
    readProfile(profileDir, report);
    m_fileProbe = std::make_unique<FileProbe>();
    m_answeringRecentFiles = std::make_unique<AnsweringRecentFiles>(*m_recentFiles, *m_fileProbe, report);
    m_editor = std::make_unique<Editor>(report);
    m_documents = std::make_unique<DocumentManager>(*m_recentFiles, *m_fileProbe, *m_editor, *m_log, report);
    m_customization = std::make_unique<Customization>();
    m_commandStack = std::make_unique<CommandStack>();
    m_commands = std::make_unique<CommandRunner>(*m_commandStack, *m_editor, *m_log, report);
    m_hostCommands = std::make_unique<CommandSet>(*m_commandStack);
    addHostCommands(*m_hostCommands, *this);
    m_modules = std::make_unique<ModuleManager>(*this);
    m_facets = std::make_unique<Facets>(*this);

    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this, &FxHost::reportApplicationState);
}

FxHost::~FxHost()
{
    m_commands->stop();
    m_documents->closeAll();
    setMainWindow(nullptr);
    m_modules->unloadAll(); // while every service still stands
    if (!m_recentFileStore->isAllWritten())
        m_recentFiles->refresh();
    runningHost = nullptr;
}

FxHost *FxHost::instance()
{
    return runningHost;
}

void FxHost::readProfile(const QString &profileDir, const MessageSink &report)
{
    QStringList problems;
    if (!QDir().mkpath(profileDir))
        problems
            << tr("The profile directory %1 cannot be made. Nothing is kept of this run.").arg(profileDir);

    m_settings = std::make_unique<HostSettings>(profileDir, report);
    problems << m_settings->problem();
    m_recentFiles->setMaximum(m_settings->recentMaximum());
    connect(m_recentFiles.get(), &RecentFiles::maximumChanged, this,
            [this](int maximum) { m_settings->setRecentMaximum(maximum); });

    m_recentFileStore =
        std::make_unique<RecentFileStore>(QDir(profileDir).filePath(QStringLiteral("recent.txt")));
    const RecentFileStore::Kept kept = m_recentFileStore->load();
    problems << kept.problem;
    m_recentFiles->setPaths(kept.paths);
    m_recentFiles->setKeeper([this](const QStringList &known, const RecentFiles::Change &change) {
        m_recentFiles->adoptMaximum(m_settings->recentMaximum());
        const RecentFileStore::Kept now = m_recentFileStore->update(known, change);
        const QString told = std::exchange(m_recentFilesProblem, now.problem);
        if (!now.problem.isEmpty() && now.problem != told) // else it would be said with each drawing
            showMessage(now.problem);
        return now.paths;
    });

    problems.removeAll(QString());
    for (const QString &problem : qAsConst(problems))
        QTimer::singleShot(0, this, [this, problem] { showMessage(problem); });
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

Editor &FxHost::editor()
{
    return *m_editor;
}

CommandStack &FxHost::commandStack()
{
    return *m_commandStack;
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
    if (QWidget *former = m_mainWindow) {
        former->removeEventFilter(this);
        m_editor->reactors().notify(&CFxEditorReactor::mainFrameDestroyed, former);
    }
    m_mainWindow = window;
    if (!window)
        return;
    window->installEventFilter(this);
    m_editor->reactors().notify(&CFxEditorReactor::mainFrameCreated, window);
}

QWidget *FxHost::mainWindow() const
{
    return m_mainWindow;
}

bool FxHost::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_mainWindow && event->type() == QEvent::WindowStateChange)
        m_editor->reactors().notify(&CFxEditorReactor::windowStateChanged, m_mainWindow.data());
    return QObject::eventFilter(watched, event);
}

void FxHost::reportApplicationState(Qt::ApplicationState state)
{
    if (state == Qt::ApplicationActive)
        m_recentFiles->refresh(); // the person may come from another host with the same profile
    m_editor->reactors().notify(state == Qt::ApplicationActive ? &CFxEditorReactor::appActivated
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
    emit message(text);
}

void FxHost::requestHelp(int topic)
{
    m_log->help(topic);
    emit helpRequested(topic);
}

CFxApplication *FxHost::GetApplication()
{
    return m_facets.get();
}

CFxMainFrame *FxHost::GetMainFrame()
{
    return m_facets.get();
}

CFxDocumentManager *FxHost::GetDocumentManager()
{
    return m_documents.get();
}

CFxUICustomization *FxHost::GetCustomization()
{
    return m_customization.get();
}

OdRxObject *FxHost::RunCommand(const CFxString &name, const CFxString *argument)
{
    return m_commands->run(name, argument ? QString(*argument) : QString());
}

} // namespace fxhost

CFxSystemServices *GetFxSystemServices()
{
    return fxhost::FxHost::instance();
}

OdEditor *odedEditor()
{
    fxhost::FxHost *host = fxhost::FxHost::instance();
    if (!host)
        return nullptr;
    host->editor().addRef();
    return &host->editor();
}

OdEdCommandStack *odedRegCmds()
{
    fxhost::FxHost *host = fxhost::FxHost::instance();
    if (!host)
        return nullptr;
    host->commandStack().addRef();
    return &host->commandStack();
}
