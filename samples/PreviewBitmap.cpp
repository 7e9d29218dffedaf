// SPDX-License-Identifier: MIT
#include "samples/PreviewBitmap.h"

#include <QDataStream>
#include <QHash>
#include <QIODevice>
#include <QVector>

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace fxsamples {

namespace {

constexpr int paletteSize = 256;
constexpr quint32 infoHeaderSize = 40; // bytes

QVector<QRgb> frequentColours(const QImage &picture)
{
    QHash<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y) {
        const auto *row = reinterpret_cast<const QRgb *>(picture.constScanLine(y));
        for (int x = 0; x < picture.width(); ++x)
            ++counts[row[x]];
    }
    QVector<QRgb> colours;
    for (auto count = counts.cbegin(); count != counts.cend(); ++count)
        colours.append(count.key());
    // Equally frequent colours are ordered by value, because the order of a hash differs between processes.
    std::sort(colours.begin(), colours.end(), [&counts](QRgb a, QRgb b) {
        return std::pair(-counts.value(a), a) < std::pair(-counts.value(b), b);
    });
    return colours.mid(0, paletteSize);
}

void writePalette(QDataStream &out, QVector<QRgb> colours)
{
    colours.resize(paletteSize); // the unused rest is black
    for (const QRgb colour : colours)
        out << quint8(qBlue(colour)) << quint8(qGreen(colour)) << quint8(qRed(colour)) << quint8(0);
}

void writeRow(QDataStream &out, const QImage &picture, int y, int bitsPerPixel)
{
    for (int x = 0; x < picture.width(); ++x) {
        if (bitsPerPixel == 8) {
            out << quint8(picture.pixelIndex(x, y));
            continue;
        }
        const QRgb colour = picture.pixel(x, y);
        out << quint8(qBlue(colour)) << quint8(qGreen(colour)) << quint8(qRed(colour));
        if (bitsPerPixel == 32)
            out << quint8(0);
    }
    const int written = picture.width() * bitsPerPixel / 8;
    for (int padding = written; padding % 4 != 0; ++padding)
        out << quint8(0);
}

} // namespace

QImage indexed(const QImage &picture)
{
    const QImage opaque = picture.convertToFormat(QImage::Format_RGB32);
    return opaque.convertToFormat(QImage::Format_Indexed8, frequentColours(opaque));
}

QByteArray deviceIndependentBitmap(const QImage &picture, int bitsPerPixel)
{
    if (picture.isNull())
        throw std::invalid_argument("a bitmap needs a picture");
    if (bitsPerPixel != 8 && bitsPerPixel != 24 && bitsPerPixel != 32)
        throw std::invalid_argument("a bitmap has 8, 24 or 32 bits per pixel");

    const bool hasPalette = bitsPerPixel == 8;
    const QImage source = hasPalette ? indexed(picture) : picture.convertToFormat(QImage::Format_RGB32);
    const int rowLength = (source.width() * bitsPerPixel + 31) / 32 * 4;

    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setByteOrder(QDataStream::LittleEndian);
    out << infoHeaderSize << qint32(source.width()) << qint32(source.height()); // height > 0: bottom-up
    out << quint16(1) << quint16(bitsPerPixel);                                 // planes
    out << quint32(0) << quint32(rowLength * source.height());                  // uncompressed
    out << qint32(0) << qint32(0);                                              // no resolution
    out << quint32(hasPalette ? paletteSize : 0) << quint32(0);
    if (hasPalette)
        writePalette(out, source.colorTable());
    for (int y = source.height() - 1; y >= 0; --y)
        writeRow(out, source, y, bitsPerPixel);
    return bytes;
}

} // namespace fxsamples
