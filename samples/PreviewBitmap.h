// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QImage>

namespace fxsamples {

//! \p picture with a palette of its own of at most 256 colours, the most frequent ones; every other colour
//! becomes the nearest of them. Exact for a picture of 256 colours or fewer. Transparency is lost.
//! \return Format_Indexed8; a null image for a null picture
QImage indexed(const QImage &picture);

//! A bitmap as it lies inside a drawing: a BMP file from its 40-byte information header on, uncompressed,
//! bottom-up, with 256 palette entries when there is a palette.
//! \param picture not null
//! \param bitsPerPixel 8 (the picture goes through indexed() first), 24 or 32
//! \throws std::invalid_argument for a null picture and for another depth
QByteArray deviceIndependentBitmap(const QImage &picture, int bitsPerPixel);

} // namespace fxsamples
