// SPDX-License-Identifier: MIT
#pragma once

#include <CFxString.h>
#include <FxSdkApi.h>

class CFxDocumentManager;
class CFxRecentFileList;
class CFxUICustomization;
class OdRxObject;
class QWidget;

//! What the host remembers for the person who uses it. GUI thread.
class FXSDK_API CFxUserProfile
{
public:
    CFxUserProfile() = default;
    virtual ~CFxUserProfile();
    //! Null when the host keeps no such list. Owned by the host.
    virtual CFxRecentFileList *GetRecentFileList() = 0; // [gui-thread]

    CFxUserProfile(const CFxUserProfile &) = delete;
    CFxUserProfile &operator=(const CFxUserProfile &) = delete;
};

//! The application as a whole. GUI thread.
class FXSDK_API CFxApplication
{
public:
    CFxApplication() = default;
    virtual ~CFxApplication();
    //! Null when nobody's profile is loaded. Owned by the host.
    virtual CFxUserProfile *GetUserProfile() = 0; // [gui-thread]

    CFxApplication(const CFxApplication &) = delete;
    CFxApplication &operator=(const CFxApplication &) = delete;
};

//! The application's main frame. GUI thread.
class FXSDK_API CFxMainFrame
{
public:
    CFxMainFrame() = default;
    virtual ~CFxMainFrame();
    //! The main window, or null before it is built and after it is gone. Owned by the host.
    virtual QWidget *GetMainWindow() = 0; // [gui-thread]

    CFxMainFrame(const CFxMainFrame &) = delete;
    CFxMainFrame &operator=(const CFxMainFrame &) = delete;
};

//! The way from a module to everything that the host offers. Any accessor may return null, and what it
//! returns is owned by the host. GUI thread.
class FXSDK_API CFxSystemServices
{
public:
    CFxSystemServices() = default;
    virtual ~CFxSystemServices();

    virtual CFxApplication *GetApplication() = 0;         // [gui-thread]
    virtual CFxMainFrame *GetMainFrame() = 0;             // [gui-thread]
    virtual CFxDocumentManager *GetDocumentManager() = 0; // [gui-thread]
    virtual CFxUICustomization *GetCustomization() = 0;   // [gui-thread]

    //! Runs a command, now, or once the running one has ended.
    //! \param name global or local name
    //! \param argument what stands behind the name; null for nothing
    //! \return a handle to the run, owned by the caller, or null
    virtual OdRxObject *RunCommand(const CFxString &name, const CFxString *argument) = 0; // [gui-thread]

    CFxSystemServices(const CFxSystemServices &) = delete;
    CFxSystemServices &operator=(const CFxSystemServices &) = delete;
};

//! The running host, or null while there is none. GUI thread.
FXSDK_API CFxSystemServices *GetFxSystemServices(); // [gui-thread]
