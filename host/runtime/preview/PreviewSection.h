// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/preview/RegularFile.h"

#include <vector>

namespace fxhost {

//! What an entry of a preview section holds. Other codes are met as well, and are of no use here.
enum class PreviewCode : quint8 {
    Bitmap = 2, //!< a BMP file without its file header
    Png = 6,    //!< a whole PNG file
};

//! One entry of a preview section.
struct PreviewEntry
{
    PreviewCode code = PreviewCode::Bitmap;
    FileRange data; //!< inside the file, apart from the section's table; may be empty
};

//! The entries of the drawing's preview section, in its order, with their contents not looked at yet. Empty
//! if it has none, or is not a drawing of a version that can have any, or the section is broken. \param file
//! may be closed
std::vector<PreviewEntry> readPreviewEntries(const RegularFile &file);

//! Whether there is nothing in the file but the start of a header and a preview section: a picture in an
//! envelope, with not one line of a drawing. \param file may be closed
bool holdsPreviewAlone(const RegularFile &file);

} // namespace fxhost
