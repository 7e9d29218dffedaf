// SPDX-License-Identifier: MIT
#include "module/BrowserApi.h"
#include "module/OdRxUnixModuleRecentDocumentBrowser.h"

//! Returns the interface version that the module was built with.
extern "C" BROWSER_API void odrxGetAPIVersion(int &major, int &minor, int &majorBuild, int &minorBuild)
{
    major = odrxApiMajor;
    minor = odrxApiMinor;
    majorBuild = odrxApiMajorBuild;
    minorBuild = odrxApiMinorBuild;
}

//! Returns the library's only module object, creating it on the first call. Throws std::bad_alloc.
extern "C" BROWSER_API OdRxModule *odrxCreateModuleObject(void *sysData, const OdChar *moduleName)
{
    if (!g_pSingletonModule)
        g_pSingletonModule = new OdRxUnixModuleRecentDocumentBrowser(sysData, moduleName);
    return g_pSingletonModule;
}

//! Resets the pointer to the module object without deleting the object.
extern "C" BROWSER_API void deleteModuleObject()
{
    g_pSingletonModule = nullptr;
}
