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

    //! A command is about to run. commandEnded() follows before the next command starts.
    virtual void commandWillStart(const OdString &globalName); // [gui-thread]
    //! A command has ended. The host no longer refers to it, so that its module can be ended.
    //! \param result the result of CFxCommand::Execute(); CFxCommand::failed if the command threw;
    //! CFxCommand::normalCompletion for a command of another class
    virtual void commandEnded(const OdString &globalName, int result); // [gui-thread]

    OdEditorReactor(const OdEditorReactor &) = delete;
    OdEditorReactor &operator=(const OdEditorReactor &) = delete;
};
