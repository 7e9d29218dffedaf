// SPDX-License-Identifier: MIT
#include "module/ModuleLifetime.h"

#include "module/RecentDocumentBrowser.h"
#include "state/ButtonIcons.h"
#include "state/TileOwner.h"
#include "ui/Accessibility.h"
#include "ui/QBalloonTip.h"
#include "ui/RecentDocMainWindow.h"

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

//! A plain pointer: a host that is a static object itself ends after the library's static objects, and still
//! calls the commands and deletes the module object then.
Kept *kept = nullptr;

Kept &whatIsKept()
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
    whatIsKept().objects.emplace_back(object);
}

void keep(std::unique_ptr<OdRxObject> object)
{
    whatIsKept().commands.push_back(std::move(object));
}

void end()
{
    // The process ends, and the host is a static object: Qt's own ones, which widgets need, may be gone too.
    if (!TileOwner::registryExists())
        return;

    // The registry points into what goes now. A host may create the module anew in the same process.
    RecentDocumentBrowser::recentDocDialogList.clear();
    RecentDocumentBrowser::recentFileImageMap.clear();
    RecentDocumentBrowser::docPinButtonList.clear();
    RecentDocumentBrowser::menuPinButtonList.clear();
    RecentDocumentBrowser::recentDocActionList.clear();
    RecentDocumentBrowser::recentDocMenu = nullptr;
    RecentDocumentBrowser::before = nullptr;

    const std::unique_ptr<const Kept> going(std::exchange(kept, nullptr));
    if (!QCoreApplication::closingDown()) // with the application Qt forgets who describes widgets
        Accessibility::end();
    if (QApplication::instance()) { // widgets die with the application at the latest
        deleteWindows<RecentDocMainWindow>();
        deleteWindows<QBalloonTip>();
        for (const QPointer<QObject> &object : going ? going->objects : std::vector<QPointer<QObject>>())
            delete object;
    }
    ButtonIcons::drop();
}

} // namespace ModuleLifetime
