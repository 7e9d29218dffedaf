// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/preview/RegularFile.h"

#include <vector>

namespace fxhost {

//! The content of an entry of a preview section. Entries with other codes exist, and are ignored.
enum class PreviewCode : quint8 {
    Bitmap = 2, //!< a BMP file without its file header
    Png = 6,    //!< a whole PNG file
};

//! One entry of a preview section.
struct PreviewEntry
{
    PreviewCode code = PreviewCode::Bitmap;
    FileRange data; //!< inside the file, outside the section's table; may be empty
};

//! The entries of the drawing's preview section, in its order, without checking their contents. Empty if
//! there is no section, its head is broken, or the drawing's version has none.
//! \param file does not need to be open
std::vector<PreviewEntry> readPreviewEntries(const RegularFile &file);

//! True if the file contains only the start of a header and a preview section, and no drawing.
//! \param file does not need to be open
bool holdsPreviewAlone(const RegularFile &file);

} // namespace fxhost
