// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

namespace fxhost {

//! Longest side of a picture, in pixels: painting uses coordinates of 16 bits, and a decoder may store a
//! pointer for each row.
constexpr qint64 maxSide = 32767;

//! Largest decoded picture, in bytes: 2560 by 2560 pixels of four bytes, the largest that a CAD application
//! is known to store. Limits the memory for reading a picture, and the time, for which a popup waits.
constexpr qint64 maxDecodedBytes = qint64{2560} * 2560 * 4;

//! Size of a decoded pixel, in bits. Some pictures need less, but are counted with this size.
constexpr int plainPixel = 32;
constexpr int deepPixel = 64; //!< for channels of 16 bits

//! True if a picture of this size, in pixels, is within the limits.
//! \param bitsPerPixel one of the two above
constexpr bool isDecodable(qint64 width, qint64 height, int bitsPerPixel)
{
    return width > 0 && height > 0 && width <= maxSide && height <= maxSide &&
           width * height * bitsPerPixel <= 8 * maxDecodedBytes;
}

//! Maximum number of chunks in a PNG; one of the largest size usually has about 3200.
constexpr int maxChunks = 8192;

//! What is left of the limits for one drawing: without them, 200 pictures that each break at their end would
//! take many seconds. Real drawings have at most two pictures.
struct DecodingLimit
{
    int pictures = 4; //!< to try to decode
    // Of all pictures together: enough for the largest one in any encoding, but not for another one as well.
    qint64 decodedBytes = maxDecodedBytes;
    qint64 storedBytes = maxDecodedBytes * 3 / 2;
};

} // namespace fxhost
