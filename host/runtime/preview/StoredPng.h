// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/preview/PictureDevice.h"

#include <optional>

namespace fxhost {

struct DecodingBudget;

//! Lays the PNG that is stored in data out without its ancillary chunks, transparency apart. They do not
//! change the picture, while compressed texts and colour profiles can make a decoder take gigabytes. The
//! budget's chunks are spent. \return nothing for what is no PNG, ends early, has more chunks than the budget
//! allows, or more pixels than the limits
std::optional<PictureLayout> layOutPng(const RegularFile &file, const FileRange &data,
                                       DecodingBudget *budget);

} // namespace fxhost
