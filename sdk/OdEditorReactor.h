// SPDX-License-Identifier: MIT
#pragma once

#include <FxSdkApi.h>

class OdString;

//! Is notified of events of the drawing engine's editor. The default implementations do nothing. GUI thread.
class FXSDK_API OdEditorReactor
{
public:
    OdEditorReactor() = default;
    virtual ~OdEditorReactor();

    virtual void commandWillStart(const OdString &globalName); // [gui-thread]
    //! \param result the command's return value
    virtual void commandEnded(const OdString &globalName, int result); // [gui-thread]

    OdEditorReactor(const OdEditorReactor &) = delete;
    OdEditorReactor &operator=(const OdEditorReactor &) = delete;
};
