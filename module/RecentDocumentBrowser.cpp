// SPDX-License-Identifier: MIT
#include "module/RecentDocumentBrowser.h"

#include "module/HelpCommandReg.h"
#include "module/HostAccess.h"
#include "module/MenuIntegration.h"
#include "module/ModuleLifetime.h"
#include "module/velaCommandHelp.h"
#include "state/TileOwner.h"

#include <QMenu>

#include <memory>

// Constructed in this order when the library is loaded, destroyed in reverse when it is unloaded.
QList<RecentDocDialog *> RecentDocumentBrowser::recentDocDialogList;
QMap<QString, QImage> RecentDocumentBrowser::recentFileImageMap;
QList<QAction *> RecentDocumentBrowser::recentDocActionList;
QList<FolderPinButton *> folderButtonList;
QList<FolderPinButton *> RecentDocumentBrowser::menuPinButtonList;
QList<FolderPinButton *> RecentDocumentBrowser::docPinButtonList;
QMenu *RecentDocumentBrowser::recentDocMenu = nullptr;
QAction *RecentDocumentBrowser::before = nullptr;

namespace {

//! Constructed after the containers and therefore destroyed before them.
const struct RegistryEnd
{
    ~RegistryEnd() { TileOwner::registryDestroyed(); }
} registryEnd;

//! The only flag of the browser command. The host defines the meaning of the bit.
constexpr std::uint32_t browserCommandFlags = 0x40000000;

//! Creates a help command that lives as long as the module: the command stack does not own its commands.
velaCommandHelp *newHelpCommand()
{
    auto command = std::make_unique<OdStaticRxObject<velaCommandHelp>>();
    velaCommandHelp *help = command.get();
    ModuleLifetime::keep(std::move(command));
    return help;
}

} // namespace

RecentDocumentBrowser::RecentDocumentBrowser()
{
    m_command.AddFlags(browserCommandFlags);
}

RecentDocumentBrowser::~RecentDocumentBrowser()
{
    ModuleLifetime::end();
}

void RecentDocumentBrowser::initApp()
{
    HostAccess::addCommand(&m_command);
    HostAccess::addDocumentReactor(this);
    HostAccess::addEditorReactor(this);
}

void RecentDocumentBrowser::uninitApp() {}

void RecentDocumentBrowser::mainFrameCreated(QWidget * /*mainFrame*/)
{
    LoadMenu();
    HelpCommandReg::AddHelpcommand(newHelpCommand());
}

void RecentDocumentBrowser::mainFrameDestroyed(QWidget * /*mainFrame*/)
{
    HostAccess::removeCommand(&m_command);
    HostAccess::removeDocumentReactor(this);
    HostAccess::removeEditorReactor(this);
    UnLoadMenu(GetStartUpMenuItem(fileMenuIdentifier));
    UnLoadMenu(GetMenuItem(fileMenuIdentifier));
    HelpCommandReg::RemoveHelpcommand(newHelpCommand());
}

void RecentDocumentBrowser::DocumentCreated(CFxDocument * /*document*/)
{
    const auto recent = HostAccess::recentFiles();
    if (!recent || recent->empty())
        return;

    LoadMenu();
    recentFileImageMap = {};
    menuPinButtonList.clear();
    // Never shown: its entries hold the pinned state and are the source of the browser's tiles.
    auto *hiddenMenu = new QMenu;
    ModuleLifetime::keep(hiddenMenu);
    AddRecentFiles(hiddenMenu, nullptr);
}
