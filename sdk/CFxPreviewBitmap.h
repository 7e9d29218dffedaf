// SPDX-License-Identifier: MIT
#pragma once

#include <CFxString.h>
#include <FxSdkApi.h>

class QImage;

//! Reads the picture that is stored in a drawing file. Different objects may be used from different threads
//! at the same time; one object belongs to one thread. Any call may throw.
class FXSDK_API CFxPreviewBitmap
{
public:
    CFxPreviewBitmap() = default;
    virtual ~CFxPreviewBitmap();

    //! A new object, owned by the caller. Any thread.
    static CFxPreviewBitmap *Create(); // [any-thread]

    //! Reads the picture of the drawing at path. \return false when the file holds none
    virtual bool Load(const CFxString &path) = 0; // [any-thread]
    //! Whether a picture is held.
    virtual bool IsValid() const = 0; // [any-thread]
    //! Writes the picture that is held into image, in its own size and format.
    virtual void ToImage(QImage &image) const = 0; // [any-thread]

    CFxPreviewBitmap(const CFxPreviewBitmap &) = delete;
    CFxPreviewBitmap &operator=(const CFxPreviewBitmap &) = delete;
};
