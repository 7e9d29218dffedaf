// SPDX-License-Identifier: MIT
#pragma once

#include <OdRxObject.h>

class OdEditorReactor;

//! The drawing engine's editor, which notifies reactors of its events, in the order in which they were added.
//! Reactors can be added and removed during an event: one that was removed is not notified any more, one that
//! was added is notified from the next event on. If a reactor throws, the host catches the exception and
//! notifies the others. GUI thread.
class FXSDK_API OdEditor : public OdRxObject
{
public:
    ~OdEditor() override;

    //! Adds a reactor. Does nothing if it has been added already. A CFxEditorReactor, which modules pass as
    //! its base class, is also notified of the events of its own class: the host finds it with dynamic_cast.
    //! \param reactor not null, not owned; must be removed before it is destroyed
    virtual void addReactor(OdEditorReactor *reactor) = 0; // [gui-thread]
    //! Removes a reactor. Does nothing if it has not been added.
    virtual void removeReactor(OdEditorReactor *reactor) = 0; // [gui-thread]
};

//! The engine's editor: a reference owned by the caller. Null if no host is running.
FXSDK_API OdEditor *odedEditor(); // [gui-thread]
