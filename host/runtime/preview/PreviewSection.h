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

//! A drawing's preview section.
struct PreviewSection
{
    std::vector<PreviewEntry> entries; //!< in the file's order; their contents have not been checked
    FileRange filling;                 //!< what is between the file's header and the section
    bool isAtEnd = false;              //!< the file ends with the section
};

//! Without entries if there is no section, its head is broken, or the drawing's version has none.
//! \param file does not need to be open
PreviewSection readPreviewSection(const RegularFile &file);

//! True if the file contains only the start of a header and this preview section, and no drawing.
bool isAlone(const PreviewSection &section, const RegularFile &file);

} // namespace fxhost
