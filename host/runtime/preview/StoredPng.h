// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/preview/PictureDevice.h"

#include <optional>

namespace fxhost {

//! Lays the PNG that is stored in data out without its ancillary chunks, transparency apart. They do not
//! change the picture, while compressed texts and colour profiles can make a decoder take gigabytes.
//! \return nothing for what is not a PNG, ends early, or has more chunks or pixels than the limits
std::optional<PictureLayout> layOutPng(const RegularFile &file, const FileRange &data);

} // namespace fxhost
