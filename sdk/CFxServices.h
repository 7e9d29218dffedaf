// SPDX-License-Identifier: MIT
#pragma once

#include <CFxString.h>
#include <FxSdkApi.h>

class CFxDocumentManager;
class CFxRecentFileList;
class CFxUICustomization;
class OdRxObject;
class QWidget;

//! The data that the host stores for its user. GUI thread.
class FXSDK_API CFxUserProfile
{
public:
    CFxUserProfile() = default;
    virtual ~CFxUserProfile();
    //! The list of recent documents, owned by the host; null if the host has none.
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
    //! The current user's profile, owned by the host; null if none is loaded.
    virtual CFxUserProfile *GetUserProfile() = 0; // [gui-thread]

    CFxApplication(const CFxApplication &) = delete;
    CFxApplication &operator=(const CFxApplication &) = delete;
};

//! Access to the application's main window. GUI thread.
class FXSDK_API CFxMainFrame
{
public:
    CFxMainFrame() = default;
    virtual ~CFxMainFrame();
    //! The main window, owned by the host; null before it is created and after it is destroyed.
    virtual QWidget *GetMainWindow() = 0; // [gui-thread]

    CFxMainFrame(const CFxMainFrame &) = delete;
    CFxMainFrame &operator=(const CFxMainFrame &) = delete;
};

//! A module's access to the host's services. Every accessor can return null; the host owns the returned
//! objects. GUI thread.
class FXSDK_API CFxSystemServices
{
public:
    CFxSystemServices() = default;
    virtual ~CFxSystemServices();

    virtual CFxApplication *GetApplication() = 0;         // [gui-thread]
    virtual CFxMainFrame *GetMainFrame() = 0;             // [gui-thread]
    virtual CFxDocumentManager *GetDocumentManager() = 0; // [gui-thread]
    virtual CFxUICustomization *GetCustomization() = 0;   // [gui-thread]

    //! Runs a command immediately, or after the running command has ended. The host reports to
    //! the user if the command is unknown, or throws.
    //! \param name global or local name
    //! \param argument the text that follows the name; null for none
    //! \return a reference that the caller owns and releases, or null, as when the host is ending
    virtual OdRxObject *RunCommand(const CFxString &name, const CFxString *argument) = 0; // [gui-thread]

    CFxSystemServices(const CFxSystemServices &) = delete;
    CFxSystemServices &operator=(const CFxSystemServices &) = delete;
};

//! The running host's services; null if no host is running.
FXSDK_API CFxSystemServices *GetFxSystemServices(); // [gui-thread]
