// SPDX-License-Identifier: MIT
#pragma once

#include <CFxString.h>
#include <FxSdkApi.h>

class QImage;

//! Reads the picture stored in a drawing file. The class is reentrant: different threads can use different
//! objects at the same time, but an object must not be shared between threads. Every call can throw.
class FXSDK_API CFxPreviewBitmap
{
public:
    CFxPreviewBitmap() = default;
    virtual ~CFxPreviewBitmap();

    //! Creates a reader, which the caller owns; null if the host cannot create one.
    static CFxPreviewBitmap *Create(); // [any-thread]

    //! Reads the picture of the drawing at path.
    //! \return false if the file contains no picture
    virtual bool Load(const CFxString &path) = 0; // [any-thread]
    //! True if a picture has been loaded.
    virtual bool IsValid() const = 0; // [any-thread]
    //! Sets image to the loaded picture, in the picture's own size and format. It stays valid after the
    //! reader is deleted.
    virtual void ToImage(QImage &image) const = 0; // [any-thread]

    CFxPreviewBitmap(const CFxPreviewBitmap &) = delete;
    CFxPreviewBitmap &operator=(const CFxPreviewBitmap &) = delete;
};
