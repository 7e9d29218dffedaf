// SPDX-License-Identifier: MIT
#include "samples/DrawingWriter.h"

#include "samples/PreviewBitmap.h"

#include <QBuffer>
#include <QDataStream>
#include <QtEndian>

#include <iterator>
#include <stdexcept>
#include <vector>

namespace fxsamples {

namespace {

constexpr int addressOffset = 0x0D; // in the header
constexpr int headerSize = 0x100;   // bytes, zero except for the version and the address
constexpr int fillingSize =
    0xC00; // bytes; in real files, the preview is up to some kilobytes after the header

constexpr unsigned char beginSentinel[] = {0x1F, 0x25, 0x6D, 0x07, 0xD4, 0x36, 0x28, 0x28,
                                           0x9D, 0x57, 0xCA, 0x3F, 0x9D, 0x44, 0x10, 0x2B};
constexpr auto sentinelSize = static_cast<quint32>(std::size(beginSentinel));

enum EntryCode : quint8 { PreviewHeaderCode = 1, BitmapCode = 2, PngCode = 6 };

struct Entry
{
    quint8 code;
    QByteArray data;
};

constexpr quint32 sizeFieldSize = 4;  // bytes
constexpr quint32 entrySize = 9;      // bytes: code, offset, size
constexpr int previewHeaderSize = 80; // bytes, all zero, in every file that has a preview

QByteArray sentinel(unsigned char flip)
{
    QByteArray bytes;
    for (const unsigned char byte : beginSentinel)
        bytes.append(static_cast<char>(byte ^ flip));
    return bytes;
}

QByteArray png(const QImage &picture)
{
    QImage opaque = picture.convertToFormat(QImage::Format_RGB32);
    // A PNG contains the resolution, which QImage takes from the screen, so set the same one on every
    // machine.
    constexpr int dotsPerMeter = 3780; // 96 per inch
    opaque.setDotsPerMeterX(dotsPerMeter);
    opaque.setDotsPerMeterY(dotsPerMeter);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    opaque.save(&buffer, "PNG");
    return buffer.data();
}

Entry pictureEntry(const QImage &picture, Picture kind)
{
    switch (kind) {
    case Picture::Bitmap8:
        return {BitmapCode, deviceIndependentBitmap(picture, 8)};
    case Picture::Bitmap24:
        return {BitmapCode, deviceIndependentBitmap(picture, 24)};
    case Picture::Bitmap32:
        return {BitmapCode, deviceIndependentBitmap(picture, 32)};
    case Picture::Png:
        return {PngCode, png(picture)};
    }
    throw std::invalid_argument("unknown kind of picture");
}

//! The section from sentinel to sentinel.
//! \param address its position in the file, from which the positions in its table are calculated
QByteArray previewSection(quint32 address, const std::vector<Entry> &entries)
{
    const quint32 tableSize = 1 + entrySize * static_cast<quint32>(entries.size());
    quint32 dataSize = 0;
    for (const Entry &entry : entries)
        dataSize += static_cast<quint32>(entry.data.size());

    QByteArray section = sentinel(0x00);
    QDataStream out(&section, QIODevice::Append);
    out.setByteOrder(QDataStream::LittleEndian);
    out << tableSize + dataSize << static_cast<quint8>(entries.size());
    quint32 offset = address + sentinelSize + sizeFieldSize + tableSize;
    for (const Entry &entry : entries) {
        out << entry.code << offset << static_cast<quint32>(entry.data.size());
        offset += static_cast<quint32>(entry.data.size());
    }
    for (const Entry &entry : entries)
        section += entry.data;
    return section + sentinel(0xFF);
}

} // namespace

QByteArray versionTag(Version version)
{
    constexpr std::array<const char *, allVersions.size()> tags{"AC1012", "AC1014", "AC1015", "AC1018",
                                                                "AC1021", "AC1024", "AC1027", "AC1032"};
    return tags.at(static_cast<std::size_t>(version));
}

bool supportsPng(Version version)
{
    return version >= Version::AC1027;
}

QByteArray drawingFile(const QImage &picture, const DrawingForm &form)
{
    if (picture.isNull())
        throw std::invalid_argument("a preview needs a picture");
    if (form.picture == Picture::Png && !supportsPng(form.version))
        throw std::invalid_argument("a drawing of version " + versionTag(form.version).toStdString() +
                                    " does not support a PNG preview");

    const int address = headerSize + (form.placement == Placement::AfterFilling ? fillingSize : 0);
    QByteArray file(address, '\0');
    file.replace(0, versionTag(form.version).size(), versionTag(form.version));
    qToLittleEndian(static_cast<quint32>(address), file.data() + addressOffset);
    return file + previewSection(static_cast<quint32>(address),
                                 {{PreviewHeaderCode, QByteArray(previewHeaderSize, '\0')},
                                  pictureEntry(picture, form.picture)});
}

} // namespace fxsamples
