// SPDX-License-Identifier: MIT
#pragma once

#include <OdRxObject.h>
#include <OdString.h>

#include <cstdint>

class OdEdCommandContext;

//! A command that can be registered in the engine's command stack. Its group and names must not change while
//! it is registered. GUI thread.
class FXSDK_API OdEdCommand : public OdRxObject
{
public:
    ~OdEdCommand() override;

    //! The group of the command. Group and names together identify the command.
    virtual OdString groupName() const = 0; // [gui-thread]
    //! The name that is the same in every language, e.g. "_RECENT".
    virtual OdString globalName() const = 0; // [gui-thread]
    //! The name in the user's language.
    virtual OdString localName() const = 0; // [gui-thread]
    //! Runs the command. The host catches what it throws, and shows the reason to the user.
    //! \param context not null
    virtual void execute(OdEdCommandContext *context) = 0; // [gui-thread]
    //! Called when the command was removed from the stack or replaced, before its reference is released.
    virtual void undefine() = 0; // [gui-thread]
    //! Bits that the host defines; it may ignore them.
    virtual std::uint32_t flags() const = 0; // [gui-thread]
};
