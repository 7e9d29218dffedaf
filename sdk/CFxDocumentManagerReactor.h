// SPDX-License-Identifier: MIT
#pragma once

#include <FxSdkApi.h>

class CFxDocument;
class CFxString;

//! Is notified when drawings are created, opened, activated and closed. The default implementations do
//! nothing. GUI thread.
//!
//! The order of the events, here without "Document":
//! - A drawing is created or opened: PreOpen if it is opened, CreateStarted, DatabaseAttached, Created. If it
//!   cannot be opened, only CFxEditorReactor::cancelDwgOpen(), with or without PreOpen before it.
//! - A drawing is closed: ToBeDestroyed, DatabaseDetached, Destroyed.
//! - The current drawing changes: ToBeDeactivated for the former one, which may be left out if that is being
//!   closed, ToBeActivated, Activated and BecameCurrent for the new one, ActivationModified. A new drawing
//!   becomes current after DatabaseAttached, before or after Created. When the current one is closed, the
//!   change may come before, between or after the events of closing.
//!
//! Reactors may open, close and activate drawings in each of these. No document is null.
class FXSDK_API CFxDocumentManagerReactor
{
public:
    CFxDocumentManagerReactor() = default;
    virtual ~CFxDocumentManagerReactor();

    virtual void DocumentCreateStarted(CFxDocument *document); // [gui-thread]
    //! A drawing was created or opened. The recent-file list already contains an opened drawing. A module
    //! that is loaded while drawings are open is notified of the current one, by this call only, after its
    //! initApp() and mainFrameCreated().
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
    //! \param activation false if no drawing is open any more
    virtual void DocumentActivationModified(bool activation); // [gui-thread]
    virtual void DocumentPreOpen(const CFxString &path);      // [gui-thread]

    CFxDocumentManagerReactor(const CFxDocumentManagerReactor &) = delete;
    CFxDocumentManagerReactor &operator=(const CFxDocumentManagerReactor &) = delete;
};
