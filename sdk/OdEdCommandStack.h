// SPDX-License-Identifier: MIT
#pragma once

#include <OdRxObject.h>
#include <OdString.h>

class OdEdCommand;

//! The engine's registered commands. Groups and names are compared without regard to case. GUI thread.
class FXSDK_API OdEdCommandStack : public OdRxObject
{
public:
    //! The names that lookupCommand() compares; can be combined.
    enum LookupFlags { GlobalNames = 1, LocalNames = 2 };

    ~OdEdCommandStack() override;

    //! Registers a command and takes a reference to it. Replaces a command with the same group and global
    //! name.
    //! \param command not null; must live until it is removed and, if it is running then, has ended
    virtual void addCommand(OdEdCommand *command) = 0; // [gui-thread]
    //! Removes the command with the same group and names, which need not be the same object. Does nothing if
    //! there is none.
    //! \param command not null
    virtual void removeCommand(OdEdCommand *command) = 0; // [gui-thread]
    //! Finds a command.
    //! \param flags LookupFlags
    //! \param group the group to search; empty for all groups
    //! \return a reference owned by the caller, or null
    // [gui-thread]
    virtual OdEdCommand *lookupCommand(const OdString &name, int flags, const OdString &group) const = 0;
};

//! The engine's command stack: a reference owned by the caller. Null if no host is running.
FXSDK_API OdEdCommandStack *odedRegCmds(); // [gui-thread]
