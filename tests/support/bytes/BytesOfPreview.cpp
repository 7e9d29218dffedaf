// SPDX-License-Identifier: MIT
#include "tests/support/bytes/BytesOfPreview.h"

#include <QFile>
#include <QtGlobal>

#include <cstdlib>

namespace testbytes {

namespace {

QByteArray sentinel()
{
    return QByteArray::fromHex("1F256D07D43628289D57CA3F9D44102B");
}

QByteArray inverted(QByteArray bytes)
{
    for (char &byte : bytes)
        byte = static_cast<char>(~byte);
    return bytes;
}

int patternIndex(int bits, int x, int y)
{
    return (3 * x + 5 * y) % (1 << bits);
}

char arbitraryByte(int seed)
{
    return static_cast<char>(seed * 89 + 17);
}

QByteArray blueGreenRed(QRgb color)
{
    const std::array<char, 3> bytes = {static_cast<char>(qBlue(color)), static_cast<char>(qGreen(color)),
                                       static_cast<char>(qRed(color))};
    return {bytes.data(), static_cast<int>(bytes.size())};
}

QRgb paletteColor(int index)
{
    return qRgb(index * 37 % 256, index * 91 % 256, (255 - index) % 256);
}

QByteArray patternRow(int bits, int width, int y)
{
    QByteArray row;
    int bitsHeld = 0;
    int held = 0;
    for (int x = 0; x < width; ++x) {
        const QRgb color = patternColor(bits, x, y);
        if (bits <= 8) {
            held = held << bits | patternIndex(bits, x, y);
            bitsHeld += bits;
            if (bitsHeld == 8 || x == width - 1) {
                row.append(static_cast<char>(held << (8 - bitsHeld)));
                held = bitsHeld = 0;
            }
        } else if (bits == 16) {
            const int value = qRed(color) >> 3 << 10 | qGreen(color) >> 3 << 5 | qBlue(color) >> 3;
            row.append(number16(static_cast<quint32>(value)));
        } else {
            row.append(blueGreenRed(color));
            if (bits == 32)
                row.append(arbitraryByte(x * y));
        }
    }
    while (row.size() % 4 != 0)
        row.append('\x5a');
    return row;
}

} // namespace

QByteArray number16(quint32 value)
{
    return number32(value).left(2);
}

QByteArray number32(quint32 value)
{
    QByteArray bytes;
    for (int shift = 0; shift < 32; shift += 8)
        bytes.append(static_cast<char>(value >> shift & 0xFF));
    return bytes;
}

QByteArray BitmapBytes::bytes() const
{
    constexpr quint32 plainSize = 40;
    constexpr quint32 mostFilled = 124; // a larger headerSize is not written in full
    const quint32 resolution = 2835;    // per metre
    QByteArray result = number32(headerSize) + number32(static_cast<quint32>(width)) +
                        number32(static_cast<quint32>(height)) + number16(planes) + number16(bits) +
                        number32(compression) + number32(imageSize) + number32(resolution) +
                        number32(resolution) + number32(colorsUsed) + number32(0);
    if (masks) {
        for (const quint32 mask : *masks)
            result += number32(mask);
    }
    if (headerSize > plainSize)
        result = result.leftJustified(static_cast<int>(qMin(headerSize, mostFilled)), '\0');
    return result + palette + pixels;
}

QRgb patternColor(int bits, int x, int y)
{
    if (bits <= 8)
        return paletteColor(patternIndex(bits, x, y));
    return qRgb((x * 23 + 5) % 256, (y * 41 + 7) % 256, (x * y * 9 + 3) % 256);
}

QImage patternPicture(int bits, int width, int height)
{
    QImage picture(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            picture.setPixel(x, y, patternColor(bits, x, y));
    }
    return picture;
}

BitmapBytes patternBitmap(int bits, int width, int height)
{
    BitmapBytes bitmap;
    bitmap.width = width;
    bitmap.height = height;
    bitmap.bits = static_cast<quint32>(bits);
    if (bits <= 8) {
        bitmap.colorsUsed = 1U << bits;
        for (int index = 0; index < 1 << bits; ++index)
            bitmap.palette += blueGreenRed(paletteColor(index)) + arbitraryByte(index);
    }
    for (int y = height - 1; y >= 0; --y)
        bitmap.pixels += patternRow(bits, width, y);
    return bitmap;
}

BitmapBytes topDown(BitmapBytes bitmap)
{
    const int rowSize = bitmap.pixels.size() / bitmap.height;
    QByteArray flipped;
    for (int row = bitmap.height - 1; row >= 0; --row)
        flipped += bitmap.pixels.mid(row * rowSize, rowSize);
    bitmap.pixels = flipped;
    bitmap.height = -bitmap.height;
    return bitmap;
}

BitmapBytes inRuns(BitmapBytes bitmap)
{
    const int rowSize = bitmap.pixels.size() / bitmap.height;
    QByteArray runs;
    for (int row = 0; row < bitmap.height; ++row) {
        for (int x = 0; x < bitmap.width; ++x)
            runs.append('\1').append(bitmap.pixels.at(row * rowSize + x));
        runs.append(2, '\0'); // the row's end
    }
    bitmap.pixels = runs + QByteArray("\0\1", 2); // the picture's end
    bitmap.compression = 1;
    return bitmap;
}

StoredEntry zerosEntry()
{
    return {1, QByteArray(80, '\0')};
}

StoredEntry bitmapEntry(const QByteArray &data)
{
    return {2, data};
}

StoredEntry metafileEntry()
{
    return {3, QByteArray(120, '\x11')};
}

StoredEntry pngEntry(const QByteArray &data)
{
    return {6, data};
}

QByteArray DrawingBytes::bytes() const
{
    QByteArray table;
    QByteArray data;
    for (const StoredEntry &entry : entries) {
        const auto place = static_cast<quint32>(dataAt() + data.size());
        table.append(static_cast<char>(entry.code));
        table += number32(entry.address.value_or(place));
        table += number32(entry.size.value_or(static_cast<quint32>(entry.data.size())));
        data += entry.data;
    }
    const auto trueSize = static_cast<quint32>(1 + table.size() + data.size());

    QByteArray file = version.leftJustified(13, '\0');
    file += number32(address.value_or(static_cast<quint32>(sectionAt)));
    file = file.leftJustified(sectionAt, '\xA5');
    file += beginSentinel.value_or(sentinel());
    file += number32(overallSize.value_or(trueSize));
    file.append(static_cast<char>(count.value_or(static_cast<quint8>(entries.size()))));
    file += table + data;
    file += endSentinel.value_or(inverted(sentinel()));
    return file + QByteArray(bytesAfter, '\x5A');
}

DrawingBytes drawingOf(const QVector<StoredEntry> &entries)
{
    return with(DrawingBytes(), &DrawingBytes::entries, entries);
}

DrawingBytes drawingWith(const StoredEntry &picture)
{
    return drawingOf({zerosEntry(), picture});
}

QString writeFile(const QString &path, const QByteArray &bytes)
{
    QFile::remove(path); // overwriting can be slow: some file systems flush a file then
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
    return path;
}

} // namespace testbytes
