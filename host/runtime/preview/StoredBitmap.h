// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/preview/PictureDevice.h"

#include <optional>

namespace fxhost {

//! Lays out the bitmap in data (header, palette, pixels) as a BMP file.
//!
//! The header is checked field by field and replaced with a plain header of 40 bytes, so that the decoder
//! only gets checked values. Qt's decoder supports headers of 40, 64, 108 and 124 bytes, but not of 52 and
//! 56; it accepts palettes that are too short for their pixels, decodes masks wider than eight bits as
//! black, and returns an image even if the pixels end early. Alpha is removed, because drawings contain
//! arbitrary values there. Channels of 5 or 6 bits are decoded with zeros in their lowest bits.
//!
//! \return nothing if data is not a bitmap, exceeds the limits, or does not contain all pixels
std::optional<PictureLayout> layOutBitmap(const RegularFile &file, const FileRange &data);

} // namespace fxhost
