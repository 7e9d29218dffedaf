// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/preview/PictureDevice.h"

#include <optional>

namespace fxhost {

//! Lays out the PNG in data without its ancillary chunks, except for transparency. They do not change the
//! picture, but compressed texts and colour profiles can make a decoder allocate gigabytes.
//! \return nothing if data is not a PNG, ends early, or exceeds the limits
std::optional<PictureLayout> layOutPng(const RegularFile &file, const FileRange &data);

} // namespace fxhost
