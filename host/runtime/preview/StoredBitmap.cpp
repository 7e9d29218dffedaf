// SPDX-License-Identifier: MIT
#include "host/runtime/preview/StoredBitmap.h"

#include "host/runtime/preview/PictureLimits.h"

#include <QDataStream>
#include <QtAlgorithms>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace fxhost {

namespace {

// Sizes in bytes.
constexpr int fileHeaderSize = 14;
constexpr int plainHeaderSize = 40;
constexpr int os2HeaderSize = 64; //!< in this one, compressions above 2 have other meanings
constexpr std::array<quint32, 6> headerSizes = {plainHeaderSize, 52, 56, os2HeaderSize, 108, 124};
constexpr int masksSize = 12;
constexpr int colorSize = 4;

constexpr quint32 maxColors = 256;

enum Compression : quint32 { Uncompressed = 0, RunLength8 = 1, RunLength4 = 2, Masks = 3 };

struct BitmapHeader
{
    quint32 headerSize = 0;
    qint32 width = 0;
    qint32 height = 0; //!< negative if the top row comes first
    quint16 planes = 0;
    quint16 bits = 0;
    quint32 compression = Uncompressed;
    quint32 colors = 0;
    std::array<quint32, 3> masks = {}; //!< red, green, blue; only used with Masks

    qint64 rows() const { return std::abs(qint64(height)); }
    bool isInRuns() const { return compression == RunLength8 || compression == RunLength4; }
    bool hasPalette() const { return bits <= 8; }
    quint32 fullPalette() const { return quint32(1) << bits; }
};

//! Reads a plain header and, if present, the twelve bytes after it. These are the same in all headers: the
//! masks follow a plain header, and are inside a larger one.
std::optional<BitmapHeader> readHeader(const RegularFile &file, const FileRange &data)
{
    constexpr qint64 wanted = plainHeaderSize + masksSize;
    const QByteArray bytes = file.readAll(data.offset, static_cast<int>(std::min(data.size, wanted)));
    if (bytes.size() < plainHeaderSize)
        return std::nullopt;

    BitmapHeader header;
    QDataStream stream(bytes);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream >> header.headerSize >> header.width >> header.height >> header.planes >> header.bits >>
        header.compression;
    constexpr int imageSizeAndResolution = 12; // unreliable, so not used
    stream.skipRawData(imageSizeAndResolution);
    quint32 importantColors = 0;
    stream >> header.colors >> importantColors;
    for (quint32 &mask : header.masks)
        stream >> mask; // 0 after the end of the bytes, which is refused
    return header;
}

bool isMask(quint32 mask, int bits)
{
    const quint64 lowestBit = mask & (~mask + 1);
    const quint64 carried = mask + lowestBit; // a single bit if the mask is one run of ones
    return mask != 0 && (carried & (carried - 1)) == 0 && (quint64(mask) >> bits) == 0;
}

bool isKnownEncoding(const BitmapHeader &header)
{
    switch (header.compression) {
    case Uncompressed: {
        constexpr std::array<quint16, 6> depths = {1, 4, 8, 16, 24, 32};
        return std::find(depths.begin(), depths.end(), header.bits) != depths.end();
    }
    case RunLength8:
        return header.bits == 8 && header.height > 0;
    case RunLength4:
        return header.bits == 4 && header.height > 0;
    case Masks:
        return (header.bits == 16 || header.bits == 32) && header.headerSize != os2HeaderSize &&
               std::all_of(header.masks.begin(), header.masks.end(),
                           [&header](quint32 mask) { return isMask(mask, header.bits); });
    default:
        return false;
    }
}

bool isSound(const BitmapHeader &header)
{
    return std::find(headerSizes.begin(), headerSizes.end(), header.headerSize) != headerSizes.end() &&
           header.planes == 1 && isKnownEncoding(header) &&
           isDecodable(header.width, header.rows(), plainPixel) &&
           header.colors <= (header.hasPalette() ? header.fullPalette() : maxColors);
}

//! Size of the masks between the header and the palette, in bytes.
int looseMasksSize(const BitmapHeader &header)
{
    return header.compression == Masks && header.headerSize == plainHeaderSize ? masksSize : 0;
}

quint32 storedColors(const BitmapHeader &header)
{
    return header.colors == 0 && header.hasPalette() ? header.fullPalette() : header.colors;
}

//! The largest useful size of run-length encoded pixels, in bytes: a run for each pixel, and an end for each
//! row. A longer stream contains useless codes, which the decoder would read to the end.
qint64 longestRuns(const BitmapHeader &header)
{
    constexpr qint64 run = 2; // bytes
    return run * (header.width + 1) * header.rows();
}

qint64 uncompressedSize(const BitmapHeader &header)
{
    return (qint64(header.width) * header.bits + 31) / 32 * 4 * header.rows();
}

//! The eight highest bits of a mask, because Qt's decoder cannot scale more than eight.
quint32 highestEight(quint32 mask)
{
    while (qPopulationCount(mask) > 8)
        mask &= mask - 1;
    return mask;
}

//! A file header, a plain header, the masks and a palette with a colour for each possible value of a pixel.
QByteArray newHead(const BitmapHeader &header, QByteArray palette)
{
    if (header.hasPalette())
        palette.append(static_cast<int>(header.fullPalette()) * colorSize - palette.size(), '\0');
    const int masks = header.compression == Masks ? masksSize : 0;
    const auto headSize = static_cast<quint32>(fileHeaderSize + plainHeaderSize + masks + palette.size());

    QByteArray head;
    QDataStream stream(&head, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    constexpr quint32 unset = 0; // sizes, resolutions and counts that the decoder calculates or ignores
    stream.writeRawData("BM", 2);
    stream << unset << unset << headSize;
    stream << quint32(plainHeaderSize) << header.width << header.height << header.planes << header.bits
           << header.compression << unset << unset << unset << unset << unset;
    if (header.compression == Masks) {
        for (const quint32 mask : header.masks)
            stream << highestEight(mask);
    }
    stream.writeRawData(palette.constData(), palette.size());
    return head;
}

} // namespace

std::optional<PictureLayout> layOutBitmap(const RegularFile &file, const FileRange &data)
{
    const std::optional<BitmapHeader> header = readHeader(file, data);
    if (!header || !isSound(*header))
        return std::nullopt;

    const qint64 paletteAt = qint64(header->headerSize) + looseMasksSize(*header);
    const int paletteSize = static_cast<int>(storedColors(*header)) * colorSize;
    const FileRange pixels = {data.offset + paletteAt + paletteSize, data.size - paletteAt - paletteSize};
    const qint64 leastSize = header->isInRuns() ? 1 : uncompressedSize(*header);
    const qint64 mostSize = header->isInRuns() ? longestRuns(*header) : uncompressedSize(*header);
    if (pixels.size < leastSize)
        return std::nullopt;

    QByteArray palette;
    if (header->hasPalette()) // empty if the file has shrunk; then the pixels are missing, too
        palette = file.readAll(data.offset + paletteAt, paletteSize);
    PictureLayout layout;
    layout.format = "bmp";
    layout.size = QSize(header->width, static_cast<int>(header->rows()));
    layout.bitsPerPixel = plainPixel;
    layout.head = newHead(*header, palette);
    layout.ranges = {{pixels.offset, std::min(pixels.size, mostSize)}};
    layout.isInRuns = header->isInRuns();
    if (header->compression == Uncompressed && header->bits >= 8 && header->bits != 16) {
        layout.rows = {header->bits, header->height < 0,
                       layout.head.right(header->hasPalette() ? maxColors * colorSize : 0),
                       layout.ranges.front()};
    }
    return layout;
}

} // namespace fxhost
