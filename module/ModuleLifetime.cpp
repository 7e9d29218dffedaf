// SPDX-License-Identifier: MIT
#include "module/ModuleLifetime.h"

#include "module/RecentDocumentBrowser.h"
#include "state/SharedIcons.h"
#include "state/TileOwner.h"
#include "ui/Accessibility.h"
#include "ui/QBalloonTip.h"
#include "ui/RecentDocMainWindow.h"
#include "ui/StyledGrounds.h"
#include "ui/TilePictures.h"

#include <OdRxObject.h>

#include <QApplication>
#include <QMenu>
#include <QPointer>

#include <utility>
#include <vector>

namespace {

struct Kept
{
    std::vector<QPointer<QObject>> objects;
    std::vector<std::unique_ptr<OdRxObject>> commands;
};

//! A plain pointer, because a host that is a static object is destroyed after the library's static objects;
//! it still calls the commands and deletes the module object then.
Kept *kept = nullptr;

Kept &ensureKept()
{
    if (!kept)
        kept = new Kept;
    return *kept;
}

template<class Window>
void deleteWindows()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        if (qobject_cast<Window *>(window))
            delete window;
    }
}

} // namespace

namespace ModuleLifetime {

void keep(QObject *object)
{
    ensureKept().objects.emplace_back(object);
}

void keep(std::unique_ptr<OdRxObject> object)
{
    ensureKept().commands.push_back(std::move(object));
}

void end()
{
    // The process is exiting and the host is a static object: Qt's static objects, which widgets need, may
    // already be destroyed, too.
    if (!TileOwner::registryExists())
        return;

    // The objects in the registry are deleted now. A host may create the module again in the same process.
    RecentDocumentBrowser::recentDocDialogList.clear();
    RecentDocumentBrowser::recentFileImageMap.clear();
    RecentDocumentBrowser::docPinButtonList.clear();
    RecentDocumentBrowser::menuPinButtonList.clear();
    RecentDocumentBrowser::recentDocActionList.clear();
    RecentDocumentBrowser::recentDocMenu = nullptr;
    RecentDocumentBrowser::before = nullptr;

    const std::unique_ptr<const Kept> remaining(std::exchange(kept, nullptr));
    if (!QCoreApplication::closingDown()) // Qt removes accessibility factories with the application
        Accessibility::end();
    if (QApplication::instance()) { // without one, all widgets have been deleted
        deleteWindows<RecentDocMainWindow>();
        deleteWindows<QBalloonTip>();
        for (const QPointer<QObject> &object :
             remaining ? remaining->objects : std::vector<QPointer<QObject>>())
            delete object;
    }
    SharedIcons::drop();
    StyledGrounds::clear();
    TilePictures::drop();
}

} // namespace ModuleLifetime
