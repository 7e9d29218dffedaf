// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QImage>

namespace fxsamples {

//! Converts a picture to Format_Indexed8, with a palette of its 256 most frequent colours. Other colours
//! become the nearest of these. Transparency is lost.
//! \return null if picture is null
QImage indexed(const QImage &picture);

//! A bitmap as it is stored in a drawing: a BMP file without its file header, uncompressed, bottom-up, with
//! 256 palette entries if there is a palette.
//! \param picture not null
//! \param bitsPerPixel 8 (the result of indexed() is stored), 24 or 32
//! \throws std::invalid_argument if picture is null, or for another depth
QByteArray deviceIndependentBitmap(const QImage &picture, int bitsPerPixel);

} // namespace fxsamples
