// SPDX-License-Identifier: MIT
#include "module/MenuIntegration.h"

#include "module/HostAccess.h"
#include "module/RecentDocumentBrowser.h"

#include <CFxUIAccelerator.h>
#include <CFxUICommand.h>
#include <CFxUIGroup.h>
#include <CFxUIMenuItem.h>

#include <QKeySequence>

namespace {

//! Identifies the command definition. Hosts also use it for their own recent-files menu.
constexpr const wchar_t *commandIdentifier = L"ID_RECENT_FILES";
constexpr const wchar_t *entryIdentifier = L"PMI_RECENT_DOCUMENT_BROWSER";
constexpr const wchar_t *acceleratorIdentifier = L"MA_RECENT_DOCUMENT_BROWSER_ACC";

CFxString label()
{
    return QObject::tr("Preview Recent Documents...");
}

bool isBrowserEntry(const CFxUIMenuItem &item)
{
    return item.GetIdentifier().compareNoCase(entryIdentifier) == 0;
}

CFxUIMenuItem *menuOf(const CFxUIGroup &group, const CFxString &id)
{
    for (int i = 0; i < group.GetMenuCount(); ++i) {
        CFxUIMenuItem *menu = group.GetMenu(i);
        if (menu && menu->GetIdentifier().compare(id) == 0)
            return menu;
    }
    return nullptr;
}

//! The browser's command definition in group, created if missing; null if the host cannot create it.
CFxUICommand *ensureCommand(CFxUIGroup &group)
{
    if (CFxUICommand *existing = HostAccess::findCommand(group, commandIdentifier))
        return existing;
    auto command = HostAccess::createCommand(commandIdentifier);
    if (!command)
        return nullptr;
    command->SetName(L"Recent Document Browser");
    command->SetMacro(L"^C^C_RECENT");
    command->SetHelpString(QObject::tr("Browse through recent documents."));
    CFxUICommand *made = command.release();
    group.AppendCommand(made);
    return made;
}

//! The first accelerator of group with this identifier, compared without regard to case; null if there is
//! none.
CFxUIAccelerator *acceleratorOf(const CFxUIGroup &group, const CFxString &id)
{
    for (int i = 0; i < group.GetAcceleratorCount(); ++i) {
        CFxUIAccelerator *accelerator = group.GetAccelerator(i);
        if (accelerator && accelerator->GetIdentifier().compareNoCase(id) == 0)
            return accelerator;
    }
    return nullptr;
}

} // namespace

CFxUIGroup *GetCommandGroup()
{
    return HostAccess::primaryGroup();
}

CFxUIMenuItem *GetStartUpMenuItem(const CFxString &id)
{
    const CFxUIGroup *group = HostAccess::startUpGroup();
    return group ? menuOf(*group, id) : nullptr;
}

CFxUIMenuItem *RecentDocumentBrowser::GetMenuItem(const CFxString &id)
{
    for (const CFxUIGroup *group : HostAccess::groups()) {
        if (CFxUIMenuItem *menu = menuOf(*group, id))
            return menu;
    }
    return nullptr;
}

void addRecentDocMenu(CFxUIMenuItem *fileMenu, CFxUIGroup *group)
{
    if (!fileMenu)
        return;
    for (int i = 0; i < fileMenu->GetChildCount(); ++i) {
        const CFxUIMenuItem *child = fileMenu->GetChild(i);
        if (child && isBrowserEntry(*child))
            return;
    }
    CFxUICommand *command = ensureCommand(*group);
    const auto recent = HostAccess::recentFiles();
    if (!command || !recent || recent->empty())
        return; // tried again when the next document is created
    auto entry = HostAccess::createMenuItem(entryIdentifier);
    if (!entry)
        return;
    entry->SetCommand(command);
    entry->SetLabel(label());
    // Near the end, where a File menu contains its recent documents and Exit.
    if (fileMenu->InsertChild(fileMenu->GetChildCount() - 2, entry.get()))
        entry.release(); // NOLINT(bugprone-unused-return-value): the menu owns it now
}

void RecentDocumentBrowser::LoadMenu()
{
    CFxUIGroup *group = GetCommandGroup();
    if (!group)
        return;
    addRecentDocMenu(GetMenuItem(fileMenuIdentifier), group);
    CFxUIGroup *startUp = HostAccess::startUpGroup();
    if (!startUp)
        return;
    addRecentDocMenu(GetStartUpMenuItem(fileMenuIdentifier), startUp);
    HostAccess::refreshMenus();
}

void RecentDocumentBrowser::UnLoadMenu(CFxUIMenuItem *fileMenu)
{
    if (!fileMenu || !HostAccess::hasServices())
        return;
    const CFxUIGroup *group = nullptr;
    for (int i = 0; i < fileMenu->GetChildCount(); ++i) {
        group = GetCommandGroup();
        const CFxUIMenuItem *child = fileMenu->GetChild(i);
        if (child && isBrowserEntry(*child))
            break;
    }
    // Nothing is removed: the host discards entry, definition and accelerator with its main window.
    if (group)
        acceleratorOf(*group, acceleratorIdentifier);
}

void RecentDocumentBrowser::SetShortCutKey()
{
    CFxUIGroup *group = GetCommandGroup();
    CFxUICommand *command = group ? HostAccess::findCommand(*group, commandIdentifier) : nullptr;
    if (!command)
        return;
    const QKeySequence key = QKeySequence::fromString(QStringLiteral("F4"), QKeySequence::NativeText);
    for (int i = 0; i < group->GetAcceleratorCount(); ++i) {
        const CFxUIAccelerator *other = group->GetAccelerator(i);
        if (other &&
            other->GetKey().toString(QKeySequence::PortableText) == key.toString(QKeySequence::PortableText))
            return;
    }
    auto accelerator = HostAccess::createAccelerator(command);
    if (!accelerator)
        return;
    accelerator->SetLabel(label());
    accelerator->SetKey(key);
    group->AppendAccelerator(accelerator.release());
}
