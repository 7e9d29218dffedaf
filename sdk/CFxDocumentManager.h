// SPDX-License-Identifier: MIT
#pragma once

#include <CFxString.h>
#include <FxSdkApi.h>
#include <OdString.h>

class CFxDocumentManagerReactor;

//! The host's open drawings. Notifies its reactors as OdEditor does. GUI thread.
class FXSDK_API CFxDocumentManager
{
public:
    CFxDocumentManager() = default;
    virtual ~CFxDocumentManager();

    //! Adds a reactor. Does nothing if it has been added already.
    //! \param reactor not null, not owned; must be removed before it is destroyed
    virtual void AddReactor(CFxDocumentManagerReactor *reactor) = 0; // [gui-thread]
    //! Removes a reactor. Does nothing if it has not been added.
    virtual void RemoveReactor(CFxDocumentManagerReactor *reactor) = 0; // [gui-thread]

    //! Opens a drawing. The window of one that is open is only activated, without DocumentCreated(). If this
    //! fails, the host shows the reason to the user. May run an event loop. Does not throw, because modules
    //! call this in Qt's event handlers.
    //! \param path full path
    //! \param mode, flags 0: open for editing in a separate window; other values are reserved
    //! \param result set to the reason if the drawing cannot be opened, otherwise to the empty string
    //! \return true if the drawing is open
    // [gui-thread]
    virtual bool OpenDocument(const CFxString &path, int mode, int flags, OdString &result) = 0;

    CFxDocumentManager(const CFxDocumentManager &) = delete;
    CFxDocumentManager &operator=(const CFxDocumentManager &) = delete;
};
