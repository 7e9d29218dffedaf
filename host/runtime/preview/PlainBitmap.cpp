// SPDX-License-Identifier: MIT
#include "host/runtime/preview/PlainBitmap.h"

#include <QtEndian>

#include <algorithm>
#include <array>

namespace fxhost {

namespace {

constexpr QRgb opaque = 0xFF000000;

std::array<QRgb, 256> colorsOf(const QByteArray &palette)
{
    std::array<QRgb, 256> colors = {};
    qFromLittleEndian<quint32>(palette.constData(), static_cast<qsizetype>(colors.size()), colors.data());
    for (QRgb &color : colors)
        color |= opaque;
    return colors;
}

//! \param bytes of blue, green, red and, for four, one that is not used
template<int bytesPerPixel>
void convert(const uchar *bytes, QRgb *line, int width)
{
    for (int x = 0; x < width; ++x, bytes += bytesPerPixel)
        line[x] = qRgb(bytes[2], bytes[1], bytes[0]);
}

void convert(const uchar *indices, QRgb *line, int width, const std::array<QRgb, 256> &colors)
{
    int x = 0;
    for (; x + 4 <= width; x += 4) { // compilers do not unroll this by themselves, and it halves the time
        line[x] = colors[indices[x]];
        line[x + 1] = colors[indices[x + 1]];
        line[x + 2] = colors[indices[x + 2]];
        line[x + 3] = colors[indices[x + 3]];
    }
    for (; x < width; ++x)
        line[x] = colors[indices[x]];
}

} // namespace

QImage decodeRows(const RegularFile &file, const QSize &size, const BitmapRows &rows)
{
    std::array<QRgb, 256> colors = {};
    if (rows.bits == 8)
        colors = colorsOf(rows.palette);
    const int rowSize = static_cast<int>((qint64(size.width()) * rows.bits + 31) / 32 * 4);
    // Few system calls, and little memory beside the picture's.
    constexpr int mostAtOnce = 64 * 1024; // bytes; as much as is read at first
    const int rowsAtOnce = std::max(1, mostAtOnce / rowSize);

    QImage image(size, QImage::Format_RGB32);
    for (int done = 0; !image.isNull() && done < size.height(); done += rowsAtOnce) {
        const int count = std::min(rowsAtOnce, size.height() - done);
        const qint64 offset = rows.pixels.offset + qint64(done) * rowSize;
        const uchar *row = file.view({offset, qint64(count) * rowSize});
        if (!row)
            return {};
        for (int i = 0; i < count; ++i, row += rowSize) {
            const int y = rows.isTopDown ? done + i : size.height() - 1 - done - i;
            auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
            switch (rows.bits) {
            case 8:
                convert(row, line, size.width(), colors);
                break;
            case 24:
                convert<3>(row, line, size.width());
                break;
            default:
                convert<4>(row, line, size.width());
                break;
            }
        }
    }
    return image;
}

} // namespace fxhost
