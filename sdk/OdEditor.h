// SPDX-License-Identifier: MIT
#pragma once

#include <OdRxObject.h>

class OdEditorReactor;

//! The drawing engine's editor, as far as modules listen to it. GUI thread.
class FXSDK_API OdEditor : public OdRxObject
{
public:
    ~OdEditor() override;

    //! The reactor is told of events from now on; one that is listed already stays listed once.
    //! \param reactor not null, not owned; must be removed before it goes away
    virtual void addReactor(OdEditorReactor *reactor) = 0; // [gui-thread]
    //! A reactor that is not listed: nothing happens.
    virtual void removeReactor(OdEditorReactor *reactor) = 0; // [gui-thread]
};

//! The engine's one editor: a reference owned by the caller. Null while no host is running.
FXSDK_API OdEditor *odedEditor(); // [gui-thread]
