// SPDX-License-Identifier: MIT
#include "host/runtime/preview/PlainPng.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>

#include <libdeflate.h>

namespace fxhost {

namespace {

//! The most memory for decoding a picture here, itself included, in bytes.
constexpr qint64 mostMemory = qint64{28} * 1024 * 1024;

constexpr int typeSize = 4; //!< of a chunk, as the next in bytes
constexpr int checksumSize = 4;
constexpr int colorSize = 3; //!< in a palette
constexpr int mostColors = 256;
// A header's data: width and height, then a byte each for depth, colour type, compression, filters,
// interlacing.
constexpr int headerSize = 13;
constexpr int depthAt = 8;
constexpr int colorTypeAt = 9;

enum ColorType { Gray = 0, Rgb = 2, Palette = 3, GrayAlpha = 4, Rgba = 6 };
enum Filter : uchar { None, Sub, Up, Average, Paeth };

//! The size of a chunk, without its length, whose data have this size.
constexpr qint64 wholeSize(int dataSize)
{
    return typeSize + qint64(dataSize) + checksumSize;
}

int channelsOf(int colorType)
{
    switch (colorType) {
    case Gray:
    case Palette:
        return 1;
    case GrayAlpha:
        return 2;
    case Rgb:
        return 3;
    case Rgba:
        return 4;
    default:
        return 0;
    }
}

//! The data of a chunk, appended to bytes. \return false if its checksum is wrong
bool append(QByteArray &bytes, const RegularFile &file, const FileRange &chunk)
{
    const QByteArray whole = file.readAll(chunk.offset, static_cast<int>(chunk.size));
    if (whole.isEmpty()) // the file has shrunk
        return false;
    const int checkedSize = whole.size() - checksumSize;
    const quint32 checksum = libdeflate_crc32(0, whole.constData(), static_cast<size_t>(checkedSize));
    if (checksum != qFromBigEndian<quint32>(whole.constData() + checkedSize))
        return false;
    bytes.append(whole.constData() + typeSize, checkedSize - typeSize);
    return true;
}

//! Decompresses a zlib stream. \return false if it is broken or does not fill rows
bool inflate(const QByteArray &stream, QByteArray &rows)
{
    const std::unique_ptr<libdeflate_decompressor, void (*)(libdeflate_decompressor *)> decompressor(
        libdeflate_alloc_decompressor(), libdeflate_free_decompressor);
    return decompressor && libdeflate_zlib_decompress(
                               decompressor.get(), stream.constData(), static_cast<size_t>(stream.size()),
                               rows.data(), static_cast<size_t>(rows.size()), nullptr) == LIBDEFLATE_SUCCESS;
}

int paeth(int left, int above, int aboveLeft)
{
    const int toLeft = std::abs(above - aboveLeft);
    const int toAbove = std::abs(left - aboveLeft);
    const int toAboveLeft = std::abs(left + above - 2 * aboveLeft);
    // Without branches, because in a noisy picture none could be predicted.
    const int upper = toAbove <= toAboveLeft ? above : aboveLeft;
    return toLeft <= std::min(toAbove, toAboveLeft) ? left : upper;
}

//! Undoes a row's filter in place. \param above the row above, of zeros for the first one
template<int channels>
void unfilter(uchar filter, uchar *row, const uchar *above, int size)
{
    const auto add = [row](int i, int prediction) { row[i] = static_cast<uchar>(row[i] + prediction); };
    switch (filter) {
    case Sub:
        for (int i = channels; i < size; ++i)
            add(i, row[i - channels]);
        break;
    case Up:
        for (int i = 0; i < size; ++i)
            add(i, above[i]);
        break;
    case Average:
        for (int i = 0; i < channels; ++i)
            add(i, above[i] / 2);
        for (int i = channels; i < size; ++i)
            add(i, (row[i - channels] + above[i]) / 2);
        break;
    case Paeth:
        for (int i = 0; i < channels; ++i)
            add(i, above[i]);
        for (int i = channels; i < size; ++i)
            add(i, paeth(row[i - channels], above[i], above[i - channels]));
        break;
    default:
        break;
    }
}

//! Checked before any is undone: Qt's decoder does it all again until it finds the unknown one.
bool areFiltersKnown(const QByteArray &rows, int count)
{
    const int step = rows.size() / count;
    for (int at = 0; at < rows.size(); at += step) {
        if (static_cast<uchar>(rows.at(at)) > Paeth)
            return false;
    }
    return true;
}

//! \param rows each with its filter type before it
template<int channels, class Pixel>
QImage toImage(const QSize &size, QImage::Format format, QByteArray &rows, Pixel pixel)
{
    const int rowSize = channels * size.width();
    const QByteArray zeros(rowSize, '\0');
    const auto *above = reinterpret_cast<const uchar *>(zeros.constData());
    auto *row = reinterpret_cast<uchar *>(rows.data());
    QImage image(size, format);
    for (int y = 0; !image.isNull() && y < size.height(); ++y) {
        const uchar filter = *row++;
        unfilter<channels>(filter, row, above, rowSize);
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        above = row;
        for (int x = 0; x < size.width(); ++x, row += channels)
            line[x] = pixel(row);
    }
    return image;
}

//! The colours of all values that a pixel can have: those after the palette's end are its first one.
std::array<QRgb, mostColors> colorsOf(const QByteArray &palette, const QByteArray &transparency)
{
    std::array<QRgb, mostColors> colors = {};
    for (int i = 0; i < mostColors; ++i) {
        const int index = i < palette.size() / colorSize ? i : 0;
        const auto *color =
            reinterpret_cast<const uchar *>(palette.constData()) + qsizetype{colorSize} * index;
        const int alpha = index < transparency.size() ? static_cast<uchar>(transparency.at(index)) : 255;
        colors.at(static_cast<size_t>(i)) = qRgba(color[0], color[1], color[2], alpha);
    }
    return colors;
}

//! \return false if what is stored is broken
bool readPalette(const RegularFile &file, const PngParts &parts, QByteArray &palette,
                 QByteArray &transparency)
{
    if (parts.palette.size > wholeSize(mostColors * colorSize) || !append(palette, file, parts.palette))
        return false;
    const int colors = palette.size() / colorSize;
    if (colors == 0 || colors * colorSize != palette.size())
        return false;
    return parts.transparency.size == 0 ||
           (parts.transparency.size <= wholeSize(colors) && append(transparency, file, parts.transparency));
}

} // namespace

QImage decodePlainPng(const RegularFile &file, const QSize &size, const PngParts &parts)
{
    QByteArray end; // has no data
    QByteArray header;
    if (!parts.areInOrder || parts.end.size != wholeSize(0) || !append(end, file, parts.end) ||
        parts.header.size != wholeSize(headerSize) || !append(header, file, parts.header))
        return {};
    const auto colorType = static_cast<uchar>(header.at(colorTypeAt));
    const int channels = channelsOf(colorType);
    const qint64 rowsSize = qint64(size.height()) * (1 + qint64(channels) * size.width());
    qint64 streamSize = 0;
    for (const FileRange &chunk : parts.data)
        streamSize += chunk.size;
    const bool hasPalette = colorType == Palette;
    const bool isPlain = header.at(depthAt) == 8 && header.mid(colorTypeAt + 1) == QByteArray(3, 0);
    // The stream is also in memory chunk by chunk.
    const qint64 memory = 2 * streamSize + rowsSize + qint64(size.height()) * size.width() * 4;
    const bool hasRareParts = !hasPalette && (parts.palette.size > 0 || parts.transparency.size > 0);
    if (!isPlain || channels == 0 || memory > mostMemory || hasRareParts)
        return {};

    QByteArray palette;
    QByteArray transparency;
    if (hasPalette && !readPalette(file, parts, palette, transparency))
        return {};
    QByteArray stream;
    stream.reserve(static_cast<int>(streamSize));
    for (const FileRange &chunk : parts.data) {
        if (!append(stream, file, chunk))
            return {};
    }
    QByteArray rows(static_cast<int>(rowsSize), Qt::Uninitialized);
    if (!inflate(stream, rows) || !areFiltersKnown(rows, size.height()))
        return {};

    const QImage::Format opaque = QImage::Format_RGB32;
    const QImage::Format translucent = QImage::Format_ARGB32;
    switch (colorType) {
    case Gray:
        return toImage<1>(size, opaque, rows, [](const uchar *p) { return qRgb(p[0], p[0], p[0]); });
    case Rgb:
        return toImage<3>(size, opaque, rows, [](const uchar *p) { return qRgb(p[0], p[1], p[2]); });
    case GrayAlpha:
        return toImage<2>(size, translucent, rows,
                          [](const uchar *p) { return qRgba(p[0], p[0], p[0], p[1]); });
    case Rgba:
        return toImage<4>(size, translucent, rows,
                          [](const uchar *p) { return qRgba(p[0], p[1], p[2], p[3]); });
    default:
        break;
    }
    const std::array<QRgb, mostColors> colors = colorsOf(palette, transparency);
    return toImage<1>(size, transparency.isEmpty() ? opaque : translucent, rows,
                      [&colors](const uchar *p) { return colors[*p]; });
}

} // namespace fxhost
