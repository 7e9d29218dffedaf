// SPDX-License-Identifier: MIT
#pragma once

#include "module/OdRxUnixModuleRecentDocumentBrowser.h"
#include "tests/support/fake/FakeHost.h"

#include <QApplication>
#include <QMenu>

#include <algorithm>
#include <utility>

//! The module object in a fake host, for tests of what the host's calls do: nothing has been called on it but
//! its constructor. It is deleted as the host deletes it, and leaves the registry empty.
struct FakeModule
{
    FakeModule() = default;
    ~FakeModule() { end(); }
    Q_DISABLE_COPY(FakeModule)

    //! Deletes the module object early.
    void end()
    {
        if (module)
            std::exchange(module, nullptr)->deleteModule();
        RecentDocumentBrowser::recentFileImageMap.clear();
    }

    // As the host's lists contain it.
    CFxEditorReactor &editorReactor() const { return *module; }
    CFxDocumentManagerReactor &documentReactor() const { return *module; }

    FakeHost host;
    OdRxUnixModuleRecentDocumentBrowser *module =
        new OdRxUnixModuleRecentDocumentBrowser(nullptr, L"browser");
};

//! How many menus without a parent exist.
inline int parentlessMenus()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    return static_cast<int>(std::count_if(windows.begin(), windows.end(), [](const QWidget *window) {
        return qobject_cast<const QMenu *>(window) && !window->parent();
    }));
}
