// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/preview/RegularFile.h"

#include <QImage>

#include <vector>

namespace fxhost {

//! The chunks of which a PNG's pixels are made, each without its length. See the PNG specification,
//! https://www.w3.org/TR/png/.
struct PngParts
{
    FileRange header;            //!< IHDR
    FileRange palette;           //!< PLTE; empty if there is none, as the next
    FileRange transparency;      //!< tRNS
    std::vector<FileRange> data; //!< IDAT
    FileRange end;               //!< IEND
    bool areInOrder = true;      //!< they are in this order, and no other one matters
};

//! Decodes a PNG of 8 bits a channel that is not interlaced, as most are, in half the time that Qt's decoder
//! takes, and to the same pixels. Only a few codes without a meaning in the compressed data, which others
//! refuse, are decompressed.
//! \param parts may be empty: not of a PNG
//! \return null if the PNG is of another form, too large, or broken: what can be read of it is for Qt's
//! decoder to say
QImage decodePlainPng(const RegularFile &file, const QSize &size, const PngParts &parts);

} // namespace fxhost
