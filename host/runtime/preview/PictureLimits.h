// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

namespace fxhost {

//! Longest side of a picture, in pixels. Painting counts coordinates in 16 bits, and a decoder that keeps a
//! pointer for each row must not be made to keep millions.
constexpr qint64 maxSide = 32767;

//! Largest picture once decoded, in bytes: 2560 by 2560 pixels of four bytes, the most that a CAD application
//! is known to store. Bounds the memory that one reading takes, and its time: a popup waits for it.
constexpr qint64 maxDecodedBytes = qint64{2560} * 2560 * 4;

//! What a decoded pixel takes, in bits. Some pictures take less, and are treated as if they did not.
constexpr int plainPixel = 32;
constexpr int deepPixel = 64; //!< of channels of 16 bits

//! Whether a picture of this size, in pixels, is one to decode. \param bitsPerPixel one of the two above
constexpr bool isDecodable(qint64 width, qint64 height, int bitsPerPixel)
{
    return width > 0 && height > 0 && width <= maxSide && height <= maxSide &&
           width * height * bitsPerPixel <= 8 * maxDecodedBytes;
}

//! Most parts of a PNG; one of the largest size has some 3200 as commonly written.
constexpr int maxChunks = 8192;

//! What one drawing may take: two hundred pictures that each break at their very end would otherwise take
//! many seconds. Real drawings have two pictures at most.
struct DecodingLimit
{
    int pictures = 4; //!< that are tried
    // Of all pictures together. The largest one fits, however it is stored, and no other one with it.
    qint64 decodedBytes = maxDecodedBytes;
    qint64 storedBytes = maxDecodedBytes * 3 / 2;
};

} // namespace fxhost
