// SPDX-License-Identifier: MIT
// Input: a drawing file. Output: its picture or none.
#include "host/runtime/preview/DrawingFile.h"
#include "host/runtime/preview/PictureLimits.h"
#include "host/runtime/preview/PreviewReader.h"
#include "tests/fuzz/MemoryFile.h"
#include "tests/fuzz/Target.h"
#include "tests/support/bytes/BytesOfPng.h"

#include <QCoreApplication>
#include <QtEndian>

#include <algorithm>
#include <array>

#include <malloc.h>

using fuzz::require;

namespace {

QImage pictureIn(const QString &path)
{
    QImage picture;
    fuzz::runWithinLimits([&] { picture = fxhost::readPreview(path); });
    return picture;
}

//! Reads the picture again while all allocated memory is filled with one value, then with another: pixels
//! that the reader does not write differ.
void requireEveryPixelWritten(const QString &path, const QImage &picture)
{
    for (const int filling : {0x55, 0xAA}) {
        ::mallopt(M_PERTURB, filling); // NOLINT(concurrency-mt-unsafe): there is only this thread
        const QImage again = fxhost::readPreview(path);
        ::mallopt(M_PERTURB, 0); // NOLINT(concurrency-mt-unsafe)
        require(again == picture, "a picture depends on the file only");
    }
}

void checkPicture(const QImage &picture, const QByteArray &file)
{
    if (picture.isNull())
        return;
    require(picture.width() <= fxhost::maxSide && picture.height() <= fxhost::maxSide,
            "no side of a picture is longer than the limit");
    require(picture.sizeInBytes() <= fxhost::maxDecodedBytes, "no picture takes more than the limit");
    require(!picture.hasAlphaChannel() || file.contains("\x89PNG"), "a bitmap is opaque");
}

// What random changes break in a drawing file is repaired, so that the reader does not stop there.

// Sizes and places in bytes.
constexpr std::size_t addressAt = 0x0D;
constexpr std::size_t addressEnd = addressAt + 4;
constexpr std::size_t countAt = 20; //!< from the section's start
constexpr std::size_t tableAt = 21;
constexpr std::size_t tableEntrySize = 9;
constexpr std::array<std::uint8_t, 16> sentinel = {0x1F, 0x25, 0x6D, 0x07, 0xD4, 0x36, 0x28, 0x28,
                                                   0x9D, 0x57, 0xCA, 0x3F, 0x9D, 0x44, 0x10, 0x2B};

constexpr std::array<std::uint8_t, 8> pngSignature = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
constexpr std::size_t lengthSize = 4;
constexpr std::size_t typeSize = 4;
constexpr std::size_t checksumSize = 4;

void moveNumber(std::uint8_t *place, quint32 distance)
{
    qToLittleEndian(qFromLittleEndian<quint32>(place) + distance, place);
}

//! If a chunk's data start like a stream of uncompressed data, makes them a sound one, so that changes of
//! the pixels reach the reader.
void repairStream(std::uint8_t *data, std::size_t size)
{
    constexpr std::array<std::uint8_t, 3> start = {0x78, 0x01, 0x01}; // then the length, twice
    constexpr std::size_t headSize = start.size() + 4;
    constexpr std::size_t sumSize = 4;
    if (size < headSize + sumSize || !std::equal(start.begin(), start.end(), data))
        return;
    const auto length = static_cast<quint16>(size - headSize - sumSize);
    qToLittleEndian(length, data + start.size());
    qToLittleEndian(static_cast<quint16>(~length), data + start.size() + 2);
    constexpr quint32 modulus = 65521; // of the sum Adler-32
    quint32 sum = 1;
    quint32 sumOfSums = 0;
    for (std::uint8_t *byte = data + headSize; byte != data + headSize + length; ++byte) {
        sum = (sum + *byte) % modulus;
        sumOfSums = (sumOfSums + sum) % modulus;
    }
    qToBigEndian(sumOfSums << 16 | sum, data + headSize + length);
}

//! Calls visit(type, length of the data) for every PNG's complete chunks.
template<typename Byte, typename Visit>
void forEachChunk(Byte *from, Byte *end, const Visit &visit)
{
    constexpr std::size_t frameSize = lengthSize + typeSize + checksumSize;
    while (true) {
        from = std::search(from, end, pngSignature.begin(), pngSignature.end());
        if (from == end)
            return;
        from += pngSignature.size(); // and no farther, because another PNG may be inside
        Byte *chunk = from;
        while (static_cast<std::size_t>(end - chunk) >= frameSize) {
            const std::size_t length = qFromBigEndian<quint32>(chunk);
            if (static_cast<std::size_t>(end - chunk) - frameSize < length)
                break;
            visit(chunk + lengthSize, length);
            chunk += frameSize + length;
        }
    }
}

//! If the preview section has moved, adapts the header's address and the table's entries.
void repairAddresses(std::uint8_t *data, std::size_t size)
{
    if (size < addressEnd)
        return;
    std::uint8_t *const end = data + size;
    std::uint8_t *const section = std::search(data + addressEnd, end, sentinel.begin(), sentinel.end());
    if (static_cast<std::size_t>(end - section) < tableAt)
        return;
    const quint32 distance =
        static_cast<quint32>(section - data) - qFromLittleEndian<quint32>(data + addressAt);
    if (distance == 0)
        return;
    moveNumber(data + addressAt, distance);
    std::uint8_t *entry = section + tableAt;
    for (int left = section[countAt]; left > 0 && static_cast<std::size_t>(end - entry) >= tableEntrySize;
         --left) {
        moveNumber(entry + 1, distance);
        entry += tableEntrySize;
    }
}

//! Gives every chunk of every PNG its right checksums, as far as the chunks' lengths are valid.
void repairPngChecksums(std::uint8_t *data, std::size_t size)
{
    forEachChunk(data, data + size, [](std::uint8_t *type, std::size_t length) {
        std::uint8_t *const end = type + typeSize + length;
        repairStream(type + typeSize, length);
        qToBigEndian(testbytes::pngChecksum(type, end), end);
    });
}

//! Whether a PNG's data are refused by zlib: libdeflate accepts some codes that have no meaning.
bool hasDataThatZlibRefuses(const std::uint8_t *file, std::size_t size)
{
    const QByteArray qtsOwnPrefix(4, '\0');
    QByteArray data = qtsOwnPrefix;
    bool isRefused = false;
    forEachChunk(file, file + size, [&](const std::uint8_t *chunk, std::size_t length) {
        const QByteArray type = fuzz::bytesOf(chunk, typeSize);
        if (type == "IHDR")
            data = qtsOwnPrefix;
        if (type == "IDAT")
            data += fuzz::bytesOf(chunk + typeSize, length);
        if (type == "IEND")
            isRefused = isRefused || qUncompress(data).isEmpty();
    });
    return isRefused;
}

//! Formats may differ, colours must not.
void requireSameAsQts(const QImage &picture, const QString &path, const std::uint8_t *file, std::size_t size)
{
    const QImage::Format format = QImage::Format_ARGB32_Premultiplied;
    require(picture.convertToFormat(format) == fxhost::readPreviewWithQt(path).convertToFormat(format) ||
                hasDataThatZlibRefuses(file, size),
            "a picture is what Qt decodes");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static fuzz::MemoryFile file;
    static const bool isPrepared = [] {
        fuzz::dropWarnings();
        // Both decoders are built in; asking every plug-in takes longer than everything else.
        QCoreApplication::setLibraryPaths({});
        return true;
    }();
    static_cast<void>(isPrepared);

    const QByteArray bytes = fuzz::bytesOf(data, size);
    file.write(bytes);
    const QImage picture = pictureIn(file.path());
    checkPicture(picture, bytes);
    if (!picture.isNull())
        requireSameAsQts(picture, file.path(), data, size);
    if (!picture.isNull() && !fuzz::isSanitized()) // which has its own allocator
        requireEveryPixelWritten(file.path(), picture);

    const fxhost::DrawingFile drawing = fxhost::readDrawing(file.path());
    const bool isDrawing = bool(drawing.outcome);
    require(isDrawing == !drawing.version.isEmpty() && isDrawing == drawing.outcome.reason().isEmpty(),
            "a file is a drawing of some version, or there is a reason why not");
    require(isDrawing || (picture.isNull() && !drawing.isPreviewAlone), "only a drawing has a picture");
    require(drawing.preview == picture, "a drawing's picture is its preview");
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t *data, std::size_t size, std::size_t maxSize,
                                               unsigned int seed)
{
    const std::size_t newSize = LLVMFuzzerMutate(data, size, maxSize);
    // Not always, because the reader must notice wrong ones too.
    if (seed % 4 != 0)
        repairAddresses(data, newSize);
    if (seed % 8 != 1)
        repairPngChecksums(data, newSize);
    return newSize;
}
