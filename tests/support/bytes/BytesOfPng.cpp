// SPDX-License-Identifier: MIT
#include "tests/support/bytes/BytesOfPng.h"

#include <QBuffer>
#include <QVector>
#include <QtEndian>

#include <array>

namespace testbytes {

namespace {

constexpr int signatureSize = 8;    // bytes
constexpr int headerChunkSize = 25; // bytes, with length, type and checksum

QByteArray bigEndian(quint32 value)
{
    QByteArray bytes(4, '\0');
    qToBigEndian(value, bytes.data());
    return bytes;
}

constexpr std::array<quint32, 256> checksumTable()
{
    std::array<quint32, 256> table = {};
    for (quint32 byte = 0; byte < table.size(); ++byte) {
        quint32 sum = byte;
        for (int bit = 0; bit < 8; ++bit)
            sum = (sum & 1) != 0 ? sum >> 1 ^ 0xEDB88320 : sum >> 1;
        table[byte] = sum;
    }
    return table;
}

//! The pixels of a pass: every xStep-th of every yStep-th row.
struct Pass
{
    quint32 xStart, yStart, xStep, yStep;
};
const QVector<Pass> onePass = {{0, 0, 1, 1}};
const QVector<Pass> interlacedPasses = {{0, 0, 8, 8}, {4, 0, 8, 8}, {0, 4, 4, 8}, {2, 0, 4, 4},
                                        {0, 2, 2, 4}, {1, 0, 2, 2}, {0, 1, 1, 2}};

quint32 stepsFrom(quint32 start, quint32 step, quint32 end)
{
    return end > start ? (end - start + step - 1) / step : 0;
}

//! Size in bytes of the picture before compression, filter bytes included.
int rawSize(const PngHeader &header)
{
    constexpr std::array<quint32, 7> channels = {1, 0, 3, 1, 2, 0, 4};
    const quint32 bitsPerPixel =
        static_cast<quint32>(header.bitDepth) * channels.at(static_cast<size_t>(header.colorType));
    quint32 size = 0;
    for (const Pass &pass : header.isInterlaced ? interlacedPasses : onePass) {
        const quint32 width = stepsFrom(pass.xStart, pass.xStep, header.width);
        if (width > 0) // one byte names each row's filter
            size += (1 + (width * bitsPerPixel + 7) / 8) * stepsFrom(pass.yStart, pass.yStep, header.height);
    }
    return static_cast<int>(size);
}

} // namespace

quint32 pngChecksum(const uchar *begin, const uchar *end)
{
    static constexpr std::array<quint32, 256> table = checksumTable();
    quint32 sum = 0xFFFFFFFF;
    for (; begin != end; ++begin)
        sum = table[(sum ^ *begin) & 0xFF] ^ sum >> 8;
    return ~sum;
}

QByteArray pngChunk(const QByteArray &type, const QByteArray &data)
{
    const QByteArray sound = type + data;
    const auto *const begin = reinterpret_cast<const uchar *>(sound.constData());
    return bigEndian(static_cast<quint32>(data.size())) + sound +
           bigEndian(pngChecksum(begin, begin + sound.size()));
}

QByteArray PngHeader::bytes() const
{
    QByteArray data = bigEndian(width) + bigEndian(height);
    data.append(static_cast<char>(bitDepth)).append(static_cast<char>(colorType)).append(2, '\0');
    data.append(isInterlaced ? '\1' : '\0');
    return pngChunk("IHDR", data);
}

QByteArray blankPng(const PngHeader &header, const QByteArray &extraChunks)
{
    constexpr int qtsOwnPrefix = 4; // bytes before the zlib stream
    const QByteArray data = qCompress(QByteArray(rawSize(header), '\0')).mid(qtsOwnPrefix);
    return QByteArray("\x89PNG\r\n\x1a\n", signatureSize) + header.bytes() + extraChunks +
           pngChunk("IDAT", data) + pngChunk("IEND", {});
}

QByteArray pngOf(const QImage &picture)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (!picture.save(&buffer, "PNG"))
        qFatal("cannot encode a PNG");
    return buffer.data();
}

QByteArray withHeader(QByteArray png, const PngHeader &header)
{
    return png.replace(signatureSize, headerChunkSize, header.bytes());
}

} // namespace testbytes
