// SPDX-License-Identifier: MIT
#pragma once

#include "module/RecentDocumentBrowser.h"

#include <OdRxUnixModule.h>

//! The module object that the host owns. GUI thread, except for the reference count.
class OdRxUnixModuleRecentDocumentBrowser final
    : public OdRxUnixModule<RecentDocumentBrowser, RecentDocumentBrowser>
{
public:
    using OdRxUnixModule::OdRxUnixModule;

    void deleteModule() override;
};

//! The library's only module object; null before it is created and after it is deleted.
extern OdRxUnixModuleRecentDocumentBrowser *g_pSingletonModule;
