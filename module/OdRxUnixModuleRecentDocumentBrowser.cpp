// SPDX-License-Identifier: MIT
#include "module/OdRxUnixModuleRecentDocumentBrowser.h"

OdRxUnixModuleRecentDocumentBrowser *g_pSingletonModule = nullptr;

void OdRxUnixModuleRecentDocumentBrowser::deleteModule()
{
    g_pSingletonModule = nullptr;
    delete this;
}
