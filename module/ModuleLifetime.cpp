// SPDX-License-Identifier: MIT
#include "module/ModuleLifetime.h"

#include "module/RecentDocumentBrowser.h"
#include "state/ButtonIcons.h"
#include "ui/QBalloonTip.h"
#include "ui/RecentDocMainWindow.h"

#include <OdRxObject.h>

#include <QApplication>
#include <QMenu>
#include <QPointer>

#include <vector>

namespace {

std::vector<QPointer<QObject>> keptObjects;
std::vector<std::unique_ptr<OdRxObject>> keptCommands;

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
    keptObjects.emplace_back(object);
}

void keep(std::unique_ptr<OdRxObject> object)
{
    keptCommands.push_back(std::move(object));
}

void end()
{
    keptCommands.clear();
    // The registry points into what goes now. A host may create the module anew in the same process.
    RecentDocumentBrowser::recentDocDialogList.clear();
    RecentDocumentBrowser::recentFileImageMap.clear();
    RecentDocumentBrowser::docPinButtonList.clear();
    RecentDocumentBrowser::menuPinButtonList.clear();
    RecentDocumentBrowser::recentDocActionList.clear();
    RecentDocumentBrowser::recentDocMenu = nullptr;
    RecentDocumentBrowser::before = nullptr;

    if (QApplication::instance()) { // widgets die with the application at the latest
        deleteWindows<RecentDocMainWindow>();
        deleteWindows<QBalloonTip>();
        for (const QPointer<QObject> &object : keptObjects)
            delete object;
    }
    keptObjects.clear();
    ButtonIcons::drop();
}

} // namespace ModuleLifetime
