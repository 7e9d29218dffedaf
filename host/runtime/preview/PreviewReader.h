// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"

#include <QImage>
#include <QString>

namespace fxhost {

struct PreviewSection;
class RegularFile;

//! The picture stored in the drawing at path, in its own size and, unless it is very large, in the format
//! that is painted fastest; bitmaps are always opaque. A null image if the file does not exist or is
//! not a drawing, or if its picture is missing, broken or too large (see PictureLimits.h).
//!
//! Any thread, also several at once. Never throws, and never waits for a FIFO, a device or a socket. Whatever
//! the file contains, it needs less than 32 MiB of memory, including the image, and less than a fifth
//! of a second.
FXHOST_API QImage readPreview(const QString &path);

//! The same for an open file whose preview section has been read.
QImage readPreview(const RegularFile &file, const PreviewSection &section);

//! The same picture, decoded by Qt alone: slower. Says what the faster decoders must give.
FXHOST_API QImage readPreviewWithQt(const QString &path);

} // namespace fxhost
