// SPDX-License-Identifier: MIT
#include "module/BrowserApi.h"
#include "module/OdRxUnixModuleRecentDocumentBrowser.h"

//! Writes the interface version that the module is built against.
extern "C" BROWSER_API void odrxGetAPIVersion(int &major, int &minor, int &majorBuild, int &minorBuild)
{
    major = odrxApiMajor;
    minor = odrxApiMinor;
    majorBuild = odrxApiMajorBuild;
    minorBuild = odrxApiMinorBuild;
}

//! The library's one module object, made on the first call. Throws std::bad_alloc.
extern "C" BROWSER_API OdRxModule *odrxCreateModuleObject(void *sysData, const OdChar *moduleName)
{
    if (!g_pSingletonModule)
        g_pSingletonModule = new OdRxUnixModuleRecentDocumentBrowser(sysData, moduleName);
    return g_pSingletonModule;
}

//! Forgets the module object without deleting it.
extern "C" BROWSER_API void deleteModuleObject()
{
    g_pSingletonModule = nullptr;
}
