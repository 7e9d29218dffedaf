// SPDX-License-Identifier: MIT
#pragma once

#include "module/OdRxUnixModuleRecentDocumentBrowser.h"
#include "tests/support/fake/FakeHost.h"

//! The module object in a fake host, for tests of what the host's calls do: nothing has been called on it but
//! its constructor. It is deleted as the host deletes it, and leaves the registry empty.
struct FakeModule
{
    FakeModule() = default;
    ~FakeModule() { end(); }
    Q_DISABLE_COPY(FakeModule)

    //! Deletes the module object early.
    void end();

    // As the host's lists contain it.
    CFxEditorReactor &editorReactor() const { return *module; }
    CFxDocumentManagerReactor &documentReactor() const { return *module; }

    FakeHost host;
    OdRxUnixModuleRecentDocumentBrowser *module =
        new OdRxUnixModuleRecentDocumentBrowser(nullptr, L"browser");
};

//! How many menus without a parent exist.
int parentlessMenus();
