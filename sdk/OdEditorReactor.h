// SPDX-License-Identifier: MIT
#pragma once

#include <FxSdkApi.h>

class OdString;

//! Hears of what the drawing engine's editor does. The handlers of this class do nothing. GUI thread.
class FXSDK_API OdEditorReactor
{
public:
    OdEditorReactor() = default;
    virtual ~OdEditorReactor();

    virtual void commandWillStart(const OdString &globalName); // [gui-thread]
    //! \param result what the command returned
    virtual void commandEnded(const OdString &globalName, int result); // [gui-thread]

    OdEditorReactor(const OdEditorReactor &) = delete;
    OdEditorReactor &operator=(const OdEditorReactor &) = delete;
};
