// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <cstddef>
#include <cstdint>

// What every fuzz target defines. Clang's engine calls it, and so does Replay.cpp where there is none.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);
// What a target may define: changes an input in place to one that gets further than chance would.
// \param size bytes of data that are used, of maxSize \return the new size
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t *data, std::size_t size, std::size_t maxSize,
                                               unsigned int seed);
// The engine's own change, for use by the one above.
extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t *data, std::size_t size, std::size_t maxSize);

namespace fuzz {

//! Makes the input a finding unless the condition holds. \param what should hold, in words
void require(bool condition, const char *what);

//! Has Qt's warnings dropped: of a broken input Qt complains at length, and that it does so is no finding.
void dropWarnings();

//! The input without a copy; valid while data is.
inline QByteArray bytesOf(const std::uint8_t *data, std::size_t size)
{
    return QByteArray::fromRawData(reinterpret_cast<const char *>(data), static_cast<int>(size));
}

} // namespace fuzz
