// SPDX-License-Identifier: MIT
#pragma once

#include "module/RecentDocumentBrowser.h"

#include <OdRxUnixModule.h>

//! The module object that the host holds. GUI thread, but for the reference count.
class OdRxUnixModuleRecentDocumentBrowser final
    : public OdRxUnixModule<RecentDocumentBrowser, RecentDocumentBrowser>
{
public:
    using OdRxUnixModule::OdRxUnixModule;

    void deleteModule() override;
};

//! The library's one module object; null before it is created and after it is deleted.
extern OdRxUnixModuleRecentDocumentBrowser *g_pSingletonModule;
