// SPDX-License-Identifier: MIT
#include "module/HostAccess.h"

#include <CFxDocumentManager.h>
#include <CFxPreviewBitmap.h>
#include <CFxRecentFileList.h>
#include <CFxServices.h>
#include <CFxUIAccelerator.h>
#include <CFxUICommand.h>
#include <CFxUICustomization.h>
#include <CFxUIGroup.h>
#include <CFxUIMenuItem.h>
#include <OdAssert.h>
#include <OdEdCommand.h>
#include <OdEdCommandStack.h>
#include <OdEditor.h>

#include <QCoreApplication>
#include <QImage>
#include <QThread>

#include <memory>

namespace {

struct ReleaseReference
{
    void operator()(OdRxObject *object) const { object->release(); }
};

struct ReleaseEnumerator
{
    void operator()(CFxUIGroupEnumerator *enumerator) const { enumerator->Release(); }
};

//! Owns a reference to a host object, and releases it on every exit path.
template<class T>
using Reference = std::unique_ptr<T, ReleaseReference>;

using GroupEnumerator = std::unique_ptr<CFxUIGroupEnumerator, ReleaseEnumerator>;

//! Reports, in debug builds, a call from a thread other than the GUI thread. Execution continues, because the
//! module must not terminate its host.
void assertGuiThread()
{
#ifndef NDEBUG
    const QCoreApplication *application = QCoreApplication::instance();
    if (application && QThread::currentThread() != application->thread())
        odaAssertFailed("HostAccess is called on the GUI thread", __FILE__, __LINE__);
#endif
}

CFxSystemServices *systemServices()
{
    assertGuiThread();
    return GetFxSystemServices();
}

CFxRecentFileList *recentFileList()
{
    CFxSystemServices *services = systemServices();
    CFxApplication *application = services ? services->GetApplication() : nullptr;
    CFxUserProfile *profile = application ? application->GetUserProfile() : nullptr;
    return profile ? profile->GetRecentFileList() : nullptr;
}

CFxDocumentManager *documentManager()
{
    CFxSystemServices *services = systemServices();
    return services ? services->GetDocumentManager() : nullptr;
}

CFxUICustomization *customization()
{
    CFxSystemServices *services = systemServices();
    return services ? services->GetCustomization() : nullptr;
}

//! The next group; null after the last one, or if the host gave no enumerator.
CFxUIGroup *nextOf(const GroupEnumerator &groups)
{
    return groups ? groups->Next() : nullptr;
}

Reference<OdEdCommandStack> commandStack()
{
    assertGuiThread();
    return Reference<OdEdCommandStack>(odedRegCmds());
}

Reference<OdEditor> editor()
{
    assertGuiThread();
    return Reference<OdEditor>(odedEditor());
}

} // namespace

namespace HostAccess {

bool hasServices()
{
    return systemServices() != nullptr;
}

std::optional<std::vector<CFxString>> recentFiles()
{
    const CFxRecentFileList *list = recentFileList();
    if (!list)
        return std::nullopt;
    std::vector<CFxString> paths;
    list->GetPaths(paths);
    return paths;
}

bool hasRecentFileList()
{
    return recentFileList() != nullptr;
}

QWidget *mainFrame()
{
    CFxSystemServices *services = systemServices();
    CFxMainFrame *frame = services ? services->GetMainFrame() : nullptr;
    return frame ? frame->GetMainWindow() : nullptr;
}

void openDocument(const CFxString &path)
{
    if (CFxDocumentManager *manager = documentManager()) {
        OdString result; // not used: the host has shown the reason to the user
        manager->OpenDocument(path, 0, 0, result);
    }
}

void runCommand(const CFxString &name)
{
    if (CFxSystemServices *services = systemServices())
        const Reference<OdRxObject> run(services->RunCommand(name, nullptr));
}

void addDocumentReactor(CFxDocumentManagerReactor *reactor)
{
    if (CFxDocumentManager *manager = documentManager())
        manager->AddReactor(reactor);
}

void removeDocumentReactor(CFxDocumentManagerReactor *reactor)
{
    if (CFxDocumentManager *manager = documentManager())
        manager->RemoveReactor(reactor);
}

void addEditorReactor(OdEditorReactor *reactor)
{
    if (const Reference<OdEditor> host = editor())
        host->addReactor(reactor);
}

void removeEditorReactor(OdEditorReactor *reactor)
{
    if (const Reference<OdEditor> host = editor())
        host->removeReactor(reactor);
}

void addCommand(OdEdCommand *command)
{
    if (const Reference<OdEdCommandStack> stack = commandStack())
        stack->addCommand(command);
}

void removeCommand(OdEdCommand *command)
{
    if (const Reference<OdEdCommandStack> stack = commandStack())
        stack->removeCommand(command);
}

bool isCommandRegistered(const OdString &name)
{
    const Reference<OdEdCommandStack> stack = commandStack();
    if (!stack)
        return false;
    constexpr int anyName = OdEdCommandStack::GlobalNames | OdEdCommandStack::LocalNames;
    const OdString anyGroup;
    return Reference<OdEdCommand>(stack->lookupCommand(name, anyName, anyGroup)) != nullptr;
}

CFxUIGroup *primaryGroup()
{
    CFxUICustomization *menus = customization();
    if (!menus)
        return nullptr;
    const GroupEnumerator enumerator(menus->EnumerateGroups());
    while (CFxUIGroup *group = nextOf(enumerator)) {
        if (menus->IsPrimary(group))
            return group;
    }
    return nullptr;
}

std::vector<CFxUIGroup *> groups()
{
    std::vector<CFxUIGroup *> all;
    if (CFxUICustomization *menus = customization()) {
        const GroupEnumerator enumerator(menus->EnumerateGroups());
        while (CFxUIGroup *group = nextOf(enumerator))
            all.push_back(group);
    }
    return all;
}

CFxUIGroup *startUpGroup()
{
    CFxUICustomization *menus = customization();
    return menus ? menus->GetStartUpGroup() : nullptr;
}

CFxUICommand *findCommand(const CFxUIGroup &group, const CFxString &identifier)
{
    const CFxUICustomization *menus = customization();
    return menus ? menus->FindCommand(group.GetName(), identifier) : nullptr;
}

std::unique_ptr<CFxUICommand> createCommand(const CFxString &identifier)
{
    CFxUICustomization *menus = customization();
    return std::unique_ptr<CFxUICommand>(menus ? menus->CreateCommand(identifier) : nullptr);
}

std::unique_ptr<CFxUIMenuItem> createMenuItem(const CFxString &identifier)
{
    CFxUICustomization *menus = customization();
    const CFxString none;
    return std::unique_ptr<CFxUIMenuItem>(menus ? menus->CreateMenuItem(nullptr, none, none, identifier)
                                                : nullptr);
}

std::unique_ptr<CFxUIAccelerator> createAccelerator(CFxUICommand *command)
{
    CFxUICustomization *menus = customization();
    return std::unique_ptr<CFxUIAccelerator>(menus ? menus->CreateAccelerator(command, CFxString())
                                                   : nullptr);
}

void refreshMenus()
{
    if (CFxUICustomization *menus = customization())
        menus->Refresh();
}

void readPreview(const CFxString &path, QImage &image)
{
    const std::shared_ptr<CFxPreviewBitmap> preview(CFxPreviewBitmap::Create());
    if (preview && preview->Load(path) && preview->IsValid())
        preview->ToImage(image);
}

} // namespace HostAccess
