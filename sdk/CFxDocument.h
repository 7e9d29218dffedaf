// SPDX-License-Identifier: MIT
#pragma once

#include <CFxString.h>
#include <FxSdkApi.h>

//! An open drawing. Owned by the host; valid until DocumentDestroyed. GUI thread.
class FXSDK_API CFxDocument
{
public:
    CFxDocument() = default;
    virtual ~CFxDocument();

    //! Full path exactly as the drawing was opened; empty for a new drawing.
    virtual CFxString path() const = 0; // [gui-thread]
    //! What the window shows: the file's name, or the new drawing's.
    virtual CFxString title() const = 0; // [gui-thread]

    CFxDocument(const CFxDocument &) = delete;
    CFxDocument &operator=(const CFxDocument &) = delete;
};
