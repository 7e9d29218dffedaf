// SPDX-License-Identifier: MIT
#include "MinimalHost.h"

#include <OdEdCommand.h>
#include <RecentDocumentBrowserExports.h>
#include <sdkhost/CommandContext.h>
#include <sdkhost/UIAccelerator.h>
#include <sdkhost/UIMenuItem.h>

#include <QFileInfo>
#include <QMenuBar>
#include <QStatusBar>

#include <algorithm>
#include <iostream>

using sdkhost::Outcome;
using sdkhost::UIGroup;
using sdkhost::UIMenuItem;

namespace {

class Document : public CFxDocument
{
public:
    explicit Document(const CFxString &path) : m_path(path) {}
    CFxString path() const override { return m_path; }
    CFxString title() const override
    {
        return m_path.isEmpty() ? QStringLiteral("New") : QFileInfo(m_path).fileName();
    }

private:
    CFxString m_path;
};

} // namespace

MinimalHost::MinimalHost(const QString &moduleFile)
    : m_moduleFile(QFileInfo(moduleFile).absoluteFilePath()),
      m_fileMenu(menuBar()->addMenu(QStringLiteral("&File"))),
      m_recentMenu(new QMenu(QStringLiteral("&Recent"), this))
{
    setUpCustomization();
    connect(&m_customization, &sdkhost::Customization::refreshed, this, &MinimalHost::showMenu);
    showMenu();
    install(this);
}

MinimalHost::~MinimalHost()
{
    if (m_module)
        m_module->end();
    m_module.reset();
    install(nullptr);
}

void MinimalHost::loadModule()
{
    if (m_module) {
        showMessage(QStringLiteral("The module is loaded."));
        return;
    }
    auto module = std::make_unique<sdkhost::Module>(m_moduleFile, m_moduleFile, *this);
    Outcome outcome = module->load();
    if (outcome) {
        outcome = module->start();
        if (!outcome)
            module->end();
    }
    if (!outcome) {
        showMessage(outcome.reason());
        return;
    }
    m_module = std::move(module);
    RecentDocumentBrowserExports::setShortCutKey(m_module->handle());
    showMenu();
    showRecentMenu();
    showMessage(QStringLiteral("loaded, %1 commands").arg(commandStack().commands().size()));
}

void MinimalHost::unloadModule()
{
    if (!m_module || m_module->isCodeRunning()) {
        showMessage(QStringLiteral("The module is not loaded, or it is running."));
        return;
    }
    m_module->end();
    m_module.reset();
    showRecentMenu();
    showMessage(QStringLiteral("unloaded, %1 commands").arg(commandStack().commands().size()));
}

void MinimalHost::addRecent(const CFxString &path)
{
    m_recent.erase(std::remove(m_recent.begin(), m_recent.end(), path), m_recent.end());
    m_recent.insert(m_recent.begin(), path);
}

void MinimalHost::addDrawing(const CFxString &path)
{
    m_documents.push_back(std::make_unique<Document>(path));
    setWindowTitle(m_documents.back()->title());
    documentReactors().notify(&CFxDocumentManagerReactor::DocumentCreated, m_documents.back().get());
    showRecentMenu();
}

CFxDocument *MinimalHost::currentDocument() const
{
    return m_documents.empty() ? nullptr : m_documents.back().get();
}

void MinimalHost::requestHelp(int topic)
{
    showMessage(QStringLiteral("help %1").arg(topic));
}

void MinimalHost::showMessage(const QString &text)
{
    statusBar()->showMessage(text);
    std::cout << qPrintable(text) << std::endl;
}

//! A colour for each path. A real host reads the picture stored in the drawing.
QImage MinimalHost::readPreview(const CFxString &path) const
{
    QImage image(256, 192, QImage::Format_RGB32);
    image.fill(QColor::fromHsv(int(qHash(QString(path)) % 360), 120, 230));
    return image;
}

OdRxObject *MinimalHost::RunCommand(const CFxString &name, const CFxString *argument)
{
    constexpr int anyName = OdEdCommandStack::GlobalNames | OdEdCommandStack::LocalNames;
    OdEdCommand *const command = commandStack().lookupCommand(name.c_str(), anyName, OdString());
    if (!command) {
        showMessage(QStringLiteral("unknown command %1").arg(name));
        return nullptr;
    }
    sdkhost::CommandContext context(argument ? *argument : CFxString());
    const OdEdCommand *const former = std::exchange(m_running, command);
    const Outcome done = Outcome::of([&] { command->execute(&context); });
    m_running = former;
    command->release();
    if (!done)
        showMessage(done.reason());
    return nullptr;
}

bool MinimalHost::OpenDocument(const CFxString &path, int, int, OdString &result)
{
    const bool exists = QFileInfo::exists(path);
    result = exists ? L"" : L"There is no such file.";
    showMessage((exists ? QStringLiteral("opened ") : QStringLiteral("not found: ")) + path);
    if (!exists)
        return false;
    addRecent(path);
    const auto isIt = [&path](const auto &document) { return document->path() == path; };
    const auto open = std::find_if(m_documents.begin(), m_documents.end(), isIt);
    if (open == m_documents.end()) {
        addDrawing(path);
    } else { // one that is open only becomes the current one
        std::rotate(open, open + 1, m_documents.end());
        setWindowTitle(m_documents.back()->title());
    }
    return true;
}

//! A group with the File menu, and the group of the start-up menus, without which modules do not refresh.
void MinimalHost::setUpCustomization()
{
    UIGroup &group = m_customization.addGroup(L"MINIMAL", true);
    UIMenuItem &file = group.addMenu(L"ID_MnFile", L"&File");
    const QStringList names{"Load", "Unload", "New", "Quit"};
    for (const QString &name : names)
        file.add(UIMenuItem::Kind::Entry, name, QLatin1Char('&') + name, &group.addCommand(name, name, name));
    m_customization.addStartUpGroup(L"START");
}

//! Fills the File menu from the data. Entries run by queued calls, because a command may fill it again.
void MinimalHost::showMenu()
{
    const UIGroup &group = *m_customization.primaryGroup();
    const CFxUIMenuItem &file = *group.GetMenu(0);
    m_fileMenu->clear();
    m_fileMenu->addMenu(m_recentMenu);
    for (int i = 0; i < file.GetChildCount(); ++i) {
        const CFxUICommand *const command = file.GetChild(i)->GetCommand();
        const QString macro = command->GetMacro();
        QAction *const action = m_fileMenu->addAction(file.GetChild(i)->GetLabel());
        connect(
            action, &QAction::triggered, this, [this, macro] { runMacro(macro); }, Qt::QueuedConnection);
        for (int key = 0; key < group.GetAcceleratorCount(); ++key) {
            if (group.GetAccelerator(key)->GetCommand() == command)
                action->setShortcut(group.GetAccelerator(key)->GetKey());
        }
    }
}

//! Fills the menu of recent drawings with the module's entries, which have pins, or with plain ones.
void MinimalHost::showRecentMenu()
{
    const QList<QAction *> former = m_recentMenu->actions();
    for (QAction *action : former) {
        m_recentMenu->removeAction(action);
        action->deleteLater(); // a click on it may have opened the drawing
    }
    const auto openWhenTriggered = [this](const QAction *entry, const QString &path) {
        const auto open = [this, path] {
            OdString result;
            OpenDocument(path, 0, 0, result);
        };
        connect(entry, &QAction::triggered, this, open, Qt::QueuedConnection);
    };
    if (m_module && RecentDocumentBrowserExports::addRecentFiles(m_module->handle(), m_recentMenu, nullptr)) {
        const QList<QAction *> entries = m_recentMenu->actions();
        for (const QAction *entry : entries) // by the keyboard; the text is "&1 " and the path
            openWhenTriggered(entry, entry->text().section(QLatin1Char(' '), 1));
        return;
    }
    for (const CFxString &path : m_recent)
        openWhenTriggered(m_recentMenu->addAction(path), path);
}

void MinimalHost::runMacro(QString macro)
{
    macro.remove(QStringLiteral("^C")); // this host has no commands that wait and can be cancelled
    if (macro == QLatin1String("New"))
        addDrawing(CFxString());
    else if (macro == QLatin1String("Load"))
        loadModule();
    else if (macro == QLatin1String("Unload"))
        unloadModule();
    else if (macro == QLatin1String("Quit"))
        close();
    else
        RunCommand(macro, nullptr);
}
