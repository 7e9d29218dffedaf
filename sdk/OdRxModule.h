// SPDX-License-Identifier: MIT
#pragma once

#include <OdRxObject.h>
#include <OdString.h>

//! The object through which the engine starts and ends a dynamically loaded library.
//!
//! The library exports the two functions below with C linkage. The loader compares the version, creates the
//! object, takes a reference and calls initApp(). Later it calls uninitApp(), release() and deleteModule(),
//! and unloads the library. Only addRef(), release() and numRefs() can be called on other threads than the
//! GUI thread.
class FXSDK_API OdRxModule : public OdRxObject
{
public:
    ~OdRxModule() override;

    //! The handle that the loader passed to odrxCreateModuleObject, unchanged.
    virtual void *sysData() = 0; // [gui-thread]
    //! Deletes the module object. The module must not be called afterwards.
    virtual void deleteModule() = 0; // [gui-thread]
    //! Called once after loading. Throws if the module cannot start.
    virtual void initApp() = 0; // [gui-thread]
    //! Called once before deleteModule().
    virtual void uninitApp() = 0; // [gui-thread]
    //! The name under which the module was loaded.
    virtual OdString moduleName() const = 0; // [gui-thread]
};

//! Type of the exported `odrxGetAPIVersion`: returns the interface version that the module was built with.
using OdrxGetApiVersionFn = void (*)(int &major, int &minor, int &majorBuild, int &minorBuild);
//! Type of the exported `odrxCreateModuleObject`: returns the module object with a reference count of 0. Can
//! throw std::bad_alloc.
using OdrxCreateModuleObjectFn = OdRxModule *(*)(void *sysData, const OdChar *moduleName);

//! The interface version of these headers: 4.3.2.0.
constexpr int odrxApiMajor = 4;
constexpr int odrxApiMinor = 3;
constexpr int odrxApiMajorBuild = 2;
constexpr int odrxApiMinorBuild = 0;
