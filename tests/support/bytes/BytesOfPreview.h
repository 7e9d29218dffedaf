// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QImage>
#include <QMetaType>
#include <QSize>
#include <QVector>

#include <array>
#include <optional>

//! Builds drawing files byte by byte, sound ones and broken ones. Shares nothing with the reader under test.
//! Numbers are little-endian, sizes and places in bytes.
namespace testbytes {

QByteArray number16(quint32 value);
QByteArray number32(quint32 value);

//! A copy with one other value.
template<typename T, typename Field, typename Value>
T with(T whole, Field T::*field, const Value &value)
{
    whole.*field = value;
    return whole;
}

//! A bitmap as drawings store it: a header, masks, a palette and pixels.
struct BitmapBytes
{
    quint32 headerSize = 40;
    qint32 width = 0;
    qint32 height = 0;
    quint32 planes = 1;
    quint32 bits = 32;
    quint32 compression = 0;
    quint32 imageSize = 0;
    quint32 colorsUsed = 0;
    std::optional<std::array<quint32, 3>> masks; //!< red, green, blue
    QByteArray palette;
    QByteArray pixels;

    //! A header of more than 40 bytes is filled up with zeros, except for the masks.
    QByteArray bytes() const;
};

//! The usual size of the pictures below. An odd width leaves padding at the rows' ends, at all depths.
constexpr QSize patternSize(13, 7);
//! The colour of a pixel of every picture below. Bitmaps of 16 bits keep only each channel's high five bits.
QRgb patternColor(int bits, int x, int y);
//! The picture in patternBitmap() of the same arguments, in Format_RGB32.
QImage patternPicture(int bits = 8, int width = patternSize.width(), int height = patternSize.height());
//! A sound bitmap, bottom-up and uncompressed. The palette's fourth bytes and the unused byte of 32-bit
//! pixels have arbitrary values, as in drawings.
BitmapBytes patternBitmap(int bits = 8, int width = patternSize.width(), int height = patternSize.height());
//! The same with the top row first.
BitmapBytes topDown(BitmapBytes bitmap);
//! The same (8 bits) with each row as runs of one pixel.
BitmapBytes inRuns(BitmapBytes bitmap);

//! An entry of the preview section.
struct StoredEntry
{
    int code = 0;
    QByteArray data;
    std::optional<quint32> address = std::nullopt; //!< in the table, instead of the right one
    std::optional<quint32> size = std::nullopt;    //!< likewise
};

StoredEntry zerosEntry(); //!< code 1, the first entry of most drawings
StoredEntry bitmapEntry(const QByteArray &data);
StoredEntry metafileEntry();
StoredEntry pngEntry(const QByteArray &data);

//! A drawing file: its start, padding, a preview section, padding.
struct DrawingBytes
{
    QByteArray version = "AC1032";
    int sectionAt = 448; //!< at least 17
    QVector<StoredEntry> entries;
    int bytesAfter = 100;

    // Values in the file instead of the right ones.
    std::optional<quint32> address = std::nullopt;
    std::optional<quint32> overallSize = std::nullopt;
    std::optional<quint8> count = std::nullopt;
    std::optional<QByteArray> beginSentinel = std::nullopt;
    std::optional<QByteArray> endSentinel = std::nullopt;

    //! Where the entries' table begins.
    int tableAt() const { return sectionAt + 21; }
    //! Where the data of the first entry begins.
    int dataAt() const { return tableAt() + 9 * entries.size(); }
    QByteArray bytes() const;
};

DrawingBytes drawingOf(const QVector<StoredEntry> &entries);
//! A drawing with the usual entries: zeros, then this.
DrawingBytes drawingWith(const StoredEntry &picture = bitmapEntry(patternBitmap().bytes()));

//! Writes a file. \return path
QString writeFile(const QString &path, const QByteArray &bytes);

} // namespace testbytes

Q_DECLARE_METATYPE(testbytes::BitmapBytes)
Q_DECLARE_METATYPE(testbytes::StoredEntry)
Q_DECLARE_METATYPE(testbytes::DrawingBytes)
