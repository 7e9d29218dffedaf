// SPDX-License-Identifier: MIT
#pragma once

#include <FxSdkApi.h>

class CFxDocument;
class CFxString;

//! Hears of drawings that come, go and change places. The handlers of this class do nothing. GUI thread.
class FXSDK_API CFxDocumentManagerReactor
{
public:
    CFxDocumentManagerReactor() = default;
    virtual ~CFxDocumentManagerReactor();

    virtual void DocumentCreateStarted(CFxDocument *document);
    //! A drawing was created or opened; an opened one is in the recent-file list already. A module that is
    //! loaded while drawings are open is notified of the current one, after its initApp() and
    //! mainFrameCreated().
    virtual void DocumentCreated(CFxDocument *document);
    virtual void DocumentToBeDestroyed(CFxDocument *document);
    //! The drawing is gone. \param path where it was, empty for a new drawing
    virtual void DocumentDestroyed(const CFxString &path);
    virtual void DatabaseAttached(CFxDocument *document);
    virtual void DatabaseDetached(CFxDocument *document);
    virtual void DocumentToBeActivated(CFxDocument *document);
    virtual void DocumentToBeDeactivated(CFxDocument *document);
    virtual void DocumentActivated(CFxDocument *document);
    virtual void DocumentCreateCanceled(CFxDocument *document);
    virtual void DocumentBecameCurrent(CFxDocument *document);
    virtual void DocumentActivationModified(bool activation);
    virtual void DocumentPreOpen(const CFxString &path);

    CFxDocumentManagerReactor(const CFxDocumentManagerReactor &) = delete;
    CFxDocumentManagerReactor &operator=(const CFxDocumentManagerReactor &) = delete;
};
