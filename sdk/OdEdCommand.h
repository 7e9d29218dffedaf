// SPDX-License-Identifier: MIT
#pragma once

#include <OdRxObject.h>
#include <OdString.h>

#include <cstdint>

class OdEdCommandContext;

//! A command that the engine's command stack can look up and run. GUI thread.
class FXSDK_API OdEdCommand : public OdRxObject
{
public:
    ~OdEdCommand() override;

    //! The group that the command is registered in; with the names it identifies the command.
    virtual OdString groupName() const = 0; // [gui-thread]
    //! The name that is the same in every language, e.g. "_RECENT".
    virtual OdString globalName() const = 0; // [gui-thread]
    //! The name in the user's language.
    virtual OdString localName() const = 0;                // [gui-thread]
    virtual void execute(OdEdCommandContext *context) = 0; // [gui-thread]
    //! Called when the command leaves the stack.
    virtual void undefine() = 0; // [gui-thread]
    //! Bits whose meaning is the host's.
    virtual std::uint32_t flags() const = 0; // [gui-thread]
};
