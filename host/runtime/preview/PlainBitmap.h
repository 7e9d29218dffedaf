// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/preview/RegularFile.h"

#include <QImage>

namespace fxhost {

//! The pixels of an uncompressed bitmap of 8, 24 or 32 bits.
struct BitmapRows
{
    int bits = 0; //!< for each pixel; 0 if there are no such rows
    bool isTopDown = false;
    QByteArray palette; //!< for 8 bits: 256 colours of blue, green, red and an unused byte
    FileRange pixels;   //!< rows of multiples of four bytes
};

//! Decodes the rows in half the time that Qt's decoder takes, since they are copied once.
//! \param rows not null, with all pixels in the file \return null if the file has shrunk
QImage decodeRows(const RegularFile &file, const QSize &size, const BitmapRows &rows);

} // namespace fxhost
