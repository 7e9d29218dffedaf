// SPDX-License-Identifier: MIT
#pragma once

#include <CFxString.h>
#include <FxSdkApi.h>

//! An open drawing. Owned by the host; valid until CFxDocumentManagerReactor::DocumentDestroyed(). GUI
//! thread.
class FXSDK_API CFxDocument
{
public:
    CFxDocument() = default;
    virtual ~CFxDocument();

    //! The full path exactly as it was opened; empty for a new drawing.
    virtual CFxString path() const = 0; // [gui-thread]
    //! The window title: the file name, or the name of a new drawing.
    virtual CFxString title() const = 0; // [gui-thread]

    CFxDocument(const CFxDocument &) = delete;
    CFxDocument &operator=(const CFxDocument &) = delete;
};
