// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"

#include <QImage>
#include <QString>

namespace fxhost {

class RegularFile;

//! The picture that is stored in the drawing at path, in its own size and format; bitmaps are always opaque.
//! A null image means that there is none: no such file, no drawing, no picture in it, or one that is broken
//! or larger than 2560 by 2560 pixels hold.
//!
//! Any thread, several at once. Never throws, and never waits for a FIFO, a device or a socket. Whatever the
//! file claims, memory stays below 32 MiB, the image included, and time about a tenth of a second.
FXHOST_API QImage readPreview(const QString &path);

//! The same for an open file.
QImage readPreview(const RegularFile &file);

} // namespace fxhost
