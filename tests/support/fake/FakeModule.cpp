// SPDX-License-Identifier: MIT
#include "tests/support/fake/FakeModule.h"

#include <QApplication>
#include <QMenu>

#include <algorithm>
#include <utility>

void FakeModule::end()
{
    if (module)
        std::exchange(module, nullptr)->deleteModule();
    RecentDocumentBrowser::recentFileImageMap.clear();
}

int parentlessMenus()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    return static_cast<int>(std::count_if(windows.begin(), windows.end(), [](const QWidget *window) {
        return qobject_cast<const QMenu *>(window) && !window->parent();
    }));
}
