// SPDX-License-Identifier: MIT
#pragma once

#include <OdRxObject.h>
#include <OdString.h>

//! What a dynamically loaded library hands to the engine: one object through which it is started and ended.
//!
//! The library exports, under their plain names, the two functions below. The loader compares the version,
//! creates the object, takes a reference, calls initApp(); later uninitApp(), release(), deleteModule(), and
//! then unloads the library. All calls but addRef() and release() are made on the GUI thread.
class FXSDK_API OdRxModule : public OdRxObject
{
public:
    ~OdRxModule() override;

    //! The handle that the loader passed to odrxCreateModuleObject, untouched.
    virtual void *sysData() = 0; // [gui-thread]
    //! Deletes the module object. Nothing of the module may be called afterwards.
    virtual void deleteModule() = 0; // [gui-thread]
    //! Called once after loading. An exception means that the module could not start.
    virtual void initApp() = 0; // [gui-thread]
    //! Called once before deleteModule().
    virtual void uninitApp() = 0; // [gui-thread]
    //! The name under which the module was loaded.
    virtual OdString moduleName() const = 0; // [gui-thread]
};

//! Type of the exported `odrxGetAPIVersion`: writes the interface version that the module was built against.
using OdrxGetApiVersionFn = void (*)(int &major, int &minor, int &majorBuild, int &minorBuild);
//! Type of the exported `odrxCreateModuleObject`: the module object, whose count is still 0. May throw
//! std::bad_alloc.
using OdrxCreateModuleObjectFn = OdRxModule *(*)(void *sysData, const OdChar *moduleName);

//! The interface version of these headers: 4.3.2.0.
constexpr int odrxApiMajor = 4;
constexpr int odrxApiMinor = 3;
constexpr int odrxApiMajorBuild = 2;
constexpr int odrxApiMinorBuild = 0;
