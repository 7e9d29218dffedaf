// SPDX-License-Identifier: MIT
#pragma once

#include <OdRxObject.h>
#include <OdString.h>

//! The object through which the engine starts and ends a dynamically loaded library. Only addRef(), release()
//! and numRefs() can be called on other threads than the GUI thread.
//!
//! The library exports the two functions below with C linkage. To load it, a host
//! 1. calls `odrxGetAPIVersion`, and refuses the library if one of the four numbers differs from its own,
//! 2. calls `odrxCreateModuleObject`, addRef() and initApp(),
//! 3. notifies the module's reactors of what exists already: with CFxEditorReactor::mainFrameCreated() of the
//!    main window, then with CFxDocumentManagerReactor::DocumentCreated() of the current drawing.
//!
//! To end the module, a host
//! 1. notifies its reactors with CFxEditorReactor::mainFrameDestroyed(), unless there was no main window, or
//!    they were notified when it was destroyed; modules remove their commands and reactors then,
//! 2. calls uninitApp(),
//! 3. removes the commands and reactors that the module has left, because the next event would call code that
//!    is gone; they are those whose type information is in the library (`typeid`, `dladdr()`),
//! 4. calls release() and deleteModule(),
//! 5. deletes the remaining widgets of the library's classes, other than static objects, and then runs the
//!    deferred deletions: `QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete)`,
//! 6. unloads the library.
//!
//! If initApp() throws, the host continues with step 3 of the end. It catches what reactors, uninitApp() and
//! deleteModule() throw, and continues. All services exist until the last module has ended.
//!
//! A module must not be ended beneath its own code, which could not return: while a command of one of the
//! library's classes is running, or a function of the library is on the call stack (`backtrace()`,
//! `dladdr()`), as in the event loop of its drag or dialog.
class FXSDK_API OdRxModule : public OdRxObject
{
public:
    ~OdRxModule() override;

    //! The handle that the loader passed to odrxCreateModuleObject, unchanged.
    virtual void *sysData() = 0; // [gui-thread]
    //! Deletes the module object. Afterwards the module must not be called, and none of its threads may
    //! execute its code.
    virtual void deleteModule() = 0; // [gui-thread]
    //! Called once after loading, before or after the main window is created. Throws if the module cannot
    //! start.
    virtual void initApp() = 0; // [gui-thread]
    //! Called once before deleteModule(), unless initApp() has thrown.
    virtual void uninitApp() = 0; // [gui-thread]
    //! The name that the host passed to `odrxCreateModuleObject`: a text of its choice, such as the library's
    //! path.
    virtual OdString moduleName() const = 0; // [gui-thread]
};

//! Type of the exported `odrxGetAPIVersion`: returns the interface version that the module was built with.
using OdrxGetApiVersionFn = void (*)(int &major, int &minor, int &majorBuild, int &minorBuild);
//! Type of the exported `odrxCreateModuleObject`: returns the module object with a reference count of 0. Can
//! throw std::bad_alloc. A library has only one module object, so a host must not start a library again while
//! it is loaded: `dlopen()` returns the same handle for it.
using OdrxCreateModuleObjectFn = OdRxModule *(*)(void *sysData, const OdChar *moduleName);

//! The interface version of these headers: 4.3.2.0. Only the same version is compatible.
constexpr int odrxApiMajor = 4;
constexpr int odrxApiMinor = 3;
constexpr int odrxApiMajorBuild = 2;
constexpr int odrxApiMinorBuild = 0;
