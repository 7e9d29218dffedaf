// SPDX-License-Identifier: MIT
#pragma once

#include <CFxString.h>
#include <FxSdkApi.h>

#include <QKeySequence>

class CFxUICommand;

//! A key sequence that runs a command definition. Owned by the host. GUI thread.
class FXSDK_API CFxUIAccelerator
{
public:
    CFxUIAccelerator() = default;
    virtual ~CFxUIAccelerator();

    virtual CFxString GetIdentifier() const = 0;       // [gui-thread]
    virtual CFxString GetLabel() const = 0;            // [gui-thread]
    virtual void SetLabel(const CFxString &label) = 0; // [gui-thread]
    virtual QKeySequence GetKey() const = 0;           // [gui-thread]
    virtual void SetKey(const QKeySequence &key) = 0;  // [gui-thread]
    //! The command definition that the key runs; null while it does not exist.
    virtual CFxUICommand *GetCommand() const = 0; // [gui-thread]

    CFxUIAccelerator(const CFxUIAccelerator &) = delete;
    CFxUIAccelerator &operator=(const CFxUIAccelerator &) = delete;
};
