// SPDX-License-Identifier: MIT
#pragma once

#include <OdRxObject.h>

class OdEditorReactor;

//! The drawing engine's editor, which notifies reactors of its events. GUI thread.
class FXSDK_API OdEditor : public OdRxObject
{
public:
    ~OdEditor() override;

    //! Adds a reactor. Does nothing if it has been added already.
    //! \param reactor not null, not owned; must be removed before it is destroyed
    virtual void addReactor(OdEditorReactor *reactor) = 0; // [gui-thread]
    //! Removes a reactor. Does nothing if it has not been added.
    virtual void removeReactor(OdEditorReactor *reactor) = 0; // [gui-thread]
};

//! The engine's editor: a reference owned by the caller. Null if no host is running.
FXSDK_API OdEditor *odedEditor(); // [gui-thread]
