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

//! What it takes to read and decode a picture, by what was measured. The unit is a byte that is read as it
//! is. \param storedSize in bytes
constexpr qint64 decodingCost(qint64 width, qint64 height, int bitsPerPixel, qint64 storedSize, bool isInRuns)
{
    constexpr qint64 byteInRuns = 3;
    constexpr qint64 decodedByte = 3;
    constexpr qint64 row = 256; // of a single pixel too; an interlaced picture has them twice
    const qint64 decodedSize = width * height * bitsPerPixel / 8;
    return (isInRuns ? byteInRuns : 1) * storedSize + decodedByte * decodedSize + row * height;
}

//! What may still be spent on the entries of one drawing. Two hundred of them that each break at their very
//! end would otherwise take many seconds.
struct DecodingBudget
{
    //! By decodingCost(): the largest picture fits, however it is stored, and a second one as large does not.
    qint64 cost = 5 * maxDecodedBytes;
    int chunks = 65536; //!< parts of PNGs; a PNG of the largest size has some 3200 as commonly written
};

} // namespace fxhost
