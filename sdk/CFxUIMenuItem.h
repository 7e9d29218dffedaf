// SPDX-License-Identifier: MIT
#pragma once

#include <CFxString.h>
#include <FxSdkApi.h>

class CFxUICommand;

//! A menu, a menu entry or a separator in the customisation data. Owned by the host. GUI thread.
class FXSDK_API CFxUIMenuItem
{
public:
    CFxUIMenuItem() = default;
    virtual ~CFxUIMenuItem();

    virtual CFxString GetIdentifier() const = 0;       // [gui-thread]
    virtual CFxString GetLabel() const = 0;            // [gui-thread]
    virtual void SetLabel(const CFxString &label) = 0; // [gui-thread]

    //! Null for menus and separators.
    virtual CFxUICommand *GetCommand() const = 0; // [gui-thread]
    //! \param command may be null; not owned, must live as long as this
    virtual void SetCommand(CFxUICommand *command) = 0; // [gui-thread]

    virtual int GetChildCount() const = 0; // [gui-thread]
    //! Returns null if index is out of range.
    virtual CFxUIMenuItem *GetChild(int index) const = 0; // [gui-thread]
    //! Inserts item before the child at index reference and takes ownership of it. The browser passes the
    //! number of children less two, so a File menu of fewer than two children gets no entry.
    //! \return false if reference is out of range; the item is then not inserted and the caller keeps it
    virtual bool InsertChild(int reference, CFxUIMenuItem *item) = 0; // [gui-thread]

    CFxUIMenuItem(const CFxUIMenuItem &) = delete;
    CFxUIMenuItem &operator=(const CFxUIMenuItem &) = delete;
};
