// SPDX-License-Identifier: MIT
#pragma once

#include <CFxString.h>
#include <FxSdkApi.h>
#include <OdString.h>

class CFxDocumentManagerReactor;

//! The host's open drawings. GUI thread.
class FXSDK_API CFxDocumentManager
{
public:
    CFxDocumentManager() = default;
    virtual ~CFxDocumentManager();

    //! \param reactor not null, not owned; must be removed before it goes away; listed once
    virtual void AddReactor(CFxDocumentManagerReactor *reactor) = 0; // [gui-thread]
    //! A reactor that is not listed: nothing happens.
    virtual void RemoveReactor(CFxDocumentManagerReactor *reactor) = 0; // [gui-thread]

    //! Opens a drawing, or brings its window to the front when it is open. What cannot be opened is told to
    //! the person by the host. May run an event loop.
    //! \param path full path
    //! \param mode, flags 0: open for editing in a window of its own; other values are reserved
    //! \param result set to why the drawing could not be opened, else to the empty string
    //! \return whether the drawing is open now
    // [gui-thread]
    virtual bool OpenDocument(const CFxString &path, int mode, int flags, OdString &result) = 0;

    CFxDocumentManager(const CFxDocumentManager &) = delete;
    CFxDocumentManager &operator=(const CFxDocumentManager &) = delete;
};
