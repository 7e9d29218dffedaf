// SPDX-License-Identifier: MIT
#pragma once

#include <FxSdkApi.h>

class CFxDocument;
class CFxString;

//! Is notified when drawings are created, opened, activated and closed. The default implementations do
//! nothing. GUI thread.
class FXSDK_API CFxDocumentManagerReactor
{
public:
    CFxDocumentManagerReactor() = default;
    virtual ~CFxDocumentManagerReactor();

    virtual void DocumentCreateStarted(CFxDocument *document); // [gui-thread]
    //! A drawing was created or opened. The recent-file list already contains an opened drawing. A module
    //! that is loaded while drawings are open is notified of the current one, after its initApp() and
    //! mainFrameCreated().
    virtual void DocumentCreated(CFxDocument *document);       // [gui-thread]
    virtual void DocumentToBeDestroyed(CFxDocument *document); // [gui-thread]
    //! The drawing was closed.
    //! \param path its full path; empty for a new drawing
    virtual void DocumentDestroyed(const CFxString &path);       // [gui-thread]
    virtual void DatabaseAttached(CFxDocument *document);        // [gui-thread]
    virtual void DatabaseDetached(CFxDocument *document);        // [gui-thread]
    virtual void DocumentToBeActivated(CFxDocument *document);   // [gui-thread]
    virtual void DocumentToBeDeactivated(CFxDocument *document); // [gui-thread]
    virtual void DocumentActivated(CFxDocument *document);       // [gui-thread]
    virtual void DocumentCreateCanceled(CFxDocument *document);  // [gui-thread]
    virtual void DocumentBecameCurrent(CFxDocument *document);   // [gui-thread]
    virtual void DocumentActivationModified(bool activation);    // [gui-thread]
    virtual void DocumentPreOpen(const CFxString &path);         // [gui-thread]

    CFxDocumentManagerReactor(const CFxDocumentManagerReactor &) = delete;
    CFxDocumentManagerReactor &operator=(const CFxDocumentManagerReactor &) = delete;
};
