// SPDX-License-Identifier: MIT
#include "tests/fuzz/Repair.h"

#include "tests/support/bytes/BytesOfPng.h"

#include <QtEndian>

#include <algorithm>
#include <array>

namespace fuzz {

namespace {

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

//! \return the end of the last complete chunk
std::uint8_t *repairChunks(std::uint8_t *chunk, const std::uint8_t *end)
{
    constexpr std::size_t frameSize = lengthSize + typeSize + checksumSize;
    while (static_cast<std::size_t>(end - chunk) >= frameSize) {
        const std::size_t length = qFromBigEndian<quint32>(chunk);
        if (static_cast<std::size_t>(end - chunk) - frameSize < length)
            break;
        std::uint8_t *const dataEnd = chunk + lengthSize + typeSize + length;
        qToBigEndian(testbytes::pngChecksum(chunk + lengthSize, dataEnd), dataEnd);
        chunk = dataEnd + checksumSize;
    }
    return chunk;
}

} // namespace

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

void repairPngChecksums(std::uint8_t *data, std::size_t size)
{
    std::uint8_t *const end = data + size;
    std::uint8_t *from = data;
    while (true) {
        std::uint8_t *const png = std::search(from, end, pngSignature.begin(), pngSignature.end());
        if (png == end)
            return;
        from = repairChunks(png + pngSignature.size(), end);
    }
}

} // namespace fuzz
