// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/preview/PictureDevice.h"

#include <optional>

namespace fxhost {

//! Lays the bitmap that is stored in data (header, palette, pixels) out as a BMP file.
//!
//! The header is checked field by field and then written anew, as the plain header of 40 bytes, from what was
//! understood. So the decoder sees only what this file let through: Qt's knows headers of 40, 64, 108 and 124
//! bytes but not of 52 and 56, believes palettes that are too short for their pixels, takes masks wider than
//! eight bits for black, and makes an image of a bitmap whose pixels end early. Alpha is dropped: drawings
//! leave rubbish there. What stays is that channels of 5 or 6 bits come out with zeros in their lowest bits.
//!
//! \return nothing for what is not a bitmap, is larger than the limits, or lacks a part of its pixels
std::optional<PictureLayout> layOutBitmap(const RegularFile &file, const FileRange &data);

} // namespace fxhost
