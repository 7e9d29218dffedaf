// SPDX-License-Identifier: MIT
#include "host/runtime/preview/StoredPng.h"

#include "host/runtime/preview/PictureLimits.h"

#include <QtEndian>

#include <algorithm>
#include <array>

namespace fxhost {

namespace {

// Sizes and positions in bytes.
constexpr int signatureSize = 8;
constexpr int chunkStartSize = 8; //!< length of the data and type
constexpr int lengthSize = 4;
constexpr int checksumSize = 4;
constexpr int imageHeaderSize = 13;
constexpr int widthAt = signatureSize + chunkStartSize;
constexpr int heightAt = widthAt + 4;
constexpr int depthAt = widthAt + 8;
constexpr int fileStartSize = signatureSize + chunkStartSize + imageHeaderSize;

struct Chunk
{
    QByteArray type;
    FileRange whole; //!< with length, type and checksum

    //! Bit 5 of the type's first letter is set if the picture can be decoded without the chunk.
    bool matters() const { return (type.at(0) & 0x20) == 0 || type == "tRNS"; }
};

quint32 bigEndianAt(const QByteArray &bytes, int position)
{
    return qFromBigEndian<quint32>(bytes.constData() + position);
}

//! Bits per decoded pixel; 0 if the file does not start like a PNG, or the picture exceeds the limits.
int decodedBits(const QByteArray &fileStart)
{
    const QByteArray signatureAndType = fileStart.left(widthAt);
    if (signatureAndType != QByteArray::fromRawData("\x89PNG\r\n\x1a\n\0\0\0\x0dIHDR", widthAt))
        return 0;
    constexpr int deepChannel = 16;
    const int bits = fileStart.at(depthAt) == deepChannel ? deepPixel : plainPixel;
    return isDecodable(bigEndianAt(fileStart, widthAt), bigEndianAt(fileStart, heightAt), bits) ? bits : 0;
}

std::optional<Chunk> chunkAt(const RegularFile &file, qint64 offset, qint64 end)
{
    if (end - offset < chunkStartSize + checksumSize)
        return std::nullopt;
    const QByteArray start = file.readAll(offset, chunkStartSize);
    if (start.isEmpty()) // the file has shrunk
        return std::nullopt;
    const Chunk chunk = {start.mid(4),
                         {offset, chunkStartSize + qint64(bigEndianAt(start, 0)) + checksumSize}};
    return chunk.whole.end() <= end ? std::optional(chunk) : std::nullopt;
}

//! Sorts the chunks of which a decoder makes the picture.
class PngSorter
{
public:
    void add(const Chunk &chunk)
    {
        const std::array<const char *, 5> order = {"IHDR", "PLTE", "tRNS", "IDAT", "IEND"};
        constexpr size_t data = 3; // the only one that may come again
        const std::array<FileRange *, 5> once = {&parts.header, &parts.palette, &parts.transparency, nullptr,
                                                 &parts.end};
        const auto index =
            static_cast<size_t>(std::find(order.begin(), order.end(), chunk.type) - order.begin());
        const FileRange range = {chunk.whole.offset + lengthSize, chunk.whole.size - lengthSize};
        parts.areInOrder = parts.areInOrder && index >= m_next && index < order.size();
        if (index == data)
            parts.data.push_back(range);
        else if (index < once.size())
            *once[index] = range;
        m_next = std::min(index + 1, data);
    }

    PngParts parts;

private:
    size_t m_next = 0; //!< the lowest index that may come next
};

void append(std::vector<FileRange> &ranges, const FileRange &range)
{
    if (!ranges.empty() && ranges.back().end() == range.offset)
        ranges.back().size += range.size;
    else
        ranges.push_back(range);
}

} // namespace

std::optional<PictureLayout> layOutPng(const RegularFile &file, const FileRange &data)
{
    if (data.size < fileStartSize)
        return std::nullopt;
    const QByteArray fileStart = file.readAll(data.offset, fileStartSize);
    const int bits = decodedBits(fileStart);
    if (bits == 0)
        return std::nullopt;

    PictureLayout layout;
    layout.format = "png";
    layout.size = QSize(static_cast<int>(bigEndianAt(fileStart, widthAt)),
                        static_cast<int>(bigEndianAt(fileStart, heightAt)));
    layout.bitsPerPixel = bits;
    layout.ranges = {{data.offset, signatureSize}};
    PngSorter sorter;
    int chunks = 0;
    for (qint64 at = data.offset + signatureSize; chunks < maxChunks; ++chunks) {
        const std::optional<Chunk> chunk = chunkAt(file, at, data.end());
        if (!chunk)
            return std::nullopt;
        if (chunk->matters()) {
            append(layout.ranges, chunk->whole);
            sorter.add(*chunk);
        }
        if (chunk->type == "IEND") {
            layout.png = sorter.parts;
            return layout;
        }
        at = chunk->whole.end();
    }
    return std::nullopt;
}

} // namespace fxhost
